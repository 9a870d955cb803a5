#include <gtest/gtest.h>

#include "math/CVViewport.h"

TEST(CVViewport, Default) {
    CVViewport v;
    int l, b, w, h;
    v.Get(l, b, w, h);
    EXPECT_EQ(l, 0);
    EXPECT_EQ(b, 0);
    EXPECT_EQ(w, 1);
    EXPECT_EQ(h, 1);
    EXPECT_EQ(v.GetAspectRatio(), 1.0f);
}

TEST(CVViewport, SetComputesAspect) {
    CVViewport v;
    v.Set(10, 20, 300, 200);
    EXPECT_EQ(v.GetLeft(), 10);
    EXPECT_EQ(v.GetBottom(), 20);
    EXPECT_EQ(v.GetWidth(), 300);
    EXPECT_EQ(v.GetHeight(), 200);
    EXPECT_FLOAT_EQ(v.GetAspectRatio(), 1.5f);
    v.Set(0, 0, 100, 0);
    EXPECT_EQ(v.GetAspectRatio(), 1.0f);
    v.Set(0, 0, 0, 50);
    EXPECT_EQ(v.GetAspectRatio(), 0.0f);
}

TEST(CVViewport, PointInViewportIsInclusive) {
    CVViewport v;
    v.Set(0, 0, 100, 50);
    EXPECT_EQ(v.PointInViewport(100, 0), 1);
    EXPECT_EQ(v.PointInViewport(0, 0), 1);
    EXPECT_EQ(v.PointInViewport(100, 50), 1);
    EXPECT_EQ(v.PointInViewport(50, 25), 1);
    EXPECT_EQ(v.PointInViewport(101, 0), 0);
    EXPECT_EQ(v.PointInViewport(-1, 0), 0);
    EXPECT_EQ(v.PointInViewport(0, 51), 0);
    EXPECT_EQ(v.PointInViewport(0, -1), 0);
    v.Set(10, 20, 5, 5);
    EXPECT_EQ(v.PointInViewport(10, 20), 1);
    EXPECT_EQ(v.PointInViewport(15, 25), 1);
    EXPECT_EQ(v.PointInViewport(9, 20), 0);
    EXPECT_EQ(v.PointInViewport(16, 25), 0);
}

TEST(CVViewport, Assignment) {
    CVViewport a;
    a.Set(1, 2, 30, 10);
    CVViewport b;
    b = a;
    EXPECT_EQ(b.GetLeft(), 1);
    EXPECT_EQ(b.GetHeight(), 10);
    EXPECT_FLOAT_EQ(b.GetAspectRatio(), 3.0f);
}
