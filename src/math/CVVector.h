#pragma once
// Three-float vector. A plain value: no virtual table, no base, and
// a default-constructed vector is left uninitialised.
#include "../platform/CVExport.h"
#include "CVStructs.h"

class CVPlane;

class CVSCENE_API CVVector {
public:
    float x, y, z;

    CVVector() = default;  // uninitialised, as specified
    CVVector(float fx, float fy, float fz) : x(fx), y(fy), z(fz) {}
    explicit CVVector(const Point3fStruct& p) : x(p.x), y(p.y), z(p.z) {}

    void SetValue(float fx, float fy, float fz) { x = fx; y = fy; z = fz; }
    void SetValue(const Point3fStruct& p) { x = p.x; y = p.y; z = p.z; }
    void GetValue(float& fx, float& fy, float& fz) const { fx = x; fy = y; fz = z; }
    Point3fStruct GetValue() const { return Point3fStruct{x, y, z}; }
    operator Point3fStruct() const { return Point3fStruct{x, y, z}; }

    float& operator[](int i) { return (&x)[i]; }
    const float& operator[](int i) const { return (&x)[i]; }

    // Component-wise arithmetic.
    CVVector operator+(const CVVector& v) const { return CVVector(x + v.x, y + v.y, z + v.z); }
    CVVector& operator+=(const CVVector& v) { x += v.x; y += v.y; z += v.z; return *this; }
    CVVector operator-(const CVVector& v) const { return CVVector(x - v.x, y - v.y, z - v.z); }
    CVVector& operator-=(const CVVector& v) { x -= v.x; y -= v.y; z -= v.z; return *this; }
    CVVector operator*(float f) const { return CVVector(x * f, y * f, z * f); }
    CVVector& operator*=(float f) { x *= f; y *= f; z *= f; return *this; }

    // Cross product this x v.
    CVVector operator*(const CVVector& v) const;
    // Dot product.
    float operator%(const CVVector& v) const { return x * v.x + y * v.y + z * v.z; }

    // Normalises in place and returns itself (a zero vector stays zero).
    CVVector& operator!();
    // Normalises in place; a zero vector is left unchanged.
    void Normalize();
    // Divides by the given length and returns 1/length; returns 0 and changes
    // nothing when length is 0.
    float Normalize(float length);
    float Length() const;

    // True when each component differs by less than 1e-7.
    bool operator==(const CVVector& v) const;
    bool operator!=(const CVVector& v) const { return !(*this == v); }

    // True when the dot product is exactly 1 or exactly -1 (no tolerance;
    // meant for unit vectors).
    int IsParallel(const CVVector& v) const;
    // acos(dot / (|this| |v|)); 0 when either length is 0.
    float Angle(const CVVector& v) const;
    // acos(dot) for unit vectors; 0 when the dot lies outside [-1, 1].
    float AngleNorm(const CVVector& v) const;
    // This vector rotated by angle (radians) about the unit axis, with the
    // right-handed Rodrigues matrix.
    CVVector Rotate(const CVVector& axis, float angle) const;
    // v - ((v.n) / sqrt(|n|)) n + d n (the divisor is the square
    // root of the normal's length, so it is the orthogonal projection onto the
    // plane shifted by d along n only for a unit normal).
    CVVector Project(const CVPlane& plane) const;
};

inline CVVector operator*(float f, const CVVector& v) { return v * f; }
