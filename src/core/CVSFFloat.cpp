#include "core/CVSFFloat.h"

#include <cstdio>

IMPLEMENT_DYNAMIC(CVSFFloat, CVSField)

CVSFFloat::CVSFFloat() : CVSField(273) {}

int CVSFFloat::SetValue(float value) {
    m_fValue = value;
    return 1;
}

int CVSFFloat::SetValue(const char* text) {
    if (text != nullptr) std::sscanf(text, "%f", &m_fValue);
    return 1;
}

void CVSFFloat::Clone(const CVSFFloat& other) { m_fValue = other.m_fValue; }
