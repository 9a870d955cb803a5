#include "markers/CVPrism.h"

#include "markers/CVMarkerColumn.h"
#include "markers/CVMarkerTransform.h"
#include "math/CVBox3f.h"

IMPLEMENT_DYNAMIC(CVPrism, CVGeometry)

namespace {

// (x, z); unit side normals (0.894,0,0.447) (-0.894,0,0.447) (0,0,-1).
const Point2fStruct kOutline[3] = {{0.5f, -0.5f}, {0.0f, 0.5f}, {-0.5f, -0.5f}};
// The triangular caps as quads with one corner repeated.
const Point2fStruct kBottom[4] = {{0.5f, -0.5f}, {0.0f, 0.5f}, {-0.5f, -0.5f}, {0.5f, -0.5f}};
const Point2fStruct kTop[4] = {{-0.5f, -0.5f}, {0.0f, 0.5f}, {0.5f, -0.5f}, {-0.5f, -0.5f}};

CVMarkerColumn::Cap PrismCap(const Point2fStruct* points, float y, float ny) {
    CVMarkerColumn::Cap cap = CVMarkerColumn::MakeCap(points, 4, CVMarkerColumn::AlongY, y, 0.0f, ny, 0.0f);
    cap.parts.push_back({GL_QUADS, {0, 1, 2, 3}});
    return cap;
}

const CVMarkerColumn& Column() {
    static const CVMarkerColumn column = [] {
        CVMarkerColumn c(kOutline, 3, CVMarkerColumn::AlongY, 1);
        c.AddCap(PrismCap(kBottom, -0.5f, -1.0f));
        c.AddCap(PrismCap(kTop, 0.5f, 1.0f));
        return c;
    }();
    return column;
}

}  // namespace

CVPrism::CVPrism() {
    size.SetValue(2.0f, 2.0f, 2.0f);
    SetAntialiasedFlag(1);
}

void CVPrism::Render(CVState* state, CVGLRenderArea* area, CVAppearance* appearance) {
    const int tiled = UsesTiledTexture(appearance);
    CVMarkerTransform transform(*this, size.GetValue(), 1);
    DrawBracketed(state, area, appearance, [&] { Column().DrawBare(); }, [&] { Column().DrawSolid(tiled, size.GetValue()); });
}

void CVPrism::ComputeBoundingBox(CVState*, CVGLRenderArea*, CVBox3f* box) {
    SetCenteredBox(box, size.GetValue());
}
