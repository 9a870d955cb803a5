#include <gtest/gtest.h>

#include <cmath>

#include "math/CVBox3f.h"

namespace {
// Builds a box from its extents through the public setters.
CVBox3f MakeBox(float x0, float y0, float z0, float x1, float y1, float z1) {
    CVBox3f b;
    b.SetSize(x1 - x0, y1 - y0, z1 - z0);
    b.SetCenter((x0 + x1) / 2, (y0 + y1) / 2, (z0 + z1) / 2);
    return b;
}

void ExpectExtents(const CVBox3f& b, float x0, float y0, float z0, float x1, float y1, float z1,
                   float eps = 1e-5f) {
    Point3fStruct mn, mx;
    b.ComputeMinMax(mn, mx);
    EXPECT_NEAR(mn.x, x0, eps);
    EXPECT_NEAR(mn.y, y0, eps);
    EXPECT_NEAR(mn.z, z0, eps);
    EXPECT_NEAR(mx.x, x1, eps);
    EXPECT_NEAR(mx.y, y1, eps);
    EXPECT_NEAR(mx.z, z1, eps);
}

void ExpectPoint(const Point3fStruct& p, float x, float y, float z, float eps = 1e-5f) {
    EXPECT_NEAR(p.x, x, eps);
    EXPECT_NEAR(p.y, y, eps);
    EXPECT_NEAR(p.z, z, eps);
}

// Exposes the protected Set.
class TestBox : public CVBox3f {
public:
    using CVBox3f::Set;
};
}  // namespace

TEST(CVBox3f, RunTimeClass) {
    CVBox3f b;
    EXPECT_TRUE(b.IsKindOf(RUNTIME_CLASS(CVBase)));
    EXPECT_STREQ(b.GetRuntimeClass()->m_lpszClassName, "CVBox3f");
}

TEST(CVBox3f, ConstructedEmpty) {
    CVBox3f b;
    EXPECT_TRUE(b.IsEmpty());
    ExpectPoint(b.GetSize(), -1, -1, -1, 0);
    ExpectPoint(b.GetCenter(), 0, 0, 0, 0);
    EXPECT_FALSE(b.HaveClipList());
    EXPECT_EQ(b.GetClipList(), nullptr);
}

TEST(CVBox3f, EmptyRules) {
    CVBox3f b;
    b.SetSize(0, 0, 0);
    EXPECT_FALSE(b.IsEmpty());
    b.SetSize(0, -1, 0);
    EXPECT_TRUE(b.IsEmpty());
    b.SetSize(Point3fStruct{2, 2, -0.001f});
    EXPECT_TRUE(b.IsEmpty());
    b.SetSize(2, 3, 4);
    b.SetCenter(Point3fStruct{1, 1, 1});
    b.AddClipInfo(Point3fStruct{1, 0, 0}, 0);
    b.MakeEmpty();
    EXPECT_TRUE(b.IsEmpty());
    ExpectPoint(b.GetSize(), -1, -1, -1, 0);
    ExpectPoint(b.GetCenter(), 0, 0, 0, 0);
    EXPECT_TRUE(b.HaveClipList());  // MakeEmpty leaves the clip list alone
    EXPECT_EQ(b.GetClipInfoCount(), 1);
}

TEST(CVBox3f, ComputeMinMax) {
    CVBox3f b;
    b.SetSize(2, 4, 6);
    b.SetCenter(1, 2, 3);
    Point3fStruct mn, mx;
    b.ComputeMinMax(mn, mx);
    ExpectPoint(mn, 0, 0, 0, 0);
    ExpectPoint(mx, 2, 4, 6, 0);
    CVBox3f e;
    e.SetCenter(5, 5, 5);
    e.ComputeMinMax(mn, mx);
    ExpectPoint(mn, 1e7f, 1e7f, 1e7f, 0);
    ExpectPoint(mx, -1e7f, -1e7f, -1e7f, 0);
}

TEST(CVBox3f, SetFromMinMax) {
    TestBox b;
    b.Set(Point3fStruct{-1, 0, 2}, Point3fStruct{3, 2, 2});
    ExpectPoint(b.GetSize(), 4, 2, 0);
    ExpectPoint(b.GetCenter(), 1, 1, 2);
}

TEST(CVBox3f, UnionPoint) {
    CVBox3f b;
    b.Union(Point3fStruct{1, 2, 3});
    EXPECT_FALSE(b.IsEmpty());
    ExpectPoint(b.GetSize(), 0, 0, 0, 0);
    ExpectPoint(b.GetCenter(), 1, 2, 3, 0);
    b.Union(Point3fStruct{-1, 4, 3});
    ExpectExtents(b, -1, 2, 3, 1, 4, 3);
    b.Union(Point3dStruct{0.0, 0.0, 10.0});
    ExpectExtents(b, -1, 0, 3, 1, 4, 10);
    // A point inside changes nothing.
    b.Union(Point3fStruct{0, 1, 5});
    ExpectExtents(b, -1, 0, 3, 1, 4, 10);
}

