#pragma once
// A box of full size `size` centred on the origin, drawn from a static unit
// cube in immediate mode, through client vertex arrays while picking (nothing
// allocated, nothing cached).
//
// - A negative size.x draws the box of the negated size as lines; the polygon
//   mode is left at GL_LINE afterwards.
// - size.z exactly 0 draws only the +z face (one rectangle), with its four
//   corners as points when the polygon mode is GL_LINE.
// - Not VRML-compliant with a tiled texture: the side faces stretch their
//   texture by size.y / size.x.
// - Stippled with PartialSelection and a non-zero stipple percent: the
//   selection colour covers the lower percent of the side faces (the shape
//   draws no overlay of its own then).
// - While picking only the faces are drawn, without normals or texture
//   coordinates.
// The pick detail always names the front part.
#include "../platform/CVExport.h"
#include "../core/CVSFVec3f.h"
#include "CVGeometry.h"
#include "../math/CVStructs.h"

class CVSCENE_API CVBox : public CVGeometry {
    DECLARE_DYNAMIC(CVBox)
public:
    // In the order of the cube's faces.
    enum Part { Top = 0, Bottom = 1, Front = 2, Back = 3, Right = 4, Left = 5 };

    CVBox();

    void Render(CVState* state, CVGLRenderArea* area, CVAppearance* appearance) override;
    // Centre 0, size as it is (a negative size stays negative).
    void ComputeBoundingBox(CVState* state, CVGLRenderArea* area, CVBox3f* box) override;
    // A new CVBoxDetail with part Front, whatever was hit; the caller owns it.
    CVDetail* GetPickDetail(unsigned int hitName) override;

    CVSFVec3f size;  // 2 2 2

private:
    // Stippled overlay from the bottom up to fraction of the height, on the
    // front face (faceCount 1) or on the four side faces.
    void RenderPartialSelection(float fraction, int faceCount, RGBColorStruct color);
};
