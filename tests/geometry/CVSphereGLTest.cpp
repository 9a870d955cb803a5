#include "support/CVGeometryTestSupport.h"

namespace {

using cvtest::Corners;
using cvtest::Shaped;

// |radius| x 360, truncated, picks the step.
TEST(CVSphereTest, CalculateSpherePrecision) {
    const struct {
        float radius;
        int precision;
    } cases[] = {{0.0f, 12},   {0.0334f, 12}, {0.036f, 12}, {0.04f, 16}, {0.0445f, 16}, {0.05f, 24},
                 {0.067f, 24}, {0.0695f, 36}, {0.1f, 36},   {0.2f, 48},  {-0.05f, 24}};
    for (const auto& c : cases) EXPECT_EQ(CVSphere::CalculateSpherePrecision(c.radius), c.precision) << c.radius;
}

using CVSphereGLTest = cvtest::GeometryFixture;

TEST_F(CVSphereGLTest, RenderStoresTheEvenClampedPrecisionAndLeavesTheFlags) {
    const struct {
        float radius;
        int before, after;
    } cases[] = {{1.0f, 13, 14}, {1.0f, 7, 8}, {1.0f, 100, 48}, {1.0f, 48, 48}, {-1.0f, 36, 12}, {-1.0f, 13, 12}};
    for (const auto& c : cases) {
        auto* s = Shaped(Make<CVSphere>(), c.radius);
        s->precision = c.before;
        Draw(s);
        EXPECT_EQ(s->precision, c.after) << "radius " << c.radius << ", precision " << c.before;
        EXPECT_NE(s->IsModified(), 0);
    }
}

// Twelve slices: the outline's edges come within cos 15 deg of the radius.
// Negative, the lines of the same sphere leave it open inside: a filled
// sphere lights all 256 pixels of the inner square, the lines about 100.
TEST_F(CVSphereGLTest, DrawsADiscOfItsRadiusOrItsLines) {
    Draw(Make<CVSphere>());
    EXPECT_EQ(Corners(LitBounds()), (std::array<int, 4>{16, 16, 47, 47}));
    EXPECT_TRUE(Lit(0.65f, 0.65f));
    EXPECT_FALSE(Lit(0.75f, 0.75f));
    EXPECT_EQ(FrontPolygonMode(), GL_FILL);

    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    Draw(Shaped(Make<CVSphere>(), -1.0f));
    EXPECT_EQ(FrontPolygonMode(), GL_LINE);
    EXPECT_EQ(LitBounds().x0, 16);
    EXPECT_EQ(LitBounds().x1, 47);
    EXPECT_LT(CountLit(24, 24, 39, 39), 192);
}

TEST_F(CVSphereGLTest, EqualSpheresShareOneList) {
    CVCacheManager* cache = FreshCacheManager();
    CVSphere *a = Shaped(Make<CVSphere>(), 0.5f), *b = Shaped(Make<CVSphere>(), 0.5f);
    Draw(a);
    EXPECT_EQ(cache->GetCachedSphere(12, 0.5f), 1000u);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    Draw(b);  // replayed from list 1000
    EXPECT_EQ(LitBounds().x1, 39);
    // b took no entry of its own: the next new sphere gets the second one.
    Draw(Shaped(Make<CVSphere>(), 0.75f));
    EXPECT_EQ(cache->GetCachedSphere(12, 0.75f), 1001u);
    b->precision = 24;  // a changed field selects another list
    Draw(b);
    EXPECT_EQ(cache->GetCachedSphere(24, 0.5f), 1002u);
}

TEST_F(CVSphereGLTest, The129thSphereRecompilesList1000) {
    CVCacheManager* cache = FreshCacheManager();
    const int kCount = CVCacheManager::kRingSize + 1;
    auto radius = [](int i) { return 0.3f + 0.01f * i; };
    for (int i = 0; i < kCount; ++i) Draw(Shaped(Make<CVSphere>(), radius(i)));
    EXPECT_EQ(cache->GetCachedSphere(12, radius(kCount - 1)), 1000u);
    EXPECT_EQ(cache->GetCachedSphere(12, radius(0)), 0u);
    EXPECT_EQ(cache->GetCachedSphere(12, radius(1)), 1001u);
    // List 1000 now holds the last sphere (radius 1.58: about 50 pixels across).
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glCallList(1000);
    const cvtest::PixelBounds b = LitBounds();
    EXPECT_NEAR(b.x1 - b.x0 + 1, 2 * 1.58 * 16, 2);
}

}  // namespace
