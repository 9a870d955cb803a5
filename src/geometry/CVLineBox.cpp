#include "geometry/CVLineBox.h"

#include <GL/gl.h>

#include "nodes/CVAppearance.h"
#include "render/CVAttribStack.h"

IMPLEMENT_DYNAMIC(CVLineBox, CVBox)

void CVLineBox::Render(CVState* state, CVGLRenderArea* area, CVAppearance* appearance) {
    CVAttribStack::Push(GL_LIGHTING_BIT | GL_POLYGON_BIT);
    glDisable(GL_LIGHTING);
    glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
    if (appearance && IsVRMLCompliant() && appearance->GetMaterial()) {
        const RGBColorStruct& c = appearance->GetMaterial()->emissiveColor.GetValue();
        glColor3f(c.r, c.g, c.b);
    }
    CVBox::Render(state, area, appearance);
    CVAttribStack::Pop();
}
