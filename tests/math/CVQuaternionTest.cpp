#include <gtest/gtest.h>

#include <cmath>

#include "math/CVQuaternion.h"
#include "math/CVRotation.h"
#include "support/CVTestNear.h"

namespace {
const float kPi = 3.14159265358979f;
const float kR = std::sqrt(0.5f);
std::vector<float> Of(const CVQuaternion& q) { return {q.x, q.y, q.z, q.w}; }
std::vector<float> Of(const CVVector& v) { return {v.x, v.y, v.z}; }
// Axis and angle as Get gives them.
std::vector<float> AxisAngle(const CVQuaternion& q) {
    Point3fStruct a;
    float angle;
    q.Get(a, angle);
    return {a.x, a.y, a.z, angle};
}
using cvtest::Near;

// Rotates v by the unit quaternion q through its axis and angle and the
// Rodrigues formula, independently of the quaternion product.
CVVector RotateByQuat(const CVQuaternion& q, const CVVector& v) {
    CVVector axis;
    float angle;
    q.Get(axis, angle);
    if (angle == 0.0f) return v;
    axis.Normalize();
    return v.Rotate(axis, angle);
}

// Rotates v by q as q (v, 0) q*, through the Hamilton product.
CVVector RotateBySandwich(const CVQuaternion& q, const CVVector& v) {
    CVQuaternion c;
    c.Conjugate(q);
    const CVQuaternion r = q * CVQuaternion(v.x, v.y, v.z, 0) * c;
    return CVVector(r.x, r.y, r.z);
}

const CVVector X(1, 0, 0), Y(0, 1, 0), Z(0, 0, 1);
}  // namespace

TEST(CVQuaternion, AxisAngleRoundTripsWithAnUnnormalisedAxis) {
    EXPECT_TRUE(Near(Of(CVQuaternion()), {0, 0, 0, 0}, 0));
    EXPECT_TRUE(Near(Of(CVQuaternion::MultIdentity()), {0, 0, 0, 1}, 0));
    EXPECT_TRUE(Near(Of(CVQuaternion::AddIdentity()), {0, 0, 0, 0}, 0));
    CVQuaternion q;
    q.Set(Point3fStruct{0, 0, 1}, kPi / 2);
    EXPECT_TRUE(Near(Of(q), {0, 0, kR, kR}));
    q.Set(CVVector(0, 0, 2), kPi / 2);  // the axis is not normalised
    EXPECT_TRUE(Near(Of(q), {0, 0, 2 * kR, kR}));
    q.Set(Point3fStruct{0.6f, 0.0f, 0.8f}, 1.2f);
    EXPECT_TRUE(Near(AxisAngle(q), {0.6f, 0, 0.8f, 1.2f}));
    q.Set(Point3fStruct{0, 0, 2}, 1.0f);  // Get divides by sin(angle/2)
    EXPECT_TRUE(Near(AxisAngle(q), {0, 0, 2, 1}));
    // A zero angle gives a zero axis, whatever the vector part.
    EXPECT_TRUE(Near(AxisAngle(CVQuaternion(0, 0, 0, 1)), {0, 0, 0, 0}, 0));
    EXPECT_TRUE(Near(AxisAngle(CVQuaternion(0.5f, 0, 0, 1)), {0, 0, 0, 0}, 0));
}

TEST(CVQuaternion, HamiltonProduct) {
    const CVQuaternion i(1, 0, 0, 0), j(0, 1, 0, 0), k(0, 0, 1, 0);
    EXPECT_TRUE(Near(Of(i * j), {0, 0, 1, 0}, 0));
    EXPECT_TRUE(Near(Of(j * i), {0, 0, -1, 0}, 0));
    EXPECT_TRUE(Near(Of(j * k), {1, 0, 0, 0}, 0));
    EXPECT_TRUE(Near(Of(k * i), {0, 1, 0, 0}, 0));
    EXPECT_TRUE(Near(Of(i * i), {0, 0, 0, -1}, 0));
    CVQuaternion a(1, 2, 3, 4), b(5, 6, 7, 8);
    EXPECT_TRUE(Near(Of(a * CVQuaternion::MultIdentity()), Of(a), 0));
    const std::vector<float> ab = {4 * 5 + 1 * 8 + 2 * 7 - 3 * 6, 4 * 6 + 2 * 8 + 3 * 5 - 1 * 7,
                                   4 * 7 + 3 * 8 + 1 * 6 - 2 * 5, 4 * 8 - 1 * 5 - 2 * 6 - 3 * 7};
    EXPECT_TRUE(Near(Of(a * b), ab, 0));
    a *= b;
    EXPECT_TRUE(Near(Of(a), ab, 0));
}

TEST(CVQuaternion, ProductComposesRotationsRightFirst) {
    CVQuaternion qz, qx;
    qz.Set(Point3fStruct{0, 0, 1}, kPi / 2);
    qx.Set(Point3fStruct{1, 0, 0}, kPi / 2);
    const CVQuaternion q = qz * qx;  // x rotation first, then z
    // Rz(90) Rx(90) maps x -> y -> z -> x: 120 degrees about (1,1,1).
    const float s = 1 / std::sqrt(3.0f);
    EXPECT_TRUE(Near(AxisAngle(q), {s, s, s, 2 * kPi / 3}));
    EXPECT_TRUE(Near(Of(RotateBySandwich(q, X)), Of(Y)));
    EXPECT_TRUE(Near(Of(RotateBySandwich(q, Y)), Of(Z)));
    const CVVector v(0.3f, -1.2f, 2.0f);
    EXPECT_TRUE(Near(Of(RotateByQuat(q, v)), Of(v.Rotate(X, kPi / 2).Rotate(Z, kPi / 2))));
}

