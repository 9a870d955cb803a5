#pragma once
// A flat hexagon in the z = 0 plane, scaled by `size` and facing +z, drawn
// from static vertex arrays with both sides visible (culling is off while it
// draws). No pick detail.
#include "../platform/CVExport.h"
#include "../core/CVSFVec3f.h"
#include "CVGeometry.h"

class CVSCENE_API CVDisc : public CVGeometry {
    DECLARE_DYNAMIC(CVDisc)
public:
    CVDisc();

    void Render(CVState* state, CVGLRenderArea* area, CVAppearance* appearance) override;
    // Centre 0, size as it is.
    void ComputeBoundingBox(CVState* state, CVGLRenderArea* area, CVBox3f* box) override;

    CVSFVec3f size;  // 2 2 2
};
