#pragma once
// A user clip plane for everything drawn after it: points p with
// normal . p >= offset are kept (the normal is normalised first). Takes the
// first GL clip plane not yet enabled and never disables it itself, so the
// plane ends with the enclosing group's state pop. When every GL plane is in
// use the node is silently skipped.
//
// For the bounding-box action the node adds its plane to the box as clip
// info, so boxes of clipped content shrink (only for axis-aligned normals).
#include "../platform/CVExport.h"
#include "../core/CVChild.h"
#include "../core/CVSFBool.h"
#include "../core/CVSFFloat.h"
#include "../core/CVSFVec3f.h"

class CVSCENE_API CVClipPlane : public CVChild {
    DECLARE_DYNAMIC(CVClipPlane)
public:
    CVClipPlane();

    void Render(CVState* state, CVGLRenderArea* area) override;
    void ComputeBoundingBox(CVState* state, CVGLRenderArea* area, CVBox3f* box) override;

    CVSFBool on;         // TRUE
    CVSFVec3f normal;    // 1 0 0
    CVSFFloat offset;    // 0

protected:
    // The first of GL_CLIP_PLANE0.. not enabled, in plane; 0 when all are.
    int FindUnusedGLClipPlane(unsigned int& plane);
};
