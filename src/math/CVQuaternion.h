#pragma once
// Quaternion: four floats x, y, z, w behind a virtual table.
// The default constructor gives (0, 0, 0, 0).
#include "../platform/CVExport.h"
#include "CVStructs.h"
#include "CVVector.h"

class CVSCENE_API CVQuaternion {
public:
    // Composition orders for ConvertXYZtoQuaternion. The letters name the
    // factors of the quaternion product from left to right, with qx, qy, qz
    // the rotations by the x, y and z angles about (1,0,0), (0,1,0), (0,0,1):
    //
    //   XYZ: (qx * qy) * qz      XZY: (qx * qz) * qy
    //   YXZ: (qy * qx) * qz      YZX: (qy * qz) * qx
    //   ZXY: (qz * qx) * qy      ZYX: (qz * qy) * qx
    //
    // Applied to a point (p' = q p q^-1, column-vector convention) the
    // rightmost factor acts first, so XYZ rotates about the fixed z axis first,
    // then about y, then about x (equivalently: intrinsic x, then y', then z'').
    // XYZ is the product CVRotation::SetValue(ax, ay, az) forms.
    enum eRotationOrder { XYZ = 0, XZY = 1, YXZ = 2, YZX = 3, ZXY = 4, ZYX = 5 };

    float x, y, z, w;

    CVQuaternion() : x(0.0f), y(0.0f), z(0.0f), w(0.0f) {}
    CVQuaternion(float fx, float fy, float fz, float fw) : x(fx), y(fy), z(fz), w(fw) {}
    CVQuaternion(const CVQuaternion&) = default;
    CVQuaternion& operator=(const CVQuaternion&) = default;
    virtual ~CVQuaternion() = default;

    void Set(float fx, float fy, float fz, float fw) { x = fx; y = fy; z = fz; w = fw; }
    void Get(float& fx, float& fy, float& fz, float& fw) const { fx = x; fy = y; fz = z; fw = w; }

    // (x, y, z) = axis * sin(angle/2), w = cos(angle/2), sine and cosine in
    // double precision; the axis is not normalised.
    void Set(const Point3fStruct& axis, float angle);
    void Set(const CVVector& axis, float angle);

    // angle = 2 acos(w) (w clamped to [-1, 1] first so that a rounding excess
    // gives 0 or 2 pi rather than NaN); when the angle is exactly 0 the axis is
    // (0,0,0), else axis = (x, y, z) / sin(angle/2).
    void Get(Point3fStruct& axis, float& angle) const;
    void Get(CVVector& axis, float& angle) const;

    // Hamilton product this * q.
    CVQuaternion operator*(const CVQuaternion& q) const;
    CVQuaternion& operator*=(const CVQuaternion& q);

    // Component-wise on all four.
    CVQuaternion operator+(const CVQuaternion& q) const { return CVQuaternion(x + q.x, y + q.y, z + q.z, w + q.w); }
    CVQuaternion operator-(const CVQuaternion& q) const { return CVQuaternion(x - q.x, y - q.y, z - q.z, w - q.w); }
    CVQuaternion& operator+=(const CVQuaternion& q) { x += q.x; y += q.y; z += q.z; w += q.w; return *this; }
    CVQuaternion& operator-=(const CVQuaternion& q) { x -= q.x; y -= q.y; z -= q.z; w -= q.w; return *this; }
    CVQuaternion operator*(float f) const { return CVQuaternion(x * f, y * f, z * f, w * f); }
    CVQuaternion& operator*=(float f) { x *= f; y *= f; z *= f; w *= f; return *this; }

    // Exact component comparison.
    bool operator==(const CVQuaternion& q) const { return x == q.x && y == q.y && z == q.z && w == q.w; }
    bool operator!=(const CVQuaternion& q) const { return !(*this == q); }

    // Four-component dot product.
    float Dot(const CVQuaternion& q) const { return x * q.x + y * q.y + z * q.z + w * q.w; }
    // Sum of the squares of all four components.
    float Norm() const { return x * x + y * y + z * z + w * w; }
    // Square root of Norm().
    float Length() const;
    // Negates all four components in place; returns itself.
    CVQuaternion& Negate();
    // Makes this the conjugate of q, (-q.x, -q.y, -q.z, q.w); returns itself.
    CVQuaternion& Conjugate(const CVQuaternion& q);
    // Makes this the inverse of q, conjugate(q) / Norm(q) (the conjugate alone,
    // which is then zero, when Norm(q) is 0); returns itself.
    CVQuaternion& Inverse(const CVQuaternion& q);
    // Quaternion cross product (this*q - q*this) / 2: vector part
    // (x,y,z) x (q.x,q.y,q.z), w = 0.
    CVQuaternion Cross(const CVQuaternion& q) const;

    // (0, 0, 0, 1) and (0, 0, 0, 0).
    static CVQuaternion MultIdentity() { return CVQuaternion(0.0f, 0.0f, 0.0f, 1.0f); }
    static CVQuaternion AddIdentity() { return CVQuaternion(0.0f, 0.0f, 0.0f, 0.0f); }

    // Divides x, y and z by the length of (x, y, z); w is left as it is; a zero
    // vector part is left unchanged. Intended.
    void Normalize();

    // s = this + q; when the length L of (s.x, s.y, s.z) is 0 or below 1e-5
    // the result is (0, 0, 1, 0), else (s.x/L, s.y/L, s.z/L, s.w).
    CVQuaternion Bisect(const CVQuaternion& q) const;

    // The quaternion of the three axis rotations x, y, z (radians) composed as
    // the given order names (see eRotationOrder).
    static CVQuaternion ConvertXYZtoQuaternion(float x, float y, float z, eRotationOrder order);
};
