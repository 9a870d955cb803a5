#include "geometry/CVShape.h"
#include "render/CVAttribStack.h"

#include <GL/gl.h>

#include <algorithm>

#include "core/CVState.h"
#include "render/CVDeferredNodeInfo.h"
#include "render/CVGLRenderArea.h"

IMPLEMENT_DYNAMIC(CVShape, CVChild)

namespace {


// The text node answers for itself: it lives in a layer above this one.
bool IsText(const CVGeometry* geometry) { return geometry->IsTextGeometry() != 0; }

GLint FrontPolygonMode() {
    GLint modes[2] = {GL_FILL, GL_FILL};
    glGetIntegerv(GL_POLYGON_MODE, modes);
    return modes[0];
}

// The deferral kind for pass 1, or -1 to draw now.
int DeferKind(const CVGeometry* g, const CVGLRenderArea* area, GLint polygonMode) {
    if (!g->NeedsSorting()) return -1;
    if (g->IsAntialiased() && area->IsLineAntialiasingEnabled() &&
        (polygonMode == GL_LINE || g->IsLineGeometry()))
        return CVDeferTransparent;
    if (polygonMode != GL_FILL) return -1;
    if ((g->IsTransparent() && area->IsTransparencyEnabled()) || g->IsDropShadowed()) return CVDeferTransparent;
    if (g->IsAntialiased() && IsText(g)) return CVDeferText;
    if (g->IsForceSorted()) return CVDeferSortedOpaque;
    return -1;
}

void DrawDropShadow(CVState* state, CVGLRenderArea* area, CVGeometry* g) {
    CVAttribStack::Push(GL_ENABLE_BIT | GL_POLYGON_BIT);
    glPushMatrix();
    glDisable(GL_LIGHTING);
    glEnable(GL_POLYGON_STIPPLE);  // the area keeps its pattern loaded
    const RGBAColorStruct c = area->GetDropShadowColor();
    glColor4f(c.r, c.g, c.b, c.a);
    glMultMatrixf(area->GetShadowMatrix());
    g->Render(state, area, nullptr);
    glPopMatrix();
    CVAttribStack::Pop();
}

void DrawSelectionOverlay(CVState* state, CVGLRenderArea* area, CVGeometry* g, CVAppearance* app) {
    const RGBColorStruct c = area->GetSelectionColor();
    glColor3f(c.r, c.g, c.b);
    // The percent narrows the overlay to the selected part; the extra 0.0005
    // lifts it off the surface it covers so that it passes the depth test.
    // Extrusions along y are narrowed in x and z instead.
    const float s = std::min(1.0f, g->GetStipplePercent() * 0.01f) + 0.0005f;
    glPushMatrix();
    if (g->IsYAxisExtrusion())
        glScalef(s, 1.0005f, s);
    else
        glScalef(s, s, 1.0005f);
    glEnable(GL_POLYGON_STIPPLE);
    g->Render(state, area, app);
    glDisable(GL_POLYGON_STIPPLE);
    glPopMatrix();
}

}  // namespace

void CVShape::Render(CVState* state, CVGLRenderArea* area) {
    CVGeometry* g = geometry.GetValue();
    if (!g || !state || !area) return;

    if (state->m_bRecordPath) {
        if (g->IsNotSelectable()) return;
        glPushName(0xFFFFFFFFu);
        g->Render(state, area, nullptr);
        glPopName();
        return;
    }
    if (g->IsNotVisible()) return;

    const int pass = state->m_nRenderPass;
    const int filter = area->GetTextFilterMode();
    if (filter > 0 && (pass == CVRenderPassScene || pass == CVRenderPassAnnotation)) {
        const bool textLike = IsText(g) || g->IsPostJitter();
        if (filter == 2 && !textLike) return;
        if (filter == 1 && textLike) return;
    }

    // The polygon-mode query is asked only by shapes that cast a shadow or
    // may be deferred: most shapes need neither.
    const bool shadow = area->IsDropShadowsEnabled() && g->IsDataPointNode();
    if (pass == CVRenderPassScene && (shadow || g->NeedsSorting())) {
        const GLint polygonMode = FrontPolygonMode();
        if (shadow && polygonMode != GL_LINE && !g->IsLineGeometry()) DrawDropShadow(state, area, g);
        const int kind = DeferKind(g, area, polygonMode);
        if (kind >= 0) {
            area->AddToTransparentNodeList(this, state, kind);
            return;
        }
    }

    glColorMaterial(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE);
    CVAppearance* app = appearance.GetValue();
    if (app) {
        app->Render(state, area);
        CVTextureTransform* textureTransform = app->GetTextureTransform();
        if (textureTransform) {
            textureTransform->PushMatrix();
            textureTransform->Apply();
            g->Render(state, area, app);
            textureTransform->PopMatrix();
        } else {
            g->Render(state, area, app);
        }
    } else {
        glColor3f(0.8f, 0.8f, 0.8f);
        g->Render(state, area, nullptr);
    }

    if (g->IsStippled() && !g->IsPartialSelection()) DrawSelectionOverlay(state, area, g, app);
}

void CVShape::ComputeBoundingBox(CVState* state, CVGLRenderArea* area, CVBox3f* box) {
    CVGeometry* g = geometry.GetValue();
    if (g) g->ComputeBoundingBox(state, area, box);
}

CVDetail* CVShape::GetPickDetail(unsigned int hitName) {
    CVGeometry* g = geometry.GetValue();
    return g ? g->GetPickDetail(hitName) : nullptr;
}
