#include <gtest/gtest.h>

#include <cmath>

#include "math/CVRotation.h"
#include "support/CVTestNear.h"

namespace {
const float kPi = 3.14159265358979f;
// Axis x, y, z and angle as GetValue gives them.
std::vector<float> Of(const CVRotation& r) {
    Point3fStruct a;
    float angle;
    r.GetValue(a, angle);
    return {a.x, a.y, a.z, angle};
}
std::vector<float> Of(const CVVector& v) { return {v.x, v.y, v.z}; }
using cvtest::Near;
}  // namespace

TEST(CVRotation, IsFourFloatsAngleFirstDefaultingToZeroAboutY) {
    EXPECT_EQ(sizeof(CVRotation), 4 * sizeof(float));
    CVRotation r(1, 2, 3, 4);
    const float* f = reinterpret_cast<const float*>(&r);
    EXPECT_TRUE(Near({f[0], f[1], f[2], f[3]}, {4, 1, 2, 3}, 0));
    EXPECT_TRUE(Near(Of(CVRotation()), {0, 1, 0, 0}, 0));
    r.SetValue(Point3fStruct{0, 0, 5}, 2.5f);  // stored as given
    EXPECT_TRUE(Near(Of(r), {0, 0, 5, 2.5f}, 0));
    EXPECT_TRUE(r != CVRotation(0, 0, 5, 2.6f));
    EXPECT_TRUE(r == CVRotation(0, 0, 5, 2.5f));
}

TEST(CVRotation, SetValueFromAngles) {
    const float s = 1 / std::sqrt(3.0f);
    const struct {
        float ax, ay, az;
        std::vector<float> want;
    } cases[] = {
        {0.5f, 0, 0, {1, 0, 0, 0.5f}},
        {0, 0.5f, 0, {0, 1, 0, 0.5f}},
        {0, 0, -0.5f, {0, 0, -1, 0.5f}},  // a non-negative angle: the axis flips
        {0, 0, 0, {0, 0, 0, 0}},
        // qx qy: y first, then x. Rx(90) Ry(90) cycles x -> y -> z: 120 degrees about (1,1,1).
        {kPi / 2, kPi / 2, 0, {s, s, s, 2 * kPi / 3}},
    };
    for (const auto& c : cases) {
        CVRotation r;
        r.SetValue(c.ax, c.ay, c.az);
        EXPECT_TRUE(Near(Of(r), c.want)) << c.ax << " " << c.ay << " " << c.az;
    }
    // General angles against composed Rodrigues rotations (z first, then y, then x).
    CVRotation r;
    r.SetValue(0.3f, -0.8f, 1.1f);
    CVVector axis(r.GetAxis());
    axis.Normalize();
    const CVVector v(0.5f, 1.5f, -2.0f);
    const CVVector want = v.Rotate(CVVector(0, 0, 1), 1.1f).Rotate(CVVector(0, 1, 0), -0.8f).Rotate(CVVector(1, 0, 0), 0.3f);
    EXPECT_TRUE(Near(Of(v.Rotate(axis, r.GetAngle())), Of(want), 1e-4f));
}

TEST(CVRotation, SetValueFromTwoVectors) {
    CVRotation r;
    r.SetValue(CVVector(1, 0, 0), CVVector(0, 1, 0));
    EXPECT_TRUE(Near(Of(r), {0, 0, 1, kPi / 2}));
    // Lengths do not matter: the axis is normalised, the angle uses Angle.
    r.SetValue(CVVector(2, 0, 0), CVVector(0, 0, 3));
    EXPECT_TRUE(Near(Of(r), {0, -1, 0, kPi / 2}));
    r.SetValue(CVVector(0, 0, 1), CVVector(0, 0, 4));  // parallel: no axis
    EXPECT_TRUE(Near(Of(r), {0, 0, 0, 0}, 1e-3f));
    // The rotation carries from onto to.
    CVVector from(1, 2, 0.5f), to(-1, 0.5f, 2);
    r.SetValue(from, to);
    CVVector got = from.Rotate(CVVector(r.GetAxis()), r.GetAngle());
    got.Normalize();
    to.Normalize();
    EXPECT_TRUE(Near(Of(got), Of(to)));
}

TEST(CVRotation, PlusReturnsDefaultAndPlusEqualsDoesNothing) {
    CVRotation a(1, 0, 0, 0.5f), b(0, 0, 1, 0.25f);
    EXPECT_TRUE(Near(Of(a + b), {0, 1, 0, 0}, 0));
    a += b;
    EXPECT_TRUE(Near(Of(a), {1, 0, 0, 0.5f}, 0));
}
