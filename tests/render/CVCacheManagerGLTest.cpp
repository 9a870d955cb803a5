#include <gtest/gtest.h>

#include <GL/gl.h>

#include <array>
#include <cmath>
#include <functional>

#include "geometry/CVGeometry.h"
#include "render/CVBitmapDevice.h"
#include "render/CVCacheManager.h"
#include "render/CVGLRenderArea.h"
#include "support/CVTestBitmap.h"

namespace {

class TestGeometry : public CVGeometry {
public:
    void Render(CVState*, CVGLRenderArea*, CVAppearance*) override {}
    int IsLineGeometry() const override { return lines; }
    int lines = 0;
};

std::array<float, 3> CurrentColour() {
    GLfloat c[4];
    glGetFloatv(GL_CURRENT_COLOR, c);
    return {c[0], c[1], c[2]};
}

class CVCacheManagerGLTest : public ::testing::Test {
protected:
    CVCacheManagerGLTest() : bitmap(16, 16), device(bitmap.GetDC()) {
        area = new CVGLRenderArea(&device);
        area->Ref();
    }
    ~CVCacheManagerGLTest() override { area->Unref(); }

    static void Compile(unsigned int id) {
        glNewList(id, GL_COMPILE);
        glEndList();
    }

    CVTestBitmap bitmap;
    CVBitmapDevice device;
    CVGLRenderArea* area;
    CVCacheManager manager;
};

TEST_F(CVCacheManagerGLTest, SphereLookupNeedsTheKeyAndACompiledList) {
    ASSERT_NE(CVGetCacheManagerPtr(), nullptr);  // made at library load
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
    EXPECT_FLOAT_EQ(manager.m_CurrentColor.r, -1.0f);  // unknown until set
    RGBAColorStruct c = {0.2f, 0.4f, 0.6f, 0.1f};
    manager.SetGLColor(&c);
    EXPECT_FLOAT_EQ(manager.m_CurrentColor.g, 0.4f);
    GLfloat cur[4];
    glGetFloatv(GL_CURRENT_COLOR, cur);
    EXPECT_FLOAT_EQ(cur[3], 1.0f);
    glColor3f(0, 0, 0);
    manager.SetGLColor(&c);  // same colour again still reaches GL
    EXPECT_EQ(CurrentColour(), (std::array<float, 3>{0.2f, 0.4f, 0.6f}));
    manager.InitGLColor();
    EXPECT_FLOAT_EQ(manager.m_CurrentColor.b, -1.0f);
}

// Each case: how the geometry is marked (none: no geometry), the code, and the
// colour expected (none: the colour is left as it was).
struct CodeCase {
    const char* name;
    std::function<void(TestGeometry&)> mark;
    int value;
    bool lineMode;
    std::array<float, 3> rgb;
};

void ExpectCodes(CVCacheManager& manager, int bits, std::initializer_list<CodeCase> cases) {
    for (const CodeCase& c : cases) {
        SCOPED_TRACE(c.name);
        TestGeometry g;
        if (c.mark) c.mark(g);
        glColor3ub(11, 22, 33);
        glPolygonMode(GL_FRONT_AND_BACK, c.lineMode ? GL_LINE : GL_FILL);
        manager.SetImageMapColor(bits, c.value, c.mark ? &g : nullptr);
        glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
        const std::array<float, 3> got = CurrentColour();
        for (int i = 0; i < 3; ++i) EXPECT_NEAR(got[i], c.rgb[i], 1e-6f) << "component " << i;
    }
}

std::array<float, 3> Bytes(int r, int g, int b) { return {r / 255.0f, g / 255.0f, b / 255.0f}; }

TEST_F(CVCacheManagerGLTest, TrueColourImageMapCodes) {
    ExpectCodes(manager, 24, {
        {"Plain", nullptr, 0x00030405, false, Bytes(3, 4, 5)},
        {"Annotation", [](CVGeometry& g) { g.SetAnnotationFlag(1); }, 0x01020304, false, Bytes(64 | 2, 3, 4)},
        {"Overlay5", [](CVGeometry& g) { g.SetCrdOverlayIndex(5); }, 0x00010203, false, Bytes(20 | 1, 2, 3)},
        {"PieSlice", [](CVGeometry& g) { g.SetDetailPieSlice(1); }, -7, false, Bytes(128, 0, 7)},
        {"GraphShape", [](CVGeometry& g) { g.SetGraphShapeFlag(1); }, 0x02000009, false, Bytes(2 * 4 + 4, 0, 9)},
        {"Graph15SetsNothing", [](CVGeometry& g) { g.SetGraphShapeFlag(1); }, 0x0F000001, false, Bytes(11, 22, 33)},
        {"Overlay16SetsNothing", [](CVGeometry& g) { g.SetCrdOverlayIndex(16); }, 1, false, Bytes(11, 22, 33)},
    });
}

// 16 bits: r from the overlay (8 for annotations; graph shapes: 16 if negative
// | bits 24-26 + 1), g = bits 5-9, b = bits 0-4, each through the fill ramp, or
// the line ramp in line mode or for line geometry.
TEST_F(CVCacheManagerGLTest, HighColourCodesUseTheFillOrTheLineRamp) {
    ExpectCodes(manager, 16, {
        {"Fill", [](CVGeometry& g) { g.SetCrdOverlayIndex(3); }, 0x123, false, {0.1115f, 0.305f, 0.1115f}},
        {"Line", [](CVGeometry& g) { g.SetCrdOverlayIndex(3); }, 0x123, true, {0.096f, 0.29f, 0.096f}},
        {"LineGeometry", [](TestGeometry& g) { g.SetCrdOverlayIndex(3); g.lines = 1; }, 0x123, false, {0.096f, 0.29f, 0.096f}},
        {"Annotation", [](CVGeometry& g) { g.SetAnnotationFlag(1); }, 31, false, {0.273f, 0.0f, 1.0f}},
        {"GraphShape", [](CVGeometry& g) { g.SetGraphShapeFlag(1); }, -0x4021, false, {0.789f, 0.982f, 1.0f}},
    });
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
