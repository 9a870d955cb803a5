#include "nodes/CVDirectionalLight.h"

#include <GL/gl.h>

#include "core/CVState.h"
#include "render/CVGLRenderArea.h"

IMPLEMENT_DYNAMIC(CVDirectionalLight, CVLight)

CVDirectionalLight::CVDirectionalLight() { direction.SetValue(0.0f, 0.0f, -1.0f); }

void CVDirectionalLight::Render(CVState* state, CVGLRenderArea* area) {
    if ((state && state->m_bRecordPath) || !on.GetValue() || !area) return;
    unsigned int light = 0;
    if (!FindUnusedGLLight(light, area->GetMaxLights())) return;
    const Point3fStruct& d = direction.GetValue();
    const RGBColorStruct& c = color.GetValue();
    const GLfloat position[4] = {-d.x, -d.y, -d.z, 0.0f};
    const float a = ambientIntensity.GetValue();
    const float i = intensity.GetValue();
    const GLfloat ambient[4] = {c.r * a, c.g * a, c.b * a, 1.0f};
    const GLfloat diffuse[4] = {c.r * i, c.g * i, c.b * i, 1.0f};
    glLightfv(light, GL_POSITION, position);
    glLightfv(light, GL_AMBIENT, ambient);
    glLightfv(light, GL_DIFFUSE, diffuse);
    glLightfv(light, GL_SPECULAR, diffuse);
    glEnable(light);
    area->SetLightNode(this);
}
