#include "nodes/CVLightModel.h"

#include <GL/gl.h>

#include "core/CVState.h"

IMPLEMENT_DYNAMIC(CVLightModel, CVChild)

CVLightModel::CVLightModel() {
    lighting.SetValue(1);
    viewerMode.SetValue(1);
    ambientColor.SetValue(0.2f, 0.2f, 0.2f);
    twoSided.SetValue(0);
}

void CVLightModel::Render(CVState* state, CVGLRenderArea*) {
    if (state && state->m_bRecordPath) return;
    if (lighting.GetValue())
        glEnable(GL_LIGHTING);
    else
        glDisable(GL_LIGHTING);
    int mode = viewerMode.GetValue();
    if (mode == 0 || mode == 1) glLightModeli(GL_LIGHT_MODEL_LOCAL_VIEWER, mode == 0 ? 1 : 0);
    const RGBColorStruct& c = ambientColor.GetValue();
    const GLfloat ambient[4] = {c.r, c.g, c.b, 1.0f};
    glLightModelfv(GL_LIGHT_MODEL_AMBIENT, ambient);
    glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, twoSided.GetValue());
}
