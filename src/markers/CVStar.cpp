#include "markers/CVStar.h"

#include "markers/CVMarkerColumn.h"
#include "markers/CVMarkerTransform.h"
#include "math/CVBox3f.h"

IMPLEMENT_DYNAMIC(CVStar, CVGeometry)

namespace {

// (x, z): outer and inner points in turn, 36 degrees apart, from the outer point at -z.
const Point2fStruct kOutline[10] = {
    {0.0f, -0.5f},        {0.1469f, -0.2023f}, {0.4755f, -0.1546f}, {0.2378f, 0.0773f},
    {0.2939f, 0.4045f},   {0.0f, 0.25f},       {-0.2939f, 0.4045f}, {-0.2378f, 0.0773f},
    {-0.4755f, -0.1546f}, {-0.1469f, -0.2023f},
};

// Fifteen cap vertices: per spike its outer point and its inner point twice.
// Each spike is the triangle (previous inner, outer, inner); the inner
// pentagon closes the middle. The edge flags (1 0 1 per spike) hide every
// edge between spike and pentagon, so lines show the star's outline.
CVMarkerColumn::Cap StarCap(float y, float ny, bool mirrored) {
    Point2fStruct points[15];
    for (int k = 0; k < 5; ++k) {
        Point2fStruct outer = kOutline[2 * k], inner = kOutline[2 * k + 1];
        // Mirrored in x the same star runs the other way round: the top cap faces +y.
        if (mirrored) {
            outer.x = -outer.x;
            inner.x = -inner.x;
        }
        points[3 * k] = outer;
        points[3 * k + 1] = points[3 * k + 2] = inner;
    }
    CVMarkerColumn::Cap cap = CVMarkerColumn::MakeCap(points, 15, CVMarkerColumn::AlongY, y, 0.0f, ny, 0.0f);
    for (int k = 0; k < 5; ++k) cap.edgeFlags.insert(cap.edgeFlags.end(), {GL_TRUE, GL_FALSE, GL_TRUE});
    cap.parts.push_back({GL_TRIANGLES, {14, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13}});
    cap.parts.push_back({GL_POLYGON, {1, 4, 7, 10, 13}});
    return cap;
}

const CVMarkerColumn& Column() {
    static const CVMarkerColumn column = [] {
        CVMarkerColumn c(kOutline, 10, CVMarkerColumn::AlongY, 0);
        c.SetPickAsStrip(1);
        c.AddCap(StarCap(-0.5f, -1.0f, false));
        c.AddCap(StarCap(0.5f, 1.0f, true));
        return c;
    }();
    return column;
}

}  // namespace

CVStar::CVStar() {
    size.SetValue(2.0f, 2.0f, 2.0f);
    SetAntialiasedFlag(1);
}

void CVStar::Render(CVState* state, CVGLRenderArea* area, CVAppearance* appearance) {
    const int tiled = UsesTiledTexture(appearance);
    CVMarkerTransform transform(*this, size.GetValue(), 1);
    DrawBracketed(state, area, appearance, [&] { Column().DrawBare(); }, [&] { Column().DrawSolid(tiled, size.GetValue()); });
}

void CVStar::ComputeBoundingBox(CVState*, CVGLRenderArea*, CVBox3f* box) {
    SetCenteredBox(box, size.GetValue());
}
