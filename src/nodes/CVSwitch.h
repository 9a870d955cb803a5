#pragma once
// Walks one of its choices, or nothing. Not a group: the action's continue
// flag is not consulted, and with a whichChoice below 0 the switch is
// invisible to every action (not even PreActOn is called). While the state
// records paths the switch stores itself in path 0 like a group.
//
// Walked along a path, the chosen child is walked with the next path index,
// whatever the path holds there.
#include "../platform/CVExport.h"
#include "../core/CVChild.h"
#include "../core/CVMFNode.h"
#include "../core/CVSFInt32.h"

class CVSCENE_API CVSwitch : public CVChild {
    DECLARE_DYNAMIC(CVSwitch)
public:
    CVSwitch();

    // Throws CInvalidArgException when whichChoice is at or past the end of a
    // non-empty choice list (or of any list during a path walk); the check
    // comes before anything is pushed, so the action is left as it was.
    void Traverse(CVAction* action, const CArray<CVNode*, CVNode*>* path, int index) override;

    CVMFNode<CVChild*> choice;  // empty
    CVSFInt32 whichChoice;      // -1
};
