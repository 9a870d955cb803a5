#include "markers/CVMarkerOutline.h"

#include "math/CVVector.h"

CVMarkerOutline::CVMarkerOutline(const Point2fStruct* outline, int count) : m_nCount(count) {
    m_Vertices.resize(6 * (size_t)count);
    for (int k = 0; k < count; ++k) {
        GLfloat* bottom = &m_Vertices[3 * (size_t)k];
        GLfloat* top = &m_Vertices[3 * (size_t)(2 * count - 1 - k)];
        bottom[0] = top[0] = outline[k].x;
        bottom[1] = -0.5f;
        top[1] = 0.5f;
        bottom[2] = top[2] = outline[k].y;
    }
    // Quad k runs along the outline edge k-1 -> k; its normal is that edge on
    // the top copy crossed with the way down, which points out of the slab.
    for (int k = 1; k < count; ++k) {
        const CVVector liftedPrev(GetVertex(2 * count - k)[0], 0.5f, GetVertex(2 * count - k)[2]);
        const CVVector lifted(GetVertex(2 * count - 1 - k)[0], 0.5f, GetVertex(2 * count - 1 - k)[2]);
        const CVVector bottom(GetVertex(k)[0], -0.5f, GetVertex(k)[2]);
        const CVVector n = (lifted - liftedPrev) * (bottom - lifted);
        m_SideNormals.insert(m_SideNormals.end(), {n.x, n.y, n.z});
    }
}

void CVMarkerOutline::DrawBare() const { Draw(false); }

void CVMarkerOutline::DrawSolid() const { Draw(true); }

void CVMarkerOutline::Draw(bool normals) const {
    const int n = m_nCount;
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(3, GL_FLOAT, 0, m_Vertices.data());
    if (normals) glEdgeFlag(GL_TRUE);
    glBegin(GL_QUADS);
    for (int k = 1; k < n; ++k) {
        if (normals) glNormal3fv(&m_SideNormals[3 * (size_t)(k - 1)]);
        glArrayElement(2 * n - k);
        glArrayElement(2 * n - 1 - k);
        glArrayElement(k);
        glArrayElement(k - 1);
    }
    glEnd();
    if (normals) glNormal3f(0.0f, -1.0f, 0.0f);
    glBegin(GL_POLYGON);
    for (int k = 0; k < n; ++k) glArrayElement(k);
    glEnd();
    if (normals) glNormal3f(0.0f, 1.0f, 0.0f);
    glBegin(GL_POLYGON);
    for (int k = n; k < 2 * n; ++k) glArrayElement(k);
    glEnd();
    glDisableClientState(GL_VERTEX_ARRAY);
}
