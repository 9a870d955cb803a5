#include <gtest/gtest.h>

#include <GL/gl.h>

#include <ostream>
#include <string>

#include "actions/CVShape.h"
#include "actions/CVActionTestSupport.h"
#include "nodes/CVAppearance.h"

namespace cvtest {

// Stand-ins recognised by class name, as the shape recognises text and line sets.
class CVText : public TestGeometry {
    DECLARE_DYNAMIC(CVText)
};
IMPLEMENT_DYNAMIC(CVText, CVGeometry)

class CVIndexedLineSet : public TestGeometry {
    DECLARE_DYNAMIC(CVIndexedLineSet)
};
IMPLEMENT_DYNAMIC(CVIndexedLineSet, CVGeometry)

}  // namespace cvtest

namespace {

using cvtest::DrawRecord;
using cvtest::MatrixNear;
using cvtest::TestGeometry;

// Sets a colour the geometry can see, so the grey default is visibly replaced.
class ColorAppearance : public CVAppearance {
public:
    void Render(CVState*, CVGLRenderArea*) override {
        ++renders;
        glColor3f(0.25f, 0.5f, 0.75f);
    }
    int renders = 0;
};

enum GeometryKind { Plain, Text, LineSet };

TestGeometry* MakeGeometry(GeometryKind kind) {
    switch (kind) {
        case Text: return new cvtest::CVText;
        case LineSet: return new cvtest::CVIndexedLineSet;
        default: return new TestGeometry;
    }
}

class ShapeFixture : public cvtest::GLFixture {
protected:
    ShapeFixture() { shape->Ref(); }
    ~ShapeFixture() noexcept override {
        area->ResetTransparentNodeList();
        shape->Unref();
    }
    TestGeometry* Use(GeometryKind kind) {
        TestGeometry* g = MakeGeometry(kind);
        shape->geometry.SetValue(g);
        return g;
    }
    void Draw(int pass) {
        state.m_nRenderPass = pass;
        shape->Render(&state, area);
    }
    static GLint GetInt(GLenum what) {
        GLint v = 0;
        glGetIntegerv(what, &v);
        return v;
    }

