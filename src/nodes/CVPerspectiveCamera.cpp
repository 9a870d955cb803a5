#include "nodes/CVPerspectiveCamera.h"

#include <GL/gl.h>
#include <GL/glu.h>

#include <cmath>

#include "render/CVGLRenderArea.h"

IMPLEMENT_DYNAMIC(CVPerspectiveCamera, CVCamera)

namespace {
const float kRadiansPerDegree = 0.017453292f;
}  // namespace

CVPerspectiveCamera::CVPerspectiveCamera() {
    fieldOfView.SetValue(0.785398f);
    perspective.SetValue(1);
}

void CVPerspectiveCamera::SetProjection(float aspect) {
    glMatrixMode(GL_PROJECTION);
    const float a = GetAspect(aspect);
    const float f = CVGLRenderArea::GetWorldInflationFactor();
    const float fov = fieldOfView.GetValue();
    const double zNear = nearDistance.GetValue(), zFar = farDistance.GetValue();
    if (perspective.GetValue()) {
        // Widened so that the inflated viewport shows the scene at its normal size.
        double angle = fov;
        if (f != 1.0f) angle = 2.0 * std::atan(std::tan(fov * 0.5) * f);
        gluPerspective(angle / kRadiansPerDegree, a, zNear, zFar);
    } else {
        const float h = fov * f;
        const float w = h * a;
        glOrtho(-w / 2, w / 2, -h / 2, h / 2, zNear, zFar);
    }
    glMatrixMode(GL_MODELVIEW);
}
