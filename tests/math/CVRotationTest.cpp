#include <gtest/gtest.h>

#include <cmath>

#include "math/CVRotation.h"

namespace {
const float kPi = 3.14159265358979f;

void ExpectRotation(const CVRotation& r, float x, float y, float z, float angle, float eps = 1e-5f) {
    Point3fStruct a;
    float an;
    r.GetValue(a, an);
    EXPECT_NEAR(a.x, x, eps);
    EXPECT_NEAR(a.y, y, eps);
    EXPECT_NEAR(a.z, z, eps);
    EXPECT_NEAR(an, angle, eps);
}
}  // namespace

TEST(CVRotation, IsFourFloatsAngleFirst) {
    EXPECT_EQ(sizeof(CVRotation), 4 * sizeof(float));
    CVRotation r(1, 2, 3, 4);
    const float* f = reinterpret_cast<const float*>(&r);
    EXPECT_EQ(f[0], 4.0f);
    EXPECT_EQ(f[1], 1.0f);
    EXPECT_EQ(f[3], 3.0f);
}

TEST(CVRotation, DefaultIsZeroAboutY) {
    ExpectRotation(CVRotation(), 0, 1, 0, 0, 0);
}

TEST(CVRotation, SetValueStoresUnchanged) {
    CVRotation r;
    r.SetValue(Point3fStruct{0, 0, 5}, 2.5f);
    ExpectRotation(r, 0, 0, 5, 2.5f, 0);
    r.SetValue(3, 4, 0, -1.0f);
    ExpectRotation(r, 3, 4, 0, -1.0f, 0);
    float x, y, z, a;
    r.GetValue(x, y, z, a);
    EXPECT_EQ(x, 3.0f);
    EXPECT_EQ(a, -1.0f);
    EXPECT_EQ(r.GetAngle(), -1.0f);
    EXPECT_EQ(r.GetAxis().y, 4.0f);
}

TEST(CVRotation, SetValueFromOneAngle) {
    CVRotation r;
    r.SetValue(0.5f, 0, 0);
    ExpectRotation(r, 1, 0, 0, 0.5f);
    r.SetValue(0, 0.5f, 0);
    ExpectRotation(r, 0, 1, 0, 0.5f);
    r.SetValue(0, 0, -0.5f);
    // Get gives a non-negative angle: the axis flips.
    ExpectRotation(r, 0, 0, -1, 0.5f);
}

TEST(CVRotation, SetValueFromZeroAnglesGivesZeroAxis) {
    CVRotation r;
    r.SetValue(0.0f, 0.0f, 0.0f);
    ExpectRotation(r, 0, 0, 0, 0, 0);
}

TEST(CVRotation, SetValueFromThreeAnglesIsQxQyQz) {
    const float ax = kPi / 2, ay = kPi / 2, az = 0;
    CVRotation r;
    r.SetValue(ax, ay, az);
    // qx * qy: y rotation first, then x. Rx(90) Ry(90) maps x -> -z -> y,
    // y -> y -> z and z -> x -> x: the cycle x -> y -> z, 120 degrees about
    // (1,1,1).
    const float s = 1 / std::sqrt(3.0f);
    ExpectRotation(r, s, s, s, 2 * kPi / 3);

    // General angles against composed Rodrigues rotations (z first, then y, then x).
    const float bx = 0.3f, by = -0.8f, bz = 1.1f;
    r.SetValue(bx, by, bz);
    Point3fStruct a;
    float angle;
    r.GetValue(a, angle);
    CVVector axis(a);
    axis.Normalize();
    const CVVector v(0.5f, 1.5f, -2.0f);
    CVVector got = v.Rotate(axis, angle);
    CVVector expected = v.Rotate(CVVector(0, 0, 1), bz).Rotate(CVVector(0, 1, 0), by).Rotate(CVVector(1, 0, 0), bx);
    EXPECT_NEAR(got.x, expected.x, 1e-4f);
    EXPECT_NEAR(got.y, expected.y, 1e-4f);
    EXPECT_NEAR(got.z, expected.z, 1e-4f);
}

TEST(CVRotation, SetValueFromTwoVectors) {
    CVRotation r;
    r.SetValue(CVVector(1, 0, 0), CVVector(0, 1, 0));
    ExpectRotation(r, 0, 0, 1, kPi / 2);
    // Lengths do not matter: the axis is normalised, the angle uses Angle.
    r.SetValue(CVVector(2, 0, 0), CVVector(0, 0, 3));
    ExpectRotation(r, 0, -1, 0, kPi / 2);
    // The rotation carries from onto to.
    CVVector from(1, 2, 0.5f), to(-1, 0.5f, 2);
    r.SetValue(from, to);
    Point3fStruct a;
    float angle;
    r.GetValue(a, angle);
    CVVector got = from.Rotate(CVVector(a), angle);
    CVVector t = to;
    t.Normalize();
    got.Normalize();
    EXPECT_NEAR(got.x, t.x, 1e-5f);
    EXPECT_NEAR(got.y, t.y, 1e-5f);
    EXPECT_NEAR(got.z, t.z, 1e-5f);
}

TEST(CVRotation, SetValueFromParallelVectorsLeavesZeroAxis) {
    CVRotation r;
    r.SetValue(CVVector(0, 0, 1), CVVector(0, 0, 4));
    ExpectRotation(r, 0, 0, 0, 0, 1e-3f);
}

TEST(CVRotation, PlusReturnsDefaultAndPlusEqualsDoesNothing) {
    CVRotation a(1, 0, 0, 0.5f), b(0, 0, 1, 0.25f);
    ExpectRotation(a + b, 0, 1, 0, 0, 0);
    CVRotation c = a;
    c += b;
    ExpectRotation(c, 1, 0, 0, 0.5f, 0);
}

TEST(CVRotation, CopyAndCompare) {
    CVRotation a(1, 2, 3, 4);
    CVRotation b;
    b = a;
    EXPECT_TRUE(b == a);
    b.SetValue(1, 2, 3, 5);
    EXPECT_TRUE(b != a);
}
