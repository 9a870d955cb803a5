#include "geometry/CVShape.h"
#include "render/CVAttribStack.h"

#include <GL/gl.h>

#include <algorithm>

#include "core/CVState.h"
#include "render/CVGLRenderArea.h"

IMPLEMENT_DYNAMIC(CVShape, CVChild)

namespace {

enum RenderPass { kScenePass = 1, kAnnotationPass = 3 };
enum DeferKind { kSortedOpaque = 0, kTransparent = 1, kText = 2 };

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
        return kTransparent;
    if (polygonMode != GL_FILL) return -1;
    if ((g->IsTransparent() && area->IsTransparencyEnabled()) || g->IsDropShadowed()) return kTransparent;
    if (g->IsAntialiased() && IsText(g)) return kText;
    if (g->IsForceSorted()) return kSortedOpaque;
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
    if (filter > 0 && (pass == kScenePass || pass == kAnnotationPass)) {
        const bool textLike = IsText(g) || g->IsPostJitter();
        if (filter == 2 && !textLike) return;
        if (filter == 1 && textLike) return;
    }

    if (pass == kScenePass) {
        const GLint polygonMode = FrontPolygonMode();
        if (area->IsDropShadowsEnabled() && g->IsDataPointNode() && polygonMode != GL_LINE &&
            !g->IsLineGeometry())
            DrawDropShadow(state, area, g);
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
