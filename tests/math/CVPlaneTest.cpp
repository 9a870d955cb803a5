#include <gtest/gtest.h>

#include <cmath>

#include "math/CVPlane.h"
#include "math/CVRay.h"

TEST(CVPlane, ConstructAndAccess) {
    CVPlane p(CVVector(0, 1, 0), -3.0f);
    EXPECT_EQ(p.GetNormal().y, 1.0f);
    EXPECT_EQ(p.GetDistance(), -3.0f);
    p.SetNormal(CVVector(1, 0, 0));
    p.SetDistance(2.0f);
    CVPlane q;
    q = p;
    EXPECT_EQ(q.GetNormal().x, 1.0f);
    EXPECT_EQ(q.GetDistance(), 2.0f);
}

TEST(CVPlane, IntersectReturnsDirectionPlusTDirection) {
    // Plane z = 5 (n = (0,0,1), d = -5).
    CVPlane p(CVVector(0, 0, 1), -5.0f);
    CVRay ray;
    ray.SetOrigin(CVVector(0, 0, 0));
    ray.SetDirection(CVVector(0, 0, 1), 1);
    float denom = 0, t = 0;
    CVVector hit = p.Intersect(ray, denom, t);
    EXPECT_FLOAT_EQ(denom, -1.0f);           // -(n . dir)
    EXPECT_FLOAT_EQ(t, 5.0f);                // (n . origin + d) / denom
    EXPECT_FLOAT_EQ(hit.x, 0.0f);            // dir + t dir, not origin + t dir
    EXPECT_FLOAT_EQ(hit.y, 0.0f);
    EXPECT_FLOAT_EQ(hit.z, 6.0f);
}

TEST(CVPlane, IntersectUsesOriginOnlyThroughT) {
    CVPlane p(CVVector(0, 0, 1), -5.0f);
    CVRay ray;
    ray.SetOrigin(CVVector(7, 8, 1));
    ray.SetDirection(CVVector(0, 0, 1), 1);
    float denom = 0, t = 0;
    CVVector hit = p.Intersect(ray, denom, t);
    EXPECT_FLOAT_EQ(t, 4.0f);
    EXPECT_FLOAT_EQ(hit.x, 0.0f);
    EXPECT_FLOAT_EQ(hit.y, 0.0f);
    EXPECT_FLOAT_EQ(hit.z, 5.0f);
}

TEST(CVPlane, IntersectParallelRayDividesByZero) {
    CVPlane p(CVVector(0, 0, 1), -5.0f);
    CVRay ray;
    ray.SetOrigin(CVVector(0, 0, 0));
    ray.SetDirection(CVVector(1, 0, 0), 1);
    float denom = 1, t = 0;
    p.Intersect(ray, denom, t);
    EXPECT_EQ(denom, 0.0f);
    EXPECT_TRUE(std::isinf(t));
}
