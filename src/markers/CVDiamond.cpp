#include "markers/CVDiamond.h"

#include <GL/gl.h>

IMPLEMENT_DYNAMIC(CVDiamond, CVBox)

void CVDiamond::Render(CVState* state, CVGLRenderArea* area, CVAppearance* appearance) {
    glPushMatrix();
    glRotatef(45.0f, 0.0f, 0.0f, 1.0f);
    CVBox::Render(state, area, appearance);
    glPopMatrix();
}
