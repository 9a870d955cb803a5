#include "core/CVMFFloat.h"

#include <cstdio>

IMPLEMENT_DYNAMIC(CVMFFloat, CVMField)

CVMFFloat::CVMFFloat() : CVMField(283) { m_aValues.SetSize(0, kGrowBy); }

int CVMFFloat::Add(float value) {
    m_aValues.Add(value);
    return 1;
}

int CVMFFloat::Add(const char* text) {
    float value = 0.0f;
    if (text != nullptr) std::sscanf(text, "%f", &value);
    return Add(value);
}

void CVMFFloat::SetAt(int i, float value) {
    CheckNotNegative(i, "CVMFFloat::SetAt()");
    m_aValues.SetAtGrow(i, value);
}

void CVMFFloat::InsertAt(int i, float value) {
    CheckNotNegative(i, "CVMFFloat::InsertAt()");
    m_aValues.InsertAt(i, value);
}

void CVMFFloat::RemoveAll() { m_aValues.RemoveAll(); }

void CVMFFloat::Clone(const CVMFFloat& other) {
    m_aValues.SetSize(other.m_aValues.GetSize());
    for (INT_PTR i = 0; i < other.m_aValues.GetSize(); ++i) m_aValues[i] = other.m_aValues[i];
}

float CVMFFloat::operator[](int i) const {
    CheckIndex(i, m_aValues.GetSize(), "CVMFFloat::operator[]()");
    return m_aValues[i];
}

LONGLONG CVMFFloat::GetNum() const { return m_aValues.GetSize(); }

void CVMFFloat::SetSize(LONGLONG n, int growBy) {
    CheckNotNegative(n, "CVMFFloat::SetSize()");
    m_aValues.SetSize(n, growBy);
}
