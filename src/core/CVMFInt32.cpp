#include "core/CVMFInt32.h"

#include <cstdio>

IMPLEMENT_DYNAMIC(CVMFInt32, CVMField)

CVMFInt32::CVMFInt32() : CVMField(284) { m_aValues.SetSize(0, kGrowBy); }

int CVMFInt32::Add(int value) {
    m_aValues.Add(value);
    return 1;
}

int CVMFInt32::Add(const char* text) {
    int value = 0;
    if (text != nullptr) std::sscanf(text, "%d", &value);
    return Add(value);
}

void CVMFInt32::SetAt(int i, int value) {
    CheckNotNegative(i, "CVMFInt32::SetAt()");
    m_aValues.SetAtGrow(i, value);
}

void CVMFInt32::InsertAt(int i, int value) {
    CheckNotNegative(i, "CVMFInt32::InsertAt()");
    m_aValues.InsertAt(i, value);
}

void CVMFInt32::RemoveAll() { m_aValues.RemoveAll(); }

void CVMFInt32::Clone(const CVMFInt32& other) {
    m_aValues.SetSize(other.m_aValues.GetSize());
    for (INT_PTR i = 0; i < other.m_aValues.GetSize(); ++i) m_aValues[i] = other.m_aValues[i];
}

int CVMFInt32::operator[](int i) const {
    CheckIndex(i, m_aValues.GetSize(), "CVMFInt32::operator[]()");
    return m_aValues[i];
}

LONGLONG CVMFInt32::GetNum() const { return m_aValues.GetSize(); }

void CVMFInt32::SetSize(LONGLONG n, int growBy) {
    CheckNotNegative(n, "CVMFInt32::SetSize()");
    m_aValues.SetSize(n, growBy);
}
