#pragma once
// A camera with a perspective frustum (gluPerspective) whose vertical angle
// is fieldOfView (radians), widened under world inflation f to
// 2 atan(f tan(fieldOfView / 2)). With perspective FALSE it projects
// orthographically and fieldOfView is then the view height (times f).
#include "../platform/CVExport.h"
#include "CVCamera.h"

class CVSCENE_API CVPerspectiveCamera : public CVCamera {
    DECLARE_DYNAMIC(CVPerspectiveCamera)
public:
    CVPerspectiveCamera();

    void SetProjection(float aspect) override;

    CVSFFloat fieldOfView;  // 0.785398 (pi / 4)
    CVSFBool perspective;   // TRUE
};
