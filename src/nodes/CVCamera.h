#pragma once
// Base of the cameras: a group whose children are seen through the camera.
// The walk pushes the projection and model-view matrices around the children,
// so the camera's projection and view apply to them only.
//
// Render (called by the render and pick actions from PreActOn) multiplies the
// derived camera's projection onto the current projection matrix, stores the
// pure camera projection in the render area (GetProjectionMatrix, which the
// deferred passes reload) and then applies the view. While the state's
// identification flag is set (picking) the current projection (the pick
// matrix) is kept and the projection is multiplied onto it; the area still
// receives the pure projection, computed on a scratch matrix.
//
// The frustum is enlarged by the process-wide world inflation factor
// (CVGLRenderArea::GetWorldInflationFactor), as the GL viewport is, so the
// scene keeps its on-screen size.
#include "../platform/CVExport.h"
#include "../core/CVSFBool.h"
#include "../core/CVSFFloat.h"
#include "../core/CVSFRotation.h"
#include "../core/CVSFVec3f.h"
#include "CVGroup.h"

class CVSCENE_API CVCamera : public CVGroup {
    DECLARE_DYNAMIC(CVCamera)
public:
    CVCamera();

    // Group walk with PushProjection / PushModelView inside the state push.
    void Traverse(CVAction* action, const CArray<CVNode*, CVNode*>* path, int index) override;
    // Needs the area (for its aspect ratio and projection matrix); does nothing without one.
    void Render(CVState* state, CVGLRenderArea* area) override;

    // Multiplies the inverse of orientation, then -position, onto the model-view matrix.
    virtual void SetView();
    // Multiplies the projection onto the current projection matrix (no
    // identity is loaded) and returns to model-view mode. aspect is used when
    // useViewportAspect is exactly 1, else the aspectRatio field.
    virtual void SetProjection(float aspect) = 0;

    CVSFBool useViewportAspect;  // TRUE
    CVSFRotation orientation;    // angle 0 about (0,0,1)
    CVSFVec3f position;          // 0 0 10
    CVSFFloat aspectRatio;       // 1.0
    CVSFFloat nearDistance;      // 1.0
    CVSFFloat farDistance;       // 10.0
    // Distance to the point the viewer looks at; kept for hosts, no projection reads it.
    CVSFFloat focalDistance;     // 10.0

protected:
    // The aspect SetProjection works with.
    float GetAspect(float viewportAspect) const;
};
