#include "markers/CVXShape.h"

#include <GL/gl.h>

IMPLEMENT_DYNAMIC(CVXShape, CVCross)

void CVXShape::Render(CVState* state, CVGLRenderArea* area, CVAppearance* appearance) {
    glPushMatrix();
    glRotatef(45.0f, 0.0f, 0.0f, 1.0f);
    CVCross::Render(state, area, appearance);
    glPopMatrix();
}
