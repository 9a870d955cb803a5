#pragma once
// A node that holds children and brackets them with a state push: the walk is
// PushState, PreActOn, children, PostActOn, PopState. While the action's state
// records paths the group stores itself at the current depth of path 0, so
// path 0 always holds the chain of groups above the node being walked.
//
// Walked along a path, a group visits only the path's next element. Walked
// freely, it visits its children in order for as long as the action's
// continue flag is set; the children list may change under the walk (its
// count is read at every step). Null children are skipped.
//
// bboxCenter and bboxSize are filled by the bounding-box action when it writes
// boxes back; a size of (-1,-1,-1) means "not computed".
#include "../platform/CVExport.h"
#include "../core/CVChild.h"
#include "../core/CVMFNode.h"
#include "../core/CVSFVec3f.h"

class CVSCENE_API CVGroup : public CVChild {
    DECLARE_DYNAMIC(CVGroup)
public:
    CVGroup();
    // Releases the children.
    ~CVGroup() override = default;

    void Traverse(CVAction* action, const CArray<CVNode*, CVNode*>* path, int index) override;

    CVSFVec3f bboxCenter;          // 0 0 0
    CVSFVec3f bboxSize;            // -1 -1 -1
    CVMFNode<CVChild*> children;   // empty

protected:
    // action->PushState(), then records this node in path 0 while recording.
    virtual void PushState(CVAction* action);
    virtual void PopState(CVAction* action);
    // With a path: path[index + 1] only (nothing past the path's end).
    // Without: every child while the action's continue flag is set.
    virtual void DoTraverse(CVAction* action, const CArray<CVNode*, CVNode*>* path, int index);
    // The group walk with PushModelView / PopModelView inside the state
    // push, for groups that change the model-view matrix.
    void TraverseInModelView(CVAction* action, const CArray<CVNode*, CVNode*>* path, int index);
};
