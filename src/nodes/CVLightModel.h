#pragma once
// Global lighting switches: lighting on/off, local or infinite viewer, scene
// ambient colour and two-sided lighting. Does nothing during picking.
#include "../platform/CVExport.h"
#include "../core/CVChild.h"
#include "../core/CVSFBool.h"
#include "../core/CVSFColor.h"
#include "../core/CVSFInt32.h"

class CVSCENE_API CVLightModel : public CVChild {
    DECLARE_DYNAMIC(CVLightModel)
public:
    CVLightModel();

    void Render(CVState* state, CVGLRenderArea* area) override;

    CVSFInt32 lighting;     // 1
    CVSFInt32 viewerMode;   // 1: infinite viewer; 0: local; other values make no call
    CVSFColor ambientColor; // 0.2 0.2 0.2
    CVSFBool twoSided;      // FALSE
};
