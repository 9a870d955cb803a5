#include <gtest/gtest.h>

#include <cmath>

#include "math/CVMatrix.h"
#include "support/CVTestNear.h"

namespace {
// Rows given in reading order.
CVMatrix Rows(std::initializer_list<float> values) {
    MatrixStruct ms;
    auto v = values.begin();
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) ms.m[i][j] = *v++;
    return CVMatrix(ms);
}
CVMatrix Diagonal(float a, float b, float c, float d) {
    return Rows({a, 0, 0, 0, 0, b, 0, 0, 0, 0, c, 0, 0, 0, 0, d});
}
CVMatrix Translation(float x, float y, float z) { return Rows({1, 0, 0, x, 0, 1, 0, y, 0, 0, 1, z, 0, 0, 0, 1}); }
CVMatrix RotationZ(float a) {
    const float c = std::cos(a), s = std::sin(a);
    return Rows({c, -s, 0, 0, s, c, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1});
}
std::vector<float> Of(const CVMatrix& m) { return std::vector<float>(&m.m[0][0], &m.m[0][0] + 16); }
std::vector<float> Of(const Point3fStruct& p) { return {p.x, p.y, p.z}; }
std::vector<float> Of(const CVVector& v) { return {v.x, v.y, v.z}; }
const std::vector<float> kIdentity = Of(Diagonal(1, 1, 1, 1));
using cvtest::Near;
}  // namespace

TEST(CVMatrix, DefaultIsIdentity) {
    EXPECT_TRUE(Near(Of(CVMatrix()), kIdentity, 0));
    EXPECT_TRUE(CVMatrix::Identity() == CVMatrix() && CVMatrix::m_identity == CVMatrix());
    CVMatrix t = Translation(1, 2, 3), copy(t);
    EXPECT_TRUE(copy == t);
    t.MakeIdentity();
    EXPECT_TRUE(t == CVMatrix());
}

TEST(CVMatrix, GLArraysAreTransposedMatrixStructsAreNot) {
    float gl[16];
    for (int i = 0; i < 16; ++i) gl[i] = (float)(i + 1);
    CVMatrix m;
    m.SetValue(gl);  // the first four floats are column 0
    EXPECT_TRUE(Near(Of(m), {1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15, 4, 8, 12, 16}, 0));
    EXPECT_TRUE(CVMatrix(gl) == m);
    float back[16];
    m.GetValue(back);
    EXPECT_TRUE(Near(std::vector<float>(back, back + 16), std::vector<float>(gl, gl + 16), 0));
    // What glTranslatef(4, 5, 6) leaves in GL_MODELVIEW_MATRIX moves points by (4, 5, 6).
    const float translate[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 4, 5, 6, 1};
    Point3fStruct q;
    CVMatrix(translate).MultVecMatrix(Point3fStruct{1, 1, 1}, q);
    EXPECT_TRUE(Near(Of(q), {5, 6, 7}));
    MatrixStruct ms, out;
    for (int i = 0; i < 16; ++i) ms.m[i / 4][i % 4] = (float)i;
    m.SetValue(ms);
    EXPECT_TRUE(Near(Of(m), Of(CVMatrix(ms)), 0));
    EXPECT_EQ(m.m[0][3], 3.0f);
    m.GetValue(out);
    EXPECT_EQ(out.m[1][2], 6.0f);
}

TEST(CVMatrix, ProductIsThisTimesOther) {
    Point3fStruct q;
    (Translation(1, 0, 0) * Diagonal(2, 2, 2, 1)).MultVecMatrix(Point3fStruct{1, 0, 0}, q);
    EXPECT_FLOAT_EQ(q.x, 3.0f);  // scale first, then translate
    const CVMatrix a = Rows({0, 2, 4, 6, 1, 3, 5, 7, 2, 4, 6, 8, 3, 5, 7, 9});  // i + 2j
    const CVMatrix b = Rows({0, -1, -2, -3, 3, 2, 1, 0, 6, 5, 4, 3, 9, 8, 7, 6});  // 3i - j
    std::vector<float> want;
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) {
            float s = 0;
            for (int k = 0; k < 4; ++k) s += a.m[i][k] * b.m[k][j];
            want.push_back(s);
        }
    EXPECT_TRUE(Near(Of(a * b), want, 0));
    EXPECT_FALSE((a * b) == (b * a));
}