TEST(CVBox3f, UnionBox) {
    CVBox3f empty;
    CVBox3f a = MakeBox(0, 0, 0, 1, 1, 1);
    // Empty this takes the other's size and center.
    CVBox3f c;
    c.Union(&a);
    ExpectExtents(c, 0, 0, 0, 1, 1, 1);
    // Empty other leaves this unchanged.
    c.Union(&empty);
    ExpectExtents(c, 0, 0, 0, 1, 1, 1);
    // Union of extents.
    CVBox3f b = MakeBox(-2, 0.5f, 0.25f, 0.5f, 3, 0.75f);
    c.Union(&b);
    ExpectExtents(c, -2, 0, 0, 1, 3, 1);
    // Empty with empty stays empty.
    CVBox3f e2;
    e2.Union(&empty);
    EXPECT_TRUE(e2.IsEmpty());
    // Null does nothing.
    c.Union(static_cast<const CVBox3f*>(nullptr));
    ExpectExtents(c, -2, 0, 0, 1, 3, 1);
}

TEST(CVBox3f, AddClipInfoDoesNotClipByItself) {
    CVBox3f b = MakeBox(0, 0, 0, 2, 2, 2);
    b.AddClipInfo(Point3fStruct{1, 0, 0}, 1);
    EXPECT_TRUE(b.HaveClipList());
    EXPECT_EQ(b.GetClipInfoCount(), 1);
    ExpectExtents(b, 0, 0, 0, 2, 2, 2);
    // The next Union with a box applies the list.
    CVBox3f inner = MakeBox(0.5f, 0.5f, 0.5f, 1.5f, 1.5f, 1.5f);
    b.Union(&inner);
    ExpectExtents(b, 1, 0, 0, 2, 2, 2);
}

TEST(CVBox3f, UnionWithClipPlanesShrinks) {
    CVBox3f clipped = MakeBox(0, 0, 0, 1, 1, 1);
    clipped.AddClipInfo(Point3fStruct{1, 0, 0}, 0.25f);   // min.x >= 0.25
    clipped.AddClipInfo(Point3fStruct{0, -1, 0}, -0.5f);  // max.y <= 0.5
    CVBox3f target;
    target.Union(&clipped);
    EXPECT_TRUE(target.HaveClipList());
    EXPECT_EQ(target.GetClipInfoCount(), 2);
    ExpectExtents(target, 0.25f, 0, 0, 1, 0.5f, 1);
    // The list is kept and applied to later unions as well.
    CVBox3f more = MakeBox(-3, -3, -3, -2, 4, -2);
    target.Union(&more);
    ExpectExtents(target, 0.25f, -3, -3, 1, 0.5f, 1);
    // The source keeps its own entries.
    EXPECT_EQ(clipped.GetClipInfoCount(), 2);
    // A second union with the clipped box appends its entries again.
    target.Union(&clipped);
    EXPECT_EQ(target.GetClipInfoCount(), 4);
}

TEST(CVBox3f, UnionWithSelfDoesNotLoop) {
    CVBox3f b = MakeBox(0, 0, 0, 1, 1, 1);
    b.AddClipInfo(Point3fStruct{0, 0, 1}, 0.5f);
    b.Union(&b);
    ExpectExtents(b, 0, 0, 0.5f, 1, 1, 1);
    EXPECT_EQ(b.GetClipInfoCount(), 1);
}

TEST(CVBox3f, SubtractPlaneAxisNormals) {
    CVBox3f b = MakeBox(0, 0, 0, 4, 4, 4);
    b.SubtractPlane(Point3fStruct{1, 0, 0}, 1);
    ExpectExtents(b, 1, 0, 0, 4, 4, 4);
    b.SubtractPlane(Point3fStruct{-1, 0, 0}, -3);
    ExpectExtents(b, 1, 0, 0, 3, 4, 4);
    b.SubtractPlane(Point3fStruct{0, 1, 0}, 2);
    b.SubtractPlane(Point3fStruct{0, -1, 0}, -2.5f);
    ExpectExtents(b, 1, 2, 0, 3, 2.5f, 4);
    b.SubtractPlane(Point3fStruct{0, 0, 1}, 0.5f);
    b.SubtractPlane(Point3fStruct{0, 0, -1}, -1);
    ExpectExtents(b, 1, 2, 0.5f, 3, 2.5f, 1);
    // Planes that cut nothing leave it.
    b.SubtractPlane(Point3fStruct{1, 0, 0}, -10);
    b.SubtractPlane(Point3fStruct{-1, 0, 0}, -10);
    ExpectExtents(b, 1, 2, 0.5f, 3, 2.5f, 1);
}

TEST(CVBox3f, SubtractPlaneCollapsesToZeroExtent) {
    CVBox3f b = MakeBox(0, 0, 0, 1, 1, 1);
    b.SubtractPlane(Point3fStruct{1, 0, 0}, 3);  // min.x 3 > max.x 1
    EXPECT_FALSE(b.IsEmpty());
    ExpectExtents(b, 3, 0, 0, 3, 1, 1);
    EXPECT_NEAR(b.GetSize().x, 0.0f, 1e-6f);
    CVBox3f c = MakeBox(0, 0, 0, 1, 1, 1);
    c.SubtractPlane(Point3fStruct{0, -1, 0}, 2);  // max.y -2 < min.y 0
    ExpectExtents(c, 0, 0, 0, 1, 0, 1);
}

