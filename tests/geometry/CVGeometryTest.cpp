#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "geometry/CVBox.h"
#include "geometry/CVBoxDetail.h"
#include "geometry/CVCone.h"
#include "geometry/CVConeDetail.h"
#include "geometry/CVCylinder.h"
#include "geometry/CVCylinderDetail.h"
#include "geometry/CVDisc.h"
#include "geometry/CVGeometry.h"
#include "geometry/CVLineBox.h"
#include "geometry/CVSphere.h"
#include "math/CVBox3f.h"
#include "math/CVVector.h"

namespace {

class TestGeometry : public CVGeometry {
public:
    void Render(CVState*, CVGLRenderArea*, CVAppearance*) override {}
    using CVGeometry::ComputeArea;
};

CArray<Point3fStruct> Points(std::initializer_list<Point3fStruct> list) {
    CArray<Point3fStruct> a;
    for (const Point3fStruct& p : list) a.Add(p);
    return a;
}

TEST(CVGeometryTest, NewGeometryIsModifiedOnly) {
    TestGeometry g;
    EXPECT_EQ(g.GetFlags(), 0x2u);
    EXPECT_EQ(g.IsVRMLCompliant(), 1);
    EXPECT_EQ(g.IsNotVisible(), 0);
    EXPECT_EQ(g.GetCrdIndex(), 0);
    EXPECT_EQ(g.GetStippleIndex(), 0);
}

TEST(CVGeometryTest, ModifiedFlagAlwaysClearsCached) {
    TestGeometry g;
    g.SetCachedFlag(1);
    g.SetModifiedFlag(1);
    EXPECT_EQ(g.IsCached(), 0);
    EXPECT_EQ(g.IsModified(), 0x2);
    g.SetCachedFlag(1);
    g.SetModifiedFlag(0);
    EXPECT_EQ(g.GetFlags(), 0u);
}

struct FlagCase {
    const char* name;
    int (CVGeometry::*set)(int);
    unsigned int bit;
    bool inverted;  // the setter's TRUE clears the bit
};

class CVGeometryFlagTest : public ::testing::TestWithParam<FlagCase> {};

TEST_P(CVGeometryFlagTest, SetterDrivesExactlyItsBit) {
    const FlagCase& c = GetParam();
    TestGeometry g;
    g.SetModifiedFlag(0);
    (g.*c.set)(c.inverted ? 0 : 1);
    EXPECT_EQ(g.GetFlags(), c.bit);
    (g.*c.set)(c.inverted ? 1 : 0);
    EXPECT_EQ(g.GetFlags(), 0u);
}

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
INSTANTIATE_TEST_SUITE_P(Bits, CVGeometryFlagTest, ::testing::ValuesIn(kFlags),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(CVGeometryTest, NeedsSortingLooksAtExactlyFourBits) {
    TestGeometry g;
    g.SetModifiedFlag(0);
    // Every other flag set: still nothing to sort.
    for (const FlagCase& c : kFlags)
        if (!(c.bit & 0x81Cu)) (g.*c.set)(c.inverted ? 0 : 1);
    g.SetCachedFlag(1);
    g.SetModifiedFlag(1);
    g.SetStippledFlag(1);
    g.SetDataPointFlag(1);
    g.SetGraphShapeFlag(1);
    EXPECT_EQ(g.NeedsSorting(), 0u);
    g.SetAntialiasedFlag(1);
    g.SetTransparentFlag(1);
    g.SetDropShadowFlag(1);
    g.SetForceSortFlag(1);
    EXPECT_EQ(g.NeedsSorting(), 0x81Cu);
}

TEST(CVGeometryTest, StippleIndexIsTwoValuedAndPercentWraps) {
    TestGeometry g;
    g.SetStippleIndex(7);
    EXPECT_EQ(g.GetStippleIndex(), 1);
    g.SetStipplePercent(300);
    EXPECT_EQ(g.GetStipplePercent(), 44);
    EXPECT_EQ(g.GetStippleIndex(), 1);
    g.SetStippleIndex(0);
    EXPECT_EQ(g.GetStippleIndex(), 0);
    EXPECT_EQ(g.GetStipplePercent(), 44);
}

}  // namespace

namespace {

TEST(CVGeometryTest, ComputeAreaIgnoresTheLastTwoPoints) {
    Point3fStruct area;
    // A 2 x 1 rectangle counter-clockwise in x-y, then two points that would
    // change the result if they were used.
    TestGeometry::ComputeArea(Points({{0, 0, 0}, {2, 0, 0}, {2, 1, 0}, {0, 1, 0}, {9, 9, 9}, {-7, 3, 5}}), area);
    EXPECT_FLOAT_EQ(area.x, 0.0f);
    EXPECT_FLOAT_EQ(area.y, 0.0f);
    EXPECT_FLOAT_EQ(area.z, 2.0f);
    // The same square in the y-z and z-x planes: Newell's x and y components.
    TestGeometry::ComputeArea(Points({{0, 0, 0}, {0, 1, 0}, {0, 1, 1}, {0, 0, 1}, {0, 0, 0}, {0, 0, 0}}), area);
    EXPECT_FLOAT_EQ(area.x, 1.0f);
    EXPECT_FLOAT_EQ(area.z, 0.0f);
    TestGeometry::ComputeArea(Points({{0, 0, 0}, {0, 0, 1}, {1, 0, 1}, {1, 0, 0}, {0, 0, 0}, {0, 0, 0}}), area);
    EXPECT_FLOAT_EQ(area.y, 1.0f);
    TestGeometry::ComputeArea(Points({{1, 2, 3}, {4, 5, 6}}), area);
    EXPECT_FLOAT_EQ(area.x, 0.0f);
    EXPECT_FLOAT_EQ(area.y, 0.0f);
    EXPECT_FLOAT_EQ(area.z, 0.0f);
}

struct NormalCase {
    const char* name;
    std::vector<Point3fStruct> points;
    int counterClockwise;
    CVVector expected;
};

class CVGeometryNormalTest : public ::testing::TestWithParam<NormalCase> {};

TEST_P(CVGeometryNormalTest, ComputeNormal) {
    const NormalCase& c = GetParam();
    CArray<Point3fStruct> points;
    for (const Point3fStruct& p : c.points) points.Add(p);
    CVVector n(5.0f, 5.0f, 5.0f);
    CVGeometry::ComputeNormal(points, c.counterClockwise, n);
    EXPECT_FLOAT_EQ(n.x, c.expected.x);
    EXPECT_FLOAT_EQ(n.y, c.expected.y);
    EXPECT_FLOAT_EQ(n.z, c.expected.z);
}

const NormalCase kNormals[] = {
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
INSTANTIATE_TEST_SUITE_P(Polygons, CVGeometryNormalTest, ::testing::ValuesIn(kNormals),
                         [](const auto& info) { return std::string(info.param.name); });

struct BoxCase {
    const char* name;
    std::function<CVGeometry*()> make;
    Point3fStruct size;
};

class CVGeometryBoundsTest : public ::testing::TestWithParam<BoxCase> {};

TEST_P(CVGeometryBoundsTest, CentredWithTheSizeOfItsKind) {
    CVGeometry* g = GetParam().make();
    g->Ref();
    CVBox3f box;
    box.SetCenter(7.0f, 7.0f, 7.0f);
    g->ComputeBoundingBox(nullptr, nullptr, &box);
    EXPECT_EQ(box.GetCenter().x, 0.0f);
    EXPECT_EQ(box.GetCenter().y, 0.0f);
    EXPECT_EQ(box.GetCenter().z, 0.0f);
    EXPECT_FLOAT_EQ(box.GetSize().x, GetParam().size.x);
    EXPECT_FLOAT_EQ(box.GetSize().y, GetParam().size.y);
    EXPECT_FLOAT_EQ(box.GetSize().z, GetParam().size.z);
    g->Unref();
}

const BoxCase kBounds[] = {
    {"BoxKeepsANegativeSize", [] { auto* b = new CVBox; b->size.SetValue(-1, 2, 3); return b; }, {-1, 2, 3}},
    {"LineBoxIsTheBox", [] { auto* b = new CVLineBox; b->size.SetValue(1, 2, 0); return b; }, {1, 2, 0}},
    {"DiscKeepsItsSize", [] { auto* d = new CVDisc; d->size.SetValue(3, -2, 1); return d; }, {3, -2, 1}},
    {"SphereUsesTheAbsoluteRadius", [] { auto* s = new CVSphere; s->radius.SetValue(-1.5f); return s; }, {3, 3, 3}},
    {"ConeHeightIsAbsolute",
     [] {
         auto* c = new CVCone;
         c->bottomRadius.SetValue(0.5f);
         c->height.SetValue(-4.0f);
         return c;
     },
     {1, 4, 1}},
    {"CylinderHeightIsAbsolute",
     [] {
         auto* c = new CVCylinder;
         c->radius.SetValue(2.0f);
         c->height.SetValue(-1.0f);
         return c;
     },
     {4, 1, 4}},
};
INSTANTIATE_TEST_SUITE_P(Primitives, CVGeometryBoundsTest, ::testing::ValuesIn(kBounds),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(CVGeometryTest, PickDetailsNameAFixedPartOfTheirGeometry) {
    CVBox box;
    std::unique_ptr<CVDetail> d(box.GetPickDetail(17));
    ASSERT_TRUE(d && d->IsKindOf(RUNTIME_CLASS(CVBoxDetail)));
    EXPECT_EQ(static_cast<CVBoxDetail*>(d.get())->GetGeometry(), &box);
    EXPECT_EQ(static_cast<CVBoxDetail*>(d.get())->GetPart(), 2);

    CVLineBox lineBox;
    d.reset(lineBox.GetPickDetail(0));
    ASSERT_TRUE(d && d->IsKindOf(RUNTIME_CLASS(CVBoxDetail)));
    EXPECT_EQ(static_cast<CVBoxDetail*>(d.get())->GetGeometry(), &lineBox);

    CVCone cone;
    d.reset(cone.GetPickDetail(3));
    ASSERT_TRUE(d && d->IsKindOf(RUNTIME_CLASS(CVConeDetail)));
    EXPECT_EQ(static_cast<CVConeDetail*>(d.get())->GetGeometry(), &cone);
    EXPECT_EQ(static_cast<CVConeDetail*>(d.get())->GetPart(), 0);

    CVCylinder cylinder;
    d.reset(cylinder.GetPickDetail(3));
    ASSERT_TRUE(d && d->IsKindOf(RUNTIME_CLASS(CVCylinderDetail)));
    EXPECT_EQ(static_cast<CVCylinderDetail*>(d.get())->GetGeometry(), &cylinder);
    EXPECT_EQ(static_cast<CVCylinderDetail*>(d.get())->GetPart(), 1);

    CVSphere sphere;
    EXPECT_EQ(sphere.GetPickDetail(0), nullptr);
    CVDisc disc;
    EXPECT_EQ(disc.GetPickDetail(0), nullptr);
}

TEST(CVGeometryTest, PrimitivesStartWithTheirDefaults) {
    CVCone cone;
    EXPECT_EQ(cone.precision, 16);
    EXPECT_EQ(cone.bottomRadius.GetValue(), 1.0f);
    EXPECT_EQ(cone.height.GetValue(), 2.0f);
    EXPECT_EQ(cone.side.GetValue() && cone.bottom.GetValue(), 1);
    EXPECT_EQ(cone.GetFlags(), 0x2u);
    CVCylinder cylinder;
    EXPECT_EQ(cylinder.precision, 14);
    EXPECT_EQ(cylinder.top.GetValue() && cylinder.bottom.GetValue() && cylinder.side.GetValue(), 1);
    EXPECT_EQ(cylinder.GetFlags(), 0x6u);  // Modified and Antialiased
    CVSphere sphere;
    EXPECT_EQ(sphere.precision, 12);
    CVBox box;
    EXPECT_EQ(box.size.GetValue().z, 2.0f);
}

}  // namespace
