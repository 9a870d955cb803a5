#include "nodes/CVDepthBuffer.h"

#include <GL/gl.h>

#include "core/CVAction.h"
#include "core/CVState.h"
#include "render/CVGLRenderArea.h"

IMPLEMENT_DYNAMIC(CVDepthBuffer, CVGroup)

CVDepthBuffer::CVDepthBuffer(CVDepthBufferWhen when) : m_eWhen(when) {}

void CVDepthBuffer::Traverse(CVAction* action, const CArray<CVNode*, CVNode*>* path, int index) {
    if (deferAsAnnotation.GetValue() && action->GetState()->m_nRenderPass == CVRenderPassScene) {
        // PreActOn's Render records the group; no state push, no children.
        action->PreActOn(this);
        return;
    }
    CVGroup::Traverse(action, path, index);
}

void CVDepthBuffer::Render(CVState* state, CVGLRenderArea* area) {
    if (deferAsAnnotation.GetValue() && state && state->m_nRenderPass == CVRenderPassScene) {
        if (area) area->AddToAnnotationNodeList(this, state);
        return;
    }
    if (depthTest.GetValue()) glEnable(GL_DEPTH_TEST);
    else glDisable(GL_DEPTH_TEST);
}
