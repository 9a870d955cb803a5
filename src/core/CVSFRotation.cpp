#include "core/CVSFRotation.h"

#include <cstdio>

IMPLEMENT_DYNAMIC(CVSFRotation, CVSField)

CVSFRotation::CVSFRotation() : CVSField(277) {}

void CVSFRotation::SetValue(const CVRotation& value) { m_rotValue = value; }

void CVSFRotation::SetValue(float x, float y, float z, float angle) { m_rotValue.SetValue(x, y, z, angle); }

void CVSFRotation::SetValue(Point3fStruct axis, float angle) { m_rotValue.SetValue(axis, angle); }

void CVSFRotation::SetValue(float ax, float ay, float az) { m_rotValue.SetValue(ax, ay, az); }

int CVSFRotation::SetValue(const char* text) {
    // Scan over the current values so that what the text lacks is kept.
    Point3fStruct axis;
    float angle;
    m_rotValue.GetValue(axis, angle);
    if (text != nullptr) std::sscanf(text, "%f%f%f%f", &axis.x, &axis.y, &axis.z, &angle);
    m_rotValue.SetValue(axis, angle);
    return 1;
}

void CVSFRotation::GetValue(Point3fStruct& axis, float& angle) const { m_rotValue.GetValue(axis, angle); }

void CVSFRotation::Clone(const CVSFRotation& other) { m_rotValue = other.m_rotValue; }
