#include "core/CVSFColor.h"

#include <cstdio>

IMPLEMENT_DYNAMIC(CVSFColor, CVSField)

CVSFColor::CVSFColor() : CVSField(272) {}

int CVSFColor::SetValue(float r, float g, float b) {
    m_rgbValue = {r, g, b};
    return 1;
}

int CVSFColor::SetValue(const RGBColorStruct& value) {
    m_rgbValue = value;
    return 1;
}

int CVSFColor::SetValue(const char* text) {
    // A short read is not an error: what was not read stays as it was.
    if (text != nullptr) std::sscanf(text, "%f%f%f", &m_rgbValue.r, &m_rgbValue.g, &m_rgbValue.b);
    return 1;
}

void CVSFColor::Clone(const CVSFColor& other) { m_rgbValue = other.m_rgbValue; }
