#pragma once
// A light at infinity shining along direction, placed in the current
// model-view space. Takes the first free GL light (silently skipped when none
// is free) and becomes the render area's light for drop shadows.
#include "../platform/CVExport.h"
#include "../core/CVSFVec3f.h"
#include "../render/CVLight.h"

class CVSCENE_API CVDirectionalLight : public CVLight {
    DECLARE_DYNAMIC(CVDirectionalLight)
public:
    CVDirectionalLight();

    void Render(CVState* state, CVGLRenderArea* area) override;
    const Point3fStruct* GetShadowDirection() const override { return &direction.GetValue(); }

    CVSFVec3f direction;  // 0 0 -1
};
