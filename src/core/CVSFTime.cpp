#include "core/CVSFTime.h"

#include <cstdio>
#include <cstring>

IMPLEMENT_DYNAMIC(CVSFTime, CVSField)

CVSFTime::CVSFTime() : CVSField(279) {}

int CVSFTime::SetValue(double value) {
    m_dValue = value;
    return 1;
}

int CVSFTime::SetValue(const char* text) {
    // Byte copies rather than a float* cast: same bytes, no aliasing fault.
    float fValue;
    if (text != nullptr && std::sscanf(text, "%f", &fValue) == 1)
        std::memcpy(&m_dValue, &fValue, sizeof fValue);
    return 1;
}

void CVSFTime::Clone(const CVSFTime& other) { m_dValue = other.m_dValue; }
