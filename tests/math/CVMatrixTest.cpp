#include <gtest/gtest.h>

#include <cmath>

#include "math/CVMatrix.h"

namespace {
CVMatrix Translation(float x, float y, float z) {
    CVMatrix m;
    m.m[0][3] = x;
    m.m[1][3] = y;
    m.m[2][3] = z;
    return m;
}

CVMatrix Scale(float x, float y, float z) {
    CVMatrix m;
    m.m[0][0] = x;
    m.m[1][1] = y;
    m.m[2][2] = z;
    return m;
}

CVMatrix Diagonal(float a, float b, float c, float d) {
    CVMatrix m;
    m.m[0][0] = a;
    m.m[1][1] = b;
    m.m[2][2] = c;
    m.m[3][3] = d;
    return m;
}

CVMatrix RotationZ(float a) {
    CVMatrix m;
    m.m[0][0] = std::cos(a);
    m.m[0][1] = -std::sin(a);
    m.m[1][0] = std::sin(a);
    m.m[1][1] = std::cos(a);
    return m;
}

void ExpectMatrixNear(const CVMatrix& a, const CVMatrix& b, float eps = 1e-5f) {
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) EXPECT_NEAR(a.m[i][j], b.m[i][j], eps) << "at [" << i << "][" << j << "]";
}
}  // namespace

TEST(CVMatrix, RunTimeClass) {
    CVMatrix m;
    EXPECT_TRUE(m.IsKindOf(RUNTIME_CLASS(CVBase)));
    EXPECT_TRUE(m.IsKindOf(RUNTIME_CLASS(CVMatrix)));
    EXPECT_STREQ(m.GetRuntimeClass()->m_lpszClassName, "CVMatrix");
    EXPECT_EQ(m.GetRuntimeClass()->m_wSchema, 0xFFFFu);
}

TEST(CVMatrix, DefaultIsIdentity) {
    CVMatrix m;
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) EXPECT_EQ(m.m[i][j], i == j ? 1.0f : 0.0f);
    EXPECT_TRUE(m == CVMatrix::Identity());
    EXPECT_TRUE(m == CVMatrix::m_identity);
    CVMatrix t = Translation(1, 2, 3);
    t.MakeIdentity();
    EXPECT_TRUE(t == m);
}

TEST(CVMatrix, SetValueFromGLArrayTransposes) {
    float gl[16];
    for (int i = 0; i < 16; ++i) gl[i] = (float)(i + 1);
    CVMatrix m;
    m.SetValue(gl);
    // The first four floats are column 0.
    EXPECT_EQ(m.m[0][0], 1.0f);
    EXPECT_EQ(m.m[1][0], 2.0f);
    EXPECT_EQ(m.m[2][0], 3.0f);
    EXPECT_EQ(m.m[3][0], 4.0f);
    EXPECT_EQ(m.m[0][1], 5.0f);
    EXPECT_EQ(m.m[0][3], 13.0f);
    EXPECT_EQ(m.m[3][3], 16.0f);
    CVMatrix c(gl);
    EXPECT_TRUE(c == m);
    float back[16];
    m.GetValue(back);
    for (int i = 0; i < 16; ++i) EXPECT_EQ(back[i], gl[i]);
}

TEST(CVMatrix, GLTranslationLandsInColumnThree) {
    // What glTranslatef(4, 5, 6) leaves in glGetFloatv(GL_MODELVIEW_MATRIX).
    const float gl[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 4, 5, 6, 1};
    CVMatrix m;
    m.SetValue(gl);
    EXPECT_EQ(m.m[0][3], 4.0f);
    EXPECT_EQ(m.m[1][3], 5.0f);
    EXPECT_EQ(m.m[2][3], 6.0f);
    EXPECT_EQ(m.m[3][0], 0.0f);
    Point3fStruct p{1, 1, 1}, q;
    m.MultVecMatrix(p, q);
    EXPECT_FLOAT_EQ(q.x, 5.0f);
    EXPECT_FLOAT_EQ(q.y, 6.0f);
    EXPECT_FLOAT_EQ(q.z, 7.0f);
}

TEST(CVMatrix, SetValueFromMatrixStructIsNotTransposed) {
    MatrixStruct ms;
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) ms.m[i][j] = (float)(i * 4 + j);
    CVMatrix m(ms);
    EXPECT_EQ(m.m[0][3], 3.0f);
    EXPECT_EQ(m.m[3][0], 12.0f);
    CVMatrix n;
    n.SetValue(ms);
    EXPECT_TRUE(n == m);
    MatrixStruct out;
    n.GetValue(out);
    EXPECT_EQ(out.m[1][2], 6.0f);
}

TEST(CVMatrix, CopyAndAssign) {
    CVMatrix a = Translation(1, 2, 3);
    CVMatrix b(a);
    CVMatrix c;
    c = a;
    EXPECT_TRUE(b == a);
    EXPECT_TRUE(c == a);
}

TEST(CVMatrix, ProductIsThisTimesOther) {
    CVMatrix t = Translation(1, 0, 0);
    CVMatrix s = Scale(2, 2, 2);
    Point3fStruct p{1, 0, 0}, q;
    (t * s).MultVecMatrix(p, q);  // scale first, then translate
    EXPECT_FLOAT_EQ(q.x, 3.0f);
    (s * t).MultVecMatrix(p, q);  // translate first, then scale
    EXPECT_FLOAT_EQ(q.x, 4.0f);

    MatrixStruct ma, mb;
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) {
            ma.m[i][j] = (float)(i + 2 * j);
            mb.m[i][j] = (float)(3 * i - j);
        }
    CVMatrix a(ma), b(mb);
    CVMatrix ab = a * b;
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) {
            float s2 = 0;
            for (int k = 0; k < 4; ++k) s2 += ma.m[i][k] * mb.m[k][j];
            EXPECT_FLOAT_EQ(ab.m[i][j], s2);
        }
    EXPECT_FALSE((a * b) == (b * a));
}

