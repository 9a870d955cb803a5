#include "markers/CVHexagon.h"

#include "markers/CVMarkerColumn.h"
#include "markers/CVMarkerTransform.h"
#include "math/CVBox3f.h"

IMPLEMENT_DYNAMIC(CVHexagon, CVGeometry)

namespace {

// (x, z) in quad order; the quads' normals come out as (0,0,-0.5)
// (0.5,0,-0.25) (0.5,0,0.25) (0,0,0.5) (-0.5,0,0.25) (-0.5,0,-0.25).
const Point2fStruct kOutline[6] = {{-0.25f, -0.5f}, {0.25f, -0.5f}, {0.5f, 0.0f},
                                   {0.25f, 0.5f},   {-0.25f, 0.5f}, {-0.5f, 0.0f}};
const Point2fStruct kTop[6] = {{-0.5f, 0.0f}, {-0.25f, 0.5f}, {0.25f, 0.5f},
                               {0.5f, 0.0f},  {0.25f, -0.5f}, {-0.25f, -0.5f}};
const Point2fStruct kBottom[6] = {{-0.5f, 0.0f}, {-0.25f, -0.5f}, {0.25f, -0.5f},
                                  {0.5f, 0.0f},  {0.25f, 0.5f},   {-0.25f, 0.5f}};

CVMarkerColumn::Cap HexagonCap(const Point2fStruct* points, float y, float ny) {
    CVMarkerColumn::Cap cap = CVMarkerColumn::MakeCap(points, 6, CVMarkerColumn::AlongY, y, 0.0f, ny, 0.0f);
    cap.parts.push_back({GL_POLYGON, {0, 1, 2, 3, 4, 5}});
    return cap;
}

const CVMarkerColumn& Column() {
    static const CVMarkerColumn column = [] {
        CVMarkerColumn c(kOutline, 6, CVMarkerColumn::AlongY, 0);
        c.AddCap(HexagonCap(kTop, 0.5f, 1.0f));
        c.AddCap(HexagonCap(kBottom, -0.5f, -1.0f));
        return c;
    }();
    return column;
}

}  // namespace

CVHexagon::CVHexagon() {
    size.SetValue(2.0f, 2.0f, 2.0f);
    SetAntialiasedFlag(1);
}

void CVHexagon::Render(CVState* state, CVGLRenderArea* area, CVAppearance* appearance) {
    const int tiled = UsesTiledTexture(appearance);
    CVMarkerTransform transform(*this, size.GetValue(), 1);
    DrawBracketed(state, area, appearance, [&] { Column().DrawBare(); }, [&] { Column().DrawSolid(tiled, size.GetValue()); });
}

void CVHexagon::ComputeBoundingBox(CVState*, CVGLRenderArea*, CVBox3f* box) {
    SetCenteredBox(box, size.GetValue());
}
