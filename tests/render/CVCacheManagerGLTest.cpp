#include <gtest/gtest.h>

#include <GL/gl.h>

#include <array>
#include <cmath>

#include "geometry/CVGeometry.h"
#include "render/CVBitmapDevice.h"
#include "render/CVCacheManager.h"
#include "render/CVGLRenderArea.h"
#include "support/CVTestBitmap.h"

namespace {

class TestGeometry : public CVGeometry {
public:
    void Render(CVState*, CVGLRenderArea*, CVAppearance*) override {}
};

class CVCacheManagerGLTest : public ::testing::Test {
protected:
    CVCacheManagerGLTest() : bitmap(16, 16), device(bitmap.GetDC()) {
        area = new CVGLRenderArea(&device);
        area->Ref();
    }
    ~CVCacheManagerGLTest() override { area->Unref(); }

    void Compile(unsigned int id) {
        glNewList(id, GL_COMPILE);
        glEndList();
    }
    // The current colour as 8-bit components.
    std::array<int, 3> Colour() {
        GLfloat c[4];
        glGetFloatv(GL_CURRENT_COLOR, c);
        return {(int)std::lround(c[0] * 255), (int)std::lround(c[1] * 255), (int)std::lround(c[2] * 255)};
    }
    std::array<float, 3> ColourF() {
        GLfloat c[4];
        glGetFloatv(GL_CURRENT_COLOR, c);
        return {c[0], c[1], c[2]};
    }

    CVTestBitmap bitmap;
    CVBitmapDevice device;
    CVGLRenderArea* area;
    CVCacheManager manager;
};

TEST_F(CVCacheManagerGLTest, TheLibraryCreatesOneManagerAtLoad) {
    ASSERT_NE(CVGetCacheManagerPtr(), nullptr);
    EXPECT_EQ(CVGetCacheManagerPtr()->GetGLRenderAreaCache(), nullptr);
    EXPECT_FLOAT_EQ(manager.m_CurrentColor.r, -1.0f);
    EXPECT_FLOAT_EQ(manager.m_fShininess, -1.0f);
}

TEST_F(CVCacheManagerGLTest, SphereLookupNeedsTheKeyAndACompiledList) {
    EXPECT_EQ(manager.GetCachedSphere(12, 1.0f), 0u);
    unsigned int id = manager.NewCachedSphere(12, 1.0f);
    EXPECT_EQ(id, 1000u);
    EXPECT_EQ(manager.GetCachedSphere(12, 1.0f), 0u);  // not compiled yet
    Compile(id);
    EXPECT_EQ(manager.GetCachedSphere(12, 1.0f), 1000u);
    EXPECT_EQ(manager.GetCachedSphere(12, 1.5f), 0u);
    EXPECT_EQ(manager.GetCachedSphere(16, 1.0f), 0u);
    glDeleteLists(id, 1);
}

TEST_F(CVCacheManagerGLTest, RingsReplaceRoundRobin) {
    for (int i = 0; i < CVCacheManager::kRingSize; ++i)
        EXPECT_EQ(manager.NewCachedCone(16, (float)i, 2.0f, 1, 1), 2000u + i);
    EXPECT_EQ(manager.NewCachedCone(16, 500.0f, 2.0f, 1, 1), 2000u);  // the 129th
    Compile(2000);
    Compile(2001);
    EXPECT_EQ(manager.GetCachedCone(16, 500.0f, 2.0f, 1, 1), 2000u);
    EXPECT_EQ(manager.GetCachedCone(16, 0.0f, 2.0f, 1, 1), 0u);  // overwritten
    EXPECT_EQ(manager.GetCachedCone(16, 1.0f, 2.0f, 1, 1), 2001u);
    EXPECT_EQ(manager.GetCachedCone(16, 1.0f, 2.0f, 0, 1), 0u);

    EXPECT_EQ(manager.NewCachedCylinder(14, 1.0f, 2.0f, 1, 1, 1), 3000u);
    Compile(3000);
    EXPECT_EQ(manager.GetCachedCylinder(14, 1.0f, 2.0f, 1, 1, 1), 3000u);
    EXPECT_EQ(manager.GetCachedCylinder(14, 1.0f, 2.0f, 1, 0, 1), 0u);
    glDeleteLists(2000, 2);
    glDeleteLists(3000, 1);
}

TEST_F(CVCacheManagerGLTest, SetGLColorIssuesEveryCallAndIgnoresAlpha) {
    RGBAColorStruct c = {0.2f, 0.4f, 0.6f, 0.1f};
    manager.SetGLColor(&c);
    EXPECT_FLOAT_EQ(manager.m_CurrentColor.g, 0.4f);
    GLfloat cur[4];
    glGetFloatv(GL_CURRENT_COLOR, cur);
    EXPECT_FLOAT_EQ(cur[3], 1.0f);
    glColor3f(0, 0, 0);
    manager.SetGLColor(&c);  // same colour again still reaches GL
    glGetFloatv(GL_CURRENT_COLOR, cur);
    EXPECT_FLOAT_EQ(cur[2], 0.6f);
    manager.InitGLColor();
    EXPECT_FLOAT_EQ(manager.m_CurrentColor.b, -1.0f);
}

TEST_F(CVCacheManagerGLTest, TrueColourImageMapCodes) {
    TestGeometry g;
    manager.SetImageMapColor(24, 0x00030405, nullptr);
    EXPECT_EQ(Colour(), (std::array<int, 3>{3, 4, 5}));

    g.SetAnnotationFlag(1);
    manager.SetImageMapColor(24, 0x01020304, &g);
    EXPECT_EQ(Colour(), (std::array<int, 3>{64 | 2, 3, 4}));

    TestGeometry overlay;
    overlay.SetCrdOverlayIndex(5);
    manager.SetImageMapColor(24, 0x00010203, &overlay);
    EXPECT_EQ(Colour(), (std::array<int, 3>{20 | 1, 2, 3}));

    TestGeometry pie;
    pie.SetDetailPieSlice(1);
    manager.SetImageMapColor(24, -7, &pie);
    EXPECT_EQ(Colour(), (std::array<int, 3>{128, 0, 7}));

    TestGeometry graph;
    graph.SetGraphShapeFlag(1);
    manager.SetImageMapColor(24, 0x02000009, &graph);
    EXPECT_EQ(Colour(), (std::array<int, 3>{2 * 4 + 4, 0, 9}));
}

TEST_F(CVCacheManagerGLTest, SomeTrueColourCodesSetNoColourAtAll) {
    glColor3ub(11, 22, 33);
    TestGeometry graph;
    graph.SetGraphShapeFlag(1);
    manager.SetImageMapColor(24, 0x0F000001, &graph);
    EXPECT_EQ(Colour(), (std::array<int, 3>{11, 22, 33}));
    TestGeometry overlay;
    overlay.SetCrdOverlayIndex(16);
    manager.SetImageMapColor(24, 1, &overlay);
    EXPECT_EQ(Colour(), (std::array<int, 3>{11, 22, 33}));
}

TEST_F(CVCacheManagerGLTest, HighColourCodesUseTheFillOrTheLineRamp) {
    TestGeometry g;
    g.SetCrdOverlayIndex(3);
    // value 0x123: g = bits 5-9 = 9, b = bits 0-4 = 3.
    manager.SetImageMapColor(16, 0x123, &g);
    auto fill = ColourF();
    EXPECT_FLOAT_EQ(fill[0], 0.1115f);
    EXPECT_FLOAT_EQ(fill[1], 0.305f);
    EXPECT_FLOAT_EQ(fill[2], 0.1115f);
    glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
    manager.SetImageMapColor(16, 0x123, &g);
    auto line = ColourF();
    EXPECT_FLOAT_EQ(line[0], 0.096f);
    EXPECT_FLOAT_EQ(line[1], 0.29f);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);

