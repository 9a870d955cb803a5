#include <gtest/gtest.h>

#include <cmath>

#include "math/CVQuaternion.h"
#include "math/CVRotation.h"

namespace {
const float kPi = 3.14159265358979f;

void ExpectQuatNear(const CVQuaternion& q, float x, float y, float z, float w, float eps = 1e-5f) {
    EXPECT_NEAR(q.x, x, eps);
    EXPECT_NEAR(q.y, y, eps);
    EXPECT_NEAR(q.z, z, eps);
    EXPECT_NEAR(q.w, w, eps);
}

void ExpectVecNear(const CVVector& v, const CVVector& e, float eps = 1e-5f) {
    EXPECT_NEAR(v.x, e.x, eps);
    EXPECT_NEAR(v.y, e.y, eps);
    EXPECT_NEAR(v.z, e.z, eps);
}

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
    CVQuaternion p(v.x, v.y, v.z, 0), c;
    c.Conjugate(q);
    CVQuaternion r = q * p * c;
    return CVVector(r.x, r.y, r.z);
}

const CVVector X(1, 0, 0), Y(0, 1, 0), Z(0, 0, 1);
}  // namespace

TEST(CVQuaternion, DefaultIsZeroAndIdentities) {
    CVQuaternion q;
    ExpectQuatNear(q, 0, 0, 0, 0, 0);
    ExpectQuatNear(CVQuaternion::MultIdentity(), 0, 0, 0, 1, 0);
    ExpectQuatNear(CVQuaternion::AddIdentity(), 0, 0, 0, 0, 0);
    float x, y, z, w;
    q.Set(1, 2, 3, 4);
    q.Get(x, y, z, w);
    EXPECT_EQ(x, 1.0f);
    EXPECT_EQ(y, 2.0f);
    EXPECT_EQ(z, 3.0f);
    EXPECT_EQ(w, 4.0f);
}

TEST(CVQuaternion, SetFromAxisAngle) {
    CVQuaternion q;
    q.Set(Point3fStruct{0, 0, 1}, kPi / 2);
    ExpectQuatNear(q, 0, 0, std::sqrt(0.5f), std::sqrt(0.5f));
    // The axis is not normalised.
    CVVector big(0, 0, 2);
    q.Set(big, kPi / 2);
    ExpectQuatNear(q, 0, 0, 2 * std::sqrt(0.5f), std::sqrt(0.5f));
}

TEST(CVQuaternion, SetGetRoundTrip) {
    CVQuaternion q;
    Point3fStruct axis{0.6f, 0.0f, 0.8f};
    q.Set(axis, 1.2f);
    Point3fStruct a;
    float angle;
    q.Get(a, angle);
    EXPECT_NEAR(angle, 1.2f, 1e-5f);
    EXPECT_NEAR(a.x, 0.6f, 1e-5f);
    EXPECT_NEAR(a.y, 0.0f, 1e-5f);
    EXPECT_NEAR(a.z, 0.8f, 1e-5f);
    // A non-unit axis comes back as it went in: Get divides by sin(angle/2).
    q.Set(Point3fStruct{0, 0, 2}, 1.0f);
    q.Get(a, angle);
    EXPECT_NEAR(angle, 1.0f, 1e-5f);
    EXPECT_NEAR(a.z, 2.0f, 1e-5f);
}

TEST(CVQuaternion, GetOfIdentityGivesZeroAxisAndAngle) {
    CVQuaternion q(0, 0, 0, 1);
    Point3fStruct a{9, 9, 9};
    float angle = 9;
    q.Get(a, angle);
    EXPECT_EQ(angle, 0.0f);
    EXPECT_EQ(a.x, 0.0f);
    EXPECT_EQ(a.y, 0.0f);
    EXPECT_EQ(a.z, 0.0f);
    // Even with a non-zero vector part the axis is (0,0,0) when the angle is 0.
    CVQuaternion r(0.5f, 0, 0, 1);
    r.Get(a, angle);
    EXPECT_EQ(a.x, 0.0f);
}

