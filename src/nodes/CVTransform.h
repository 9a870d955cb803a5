#pragma once
// A group whose children live in a transformed space:
//   T * C * R * SR * S * SR^-1 * C^-1
// (translation, center, rotation, scale orientation, scale). The walk pushes
// the model-view matrix around the children; the matrix itself is applied by
// Render, which the actions call from PreActOn, and undone by the pop.
// Angles are radians.
#include "../platform/CVExport.h"
#include "../core/CVSFRotation.h"
#include "../core/CVSFVec3f.h"
#include "../math/CVMatrix.h"
#include "CVGroup.h"

class CVSCENE_API CVTransform : public CVGroup {
    DECLARE_DYNAMIC(CVTransform)
public:
    CVTransform();

    // Group walk with PushModelView / PopModelView inside the state push.
    void Traverse(CVAction* action, const CArray<CVNode*, CVNode*>* path, int index) override;
    // Multiplies the current GL matrix; neutral steps issue no GL call at all,
    // so a default transform leaves every matrix stack untouched.
    void Render(CVState* state, CVGLRenderArea* area) override;

    // The transform's own matrix (row-major, translation in column 3), built
    // on the GL model-view stack: needs a current context, leaves the stack
    // and the matrix mode as they were.
    CVMatrix GetMatrix();

    CVSFVec3f center;                // 0 0 0
    CVSFRotation rotation;           // angle 0 about (1,0,0)
    CVSFVec3f scale;                 // 1 1 1
    CVSFRotation scaleOrientation;   // angle 0 about (0,1,0)
    CVSFVec3f translation;           // 0 0 0
};
