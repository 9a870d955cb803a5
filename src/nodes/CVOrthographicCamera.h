#pragma once
// A camera with a parallel projection: a view volume height (times the world
// inflation factor) high and height * aspect wide, centred on the view axis.
#include "../platform/CVExport.h"
#include "CVCamera.h"

class CVSCENE_API CVOrthographicCamera : public CVCamera {
    DECLARE_DYNAMIC(CVOrthographicCamera)
public:
    CVOrthographicCamera();

    void SetProjection(float aspect) override;

    CVSFFloat height;  // 2.0
};
