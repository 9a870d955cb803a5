#include "nodes/CVOrthographicCamera.h"

#include <GL/gl.h>

#include "render/CVGLRenderArea.h"

IMPLEMENT_DYNAMIC(CVOrthographicCamera, CVCamera)

CVOrthographicCamera::CVOrthographicCamera() { height.SetValue(2.0f); }

void CVOrthographicCamera::SetProjection(float aspect) {
    glMatrixMode(GL_PROJECTION);
    const float h = height.GetValue() * CVGLRenderArea::GetWorldInflationFactor();
    const float w = h * GetAspect(aspect);
    glOrtho(-w / 2, w / 2, -h / 2, h / 2, nearDistance.GetValue(), farDistance.GetValue());
    glMatrixMode(GL_MODELVIEW);
}
