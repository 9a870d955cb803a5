#pragma once
// A diamond marker: the box turned by 45 degrees about z. Fields, bounding box
// and pick detail are the box's; a flat box (size.z 0) gives a rhombus facing
// +z.
#include "../platform/CVExport.h"
#include "../geometry/CVBox.h"

class CVSCENE_API CVDiamond : public CVBox {
    DECLARE_DYNAMIC(CVDiamond)
public:
    CVDiamond() = default;

    void Render(CVState* state, CVGLRenderArea* area, CVAppearance* appearance) override;
};
