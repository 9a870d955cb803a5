#include "geometry/CVDisc.h"

#include <GL/gl.h>

#include "math/CVBox3f.h"

IMPLEMENT_DYNAMIC(CVDisc, CVGeometry)

namespace {

const GLfloat kVertices[6][2] = {{-0.5f, 0.0f}, {-0.25f, -0.5f}, {0.25f, -0.5f},
                                 {0.5f, 0.0f},  {0.25f, 0.5f},   {-0.25f, 0.5f}};
const GLfloat kTexCoords[6][2] = {{0.0f, 0.5f}, {0.25f, 0.0f}, {0.75f, 0.0f},
                                  {1.0f, 0.5f}, {0.75f, 1.0f}, {0.25f, 1.0f}};
const GLubyte kIndices[6] = {0, 1, 2, 3, 4, 5};

}  // namespace

CVDisc::CVDisc() { size.SetValue(2.0f, 2.0f, 2.0f); }

void CVDisc::Render(CVState* state, CVGLRenderArea* area, CVAppearance* appearance) {
    const Point3fStruct& s = size.GetValue();
    glPushMatrix();
    glScalef(s.x, s.y, s.z);
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(2, GL_FLOAT, 0, kVertices);
    if (IsPicking(state)) {
        glDrawElements(GL_POLYGON, 6, GL_UNSIGNED_BYTE, kIndices);
    } else {
        glEnableClientState(GL_TEXTURE_COORD_ARRAY);
        glTexCoordPointer(2, GL_FLOAT, 0, kTexCoords);
        PreRenderGL(state, area, appearance);
        glDisable(GL_CULL_FACE);
        glNormal3f(0.0f, 0.0f, 1.0f);
        glDrawElements(GL_POLYGON, 6, GL_UNSIGNED_BYTE, kIndices);
        PostRenderGL(state, area, appearance);
        glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    }
    glDisableClientState(GL_VERTEX_ARRAY);
    glPopMatrix();
}

void CVDisc::ComputeBoundingBox(CVState*, CVGLRenderArea*, CVBox3f* box) {
    if (!box) return;
    box->SetCenter(0.0f, 0.0f, 0.0f);
    box->SetSize(size.GetValue());
}
