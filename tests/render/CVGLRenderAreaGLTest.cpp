#include <gtest/gtest.h>

#include <GL/gl.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "library/CVLibrary.h"
#include "math/CVBox3f.h"
#include "nodes/CVDirectionalLight.h"
#include "platform/CException.h"
#include "render/CVBitmapDevice.h"
#include "render/CVGLRenderArea.h"
#include "support/CVTestBitmap.h"

namespace {

std::array<GLint, 4> GetInts(GLenum what) {
    std::array<GLint, 4> v{};
    glGetIntegerv(what, v.data());
    return v;
}

class CVGLRenderAreaGLTest : public ::testing::Test {
protected:
    CVGLRenderAreaGLTest() : bitmap(64, 64), device(bitmap.GetDC()) {
        area = new CVGLRenderArea(&device);
        area->Ref();
    }
    ~CVGLRenderAreaGLTest() override {
        area->ResetTransparentNodeList();
        area->ResetAnnotationNodeList();
        area->Unref();
        CVLibrary::ResetSettings();
    }
    CVTestBitmap bitmap;
    CVBitmapDevice device;
    CVGLRenderArea* area;
};

TEST_F(CVGLRenderAreaGLTest, InitializeLeavesTheDocumentedGLState) {
    ASSERT_NE(area->GetHGLRC(), nullptr);
    EXPECT_EQ(wglGetCurrentContext(), area->GetHGLRC());
    for (GLenum on : {GL_DEPTH_TEST, GL_COLOR_MATERIAL, GL_CULL_FACE, GL_NORMALIZE}) EXPECT_TRUE(glIsEnabled(on)) << on;
    EXPECT_FALSE(glIsEnabled(GL_BLEND));
    GLint env = 0, mag = 0;
    glGetTexEnviv(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, &env);
    glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, &mag);
    EXPECT_EQ(std::vector<GLint>({GetInts(GL_DEPTH_FUNC)[0], GetInts(GL_BLEND_SRC)[0], GetInts(GL_BLEND_DST)[0],
                                  GetInts(GL_MATRIX_MODE)[0], env, mag}),
              std::vector<GLint>(
                  {GL_LEQUAL, GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_MODELVIEW, GL_MODULATE, GL_NEAREST}));
    EXPECT_GE(area->GetMaxLights(), 8);
    EXPECT_EQ(area->GetStipplePattern(), 0);
    GLubyte stipple[128];
    glGetPolygonStipple(stipple);
    EXPECT_EQ(std::vector<int>({stipple[0], stipple[4 * 7], stipple[4 * 8]}), std::vector<int>({0x80, 0x01, 0x80}));

    PIXELFORMATDESCRIPTOR requested;
    area->GetPFD(requested);
    EXPECT_EQ(requested.dwFlags, (DWORD)(PFD_DRAW_TO_BITMAP | PFD_SUPPORT_OPENGL | PFD_SUPPORT_GDI));
    EXPECT_EQ(requested.cDepthBits, 32);
    const BYTE* mask = area->GetHalftoneMask();
    EXPECT_EQ(mask[0], 0x55);
    EXPECT_EQ(mask[4], 0xAA);

    area->SetDropShadowColor(RGBColorStruct{1.0f, 0.0f, 0.0f});
    EXPECT_FLOAT_EQ(area->GetDropShadowColor().r, 1.0f);
    EXPECT_FLOAT_EQ(area->GetDropShadowColor().a, 0.5f);  // the RGB form keeps the alpha
}

