#include "nodes/CVColor.h"

#include <cmath>

IMPLEMENT_DYNAMIC(CVColor, CVNode)

float CVColor::Gradient(const RGBColorStruct& a, const RGBColorStruct& b) {
    const float g = (float)std::fabs((double)a.g - (double)b.g);
    const float r = (float)std::fabs((double)a.r - (double)b.r);
    const float bl = (float)std::fabs((double)a.b - (double)b.b);
    return g + r + bl;
}
