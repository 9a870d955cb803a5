#pragma once
// 4x4 matrix: 16 floats m[row][column], row-major, with the
// translation in column 3 (m[0][3], m[1][3], m[2][3]), then two CVVector work
// members that no operation reads. The default constructor gives the identity.
#include "../platform/CVExport.h"
#include "../base/CVBase.h"
#include "CVStructs.h"
#include "CVVector.h"

class CVSCENE_API CVMatrix : public CVBase {
    DECLARE_DYNAMIC(CVMatrix)
public:
    float m[4][4];

    CVMatrix();
    explicit CVMatrix(const MatrixStruct& ms);
    // 16 floats in OpenGL (column-major) order, as SetValue(const float*).
    explicit CVMatrix(const float* glMatrix);
    CVMatrix(const CVMatrix& other);
    ~CVMatrix() override = default;
    CVMatrix& operator=(const CVMatrix& other);

    // Copies m[row][column] unchanged.
    void SetValue(const MatrixStruct& ms);
    // Takes 16 floats in OpenGL order (the first four are column 0) and stores
    // them transposed, so a glGetFloatv matrix becomes row-major with the
    // translation in column 3.
    void SetValue(const float* glMatrix);
    void GetValue(MatrixStruct& ms) const;
    // The inverse of SetValue(const float*): 16 floats in OpenGL order, ready
    // for glLoadMatrixf / glMultMatrixf.
    void GetValue(float* glMatrix) const;

    float* operator[](int row) { return m[row]; }
    const float* operator[](int row) const { return m[row]; }

    static CVMatrix Identity();
    void MakeIdentity();
    // The identity matrix.
    static const CVMatrix m_identity;

    // Exact element-wise comparison.
    bool operator==(const CVMatrix& b) const;
    bool operator!=(const CVMatrix& b) const { return !(*this == b); }

    // The ordinary product this * b: [i][j] = sum_k this[i][k] * b[k][j].
    CVMatrix operator*(const CVMatrix& b) const;

    // dst = M * (x, y, z, 1) as a column vector, rows 0 to 2; no division by w.
    void MultVecMatrix(const Point3fStruct& src, Point3fStruct& dst) const;
    void MultVecMatrix(const CVVector& src, CVVector& dst) const;
    // (s, t, 0, 1) through rows 0 and 1.
    void MultVecMatrix(const TexCoord2fStruct& src, TexCoord2fStruct& dst) const;
    // As MultVecMatrix without the translation column.
    void MultDirMatrix(const CVVector& src, CVVector& dst) const;

    // Adjoint / det; when |det| < 1e-7 the adjoint itself, undivided (no
    // error, no identity). Required as it is.
    CVMatrix Inverse() const;
    // The determinant, as Inverse computes it (Det4x4).
    float Determinant() const { return Det4x4(*this); }

private:
    static float Det2x2(float a, float b, float c, float d);
    // Rows (a1 a2 a3), (b1 b2 b3), (c1 c2 c3), expanded by cofactors.
    static float Det3x3(float a1, float a2, float a3, float b1, float b2, float b3,
                        float c1, float c2, float c3);
    // Expansion along the first row in 3x3 minors.
    static float Det4x4(const CVMatrix& mat);
    // Transposed cofactor matrix.
    static void Adjoint(const CVMatrix& in, CVMatrix& out);
    // The 3x3 minor of mat without row r and column c.
    static float Minor(const CVMatrix& mat, int r, int c);

    CVVector m_vWork1;
    CVVector m_vWork2;
};
