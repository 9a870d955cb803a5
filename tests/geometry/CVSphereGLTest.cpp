#include <gtest/gtest.h>

#include <GL/gl.h>

#include <string>

#include "geometry/CVSphere.h"
#include "support/CVGeometryTestSupport.h"

namespace {

struct PrecisionCase {
    const char* name;
    float radius;
    int precision;
};

class CVSpherePrecisionTest : public ::testing::TestWithParam<PrecisionCase> {};

TEST_P(CVSpherePrecisionTest, CalculateSpherePrecision) {
    EXPECT_EQ(CVSphere::CalculateSpherePrecision(GetParam().radius), GetParam().precision);
}

// In brackets: |radius| x 360, truncated.
const PrecisionCase kPrecisions[] = {
    {"Zero", 0.0f, 12},           {"Tiny_p12", 0.0334f, 12},   {"Just12_p12", 0.036f, 12},
    {"Step16_p14", 0.04f, 16},    {"Top16_p16", 0.0445f, 16},  {"Step24_p18", 0.05f, 24},
    {"Top24_p24", 0.067f, 24},    {"Step36_p25", 0.0695f, 36}, {"Top36_p36", 0.1f, 36},
    {"Large_p72", 0.2f, 48},      {"Negative_p18", -0.05f, 24},
};
INSTANTIATE_TEST_SUITE_P(Radii, CVSpherePrecisionTest, ::testing::ValuesIn(kPrecisions),
                         [](const auto& info) { return std::string(info.param.name); });

using CVSphereGLTest = cvtest::GeometryFixture;

TEST_F(CVSphereGLTest, RenderStoresTheEvenClampedPrecision) {
    const struct {
        float radius;
        int before, after;
    } cases[] = {{1.0f, 13, 14}, {1.0f, 7, 8}, {1.0f, 100, 48}, {1.0f, 48, 48}, {-1.0f, 36, 12}, {-1.0f, 13, 12}};
    for (const auto& c : cases) {
        auto* s = Make<CVSphere>();
        s->radius.SetValue(c.radius);
        s->precision = c.before;
        Draw(s);
        EXPECT_EQ(s->precision, c.after) << "radius " << c.radius << ", precision " << c.before;
        EXPECT_NE(s->IsModified(), 0);  // the sphere leaves its flags alone
    }
}

TEST_F(CVSphereGLTest, DrawsADiscOfItsRadius) {
    auto* s = Make<CVSphere>();
    Draw(s);
    const cvtest::PixelBounds b = LitBounds();
    EXPECT_EQ(b.x0, 16);
    EXPECT_EQ(b.x1, 47);
    EXPECT_EQ(b.y0, 16);
    EXPECT_EQ(b.y1, 47);
    // Twelve slices: the outline's edges come within cos 15 deg of the radius.
    EXPECT_TRUE(Lit(0.65f, 0.65f));
    EXPECT_FALSE(Lit(0.75f, 0.75f));
    EXPECT_EQ(FrontPolygonMode(), GL_FILL);
}

TEST_F(CVSphereGLTest, NegativeRadiusDrawsLinesOfTheSameSphere) {
    auto* s = Make<CVSphere>();
    s->radius.SetValue(-1.0f);
    Draw(s);
    EXPECT_EQ(FrontPolygonMode(), GL_LINE);
    const cvtest::PixelBounds b = LitBounds();
    EXPECT_EQ(b.x0, 16);
    EXPECT_EQ(b.x1, 47);
    // Open inside: a filled sphere lights all 256 pixels of this square.
    EXPECT_LT(CountLit(24, 24, 39, 39), 192);  // the lines light about 100
}

TEST_F(CVSphereGLTest, EqualSpheresShareOneList) {
    CVCacheManager* cache = FreshCacheManager();
    auto* a = Make<CVSphere>();
    auto* b = Make<CVSphere>();
    a->radius.SetValue(0.5f);
    b->radius.SetValue(0.5f);
    Draw(a);
    EXPECT_EQ(cache->GetCachedSphere(12, 0.5f), 1000u);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    Draw(b);  // replayed from list 1000
    EXPECT_EQ(LitBounds().x1, 39);
    // b took no entry of its own: the next new sphere gets the second one.
    auto* c = Make<CVSphere>();
    c->radius.SetValue(0.75f);
    Draw(c);
    EXPECT_EQ(cache->GetCachedSphere(12, 0.75f), 1001u);
    // A changed field selects another list.
    b->precision = 24;
    Draw(b);
    EXPECT_EQ(cache->GetCachedSphere(24, 0.5f), 1002u);
}

TEST_F(CVSphereGLTest, The129thSphereRecompilesList1000) {
    CVCacheManager* cache = FreshCacheManager();
    const int kCount = CVCacheManager::kRingSize + 1;
    auto radius = [](int i) { return 0.3f + 0.01f * i; };
    for (int i = 0; i < kCount; ++i) {
        auto* s = Make<CVSphere>();
        s->radius.SetValue(radius(i));
        Draw(s);
    }
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
