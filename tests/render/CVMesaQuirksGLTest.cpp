// Each quirk's symptom, reproduced with its workaround on (gone) and off
// (there). A failure with the workaround off means the driver no longer has
// the quirk: its table entry can go.
#include <gtest/gtest.h>

#include <GL/gl.h>
#include <GL/glu.h>

#include "platform/CVMesaQuirks.h"
#include "render/CVAttribStack.h"
#include "render/CVBitmapDevice.h"
#include "render/CVGLRenderArea.h"
#include "render/CVSelectSafeList.h"
#include "support/CVTestBitmap.h"

namespace {

struct Context {
    Context() : bitmap(16, 16), device(bitmap.GetDC()), area(new CVGLRenderArea(&device)) { area->Ref(); }
    ~Context() { area->Unref(); }
    CVTestBitmap bitmap;
    CVBitmapDevice device;
    CVGLRenderArea* area;
};

// Turns one workaround off for a scope.
struct WorkaroundOff {
    explicit WorkaroundOff(CVMesaQuirk q) : quirk(q) { CVMesaQuirks::SetWorkaroundEnabled(quirk, 0); }
    ~WorkaroundOff() { CVMesaQuirks::SetWorkaroundEnabled(quirk, 1); }
    CVMesaQuirk quirk;
};

bool Near(const GLfloat* a, const GLfloat* b) {
    for (int i = 0; i < 3; ++i)
        if (a[i] < b[i] - 0.01f || a[i] > b[i] + 0.01f) return false;
    return true;
}

// A group whose shape left line mode behind inside its own enable bracket.
bool PolygonModeLost() {
    CVAttribStack::Push(GL_ENABLE_BIT | GL_LIGHTING_BIT | GL_POLYGON_BIT);
    CVAttribStack::Push(GL_ENABLE_BIT);
    glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
    CVAttribStack::Pop();
    CVAttribStack::Pop();
    GLint mode[2] = {0, 0};
    glGetIntegerv(GL_POLYGON_MODE, mode);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    return mode[0] != GL_FILL;
}

// The replay bracket of a deferred shape, which renders the scene light.
bool LightSurvives() {
    CVAttribStack::Push(GL_ENABLE_BIT | GL_POLYGON_BIT);
    glEnable(GL_LIGHT5);
    CVAttribStack::Pop();
    const bool on = glIsEnabled(GL_LIGHT5);
    glDisable(GL_LIGHT5);
    return on;
}

bool AmbientIgnored() {
    const GLfloat color[4] = {0.2f, 0.55f, 0.85f, 1}, ambient[4] = {0.1f, 0.275f, 0.425f, 1};
    glEnable(GL_COLOR_MATERIAL);
    glColorMaterial(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE);
    glColor4fv(color);
    CVMesaQuirks::SetMaterialAmbient(GL_FRONT_AND_BACK, ambient);
    GLfloat front[4], diffuse[4];
    glGetMaterialfv(GL_FRONT, GL_AMBIENT, front);
    glGetMaterialfv(GL_FRONT, GL_DIFFUSE, diffuse);
    glDisable(GL_COLOR_MATERIAL);
    EXPECT_TRUE(Near(diffuse, color)) << "the diffuse colour still tracks the current colour";
    return !Near(front, ambient);
}

const struct {
    CVMesaQuirk quirk;
    bool (*symptom)();
} kCases[] = {
    {CVMesaQuirk::PolygonModeLostAfterEnablePop, PolygonModeLost},
    {CVMesaQuirk::LightEnablesSurviveEnablePop, LightSurvives},
    {CVMesaQuirk::TrackedAmbientIgnored, AmbientIgnored},
};

TEST(CVMesaQuirksGLTest, EachSymptomNeedsItsWorkaround) {
    Context context;
    for (const auto& c : kCases) {
        const char* name = CVMesaQuirks::Entry(c.quirk).name;
        ASSERT_TRUE(CVMesaQuirks::Applies(c.quirk)) << name;
        EXPECT_FALSE(c.symptom()) << name << " with its workaround";
        WorkaroundOff off(c.quirk);
        EXPECT_TRUE(c.symptom()) << name << " without its workaround: the driver may have fixed it";
    }
}

// A strip, then two polygons (the cylinder's block pattern), replayed in
// selection mode and picked at the centre.
int PickMixedBlocks() {
    Context context;
    glViewport(0, 0, 16, 16);
    const GLuint list = glGenLists(1);
    glNewList(list, GL_COMPILE);
    CVSelectSafeList::BeginBlock(GL_TRIANGLE_STRIP, 0.0f, 0.0f, 1.0f);
    const float strip[4][2] = {{-0.5f, -0.5f}, {0.5f, -0.5f}, {-0.5f, 0.5f}, {0.5f, 0.5f}};
    for (const auto& v : strip) glVertex2fv(v);
    glEnd();
    for (int i = 0; i < 2; ++i) {
        CVSelectSafeList::BeginBlock(GL_POLYGON, 0.0f, i ? -1.0f : 1.0f, 0.0f);
        for (int v = 0; v < 3; ++v) glVertex2fv(strip[v == 2 ? 3 : v]);
        glEnd();
    }
    glEndList();
    GLuint buffer[64];
    glSelectBuffer(64, buffer);
    glRenderMode(GL_SELECT);
    glInitNames();
    glPushName(1);
    GLint viewport[4];
    glGetIntegerv(GL_VIEWPORT, viewport);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluPickMatrix(8.0, 8.0, 2.0, 2.0, viewport);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glCallList(list);
    glPopName();
    const int hits = glRenderMode(GL_RENDER);
    glDeleteLists(list, 1);
    return hits;
}

TEST(CVMesaQuirksDeathTest, SelectListMixedBlocksCrash) {
    EXPECT_EQ(PickMixedBlocks(), 1);
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(
        {
            CVMesaQuirks::SetWorkaroundEnabled(CVMesaQuirk::SelectListMixedBlocksCrash, 0);
            PickMixedBlocks();
        },
        "");
}

}  // namespace