    CVShape* shape = new CVShape;
    CVState state;
};

using CVShapeGLTest = ShapeFixture;

void ExpectColor(const DrawRecord& r, float red, float green, float blue, float alpha = 1.0f) {
    EXPECT_FLOAT_EQ(r.color[0], red);
    EXPECT_FLOAT_EQ(r.color[1], green);
    EXPECT_FLOAT_EQ(r.color[2], blue);
    EXPECT_FLOAT_EQ(r.color[3], alpha);
}

TEST_F(CVShapeGLTest, WithoutAppearanceDrawsInGrey) {
    TestGeometry* g = Use(Plain);
    glColorMaterial(GL_FRONT, GL_EMISSION);
    glColor3f(1.0f, 0.0f, 0.0f);
    Draw(1);
    ASSERT_EQ(g->draws.size(), 1u);
    ExpectColor(g->draws[0], 0.8f, 0.8f, 0.8f);
    EXPECT_EQ(g->draws[0].appearance, nullptr);
    EXPECT_EQ(GetInt(GL_COLOR_MATERIAL_PARAMETER), GL_AMBIENT_AND_DIFFUSE);
    EXPECT_EQ(GetInt(GL_COLOR_MATERIAL_FACE), GL_FRONT_AND_BACK);
}

TEST_F(CVShapeGLTest, AppearanceIsAppliedAndHandedToTheGeometry) {
    TestGeometry* g = Use(Plain);
    auto* app = new ColorAppearance;
    shape->appearance.SetValue(app);
    Draw(1);
    EXPECT_EQ(app->renders, 1);
    ASSERT_EQ(g->draws.size(), 1u);
    EXPECT_EQ(g->draws[0].appearance, app);
    ExpectColor(g->draws[0], 0.25f, 0.5f, 0.75f);
    EXPECT_TRUE(MatrixNear(g->draws[0].textureMatrix, CVMatrix(), 0.0f));
}

TEST_F(CVShapeGLTest, TextureTransformBracketsOnlyTheGeometry) {
    TestGeometry* g = Use(Plain);
    auto* app = new ColorAppearance;
    auto* shift = new CVTextureTransform;
    shift->translation.SetValue(2.0f, 3.0f);
    app->textureTransform.SetValue(shift);
    shape->appearance.SetValue(app);
    const GLint depth = GetInt(GL_TEXTURE_STACK_DEPTH);
    Draw(1);
    ASSERT_EQ(g->draws.size(), 1u);
    EXPECT_EQ(g->draws[0].textureMatrix.m[0][3], 2.0f);
    EXPECT_EQ(g->draws[0].textureMatrix.m[1][3], 3.0f);
    GLfloat m[16];
    glGetFloatv(GL_TEXTURE_MATRIX, m);
    EXPECT_TRUE(MatrixNear(CVMatrix(m), CVMatrix(), 0.0f));
    EXPECT_EQ(GetInt(GL_TEXTURE_STACK_DEPTH), depth);
    EXPECT_EQ(GetInt(GL_MATRIX_MODE), GL_MODELVIEW);
}

TEST_F(CVShapeGLTest, PickWalkDrawsBareGeometryUnderItsOwnName) {
    TestGeometry* g = Use(Plain);
    g->SetVisibleFlag(0);  // picking sees invisible geometry
    g->SetStippledFlag(1);
    shape->appearance.SetValue(new ColorAppearance);
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

TEST_F(CVShapeGLTest, InvisibleGeometryIsNotDrawn) {
    TestGeometry* g = Use(Plain);
    g->SetVisibleFlag(0);
    g->SetStippledFlag(1);
    Draw(1);
    EXPECT_TRUE(g->draws.empty());
}

struct FilterCase {
    const char* name;
    int mode;
    int pass;
    GeometryKind kind;
    bool postJitter;
    bool drawn;
};

void PrintTo(const FilterCase& c, std::ostream* os) { *os << c.name; }

const FilterCase kFilterCases[] = {
    {"Off", 0, 1, Text, false, true},
    {"SkipTextSceneText", 1, 1, Text, false, false},
    {"SkipTextScenePostJitter", 1, 1, Plain, true, false},
    {"SkipTextScenePlain", 1, 1, Plain, false, true},
    {"SkipOtherAnnotationPlain", 2, 3, Plain, false, false},
    {"SkipOtherAnnotationText", 2, 3, Text, false, true},
    {"SkipOtherAnnotationPostJitter", 2, 3, Plain, true, true},
    {"SkipOtherTransparentPassIgnored", 2, 2, Plain, false, true},
    {"SkipTextIdlePassIgnored", 1, 0, Text, false, true},
};

class CVShapeFilterGLTest : public ShapeFixture, public ::testing::WithParamInterface<FilterCase> {};

TEST_P(CVShapeFilterGLTest, TextFilterAppliesInSceneAndAnnotationPasses) {
    const FilterCase& c = GetParam();
    TestGeometry* g = Use(c.kind);
    g->SetPostJitterFlag(c.postJitter);
    area->SetTextFilterMode(c.mode);
    Draw(c.pass);
    EXPECT_EQ(g->draws.size(), c.drawn ? 1u : 0u);
}

INSTANTIATE_TEST_SUITE_P(Modes, CVShapeFilterGLTest, ::testing::ValuesIn(kFilterCases),
                         [](const auto& info) { return std::string(info.param.name); });

struct DeferCase {
    const char* name;
    unsigned int flags;
    GeometryKind kind;
    GLenum polygonMode;
    int lineAntialiasing;
    int transparency;
    int pass;
    int deferredAs;  // deferral kind, or -1 when drawn at once
};

void PrintTo(const DeferCase& c, std::ostream* os) { *os << c.name; }

const unsigned int AA = CVGeometry::kAntialiased, TR = CVGeometry::kTransparent,
                   DS = CVGeometry::kDropShadow, FS = CVGeometry::kForceSort;

const DeferCase kDeferCases[] = {
    {"NothingToSort", 0, Plain, GL_FILL, 1, 1, 1, -1},
    {"AntialiasedLineMode", AA, Plain, GL_LINE, 1, 1, 1, 1},
    {"AntialiasedLineSet", AA, LineSet, GL_FILL, 1, 1, 1, 1},
    {"AntialiasedLinesWithAntialiasingOff", AA, LineSet, GL_FILL, 0, 1, 1, -1},
    {"AntialiasedFill", AA, Plain, GL_FILL, 1, 1, 1, -1},
    {"AntialiasedText", AA, Text, GL_FILL, 1, 1, 1, 2},
    {"AntialiasedTextInLineMode", AA, Text, GL_LINE, 1, 1, 1, 1},
    {"Transparent", TR, Plain, GL_FILL, 1, 1, 1, 1},
    {"TransparentWithTransparencyOff", TR, Plain, GL_FILL, 1, 0, 1, -1},
    {"TransparentInLineMode", TR, Plain, GL_LINE, 1, 1, 1, -1},
    {"DropShadowed", DS, Plain, GL_FILL, 1, 0, 1, 1},
    {"TransparentBeatsForceSort", TR | FS, Plain, GL_FILL, 1, 1, 1, 1},
    {"ForceSorted", FS, Plain, GL_FILL, 1, 1, 1, 0},
    {"ForceSortedInPointMode", FS, Plain, GL_POINT, 1, 1, 1, -1},
    {"ForceSortedText", FS, Text, GL_FILL, 1, 1, 1, 0},
    {"TransparentOutsideScenePass", TR, Plain, GL_FILL, 1, 1, 2, -1},
};

class CVShapeDeferGLTest : public ShapeFixture, public ::testing::WithParamInterface<DeferCase> {};

TEST_P(CVShapeDeferGLTest, SortedGeometryIsDeferredWithItsKind) {
    const DeferCase& c = GetParam();
    TestGeometry* g = Use(c.kind);
    if (c.flags & AA) g->SetAntialiasedFlag(1);
    if (c.flags & TR) g->SetTransparentFlag(1);
    if (c.flags & DS) g->SetDropShadowFlag(1);
    if (c.flags & FS) g->SetForceSortFlag(1);
    area->SetLineAntialiasingEnabled(c.lineAntialiasing);
    area->SetTransparencyEnabled(c.transparency);
    glPolygonMode(GL_FRONT_AND_BACK, c.polygonMode);
    Draw(c.pass);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);

    if (c.deferredAs < 0) {
        EXPECT_EQ(area->GetTransparentNodeListSize(), 0);
        EXPECT_EQ(g->draws.size(), 1u);
        return;
    }
    ASSERT_EQ(area->GetTransparentNodeListSize(), 1);
    EXPECT_EQ(area->GetTransparentNodeInfo(0)->node, shape);
    EXPECT_EQ(area->GetTransparentNodeInfo(0)->type, c.deferredAs);
    EXPECT_TRUE(g->draws.empty());
}

INSTANTIATE_TEST_SUITE_P(Flags, CVShapeDeferGLTest, ::testing::ValuesIn(kDeferCases),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(CVShapeGLTest, DataPointCastsAStippledUnlitShadowFirst) {
    TestGeometry* g = Use(Plain);
    g->SetDataPointFlag(1);
    shape->appearance.SetValue(new ColorAppearance);
    area->SetDropShadowsEnabled(1);
    area->InitShadowMatrix();
    glEnable(GL_LIGHTING);
    glTranslatef(1.0f, 2.0f, -3.0f);
    const CVMatrix view = ModelView();
    Draw(1);

    ASSERT_EQ(g->draws.size(), 2u);
    const DrawRecord& shadow = g->draws[0];
    EXPECT_EQ(shadow.appearance, nullptr);
    EXPECT_FALSE(shadow.lighting);
    EXPECT_TRUE(shadow.stipple);
    ExpectColor(shadow, 0.4f, 0.4f, 0.4f, 0.5f);
    EXPECT_TRUE(MatrixNear(shadow.modelView, view * CVMatrix(area->GetShadowMatrix()), 1e-5f));
    // The shape itself is drawn as usual, with state and matrix restored.
    EXPECT_TRUE(g->draws[1].lighting);
    EXPECT_FALSE(g->draws[1].stipple);
    EXPECT_TRUE(MatrixNear(g->draws[1].modelView, view, 0.0f));
    ExpectColor(g->draws[1], 0.25f, 0.5f, 0.75f);
    glDisable(GL_LIGHTING);
}

TEST_F(CVShapeGLTest, NoShadowForLinesOutsideTheScenePassOrWhenOff) {
    const struct {
        const char* name;
        GeometryKind kind;
        GLenum polygonMode;
        int shadows;
        int pass;
    } kCases[] = {
        {"ShadowsOff", Plain, GL_FILL, 0, 1},
        {"LineMode", Plain, GL_LINE, 1, 1},
        {"LineSet", LineSet, GL_FILL, 1, 1},
        {"TransparentPass", Plain, GL_FILL, 1, 2},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.name);
        TestGeometry* g = Use(c.kind);
        g->SetDataPointFlag(1);
        area->SetDropShadowsEnabled(c.shadows);
        glPolygonMode(GL_FRONT_AND_BACK, c.polygonMode);
        Draw(c.pass);
        glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
        EXPECT_EQ(g->draws.size(), 1u);
    }
}

struct OverlayCase {
    const char* name;
    int percent;
    bool yExtrusion;
    float scale[3];
};

void PrintTo(const OverlayCase& c, std::ostream* os) { *os << c.name; }

const OverlayCase kOverlayCases[] = {
    {"HalfSelected", 50, false, {0.5005f, 0.5005f, 1.0005f}},
    {"HalfSelectedYExtrusion", 50, true, {0.5005f, 1.0005f, 0.5005f}},
    {"PercentCappedAtWhole", 200, false, {1.0005f, 1.0005f, 1.0005f}},
    {"NoPercent", 0, true, {0.0005f, 1.0005f, 0.0005f}},
};

class CVShapeOverlayGLTest : public ShapeFixture, public ::testing::WithParamInterface<OverlayCase> {};

TEST_P(CVShapeOverlayGLTest, SelectedGeometryGetsAScaledStippledOverlay) {
    const OverlayCase& c = GetParam();
    TestGeometry* g = Use(Plain);
    g->SetStippledFlag(1);
    g->SetStipplePercent((unsigned short)c.percent);
    g->SetYAxisExtrusionFlag(c.yExtrusion);
    area->SetSelectionColor(RGBColorStruct{0.0f, 1.0f, 0.5f});
    glTranslatef(0.0f, 0.0f, -2.0f);
    const CVMatrix view = ModelView();
    Draw(1);

    ASSERT_EQ(g->draws.size(), 2u);
    EXPECT_FALSE(g->draws[0].stipple);
    const DrawRecord& overlay = g->draws[1];
    EXPECT_TRUE(overlay.stipple);
    ExpectColor(overlay, 0.0f, 1.0f, 0.5f);
    CVMatrix scale;
    for (int i = 0; i < 3; ++i) scale.m[i][i] = c.scale[i];
    EXPECT_TRUE(MatrixNear(overlay.modelView, view * scale, 1e-6f));
    EXPECT_FALSE(glIsEnabled(GL_POLYGON_STIPPLE));
    EXPECT_TRUE(MatrixNear(ModelView(), view, 0.0f));
}

INSTANTIATE_TEST_SUITE_P(Percents, CVShapeOverlayGLTest, ::testing::ValuesIn(kOverlayCases),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(CVShapeGLTest, PartialSelectionDrawsNoOverlay) {
    TestGeometry* g = Use(Plain);
    g->SetStippledFlag(1);
    g->SetPartialSelectionFlag(1);
    Draw(1);
    EXPECT_EQ(g->draws.size(), 1u);
}

}  // namespace
