#include <gtest/gtest.h>

#include "math/CVBox3f.h"
#include "support/CVTestNear.h"

namespace {
// A box from its extents, through the public setters.
CVBox3f Box(float x0, float y0, float z0, float x1, float y1, float z1) {
    CVBox3f b;
    b.SetSize(x1 - x0, y1 - y0, z1 - z0);
    b.SetCenter((x0 + x1) / 2, (y0 + y1) / 2, (z0 + z1) / 2);
    return b;
}
// min x, y, z then max x, y, z.
std::vector<float> Extents(const CVBox3f& b) {
    Point3fStruct mn, mx;
    b.ComputeMinMax(mn, mx);
    return {mn.x, mn.y, mn.z, mx.x, mx.y, mx.z};
}
// Size then center.
std::vector<float> SizeCenter(const CVBox3f& b) {
    const Point3fStruct s = b.GetSize(), c = b.GetCenter();
    return {s.x, s.y, s.z, c.x, c.y, c.z};
}
const std::vector<float> kEmpty = {-1, -1, -1, 0, 0, 0};
using cvtest::Near;

// Exposes the protected Set.
class TestBox : public CVBox3f {
public:
    using CVBox3f::Set;
};
}  // namespace

TEST(CVBox3f, EmptyIsAnyNegativeSizeAndMakeEmptyKeepsTheClipList) {
    CVBox3f b;
    EXPECT_TRUE(b.IsEmpty());
    EXPECT_TRUE(Near(SizeCenter(b), kEmpty, 0));
    EXPECT_FALSE(b.HaveClipList());
    EXPECT_TRUE(Near(Extents(b), {1e7f, 1e7f, 1e7f, -1e7f, -1e7f, -1e7f}, 0));
    b.SetSize(0, 0, 0);
    EXPECT_FALSE(b.IsEmpty());
    b.SetSize(0, -1, 0);
    EXPECT_TRUE(b.IsEmpty());
    b.SetSize(Point3fStruct{2, 2, -0.001f});
    EXPECT_TRUE(b.IsEmpty());
    b.SetSize(2, 4, 6);
    b.SetCenter(Point3fStruct{1, 2, 3});
    EXPECT_TRUE(Near(Extents(b), {0, 0, 0, 2, 4, 6}, 0));
    b.AddClipInfo(Point3fStruct{1, 0, 0}, 0);
    b.MakeEmpty();
    EXPECT_TRUE(Near(SizeCenter(b), kEmpty, 0));
    EXPECT_EQ(b.GetClipInfoCount(), 1);
    TestBox s;
    s.Set(Point3fStruct{-1, 0, 2}, Point3fStruct{3, 2, 2});
    EXPECT_TRUE(Near(SizeCenter(s), {4, 2, 0, 1, 1, 2}));
}

TEST(CVBox3f, UnionWithPointsAndBoxes) {
    CVBox3f b;
    b.Union(Point3fStruct{1, 2, 3});  // empty: the zero-size box at the point
    EXPECT_TRUE(Near(SizeCenter(b), {0, 0, 0, 1, 2, 3}, 0));
    b.Union(Point3fStruct{-1, 4, 3});
    b.Union(Point3dStruct{0.0, 0.0, 10.0});
    b.Union(Point3fStruct{0, 1, 5});  // inside
    EXPECT_TRUE(Near(Extents(b), {-1, 0, 3, 1, 4, 10}));

    CVBox3f empty, c, e;
    const CVBox3f a = Box(0, 0, 0, 1, 1, 1);
    c.Union(&a);  // empty this takes the other's size and center
    c.Union(&empty);
    c.Union(static_cast<const CVBox3f*>(nullptr));
    EXPECT_TRUE(Near(Extents(c), {0, 0, 0, 1, 1, 1}));
    c.Union(Box(-2, 0.5f, 0.25f, 0.5f, 3, 0.75f));
    EXPECT_TRUE(Near(Extents(c), {-2, 0, 0, 1, 3, 1}));
    e.Union(&empty);
    EXPECT_TRUE(e.IsEmpty());
}

TEST(CVBox3f, ClipPlanesApplyAtTheNextUnionAndTravelWithIt) {
    CVBox3f b = Box(0, 0, 0, 2, 2, 2);
    b.AddClipInfo(Point3fStruct{1, 0, 0}, 1);
    EXPECT_TRUE(Near(Extents(b), {0, 0, 0, 2, 2, 2}));  // not clipped by itself
    b.Union(Box(0.5f, 0.5f, 0.5f, 1.5f, 1.5f, 1.5f));
    EXPECT_TRUE(Near(Extents(b), {1, 0, 0, 2, 2, 2}));

    CVBox3f clipped = Box(0, 0, 0, 1, 1, 1), target;
    clipped.AddClipInfo(Point3fStruct{1, 0, 0}, 0.25f);   // min.x >= 0.25
    clipped.AddClipInfo(Point3fStruct{0, -1, 0}, -0.5f);  // max.y <= 0.5
    target.Union(&clipped);
    EXPECT_EQ(target.GetClipInfoCount(), 2);
    EXPECT_TRUE(Near(Extents(target), {0.25f, 0, 0, 1, 0.5f, 1}));
    target.Union(Box(-3, -3, -3, -2, 4, -2));  // the list clips later unions too
    EXPECT_TRUE(Near(Extents(target), {0.25f, -3, -3, 1, 0.5f, 1}));
    EXPECT_EQ(clipped.GetClipInfoCount(), 2);
    target.Union(&clipped);  // appended again
    EXPECT_EQ(target.GetClipInfoCount(), 4);

    CVBox3f self = Box(0, 0, 0, 1, 1, 1);
    self.AddClipInfo(Point3fStruct{0, 0, 1}, 0.5f);
    self.Union(&self);  // must not loop
    EXPECT_TRUE(Near(Extents(self), {0, 0, 0.5f, 1, 1, 1}));
    EXPECT_EQ(self.GetClipInfoCount(), 1);
}

