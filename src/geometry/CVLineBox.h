#pragma once
// A box drawn as unlit lines: the box's drawing under GL_LINE polygon mode
// with lighting off, both restored afterwards. A VRML-compliant line box with
// a material takes its line colour from the material's emissive colour;
// otherwise the current colour is used. Bounding box and pick detail are the
// box's.
#include "../platform/CVExport.h"
#include "CVBox.h"

class CVSCENE_API CVLineBox : public CVBox {
    DECLARE_DYNAMIC(CVLineBox)
public:
    CVLineBox() = default;

    void Render(CVState* state, CVGLRenderArea* area, CVAppearance* appearance) override;
};