TEST(CVBox3f, SubtractPlaneIgnoresOtherNormalsAndEmptyBoxes) {
    CVBox3f b = MakeBox(0, 0, 0, 1, 1, 1);
    b.SubtractPlane(Point3fStruct{0.5f, 0.5f, 0}, 0.5f);
    ExpectExtents(b, 0, 0, 0, 1, 1, 1, 0);
    b.SubtractPlane(Point3fStruct{2, 0, 0}, 0.5f);  // not unit: not an axis direction
    ExpectExtents(b, 0, 0, 0, 1, 1, 1, 0);
    CVBox3f e;
    e.SubtractPlane(Point3fStruct{1, 0, 0}, 0.5f);
    EXPECT_TRUE(e.IsEmpty());
    ExpectPoint(e.GetSize(), -1, -1, -1, 0);
}

TEST(CVBox3f, IntersectIsAnOrOfTheAxes) {
    CVBox3f a = MakeBox(0, 0, 0, 1, 1, 1);
    // Overlaps only in x.
    CVBox3f b = MakeBox(0.5f, 5, 5, 1.5f, 6, 6);
    EXPECT_EQ(a.Intersect(b), 1);
    // Only in z.
    CVBox3f c = MakeBox(5, 5, 0.5f, 6, 6, 2);
    EXPECT_EQ(a.Intersect(c), 1);
    // In none.
    CVBox3f d = MakeBox(2, 2, 2, 3, 3, 3);
    EXPECT_EQ(a.Intersect(d), 0);
    // Real overlap.
    EXPECT_EQ(a.Intersect(MakeBox(0.5f, 0.5f, 0.5f, 2, 2, 2)), 1);
    // Empty boxes overlap nothing.
    CVBox3f e;
    EXPECT_EQ(a.Intersect(e), 0);
    EXPECT_EQ(e.Intersect(a), 0);
    EXPECT_EQ(e.Intersect(e), 0);
}

TEST(CVBox3f, Transform) {
    CVBox3f b = MakeBox(0, 0, 0, 2, 4, 6);
    CVMatrix t;
    t.m[0][3] = 10;
    t.m[1][3] = -1;
    b.Transform(t);
    ExpectExtents(b, 10, -1, 0, 12, 3, 6);

    // 90 degrees about z swaps the x and y extents.
    CVBox3f r = MakeBox(-1, -2, -3, 1, 2, 3);
    CVMatrix rz;
    rz.m[0][0] = 0;
    rz.m[0][1] = -1;
    rz.m[1][0] = 1;
    rz.m[1][1] = 0;
    r.Transform(rz);
    ExpectExtents(r, -2, -1, -3, 2, 1, 3);

    // Scale.
    CVBox3f s = MakeBox(1, 1, 1, 2, 2, 2);
    CVMatrix sc;
    sc.m[0][0] = 3;
    sc.m[1][1] = -1;
    s.Transform(sc);
    ExpectExtents(s, 3, -2, 1, 6, -1, 2);
}

TEST(CVBox3f, TransformStartsExtentsAtOneMillion) {
    // Every corner beyond 1e6: min stays at the start value 1e6.
    CVBox3f b;
    b.SetSize(0, 0, 0);
    b.SetCenter(2e6f, -2e6f, 0);
    b.Transform(CVMatrix());
    ExpectExtents(b, 1e6f, -2e6f, 0, 2e6f, -1e6f, 0, 1.0f);
}

TEST(CVBox3f, TransformLeavesEmptyBoxEmpty) {
    CVBox3f e;
    e.Transform(CVMatrix());
    EXPECT_TRUE(e.IsEmpty());
}

TEST(CVBox3f, CopyAndAssignCopyTheClipList) {
    CVBox3f a = MakeBox(0, 0, 0, 1, 1, 1);
    a.AddClipInfo(Point3fStruct{1, 0, 0}, 0.5f);
    CVBox3f b(a);
    EXPECT_EQ(b.GetClipInfoCount(), 1);
    EXPECT_NE(b.GetClipList(), a.GetClipList());
    ExpectExtents(b, 0, 0, 0, 1, 1, 1);
    CVBox3f c;
    c.AddClipInfo(Point3fStruct{0, 1, 0}, 0);
    c.AddClipInfo(Point3fStruct{0, 1, 0}, 0);
    c = a;
    EXPECT_EQ(c.GetClipInfoCount(), 1);
    CVBox3f d;
    c = d;  // a box without a list
    EXPECT_FALSE(c.HaveClipList());
    a.DeleteClipList();
    EXPECT_FALSE(a.HaveClipList());
    EXPECT_EQ(a.GetClipInfoCount(), 0);
    EXPECT_EQ(b.GetClipInfoCount(), 1);
}

TEST(CVBox3f, ClipListBlockSizeIsTen) {
    CVBox3f a;
    a.AddClipInfo(Point3fStruct{1, 0, 0}, 0.5f);
    EXPECT_EQ(a.GetClipList()->GetBlockSize(), 10);
}
