#pragma once
// Axis-angle rotation: four floats in the order angle, axis x,
// axis y, axis z. No virtual table. Default: angle 0 about (0,1,0).
#include "../platform/CVExport.h"
#include "CVStructs.h"
#include "CVVector.h"

class CVSCENE_API CVRotation {
public:
    CVRotation() : m_fAngle(0.0f), m_fX(0.0f), m_fY(1.0f), m_fZ(0.0f) {}
    CVRotation(float x, float y, float z, float angle) : m_fAngle(angle), m_fX(x), m_fY(y), m_fZ(z) {}
    CVRotation(const Point3fStruct& axis, float angle) : m_fAngle(angle), m_fX(axis.x), m_fY(axis.y), m_fZ(axis.z) {}
    CVRotation(const CVRotation&) = default;
    CVRotation& operator=(const CVRotation&) = default;

    // Store the values unchanged (the axis is not normalised).
    void SetValue(Point3fStruct axis, float angle);
    void SetValue(float x, float y, float z, float angle);
    // From three angles about x, y and z: (qx * qy) * qz of the single-axis
    // quaternions, stored as its axis and angle (CVQuaternion::Get).
    void SetValue(float ax, float ay, float az);
    // Axis = normalised (from x to), angle = from.Angle(to).
    void SetValue(const CVVector& from, const CVVector& to);

    void GetValue(Point3fStruct& axis, float& angle) const;
    void GetValue(float& x, float& y, float& z, float& angle) const;
    float GetAngle() const { return m_fAngle; }
    Point3fStruct GetAxis() const { return Point3fStruct{m_fX, m_fY, m_fZ}; }

    // Exact comparison of all four floats.
    bool operator==(const CVRotation& r) const {
        return m_fAngle == r.m_fAngle && m_fX == r.m_fX && m_fY == r.m_fY && m_fZ == r.m_fZ;
    }
    bool operator!=(const CVRotation& r) const { return !(*this == r); }

    // Declared but not composing: operator+ returns the default
    // rotation (angle 0 about (0,1,0)) whatever the operands; operator+= does
    // nothing.
    CVRotation operator+(const CVRotation& r) const;
    CVRotation& operator+=(const CVRotation& r);

private:
    float m_fAngle;
    float m_fX, m_fY, m_fZ;
};