TEST(CVQuaternion, HamiltonProductOfUnits) {
    CVQuaternion i(1, 0, 0, 0), j(0, 1, 0, 0), k(0, 0, 1, 0);
    ExpectQuatNear(i * j, 0, 0, 1, 0, 0);
    ExpectQuatNear(j * i, 0, 0, -1, 0, 0);
    ExpectQuatNear(j * k, 1, 0, 0, 0, 0);
    ExpectQuatNear(k * i, 0, 1, 0, 0, 0);
    ExpectQuatNear(i * i, 0, 0, 0, -1, 0);
    ExpectQuatNear(CVQuaternion(1, 2, 3, 4) * CVQuaternion::MultIdentity(), 1, 2, 3, 4, 0);
    // General values against the formula.
    CVQuaternion a(1, 2, 3, 4), b(5, 6, 7, 8);
    ExpectQuatNear(a * b, 4 * 5 + 1 * 8 + 2 * 7 - 3 * 6, 4 * 6 + 2 * 8 + 3 * 5 - 1 * 7,
                   4 * 7 + 3 * 8 + 1 * 6 - 2 * 5, 4 * 8 - 1 * 5 - 2 * 6 - 3 * 7, 0);
    CVQuaternion c = a;
    c *= b;
    ExpectQuatNear(c, (a * b).x, (a * b).y, (a * b).z, (a * b).w, 0);
}

TEST(CVQuaternion, ProductComposesRotationsRightFirst) {
    CVQuaternion qz, qx;
    qz.Set(Point3fStruct{0, 0, 1}, kPi / 2);
    qx.Set(Point3fStruct{1, 0, 0}, kPi / 2);
    CVQuaternion q = qz * qx;  // x rotation first, then z
    // Rz(90) Rx(90) maps x -> y -> z -> x: 120 degrees about (1,1,1).
    Point3fStruct a;
    float angle;
    q.Get(a, angle);
    EXPECT_NEAR(angle, 2 * kPi / 3, 1e-5f);
    const float s = 1 / std::sqrt(3.0f);
    EXPECT_NEAR(a.x, s, 1e-5f);
    EXPECT_NEAR(a.y, s, 1e-5f);
    EXPECT_NEAR(a.z, s, 1e-5f);
    ExpectVecNear(RotateBySandwich(q, X), Y);
    ExpectVecNear(RotateBySandwich(q, Y), Z);
    ExpectVecNear(RotateByQuat(q, Z), X);
    // And it equals rotating by qx, then by qz.
    CVVector v(0.3f, -1.2f, 2.0f);
    ExpectVecNear(RotateByQuat(q, v), v.Rotate(X, kPi / 2).Rotate(Z, kPi / 2));
}

TEST(CVQuaternion, ComponentWiseArithmetic) {
    CVQuaternion a(1, 2, 3, 4), b(4, 3, 2, 1);
    ExpectQuatNear(a + b, 5, 5, 5, 5, 0);
    ExpectQuatNear(a - b, -3, -1, 1, 3, 0);
    ExpectQuatNear(a * 2.0f, 2, 4, 6, 8, 0);
    CVQuaternion c = a;
    c += b;
    ExpectQuatNear(c, 5, 5, 5, 5, 0);
    c -= b;
    ExpectQuatNear(c, 1, 2, 3, 4, 0);
    c *= 3.0f;
    ExpectQuatNear(c, 3, 6, 9, 12, 0);
}

TEST(CVQuaternion, DotNormLengthNegateConjugateInverseCross) {
    CVQuaternion a(1, 2, 3, 4), b(4, 3, 2, 1);
    EXPECT_FLOAT_EQ(a.Dot(b), 20.0f);
    EXPECT_FLOAT_EQ(a.Norm(), 30.0f);
    EXPECT_FLOAT_EQ(a.Length(), std::sqrt(30.0f));
    CVQuaternion n = a;
    n.Negate();
    ExpectQuatNear(n, -1, -2, -3, -4, 0);
    CVQuaternion c;
    c.Conjugate(a);
    ExpectQuatNear(c, -1, -2, -3, 4, 0);
    CVQuaternion inv;
    inv.Inverse(a);
    ExpectQuatNear(a * inv, 0, 0, 0, 1);
    ExpectQuatNear(inv * a, 0, 0, 0, 1);
    CVQuaternion zinv;
    zinv.Inverse(CVQuaternion());
    ExpectQuatNear(zinv, 0, 0, 0, 0, 0);
    ExpectQuatNear(CVQuaternion(1, 0, 0, 5).Cross(CVQuaternion(0, 1, 0, 7)), 0, 0, 1, 0, 0);
}

TEST(CVQuaternion, NormalizeTouchesOnlyTheVectorPart) {
    CVQuaternion q(3, 0, 4, 7);
    q.Normalize();
    ExpectQuatNear(q, 0.6f, 0, 0.8f, 7);
    CVQuaternion z(0, 0, 0, 5);
    z.Normalize();
    ExpectQuatNear(z, 0, 0, 0, 5, 0);
}

