#pragma once
// A pennant marker: a triangle in the x-z plane with its staff edge on x = 0,
// pointing to +x (three side quads),
// extruded into a slab of unit thickness along y and scaled by `size` (full
// extents). With the Marker flag the slab is turned to face the viewer, the
// outline in the x-y plane. A negative size.x draws the negated size as lines
// (the polygon mode stays GL_LINE). Drawn from a static vertex table every
// time; no texture coordinates, no pick detail. The constructor sets the
// Antialiased flag.
#include "../platform/CVExport.h"
#include "../core/CVSFVec3f.h"
#include "../geometry/CVGeometry.h"

class CVSCENE_API CVFlag : public CVGeometry {
    DECLARE_DYNAMIC(CVFlag)
public:
    CVFlag();

    void Render(CVState* state, CVGLRenderArea* area, CVAppearance* appearance) override;
    // Centre 0, size as it is.
    void ComputeBoundingBox(CVState* state, CVGLRenderArea* area, CVBox3f* box) override;

    CVSFVec3f size;  // 2 2 2
};
