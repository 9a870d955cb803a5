#pragma once
// A group that turns its children towards the viewer. With a zero
// axisOfRotation the children's x and y axes are aligned with the screen's
// (screen-aligned); otherwise the children turn about the axis so that their
// +z points at the viewer's position projected onto the plane normal to the
// axis. An axis along z does nothing. Walked like a transform: the rotation is
// applied by Render (from the action's PreActOn) inside a model-view push.
//
// The rotations are derived from the current model-view matrix: Render needs a
// current context, and a non-invertible matrix gives meaningless rotations.
#include "../platform/CVExport.h"
#include "../core/CVSFVec3f.h"
#include "CVGroup.h"

class CVSCENE_API CVBillboard : public CVGroup {
    DECLARE_DYNAMIC(CVBillboard)
public:
    CVBillboard();

    void Traverse(CVAction* action, const CArray<CVNode*, CVNode*>* path, int index) override;
    void Render(CVState* state, CVGLRenderArea* area) override;

    CVSFVec3f axisOfRotation;  // 0 1 0; all components within 1e-7 of 0: screen-aligned
};
