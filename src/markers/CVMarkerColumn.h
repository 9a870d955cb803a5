#pragma once
// The solid of the star, hexagon, prism and cross markers: side quads around
// a closed outline (four vertices and one stored normal per quad, texture
// mapped face by face onto the unit square), and caps that carry their own
// vertex and texture tables, normal, index lists and optional edge flags.
//
// The outline lies in the x-z plane and is extruded along y (AlongY), or in
// the x-y plane extruded along z (AlongZ), from -0.5 to +0.5. Quad k joins
// outline points k and k+1; with the outline counter-clockwise in (x, z), or
// clockwise in (x, y), the quads face outwards.
#include "../platform/CVExport.h"
#include <GL/gl.h>

#include <cstddef>
#include <vector>

#include "../math/CVStructs.h"

class CVSCENE_API CVMarkerColumn {
public:
    enum Axis { AlongY, AlongZ };

    struct Part {
        GLenum mode;
        std::vector<GLubyte> indices;
    };
    struct Cap {
        std::vector<GLfloat> vertices;     // x y z
        std::vector<GLfloat> texCoords;    // s t
        GLfloat normal[3];
        std::vector<GLboolean> edgeFlags;  // per vertex; empty for none
        std::vector<Part> parts;
    };

    // outline: count (u, v) points without a repeated first point. Unit
    // normals are normalised; otherwise a quad's normal is its top edge
    // crossed with the way down (length of that edge).
    CVMarkerColumn(const Point2fStruct* outline, int count, Axis axis, int unitNormals);

    // A cap at w (y for AlongY, z for AlongZ) over the outline points given,
    // with planar texture coordinates (u + 0.5, v + 0.5).
    static Cap MakeCap(const Point2fStruct* points, int count, Axis axis, float w, float nx, float ny, float nz);
    void AddCap(const Cap& cap) { m_Caps.push_back(cap); }
    // While picking, draw the side as one GL_QUAD_STRIP around the outline
    // rather than as GL_QUADS.
    void SetPickAsStrip(int strip) { m_bPickAsStrip = strip; }

    int GetQuadCount() const { return m_nQuads; }
    const GLfloat* GetSideVertex(int i) const { return &m_SideVertices[3 * (size_t)i]; }
    const GLfloat* GetSideNormal(int quad) const { return &m_SideNormals[3 * (size_t)quad]; }
    const Cap& GetCap(int i) const { return m_Caps[(size_t)i]; }

    // Side and caps without normals or texture coordinates (picking).
    void DrawBare() const;
    // Side quads after their normals, then the caps. tiled stretches the side
    // texture by size.y / size.x.
    void DrawSolid(int tiled, const Point3fStruct& size) const;

private:
    int m_nQuads;
    int m_bPickAsStrip = 0;
    std::vector<GLfloat> m_SideVertices;   // 4 per quad: top k, top k+1, bottom k+1, bottom k
    std::vector<GLfloat> m_SideTexCoords;
    std::vector<GLfloat> m_SideNormals;
    std::vector<GLubyte> m_StripIndices;   // the side as a quad strip into the quad table
    std::vector<Cap> m_Caps;
};
