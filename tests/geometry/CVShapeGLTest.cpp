#include "support/CVActionTestSupport.h"
#include "geometry/CVShape.h"
#include "nodes/CVAppearance.h"

namespace {

using cvtest::DrawRecord;
using cvtest::GetInt;
using cvtest::MatrixNear;
using cvtest::TestGeometry;

// Geometries that say through the kind hooks that they are text or lines.
class TextGeometry : public TestGeometry {
public:
    int IsTextGeometry() const override { return 1; }
};

class LineGeometry : public TestGeometry {
public:
    int IsLineGeometry() const override { return 1; }
};

// Sets a colour the geometry can see, so the grey default is visibly replaced.
class ColorAppearance : public CVAppearance {
public:
    void Render(CVState*, CVGLRenderArea*) override {
        ++renders;
        glColor3f(0.25f, 0.5f, 0.75f);
    }
    int renders = 0;
};

enum GeometryKind { Plain, Text, Lines };

::testing::AssertionResult ColorIs(const DrawRecord& r, float red, float green, float blue, float alpha = 1.0f) {
    const float want[4] = {red, green, blue, alpha};
    for (int i = 0; i < 4; ++i)
        if (std::fabs(r.color[i] - want[i]) > 1e-6f)
            return ::testing::AssertionFailure() << "component " << i << ": " << r.color[i] << " vs " << want[i];
    return ::testing::AssertionSuccess();
}

class CVShapeGLTest : public cvtest::GLFixture {
protected:
    CVShapeGLTest() { shape->Ref(); }
    ~CVShapeGLTest() override {
        area->ResetTransparentNodeList();
        shape->Unref();
    }
    TestGeometry* Use(GeometryKind kind = Plain) {
        TestGeometry* g = kind == Text      ? new TextGeometry
                          : kind == Lines ? new LineGeometry
                                            : new TestGeometry;
        shape->geometry.SetValue(g);
        return g;
    }
    void Draw(int pass, GLenum polygonMode = GL_FILL) {
        state.m_nRenderPass = pass;
        glPolygonMode(GL_FRONT_AND_BACK, polygonMode);
        shape->Render(&state, area);
        glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    }

