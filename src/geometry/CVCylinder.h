#pragma once
// A cylinder along y of `radius` and full `height` centred on the origin. The
// tessellation is built for height 1 and scaled by the model-view matrix, so
// one of the cache manager's cylinder lists, keyed by (precision, radius, 1,
// top, bottom, side), serves every height. The first draw of a key compiles
// and shows the list, then clears Modified and Cached.
//
// - `precision` grows with the radius on the first draw while it still holds
//   the default 14: 26 above radius 0.1, 20 above 0.05. The value is stored.
// - A negative height draws lines (the polygon mode is left at GL_LINE).
// - Not VRML-compliant: the side texture wraps three times around (stretched
//   by height / diameter for a tiled texture) and the caps use an identity
//   texture matrix. That cap handling is compiled into the list and so is
//   shared with every cylinder of the same key.
// - Stippled with PartialSelection and a non-zero stipple percent: the side
//   is covered in the selection colour from the bottom up to the percent of
//   the height, with the fill level outlined; the polygon mode is left at
//   GL_LINE.
// The constructor sets the Antialiased flag. The pick detail always names the
// side.
#include "../platform/CVExport.h"
#include "../core/CVSFBool.h"
#include "../core/CVSFFloat.h"
#include "CVGeometry.h"
#include "../math/CVStructs.h"

class CVSCENE_API CVCylinder : public CVGeometry {
    DECLARE_DYNAMIC(CVCylinder)
public:
    enum Part { Top = 0, Sides = 1, Bottom = 2 };
    static const int kDefaultPrecision = 14;

    CVCylinder();

    void Render(CVState* state, CVGLRenderArea* area, CVAppearance* appearance) override;
    // Centre 0, size (2 radius, |height|, 2 radius).
    void ComputeBoundingBox(CVState* state, CVGLRenderArea* area, CVBox3f* box) override;
    // A new CVCylinderDetail with part Sides, whatever was hit; the caller owns it.
    CVDetail* GetPickDetail(unsigned int hitName) override;

    CVSFFloat radius;                    // 1
    CVSFFloat height;                    // 2
    CVSFBool top;                        // TRUE
    CVSFBool bottom;                     // TRUE
    CVSFBool side;                       // TRUE
    int precision = kDefaultPrecision;  // segments around y; set directly by callers

private:
    // In the unit-height space: the side from the bottom up to fraction.
    void RenderPartialSelection(float fraction, RGBColorStruct color);
};
