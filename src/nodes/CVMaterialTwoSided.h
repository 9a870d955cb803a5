#pragma once
// A material with its own back-face values. Renders the front (and back) as
// CVMaterial does; when twoSided is TRUE it then restricts colour material to
// the front faces (left so afterwards) and sets every back-face value
// directly, without the shared skip cache. Two-sided lighting itself is the
// light model's business.
#include "../platform/CVExport.h"
#include "../core/CVSFBool.h"
#include "CVMaterial.h"

class CVSCENE_API CVMaterialTwoSided : public CVMaterial {
    DECLARE_DYNAMIC(CVMaterialTwoSided)
public:
    CVMaterialTwoSided();

    void Render(CVState* state, CVGLRenderArea* area) override;

    CVSFFloat backAmbientIntensity;  // 0.8
    CVSFColor backDiffuseColor;      // 0.8 0.8 0.8
    CVSFColor backEmissiveColor;     // 0 0 0
    CVSFFloat backShininess;         // 0.2
    CVSFColor backSpecularColor;     // 0 0 0
    CVSFFloat backTransparency;      // 0
    CVSFBool twoSided;               // FALSE: the front values serve both faces
};
