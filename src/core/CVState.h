#pragma once
// Traversal state owned by an action and handed to every Render and
// ComputeBoundingBox: the path of grouping nodes, the current depth, the
// path-recording (identification) flag and the render pass.
#include "../platform/CVExport.h"
#include "../base/CVBase.h"
#include "CVNode.h"

// The render pass a frame is in, in CVState::m_nRenderPass.
enum CVRenderPass {
    CVRenderPassIdle = 0,         // between frames
    CVRenderPassScene = 1,        // the walk of the scene
    CVRenderPassTransparent = 2,  // the transparent list replayed
    CVRenderPassAnnotation = 3,   // the annotation list replayed
};

class CVSCENE_API CVState : public CVBase {
    DECLARE_DYNAMIC(CVState)
public:
    CVState();

    // Path i; only path 0 exists. Throws CInvalidArgException otherwise.
    CVNodePath& GetPath(int i);
    // Stores node at index depth of path 0, growing the path (used while recording).
    void RecordNode(CVNode* node);

    CArray<CVNodePath, const CVNodePath&> m_Paths;
    int m_nDepth = -1;
    // Set by the pick, image-map and search actions: groups record themselves
    // in path 0, and geometry draws bare (no lights, textures or cameras).
    int m_bRecordPath = 0;
    int m_nRenderPass = CVRenderPassIdle;  // a CVRenderPass
};
