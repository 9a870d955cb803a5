#include "core/CVSFVec2f.h"

#include <cstdio>

IMPLEMENT_DYNAMIC(CVSFVec2f, CVSField)

CVSFVec2f::CVSFVec2f() : CVSField(280) {}

int CVSFVec2f::SetValue(float x, float y) {
    m_ptValue = {x, y};
    return 1;
}

int CVSFVec2f::SetValue(const Point2fStruct& value) {
    m_ptValue = value;
    return 1;
}

int CVSFVec2f::SetValue(const char* text) {
    if (text != nullptr) std::sscanf(text, "%f%f", &m_ptValue.x, &m_ptValue.y);
    return 1;
}

void CVSFVec2f::Clone(const CVSFVec2f& other) { m_ptValue = other.m_ptValue; }
