#include <gtest/gtest.h>

#include <vector>

#include "math/CVViewport.h"

TEST(CVViewport, SetStoresTheRectangleAndComputesTheAspect) {
    CVViewport v;
    EXPECT_EQ(v.GetAspectRatio(), 1.0f);
    v.Set(10, 20, 300, 200);
    int l, b, w, h;
    v.Get(l, b, w, h);
    EXPECT_EQ((std::vector<int>{l, b, w, h}), (std::vector<int>{10, 20, 300, 200}));
    EXPECT_FLOAT_EQ(v.GetAspectRatio(), 1.5f);
    v.Set(0, 0, 100, 0);  // no height: 1
    EXPECT_EQ(v.GetAspectRatio(), 1.0f);
    v.Set(0, 0, 0, 50);
    EXPECT_EQ(v.GetAspectRatio(), 0.0f);
}

TEST(CVViewport, PointInViewportIncludesBothEdges) {
    const CVViewport v(10, 20, 100, 50);
    const struct {
        int x, y, inside;
    } cases[] = {{10, 20, 1}, {110, 20, 1}, {110, 70, 1}, {60, 45, 1},
                 {111, 20, 0}, {9, 20, 0},  {10, 71, 0},  {10, 19, 0}};
    for (const auto& c : cases) EXPECT_EQ(v.PointInViewport(c.x, c.y), c.inside) << c.x << "," << c.y;
}
