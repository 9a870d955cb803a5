#include "nodes/CVCamera.h"

#include <GL/gl.h>

#include "core/CVAction.h"
#include "core/CVState.h"
#include "render/CVGLRenderArea.h"

IMPLEMENT_DYNAMIC(CVCamera, CVGroup)

namespace {
const float kRadiansPerDegree = 0.017453292f;
}  // namespace

CVCamera::CVCamera() {
    useViewportAspect.SetValue(1);
    orientation.SetValue(0.0f, 0.0f, 1.0f, 0.0f);
    position.SetValue(0.0f, 0.0f, 10.0f);
    aspectRatio.SetValue(1.0f);
    nearDistance.SetValue(1.0f);
    farDistance.SetValue(10.0f);
    focalDistance.SetValue(10.0f);
}

void CVCamera::Traverse(CVAction* action, const CArray<CVNode*, CVNode*>* path, int index) {
    PushState(action);
    action->PushProjection();
    action->PushModelView();
    action->PreActOn(this);
    DoTraverse(action, path, index);
    action->PostActOn(this);
    action->PopProjection();
    action->PopModelView();
    PopState(action);
}

void CVCamera::Render(CVState* state, CVGLRenderArea* area) {
    if (!area) return;
    const float aspect = area->GetViewportAspectRatio();
    SetProjection(aspect);
    if (state && state->m_bRecordPath) {
        // The pick matrix stays; the area gets the camera's projection alone.
        glMatrixMode(GL_PROJECTION);
        glPushMatrix();
        glLoadIdentity();
        SetProjection(aspect);
        glGetDoublev(GL_PROJECTION_MATRIX, area->GetProjectionMatrix());
        glMatrixMode(GL_PROJECTION);
        glPopMatrix();
        glMatrixMode(GL_MODELVIEW);
    } else {
        glGetDoublev(GL_PROJECTION_MATRIX, area->GetProjectionMatrix());
    }
    SetView();
}

void CVCamera::SetView() {
    glMatrixMode(GL_MODELVIEW);
    const CVRotation& r = orientation.GetValue();
    if (r.GetAngle() != 0.0f) {
        const Point3fStruct axis = r.GetAxis();
        glRotatef(r.GetAngle() / -kRadiansPerDegree, axis.x, axis.y, axis.z);
    }
    const Point3fStruct& p = position.GetValue();
    glTranslatef(-p.x, -p.y, -p.z);
}

float CVCamera::GetAspect(float viewportAspect) const {
    return useViewportAspect.GetValue() == 1 ? viewportAspect : aspectRatio.GetValue();
}
