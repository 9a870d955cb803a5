#pragma once
// Polygon mode for the shapes drawn after it, on both faces: style 1 lines,
// 2 points, 3 leaves the mode as it is, anything else fills. The mode stays
// set until the enclosing group pops its state.
#include "../platform/CVExport.h"
#include "../core/CVChild.h"
#include "../core/CVSFFloat.h"
#include "../core/CVSFInt32.h"

class CVSCENE_API CVDrawStyle : public CVChild {
    DECLARE_DYNAMIC(CVDrawStyle)
public:
    CVDrawStyle();

    void Render(CVState* state, CVGLRenderArea* area) override;

    CVSFInt32 style;      // 0: fill
    CVSFFloat lineWidth;  // 1.0; kept for the host, not applied here
};
