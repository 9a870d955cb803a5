#include "nodes/CVSwitch.h"

#include <string>

#include "core/CVAction.h"
#include "core/CVState.h"
#include "platform/CException.h"

IMPLEMENT_DYNAMIC(CVSwitch, CVChild)

CVSwitch::CVSwitch() { whichChoice.SetValue(-1); }

void CVSwitch::Traverse(CVAction* action, const CArray<CVNode*, CVNode*>* path, int index) {
    const int which = whichChoice.GetValue();
    if (which < 0) return;
    // An empty list is skipped only in a free walk.
    const bool walkChoice = path != nullptr || choice.GetNum() > 0;
    if (walkChoice && which >= choice.GetNum()) {
        throw CInvalidArgException("CVSwitch::Traverse(): whichChoice " + std::to_string(which) +
                                   " out of range of " + std::to_string(choice.GetNum()) + " choices");
    }

    action->PushState();
    // Recorded before PreActOn, as groups do, so that an action matching the
    // switch itself finds it at the end of path 0.
    CVState* state = action->GetState();
    if (state->m_bRecordPath) state->RecordNode(this);
    action->PreActOn(this);

    if (walkChoice) {
        CVChild* child = choice[which];
        if (child) child->Traverse(action, path, path ? index + 1 : 0);
    }

    action->PostActOn(this);
    action->PopState();
}