    CVShape* shape = new CVShape;
    CVState state;
};

TEST_F(CVShapeGLTest, DrawsInGreyOrUnderItsAppearanceWithTheTextureTransformAroundTheGeometryOnly) {
    TestGeometry* g = Use();
    glColorMaterial(GL_FRONT, GL_EMISSION);
    glColor3f(1.0f, 0.0f, 0.0f);
    Draw(1);
    ASSERT_EQ(g->draws.size(), 1u);
    EXPECT_TRUE(ColorIs(g->draws[0], 0.8f, 0.8f, 0.8f));
    EXPECT_EQ(g->draws[0].appearance, nullptr);
    EXPECT_EQ(GetInt(GL_COLOR_MATERIAL_PARAMETER), GL_AMBIENT_AND_DIFFUSE);
    EXPECT_EQ(GetInt(GL_COLOR_MATERIAL_FACE), GL_FRONT_AND_BACK);

    auto* app = new ColorAppearance;
    shape->appearance.SetValue(app);
    Draw(1);
    EXPECT_EQ(app->renders, 1);
    ASSERT_EQ(g->draws.size(), 2u);
    EXPECT_EQ(g->draws[1].appearance, app);
    EXPECT_TRUE(ColorIs(g->draws[1], 0.25f, 0.5f, 0.75f));
    EXPECT_TRUE(MatrixNear(g->draws[1].textureMatrix, CVMatrix(), 0.0f));

    auto* shift = new CVTextureTransform;
    shift->translation.SetValue(2.0f, 3.0f);
    app->textureTransform.SetValue(shift);
    const GLint depth = GetInt(GL_TEXTURE_STACK_DEPTH);
    Draw(1);
    ASSERT_EQ(g->draws.size(), 3u);
    EXPECT_EQ(g->draws[2].textureMatrix.m[0][3], 2.0f);
    EXPECT_EQ(g->draws[2].textureMatrix.m[1][3], 3.0f);
    EXPECT_TRUE(MatrixNear(cvtest::GetMatrix(GL_TEXTURE_MATRIX), CVMatrix(), 0.0f));
    EXPECT_EQ(GetInt(GL_TEXTURE_STACK_DEPTH), depth);
    EXPECT_EQ(GetInt(GL_MATRIX_MODE), GL_MODELVIEW);
}

TEST_F(CVShapeGLTest, InvisibleGeometryIsOnlyPickedBareUnderItsOwnName) {
    TestGeometry* g = Use();
    g->SetVisibleFlag(0);
    g->SetStippledFlag(1);
    shape->appearance.SetValue(new ColorAppearance);
    Draw(1);
    EXPECT_TRUE(g->draws.empty());

    GLuint buffer[64];
    glSelectBuffer(64, buffer);
    glRenderMode(GL_SELECT);
    glInitNames();
    state.m_bRecordPath = 1;
    Draw(1);
    const GLint depthAfter = GetInt(GL_NAME_STACK_DEPTH);
    g->SetSelectableFlag(0);
    Draw(1);
    glRenderMode(GL_RENDER);
    ASSERT_EQ(g->draws.size(), 1u);
    EXPECT_EQ(g->draws[0].appearance, nullptr);
    EXPECT_EQ(g->draws[0].nameStackDepth, 1);
    EXPECT_EQ(depthAfter, 0);
}

// Whether a shape draws its geometry at once, skips it (text filter) or
// defers it to the transparent list, and as what kind.
TEST_F(CVShapeGLTest, GeometryIsDrawnFilteredOrDeferredWithItsKind) {
    const unsigned int AA = CVGeometry::kAntialiased, TR = CVGeometry::kTransparent, DS = CVGeometry::kDropShadow,
                       FS = CVGeometry::kForceSort, PJ = 1u << 31;
    const int kDrawn = -1, kSkipped = -2;
    const struct {
        const char* name;
        GeometryKind kind;
        unsigned int flags;
        GLenum polygonMode;
        int pass, textFilter, lineAntialiasing, transparency;
        int outcome;  // drawn, skipped or the deferral kind
    } cases[] = {
        {"FilterOff", Text, 0, GL_FILL, 1, 0, 1, 1, kDrawn},
        {"SkipTextSceneText", Text, 0, GL_FILL, 1, 1, 1, 1, kSkipped},
        {"SkipTextScenePostJitter", Plain, PJ, GL_FILL, 1, 1, 1, 1, kSkipped},
        {"SkipTextScenePlain", Plain, 0, GL_FILL, 1, 1, 1, 1, kDrawn},
        {"SkipOtherAnnotationPlain", Plain, 0, GL_FILL, 3, 2, 1, 1, kSkipped},
        {"SkipOtherAnnotationText", Text, 0, GL_FILL, 3, 2, 1, 1, kDrawn},
        {"SkipOtherAnnotationPostJitter", Plain, PJ, GL_FILL, 3, 2, 1, 1, kDrawn},
        {"SkipOtherTransparentPassIgnored", Plain, 0, GL_FILL, 2, 2, 1, 1, kDrawn},
        {"SkipTextIdlePassIgnored", Text, 0, GL_FILL, 0, 1, 1, 1, kDrawn},
        {"NothingToSort", Plain, 0, GL_FILL, 1, 0, 1, 1, kDrawn},
        {"AntialiasedLineMode", Plain, AA, GL_LINE, 1, 0, 1, 1, 1},
        {"AntialiasedLineGeometry", Lines, AA, GL_FILL, 1, 0, 1, 1, 1},
        {"AntialiasedLinesWithAntialiasingOff", Lines, AA, GL_FILL, 1, 0, 0, 1, kDrawn},
        {"AntialiasedFill", Plain, AA, GL_FILL, 1, 0, 1, 1, kDrawn},
        {"AntialiasedText", Text, AA, GL_FILL, 1, 0, 1, 1, 2},
        {"AntialiasedTextInLineMode", Text, AA, GL_LINE, 1, 0, 1, 1, 1},
        {"Transparent", Plain, TR, GL_FILL, 1, 0, 1, 1, 1},
        {"TransparentWithTransparencyOff", Plain, TR, GL_FILL, 1, 0, 1, 0, kDrawn},
        {"TransparentInLineMode", Plain, TR, GL_LINE, 1, 0, 1, 1, kDrawn},
        {"DropShadowed", Plain, DS, GL_FILL, 1, 0, 1, 0, 1},
        {"TransparentBeatsForceSort", Plain, TR | FS, GL_FILL, 1, 0, 1, 1, 1},
        {"ForceSorted", Plain, FS, GL_FILL, 1, 0, 1, 1, 0},
        {"ForceSortedInPointMode", Plain, FS, GL_POINT, 1, 0, 1, 1, kDrawn},
        {"ForceSortedText", Text, FS, GL_FILL, 1, 0, 1, 1, 0},
        {"TransparentOutsideScenePass", Plain, TR, GL_FILL, 2, 0, 1, 1, kDrawn},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        area->ResetTransparentNodeList();
        TestGeometry* g = Use(c.kind);
        g->SetAntialiasedFlag((c.flags & AA) != 0);
        g->SetTransparentFlag((c.flags & TR) != 0);
        g->SetDropShadowFlag((c.flags & DS) != 0);
        g->SetForceSortFlag((c.flags & FS) != 0);
        g->SetPostJitterFlag((c.flags & PJ) != 0);
        area->SetTextFilterMode(c.textFilter);
        area->SetLineAntialiasingEnabled(c.lineAntialiasing);
        area->SetTransparencyEnabled(c.transparency);
        Draw(c.pass, c.polygonMode);
        EXPECT_EQ(g->draws.size(), c.outcome == kDrawn ? 1u : 0u);
        ASSERT_EQ(area->GetTransparentNodeListSize(), c.outcome >= 0 ? 1 : 0);
        if (c.outcome >= 0) {
            EXPECT_EQ(area->GetTransparentNodeInfo(0)->node, shape);
            EXPECT_EQ(area->GetTransparentNodeInfo(0)->type, c.outcome);
        }
    }
}

TEST_F(CVShapeGLTest, DataPointCastsAStippledUnlitShadowFirst) {
    TestGeometry* g = Use();
    g->SetDataPointFlag(1);
    shape->appearance.SetValue(new ColorAppearance);
    area->SetDropShadowsEnabled(1);
    area->InitShadowMatrix();
    glEnable(GL_LIGHTING);
    glTranslatef(1.0f, 2.0f, -3.0f);
    const CVMatrix view = ModelView();
    Draw(1);
    glDisable(GL_LIGHTING);

    ASSERT_EQ(g->draws.size(), 2u);
    const DrawRecord &shadow = g->draws[0], &itself = g->draws[1];
    EXPECT_EQ(shadow.appearance, nullptr);
    EXPECT_FALSE(shadow.lighting);
    EXPECT_TRUE(shadow.stipple);
    EXPECT_TRUE(ColorIs(shadow, 0.4f, 0.4f, 0.4f, 0.5f));
    EXPECT_TRUE(MatrixNear(shadow.modelView, view * CVMatrix(area->GetShadowMatrix()), 1e-5f));
    // The shape itself is drawn as usual, with state and matrix restored.
    EXPECT_TRUE(itself.lighting);
    EXPECT_FALSE(itself.stipple);
    EXPECT_TRUE(MatrixNear(itself.modelView, view, 0.0f));
    EXPECT_TRUE(ColorIs(itself, 0.25f, 0.5f, 0.75f));

    // No shadow when off, for lines, or outside the scene pass.
    const struct {
        const char* name;
        GeometryKind kind;
        GLenum polygonMode;
        int shadows, pass;
    } noShadow[] = {
        {"ShadowsOff", Plain, GL_FILL, 0, 1},
        {"LineMode", Plain, GL_LINE, 1, 1},
        {"LineGeometry", Lines, GL_FILL, 1, 1},
        {"TransparentPass", Plain, GL_FILL, 1, 2},
    };
    for (const auto& c : noShadow) {
        SCOPED_TRACE(c.name);
        TestGeometry* other = Use(c.kind);
        other->SetDataPointFlag(1);
        area->SetDropShadowsEnabled(c.shadows);
        Draw(c.pass, c.polygonMode);
        EXPECT_EQ(other->draws.size(), 1u);
    }
}

TEST_F(CVShapeGLTest, SelectedGeometryGetsAScaledStippledOverlayUnlessPartial) {
    const struct {
        const char* name;
        int percent;
        bool yExtrusion;
        float scale[3];
    } cases[] = {
        {"HalfSelected", 50, false, {0.5005f, 0.5005f, 1.0005f}},
        {"HalfSelectedYExtrusion", 50, true, {0.5005f, 1.0005f, 0.5005f}},
        {"PercentCappedAtWhole", 200, false, {1.0005f, 1.0005f, 1.0005f}},
        {"NoPercent", 0, true, {0.0005f, 1.0005f, 0.0005f}},
    };
    area->SetSelectionColor(RGBColorStruct{0.0f, 1.0f, 0.5f});
    glTranslatef(0.0f, 0.0f, -2.0f);
    const CVMatrix view = ModelView();
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        TestGeometry* g = Use();
        g->SetStippledFlag(1);
        g->SetStipplePercent((unsigned short)c.percent);
        g->SetYAxisExtrusionFlag(c.yExtrusion);
        Draw(1);
        ASSERT_EQ(g->draws.size(), 2u);
        EXPECT_FALSE(g->draws[0].stipple);
        const DrawRecord& overlay = g->draws[1];
        EXPECT_TRUE(overlay.stipple);
        EXPECT_TRUE(ColorIs(overlay, 0.0f, 1.0f, 0.5f));
        CVMatrix scale;
        for (int i = 0; i < 3; ++i) scale.m[i][i] = c.scale[i];
        EXPECT_TRUE(MatrixNear(overlay.modelView, view * scale, 1e-6f));
        EXPECT_FALSE(glIsEnabled(GL_POLYGON_STIPPLE));
        EXPECT_TRUE(MatrixNear(ModelView(), view, 0.0f));
    }
    TestGeometry* partial = Use();
    partial->SetStippledFlag(1);
    partial->SetPartialSelectionFlag(1);
    Draw(1);
    EXPECT_EQ(partial->draws.size(), 1u);
}

}  // namespace
