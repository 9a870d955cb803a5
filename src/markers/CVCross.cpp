#include "markers/CVCross.h"

#include "markers/CVMarkerColumn.h"
#include "markers/CVMarkerTransform.h"
#include "math/CVBox3f.h"

IMPLEMENT_DYNAMIC(CVCross, CVGeometry)

namespace {

const float kArm = 0.1667f;  // half-width of an arm

// (x, y), clockwise from the lower end of the bottom arm's left edge.
const Point2fStruct kOutline[12] = {
    {-kArm, -0.5f}, {-kArm, -kArm}, {-0.5f, -kArm}, {-0.5f, kArm}, {-kArm, kArm}, {-kArm, 0.5f},
    {kArm, 0.5f},   {kArm, kArm},   {0.5f, kArm},   {0.5f, -kArm}, {kArm, -kArm}, {kArm, -0.5f},
};

// Four arms and the centre square as quads over the outline's points.
CVMarkerColumn::Cap CrossCap(float z, float nz, bool mirrored) {
    Point2fStruct points[12];
    for (int i = 0; i < 12; ++i) {
        points[i] = kOutline[i];
        // The mirrored cross runs counter-clockwise: the +z cap faces +z.
        if (mirrored) points[i].x = -points[i].x;
    }
    CVMarkerColumn::Cap cap = CVMarkerColumn::MakeCap(points, 12, CVMarkerColumn::AlongZ, z, 0.0f, 0.0f, nz);
    cap.parts.push_back({GL_QUADS, {1, 2, 3, 4, 4, 5, 6, 7, 7, 8, 9, 10, 10, 11, 0, 1, 1, 4, 7, 10}});
    return cap;
}

const CVMarkerColumn& Column() {
    static const CVMarkerColumn column = [] {
        CVMarkerColumn c(kOutline, 12, CVMarkerColumn::AlongZ, 1);
        c.AddCap(CrossCap(-0.5f, -1.0f, false));
        c.AddCap(CrossCap(0.5f, 1.0f, true));
        return c;
    }();
    return column;
}

}  // namespace

CVCross::CVCross() {
    size.SetValue(2.0f, 2.0f, 2.0f);
    SetAntialiasedFlag(1);
}

void CVCross::Render(CVState* state, CVGLRenderArea* area, CVAppearance* appearance) {
    CVMarkerTransform transform(*this, size.GetValue(), 0);
    DrawBracketed(state, area, appearance, [&] { Column().DrawBare(); }, [&] { Column().DrawSolid(0, size.GetValue()); });
}

void CVCross::ComputeBoundingBox(CVState*, CVGLRenderArea*, CVBox3f* box) {
    SetCenteredBox(box, size.GetValue());
}
