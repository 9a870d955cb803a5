#pragma once
// A drawable leaf: an appearance applied before a geometry is drawn. Render
// follows the geometry's flag word:
// - during a pick walk (the state records paths) only the bare geometry is
//   drawn, under the selection name -1, and not at all when not selectable;
// - an invisible geometry draws nothing;
// - in passes 1 and 3 the area's text filter skips text (and post-jitter
//   geometry) in mode 1, everything else in mode 2;
// - in pass 1 a data point casts a stippled drop shadow first, and geometry
//   that needs sorting is deferred to the area's transparent list instead of
//   being drawn (kind 1 for antialiased lines, transparent or drop-shadowed
//   fills; 2 for antialiased text; 0 for force-sorted fills);
// - otherwise the appearance (or plain grey 0.8 without one) and the geometry,
//   inside the appearance's texture transform when it has one,
//   then for a selected geometry a stippled overlay in the selection colour,
//   scaled slightly up by the geometry's stipple percent.
// The current colour is left as the last drawing set it.
#include "../platform/CVExport.h"
#include "../core/CVChild.h"
#include "../core/CVSFNode.h"
#include "CVGeometry.h"
#include "../nodes/CVAppearance.h"

class CVSCENE_API CVShape : public CVChild {
    DECLARE_DYNAMIC(CVShape)
public:
    CVShape() = default;

    // Needs a state and an area; draws nothing without either.
    void Render(CVState* state, CVGLRenderArea* area) override;
    // The geometry's box; nothing without a geometry.
    void ComputeBoundingBox(CVState* state, CVGLRenderArea* area, CVBox3f* box) override;
    // The geometry's detail for the hit; null without a geometry.
    CVDetail* GetPickDetail(unsigned int hitName) override;

    CVSFNode<CVAppearance> appearance;  // null
    CVSFNode<CVGeometry> geometry;      // null
};
