#include <gtest/gtest.h>

#include <GL/gl.h>

#include <functional>
#include <string>

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
    std::function<CVGeometry*(const Point3fStruct&)> make;
    float x, y;
    bool turns = true;
};

void PrintTo(const MarkerCase& c, std::ostream* os) { *os << c.name; }

template <class T>
std::function<CVGeometry*(const Point3fStruct&)> Maker() {
    return [](const Point3fStruct& size) {
        T* g = new T;
        g->size.SetValue(size);
        g->SetMarkerFlag(1);
        return g;
    };
}

const MarkerCase kMarkers[] = {
    {"Heart", Maker<CVHeart>(), 0.0f, 0.0f},     {"Club", Maker<CVClub>(), 0.0f, 0.1f},
    {"Spade", Maker<CVSpade>(), 0.0f, 0.0f},     {"Flag", Maker<CVFlag>(), 0.2f, 0.0f},
    {"Star", Maker<CVStar>(), 0.0f, 0.0f},       {"Hexagon", Maker<CVHexagon>(), 0.0f, 0.0f},
    {"Prism", Maker<CVPrism>(), 0.0f, 0.0f},     {"Cross", Maker<CVCross>(), 0.0f, 0.3f, false},
    {"XShape", Maker<CVXShape>(), 0.2f, 0.2f, false}, {"Diamond", Maker<CVDiamond>(), 0.0f, 0.3f, false},
};

class CVMarkerTransformGLTest : public cvtest::GeometryFixture, public ::testing::WithParamInterface<MarkerCase> {
protected:
    CVGeometry* MakeMarker(float x, float y, float z) {
        CVGeometry* g = GetParam().make(Point3fStruct{x, y, z});
        g->Ref();
        held.push_back(g);
        return g;
    }
    ~CVMarkerTransformGLTest() override {
        for (CVGeometry* g : held) g->Unref();
    }
    std::vector<CVGeometry*> held;
};

// A marker 0.2 thick shows the viewer its full outline, with the front as
// the nearer surface facing the light.
TEST_P(CVMarkerTransformGLTest, MarkerFacesTheViewer) {
    const MarkerCase& c = GetParam();
    CVGeometry* g = c.turns ? MakeMarker(1, 0.2f, 1) : MakeMarker(1, 1, 0.2f);
    LightFromViewer();
    Draw(g);
    EXPECT_FLOAT_EQ(Depth(Px(c.x), Px(c.y)), 0.495f);
    EXPECT_GE(Red(Px(c.x), Px(c.y)), 240);
    const cvtest::PixelBounds b = LitBounds();
    EXPECT_GE(b.y1 - b.y0, 8);  // seen edge on it would be 3 or 4 pixels high
    EXPECT_EQ(Pixel(2, 2), 0u);
    EXPECT_EQ(FrontPolygonMode(), GL_FILL);
    GLint depth = 0;
    glGetIntegerv(GL_MODELVIEW_STACK_DEPTH, &depth);
    EXPECT_EQ(depth, 1);
    EXPECT_FALSE(glIsEnabled(GL_VERTEX_ARRAY));
    EXPECT_FALSE(glIsEnabled(GL_TEXTURE_COORD_ARRAY));
}

TEST_P(CVMarkerTransformGLTest, NegativeSizeDrawsTheNegatedShapeAsLines) {
    Draw(MakeMarker(1, 1, 1));
    const cvtest::PixelBounds solid = LitBounds();
    const int solidCount = CountLit(0, 0, kSize - 1, kSize - 1);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    Draw(MakeMarker(-1, -1, -1));
    EXPECT_EQ(FrontPolygonMode(), GL_LINE);
    const cvtest::PixelBounds wire = LitBounds();
    EXPECT_NEAR(wire.x0, solid.x0, 1);
    EXPECT_NEAR(wire.x1, solid.x1, 1);
    EXPECT_NEAR(wire.y0, solid.y0, 1);
    EXPECT_NEAR(wire.y1, solid.y1, 1);
    EXPECT_LT(CountLit(0, 0, kSize - 1, kSize - 1), solidCount);
}

TEST_P(CVMarkerTransformGLTest, PickingHitsInsideAndMissesTheCorner) {
    const MarkerCase& c = GetParam();
    CVGeometry* g = MakeMarker(1, 1, 1);
    EXPECT_EQ(Pick(g, Px(c.x) + 0.5, Px(c.y) + 0.5), 1);
    EXPECT_EQ(Pick(g, 4.0, 60.0), 0);
    EXPECT_EQ(Pick(MakeMarker(-1, -1, -1), 4.0, 60.0), 0);
}

TEST_P(CVMarkerTransformGLTest, BoundingBoxIsTheSizeAsItIs) {
    CVGeometry* g = MakeMarker(-1, 2, 3);
    CVBox3f box;
    g->ComputeBoundingBox(nullptr, nullptr, &box);
    EXPECT_EQ(box.GetCenter().x, 0.0f);
    EXPECT_EQ(box.GetCenter().z, 0.0f);
    EXPECT_EQ(box.GetSize().x, -1.0f);
    EXPECT_EQ(box.GetSize().y, 2.0f);
    EXPECT_EQ(box.GetSize().z, 3.0f);
}

INSTANTIATE_TEST_SUITE_P(Shapes, CVMarkerTransformGLTest, ::testing::ValuesIn(kMarkers),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
