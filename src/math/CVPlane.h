#pragma once
// Plane: the set of p with normal.p + d = 0.
#include "../platform/CVExport.h"
#include "CVVector.h"

class CVRay;

class CVSCENE_API CVPlane {
public:
    // Normal (0,0,1), distance 0.
    CVPlane() : m_normal(0.0f, 0.0f, 1.0f), m_fDistance(0.0f) {}
    CVPlane(CVVector normal, float d) : m_normal(normal), m_fDistance(d) {}
    CVPlane(const CVPlane&) = default;

    void SetNormal(const CVVector& n) { m_normal = n; }
    const CVVector& GetNormal() const { return m_normal; }
    void SetDistance(float d) { m_fDistance = d; }
    float GetDistance() const { return m_fDistance; }

    CVPlane& operator=(const CVPlane& p) = default;

    // denom = -(normal.direction); t = (normal.origin + d) / denom, with no
    // test for a zero denominator; returns direction + t*direction (the origin
    // enters only through t). Kept exactly so.
    CVVector Intersect(const CVRay& ray, float& denom, float& t) const;

private:
    CVVector m_normal;
    float m_fDistance;
};
