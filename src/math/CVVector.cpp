#include "math/CVVector.h"

#include <cmath>

#include "math/CVPlane.h"

CVVector CVVector::operator*(const CVVector& v) const {
    return CVVector(y * v.z - z * v.y, z * v.x - x * v.z, x * v.y - y * v.x);
}

CVVector& CVVector::operator!() {
    Normalize();
    return *this;
}

void CVVector::Normalize() {
    float len = Length();
    if (len != 0.0f) {
        x /= len;
        y /= len;
        z /= len;
    }
}

float CVVector::Normalize(float length) {
    if (length == 0.0f) return 0.0f;
    x /= length;
    y /= length;
    z /= length;
    return 1.0f / length;
}

float CVVector::Length() const { return std::sqrt(*this % *this); }

bool CVVector::operator==(const CVVector& v) const {
    return std::fabs(x - v.x) < 1e-7f && std::fabs(y - v.y) < 1e-7f && std::fabs(z - v.z) < 1e-7f;
}

int CVVector::IsParallel(const CVVector& v) const {
    float d = *this % v;
    return (d == 1.0f || d == -1.0f) ? 1 : 0;
}

float CVVector::Angle(const CVVector& v) const {
    float l1 = Length();
    float l2 = v.Length();
    if (l1 == 0.0f || l2 == 0.0f) return 0.0f;
    return std::acos((*this % v) / (l1 * l2));
}

float CVVector::AngleNorm(const CVVector& v) const {
    float d = *this % v;
    if (d < -1.0f || d > 1.0f) return 0.0f;
    return std::acos(d);
}

CVVector CVVector::Rotate(const CVVector& axis, float angle) const {
    const float cs = std::cos(angle);
    const float sn = std::sin(angle);
    const float k = 1.0f - cs;
    const float ax = axis.x, ay = axis.y, az = axis.z;
    // Right-handed Rodrigues matrix R, result = R * this.
    const float r00 = k * ax * ax + cs, r01 = k * ax * ay - sn * az, r02 = k * ax * az + sn * ay;
    const float r10 = k * ax * ay + sn * az, r11 = k * ay * ay + cs, r12 = k * ay * az - sn * ax;
    const float r20 = k * ax * az - sn * ay, r21 = k * ay * az + sn * ax, r22 = k * az * az + cs;
    return CVVector(r00 * x + r01 * y + r02 * z,
                    r10 * x + r11 * y + r12 * z,
                    r20 * x + r21 * y + r22 * z);
}

CVVector CVVector::Project(const CVPlane& plane) const {
    const CVVector& n = plane.GetNormal();
    const float d = plane.GetDistance();
    // The divisor is sqrt(|n|) = fourth root of n.n, as specified.
    const float divisor = std::sqrt(std::sqrt(n % n));
    const float s = (*this % n) / divisor;
    return *this - n * s + n * d;
}
