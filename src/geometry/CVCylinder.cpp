#include "geometry/CVCylinder.h"

#include <GL/gl.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "geometry/CVCylinderDetail.h"
#include "math/CVBox3f.h"
#include "render/CVCacheManager.h"
#include "render/CVGLRenderArea.h"
#include "render/CVSelectSafeList.h"

IMPLEMENT_DYNAMIC(CVCylinder, CVGeometry)

namespace {

struct RingPoint {
    GLfloat x, z;
};

// precision points from angle -pi/2, and a copy of the first that closes the seam.
std::vector<RingPoint> MakeRing(int precision, float r) {
    std::vector<RingPoint> ring((size_t)std::max(precision, 0) + 1);
    const double step = 2.0 * M_PI / precision;
    for (int i = 0; i < precision; ++i) {
        const double angle = -M_PI / 2 + i * step;
        ring[i].x = (float)(r * std::cos(angle));
        ring[i].z = (float)(r * std::sin(angle));
    }
    ring[ring.size() - 1] = ring[0];
    return ring;
}

// Ring points precision down to 1 at height y: facing +y.
void TopCap(const std::vector<RingPoint>& ring, int precision, float y, float r, bool textured) {
    for (int i = precision; i >= 1; --i) {
        if (textured) glTexCoord2f((r + ring[i].x) / (2.0f * r), (r - ring[i].z) / (2.0f * r));
        glVertex3f(ring[i].x, y, ring[i].z);
    }
}

void Tessellate(int precision, float r, int drawTop, int drawBottom, int drawSide, int compliant,
                unsigned int list) {
    const std::vector<RingPoint> ring = MakeRing(precision, r);

    if (list) glNewList(list, GL_COMPILE_AND_EXECUTE);
    if (drawSide) {
        const float ds = 1.0f / precision;
        float s = 1.0f;
        CVSelectSafeList::BeginBlock(GL_TRIANGLE_STRIP, ring[0].x, 0.0f, ring[0].z);
        for (int i = 0; i <= precision; ++i, s -= ds) {
            glNormal3f(ring[i].x, 0.0f, ring[i].z);
            glTexCoord2f(s, 0.0f);
            glVertex3f(ring[i].x, -0.5f, ring[i].z);
            glTexCoord2f(s, 1.0f);
            glVertex3f(ring[i].x, 0.5f, ring[i].z);
        }
        glEnd();
    }
    glEdgeFlag(GL_TRUE);
    glDisable(GL_CULL_FACE);
    if (!compliant) {
        // The side's wrap-around texture scale would smear the caps.
        glMatrixMode(GL_TEXTURE);
        glPushMatrix();
        glLoadIdentity();
        glMatrixMode(GL_MODELVIEW);
    }
    if (drawTop) {
        CVSelectSafeList::BeginBlock(GL_POLYGON, 0.0f, 1.0f, 0.0f);
        TopCap(ring, precision, 0.5f, r, true);
        glEnd();
    }
    if (drawBottom) {
        CVSelectSafeList::BeginBlock(GL_POLYGON, 0.0f, -1.0f, 0.0f);
        for (int i = 0; i < precision; ++i) {
            glTexCoord2f((r + ring[i].x) / (2.0f * r), (r + ring[i].z) / (2.0f * r));
            glVertex3f(ring[i].x, -0.5f, ring[i].z);
        }
        glEnd();
    }
    if (!compliant) {
        glMatrixMode(GL_TEXTURE);
        glPopMatrix();
        glMatrixMode(GL_MODELVIEW);
    }
    if (list) glEndList();
}

}  // namespace

CVCylinder::CVCylinder() {
    radius.SetValue(1.0f);
    height.SetValue(2.0f);
    top.SetValue(1);
    bottom.SetValue(1);
    side.SetValue(1);
    SetAntialiasedFlag(1);
}

void CVCylinder::Render(CVState* state, CVGLRenderArea* area, CVAppearance* appearance) {
    const int tiled = UsesTiledTexture(appearance);
    const int compliant = IsVRMLCompliant();
    PreRenderGL(state, area, appearance);
    float h = height.GetValue();
    if (h < 0.0f) {
        glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
        h = -h;
    }
    const float r = radius.GetValue();
    // Wide cylinders need more segments to look round; only the default grows.
    if (precision == kDefaultPrecision) precision = r > 0.1f ? 26 : r > 0.05f ? 20 : kDefaultPrecision;

    glPushMatrix();
    glScalef(1.0f, h, 1.0f);
    if (!compliant) {
        glMatrixMode(GL_TEXTURE);
        glPushMatrix();
        glScalef(3.0f, tiled ? h / (2.0f * r) : 1.0f, 1.0f);
        glMatrixMode(GL_MODELVIEW);
    }

    const int drawTop = top.GetValue();
    const int drawBottom = bottom.GetValue();
    const int drawSide = side.GetValue();
    CVCacheManager* cache = CVGetCacheManagerPtr();
    const unsigned int found =
        cache ? cache->GetCachedCylinder(precision, r, 1.0f, drawTop, drawBottom, drawSide) : 0;
    if (found) {
        glCallList(found);
    } else {
        Tessellate(precision, r, drawTop, drawBottom, drawSide, compliant,
                   cache ? cache->NewCachedCylinder(precision, r, 1.0f, drawTop, drawBottom, drawSide) : 0);
        SetModifiedFlag(0);
    }

    if (IsStippled() && IsPartialSelection() && GetStipplePercent() != 0 && area)
        RenderPartialSelection(GetStipplePercent() * 0.01f, area->GetSelectionColor());
    if (!compliant) {
        glMatrixMode(GL_TEXTURE);
        glPopMatrix();
        glMatrixMode(GL_MODELVIEW);
    }
    glPopMatrix();
    PostRenderGL(state, area, appearance);
}

void CVCylinder::RenderPartialSelection(float fraction, RGBColorStruct color) {
    if (!side.GetValue()) return;
    const float f = std::min(fraction, 1.0f);
    const float level = -0.5f + f;
    const float r = radius.GetValue();
    const std::vector<RingPoint> ring = MakeRing(precision, r);

    glColor3f(color.r, color.g, color.b);
    glEnable(GL_POLYGON_STIPPLE);
    glEnable(GL_POLYGON_OFFSET_FILL);
    glPolygonOffset(-1.0f, -1.0f);
    glBegin(GL_TRIANGLE_STRIP);
    for (int i = 0; i <= precision; ++i) {
        glVertex3f(ring[i].x, -0.5f, ring[i].z);
        glVertex3f(ring[i].x, level, ring[i].z);
    }
    glEnd();
    glDisable(GL_POLYGON_OFFSET_FILL);
    if (top.GetValue() && f == 1.0f) {
        glBegin(GL_POLYGON);
        TopCap(ring, precision, level, r, false);
        glEnd();
    }
    // The fill level, outlined.
    glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
    glBegin(GL_POLYGON);
    TopCap(ring, precision, level, r, false);
    glEnd();
}

void CVCylinder::ComputeBoundingBox(CVState*, CVGLRenderArea*, CVBox3f* box) {
    if (!box) return;
    const float d = 2.0f * radius.GetValue();
    box->SetCenter(0.0f, 0.0f, 0.0f);
    box->SetSize(d, std::fabs(height.GetValue()), d);
}

CVDetail* CVCylinder::GetPickDetail(unsigned int) {
    CVCylinderDetail* detail = new CVCylinderDetail(this);
    detail->SetPart(Sides);
    return detail;
}
