#include "geometry/CVSphere.h"

#include <GL/gl.h>

#include <cmath>
#include <vector>

#include "math/CVBox3f.h"
#include "render/CVCacheManager.h"

IMPLEMENT_DYNAMIC(CVSphere, CVGeometry)

namespace {

const int kWireFramePrecision = 12;
const int kMaxPrecision = 48;

struct SphereVertex {
    GLfloat s, t;
    GLfloat x, y, z;
};

// The position doubles as the normal (length r).
void Emit(const SphereVertex& v) {
    glTexCoord2f(v.s, v.t);
    glNormal3f(v.x, v.y, v.z);
    glVertex3f(v.x, v.y, v.z);
}

// Rings from the top pole (ring 0) to the bottom pole (ring stacks), each of
// slices + 1 vertices with the seam repeated.
void Tessellate(int slices, int stacks, float r, unsigned int list) {
    const double step = 2.0 * M_PI / slices;  // equals pi / stacks: slices is even
    std::vector<SphereVertex> v((size_t)(stacks + 1) * (slices + 1));
    for (int i = 0; i <= stacks; ++i) {
        const double a = M_PI / 2 + i * step;
        for (int j = 0; j <= slices; ++j) {
            const double b = M_PI / 2 + j * step;
            SphereVertex& p = v[(size_t)i * (slices + 1) + j];
            p.s = 1.0f - (float)j / slices;
            p.t = 1.0f - (float)i / stacks;
            p.x = (float)(r * std::cos(b) * std::cos(a));
            p.y = (float)(r * std::sin(a));
            p.z = (float)(r * std::sin(b) * std::cos(a));
        }
    }
    auto at = [&](int i, int j) -> const SphereVertex& { return v[(size_t)i * (slices + 1) + j]; };

    if (list) glNewList(list, GL_COMPILE_AND_EXECUTE);
    for (int i = 0; i < stacks; ++i) {
        const SphereVertex& first = at(i + 1, 0);
        // All blocks are strips: the driver may merge them into one draw, which
        // replays safely in selection mode (only mixed types crash).
        glBegin(GL_TRIANGLE_STRIP);
        Emit(first);
        Emit(at(i, 0));
        for (int j = 1; j <= slices; ++j) {
            Emit(at(i + 1, j));
            Emit(at(i, j));
        }
        glEnd();
    }
    if (list) glEndList();
}

}  // namespace

CVSphere::CVSphere() { radius.SetValue(1.0f); }

int CVSphere::CalculateSpherePrecision(float r) {
    const int p = (int)(std::fabs(r) * 360.0f);
    if (p <= 12) return 12;
    if (p <= 16) return 16;
    if (p <= 24) return 24;
    if (p <= 36) return 36;
    return 48;
}

void CVSphere::Render(CVState* state, CVGLRenderArea* area, CVAppearance* appearance) {
    float r = radius.GetValue();
    precision += precision & 1;
    if (r < 0.0f)
        precision = kWireFramePrecision;
    else if (precision > kMaxPrecision)
        precision = kMaxPrecision;
    const int slices = precision;
    const int stacks = slices / 2;

    PreRenderGL(state, area, appearance);
    if (r < 0.0f) {
        glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
        r = -r;
    }
    CVCacheManager* cache = CVGetCacheManagerPtr();
    const unsigned int found = cache ? cache->GetCachedSphere(slices, r) : 0;
    if (found)
        glCallList(found);
    else
        Tessellate(slices, stacks, r, cache ? cache->NewCachedSphere(slices, r) : 0);
    PostRenderGL(state, area, appearance);
}

void CVSphere::ComputeBoundingBox(CVState*, CVGLRenderArea*, CVBox3f* box) {
    if (!box) return;
    const float d = 2.0f * std::fabs(radius.GetValue());
    box->SetCenter(0.0f, 0.0f, 0.0f);
    box->SetSize(d, d, d);
}