TEST(CVMatrix, PointsDirectionsAndTextureCoordinates) {
    CVMatrix m;
    for (int i = 0; i < 16; ++i) m.m[i / 4][i % 4] = (float)(i + 1);
    // Column vectors, row 3 ignored: no division by w.
    const std::vector<float> want = {1 + 4 + 9 + 4, 5 + 12 + 21 + 8, 9 + 20 + 33 + 12};
    Point3fStruct p;
    m.MultVecMatrix(Point3fStruct{1, 2, 3}, p);
    EXPECT_TRUE(Near(Of(p), want, 0));
    CVVector v(1, 2, 3);
    m.MultVecMatrix(v, v);  // in place
    EXPECT_TRUE(Near(Of(v), want, 0));
    // (s, t, 0, 1) through rows 0 and 1.
    TexCoord2fStruct st;
    m.MultVecMatrix(TexCoord2fStruct{1, 2}, st);
    EXPECT_TRUE(Near({st.s, st.t}, {1 + 4 + 4, 5 + 12 + 8}, 0));
    // Directions skip the translation.
    const CVMatrix tr = Translation(10, 20, 30) * RotationZ(3.14159265f / 2);
    CVVector out;
    tr.MultDirMatrix(CVVector(1, 0, 0), out);
    EXPECT_TRUE(Near(Of(out), {0, 1, 0}, 1e-6f));
    tr.MultVecMatrix(CVVector(1, 0, 0), out);
    EXPECT_TRUE(Near(Of(out), {10, 21, 30}));
}

TEST(CVMatrix, InverseDividesTheAdjointByTheDeterminant) {
    const CVMatrix m = Translation(1, -2, 3) * RotationZ(0.7f) * Diagonal(2, 3, 0.5f, 1);
    EXPECT_NEAR(m.Determinant(), 3.0f, 1e-5f);
    EXPECT_TRUE(Near(Of(m * m.Inverse()), kIdentity));
    EXPECT_TRUE(Near(Of(m.Inverse() * m), kIdentity));
    const CVMatrix g = Rows({2, 0, 1, 3, 1, 1, 0, 2, 0, 3, 1, 1, 1, 0, 0, 1});  // a non-trivial bottom row
    EXPECT_TRUE(Near(Of(g * g.Inverse()), kIdentity, 1e-4f));
    // Upper-triangular: a missing transposition of the cofactors shows below the diagonal.
    EXPECT_TRUE(Near(Of(Rows({1, 2, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}).Inverse()),
                     {1, -2, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}));
    // Just above the 1e-7 threshold it still divides.
    const CVMatrix tiny = Diagonal(1, 1, 1, 2e-7f);
    EXPECT_TRUE(Near(Of(tiny * tiny.Inverse()), kIdentity, 1e-4f));
}

TEST(CVMatrix, InverseBelowTheThresholdIsTheUndividedAdjoint) {
    const CVMatrix m = Diagonal(0.01f, 0.01f, 0.01f, 0.01f);  // det 1e-8: adjoint diag(1e-6), not diag(100)
    EXPECT_NEAR(m.Determinant(), 1e-8f, 1e-12f);
    EXPECT_TRUE(Near(Of(m.Inverse()), Of(Diagonal(1e-6f, 1e-6f, 1e-6f, 1e-6f)), 1e-10f));
    EXPECT_TRUE(Near(Of(Diagonal(2, 3, 4, 0).Inverse()), Of(Diagonal(0, 0, 0, 24))));  // singular
    EXPECT_TRUE(Near(Of(CVMatrix(MatrixStruct{}).Inverse()), std::vector<float>(16, 0.0f), 0));
}
