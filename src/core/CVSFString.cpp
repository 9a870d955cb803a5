#include "core/CVSFString.h"

IMPLEMENT_DYNAMIC(CVSFString, CVSField)

CVSFString::CVSFString() : CVSField(278) {}

int CVSFString::SetValue(const CString& value) {
    m_strValue = value;
    return 1;
}

int CVSFString::SetValue(const char* text) {
    m_strValue = CString(text);
    return 1;
}

void CVSFString::Clone(const CVSFString& other) { m_strValue = other.m_strValue; }