    TestGeometry annotation;
    annotation.SetAnnotationFlag(1);
    manager.SetImageMapColor(16, 31, &annotation);
    auto a = ColourF();
    EXPECT_FLOAT_EQ(a[0], 0.273f);  // r = 8
    EXPECT_FLOAT_EQ(a[2], 1.0f);

    TestGeometry graph;
    graph.SetGraphShapeFlag(1);
    manager.SetImageMapColor(16, -(0x4021), &graph);  // negative: 16 | ((bits 24-26) + 1)
    auto gr = ColourF();
    int idx = 16 | ((((-(0x4021)) >> 24) & 0x7) + 1);
    EXPECT_FLOAT_EQ(gr[0], (std::array<float, 32>{0.0f, 0.047f, 0.079f, 0.1115f, 0.144f, 0.176f, 0.208f, 0.2405f, 0.273f,
                                                 0.305f, 0.337f, 0.3695f, 0.402f, 0.434f, 0.466f, 0.4985f, 0.531f, 0.563f,
                                                 0.595f, 0.6275f, 0.66f, 0.692f, 0.724f, 0.7565f, 0.789f, 0.821f, 0.853f,
                                                 0.8855f, 0.918f, 0.95f, 0.982f, 1.0f})[idx]);
}

TEST_F(CVCacheManagerGLTest, RenderAreaCacheIsMadeOnceAndReleasedWithTheManager) {
    CVTestBitmap reference(1, 1);
    CVCacheManager* own = new CVCacheManager;
    own->DeleteCachedDisplayLists(1000, 1);  // ignored: no cache yet
    own->CreateGLRenderAreaCache(reference.GetDC());
    CVGLRenderArea* cache = own->GetGLRenderAreaCache();
    ASSERT_NE(cache, nullptr);
    EXPECT_NE(cache->GetHGLRC(), nullptr);
    EXPECT_EQ(cache->GetRef(), 2);  // the manager's and its DIB action's
    own->CreateGLRenderAreaCache(reference.GetDC());
    EXPECT_EQ(own->GetGLRenderAreaCache(), cache);
    EXPECT_EQ(cache->GetRef(), 2);
    EXPECT_EQ(area->SetRenderCache(cache), 1);  // bitmap areas share lists with it

    cache->Ref();
    delete own;
    EXPECT_EQ(cache->GetRef(), 1);  // both released: only ours is left
    cache->Unref();
}

}  // namespace