TEST(CVMatrix, MultVecMatrixUsesColumnVectorsAndNoDivisionByW) {
    CVMatrix m;
    float v = 1;
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) m.m[i][j] = v++;
    Point3fStruct src{1, 2, 3}, dst;
    m.MultVecMatrix(src, dst);
    EXPECT_FLOAT_EQ(dst.x, 1 * 1 + 2 * 2 + 3 * 3 + 4);
    EXPECT_FLOAT_EQ(dst.y, 5 * 1 + 6 * 2 + 7 * 3 + 8);
    EXPECT_FLOAT_EQ(dst.z, 9 * 1 + 10 * 2 + 11 * 3 + 12);  // row 3 ignored

    CVVector vs(1, 2, 3), vd;
    m.MultVecMatrix(vs, vd);
    EXPECT_FLOAT_EQ(vd.x, dst.x);
    EXPECT_FLOAT_EQ(vd.y, dst.y);
    EXPECT_FLOAT_EQ(vd.z, dst.z);

    // In place.
    m.MultVecMatrix(vs, vs);
    EXPECT_FLOAT_EQ(vs.x, dst.x);
    EXPECT_FLOAT_EQ(vs.z, dst.z);
}

TEST(CVMatrix, MultDirMatrixIgnoresTranslation) {
    CVMatrix m = Translation(10, 20, 30) * RotationZ(3.14159265f / 2);
    CVVector d(1, 0, 0), out;
    m.MultDirMatrix(d, out);
    EXPECT_NEAR(out.x, 0.0f, 1e-6f);
    EXPECT_NEAR(out.y, 1.0f, 1e-6f);
    EXPECT_NEAR(out.z, 0.0f, 1e-6f);
    m.MultVecMatrix(d, out);
    EXPECT_NEAR(out.x, 10.0f, 1e-5f);
    EXPECT_NEAR(out.y, 21.0f, 1e-5f);
    EXPECT_NEAR(out.z, 30.0f, 1e-5f);
}

TEST(CVMatrix, MultVecMatrixTexCoordUsesRowsZeroAndOne) {
    CVMatrix m;
    m.m[0][0] = 2;
    m.m[0][1] = 3;
    m.m[0][2] = 100;  // multiplies the 0 third component
    m.m[0][3] = 0.5f;
    m.m[1][0] = 4;
    m.m[1][1] = 5;
    m.m[1][3] = -1;
    TexCoord2fStruct src{1, 2}, dst;
    m.MultVecMatrix(src, dst);
    EXPECT_FLOAT_EQ(dst.s, 2 + 6 + 0.5f);
    EXPECT_FLOAT_EQ(dst.t, 4 + 10 - 1);
}

TEST(CVMatrix, InverseOfInvertibleMatrix) {
    CVMatrix m = Translation(1, -2, 3) * RotationZ(0.7f) * Scale(2, 3, 0.5f);
    CVMatrix inv = m.Inverse();
    ExpectMatrixNear(m * inv, CVMatrix::Identity());
    ExpectMatrixNear(inv * m, CVMatrix::Identity());
    EXPECT_NEAR(m.Determinant(), 3.0f, 1e-5f);

    // A general matrix with a non-trivial bottom row.
    MatrixStruct ms = {{{2, 0, 1, 3}, {1, 1, 0, 2}, {0, 3, 1, 1}, {1, 0, 0, 1}}};
    CVMatrix g(ms);
    ExpectMatrixNear(g * g.Inverse(), CVMatrix::Identity(), 1e-4f);
}

TEST(CVMatrix, InverseOfZeroMatrixIsZeroMatrix) {
    MatrixStruct zero = {};
    CVMatrix z(zero);
    CVMatrix inv = z.Inverse();
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) EXPECT_EQ(inv.m[i][j], 0.0f);
}

TEST(CVMatrix, InverseOfNearlySingularReturnsUndividedAdjoint) {
    // det = 1e-8 < 1e-7: the adjoint diag(1e-6) comes back, not diag(100).
    CVMatrix m = Diagonal(0.01f, 0.01f, 0.01f, 0.01f);
    EXPECT_NEAR(m.Determinant(), 1e-8f, 1e-12f);
    CVMatrix inv = m.Inverse();
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) EXPECT_NEAR(inv.m[i][j], i == j ? 1e-6f : 0.0f, 1e-10f);

    // A singular matrix (one zero row) with a non-zero adjoint.
    CVMatrix s = Diagonal(2, 3, 4, 0);
    CVMatrix sa = s.Inverse();
    EXPECT_FLOAT_EQ(sa.m[3][3], 24.0f);
    EXPECT_FLOAT_EQ(sa.m[0][0], 0.0f);
}

TEST(CVMatrix, InverseJustAboveThresholdDivides) {
    CVMatrix m = Diagonal(1, 1, 1, 2e-7f);  // det 2e-7 >= 1e-7
    CVMatrix inv = m.Inverse();
    EXPECT_NEAR(inv.m[0][0], 1.0f, 1e-4f);
    EXPECT_NEAR(inv.m[3][3], 5e6f, 1.0f);
}

TEST(CVMatrix, AdjointIsTransposedCofactorMatrix) {
    // An upper-triangular matrix: its inverse is upper-triangular too, so a
    // missing transposition shows up below the diagonal.
    MatrixStruct ms = {{{1, 2, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}};
    CVMatrix inv = CVMatrix(ms).Inverse();
    EXPECT_FLOAT_EQ(inv.m[0][1], -2.0f);
    EXPECT_FLOAT_EQ(inv.m[1][0], 0.0f);
}
