#include "core/CVMFString.h"

IMPLEMENT_DYNAMIC(CVMFString, CVMField)

CVMFString::CVMFString() : CVMField(286) { m_aValues.SetSize(0, kGrowBy); }

int CVMFString::Add(const CString& value) {
    m_aValues.Add(value);
    return 1;
}

int CVMFString::Add(const char* text) { return Add(CString(text)); }

void CVMFString::SetAt(int i, const CString& value) {
    CheckNotNegative(i, "CVMFString::SetAt()");
    m_aValues.SetAtGrow(i, value);
}

void CVMFString::InsertAt(int i, const CString& value) {
    CheckNotNegative(i, "CVMFString::InsertAt()");
    m_aValues.InsertAt(i, value);
}

void CVMFString::RemoveAll() { m_aValues.RemoveAll(); }

void CVMFString::Clone(const CVMFString& other) {
    m_aValues.SetSize(other.m_aValues.GetSize());
    for (INT_PTR i = 0; i < other.m_aValues.GetSize(); ++i) m_aValues[i] = other.m_aValues[i];
}

const CString& CVMFString::operator[](int i) const {
    CheckIndex(i, m_aValues.GetSize(), "CVMFString::operator[]()");
    return m_aValues[i];
}

LONGLONG CVMFString::GetNum() const { return m_aValues.GetSize(); }

void CVMFString::SetSize(LONGLONG n, int growBy) {
    CheckNotNegative(n, "CVMFString::SetSize()");
    m_aValues.SetSize(n, growBy);
}
