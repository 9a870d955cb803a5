#include "nodes/CVGroup.h"

#include "core/CVAction.h"
#include "core/CVState.h"

IMPLEMENT_DYNAMIC(CVGroup, CVChild)

CVGroup::CVGroup() { bboxSize.SetValue(-1.0f, -1.0f, -1.0f); }

void CVGroup::Traverse(CVAction* action, const CArray<CVNode*, CVNode*>* path, int index) {
    PushState(action);
    action->PreActOn(this);
    DoTraverse(action, path, index);
    action->PostActOn(this);
    PopState(action);
}

void CVGroup::TraverseInModelView(CVAction* action, const CArray<CVNode*, CVNode*>* path, int index) {
    PushState(action);
    action->PushModelView();
    action->PreActOn(this);
    DoTraverse(action, path, index);
    action->PostActOn(this);
    action->PopModelView();
    PopState(action);
}

void CVGroup::PushState(CVAction* action) {
    action->PushState();
    CVState* state = action->GetState();
    if (state->m_bRecordPath) state->RecordNode(this);
}

void CVGroup::PopState(CVAction* action) { action->PopState(); }

void CVGroup::DoTraverse(CVAction* action, const CArray<CVNode*, CVNode*>* path, int index) {
    if (path) {
        const int next = index + 1;
        if (next >= path->GetSize()) return;
        CVNode* node = (*path)[next];
        if (node) node->Traverse(action, path, next);
        return;
    }
    // No early break: a cleared flag only stops the visits.
    for (int i = 0; i < children.GetNum(); ++i) {
        if (!action->DoTraversal()) continue;
        CVChild* child = children[i];
        if (child) child->Traverse(action, nullptr, 0);
    }
}
