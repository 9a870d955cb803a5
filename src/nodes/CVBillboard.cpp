#include "nodes/CVBillboard.h"

#include <GL/gl.h>

#include <cmath>

#include "core/CVAction.h"
#include "math/CVMatrix.h"
#include "math/CVVector.h"

IMPLEMENT_DYNAMIC(CVBillboard, CVGroup)

namespace {

const float kRadiansPerDegree = 0.017453292f;

CVMatrix CurrentModelView() {
    GLfloat m[16];
    glGetFloatv(GL_MODELVIEW_MATRIX, m);
    return CVMatrix(m);
}

// Turns from onto to about from x to. Rounding can push the cosine of nearly
// parallel vectors past 1, which would hand acos's NaN to GL.
void RotateOnto(const CVVector& from, const CVVector& to) {
    const float lengths = from.Length() * to.Length();
    if (lengths == 0.0f) return;
    float cosine = (from % to) / lengths;
    cosine = std::fmax(-1.0f, std::fmin(1.0f, cosine));
    const CVVector axis = from * to;
    glRotatef(std::acos(cosine) / kRadiansPerDegree, axis.x, axis.y, axis.z);
}

bool NearZero(float v) { return std::fabs(v) <= 1e-7f; }

}  // namespace

CVBillboard::CVBillboard() { axisOfRotation.SetValue(0.0f, 1.0f, 0.0f); }

void CVBillboard::Traverse(CVAction* action, const CArray<CVNode*, CVNode*>* path, int index) {
    TraverseInModelView(action, path, index);
}

void CVBillboard::Render(CVState*, CVGLRenderArea*) {
    const Point3fStruct& a = axisOfRotation.GetValue();
    if (NearZero(a.x) && NearZero(a.y) && NearZero(a.z)) {
        // Screen x in local coordinates first, then screen y under the new matrix.
        const CVVector xAxis(1.0f, 0.0f, 0.0f);
        CVVector screenX;
        CurrentModelView().Inverse().MultDirMatrix(xAxis, screenX);
        RotateOnto(xAxis, screenX);

        const CVVector yAxis(0.0f, 1.0f, 0.0f);
        CVVector screenY;
        CurrentModelView().Inverse().MultDirMatrix(yAxis, screenY);
        RotateOnto(yAxis, screenY);
        return;
    }

    CVVector axis(a);
    axis.Normalize();
    const CVVector zAxis(0.0f, 0.0f, 1.0f);
    if (axis.IsParallel(zAxis)) return;
    CVVector viewer;
    CurrentModelView().Inverse().MultVecMatrix(CVVector(0.0f, 0.0f, 0.0f), viewer);
    const CVVector projected = viewer - axis * (viewer % axis);
    RotateOnto(zAxis, projected);
}
