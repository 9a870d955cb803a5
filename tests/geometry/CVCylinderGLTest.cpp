#include "support/CVGeometryTestSupport.h"

namespace {

using cvtest::GetInt;

class CVCylinderGLTest : public cvtest::GeometryFixture {
protected:
    CVCylinder* MakeCylinder(float radius, float height) { return cvtest::Shaped(Make<CVCylinder>(), radius, height); }
};

TEST_F(CVCylinderGLTest, DefaultPrecisionGrowsWithTheRadiusOnce) {
    const struct {
        const char* name;
        float radius;
        int before, after;
    } cases[] = {
        {"Wide", 0.2f, 14, 26},          {"Medium", 0.07f, 14, 20},   {"Narrow", 0.04f, 14, 14},
        {"AtTheFirstStep", 0.05f, 14, 14}, {"SetByHand", 0.2f, 15, 15}, {"NegativeRadius", -0.5f, 14, 14},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        CVCylinder* cylinder = MakeCylinder(c.radius, 2.0f);
        cylinder->precision = c.before;
        Draw(cylinder);
        EXPECT_EQ(cylinder->precision, c.after);
        cylinder->radius.SetValue(0.01f);  // grown once: stays
        Draw(cylinder);
        EXPECT_EQ(cylinder->precision, c.after);
    }
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
}

TEST_F(CVCylinderGLTest, OneListServesEveryHeight) {
    CVCacheManager* cache = FreshCacheManager();
    CVCylinder* a = MakeCylinder(0.5f, 1.0f);
    Draw(a);
    EXPECT_EQ(a->IsModified(), 0);
    EXPECT_EQ(cache->GetCachedCylinder(26, 0.5f, 1.0f, 1, 1, 1), 3000u);

    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    CVCylinder* b = MakeCylinder(0.5f, 3.0f);
    Draw(b);
    EXPECT_NE(b->IsModified(), 0);  // replayed, not compiled
    EXPECT_EQ(cvtest::Corners(LitBounds()), (std::array<int, 4>{24, 8, 39, 55}));

    CVCylinder* c = MakeCylinder(0.5f, 1.0f);
    c->top.SetValue(0);
    Draw(c);
    EXPECT_EQ(cache->GetCachedCylinder(26, 0.5f, 1.0f, 0, 1, 1), 3001u);
}

TEST_F(CVCylinderGLTest, NegativeHeightDrawsTheSameCylinderAsLines) {
    Draw(MakeCylinder(0.5f, -2.0f));
    EXPECT_EQ(FrontPolygonMode(), GL_LINE);
    const cvtest::PixelBounds b = LitBounds();
    EXPECT_GE(b.y0, 15);
    EXPECT_LE(b.y1, 48);
    EXPECT_GE(b.y1, 47);
}

TEST_F(CVCylinderGLTest, TextureMatricesBalanceWhenNotCompliant) {
    for (int compliant : {0, 1}) {
        for (int pass = 0; pass < 2; ++pass) {  // compile, then replay
            CVCylinder* c = MakeCylinder(0.25f, 1.0f);
            c->SetVRMLCompliantFlag(compliant);
            Draw(c);
            EXPECT_EQ(GetInt(GL_TEXTURE_STACK_DEPTH), 1);
            EXPECT_EQ(GetInt(GL_MATRIX_MODE), GL_MODELVIEW);
            EXPECT_EQ(GetInt(GL_MODELVIEW_STACK_DEPTH), 1);
            EXPECT_TRUE(glIsEnabled(GL_CULL_FACE));  // the caps' culling switch is undone
        }
    }
}

TEST_F(CVCylinderGLTest, PartialSelectionFillsTheSideUpToThePercent) {
    CVCylinder* c = MakeCylinder(0.5f, 1.0f);
    area->SetSelectionColor(RGBColorStruct{1.0f, 0.0f, 0.0f});
    c->SetStippledFlag(1);
    c->SetPartialSelectionFlag(1);
    c->SetStipplePercent(50);
    Draw(c);
    int below = 0, above = 0;
    for (int x = 26; x <= 37; ++x) {
        for (int y = 25; y <= 30; ++y) below += Pixel(x, y) == 0xFF0000u;
        for (int y = 34; y <= 38; ++y) above += Pixel(x, y) == 0xFF0000u;
    }
    EXPECT_GT(below, 0);
    EXPECT_EQ(above, 0);
    EXPECT_EQ(FrontPolygonMode(), GL_LINE);  // the fill level's outline leaves it so
}

}  // namespace
