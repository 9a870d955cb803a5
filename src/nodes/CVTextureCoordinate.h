#pragma once
// Per-vertex texture coordinates that indexed geometry reads. Draws nothing.
#include "../platform/CVExport.h"
#include "../core/CVMFVec2f.h"
#include "../core/CVNode.h"

class CVSCENE_API CVTextureCoordinate : public CVNode {
    DECLARE_DYNAMIC(CVTextureCoordinate)
public:
    CVTextureCoordinate() = default;

    CVMFVec2f point;  // empty
};
