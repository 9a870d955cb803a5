#pragma once
// Computes the box of a scene. Every node walked unites its own box into a
// fresh box (in its own coordinates); when the node is done that box is,
// for a transform, carried through the transform's matrix, and united into
// the parent's box. Clip planes that nodes add (AddClipInfo) clip the boxes
// united after them, up to the enclosing group and no further.
//
// With write-back on (the default) every group walked gets its box, in its
// own coordinates, in bboxCenter and bboxSize: a transform's fields hold the
// untransformed box of its children.
//
// Groups are rendered in PreActOn so that nodes reading the current GL
// matrices see the transforms above them; the walk needs a current context.
#include "../platform/CVExport.h"
#include "../math/CVBox3f.h"
#include "../platform/CArray.h"
#include "../platform/CList.h"
#include "../render/CVGLAction.h"

class CVCamera;

class CVSCENE_API CVGetBoundingBoxAction : public CVGLAction {
    DECLARE_DYNAMIC(CVGetBoundingBoxAction)
public:
    explicit CVGetBoundingBoxAction(CVGLRenderArea* area);
    ~CVGetBoundingBoxAction() override;

    // A group: resets, then walks it; the result is its box. Any other node
    // unites its box into the result without a reset, so applying to leaves
    // accumulates. Returns 1 (0 for null).
    int Apply(CVNode* node) override;
    // As Apply for scenes whose boxes follow from node fields alone: no
    // write-back, no GL attribute or matrix pushes and no group rendering, so
    // nodes that read the current GL matrices (screen-sized text and markers)
    // see the caller's matrices. Transforms still need a current context.
    int FastApply(CVNode* node);
    // The box of the path's last node with everything below it, carried
    // through the transforms on the path above it: nothing off the path is
    // visited and only the last node's subtree is written back. Resets first.
    // Returns 0 for an empty path or a null last node, else 1.
    int Apply(const CArray<CVNode*, CVNode*>& path);
    // As Apply(node), walked under camera's projection and view (loaded on
    // identity matrices, restored afterwards), so that nodes sizing
    // themselves from the current GL matrices measure as they are drawn
    // under that camera. The box stays in node's coordinates. Like a render,
    // it stores the camera's projection in the render area. A null camera is
    // Apply(node).
    int Apply(CVNode* node, CVCamera* camera);

    void PreActOn(CVNode* node) override;
    void PostActOn(CVNode* node) override;
    void PushState() override;
    void PopState() override;
    void PushModelView() override;
    void PopModelView() override;

    CVBox3f GetBoundingBox() const { return m_ResultBox; }
    // Write-back of group boxes; on after construction. Returns 1.
    int SetNodeBoundingBoxes(int on) { m_bSetNodeBBoxes = on; return 1; }

protected:
    // The base reset, an empty result box and an empty box stack.
    void Reset() override;

private:
    int Walk(CVNode* node);
    void ClearBoxStack();
    // Node boxes are recycled: a walk allocates only as many as the tree is deep.
    CVBox3f* TakeBox();
    void ReleaseBox(CVBox3f* box);

    // Boxes of the nodes being walked, innermost at the head; the result box
    // sits at the bottom while a group is walked.
    CList<CVBox3f*, CVBox3f*> m_BoxStack;
    CVBox3f m_ResultBox;
    CArray<CVBox3f*, CVBox3f*> m_FreeBoxes;
    int m_bSetNodeBBoxes = 1;
    int m_bFast = 0;
};
