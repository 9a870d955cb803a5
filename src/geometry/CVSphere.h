#pragma once
// A sphere of `radius` centred on the origin, tessellated into `precision`
// slices and precision / 2 stacks and compiled into one of the cache
// manager's sphere lists, keyed by (precision, |radius|): spheres with equal
// keys share one list, and the first draw of a key compiles and shows it.
//
// Render rounds `precision` up to an even number and clamps it to 48, storing
// the result back; a negative radius stores 12 and draws lines (the polygon
// mode is left at GL_LINE). Normals are not unit length: GL_NORMALIZE must be
// on (the render area enables it).
#include "../platform/CVExport.h"
#include "../core/CVSFFloat.h"
#include "CVGeometry.h"

class CVSCENE_API CVSphere : public CVGeometry {
    DECLARE_DYNAMIC(CVSphere)
public:
    CVSphere();

    void Render(CVState* state, CVGLRenderArea* area, CVAppearance* appearance) override;
    // Centre 0, 2 |radius| on every axis.
    void ComputeBoundingBox(CVState* state, CVGLRenderArea* area, CVBox3f* box) override;

    // The precision a marker sphere of this radius needs: 12, 16, 24, 36 or 48
    // as |radius| x 360 (truncated) reaches past each step.
    static int CalculateSpherePrecision(float radius);

    CVSFFloat radius;    // 1
    int precision = 12;  // slices; set directly by callers
};
