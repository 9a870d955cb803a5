#include "core/CVSFVec3f.h"

#include <cstdio>

IMPLEMENT_DYNAMIC(CVSFVec3f, CVSField)

CVSFVec3f::CVSFVec3f() : CVSField(281) {}

int CVSFVec3f::SetValue(float x, float y, float z) {
    m_ptValue = {x, y, z};
    return 1;
}

int CVSFVec3f::SetValue(const Point3fStruct& value) {
    m_ptValue = value;
    return 1;
}

int CVSFVec3f::SetValue(const char* text) {
    if (text != nullptr) std::sscanf(text, "%f%f%f", &m_ptValue.x, &m_ptValue.y, &m_ptValue.z);
    return 1;
}

void CVSFVec3f::Clone(const CVSFVec3f& other) { m_ptValue = other.m_ptValue; }
