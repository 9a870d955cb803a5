#include <gtest/gtest.h>

#include "geometry/CVGeometry.h"

namespace {

class TestGeometry : public CVGeometry {
public:
    void Render(CVState*, CVGLRenderArea*, CVAppearance*) override {}
};

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
