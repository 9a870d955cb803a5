#pragma once
// A group whose children are drawn with depth testing switched by depthTest
// (off by default). The switch is made in Render, inside the state push of
// the group's walk, so it ends with the group.
//
// With deferAsAnnotation TRUE the group is not drawn in the scene pass: its
// walk then only reaches PreActOn, whose Render enters the group in the
// render area's annotation list with the current matrices. The render action
// walks it again from that list after the transparent shapes (pass 3), when
// it draws normally; so annotations drawn with depthTest FALSE land on top of
// everything. Other actions (bounds, picking: pass 0) walk it as a group.
#include "../platform/CVExport.h"
#include "../core/CVSFBool.h"
#include "CVGroup.h"

// The host's note of when it wants the group drawn. Recorded only: drawing
// is driven by deferAsAnnotation.
enum CVDepthBufferWhen { CVDepthBufferInScene = 0, CVDepthBufferAfterScene = 1 };

class CVSCENE_API CVDepthBuffer : public CVGroup {
    DECLARE_DYNAMIC(CVDepthBuffer)
public:
    explicit CVDepthBuffer(CVDepthBufferWhen when = CVDepthBufferInScene);

    void Traverse(CVAction* action, const CArray<CVNode*, CVNode*>* path, int index) override;
    // With no state the group never defers.
    void Render(CVState* state, CVGLRenderArea* area) override;

    CVDepthBufferWhen GetWhen() const { return m_eWhen; }

    CVSFBool depthTest;          // FALSE: children drawn without depth test
    CVSFBool deferAsAnnotation;  // FALSE

protected:
    CVDepthBufferWhen m_eWhen;
};
