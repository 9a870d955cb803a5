#pragma once
// A plus-sign marker: arms of half-width 1/6 reaching to +-0.5 in the x-y
// plane, extruded along z from -0.5 to +0.5 and scaled by `size`. It already
// faces the viewer, so the Marker flag does not turn it, and it ignores tiled
// textures. A negative size.x draws the negated size as lines (the polygon
// mode stays GL_LINE). Drawn from static tables every time; no pick detail.
// The constructor sets the Antialiased flag.
#include "../platform/CVExport.h"
#include "../core/CVSFVec3f.h"
#include "../geometry/CVGeometry.h"

class CVSCENE_API CVCross : public CVGeometry {
    DECLARE_DYNAMIC(CVCross)
public:
    CVCross();

    void Render(CVState* state, CVGLRenderArea* area, CVAppearance* appearance) override;
    // Centre 0, size as it is.
    void ComputeBoundingBox(CVState* state, CVGLRenderArea* area, CVBox3f* box) override;

    CVSFVec3f size;  // 2 2 2
};
