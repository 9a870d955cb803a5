#pragma once
// A five-pointed star marker: outer points on a circle of radius 0.5 and
// inner points on one of 0.25 in the x-z plane, the first outer point at -z,
// extruded into a column of unit height along y and scaled by `size`. With
// the Marker flag the column is turned to face the viewer. A negative size.x
// draws the negated size as lines (the polygon mode stays GL_LINE). In line
// mode the caps show the star's outline only: edge flags hide the edges
// between the spikes and the inner pentagon. Not VRML-compliant with a tiled
// texture, the sides stretch the texture by size.y / size.x. Drawn from static
// tables every time; no pick detail. The constructor sets the Antialiased flag.
#include "../platform/CVExport.h"
#include "../core/CVSFVec3f.h"
#include "../geometry/CVGeometry.h"

class CVSCENE_API CVStar : public CVGeometry {
    DECLARE_DYNAMIC(CVStar)
public:
    CVStar();

    void Render(CVState* state, CVGLRenderArea* area, CVAppearance* appearance) override;
    // Centre 0, size as it is.
    void ComputeBoundingBox(CVState* state, CVGLRenderArea* area, CVBox3f* box) override;

    CVSFVec3f size;  // 2 2 2
};