TEST(CVQuaternion, ComponentWiseArithmeticAndTheRest) {
    const CVQuaternion a(1, 2, 3, 4), b(4, 3, 2, 1);
    EXPECT_TRUE(Near(Of(a + b), {5, 5, 5, 5}, 0));
    EXPECT_TRUE(Near(Of(a - b), {-3, -1, 1, 3}, 0));
    EXPECT_TRUE(Near(Of(a * 2.0f), {2, 4, 6, 8}, 0));
    CVQuaternion c = a;
    c += b;
    c -= CVQuaternion(1, 1, 1, 1);
    c *= 3.0f;
    EXPECT_TRUE(Near(Of(c), {12, 12, 12, 12}, 0));
    EXPECT_FLOAT_EQ(a.Dot(b), 20.0f);
    EXPECT_FLOAT_EQ(a.Norm(), 30.0f);
    EXPECT_FLOAT_EQ(a.Length(), std::sqrt(30.0f));
    EXPECT_TRUE(Near(Of(CVQuaternion(a).Negate()), {-1, -2, -3, -4}, 0));
    EXPECT_TRUE(Near(Of(c.Conjugate(a)), {-1, -2, -3, 4}, 0));
    CVQuaternion inv;
    inv.Inverse(a);
    EXPECT_TRUE(Near(Of(a * inv), {0, 0, 0, 1}));
    EXPECT_TRUE(Near(Of(inv * a), {0, 0, 0, 1}));
    EXPECT_TRUE(Near(Of(inv.Inverse(CVQuaternion())), {0, 0, 0, 0}, 0));
    EXPECT_TRUE(Near(Of(CVQuaternion(1, 0, 0, 5).Cross(CVQuaternion(0, 1, 0, 7))), {0, 0, 1, 0}, 0));
}

TEST(CVQuaternion, NormalizeAndBisectTouchOnlyTheVectorPart) {
    CVQuaternion q(3, 0, 4, 7), z(0, 0, 0, 5);
    q.Normalize();
    EXPECT_TRUE(Near(Of(q), {0.6f, 0, 0.8f, 7}));
    z.Normalize();
    EXPECT_TRUE(Near(Of(z), {0, 0, 0, 5}, 0));
    EXPECT_TRUE(Near(Of(CVQuaternion(1, 0, 0, 0).Bisect(CVQuaternion(0, 1, 0, 0))), {kR, kR, 0, 0}));
    EXPECT_TRUE(Near(Of(CVQuaternion(0, 0, 1, 1).Bisect(CVQuaternion(0, 0, 1, 1))), {0, 0, 1, 2}));  // w summed
    // Opposites, or a vector part below 1e-5, give the fixed axis.
    CVQuaternion p(0.3f, -0.4f, 0.5f, 0.7f), m = p;
    m.Negate();
    EXPECT_TRUE(Near(Of(p.Bisect(m)), {0, 0, 1, 0}, 0));
    EXPECT_TRUE(Near(Of(CVQuaternion(4e-6f, 0, 0, 0).Bisect(CVQuaternion(0, 0, 0, 1))), {0, 0, 1, 0}, 0));
}

TEST(CVQuaternion, ConvertXYZtoQuaternionMatchesComposedAxisRotations) {
    const float ax = 0.4f, ay = -0.9f, az = 1.3f;
    const CVVector probes[] = {X, Y, Z, CVVector(0.3f, -1.2f, 2.0f)};
    // The letters name the product's factors left to right; the rightmost
    // rotation is applied first.
    const struct {
        CVQuaternion::eRotationOrder order;
        const char* applied;
    } cases[] = {
        {CVQuaternion::XYZ, "zyx"}, {CVQuaternion::XZY, "yzx"}, {CVQuaternion::YXZ, "zxy"},
        {CVQuaternion::YZX, "xzy"}, {CVQuaternion::ZXY, "yxz"}, {CVQuaternion::ZYX, "xyz"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << "order " << c.order);
        const CVQuaternion q = CVQuaternion::ConvertXYZtoQuaternion(ax, ay, az, c.order);
        EXPECT_NEAR(q.Length(), 1.0f, 1e-5f);
        for (const CVVector& v : probes) {
            CVVector want = v;
            for (const char* a = c.applied; *a; ++a)
                want = *a == 'x' ? want.Rotate(X, ax) : *a == 'y' ? want.Rotate(Y, ay) : want.Rotate(Z, az);
            EXPECT_TRUE(Near(Of(RotateByQuat(q, v)), Of(want), 1e-4f));
            EXPECT_TRUE(Near(Of(RotateBySandwich(q, v)), Of(want), 1e-4f));
        }
    }
    // XYZ is what CVRotation::SetValue(ax, ay, az) builds.
    CVRotation r;
    r.SetValue(ax, ay, az);
    EXPECT_TRUE(Near(AxisAngle(CVQuaternion::ConvertXYZtoQuaternion(ax, ay, az, CVQuaternion::XYZ)),
                     {r.GetAxis().x, r.GetAxis().y, r.GetAxis().z, r.GetAngle()}, 1e-6f));
}
