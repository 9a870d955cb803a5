#include "nodes/CVAppearance.h"

IMPLEMENT_DYNAMIC(CVAppearance, CVNode)

void CVAppearance::Render(CVState* state, CVGLRenderArea* area) {
    CVMaterial* m = material.GetValue();
    if (m) m->Render(state, area);

    CVTexture* t = texture.GetValue();
    if (t) {
        t->Render(state, area);
        if (!t->GetTextureRendered() && m) {
            m->diffuseColor.SetValue(t->GetFallBackColor());
            m->Render(state, area);
        }
    }

    CVTextureTransform* tt = textureTransform.GetValue();
    if (tt) tt->Render(state, area);
}
