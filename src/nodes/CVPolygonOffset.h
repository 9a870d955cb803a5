#pragma once
// Polygon offset for the shapes drawn after it: enables or disables the fill,
// line and point offsets after its three flags and sets factor and units.
// Everything is off and zero by default, so a default node turns offsets off.
#include "../platform/CVExport.h"
#include "../core/CVChild.h"
#include "../core/CVSFBool.h"
#include "../core/CVSFFloat.h"

class CVSCENE_API CVPolygonOffset : public CVChild {
    DECLARE_DYNAMIC(CVPolygonOffset)
public:
    CVPolygonOffset() = default;

    void Render(CVState* state, CVGLRenderArea* area) override;

    CVSFBool fill;     // FALSE
    CVSFBool line;     // FALSE
    CVSFBool point;    // FALSE
    CVSFFloat factor;  // 0
    CVSFFloat units;   // 0
};
