#pragma once
// A heart marker: a fixed outline in the x-z plane with its lobes at -z and
// its tip at +z, so that the turned heart stands upright,
// extruded into a slab of unit thickness along y and scaled by `size` (full
// extents). With the Marker flag the slab is turned to face the viewer, the
// outline in the x-y plane. A negative size.x draws the negated size as lines
// (the polygon mode stays GL_LINE). Drawn from a static vertex table every
// time; no texture coordinates, no pick detail. The constructor sets the
// Antialiased flag.
#include "../platform/CVExport.h"
#include "../core/CVSFVec3f.h"
#include "../geometry/CVGeometry.h"

class CVSCENE_API CVHeart : public CVGeometry {
    DECLARE_DYNAMIC(CVHeart)
public:
    CVHeart();

    void Render(CVState* state, CVGLRenderArea* area, CVAppearance* appearance) override;
    // Centre 0, size as it is.
    void ComputeBoundingBox(CVState* state, CVGLRenderArea* area, CVBox3f* box) override;

    CVSFVec3f size;  // 2 2 2
};
