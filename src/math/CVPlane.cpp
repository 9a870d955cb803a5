#include "math/CVPlane.h"

#include "math/CVRay.h"

CVVector CVPlane::Intersect(const CVRay& ray, float& denom, float& t) const {
    const CVVector& dir = ray.GetDirection();
    denom = -(m_normal % dir);
    t = ((m_normal % ray.GetOrigin()) + m_fDistance) / denom;
    return dir + dir * t;
}
