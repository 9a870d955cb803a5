#include <gtest/gtest.h>

#include <GL/gl.h>

#include <functional>
#include <string>

#include "geometry/CVBox.h"
#include "geometry/CVCone.h"
#include "geometry/CVCylinder.h"
#include "geometry/CVDisc.h"
#include "geometry/CVLineBox.h"
#include "geometry/CVSphere.h"
#include "nodes/CVAppearance.h"
#include "nodes/CVTexture.h"
#include "support/CVGeometryTestSupport.h"

namespace {

// Records the enable state its bracket leaves for the drawing.
class BracketGeometry : public CVGeometry {
public:
    void Render(CVState* state, CVGLRenderArea* area, CVAppearance* appearance) override {
        PreRenderGL(state, area, appearance);
        texturing = glIsEnabled(GL_TEXTURE_2D);
        glEnable(GL_POLYGON_STIPPLE);
        glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
        PostRenderGL(state, area, appearance);
    }
    GLboolean texturing = GL_FALSE;
};

using CVGeometryGLTest = cvtest::GeometryFixture;

TEST_F(CVGeometryGLTest, BracketTexturesOnlyWithATextureAndTexturingOn) {
    auto* g = Make<BracketGeometry>();
    auto* appearance = Make<CVAppearance>();
    Draw(g, appearance);
    EXPECT_FALSE(g->texturing);
    appearance->texture.SetValue(new CVTexture);
    Draw(g, appearance);
    EXPECT_TRUE(g->texturing);
    area->SetTexturingEnabled(0);
    Draw(g, appearance);
    EXPECT_FALSE(g->texturing);
    area->SetTexturingEnabled(1);
    Draw(g, nullptr);
    EXPECT_FALSE(g->texturing);
}

TEST_F(CVGeometryGLTest, BracketRestoresEnablesButNotThePolygonMode) {
    auto* g = Make<BracketGeometry>();
    Draw(g);
    EXPECT_FALSE(glIsEnabled(GL_POLYGON_STIPPLE));
    EXPECT_EQ(FrontPolygonMode(), GL_LINE);
}

TEST_F(CVGeometryGLTest, StippledGeometryLoadsThePatternOfItsIndex) {
    auto* g = Make<BracketGeometry>();
    area->SetStipplePattern(0);
    g->SetStippleIndex(1);
    Draw(g);
    EXPECT_EQ(area->GetStipplePattern(), 0);  // not stippled: untouched
    g->SetStippledFlag(1);
    Draw(g);
    EXPECT_EQ(area->GetStipplePattern(), 1);
    g->SetStippleIndex(0);
    Draw(g);
    EXPECT_EQ(area->GetStipplePattern(), 0);
}

struct PrimitiveCase {
    const char* name;
    std::function<CVGeometry*()> make;
    double pickX = 32.0;  // window x of a point on the drawing, at y = 32
};

void PrintTo(const PrimitiveCase& c, std::ostream* os) { *os << c.name; }

// Every primitive is about one unit across at the origin.
const PrimitiveCase kPrimitives[] = {
    {"Box", [] { auto* g = new CVBox; g->size.SetValue(1, 1, 1); return g; }},
    // Lines only, picked on its right edge.
    {"LineBox", [] { auto* g = new CVLineBox; g->size.SetValue(1, 1, 1); return g; }, 40.0},
    {"Disc", [] { auto* g = new CVDisc; g->size.SetValue(1, 1, 1); return g; }},
    {"Sphere", [] { auto* g = new CVSphere; g->radius.SetValue(0.61f); return g; }},
    {"Cone",
     [] {
         auto* g = new CVCone;
         g->bottomRadius.SetValue(0.62f);
         g->height.SetValue(1.0f);
         return g;
     }},
    {"Cylinder",
     [] {
         auto* g = new CVCylinder;
         g->radius.SetValue(0.63f);
         g->height.SetValue(1.0f);
         return g;
     }},
    {"ConeWithoutBase",
     [] {
         auto* g = new CVCone;
         g->bottomRadius.SetValue(0.64f);
         g->bottom.SetValue(0);
         return g;
     }},
    {"CylinderSideOnly",
     [] {
         auto* g = new CVCylinder;
         g->radius.SetValue(0.65f);
         g->top.SetValue(0);
         g->bottom.SetValue(0);
         return g;
     }},
};

class CVGeometryPrimitiveGLTest : public cvtest::GeometryFixture,
                                  public ::testing::WithParamInterface<PrimitiveCase> {
protected:
    CVGeometry* MakePrimitive() {
        CVGeometry* g = GetParam().make();
        g->Ref();
        held.push_back(g);
        return g;
    }
    ~CVGeometryPrimitiveGLTest() override {
        for (CVGeometry* g : held) g->Unref();
    }
    std::vector<CVGeometry*> held;
};

// The first pick compiles a cached list while in selection mode; the later
// ones replay it, which is where the driver used to crash.
TEST_P(CVGeometryPrimitiveGLTest, PickingHitsTheDrawingAndMissesTheCorner) {
    FreshCacheManager();
    const double x = GetParam().pickX;
    CVGeometry* g = MakePrimitive();
    EXPECT_EQ(Pick(g, x), 1);
    EXPECT_EQ(Pick(g, x), 1);
    Draw(g);
    EXPECT_EQ(Pick(g, x), 1);
    EXPECT_EQ(Pick(g, 4.0, 60.0), 0);
    CVGeometry* notSelectable = MakePrimitive();
    notSelectable->SetSelectableFlag(0);
    EXPECT_EQ(Pick(notSelectable, x), 0);
}

// Seen from +z under a light from +z: the visible surface at the centre is
// the near one (faces wind outwards) and fully lit (normals point outwards).
TEST_P(CVGeometryPrimitiveGLTest, CentreShowsTheNearSurfaceFacingTheViewer) {
    CVGeometry* g = MakePrimitive();
    LightFromViewer();
    Draw(g);
    EXPECT_EQ(Pixel(2, 2), 0u);
    if (g->IsKindOf(RUNTIME_CLASS(CVLineBox))) {
        EXPECT_EQ(Pixel(32, 32), 0u);  // lines only
        EXPECT_FALSE(LitBounds().Empty());
        return;
    }
    EXPECT_LE(Depth(32, 32), 0.5f);  // the disc lies at z = 0
    EXPECT_GE(Red(32, 32), 240);
}

INSTANTIATE_TEST_SUITE_P(Primitives, CVGeometryPrimitiveGLTest, ::testing::ValuesIn(kPrimitives),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
