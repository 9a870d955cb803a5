#include <gtest/gtest.h>

#include <GL/gl.h>

#include "render/CVAttribStack.h"
#include "render/CVBitmapDevice.h"
#include "render/CVGLRenderArea.h"
#include "support/CVTestBitmap.h"

namespace {

GLint FrontMode() {
    GLint mode[2] = {0, 0};
    glGetIntegerv(GL_POLYGON_MODE, mode);
    return mode[0];
}

// A headless context of its own, current.
struct Context {
    Context() : bitmap(8, 8), device(bitmap.GetDC()), area(new CVGLRenderArea(&device)) { area->Ref(); }
    ~Context() { area->Unref(); }
    CVTestBitmap bitmap;
    CVBitmapDevice device;
    CVGLRenderArea* area;
};

TEST(CVAttribStackGLTest, EachContextKeepsItsOwnStack) {
    Context context, other;
    context.area->MakeCurrent();
    CVAttribStack::Push(GL_POLYGON_BIT);
    other.area->MakeCurrent();
    CVAttribStack::Push(GL_ENABLE_BIT);  // no polygon bit in this context
    CVAttribStack::Pop();
    context.area->MakeCurrent();
    CVAttribStack::Push(GL_ENABLE_BIT);
    glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
    CVAttribStack::Pop();
    CVAttribStack::Pop();
    EXPECT_EQ(FrontMode(), GL_FILL);
}

}  // namespace
