// GDI drawing on a DC whose context is in the middle of a frame must neither
// be altered by GL state nor alter it.
#include "platform/CVTestGLDib.h"

#include <gtest/gtest.h>

#include <vector>

namespace {
GLfloat GetFloat(GLenum name) {
    GLfloat v[4] = {};
    glGetFloatv(name, v);
    return v[0];
}

TEST(CVPixelTransferGLTest, GdiWritesIgnoreAndKeepTheHostsState) {
    CVTestGLDib dib(64, 64, 32);
    ASSERT_TRUE(dib.MakeCurrent());
    glClearDepth(0.0);  // every fragment would fail GL_LESS
    glClear(GL_DEPTH_BUFFER_BIT);
    CVTestClear(0, 0, 0);
    const GLenum caps[] = {GL_DEPTH_TEST, GL_BLEND, GL_SCISSOR_TEST, GL_TEXTURE_2D};
    for (GLenum cap : caps) glEnable(cap);
    glBlendFunc(GL_ZERO, GL_ONE);
    glScissor(0, 0, 1, 1);
    glColorMask(GL_FALSE, GL_TRUE, GL_TRUE, GL_TRUE);
    glPixelZoom(2.0f, 3.0f);
    glPixelTransferf(GL_RED_SCALE, 0.0f);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glPixelStorei(GL_UNPACK_ROW_LENGTH, 7);
    glPixelStorei(GL_PACK_SKIP_ROWS, 3);
    glRasterPos2f(0.25f, 0.5f);
    GLfloat rasterBefore[4], raster[4];
    glGetFloatv(GL_CURRENT_RASTER_POSITION, rasterBefore);

    dib.Fill(8, 8, 16, 16, RGB(200, 100, 50));

    for (GLenum cap : caps) EXPECT_TRUE(glIsEnabled(cap)) << std::hex << cap;
    GLboolean mask[4];
    glGetBooleanv(GL_COLOR_WRITEMASK, mask);
    EXPECT_FALSE(mask[0]);
    glGetFloatv(GL_CURRENT_RASTER_POSITION, raster);
    EXPECT_EQ((std::vector<GLfloat>{GetFloat(GL_ZOOM_Y), GetFloat(GL_RED_SCALE), raster[0], raster[1]}),
              (std::vector<GLfloat>{3.0f, 0.0f, rasterBefore[0], rasterBefore[1]}));
    EXPECT_EQ((std::vector<GLint>{CVTestGetInt(GL_UNPACK_ALIGNMENT), CVTestGetInt(GL_UNPACK_ROW_LENGTH),
                                  CVTestGetInt(GL_PACK_SKIP_ROWS)}),
              (std::vector<GLint>{1, 7, 3}));
    EXPECT_EQ(glGetError(), (GLenum)GL_NO_ERROR);

    // The fill reached GL unscaled, unzoomed, unmasked and past the tests.
    glPixelStorei(GL_PACK_SKIP_ROWS, 0);
    glPixelTransferf(GL_RED_SCALE, 1.0f);  // GLAt reads through the transfer state too
    EXPECT_EQ(dib.GLAt(8, 8), RGB(200, 100, 50));
    EXPECT_EQ(dib.GLAt(15, 15), RGB(200, 100, 50));
    EXPECT_EQ(dib.GLAt(16, 16), RGB(0, 0, 0));
    EXPECT_EQ(dib.GLAt(7, 12), RGB(0, 0, 0));
}
}  // namespace
