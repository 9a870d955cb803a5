#include <gtest/gtest.h>

#include <cmath>

#include "math/CVPlane.h"
#include "math/CVVector.h"

namespace {
const float kPi = 3.14159265358979f;

void ExpectVecNear(const CVVector& v, float x, float y, float z, float eps = 1e-5f) {
    EXPECT_NEAR(v.x, x, eps);
    EXPECT_NEAR(v.y, y, eps);
    EXPECT_NEAR(v.z, z, eps);
}
}  // namespace

TEST(CVVector, IsPlainThreeFloats) {
    EXPECT_EQ(sizeof(CVVector), 3 * sizeof(float));
}

TEST(CVVector, ComponentWiseArithmetic) {
    CVVector a(1, 2, 3), b(4, 5, 6);
    ExpectVecNear(a + b, 5, 7, 9);
    ExpectVecNear(b - a, 3, 3, 3);
    ExpectVecNear(a * 2.0f, 2, 4, 6);
    CVVector c = a;
    c += b;
    ExpectVecNear(c, 5, 7, 9);
    c -= a;
    ExpectVecNear(c, 4, 5, 6);
    c *= 0.5f;
    ExpectVecNear(c, 2, 2.5f, 3);
}

TEST(CVVector, CrossIsThisTimesOtherAndDotIsPercent) {
    CVVector x(1, 0, 0), y(0, 1, 0);
    ExpectVecNear(x * y, 0, 0, 1);
    ExpectVecNear(y * x, 0, 0, -1);
    ExpectVecNear(CVVector(1, 2, 3) * CVVector(4, 5, 6), -3, 6, -3);
    EXPECT_FLOAT_EQ(CVVector(1, 2, 3) % CVVector(4, 5, 6), 32.0f);
}

TEST(CVVector, NormalizeLeavesZeroVectorUnchanged) {
    CVVector v(3, 0, 4);
    v.Normalize();
    ExpectVecNear(v, 0.6f, 0, 0.8f);
    CVVector z(0, 0, 0);
    z.Normalize();
    EXPECT_EQ(z.x, 0.0f);
    EXPECT_EQ(z.y, 0.0f);
    EXPECT_EQ(z.z, 0.0f);
    CVVector w(0, 2, 0);
    CVVector& r = !w;
    EXPECT_EQ(&r, &w);
    ExpectVecNear(w, 0, 1, 0);
}

TEST(CVVector, NormalizeByGivenLength) {
    CVVector v(2, 4, 6);
    EXPECT_FLOAT_EQ(v.Normalize(2.0f), 0.5f);
    ExpectVecNear(v, 1, 2, 3);
    // The length is not checked against the vector.
    EXPECT_FLOAT_EQ(v.Normalize(10.0f), 0.1f);
    ExpectVecNear(v, 0.1f, 0.2f, 0.3f);
    CVVector u(1, 2, 3);
    EXPECT_EQ(u.Normalize(0.0f), 0.0f);
    ExpectVecNear(u, 1, 2, 3, 0);
}

TEST(CVVector, Length) {
    EXPECT_FLOAT_EQ(CVVector(3, 4, 12).Length(), 13.0f);
    EXPECT_EQ(CVVector(0, 0, 0).Length(), 0.0f);
}

TEST(CVVector, EqualityUsesTolerance1em7) {
    EXPECT_TRUE(CVVector(0, 0, 0) == CVVector(5e-8f, -5e-8f, 0));
    EXPECT_FALSE(CVVector(0, 0, 0) == CVVector(2e-7f, 0, 0));
    EXPECT_FALSE(CVVector(1, 2, 3) == CVVector(1, 2, 3.001f));
    EXPECT_TRUE(CVVector(1, 2, 3) != CVVector(1, 2, 4));
}

TEST(CVVector, IsParallelIsExact) {
    EXPECT_FALSE(CVVector(0, 0, 2).IsParallel(CVVector(0, 0, 1)));  // dot 2
    EXPECT_TRUE(CVVector(0, 0, 1).IsParallel(CVVector(0, 0, 1)));
    EXPECT_TRUE(CVVector(0, 0, 1).IsParallel(CVVector(0, 0, -1)));
    EXPECT_FALSE(CVVector(1, 0, 0).IsParallel(CVVector(0, 1, 0)));
    // Nearly parallel unit vectors: no tolerance.
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
    // Not unit: dot 2 lies outside [-1, 1].
    EXPECT_EQ(CVVector(2, 0, 0).AngleNorm(CVVector(1, 0, 0)), 0.0f);
    EXPECT_EQ(CVVector(-2, 0, 0).AngleNorm(CVVector(1, 0, 0)), 0.0f);
}

TEST(CVVector, RotateIsRightHandedRodrigues) {
    ExpectVecNear(CVVector(1, 0, 0).Rotate(CVVector(0, 0, 1), kPi / 2), 0, 1, 0);
    ExpectVecNear(CVVector(0, 1, 0).Rotate(CVVector(1, 0, 0), kPi / 2), 0, 0, 1);
    ExpectVecNear(CVVector(0, 0, 1).Rotate(CVVector(0, 1, 0), kPi / 2), 1, 0, 0);
    // 120 degrees about the diagonal cycles the axes x -> y -> z.
    CVVector d(1, 1, 1);
    d.Normalize();
    ExpectVecNear(CVVector(1, 0, 0).Rotate(d, 2 * kPi / 3), 0, 1, 0);
    ExpectVecNear(CVVector(0, 1, 0).Rotate(d, 2 * kPi / 3), 0, 0, 1);
    // A vector on the axis is unchanged; the length is kept.
    ExpectVecNear(CVVector(2, 2, 2).Rotate(d, 1.0f), 2, 2, 2);
    CVVector r = CVVector(1, 2, 3).Rotate(CVVector(0, 0.6f, 0.8f), 0.7f);
    EXPECT_NEAR(r.Length(), CVVector(1, 2, 3).Length(), 1e-5f);
}

TEST(CVVector, ProjectOntoPlane) {
    CVPlane xy(CVVector(0, 0, 1), 0.0f);
    ExpectVecNear(CVVector(1, 2, 3).Project(xy), 1, 2, 0);
    // + d n: shifted by d along the normal.
    CVPlane shifted(CVVector(0, 0, 1), 2.0f);
    ExpectVecNear(CVVector(1, 2, 3).Project(shifted), 1, 2, 2);
    // Non-unit normal: the divisor is sqrt(|n|) = 4th root of n.n.
    // n = (0,0,4): v.n = 12, divisor 2, so v - 6 n = (1, 2, 3 - 24).
    CVPlane big(CVVector(0, 0, 4), 0.0f);
    ExpectVecNear(CVVector(1, 2, 3).Project(big), 1, 2, -21);
}
