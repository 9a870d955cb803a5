#include "actions/CVGetBoundingBoxAction.h"

#include "nodes/CVCamera.h"
#include "nodes/CVGroup.h"
#include "nodes/CVTransform.h"

#include <GL/gl.h>

IMPLEMENT_DYNAMIC(CVGetBoundingBoxAction, CVGLAction)

namespace {

// Restores a flag when a walk ends, thrown out of or not.
class FlagScope {
public:
    FlagScope(int& flag, int value) : m_flag(flag), m_old(flag) { m_flag = value; }
    ~FlagScope() { m_flag = m_old; }
    FlagScope(const FlagScope&) = delete;
    FlagScope& operator=(const FlagScope&) = delete;

private:
    int& m_flag;
    int m_old;
};

}  // namespace

CVGetBoundingBoxAction::CVGetBoundingBoxAction(CVGLRenderArea* area) : CVGLAction(area), m_BoxStack(10) {}

CVGetBoundingBoxAction::~CVGetBoundingBoxAction() {
    ClearBoxStack();
    for (INT_PTR i = 0; i < m_FreeBoxes.GetSize(); ++i) delete m_FreeBoxes[i];
}

int CVGetBoundingBoxAction::Apply(CVNode* node) { return Walk(node); }

int CVGetBoundingBoxAction::FastApply(CVNode* node) {
    FlagScope fast(m_bFast, 1);
    return Walk(node);
}

int CVGetBoundingBoxAction::Walk(CVNode* node) {
    if (!node) return 0;
    if (!node->IsKindOf(RUNTIME_CLASS(CVGroup))) {
        node->ComputeBoundingBox(m_pState, m_pRenderArea, &m_ResultBox);
        return 1;
    }
    Reset();
    m_BoxStack.AddHead(&m_ResultBox);
    node->Traverse(this, nullptr, 0);
    m_BoxStack.RemoveHead();
    return 1;
}

int CVGetBoundingBoxAction::Apply(const CArray<CVNode*, CVNode*>& path) {
    if (path.GetSize() == 0) return 0;
    CVNode* last = path[path.GetSize() - 1];
    if (!last) return 0;
    Reset();
    m_BoxStack.AddHead(&m_ResultBox);
    last->Traverse(this, nullptr, 0);
    m_BoxStack.RemoveHead();
    // Innermost transform first, as the walk would have applied them.
    for (INT_PTR i = path.GetSize() - 2; i >= 0; --i) {
        CVNode* node = path[i];
        if (node && node->IsKindOf(RUNTIME_CLASS(CVTransform)))
            m_ResultBox.Transform(static_cast<CVTransform*>(node)->GetMatrix());
    }
    return 1;
}

int CVGetBoundingBoxAction::Apply(CVNode* node, CVCamera* camera) {
    if (!node) return 0;
    if (!camera) return Apply(node);
    CVGLAction::PushProjection();
    glLoadIdentity();
    CVGLAction::PushModelView();
    glLoadIdentity();
    int result = 0;
    try {
        camera->Render(m_pState, m_pRenderArea);
        result = Walk(node);
    } catch (...) {
        CVGLAction::PopModelView();
        CVGLAction::PopProjection();
        throw;
    }
    CVGLAction::PopModelView();
    CVGLAction::PopProjection();
    return result;
}

void CVGetBoundingBoxAction::PreActOn(CVNode* node) {
    if (!m_bFast && node->IsKindOf(RUNTIME_CLASS(CVGroup))) node->Render(m_pState, m_pRenderArea);
    CVBox3f* box = TakeBox();
    try {
        node->ComputeBoundingBox(m_pState, m_pRenderArea, box);
        m_BoxStack.AddHead(box);
    } catch (...) {
        ReleaseBox(box);
        throw;
    }
}

void CVGetBoundingBoxAction::PostActOn(CVNode* node) {
    CVBox3f* box = m_BoxStack.RemoveHead();
    // A node walked by hand, outside Apply, unites into the result.
    CVBox3f* parent = m_BoxStack.IsEmpty() ? &m_ResultBox : m_BoxStack.GetHead();
    const bool isGroup = node->IsKindOf(RUNTIME_CLASS(CVGroup)) != 0;

    if (isGroup && m_bSetNodeBBoxes && !m_bFast) {
        CVGroup* group = static_cast<CVGroup*>(node);
        group->bboxCenter.SetValue(box->GetCenter());
        group->bboxSize.SetValue(box->GetSize());
    }
    if (isGroup && !box->IsEmpty() && node->IsKindOf(RUNTIME_CLASS(CVTransform)))
        box->Transform(static_cast<CVTransform*>(node)->GetMatrix());
    parent->Union(box);
    // Clip planes met inside a group end with it.
    if (isGroup && parent->HaveClipList()) parent->DeleteClipList();
    ReleaseBox(box);
}

CVBox3f* CVGetBoundingBoxAction::TakeBox() {
    if (m_FreeBoxes.IsEmpty()) return new CVBox3f;
    CVBox3f* box = m_FreeBoxes[m_FreeBoxes.GetSize() - 1];
    m_FreeBoxes.RemoveAt(m_FreeBoxes.GetSize() - 1);
    return box;
}

void CVGetBoundingBoxAction::ReleaseBox(CVBox3f* box) {
    box->MakeEmpty();
    box->DeleteClipList();
    m_FreeBoxes.Add(box);
}

void CVGetBoundingBoxAction::PushState() {
    if (!m_bFast) {
        CVGLAction::PushState();
    } else if (m_pState->m_bRecordPath) {
        ++m_pState->m_nDepth;
    }
}

void CVGetBoundingBoxAction::PopState() {
    if (!m_bFast) {
        CVGLAction::PopState();
    } else if (m_pState->m_bRecordPath) {
        --m_pState->m_nDepth;
    }
}

void CVGetBoundingBoxAction::PushModelView() {
    if (!m_bFast) CVGLAction::PushModelView();
}

void CVGetBoundingBoxAction::PopModelView() {
    if (!m_bFast) CVGLAction::PopModelView();
}

void CVGetBoundingBoxAction::Reset() {
    CVGLAction::Reset();
    ClearBoxStack();
    m_ResultBox = CVBox3f();
}

void CVGetBoundingBoxAction::ClearBoxStack() {
    // Left over only when a walk was thrown out of.
    while (!m_BoxStack.IsEmpty()) {
        CVBox3f* box = m_BoxStack.RemoveHead();
        if (box != &m_ResultBox) delete box;
    }
}