TEST(CVQuaternion, BisectOfOppositesIsFixedAxis) {
    CVQuaternion q(0.3f, -0.4f, 0.5f, 0.7f);
    CVQuaternion m = q;
    m.Negate();
    ExpectQuatNear(q.Bisect(m), 0, 0, 1, 0, 0);
    // Below 1e-5 counts as zero too.
    ExpectQuatNear(CVQuaternion(4e-6f, 0, 0, 0).Bisect(CVQuaternion(0, 0, 0, 1)), 0, 0, 1, 0, 0);
}

TEST(CVQuaternion, BisectNormalisesVectorPartOnly) {
    ExpectQuatNear(CVQuaternion(1, 0, 0, 0).Bisect(CVQuaternion(0, 1, 0, 0)), std::sqrt(0.5f),
                   std::sqrt(0.5f), 0, 0);
    // w is the plain sum.
    ExpectQuatNear(CVQuaternion(0, 0, 1, 1).Bisect(CVQuaternion(0, 0, 1, 1)), 0, 0, 1, 2);
}

TEST(CVQuaternion, ConvertXYZtoQuaternionMatchesComposedAxisRotations) {
    const float ax = 0.4f, ay = -0.9f, az = 1.3f;
    const CVVector probes[] = {CVVector(1, 0, 0), CVVector(0, 1, 0), CVVector(0, 0, 1),
                               CVVector(0.3f, -1.2f, 2.0f)};
    // The letters name the product's factors left to right; the rightmost
    // rotation is applied first.
    struct Case {
        CVQuaternion::eRotationOrder order;
        char first, second, third;  // application order
    } cases[] = {
        {CVQuaternion::XYZ, 'z', 'y', 'x'}, {CVQuaternion::XZY, 'y', 'z', 'x'},
        {CVQuaternion::YXZ, 'z', 'x', 'y'}, {CVQuaternion::YZX, 'x', 'z', 'y'},
        {CVQuaternion::ZXY, 'y', 'x', 'z'}, {CVQuaternion::ZYX, 'x', 'y', 'z'},
    };
    auto apply = [&](const CVVector& v, char axis) {
        switch (axis) {
        case 'x': return v.Rotate(X, ax);
        case 'y': return v.Rotate(Y, ay);
        default: return v.Rotate(Z, az);
        }
    };
    for (const Case& c : cases) {
        CVQuaternion q = CVQuaternion::ConvertXYZtoQuaternion(ax, ay, az, c.order);
        EXPECT_NEAR(q.Length(), 1.0f, 1e-5f);
        for (const CVVector& v : probes) {
            CVVector expected = apply(apply(apply(v, c.first), c.second), c.third);
            SCOPED_TRACE(testing::Message() << "order " << c.order);
            ExpectVecNear(RotateByQuat(q, v), expected, 1e-4f);
            ExpectVecNear(RotateBySandwich(q, v), expected, 1e-4f);
        }
    }
}

TEST(CVQuaternion, ConvertXYZOrdersDiffer) {
    CVQuaternion a = CVQuaternion::ConvertXYZtoQuaternion(0.5f, 0.6f, 0.7f, CVQuaternion::XYZ);
    CVQuaternion b = CVQuaternion::ConvertXYZtoQuaternion(0.5f, 0.6f, 0.7f, CVQuaternion::ZYX);
    EXPECT_GT(std::fabs(a.x - b.x) + std::fabs(a.y - b.y) + std::fabs(a.z - b.z), 1e-3f);
}

TEST(CVQuaternion, ConvertXYZOrderXYZIsWhatRotationSetValueBuilds) {
    const float ax = 0.4f, ay = -0.9f, az = 1.3f;
    CVQuaternion q = CVQuaternion::ConvertXYZtoQuaternion(ax, ay, az, CVQuaternion::XYZ);
    Point3fStruct qa;
    float qangle;
    q.Get(qa, qangle);
    CVRotation r;
    r.SetValue(ax, ay, az);
    Point3fStruct ra;
    float rangle;
    r.GetValue(ra, rangle);
    EXPECT_FLOAT_EQ(rangle, qangle);
    EXPECT_FLOAT_EQ(ra.x, qa.x);
    EXPECT_FLOAT_EQ(ra.y, qa.y);
    EXPECT_FLOAT_EQ(ra.z, qa.z);
}
