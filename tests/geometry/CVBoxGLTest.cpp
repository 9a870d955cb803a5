#include "geometry/CVBox.h"
#include "nodes/CVAppearance.h"
#include "nodes/CVTexture.h"
#include "support/CVGeometryTestSupport.h"

namespace {

using cvtest::Corners;
using cvtest::Sized;

class CVBoxGLTest : public cvtest::GeometryFixture {
protected:
    CVBox* MakeBox(float x, float y, float z) { return Sized(Make<CVBox>(), x, y, z); }
    void DrawPicking(CVGeometry* g) {
        CVState state;
        state.m_bRecordPath = 1;
        g->Render(&state, area, nullptr);
    }
    static constexpr uint32_t kRed = 0xFF0000, kGreen = 0x00FF00;
};

TEST_F(CVBoxGLTest, BoxCoversItsRectangleOfPixels) {
    Draw(MakeBox(1, 1, 1));
    EXPECT_EQ(Corners(LitBounds()), (std::array<int, 4>{24, 24, 39, 39}));
    EXPECT_EQ(CountLit(24, 24, 39, 39), 256);
    EXPECT_FLOAT_EQ(Depth(32, 32), 0.475f);  // the +z face, at z = 0.5
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    Draw(MakeBox(0.5f, 2, 1));
    EXPECT_EQ(Corners(LitBounds()), (std::array<int, 4>{28, 16, 35, 47}));
}

TEST_F(CVBoxGLTest, FlatBoxIsOneRectangleFacingPlusZWithItsCornersInLineMode) {
    CVBox* box = MakeBox(1, 1, 0);
    glDisable(GL_CULL_FACE);
    const Feedback flat = Collect([&] { Draw(box); });
    const Feedback solid = Collect([&] { Draw(MakeBox(1, 1, 1)); });
    EXPECT_GT(flat.polygons, 0);
    EXPECT_EQ(flat.polygons * 6, solid.polygons);
    EXPECT_EQ(flat.points, 0);
    // Picking draws the same single face.
    EXPECT_EQ(Collect([&] { DrawPicking(box); }).polygons, flat.polygons);
    EXPECT_EQ(Collect([&] { DrawPicking(MakeBox(1, 1, 1)); }).polygons, solid.polygons);

    glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
    const Feedback lines = Collect([&] { Draw(box); });
    EXPECT_EQ(lines.points, 4);
    EXPECT_EQ(lines.lines, 4);
    EXPECT_EQ(Collect([&] { Draw(MakeBox(1, 1, 1)); }).points, 0);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);

    glEnable(GL_CULL_FACE);
    LightFromViewer();
    Draw(box);
    EXPECT_FLOAT_EQ(Depth(32, 32), 0.5f);
    EXPECT_EQ(Pixel(32, 32), 0xFFFFFFu);
    // Turned away it is culled: there is no back face.
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glRotatef(180.0f, 0.0f, 1.0f, 0.0f);
    Draw(box);
    EXPECT_TRUE(LitBounds().Empty());
}

TEST_F(CVBoxGLTest, NegativeSizeDrawsTheNegatedBoxAsLines) {
    Draw(MakeBox(-1, -1, -1));
    EXPECT_EQ(FrontPolygonMode(), GL_LINE);  // left so, as for every wire-frame primitive
    const cvtest::PixelBounds b = LitBounds();
    EXPECT_GE(b.x0, 23);
    EXPECT_LE(b.x1, 40);
    EXPECT_GE(b.x1, 39);
    EXPECT_EQ(CountLit(28, 28, 35, 35), 0);
}

// A texture red below t = 0.5 and green above: stretching t by the box's
// height-to-width ratio turns a red sample green.
TEST_F(CVBoxGLTest, TiledTextureStretchesTheSidesByHeightOverWidth) {
    GLuint texture = cvtest::BindRedGreenTexture();
    auto* appearance = Make<CVAppearance>();
    auto* tiles = new CVTexture;
    appearance->texture.SetValue(tiles);
    CVBox* box = MakeBox(1, 2, 1);
    const struct {
        int compliant, tiled;
        uint32_t at30Percent;
    } cases[] = {{1, 1, kRed}, {0, 0, kRed}, {0, 1, kGreen}};
    for (const auto& c : cases) {
        box->SetVRMLCompliantFlag(c.compliant);
        tiles->SetTiled(c.tiled);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        Draw(box, appearance);
        EXPECT_EQ(Pixel(32, Px(-0.4f)), c.at30Percent) << "compliant " << c.compliant << ", tiled " << c.tiled;
        EXPECT_EQ(Pixel(32, Px(-0.8f)), kRed);
    }
    EXPECT_EQ(cvtest::GetInt(GL_TEXTURE_STACK_DEPTH), 1);
    EXPECT_FALSE(glIsEnabled(GL_TEXTURE_2D));
    glDeleteTextures(1, &texture);
}

TEST_F(CVBoxGLTest, PartialSelectionColoursTheSelectedFractionOfTheHeight) {
    CVBox* box = MakeBox(1, 1, 1);
    area->SetSelectionColor(RGBColorStruct{1.0f, 0.0f, 0.0f});
    box->SetStippledFlag(1);
    box->SetPartialSelectionFlag(1);
    auto countRed = [](int y0, int y1) {
        int n = 0;
        for (int y = y0; y <= y1; ++y)
            for (int x = 24; x <= 39; ++x) n += Pixel(x, y) == kRed;
        return n;
    };
    Draw(box);  // percent 0: nothing
    EXPECT_EQ(countRed(24, 39), 0);
    box->SetStipplePercent(50);
    glColor3f(1.0f, 1.0f, 1.0f);
    Draw(box);
    EXPECT_GT(countRed(24, 31), 0);  // stippled: some, not all
    EXPECT_LT(countRed(24, 31), 128);
    EXPECT_EQ(countRed(33, 39), 0);
    EXPECT_FALSE(glIsEnabled(GL_POLYGON_STIPPLE));
}

}  // namespace
