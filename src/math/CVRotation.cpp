#include "math/CVRotation.h"

#include "math/CVQuaternion.h"

void CVRotation::SetValue(Point3fStruct axis, float angle) {
    m_fAngle = angle;
    m_fX = axis.x;
    m_fY = axis.y;
    m_fZ = axis.z;
}

void CVRotation::SetValue(float x, float y, float z, float angle) {
    m_fAngle = angle;
    m_fX = x;
    m_fY = y;
    m_fZ = z;
}

void CVRotation::SetValue(float ax, float ay, float az) {
    CVQuaternion qx, qy, qz;
    qx.Set(Point3fStruct{1.0f, 0.0f, 0.0f}, ax);
    qy.Set(Point3fStruct{0.0f, 1.0f, 0.0f}, ay);
    qz.Set(Point3fStruct{0.0f, 0.0f, 1.0f}, az);
    const CVQuaternion q = (qx * qy) * qz;
    Point3fStruct axis;
    float angle;
    q.Get(axis, angle);
    SetValue(axis, angle);
}

void CVRotation::SetValue(const CVVector& from, const CVVector& to) {
    CVVector axis = from * to;
    axis.Normalize();
    m_fX = axis.x;
    m_fY = axis.y;
    m_fZ = axis.z;
    m_fAngle = from.Angle(to);
}

void CVRotation::GetValue(Point3fStruct& axis, float& angle) const {
    axis.x = m_fX;
    axis.y = m_fY;
    axis.z = m_fZ;
    angle = m_fAngle;
}

void CVRotation::GetValue(float& x, float& y, float& z, float& angle) const {
    x = m_fX;
    y = m_fY;
    z = m_fZ;
    angle = m_fAngle;
}

CVRotation CVRotation::operator+(const CVRotation&) const { return CVRotation(); }

CVRotation& CVRotation::operator+=(const CVRotation&) { return *this; }
