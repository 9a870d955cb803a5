#include "nodes/CVMaterial.h"

#include <GL/gl.h>

#include "platform/CVMesaQuirks.h"
#include "render/CVCacheManager.h"

IMPLEMENT_DYNAMIC(CVMaterial, CVNode)

namespace {

bool Differs(const RGBColorStruct& a, const RGBColorStruct& b) { return a.r != b.r || a.g != b.g || a.b != b.b; }

// The slots compared against: the manager's, or, outside library load, a
// stand-in that starts unknown on every call so that nothing is skipped.
struct MaterialSlots {
    RGBColorStruct* current;
    RGBColorStruct* emissive;
    RGBColorStruct* specular;
    float* ambientIntensity;
    float* shininess;
    float* transparency;
};

struct UnknownMaterial {
    RGBColorStruct current{-1.0f, -1.0f, -1.0f}, emissive{-1.0f, -1.0f, -1.0f}, specular{-1.0f, -1.0f, -1.0f};
    float ambientIntensity = -1.0f, shininess = -1.0f, transparency = -1.0f;
};

MaterialSlots Slots(UnknownMaterial& unknown) {
    if (CVCacheManager* m = CVGetCacheManagerPtr())
        return {&m->m_CurrentColor, &m->m_EmissiveColor, &m->m_SpecularColor,
                &m->m_fAmbientIntensity, &m->m_fShininess, &m->m_fTransparency};
    return {&unknown.current, &unknown.emissive, &unknown.specular,
            &unknown.ambientIntensity, &unknown.shininess, &unknown.transparency};
}

}  // namespace

CVMaterial::CVMaterial() {
    ambientIntensity.SetValue(0.8f);
    diffuseColor.SetValue(0.8f, 0.8f, 0.8f);
    shininess.SetValue(0.2f);
}

void CVMaterial::Render(CVState*, CVGLRenderArea*) {
    UnknownMaterial unknown;
    const MaterialSlots cache = Slots(unknown);

    const float t = transparency.GetValue();
    const bool changed = *cache.transparency != t;
    if (changed) *cache.transparency = t;
    const float alpha = 1.0f - *cache.transparency;

    const RGBColorStruct& d = diffuseColor.GetValue();
    *cache.current = d;
    glColor4f(d.r, d.g, d.b, alpha);

    const float ai = ambientIntensity.GetValue();
    *cache.ambientIntensity = ai;
    const GLfloat ambient[4] = {d.r * ai, d.g * ai, d.b * ai, alpha};
    CVMesaQuirks::SetMaterialAmbient(GL_FRONT_AND_BACK, ambient);

    const RGBColorStruct& s = specularColor.GetValue();
    if (changed || Differs(s, *cache.specular)) {
        *cache.specular = s;
        const GLfloat specular[4] = {s.r, s.g, s.b, alpha};
        glMaterialfv(GL_FRONT_AND_BACK, GL_SPECULAR, specular);
    }

    const float shine = shininess.GetValue();
    if (shine != *cache.shininess) {
        *cache.shininess = shine;
        glMaterialf(GL_FRONT_AND_BACK, GL_SHININESS, shine * 128.0f);
    }

    const RGBColorStruct& e = emissiveColor.GetValue();
    if (changed || Differs(e, *cache.emissive)) {
        *cache.emissive = e;
        const GLfloat emission[4] = {e.r, e.g, e.b, alpha};
        glMaterialfv(GL_FRONT_AND_BACK, GL_EMISSION, emission);
    }
}
