#include "geometry/CVCone.h"

#include <GL/gl.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "geometry/CVConeDetail.h"
#include "math/CVBox3f.h"
#include "render/CVCacheManager.h"
#include "render/CVSelectSafeList.h"

IMPLEMENT_DYNAMIC(CVCone, CVGeometry)

namespace {

struct RingPoint {
    GLfloat x, z;
    GLfloat s, t;  // planar, for the base
};

void Tessellate(int precision, float r, float h, int drawBottom, int drawSide, unsigned int list) {
    std::vector<RingPoint> ring((size_t)std::max(precision, 0) + 1);
    const double step = 2.0 * M_PI / precision;
    for (int i = 0; i <= precision; ++i) {
        const double angle = -M_PI / 2 + i * step;
        RingPoint& p = ring[i];
        p.x = (float)(r * std::cos(angle));
        p.z = (float)(r * std::sin(angle));
        p.s = (r + p.x) / (2.0f * r);
        p.t = (r + p.z) / (2.0f * r);
    }
    // The seam closes exactly, whatever the rounding of the last angle.
    ring[precision] = ring[0];
    const float y0 = -h / 2.0f;

    if (list) glNewList(list, GL_COMPILE_AND_EXECUTE);
    if (drawSide) {
        const float ds = 1.0f / precision;
        float s = 1.0f;
        CVSelectSafeList::BeginBlock(GL_TRIANGLES, 0.5f * ring[0].x, 0.0f, 0.5f * ring[0].z);
        for (int i = 0; i < precision; ++i, s -= ds) {
            const RingPoint& a = ring[i];
            const RingPoint& b = ring[i + 1];
            // The apex keeps the normal of the ring point before it.
            glNormal3f(0.5f * a.x, 0.0f, 0.5f * a.z);
            glTexCoord2f(s, 0.0f);
            glVertex3f(a.x, y0, a.z);
            glTexCoord2f(s - ds / 2.0f, 1.0f);
            glVertex3f(0.0f, h / 2.0f, 0.0f);
            glNormal3f(0.5f * b.x, 0.0f, 0.5f * b.z);
            glTexCoord2f(s - ds, 0.0f);
            glVertex3f(b.x, y0, b.z);
        }
        glEnd();
    }
    if (drawBottom) {
        CVSelectSafeList::BeginBlock(GL_TRIANGLE_FAN, 0.0f, -1.0f, 0.0f);
        glTexCoord2f(0.5f, 0.5f);
        glVertex3f(0.0f, y0, 0.0f);
        for (int i = 0; i <= precision; ++i) {
            glTexCoord2f(ring[i].s, ring[i].t);
            glVertex3f(ring[i].x, y0, ring[i].z);
        }
        glEnd();
    }
    if (list) glEndList();
}

}  // namespace

CVCone::CVCone() {
    bottomRadius.SetValue(1.0f);
    height.SetValue(2.0f);
    side.SetValue(1);
    bottom.SetValue(1);
}

void CVCone::Render(CVState* state, CVGLRenderArea* area, CVAppearance* appearance) {
    PreRenderGL(state, area, appearance);
    float h = height.GetValue();
    if (h < 0.0f) {
        glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
        h = -h;
    }
    const float r = bottomRadius.GetValue();
    const int drawBottom = bottom.GetValue();
    const int drawSide = side.GetValue();

    CVCacheManager* cache = CVGetCacheManagerPtr();
    const unsigned int found = cache ? cache->GetCachedCone(precision, r, h, drawBottom, drawSide) : 0;
    if (found) {
        glCallList(found);
    } else {
        Tessellate(precision, r, h, drawBottom, drawSide,
                   cache ? cache->NewCachedCone(precision, r, h, drawBottom, drawSide) : 0);
        SetModifiedFlag(0);
    }
    PostRenderGL(state, area, appearance);
}

void CVCone::ComputeBoundingBox(CVState*, CVGLRenderArea*, CVBox3f* box) {
    if (!box) return;
    const float d = 2.0f * bottomRadius.GetValue();
    box->SetCenter(0.0f, 0.0f, 0.0f);
    box->SetSize(d, std::fabs(height.GetValue()), d);
}

CVDetail* CVCone::GetPickDetail(unsigned int) {
    CVConeDetail* detail = new CVConeDetail(this);
    detail->SetPart(Sides);
    return detail;
}
