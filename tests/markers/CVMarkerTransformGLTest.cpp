#include "markers/CVClub.h"
#include "markers/CVCross.h"
#include "markers/CVDiamond.h"
#include "markers/CVFlag.h"
#include "markers/CVHeart.h"
#include "markers/CVHexagon.h"
#include "markers/CVPrism.h"
#include "markers/CVSpade.h"
#include "markers/CVStar.h"
#include "markers/CVXShape.h"
#include "math/CVBox3f.h"
#include "support/CVGeometryTestSupport.h"

namespace {

// Every marker shape, made with the Marker flag, a point well inside its
// drawing at size 1 as seen from +z, and whether the flag turns it (its
// thickness then runs along y before the turn, otherwise along z).
struct MarkerCase {
    const char* name;
    std::function<CVGeometry*(float, float, float)> make;
    float x, y;
    bool turns;
};

template <class T>
std::function<CVGeometry*(float, float, float)> Maker() {
    return [](float x, float y, float z) {
        T* g = cvtest::Sized(new T, x, y, z);
        g->SetMarkerFlag(1);
        return g;
    };
}

const MarkerCase kMarkers[] = {
    {"Heart", Maker<CVHeart>(), 0.0f, 0.0f, true},         {"Club", Maker<CVClub>(), 0.0f, 0.1f, true},
    {"Spade", Maker<CVSpade>(), 0.0f, 0.0f, true},         {"Flag", Maker<CVFlag>(), 0.2f, 0.0f, true},
    {"Star", Maker<CVStar>(), 0.0f, 0.0f, true},           {"Hexagon", Maker<CVHexagon>(), 0.0f, 0.0f, true},
    {"Prism", Maker<CVPrism>(), 0.0f, 0.0f, true},         {"Cross", Maker<CVCross>(), 0.0f, 0.3f, false},
    {"XShape", Maker<CVXShape>(), 0.2f, 0.2f, false},      {"Diamond", Maker<CVDiamond>(), 0.0f, 0.3f, false},
};

using CVMarkerTransformGLTest = cvtest::GeometryFixture;

// A marker 0.2 thick shows the viewer its full outline, with the front as
// the nearer surface facing the light.
TEST_F(CVMarkerTransformGLTest, MarkerFacesTheViewer) {
    LightFromViewer();
    for (const MarkerCase& c : kMarkers) {
        SCOPED_TRACE(c.name);
        cvtest::Holder hold;
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        Draw(hold(c.turns ? c.make(1, 0.2f, 1) : c.make(1, 1, 0.2f)));
        EXPECT_FLOAT_EQ(Depth(Px(c.x), Px(c.y)), 0.495f);
        EXPECT_GE(Red(Px(c.x), Px(c.y)), 240);
        const cvtest::PixelBounds b = LitBounds();
        EXPECT_GE(b.y1 - b.y0, 8);  // seen edge on it would be 3 or 4 pixels high
        EXPECT_EQ(Pixel(2, 2), 0u);
        EXPECT_EQ(FrontPolygonMode(), GL_FILL);
        EXPECT_EQ(cvtest::GetInt(GL_MODELVIEW_STACK_DEPTH), 1);
        EXPECT_FALSE(glIsEnabled(GL_VERTEX_ARRAY));
        EXPECT_FALSE(glIsEnabled(GL_TEXTURE_COORD_ARRAY));
    }
}

TEST_F(CVMarkerTransformGLTest, NegativeSizeDrawsTheNegatedShapeAsLines) {
    for (const MarkerCase& c : kMarkers) {
        SCOPED_TRACE(c.name);
        cvtest::Holder hold;
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        Draw(hold(c.make(1, 1, 1)));
        const cvtest::PixelBounds solid = LitBounds();
        const int solidCount = CountLit(0, 0, kSize - 1, kSize - 1);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        Draw(hold(c.make(-1, -1, -1)));
        EXPECT_EQ(FrontPolygonMode(), GL_LINE);
        glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
        const cvtest::PixelBounds wire = LitBounds();
        for (int i = 0; i < 4; ++i) EXPECT_NEAR(cvtest::Corners(wire)[i], cvtest::Corners(solid)[i], 1) << i;
        EXPECT_LT(CountLit(0, 0, kSize - 1, kSize - 1), solidCount);
    }
}

TEST_F(CVMarkerTransformGLTest, PickingHitsInsideAndMissesTheCorner) {
    for (const MarkerCase& c : kMarkers) {
        SCOPED_TRACE(c.name);
        cvtest::Holder hold;
        CVGeometry* g = hold(c.make(1, 1, 1));
        EXPECT_EQ(Pick(g, Px(c.x) + 0.5, Px(c.y) + 0.5), 1);
        EXPECT_EQ(Pick(g, 4.0, 60.0), 0);
        EXPECT_EQ(Pick(hold(c.make(-1, -1, -1)), 4.0, 60.0), 0);
        glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);  // left in line mode by the wire frame
    }
}

TEST(CVMarkerTransformTest, BoundingBoxIsTheSizeAsItIs) {
    for (const MarkerCase& c : kMarkers) {
        cvtest::Holder hold;
        CVBox3f box;
        hold(c.make(-1, 2, 3))->ComputeBoundingBox(nullptr, nullptr, &box);
        const Point3fStruct &centre = box.GetCenter(), &size = box.GetSize();
        EXPECT_EQ(std::vector<float>({centre.x, centre.z, size.x, size.y, size.z}),
                  std::vector<float>({0.0f, 0.0f, -1.0f, 2.0f, 3.0f}))
            << c.name;
    }
}

}  // namespace
