#include "markers/CVSpade.h"

#include "markers/CVMarkerOutline.h"
#include "markers/CVMarkerTransform.h"
#include "math/CVBox3f.h"

IMPLEMENT_DYNAMIC(CVSpade, CVGeometry)

namespace {

// (x, z), closed: the last point repeats the first.
const Point2fStruct kOutline[24] = {
    {0.0f, -0.5f}, {0.2f, -0.3f}, {0.35f, -0.1f}, {0.4f, 0.05f}, {0.4f, 0.15f}, {0.35f, 0.25f}, {0.25f, 0.3f},
    {0.15f, 0.3f}, {0.05f, 0.25f}, {0.0f, 0.15f}, {0.05f, 0.35f}, {0.1f, 0.5f}, {-0.1f, 0.5f},
    {-0.05f, 0.35f}, {0.0f, 0.15f}, {-0.05f, 0.25f}, {-0.15f, 0.3f}, {-0.25f, 0.3f}, {-0.35f, 0.25f},
    {-0.4f, 0.15f}, {-0.4f, 0.05f}, {-0.35f, -0.1f}, {-0.2f, -0.3f}, {0.0f, -0.5f},
};

const CVMarkerOutline& Outline() {
    static const CVMarkerOutline outline(kOutline, 24);
    return outline;
}

}  // namespace

CVSpade::CVSpade() {
    size.SetValue(2.0f, 2.0f, 2.0f);
    SetAntialiasedFlag(1);
}

void CVSpade::Render(CVState* state, CVGLRenderArea* area, CVAppearance* appearance) {
    CVMarkerTransform transform(*this, size.GetValue(), 1);
    DrawBracketed(state, area, appearance, [&] { Outline().DrawBare(); }, [&] { Outline().DrawSolid(); });
}

void CVSpade::ComputeBoundingBox(CVState*, CVGLRenderArea*, CVBox3f* box) {
    SetCenteredBox(box, size.GetValue());
}
