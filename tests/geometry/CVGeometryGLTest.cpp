#include <memory>

#include "geometry/CVBox.h"
#include "geometry/CVBoxDetail.h"
#include "geometry/CVConeDetail.h"
#include "geometry/CVCylinderDetail.h"
#include "geometry/CVDisc.h"
#include "geometry/CVLineBox.h"
#include "math/CVBox3f.h"
#include "nodes/CVAppearance.h"
#include "nodes/CVTexture.h"
#include "support/CVGeometryTestSupport.h"

namespace {

using cvtest::Shaped;
using cvtest::Sized;
using Xyz = std::array<float, 3>;

// Records the enable state its bracket leaves for the drawing, then leaves
// stipple on and line mode behind.
class TestGeometry : public CVGeometry {
public:
    void Render(CVState* state, CVGLRenderArea* area, CVAppearance* appearance) override {
        PreRenderGL(state, area, appearance);
        texturing = glIsEnabled(GL_TEXTURE_2D);
        glEnable(GL_POLYGON_STIPPLE);
        glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
        PostRenderGL(state, area, appearance);
    }
    using CVGeometry::ComputeArea;
    GLboolean texturing = GL_FALSE;
};

Xyz Of(const Point3fStruct& p) { return {p.x, p.y, p.z}; }

CArray<Point3fStruct> Points(std::initializer_list<Point3fStruct> list) {
    CArray<Point3fStruct> a;
    for (const Point3fStruct& p : list) a.Add(p);
    return a;
}

// ---- flags, stipple, area and normal arithmetic, bounds, details ----

struct FlagCase {
    const char* name;
    int (CVGeometry::*set)(int);
    unsigned int bit;
    bool inverted;  // the setter's TRUE clears the bit
};

const FlagCase kFlags[] = {
    {"Antialiased", &CVGeometry::SetAntialiasedFlag, 0x4, false},
    {"Transparent", &CVGeometry::SetTransparentFlag, 0x8, false},
    {"DropShadow", &CVGeometry::SetDropShadowFlag, 0x10, false},
    {"VRMLCompliant", &CVGeometry::SetVRMLCompliantFlag, 0x20, true},
    {"Visible", &CVGeometry::SetVisibleFlag, 0x40, true},
    {"Selectable", &CVGeometry::SetSelectableFlag, 0x80, true},
    {"DataPoint", &CVGeometry::SetDataPointFlag, 0x100, false},
    {"DetailPieSlice", &CVGeometry::SetDetailPieSlice, 0x200, false},
    {"GraphShape", &CVGeometry::SetGraphShapeFlag, 0x400, false},
    {"ForceSort", &CVGeometry::SetForceSortFlag, 0x800, false},
    {"Stippled", &CVGeometry::SetStippledFlag, 0x1000, false},
    {"Annotation", &CVGeometry::SetAnnotationFlag, 0x2000, false},
    {"Marker", &CVGeometry::SetMarkerFlag, 0x4000, false},
    {"TopoChart", &CVGeometry::SetTopoChartFlag, 0x8000, false},
    {"YAxisExtrusion", &CVGeometry::SetYAxisExtrusionFlag, 0x10000, false},
    {"PartialSelection", &CVGeometry::SetPartialSelectionFlag, 0x20000, false},
    {"PostJitter", &CVGeometry::SetPostJitterFlag, 0x40000, false},
};

TEST(CVGeometryTest, NewGeometryIsModifiedOnlyAndEverySetterDrivesExactlyItsBit) {
    TestGeometry g;
    EXPECT_EQ(g.GetFlags(), 0x2u);
    EXPECT_EQ(g.IsVRMLCompliant(), 1);
    EXPECT_EQ(g.IsNotVisible(), 0);
    EXPECT_EQ(CVCone().GetFlags(), 0x2u);
    EXPECT_EQ(CVCylinder().GetFlags(), 0x6u);  // Modified and Antialiased
    g.SetModifiedFlag(0);
    for (const FlagCase& c : kFlags) {
        (g.*c.set)(c.inverted ? 0 : 1);
        EXPECT_EQ(g.GetFlags(), c.bit) << c.name;
        (g.*c.set)(c.inverted ? 1 : 0);
        EXPECT_EQ(g.GetFlags(), 0u) << c.name;
    }
    g.SetCachedFlag(1);
    g.SetModifiedFlag(1);  // always clears Cached
    EXPECT_EQ(g.GetFlags(), 0x2u);
    g.SetCachedFlag(1);
    g.SetModifiedFlag(0);
    EXPECT_EQ(g.GetFlags(), 0u);
}

TEST(CVGeometryTest, NeedsSortingLooksAtExactlyFourBits) {
    TestGeometry g;
    for (const FlagCase& c : kFlags)  // every other flag set: still nothing to sort
        if (!(c.bit & 0x81Cu)) (g.*c.set)(c.inverted ? 0 : 1);
    g.SetCachedFlag(1);
    g.SetModifiedFlag(1);
    EXPECT_EQ(g.NeedsSorting(), 0u);
    for (auto set : {&CVGeometry::SetAntialiasedFlag, &CVGeometry::SetTransparentFlag, &CVGeometry::SetDropShadowFlag,
                     &CVGeometry::SetForceSortFlag})
        (g.*set)(1);
    EXPECT_EQ(g.NeedsSorting(), 0x81Cu);
}

TEST(CVGeometryTest, StippleIndexIsTwoValuedAndPercentWraps) {
    TestGeometry g;
    EXPECT_EQ(g.GetStippleIndex(), 0);
    g.SetStippleIndex(7);
    EXPECT_EQ(g.GetStippleIndex(), 1);
    g.SetStipplePercent(300);
    EXPECT_EQ(g.GetStipplePercent(), 44);
    EXPECT_EQ(g.GetStippleIndex(), 1);
    g.SetStippleIndex(0);
    EXPECT_EQ(g.GetStippleIndex(), 0);
    EXPECT_EQ(g.GetStipplePercent(), 44);
}

// Newell's area of the first n - 2 points; the last two are never used.
TEST(CVGeometryTest, ComputeAreaIgnoresTheLastTwoPoints) {
    const struct {
        std::initializer_list<Point3fStruct> points;
        Xyz area;
    } cases[] = {
        {{{0, 0, 0}, {2, 0, 0}, {2, 1, 0}, {0, 1, 0}, {9, 9, 9}, {-7, 3, 5}}, {0, 0, 2}},
        {{{0, 0, 0}, {0, 1, 0}, {0, 1, 1}, {0, 0, 1}, {0, 0, 0}, {0, 0, 0}}, {1, 0, 0}},
        {{{0, 0, 0}, {0, 0, 1}, {1, 0, 1}, {1, 0, 0}, {0, 0, 0}, {0, 0, 0}}, {0, 1, 0}},
        {{{1, 2, 3}, {4, 5, 6}}, {0, 0, 0}},
    };
    for (const auto& c : cases) {
        Point3fStruct area;
        TestGeometry::ComputeArea(Points(c.points), area);
        EXPECT_EQ(Of(area), c.area);
    }
}

TEST(CVGeometryTest, ComputeNormalIsOrientedByTheWindingFlag) {
    const struct {
        const char* name;
        std::initializer_list<Point3fStruct> points;
        int counterClockwise;
        Xyz expected;
    } cases[] = {
        {"TwoPointsGiveZero", {{0, 0, 0}, {1, 0, 0}}, 1, {0, 0, 0}},
        {"TriangleCounterClockwise", {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, 1, {0, 0, 1}},
        {"TriangleFlagZeroFlips", {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, 0, {0, 0, -1}},
        // Edges (p1 - p0) x (p2 - p1), not (p1 - p0) x (p2 - p0): length 2 x 3.
        {"TriangleUsesConsecutiveEdges", {{0, 0, 0}, {2, 0, 0}, {2, 3, 0}}, 1, {0, 0, 6}},
        // Diagonals (2,1,0) x (-2,1,0) of a 2 x 1 rectangle.
        {"QuadCrossesDiagonals", {{0, 0, 0}, {2, 0, 0}, {2, 1, 0}, {0, 1, 0}}, 1, {0, 0, 4}},
        {"QuadFlagZeroFlips", {{0, 0, 0}, {0, 0, 1}, {1, 0, 1}, {1, 0, 0}}, 0, {0, -2, 0}},
        // Five points: the area of the first three only (a right triangle of 2).
        {"PentagonUsesTheArea", {{0, 0, 0}, {2, 0, 0}, {0, 2, 0}, {9, 9, 0}, {-9, 4, 0}}, 1, {0, 0, 2}},
    };
    for (const auto& c : cases) {
        CVVector n(5.0f, 5.0f, 5.0f);
        CVGeometry::ComputeNormal(Points(c.points), c.counterClockwise, n);
        EXPECT_EQ((Xyz{n.x, n.y, n.z}), c.expected) << c.name;
    }
}

TEST(CVGeometryTest, BoxesAreCentredWithTheSizeOfTheirKind) {
    cvtest::Holder hold;
    const struct {
        const char* name;
        CVGeometry* g;
        Xyz size;
    } cases[] = {
        {"BoxKeepsANegativeSize", hold(Sized(new CVBox, -1, 2, 3)), {-1, 2, 3}},
        {"LineBoxIsTheBox", hold(Sized(new CVLineBox, 1, 2, 0)), {1, 2, 0}},
        {"DiscKeepsItsSize", hold(Sized(new CVDisc, 3, -2, 1)), {3, -2, 1}},
        {"SphereUsesTheAbsoluteRadius", hold(Shaped(new CVSphere, -1.5f)), {3, 3, 3}},
        {"ConeHeightIsAbsolute", hold(Shaped(new CVCone, 0.5f, -4.0f)), {1, 4, 1}},
        {"CylinderHeightIsAbsolute", hold(Shaped(new CVCylinder, 2.0f, -1.0f)), {4, 1, 4}},
    };
    for (const auto& c : cases) {
        CVBox3f box;
        box.SetCenter(7.0f, 7.0f, 7.0f);
        c.g->ComputeBoundingBox(nullptr, nullptr, &box);
        EXPECT_EQ(Of(box.GetCenter()), (Xyz{0, 0, 0})) << c.name;
        EXPECT_EQ(Of(box.GetSize()), c.size) << c.name;
    }
}

template <class Detail, class G>
void ExpectDetail(G* g, unsigned int hit, int part) {
    std::unique_ptr<CVDetail> d(g->GetPickDetail(hit));
    ASSERT_TRUE(d && d->IsKindOf(RUNTIME_CLASS(Detail)));
    EXPECT_EQ((CVGeometry*)static_cast<Detail*>(d.get())->GetGeometry(), g);
    EXPECT_EQ(static_cast<Detail*>(d.get())->GetPart(), part);
}

TEST(CVGeometryTest, PickDetailsNameAFixedPartOfTheirGeometry) {
    CVBox box;
    CVLineBox lineBox;
    CVCone cone;
    CVCylinder cylinder;
    ExpectDetail<CVBoxDetail>(&box, 17, CVBox::Front);
    ExpectDetail<CVBoxDetail>(&lineBox, 0, CVBox::Front);
    ExpectDetail<CVConeDetail>(&cone, 3, CVCone::Sides);
    ExpectDetail<CVCylinderDetail>(&cylinder, 3, CVCylinder::Sides);
    EXPECT_EQ(CVSphere().GetPickDetail(0), nullptr);
    EXPECT_EQ(CVDisc().GetPickDetail(0), nullptr);
}

// ---- the drawing bracket and every primitive in a real context ----

using CVGeometryGLTest = cvtest::GeometryFixture;

TEST_F(CVGeometryGLTest, BracketTexturesWithATextureAndTexturingOnAndRestoresEnablesButNotThePolygonMode) {
    auto* g = Make<TestGeometry>();
    auto* appearance = Make<CVAppearance>();
    const struct {
        bool texture, texturing, appearance, textured;
    } cases[] = {{false, true, true, false}, {true, true, true, true},
                 {true, false, true, false}, {true, true, false, false}};
    for (const auto& c : cases) {
        appearance->texture.SetValue(c.texture ? new CVTexture : nullptr);
        area->SetTexturingEnabled(c.texturing);
        Draw(g, c.appearance ? appearance : nullptr);
        EXPECT_EQ(g->texturing != 0, c.textured) << c.texture << c.texturing << c.appearance;
    }
    EXPECT_FALSE(glIsEnabled(GL_POLYGON_STIPPLE));
    EXPECT_EQ(FrontPolygonMode(), GL_LINE);
}

TEST_F(CVGeometryGLTest, StippledGeometryLoadsThePatternOfItsIndex) {
    auto* g = Make<TestGeometry>();
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

// Every primitive is about one unit across at the origin; the line box is
// lines only, picked on its right edge.
struct Primitive {
    const char* name;
    std::function<CVGeometry*()> make;
    double pickX;  // window x of a point on the drawing, at y = 32
};

std::vector<Primitive> Primitives() {
    return {
        {"Box", [] { return Sized(new CVBox, 1, 1, 1); }, 32.0},
        {"LineBox", [] { return Sized(new CVLineBox, 1, 1, 1); }, 40.0},
        {"Disc", [] { return Sized(new CVDisc, 1, 1, 1); }, 32.0},
        {"Sphere", [] { return Shaped(new CVSphere, 0.61f); }, 32.0},
        {"Cone", [] { return Shaped(new CVCone, 0.62f, 1.0f); }, 32.0},
        {"Cylinder", [] { return Shaped(new CVCylinder, 0.63f, 1.0f); }, 32.0},
        {"ConeWithoutBase", [] { auto* g = Shaped(new CVCone, 0.64f, 2.0f); g->bottom.SetValue(0); return g; }, 32.0},
        {"CylinderSideOnly",
         [] {
             auto* g = Shaped(new CVCylinder, 0.65f, 2.0f);
             g->top.SetValue(0);
             g->bottom.SetValue(0);
             return g;
         },
         32.0},
    };
}

// The first pick compiles a cached list while in selection mode; the later
// ones replay it, which is where the driver used to crash.
TEST_F(CVGeometryGLTest, PickingHitsTheDrawingAndMissesTheCorner) {
    for (const Primitive& p : Primitives()) {
        SCOPED_TRACE(p.name);
        FreshCacheManager();
        cvtest::Holder hold;
        CVGeometry* g = hold(p.make());
        EXPECT_EQ(Pick(g, p.pickX), 1);
        EXPECT_EQ(Pick(g, p.pickX), 1);
        Draw(g);
        EXPECT_EQ(Pick(g, p.pickX), 1);
        EXPECT_EQ(Pick(g, 4.0, 60.0), 0);
        CVGeometry* notSelectable = hold(p.make());
        notSelectable->SetSelectableFlag(0);
        EXPECT_EQ(Pick(notSelectable, p.pickX), 0);
    }
}

// Seen from +z under a light from +z: the visible surface at the centre is
// the near one (faces wind outwards) and fully lit (normals point outwards).
TEST_F(CVGeometryGLTest, CentreShowsTheNearSurfaceFacingTheViewer) {
    LightFromViewer();
    for (const Primitive& p : Primitives()) {
        SCOPED_TRACE(p.name);
        cvtest::Holder hold;
        CVGeometry* g = hold(p.make());
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        Draw(g);
        EXPECT_EQ(Pixel(2, 2), 0u);
        if (g->IsKindOf(RUNTIME_CLASS(CVLineBox))) {
            EXPECT_EQ(Pixel(32, 32), 0u);  // lines only
            EXPECT_FALSE(LitBounds().Empty());
            continue;
        }
        EXPECT_LE(Depth(32, 32), 0.5f);  // the disc lies at z = 0
        EXPECT_GE(Red(32, 32), 240);
    }
}

}  // namespace
