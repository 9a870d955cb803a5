#pragma once
// Fixed-function material of a shape, applied to both faces. Colour material
// is on for ambient and diffuse (the render area enables it), so the diffuse
// colour goes out as the current colour and the ambient as diffuse scaled by
// the ambient intensity.
//
// Redundant calls are skipped against the process-wide material state kept by
// the cache manager: specular, shininess and emission are issued only when
// they differ from what was last sent (specular and emission also when the
// transparency changed, since their alpha follows it). That state is shared
// by every render area and knows nothing of contexts: a fresh context may
// miss values the cache believes are set. CVCacheManager::InitGLColor resets
// only the current colour.
#include "../platform/CVExport.h"
#include "../core/CVNode.h"
#include "../core/CVSFColor.h"
#include "../core/CVSFFloat.h"

class CVSCENE_API CVMaterial : public CVNode {
    DECLARE_DYNAMIC(CVMaterial)
public:
    CVMaterial();

    void Render(CVState* state, CVGLRenderArea* area) override;

    CVSFFloat ambientIntensity;  // 0.8 (not the usual 0.2)
    CVSFColor diffuseColor;      // 0.8 0.8 0.8
    CVSFColor emissiveColor;     // 0 0 0
    CVSFFloat shininess;         // 0.2, scaled by 128 for GL
    CVSFColor specularColor;     // 0 0 0
    CVSFFloat transparency;      // 0: opaque
};