TEST(CVBox3f, SubtractPlaneCutsOnlyAlongAxisNormals) {
    const struct {
        Point3fStruct normal;
        float d;
        std::vector<float> extents;
    } cases[] = {
        {{1, 0, 0}, 1, {1, 0, 0, 4, 4, 4}},      {{-1, 0, 0}, -3, {0, 0, 0, 3, 4, 4}},
        {{0, 1, 0}, 2, {0, 2, 0, 4, 4, 4}},      {{0, -1, 0}, -2.5f, {0, 0, 0, 4, 2.5f, 4}},
        {{0, 0, 1}, 0.5f, {0, 0, 0.5f, 4, 4, 4}}, {{0, 0, -1}, -1, {0, 0, 0, 4, 4, 1}},
        {{1, 0, 0}, -10, {0, 0, 0, 4, 4, 4}},    {{-1, 0, 0}, -10, {0, 0, 0, 4, 4, 4}},  // cut nothing
        {{1, 0, 0}, 6, {6, 0, 0, 6, 4, 4}},      {{0, -1, 0}, 2, {0, 0, 0, 4, 0, 4}},  // max raised to min
        {{0.5f, 0.5f, 0}, 0.5f, {0, 0, 0, 4, 4, 4}}, {{2, 0, 0}, 0.5f, {0, 0, 0, 4, 4, 4}},  // not axes
    };
    for (const auto& c : cases) {
        CVBox3f b = Box(0, 0, 0, 4, 4, 4);
        b.SubtractPlane(c.normal, c.d);
        EXPECT_FALSE(b.IsEmpty());
        EXPECT_TRUE(Near(Extents(b), c.extents)) << c.normal.x << " " << c.normal.y << " " << c.normal.z << " " << c.d;
    }
    CVBox3f e;
    e.SubtractPlane(Point3fStruct{1, 0, 0}, 0.5f);
    EXPECT_TRUE(Near(SizeCenter(e), kEmpty, 0));
}

TEST(CVBox3f, IntersectIsAnOrOfTheAxes) {
    const CVBox3f a = Box(0, 0, 0, 1, 1, 1), e;
    EXPECT_EQ(a.Intersect(Box(0.5f, 5, 5, 1.5f, 6, 6)), 1);  // only in x
    EXPECT_EQ(a.Intersect(Box(5, 5, 0.5f, 6, 6, 2)), 1);     // only in z
    EXPECT_EQ(a.Intersect(Box(1, 2, 2, 3, 3, 3)), 1);        // touching in x
    EXPECT_EQ(a.Intersect(Box(2, 2, 2, 3, 3, 3)), 0);
    EXPECT_EQ(a.Intersect(e), 0);
    EXPECT_EQ(e.Intersect(a), 0);
    EXPECT_EQ(e.Intersect(e), 0);
}

TEST(CVBox3f, TransformTakesTheExtentsOfTheCorners) {
    CVMatrix id, t, rz, sc;
    t.m[0][3] = 10;
    t.m[1][3] = -1;
    rz.m[0][0] = rz.m[1][1] = 0;  // 90 degrees about z swaps the x and y extents
    rz.m[0][1] = -1;
    rz.m[1][0] = 1;
    sc.m[0][0] = 3;
    sc.m[1][1] = -1;
    const struct {
        CVBox3f box;
        const CVMatrix* m;
        std::vector<float> extents;
        float eps;
    } cases[] = {
        {Box(0, 0, 0, 2, 4, 6), &t, {10, -1, 0, 12, 3, 6}, 1e-5f},
        {Box(-1, -2, -3, 1, 2, 3), &rz, {-2, -1, -3, 2, 1, 3}, 1e-5f},
        {Box(1, 1, 1, 2, 2, 2), &sc, {3, -2, 1, 6, -1, 2}, 1e-5f},
        // Beyond 1e6 the extents keep their start values.
        {Box(2e6f, -2e6f, 0, 2e6f, -2e6f, 0), &id, {1e6f, -2e6f, 0, 2e6f, -1e6f, 0}, 1.0f},
    };
    for (auto c : cases) {
        c.box.Transform(*c.m);
        EXPECT_TRUE(Near(Extents(c.box), c.extents, c.eps));
    }
    CVBox3f e;
    e.Transform(t);
    EXPECT_TRUE(Near(SizeCenter(e), kEmpty, 0));
}

TEST(CVBox3f, CopiesOwnTheirClipList) {
    CVBox3f a = Box(0, 0, 0, 1, 1, 1), c, none;
    a.AddClipInfo(Point3fStruct{1, 0, 0}, 0.5f);
    EXPECT_EQ(a.GetClipList()->GetBlockSize(), 10);
    CVBox3f b(a);
    EXPECT_EQ(b.GetClipInfoCount(), 1);
    EXPECT_NE(b.GetClipList(), a.GetClipList());
    EXPECT_TRUE(Near(Extents(b), {0, 0, 0, 1, 1, 1}));
    c.AddClipInfo(Point3fStruct{0, 1, 0}, 0);
    c.AddClipInfo(Point3fStruct{0, 1, 0}, 0);
    c = a;
    EXPECT_EQ(c.GetClipInfoCount(), 1);
    c = none;
    EXPECT_FALSE(c.HaveClipList());
    a.DeleteClipList();
    EXPECT_FALSE(a.HaveClipList());
    EXPECT_EQ(b.GetClipInfoCount(), 1);
}