TEST_F(CVGLRenderAreaGLTest, ViewportIsInflatedAndScaled) {
    const struct {
        const char* name;
        int inflate;
        float scale;
        std::array<GLint, 4> glViewport;
    } cases[] = {
        {"Inflation3", 1, 1.0f, {-100, -50, 300, 150}},
        {"Inflation1", 0, 1.0f, {0, 0, 100, 50}},
        {"Inflation1Scale05", 0, 0.5f, {0, 25, 50, 25}},
        {"Inflation3Scale05", 1, 0.5f, {-50, 0, 150, 75}},
        {"ScaleAboveOneActsAsOne", 0, 2.0f, {0, 0, 100, 50}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        CVGLRenderArea::SetInflateWorld(c.inflate);
        area->SetGlobalScaleFactor(c.scale);
        area->SetViewport(0, 0, 100, 50);
        EXPECT_EQ(GetInts(GL_VIEWPORT), c.glViewport);
        EXPECT_EQ((bool)glIsEnabled(GL_SCISSOR_TEST), c.inflate != 0);  // the inflated viewport is cut back
        if (c.inflate) {
            EXPECT_EQ(GetInts(GL_SCISSOR_BOX), (std::array<GLint, 4>{0, 0, 100, 50}));
        }
        int x, y, w, h;
        area->GetViewport(x, y, w, h);
        EXPECT_EQ(w, 100);
        EXPECT_FLOAT_EQ(area->GetViewportAspectRatio(), 2.0f);
    }
    area->SetGlobalScaleFactor(1.0f);
    CVLibrary::ResetSettings();
    area->SetViewport(10, 20, 100, 50);
    int v[4];
    area->GetGLViewport(v);
    EXPECT_EQ(std::vector<int>(v, v + 4), (std::vector<int>{-90, -30, 300, 150}));
    CVGLRenderArea::SetInflateWorld(0);
    EXPECT_FLOAT_EQ(CVGLRenderArea::GetWorldInflationFactor(), 1.0f);
    area->GetGLViewport(v);
    EXPECT_EQ(std::vector<int>(v, v + 4), (std::vector<int>{10, 20, 100, 50}));
}

TEST_F(CVGLRenderAreaGLTest, StipplePatternLoadsOnceAndRefusesValuesAboveOne) {
    area->SetStipplePattern(1);
    GLubyte got[128];
    glGetPolygonStipple(got);
    EXPECT_EQ(got[0], 0xC0);
    EXPECT_EQ(got[4 * 7 + 3], 0x81);
    // Overwrite behind the area's back: a second identical call must not reload.
    GLubyte foreign[128];
    std::fill(foreign, foreign + 128, 0x0F);
    glPolygonStipple(foreign);
    area->SetStipplePattern(1);
    area->SetStipplePattern(3);
    glGetPolygonStipple(got);
    EXPECT_EQ(got[0], 0x0F);
    EXPECT_EQ(area->GetStipplePattern(), 1);
    area->SetStipplePattern(-1);
    glGetPolygonStipple(got);
    EXPECT_EQ(got[17], 0xFF);
}

// A node whose box is the point at its origin, so that its depth is wherever
// the model-view matrix puts the origin.
class PointNode : public CVNode {
public:
    void ComputeBoundingBox(CVState*, CVGLRenderArea*, CVBox3f* box) override {
        box->Union(Point3fStruct{0.0f, 0.0f, 0.0f});
    }
};

// A record goes before the first record with a greater depth. A NaN depth is
// greater than nothing, so n goes last and f, as deep as the deepest record
// before n, stays after it. Records arriving once the list is being read (as
// while it is drawn) take the same places.
TEST_F(CVGLRenderAreaGLTest, TransparentListIsSortedBackToFrontStably) {
    PointNode a, b, c, n, d, e, f;
    const struct {
        CVNode* node;
        float z;
        std::vector<CVNode*> listed;
    } arrivals[] = {{&a, -5.0f, {&a}},
                    {&b, -1.0f, {&a, &b}},
                    {&c, -5.0f, {&a, &c, &b}},
                    {&n, std::nanf(""), {&a, &c, &b, &n}},
                    {&d, -3.0f, {&a, &c, &d, &b, &n}},
                    {&e, -4.0f, {&a, &c, &e, &d, &b, &n}},
                    {&f, -1.0f, {&a, &c, &e, &d, &b, &n, &f}}};
    auto listed = [&] {
        std::vector<CVNode*> nodes;
        for (int i = 0; i < area->GetTransparentNodeListSize(); ++i)
            nodes.push_back(area->GetTransparentNodeInfo(i)->node);
        return nodes;
    };
    for (const bool readEach : {true, false}) {
        area->ResetTransparentNodeList();
        for (const auto& arr : arrivals) {
            glLoadIdentity();
            glTranslatef(0.0f, 0.0f, arr.z);
            area->AddToTransparentNodeList(arr.node, nullptr, 1);
            if (readEach) {
                EXPECT_EQ(listed(), arr.listed) << "after z " << arr.z;
            }
        }
        EXPECT_EQ(listed(), arrivals[6].listed);
    }
    EXPECT_TRUE(std::isnan(area->GetTransparentNodeInfo(5)->depth));
    EXPECT_FLOAT_EQ(area->GetTransparentNodeInfo(4)->depth, -1.0f);
    EXPECT_FLOAT_EQ(area->GetTransparentNodeInfo(0)->modelviewMatrix[14], -5.0f);
    EXPECT_THROW(area->GetTransparentNodeInfo(7), CInvalidArgException);
    EXPECT_THROW(area->GetTransparentNodeInfo(-1), CInvalidArgException);
    area->ResetTransparentNodeList();
    EXPECT_EQ(area->GetTransparentNodeListSize(), 0);

    // A record captures the drawing state it is to be replayed with.
    glEnable(GL_LIGHTING);
    glEnable(GL_CLIP_PLANE2);
    glEnable(GL_POLYGON_OFFSET_LINE);
    glPolygonOffset(2.0f, 3.0f);
    glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
    glLineWidth(2.0f);
    area->AddToTransparentNodeList(&a, nullptr, 1);
    const TranspNodeInfoStruct* info = area->GetTransparentNodeInfo(0);
    EXPECT_EQ(info->polygonMode, GL_LINE);
    EXPECT_EQ(info->lightingEnabled, 1);
    EXPECT_EQ(info->numClipPlanes, 1);
    EXPECT_EQ(info->polygonOffsetMode, GL_POLYGON_OFFSET_LINE);
    EXPECT_FLOAT_EQ(info->polygonOffsetFactor, 2.0f);
    EXPECT_FLOAT_EQ(info->lineWidth, 2.0f);
    EXPECT_EQ(info->type, 1);
}

TEST_F(CVGLRenderAreaGLTest, TextRecordsTakeTheirDepthFromAUnitBox) {
    CVNode text;  // its own box is never asked for
    glLoadIdentity();
    glTranslatef(0.0f, 0.0f, -3.0f);
    area->AddToTransparentNodeList(&text, nullptr, 2);
    EXPECT_FLOAT_EQ(area->GetTransparentNodeInfo(0)->depth, -3.0f);
    area->AddToAnnotationNodeList(&text, nullptr);
    area->AddToAnnotationNodeList(&text, nullptr);
    EXPECT_EQ(area->GetAnnotationNodeListSize(), 2);
    EXPECT_FLOAT_EQ(area->GetAnnotationNodeInfo(1)->modelviewMatrix[14], -3.0f);
    EXPECT_THROW(area->GetAnnotationNodeInfo(-1), CInvalidArgException);
    area->ResetAnnotationNodeList();
    EXPECT_EQ(area->GetAnnotationNodeListSize(), 0);
}

TEST_F(CVGLRenderAreaGLTest, ShadowMatrixProjectsAlongTheLight) {
    area->SetShadowProjectionZ(2.0);
    area->InitShadowMatrix();
    const float* m = area->GetShadowMatrix();
    // Default light (0.5, 0.7, 1.0): L = (0.5, 0.45, -19, 0); plane (0, 0, 0.02, -0.02).
    const float L[4] = {0.5f, 0.45f, 1.0f - 20.0f, 0.0f}, P[4] = {0.0f, 0.0f, 0.02f, -0.02f};
    for (int col = 0; col < 4; ++col)
        for (int row = 0; row < 4; ++row)
            EXPECT_NEAR(m[col * 4 + row], (row == col ? P[2] * L[2] : 0.0f) - L[row] * P[col], 1e-6)
                << row << "," << col;

    CVDirectionalLight light;
    light.direction.SetValue(1.0f, 2.0f, -1.0f);
    area->SetLightNode(&light);
    area->SetShadowProjectionZ(0.0);
    area->InitShadowMatrix();
    // Orientation 0 maps the light to (-d.y, d.x, -d.z).
    EXPECT_NEAR(area->GetShadowMatrix()[8 + 0], -(-2.0f) * 0.02f, 1e-6);
    EXPECT_NEAR(area->GetShadowMatrix()[8 + 1], -(1.0f - 0.25f) * 0.02f, 1e-6);
    area->SetShadowOrientation(2);
    area->InitShadowMatrix();
    EXPECT_NEAR(area->GetShadowMatrix()[8 + 0], -(-1.0f - 0.9f) * 0.02f, 1e-6);
    area->SetLightNode(nullptr);

    // A light destroyed behind the area's back is forgotten, not read.
    auto* gone = new CVDirectionalLight;
    gone->direction.SetValue(1.0f, 2.0f, -1.0f);
    area->SetLightNode(gone);
    delete gone;
    EXPECT_EQ(area->GetLightNode(), nullptr);
    area->SetShadowOrientation(0);
    area->InitShadowMatrix();
    EXPECT_NEAR(area->GetShadowMatrix()[8 + 0], -0.5f * 0.02f, 1e-6);
}

// Exposes palette creation for an 8-bit 3-3-2 format.
class PaletteArea : public CVGLRenderArea {
public:
    explicit PaletteArea(CVGLDevice* d) : CVGLRenderArea(d) {
        m_pfdChosen.dwFlags |= PFD_NEED_PALETTE;
        m_pfdChosen.cColorBits = 8;
        m_pfdChosen.cRedBits = 3, m_pfdChosen.cRedShift = 0;
        m_pfdChosen.cGreenBits = 3, m_pfdChosen.cGreenShift = 3;
        m_pfdChosen.cBlueBits = 2, m_pfdChosen.cBlueShift = 6;
        CreateRGBPalette();
    }
};

TEST_F(CVGLRenderAreaGLTest, OnlyEightBitFormatsGetARampWithTheStaticColours) {
    EXPECT_EQ(area->GetPalette(), nullptr);  // true colour
    EXPECT_EQ(area->InstallPalette(0), 0);
    auto* pal = new PaletteArea(&device);
    pal->Ref();
    ASSERT_NE(pal->GetPalette(), nullptr);
    PALETTEENTRY e[256];
    ASSERT_EQ(GetPaletteEntries(pal->GetPalette(), 0, 256, e), 256u);
    EXPECT_EQ(e[255].peRed, 255);
    EXPECT_EQ(e[255].peBlue, 255);
    EXPECT_EQ(e[2].peRed, 73);    // red 3 bits, value 2
    EXPECT_EQ(e[65].peBlue, 85);  // blue 2 bits, value 1 at shift 6
    EXPECT_EQ(e[65].peRed, 36);
    EXPECT_EQ(e[3].peRed, 128);  // static colours replace ramp entries
    EXPECT_EQ(e[173].peGreen, 192);
    EXPECT_EQ(e[247].peBlue, 240);
    EXPECT_EQ(pal->InstallPalette(0), 1);
    pal->Unref();
}

TEST_F(CVGLRenderAreaGLTest, RenderCacheSharesDisplayListsWithinOneKind) {
    CVTestBitmap other(32, 32);
    CVBitmapDevice otherDevice(other.GetDC());
    auto* second = new CVGLRenderArea(&otherDevice);
    second->Ref();
    EXPECT_EQ(second->SetRenderCache(nullptr), 0);
    ASSERT_EQ(second->SetRenderCache(area), 1);
    EXPECT_EQ(second->GetRenderCache(), area);
    EXPECT_EQ(CVNode::MakeCacheCurrent(second), area);
    EXPECT_EQ(CVNode::MakeCacheCurrent(area), area);
    area->MakeCurrent();
    GLuint list = glGenLists(1);
    glNewList(list, GL_COMPILE);
    glEndList();
    second->MakeCurrent();
    EXPECT_TRUE(glIsList(list));
    second->Unref();
}

TEST_F(CVGLRenderAreaGLTest, ErrorDrainLeavesNoErrorBehind) {
    glEnable(0x1234);
    glMatrixMode(0x1234);
    glBegin(GL_TRIANGLES);
    glGetError();  // inside Begin/End: itself an invalid operation
    glEnd();
    glEnd();
    glEnd();
    area->ReportOGLErrors();
    EXPECT_EQ(glGetError(), (GLenum)GL_NO_ERROR);
}

TEST(CVGLRenderAreaFailureGLTest, AFailedContextIsSilentAndHarmless) {
    HDC dc = CreateCompatibleDC(nullptr);  // only the 1x1 mono bitmap: no GL
    {
        CVBitmapDevice device(dc);
        auto* area = new CVGLRenderArea(&device);
        area->Ref();
        EXPECT_EQ(area->GetHGLRC(), nullptr);
        area->SetViewport(0, 0, 10, 10);
        area->SetStipplePattern(1);
        area->SetTextureFilter(CVGLRenderArea::Linear);
        area->ReportOGLErrors();
        area->MakeCurrent();
        area->SwapBuffers();
        EXPECT_EQ(area->GetTextureFilter(), CVGLRenderArea::Linear);
        area->Unref();
    }
    DeleteDC(dc);
}

}  // namespace
