#pragma once
// An X marker: the cross turned by 45 degrees about z. Fields and bounding box
// are the cross's.
#include "../platform/CVExport.h"
#include "CVCross.h"

class CVSCENE_API CVXShape : public CVCross {
    DECLARE_DYNAMIC(CVXShape)
public:
    CVXShape() = default;

    void Render(CVState* state, CVGLRenderArea* area, CVAppearance* appearance) override;
};
