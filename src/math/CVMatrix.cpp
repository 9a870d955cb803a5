#include "math/CVMatrix.h"

#include <cmath>
#include <cstring>

IMPLEMENT_DYNAMIC(CVMatrix, CVBase)

const CVMatrix CVMatrix::m_identity;

CVMatrix::CVMatrix() : m_vWork1(0.0f, 0.0f, 0.0f), m_vWork2(0.0f, 0.0f, 0.0f) { MakeIdentity(); }

CVMatrix::CVMatrix(const MatrixStruct& ms) : m_vWork1(0.0f, 0.0f, 0.0f), m_vWork2(0.0f, 0.0f, 0.0f) {
    SetValue(ms);
}

CVMatrix::CVMatrix(const float* glMatrix) : m_vWork1(0.0f, 0.0f, 0.0f), m_vWork2(0.0f, 0.0f, 0.0f) {
    SetValue(glMatrix);
}

CVMatrix::CVMatrix(const CVMatrix& other)
    : CVBase(), m_vWork1(other.m_vWork1), m_vWork2(other.m_vWork2) {
    std::memcpy(m, other.m, sizeof(m));
}

CVMatrix& CVMatrix::operator=(const CVMatrix& other) {
    if (this != &other) {
        std::memcpy(m, other.m, sizeof(m));
        m_vWork1 = other.m_vWork1;
        m_vWork2 = other.m_vWork2;
    }
    return *this;
}

void CVMatrix::SetValue(const MatrixStruct& ms) { std::memcpy(m, ms.m, sizeof(m)); }

void CVMatrix::SetValue(const float* glMatrix) {
    for (int col = 0; col < 4; ++col)
        for (int row = 0; row < 4; ++row) m[row][col] = glMatrix[col * 4 + row];
}

void CVMatrix::GetValue(MatrixStruct& ms) const { std::memcpy(ms.m, m, sizeof(m)); }

void CVMatrix::GetValue(float* glMatrix) const {
    for (int col = 0; col < 4; ++col)
        for (int row = 0; row < 4; ++row) glMatrix[col * 4 + row] = m[row][col];
}

CVMatrix CVMatrix::Identity() { return CVMatrix(); }

void CVMatrix::MakeIdentity() {
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) m[i][j] = (i == j) ? 1.0f : 0.0f;
}

bool CVMatrix::operator==(const CVMatrix& b) const {
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j)
            if (m[i][j] != b.m[i][j]) return false;
    return true;
}

CVMatrix CVMatrix::operator*(const CVMatrix& b) const {
    CVMatrix r;
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) {
            float s = 0.0f;
            for (int k = 0; k < 4; ++k) s += m[i][k] * b.m[k][j];
            r.m[i][j] = s;
        }
    return r;
}

void CVMatrix::MultVecMatrix(const Point3fStruct& src, Point3fStruct& dst) const {
    const float x = src.x, y = src.y, z = src.z;  // src and dst may alias
    dst.x = m[0][0] * x + m[0][1] * y + m[0][2] * z + m[0][3];
    dst.y = m[1][0] * x + m[1][1] * y + m[1][2] * z + m[1][3];
    dst.z = m[2][0] * x + m[2][1] * y + m[2][2] * z + m[2][3];
}

void CVMatrix::MultVecMatrix(const CVVector& src, CVVector& dst) const {
    const float x = src.x, y = src.y, z = src.z;
    dst.x = m[0][0] * x + m[0][1] * y + m[0][2] * z + m[0][3];
    dst.y = m[1][0] * x + m[1][1] * y + m[1][2] * z + m[1][3];
    dst.z = m[2][0] * x + m[2][1] * y + m[2][2] * z + m[2][3];
}

void CVMatrix::MultVecMatrix(const TexCoord2fStruct& src, TexCoord2fStruct& dst) const {
    const float s = src.s, t = src.t;
    dst.s = m[0][0] * s + m[0][1] * t + m[0][3];
    dst.t = m[1][0] * s + m[1][1] * t + m[1][3];
}

void CVMatrix::MultDirMatrix(const CVVector& src, CVVector& dst) const {
    const float x = src.x, y = src.y, z = src.z;
    dst.x = m[0][0] * x + m[0][1] * y + m[0][2] * z;
    dst.y = m[1][0] * x + m[1][1] * y + m[1][2] * z;
    dst.z = m[2][0] * x + m[2][1] * y + m[2][2] * z;
}

float CVMatrix::Det2x2(float a, float b, float c, float d) { return a * d - b * c; }

float CVMatrix::Det3x3(float a1, float a2, float a3, float b1, float b2, float b3,
                       float c1, float c2, float c3) {
    return a1 * Det2x2(b2, b3, c2, c3) - a2 * Det2x2(b1, b3, c1, c3) + a3 * Det2x2(b1, b2, c1, c2);
}

float CVMatrix::Minor(const CVMatrix& mat, int r, int c) {
    float v[9];
    int n = 0;
    for (int i = 0; i < 4; ++i) {
        if (i == r) continue;
        for (int j = 0; j < 4; ++j) {
            if (j == c) continue;
            v[n++] = mat.m[i][j];
        }
    }
    return Det3x3(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8]);
}

float CVMatrix::Det4x4(const CVMatrix& mat) {
    return mat.m[0][0] * Minor(mat, 0, 0) - mat.m[0][1] * Minor(mat, 0, 1)
         + mat.m[0][2] * Minor(mat, 0, 2) - mat.m[0][3] * Minor(mat, 0, 3);
}

void CVMatrix::Adjoint(const CVMatrix& in, CVMatrix& out) {
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) {
            const float cof = (((r + c) & 1) ? -1.0f : 1.0f) * Minor(in, r, c);
            out.m[c][r] = cof;  // transposed
        }
}

CVMatrix CVMatrix::Inverse() const {
    CVMatrix adj;
    Adjoint(*this, adj);
    const float det = Det4x4(*this);
    if (std::fabs(det) < 1e-7f) return adj;
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) adj.m[i][j] /= det;
    return adj;
}
