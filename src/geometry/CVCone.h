#pragma once
// A cone along y, base of `bottomRadius` at -height/2 and apex at +height/2,
// tessellated into `precision` segments and compiled into one of the cache
// manager's cone lists keyed by (precision, radius, |height|, bottom, side).
// The first draw of a key compiles and shows the list, then clears Modified
// and Cached.
//
// A negative height draws lines (the polygon mode is left at GL_LINE). The
// side normals are horizontal (they ignore the slope) and the base gets
// planar texture coordinates; a zero radius makes them non-finite. The pick
// detail always names the side.
#include "../platform/CVExport.h"
#include "../core/CVSFBool.h"
#include "../core/CVSFFloat.h"
#include "CVGeometry.h"

class CVSCENE_API CVCone : public CVGeometry {
    DECLARE_DYNAMIC(CVCone)
public:
    enum Part { Sides = 0, Bottom = 1 };

    CVCone();

    void Render(CVState* state, CVGLRenderArea* area, CVAppearance* appearance) override;
    // Centre 0, size (2 bottomRadius, |height|, 2 bottomRadius).
    void ComputeBoundingBox(CVState* state, CVGLRenderArea* area, CVBox3f* box) override;
    // A new CVConeDetail with part Sides, whatever was hit; the caller owns it.
    CVDetail* GetPickDetail(unsigned int hitName) override;

    CVSFFloat bottomRadius;  // 1
    CVSFFloat height;        // 2
    CVSFBool side;           // TRUE
    CVSFBool bottom;         // TRUE
    int precision = 16;      // segments around y; set directly by callers
};
