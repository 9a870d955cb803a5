#include "nodes/CVClipPlane.h"

#include <GL/gl.h>

#include "math/CVBox3f.h"
#include "math/CVVector.h"

IMPLEMENT_DYNAMIC(CVClipPlane, CVChild)

namespace {

CVVector UnitNormal(const CVSFVec3f& field) {
    CVVector n(field.GetValue());
    n.Normalize();
    return n;
}

}  // namespace

CVClipPlane::CVClipPlane() {
    on.SetValue(1);
    normal.SetValue(1.0f, 0.0f, 0.0f);
}

int CVClipPlane::FindUnusedGLClipPlane(unsigned int& plane) {
    GLint count = 0;
    glGetIntegerv(GL_MAX_CLIP_PLANES, &count);
    for (GLint i = 0; i < count; ++i) {
        if (!glIsEnabled(GL_CLIP_PLANE0 + i)) {
            plane = GL_CLIP_PLANE0 + i;
            return 1;
        }
    }
    return 0;
}

void CVClipPlane::Render(CVState*, CVGLRenderArea*) {
    if (!on.GetValue()) return;
    unsigned int plane = 0;
    if (!FindUnusedGLClipPlane(plane)) return;
    const CVVector n = UnitNormal(normal);
    const GLdouble equation[4] = {n.x, n.y, n.z, -(double)offset.GetValue()};
    glClipPlane(plane, equation);
    glEnable(plane);
}

void CVClipPlane::ComputeBoundingBox(CVState*, CVGLRenderArea*, CVBox3f* box) {
    if (!on.GetValue() || !box) return;
    const CVVector n = UnitNormal(normal);
    box->AddClipInfo(Point3fStruct{n.x, n.y, n.z}, offset.GetValue());
}
