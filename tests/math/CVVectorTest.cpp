#include <gtest/gtest.h>

#include "math/CVPlane.h"
#include "math/CVVector.h"
#include "support/CVTestNear.h"

namespace {
const float kPi = 3.14159265358979f;
std::vector<float> Of(const CVVector& v) { return {v.x, v.y, v.z}; }
using cvtest::Near;
}  // namespace

TEST(CVVector, ArithmeticCrossAndDot) {
    EXPECT_EQ(sizeof(CVVector), 3 * sizeof(float));  // plain floats, no table
    CVVector a(1, 2, 3), b(4, 5, 6), c = a;
    EXPECT_TRUE(Near(Of(a + b), {5, 7, 9}));
    EXPECT_TRUE(Near(Of(b - a), {3, 3, 3}));
    EXPECT_TRUE(Near(Of(a * 2.0f), {2, 4, 6}));
    c += b;
    c -= a;
    c *= 0.5f;
    EXPECT_TRUE(Near(Of(c), {2, 2.5f, 3}));
    EXPECT_TRUE(Near(Of(CVVector(1, 0, 0) * CVVector(0, 1, 0)), {0, 0, 1}));  // this x other
    EXPECT_TRUE(Near(Of(a * b), {-3, 6, -3}));
    EXPECT_FLOAT_EQ(a % b, 32.0f);
}

TEST(CVVector, NormalizeAndLength) {
    CVVector v(3, 0, 4), z(0, 0, 0), w(0, 2, 0);
    v.Normalize();
    EXPECT_TRUE(Near(Of(v), {0.6f, 0, 0.8f}));
    z.Normalize();  // a zero vector stays as it is
    EXPECT_TRUE(Near(Of(z), {0, 0, 0}, 0));
    EXPECT_EQ(&!w, &w);
    EXPECT_TRUE(Near(Of(w), {0, 1, 0}));
    // By a given length, not checked against the vector; 0 changes nothing.
    CVVector u(2, 4, 6);
    EXPECT_FLOAT_EQ(u.Normalize(10.0f), 0.1f);
    EXPECT_TRUE(Near(Of(u), {0.2f, 0.4f, 0.6f}));
    EXPECT_EQ(u.Normalize(0.0f), 0.0f);
    EXPECT_TRUE(Near(Of(u), {0.2f, 0.4f, 0.6f}, 0));
    EXPECT_FLOAT_EQ(CVVector(3, 4, 12).Length(), 13.0f);
}

TEST(CVVector, EqualityHasATolerance1em7ButIsParallelHasNone) {
    EXPECT_TRUE(CVVector(0, 0, 0) == CVVector(5e-8f, -5e-8f, 0));
    EXPECT_FALSE(CVVector(0, 0, 0) == CVVector(2e-7f, 0, 0));
    EXPECT_TRUE(CVVector(1, 2, 3) != CVVector(1, 2, 3.001f));
    EXPECT_FALSE(CVVector(0, 0, 2).IsParallel(CVVector(0, 0, 1)));  // dot 2
    EXPECT_TRUE(CVVector(0, 0, 1).IsParallel(CVVector(0, 0, -1)));
    EXPECT_FALSE(CVVector(1, 0, 0).IsParallel(CVVector(0, 1, 0)));
    CVVector a(0, 0.001f, 1);
    a.Normalize();
    EXPECT_FALSE(a.IsParallel(CVVector(0, 0, 1)));
}

TEST(CVVector, AngleAndAngleNorm) {
    EXPECT_NEAR(CVVector(1, 0, 0).Angle(CVVector(0, 2, 0)), kPi / 2, 1e-6f);
    EXPECT_NEAR(CVVector(3, 0, 0).Angle(CVVector(-1, 0, 0)), kPi, 1e-3f);
    EXPECT_EQ(CVVector(0, 0, 0).Angle(CVVector(1, 0, 0)), 0.0f);
    EXPECT_EQ(CVVector(1, 0, 0).Angle(CVVector(0, 0, 0)), 0.0f);
    EXPECT_NEAR(CVVector(1, 0, 0).AngleNorm(CVVector(0, 1, 0)), kPi / 2, 1e-6f);
    // Not unit: a dot outside [-1, 1] gives 0.
    EXPECT_EQ(CVVector(2, 0, 0).AngleNorm(CVVector(1, 0, 0)), 0.0f);
    EXPECT_EQ(CVVector(-2, 0, 0).AngleNorm(CVVector(1, 0, 0)), 0.0f);
}

TEST(CVVector, RotateIsRightHandedRodrigues) {
    CVVector d(1, 1, 1);
    d.Normalize();
    const struct {
        CVVector v, axis;
        float angle;
        std::vector<float> want;
    } cases[] = {
        {{1, 0, 0}, {0, 0, 1}, kPi / 2, {0, 1, 0}},     {{0, 1, 0}, {1, 0, 0}, kPi / 2, {0, 0, 1}},
        {{0, 0, 1}, {0, 1, 0}, kPi / 2, {1, 0, 0}},     {{1, 0, 0}, d, 2 * kPi / 3, {0, 1, 0}},
        {{0, 1, 0}, d, 2 * kPi / 3, {0, 0, 1}},         {{2, 2, 2}, d, 1.0f, {2, 2, 2}},  // on the axis
    };
    for (const auto& c : cases) EXPECT_TRUE(Near(Of(c.v.Rotate(c.axis, c.angle)), c.want));
    const CVVector r = CVVector(1, 2, 3).Rotate(CVVector(0, 0.6f, 0.8f), 0.7f);
    EXPECT_NEAR(r.Length(), CVVector(1, 2, 3).Length(), 1e-5f);
}

TEST(CVVector, ProjectOntoPlane) {
    EXPECT_TRUE(Near(Of(CVVector(1, 2, 3).Project(CVPlane(CVVector(0, 0, 1), 0.0f))), {1, 2, 0}));
    // + d n: shifted by d along the normal.
    EXPECT_TRUE(Near(Of(CVVector(1, 2, 3).Project(CVPlane(CVVector(0, 0, 1), 2.0f))), {1, 2, 2}));
    // Non-unit normal (0,0,4): the divisor is sqrt(|n|) = 2, so v - 6 n.
    EXPECT_TRUE(Near(Of(CVVector(1, 2, 3).Project(CVPlane(CVVector(0, 0, 4), 0.0f))), {1, 2, -21}));
}
