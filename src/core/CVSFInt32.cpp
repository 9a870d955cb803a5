#include "core/CVSFInt32.h"

#include <cstdio>

IMPLEMENT_DYNAMIC(CVSFInt32, CVSField)

CVSFInt32::CVSFInt32() : CVSField(275) {}

int CVSFInt32::SetValue(int value) {
    m_nValue = value;
    return 1;
}

int CVSFInt32::SetValue(const char* text) {
    if (text != nullptr) std::sscanf(text, "%d", &m_nValue);
    return 1;
}

void CVSFInt32::Clone(const CVSFInt32& other) { m_nValue = other.m_nValue; }
