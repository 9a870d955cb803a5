#include "nodes/CVMaterialTwoSided.h"

#include <GL/gl.h>

#include "platform/CVMesaQuirks.h"

IMPLEMENT_DYNAMIC(CVMaterialTwoSided, CVMaterial)

CVMaterialTwoSided::CVMaterialTwoSided() {
    backAmbientIntensity.SetValue(0.8f);
    backDiffuseColor.SetValue(0.8f, 0.8f, 0.8f);
    backShininess.SetValue(0.2f);
}

void CVMaterialTwoSided::Render(CVState* state, CVGLRenderArea* area) {
    CVMaterial::Render(state, area);
    if (!twoSided.GetValue()) return;

    // Otherwise the current colour would overwrite the back diffuse again.
    glColorMaterial(GL_FRONT, GL_AMBIENT_AND_DIFFUSE);
    if (CVMesaQuirks::Applies(CVMesaQuirk::TrackedAmbientIgnored)) {
        // Tracking ambient again dropped the front ambient intensity.
        const RGBColorStruct& fd = diffuseColor.GetValue();
        const float fai = ambientIntensity.GetValue();
        const GLfloat front[4] = {fd.r * fai, fd.g * fai, fd.b * fai, 1.0f - transparency.GetValue()};
        CVMesaQuirks::SetMaterialAmbient(GL_FRONT, front);
    }
    const float alpha = 1.0f - backTransparency.GetValue();
    const RGBColorStruct& d = backDiffuseColor.GetValue();
    const RGBColorStruct& s = backSpecularColor.GetValue();
    const RGBColorStruct& e = backEmissiveColor.GetValue();
    const float ai = backAmbientIntensity.GetValue();
    const GLfloat diffuse[4] = {d.r, d.g, d.b, alpha};
    const GLfloat ambient[4] = {d.r * ai, d.g * ai, d.b * ai, alpha};
    const GLfloat specular[4] = {s.r, s.g, s.b, alpha};
    const GLfloat emission[4] = {e.r, e.g, e.b, alpha};
    glMaterialfv(GL_BACK, GL_DIFFUSE, diffuse);
    glMaterialfv(GL_BACK, GL_AMBIENT, ambient);
    glMaterialfv(GL_BACK, GL_SPECULAR, specular);
    glMaterialf(GL_BACK, GL_SHININESS, backShininess.GetValue() * 128.0f);
    glMaterialfv(GL_BACK, GL_EMISSION, emission);
}
