#pragma once
// Moves, turns and scales texture space for one shape. Render does nothing:
// the shape brackets its geometry with PushMatrix, Apply and PopMatrix.
//
// Hazard: Apply scales z by 0, not 1, so the texture matrix it builds is
// singular in z (harmless for 2-D texture coordinates).
#include "../platform/CVExport.h"
#include "../core/CVNode.h"
#include "../core/CVSFFloat.h"
#include "../core/CVSFVec2f.h"

class CVSCENE_API CVTextureTransform : public CVNode {
    DECLARE_DYNAMIC(CVTextureTransform)
public:
    CVTextureTransform();

    // Each switches to the texture matrix, acts, and returns to model-view.
    void PushMatrix();
    void PopMatrix();
    // Multiplies the texture matrix by T . C . R . S . C^-1.
    void Apply();

    CVSFVec2f center;       // 0 0
    CVSFFloat rotation;     // 0, radians
    CVSFVec2f scale;        // 1 1
    CVSFVec2f translation;  // 0 0
};
