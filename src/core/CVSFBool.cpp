#include "core/CVSFBool.h"

#include <cstring>

IMPLEMENT_DYNAMIC(CVSFBool, CVSField)

CVSFBool::CVSFBool() : CVSField(271) {}

int CVSFBool::SetValue(int value) {
    m_nValue = value;
    return 1;
}

int CVSFBool::SetValue(const char* text) {
    m_nValue = (text != nullptr && std::strcmp(text, "TRUE") == 0) ? 1 : 0;
    return 1;
}

void CVSFBool::Clone(const CVSFBool& other) { m_nValue = other.m_nValue; }
