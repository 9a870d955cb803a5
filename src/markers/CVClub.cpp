#include "markers/CVClub.h"

#include "markers/CVMarkerOutline.h"
#include "markers/CVMarkerTransform.h"
#include "math/CVBox3f.h"

IMPLEMENT_DYNAMIC(CVClub, CVGeometry)

namespace {

// (x, z), closed: the last point repeats the first.
const Point2fStruct kOutline[37] = {
    {0.0f, 0.1f}, {0.05f, 0.35f}, {0.1f, 0.5f}, {-0.1f, 0.5f}, {-0.05f, 0.35f}, {0.0f, 0.1f}, {-0.1f, 0.25f},
    {-0.2f, 0.3f}, {-0.3f, 0.3f}, {-0.4f, 0.25f}, {-0.45f, 0.15f}, {-0.45f, 0.05f}, {-0.4f, -0.05f},
    {-0.3f, -0.1f}, {-0.2f, -0.1f}, {-0.05f, -0.05f}, {-0.15f, -0.15f}, {-0.2f, -0.25f}, {-0.2f, -0.35f},
    {-0.15f, -0.45f}, {-0.05f, -0.5f}, {0.05f, -0.5f}, {0.15f, -0.45f}, {0.2f, -0.35f}, {0.2f, -0.25f},
    {0.15f, -0.15f}, {0.05f, -0.05f}, {0.2f, -0.1f}, {0.3f, -0.1f}, {0.4f, -0.05f}, {0.45f, 0.05f},
    {0.45f, 0.15f}, {0.4f, 0.25f}, {0.3f, 0.3f}, {0.2f, 0.3f}, {0.1f, 0.25f}, {0.0f, 0.1f},
};

const CVMarkerOutline& Outline() {
    static const CVMarkerOutline outline(kOutline, 37);
    return outline;
}

}  // namespace

CVClub::CVClub() {
    size.SetValue(2.0f, 2.0f, 2.0f);
    SetAntialiasedFlag(1);
}

void CVClub::Render(CVState* state, CVGLRenderArea* area, CVAppearance* appearance) {
    CVMarkerTransform transform(*this, size.GetValue(), 1);
    DrawBracketed(state, area, appearance, [&] { Outline().DrawBare(); }, [&] { Outline().DrawSolid(); });
}

void CVClub::ComputeBoundingBox(CVState*, CVGLRenderArea*, CVBox3f* box) {
    SetCenteredBox(box, size.GetValue());
}
