#pragma once
// Base of the light nodes. Lights set GL lighting state when a render
// traversal reaches them and do not undo it; during picking they do nothing.
// It sits with the render area, which keeps one light for drop shadows; the
// concrete lights are property nodes.
#include "../platform/CVExport.h"
#include "../core/CVChild.h"
#include "../core/CVSFBool.h"
#include "../core/CVSFColor.h"
#include "../core/CVSFFloat.h"
#include "../math/CVStructs.h"

class CVSCENE_API CVLight : public CVChild {
    DECLARE_DYNAMIC(CVLight)
public:
    CVLight();

    CVSFFloat ambientIntensity;  // 0.0
    CVSFColor color;             // 1 1 1
    CVSFFloat intensity;         // 1.0
    CVSFBool on;                 // TRUE

    // The direction the light shines along, which drop shadows are cast
    // along (CVGLRenderArea::InitShadowMatrix); null for a light without one.
    virtual const Point3fStruct* GetShadowDirection() const { return nullptr; }

protected:
    // The first of GL_LIGHT0.. GL_LIGHT0+maxLights-1 not enabled, in light;
    // 0 when all are taken or maxLights < 1.
    int FindUnusedGLLight(unsigned int& light, int maxLights);
};
