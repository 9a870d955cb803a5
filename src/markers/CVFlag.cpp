#include "markers/CVFlag.h"

#include "markers/CVMarkerOutline.h"
#include "markers/CVMarkerTransform.h"
#include "math/CVBox3f.h"

IMPLEMENT_DYNAMIC(CVFlag, CVGeometry)

namespace {

// (x, z), closed: the last point repeats the first.
const Point2fStruct kOutline[4] = {
    {0.0f, 0.3f}, {0.0f, -0.3f}, {0.6f, 0.0f}, {0.0f, 0.3f},
};

const CVMarkerOutline& Outline() {
    static const CVMarkerOutline outline(kOutline, 4);
    return outline;
}

}  // namespace

CVFlag::CVFlag() {
    size.SetValue(2.0f, 2.0f, 2.0f);
    SetAntialiasedFlag(1);
}

void CVFlag::Render(CVState* state, CVGLRenderArea* area, CVAppearance* appearance) {
    CVMarkerTransform transform(*this, size.GetValue(), 1);
    DrawBracketed(state, area, appearance, [&] { Outline().DrawBare(); }, [&] { Outline().DrawSolid(); });
}

void CVFlag::ComputeBoundingBox(CVState*, CVGLRenderArea*, CVBox3f* box) {
    SetCenteredBox(box, size.GetValue());
}
