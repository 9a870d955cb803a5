#include "geometry/CVBox.h"

#include <GL/gl.h>

#include <algorithm>

#include "geometry/CVBoxDetail.h"
#include "math/CVBox3f.h"
#include "render/CVGLRenderArea.h"

IMPLEMENT_DYNAMIC(CVBox, CVGeometry)

namespace {

// Unit cube, four vertices per face: top, bottom, front, back, right, left.
const GLfloat kVertices[24][3] = {
    {-0.5f, 0.5f, 0.5f},   {0.5f, 0.5f, 0.5f},   {0.5f, 0.5f, -0.5f},   {-0.5f, 0.5f, -0.5f},
    {-0.5f, -0.5f, -0.5f}, {0.5f, -0.5f, -0.5f}, {0.5f, -0.5f, 0.5f},   {-0.5f, -0.5f, 0.5f},
    {-0.5f, -0.5f, 0.5f},  {0.5f, -0.5f, 0.5f},  {0.5f, 0.5f, 0.5f},    {-0.5f, 0.5f, 0.5f},
    {0.5f, -0.5f, -0.5f},  {-0.5f, -0.5f, -0.5f}, {-0.5f, 0.5f, -0.5f}, {0.5f, 0.5f, -0.5f},
    {0.5f, -0.5f, 0.5f},   {0.5f, -0.5f, -0.5f}, {0.5f, 0.5f, -0.5f},   {0.5f, 0.5f, 0.5f},
    {-0.5f, -0.5f, -0.5f}, {-0.5f, -0.5f, 0.5f}, {-0.5f, 0.5f, 0.5f},   {-0.5f, 0.5f, -0.5f},
};
const GLfloat kNormals[6][3] = {{0, 1, 0}, {0, -1, 0}, {0, 0, 1}, {0, 0, -1}, {1, 0, 0}, {-1, 0, 0}};
const GLfloat kTexCoords[24][2] = {
    {0, 0}, {1, 0}, {1, 1}, {0, 1}, {0, 0}, {1, 0}, {1, 1}, {0, 1}, {0, 0}, {1, 0}, {1, 1}, {0, 1},
    {0, 0}, {1, 0}, {1, 1}, {0, 1}, {0, 0}, {1, 0}, {1, 1}, {0, 1}, {0, 0}, {1, 0}, {1, 1}, {0, 1},
};
enum { kFront = 2 };

// One GL_QUADS block over faces first .. end - 1, each after its normal.
// Immediate mode, not an array draw: the driver draws the block together with
// immediate geometry that follows before the next state change (the partial
// selection overlay when stippling is already on, as in the drop shadow), and
// drawing it apart changes which of two coplanar surfaces wins a pixel (a
// flat box and its overlay). Direct calls, not glArrayElement, which walks
// the enabled arrays for every vertex.
void DrawFaces(int first, int end) {
    glBegin(GL_QUADS);
    for (int face = first; face < end; ++face) {
        glNormal3fv(kNormals[face]);
        for (int v = face * 4; v < face * 4 + 4; ++v) {
            glTexCoord2fv(kTexCoords[v]);
            glVertex3fv(kVertices[v]);
        }
    }
    glEnd();
}

// The same vertices from the client arrays (and texture coordinates with
// texCoords), client state restored afterwards.
void DrawArrays(GLenum mode, int first, int count, bool texCoords) {
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(3, GL_FLOAT, 0, kVertices);
    if (texCoords) {
        glEnableClientState(GL_TEXTURE_COORD_ARRAY);
        glTexCoordPointer(2, GL_FLOAT, 0, kTexCoords);
    }
    glDrawArrays(mode, first, count);
    if (texCoords) glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    glDisableClientState(GL_VERTEX_ARRAY);
}

GLint FrontPolygonMode() {
    GLint modes[2] = {GL_FILL, GL_FILL};
    glGetIntegerv(GL_POLYGON_MODE, modes);
    return modes[0];
}

}  // namespace

CVBox::CVBox() { size.SetValue(2.0f, 2.0f, 2.0f); }

void CVBox::Render(CVState* state, CVGLRenderArea* area, CVAppearance* appearance) {
    const Point3fStruct& s = size.GetValue();
    const int tiled = UsesTiledTexture(appearance);
    const bool flat = s.z == 0.0f;
    const int faceEnd = flat ? 3 : 6;

    glPushMatrix();
    if (s.x < 0.0f) {
        glScalef(-s.x, -s.y, -s.z);
        glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
    } else {
        glScalef(s.x, s.y, s.z);
    }
    const int first = flat ? kFront : 0;
    if (IsPicking(state)) {
        DrawArrays(GL_QUADS, first * 4, (faceEnd - first) * 4, false);
    } else {
        PreRenderGL(state, area, appearance);
        glEdgeFlag(GL_TRUE);
        if (tiled) {
            if (!flat) DrawFaces(0, kFront);
            glMatrixMode(GL_TEXTURE);
            glPushMatrix();
            glScalef(1.0f, s.y / s.x, 1.0f);
            glMatrixMode(GL_MODELVIEW);
            DrawFaces(kFront, faceEnd);
            glMatrixMode(GL_TEXTURE);
            glPopMatrix();
            glMatrixMode(GL_MODELVIEW);
        } else {
            DrawFaces(first, faceEnd);
        }
        if (flat && FrontPolygonMode() == GL_LINE) DrawArrays(GL_POINTS, kFront * 4, 4, true);
        if (IsStippled() && IsPartialSelection() && GetStipplePercent() != 0 && area)
            RenderPartialSelection(GetStipplePercent() * 0.01f, flat ? 1 : 4, area->GetSelectionColor());
        PostRenderGL(state, area, appearance);
    }
    glPopMatrix();
}

void CVBox::RenderPartialSelection(float fraction, int faceCount, RGBColorStruct color) {
    glColor3f(color.r, color.g, color.b);
    glEnable(GL_POLYGON_STIPPLE);
    const float top = std::min(fraction, 1.0f) - 0.5f;
    // 0.0005 outside the faces keeps the overlay in front of them.
    const float out = 0.5005f;
    glBegin(GL_QUADS);
    glVertex3f(-0.5f, -0.5f, out);
    glVertex3f(0.5f, -0.5f, out);
    glVertex3f(0.5f, top, out);
    glVertex3f(-0.5f, top, out);
    glEnd();
    if (faceCount > 1) {
        glBegin(GL_QUADS);
        glVertex3f(0.5f, -0.5f, -out);
        glVertex3f(-0.5f, -0.5f, -out);
        glVertex3f(-0.5f, top, -out);
        glVertex3f(0.5f, top, -out);

        glVertex3f(out, -0.5f, 0.5f);
        glVertex3f(out, -0.5f, -0.5f);
        glVertex3f(out, top, -0.5f);
        glVertex3f(out, top, 0.5f);

        glVertex3f(-out, -0.5f, -0.5f);
        glVertex3f(-out, -0.5f, 0.5f);
        glVertex3f(-out, top, 0.5f);
        glVertex3f(-out, top, -0.5f);
        glEnd();
    }
}

void CVBox::ComputeBoundingBox(CVState*, CVGLRenderArea*, CVBox3f* box) {
    if (!box) return;
    box->SetCenter(0.0f, 0.0f, 0.0f);
    box->SetSize(size.GetValue());
}

CVDetail* CVBox::GetPickDetail(unsigned int) {
    CVBoxDetail* detail = new CVBoxDetail(this);
    detail->SetPart(Front);
    return detail;
}
