#pragma once
// The solid of the heart, club, spade and flag markers: a closed outline in
// the x-z plane (its last point repeats its first) extruded into a slab from
// y = -0.5 to +0.5. The vertex table holds the outline twice: points 0..N-1
// at y = -0.5 in outline order, points N..2N-1 at y = +0.5 in reverse order.
//
// Caps are single GL_POLYGONs, concave outlines included: the rasteriser's
// fan from the first point is the intended drawing. No texture coordinates.
#include "../platform/CVExport.h"
#include <GL/gl.h>

#include <cstddef>
#include <vector>

#include "../math/CVStructs.h"

class CVSCENE_API CVMarkerOutline {
public:
    // outline: count (x, z) points, the last equal to the first.
    CVMarkerOutline(const Point2fStruct* outline, int count);

    int GetCount() const { return m_nCount; }
    // Point i of the vertex table.
    const GLfloat* GetVertex(int i) const { return &m_Vertices[3 * (size_t)i]; }

    // Side quads and caps without normals (picking).
    void DrawBare() const;
    // Side quads each after its outward normal (not unit length), caps facing
    // -y and +y.
    void DrawSolid() const;

private:
    void Draw(bool normals) const;

    int m_nCount;
    std::vector<GLfloat> m_Vertices;     // 2N points
    std::vector<GLfloat> m_SideNormals;  // one per side quad
};
