#pragma once
// A list of colours held for geometry that colours its parts (vertices,
// faces, levels). Draws nothing.
#include "../platform/CVExport.h"
#include "../core/CVMFColor.h"
#include "../core/CVNode.h"
#include "../math/CVStructs.h"

class CVSCENE_API CVColor : public CVNode {
    DECLARE_DYNAMIC(CVColor)
public:
    CVColor() = default;

    // How far apart two colours are: |dg| + |dr| + |db|, each difference in
    // double precision rounded to float, summed in that order.
    static float Gradient(const RGBColorStruct& a, const RGBColorStruct& b);

    CVMFColor color;  // empty
};
