#include "math/CVQuaternion.h"

#include <cmath>

void CVQuaternion::Set(const Point3fStruct& axis, float angle) {
    const double half = (double)angle / 2.0;
    const double s = std::sin(half);
    x = (float)(axis.x * s);
    y = (float)(axis.y * s);
    z = (float)(axis.z * s);
    w = (float)std::cos(half);
}

void CVQuaternion::Set(const CVVector& axis, float angle) {
    Set(Point3fStruct{axis.x, axis.y, axis.z}, angle);
}

void CVQuaternion::Get(Point3fStruct& axis, float& angle) const {
    float cw = w;
    if (cw > 1.0f) cw = 1.0f;
    if (cw < -1.0f) cw = -1.0f;
    angle = 2.0f * std::acos(cw);
    if (angle == 0.0f) {
        axis.x = axis.y = axis.z = 0.0f;
        return;
    }
    const float s = std::sin(angle / 2.0f);
    axis.x = x / s;
    axis.y = y / s;
    axis.z = z / s;
}

void CVQuaternion::Get(CVVector& axis, float& angle) const {
    Point3fStruct p;
    Get(p, angle);
    axis.SetValue(p);
}

CVQuaternion CVQuaternion::operator*(const CVQuaternion& q) const {
    return CVQuaternion(w * q.x + x * q.w + y * q.z - z * q.y,
                        w * q.y + y * q.w + z * q.x - x * q.z,
                        w * q.z + z * q.w + x * q.y - y * q.x,
                        w * q.w - x * q.x - y * q.y - z * q.z);
}

CVQuaternion& CVQuaternion::operator*=(const CVQuaternion& q) {
    *this = *this * q;
    return *this;
}

float CVQuaternion::Length() const { return std::sqrt(Norm()); }

CVQuaternion& CVQuaternion::Negate() {
    x = -x;
    y = -y;
    z = -z;
    w = -w;
    return *this;
}

CVQuaternion& CVQuaternion::Conjugate(const CVQuaternion& q) {
    Set(-q.x, -q.y, -q.z, q.w);
    return *this;
}

CVQuaternion& CVQuaternion::Inverse(const CVQuaternion& q) {
    const float n = q.Norm();
    Conjugate(q);
    if (n != 0.0f) {
        x /= n;
        y /= n;
        z /= n;
        w /= n;
    }
    return *this;
}

CVQuaternion CVQuaternion::Cross(const CVQuaternion& q) const {
    return CVQuaternion(y * q.z - z * q.y, z * q.x - x * q.z, x * q.y - y * q.x, 0.0f);
}

void CVQuaternion::Normalize() {
    const float len = std::sqrt(x * x + y * y + z * z);
    if (len == 0.0f) return;
    x /= len;
    y /= len;
    z /= len;
}

CVQuaternion CVQuaternion::Bisect(const CVQuaternion& q) const {
    const CVQuaternion s = *this + q;
    const float len = std::sqrt(s.x * s.x + s.y * s.y + s.z * s.z);
    if (len == 0.0f || len < 1e-5f) return CVQuaternion(0.0f, 0.0f, 1.0f, 0.0f);
    return CVQuaternion(s.x / len, s.y / len, s.z / len, s.w);
}

CVQuaternion CVQuaternion::ConvertXYZtoQuaternion(float ax, float ay, float az, eRotationOrder order) {
    CVQuaternion qx, qy, qz;
    qx.Set(Point3fStruct{1.0f, 0.0f, 0.0f}, ax);
    qy.Set(Point3fStruct{0.0f, 1.0f, 0.0f}, ay);
    qz.Set(Point3fStruct{0.0f, 0.0f, 1.0f}, az);
    switch (order) {
    case XYZ: return (qx * qy) * qz;
    case XZY: return (qx * qz) * qy;
    case YXZ: return (qy * qx) * qz;
    case YZX: return (qy * qz) * qx;
    case ZXY: return (qz * qx) * qy;
    case ZYX: return (qz * qy) * qx;
    }
    return (qx * qy) * qz;  // unknown order: as XYZ
}
