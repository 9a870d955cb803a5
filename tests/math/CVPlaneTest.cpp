#include <gtest/gtest.h>

#include <cmath>

#include "math/CVPlane.h"
#include "math/CVRay.h"
#include "support/CVTestNear.h"

// The hit is direction + t direction: the origin enters only through t.
TEST(CVPlane, IntersectReturnsDirectionPlusTDirection) {
    const CVPlane p(CVVector(0, 0, 1), -5.0f);  // z = 5
    const struct {
        CVVector origin, direction;
        float denom, t;
        std::vector<float> hit;
    } cases[] = {
        {{0, 0, 0}, {0, 0, 1}, -1, 5, {0, 0, 6}},
        {{7, 8, 1}, {0, 0, 1}, -1, 4, {0, 0, 5}},
    };
    for (const auto& c : cases) {
        CVRay ray;
        ray.SetOrigin(c.origin);
        ray.SetDirection(c.direction, 1);
        float denom = 0, t = 0;
        const CVVector hit = p.Intersect(ray, denom, t);
        EXPECT_FLOAT_EQ(denom, c.denom);  // -(n . dir)
        EXPECT_FLOAT_EQ(t, c.t);          // (n . origin + d) / denom
        EXPECT_TRUE(cvtest::Near({hit.x, hit.y, hit.z}, c.hit));
    }
    // A parallel ray divides by zero.
    CVRay ray;
    ray.SetOrigin(CVVector(0, 0, 0));
    ray.SetDirection(CVVector(1, 0, 0), 1);
    float denom = 1, t = 0;
    p.Intersect(ray, denom, t);
    EXPECT_EQ(denom, 0.0f);
    EXPECT_TRUE(std::isinf(t));
}
