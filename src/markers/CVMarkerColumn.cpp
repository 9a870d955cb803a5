#include "markers/CVMarkerColumn.h"

#include "math/CVVector.h"

namespace {

CVVector Place(const Point2fStruct& p, CVMarkerColumn::Axis axis, float w) {
    return axis == CVMarkerColumn::AlongY ? CVVector(p.x, w, p.y) : CVVector(p.x, p.y, w);
}

void Append(std::vector<GLfloat>& table, const CVVector& v) { table.insert(table.end(), {v.x, v.y, v.z}); }

}  // namespace

CVMarkerColumn::CVMarkerColumn(const Point2fStruct* outline, int count, Axis axis, int unitNormals)
    : m_nQuads(count) {
    for (int k = 0; k < count; ++k) {
        const Point2fStruct& a = outline[k];
        const Point2fStruct& b = outline[(k + 1) % count];
        const CVVector topA = Place(a, axis, 0.5f), topB = Place(b, axis, 0.5f);
        const CVVector bottomA = Place(a, axis, -0.5f), bottomB = Place(b, axis, -0.5f);
        Append(m_SideVertices, topA);
        Append(m_SideVertices, topB);
        Append(m_SideVertices, bottomB);
        Append(m_SideVertices, bottomA);
        m_SideTexCoords.insert(m_SideTexCoords.end(), {0, 1, 1, 1, 1, 0, 0, 0});
        CVVector n = (topB - topA) * (bottomB - topB);
        if (unitNormals) n.Normalize();
        Append(m_SideNormals, n);
    }
    // Pairs (bottom k, top k) around the outline and back to the start.
    for (int k = 0; k <= count; ++k) {
        const int quad = k % count;
        m_StripIndices.push_back((GLubyte)(4 * quad + 3));
        m_StripIndices.push_back((GLubyte)(4 * quad));
    }
}

CVMarkerColumn::Cap CVMarkerColumn::MakeCap(const Point2fStruct* points, int count, Axis axis, float w, float nx,
                                            float ny, float nz) {
    Cap cap;
    for (int i = 0; i < count; ++i) {
        Append(cap.vertices, Place(points[i], axis, w));
        cap.texCoords.insert(cap.texCoords.end(), {points[i].x + 0.5f, points[i].y + 0.5f});
    }
    cap.normal[0] = nx;
    cap.normal[1] = ny;
    cap.normal[2] = nz;
    return cap;
}

void CVMarkerColumn::DrawBare() const {
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(3, GL_FLOAT, 0, m_SideVertices.data());
    if (m_bPickAsStrip)
        glDrawElements(GL_QUAD_STRIP, (GLsizei)m_StripIndices.size(), GL_UNSIGNED_BYTE, m_StripIndices.data());
    else
        glDrawArrays(GL_QUADS, 0, 4 * m_nQuads);
    for (const Cap& cap : m_Caps) {
        glVertexPointer(3, GL_FLOAT, 0, cap.vertices.data());
        for (const Part& part : cap.parts)
            glDrawElements(part.mode, (GLsizei)part.indices.size(), GL_UNSIGNED_BYTE, part.indices.data());
    }
    glDisableClientState(GL_VERTEX_ARRAY);
}

void CVMarkerColumn::DrawSolid(int tiled, const Point3fStruct& size) const {
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glVertexPointer(3, GL_FLOAT, 0, m_SideVertices.data());
    glTexCoordPointer(2, GL_FLOAT, 0, m_SideTexCoords.data());
    glEdgeFlag(GL_TRUE);
    if (tiled) {
        glMatrixMode(GL_TEXTURE);
        glPushMatrix();
        glScalef(1.0f, size.y / size.x, 1.0f);
        glMatrixMode(GL_MODELVIEW);
    }
    glBegin(GL_QUADS);
    for (int q = 0; q < m_nQuads; ++q) {
        glNormal3fv(GetSideNormal(q));
        for (int v = 0; v < 4; ++v) glArrayElement(4 * q + v);
    }
    glEnd();
    if (tiled) {
        glMatrixMode(GL_TEXTURE);
        glPopMatrix();
        glMatrixMode(GL_MODELVIEW);
    }
    for (const Cap& cap : m_Caps) {
        glVertexPointer(3, GL_FLOAT, 0, cap.vertices.data());
        glTexCoordPointer(2, GL_FLOAT, 0, cap.texCoords.data());
        glNormal3fv(cap.normal);
        if (!cap.edgeFlags.empty()) {
            glEnableClientState(GL_EDGE_FLAG_ARRAY);
            glEdgeFlagPointer(0, cap.edgeFlags.data());
        }
        for (const Part& part : cap.parts)
            glDrawElements(part.mode, (GLsizei)part.indices.size(), GL_UNSIGNED_BYTE, part.indices.data());
        if (!cap.edgeFlags.empty()) {
            glDisableClientState(GL_EDGE_FLAG_ARRAY);
            glEdgeFlag(GL_TRUE);
        }
    }
    glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    glDisableClientState(GL_VERTEX_ARRAY);
}
