// GDI drawing on a DC whose context is in the middle of a frame must neither
// be altered by GL state nor alter it.
#include "platform/CVTestGLDib.h"

#include <gtest/gtest.h>

namespace {
TEST(CVPixelTransferGLTest, GdiWritesIgnoreAndKeepTheHostsState) {
    CVTestGLDib dib(64, 64, 32);
    ASSERT_TRUE(dib.MakeCurrent());
    glClearColor(0, 0, 0, 0);
    glClearDepth(0.0);  // every fragment would fail GL_LESS
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glEnable(GL_DEPTH_TEST);
    glEnable(GL_BLEND);
    glBlendFunc(GL_ZERO, GL_ONE);
    glEnable(GL_SCISSOR_TEST);
    glScissor(0, 0, 1, 1);
    glEnable(GL_TEXTURE_2D);
    glColorMask(GL_FALSE, GL_TRUE, GL_TRUE, GL_TRUE);
    glPixelZoom(2.0f, 3.0f);
    glPixelTransferf(GL_RED_SCALE, 0.0f);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glPixelStorei(GL_UNPACK_ROW_LENGTH, 7);
    glPixelStorei(GL_PACK_SKIP_ROWS, 3);
    glRasterPos2f(0.25f, 0.5f);
    GLfloat rasterBefore[4];
    glGetFloatv(GL_CURRENT_RASTER_POSITION, rasterBefore);

    dib.Fill(8, 8, 16, 16, RGB(200, 100, 50));

    EXPECT_TRUE(glIsEnabled(GL_DEPTH_TEST));
    EXPECT_TRUE(glIsEnabled(GL_BLEND));
    EXPECT_TRUE(glIsEnabled(GL_SCISSOR_TEST));
    EXPECT_TRUE(glIsEnabled(GL_TEXTURE_2D));
    GLboolean mask[4];
    glGetBooleanv(GL_COLOR_WRITEMASK, mask);
    EXPECT_FALSE(mask[0]);
    GLfloat zoom, scale, raster[4];
    glGetFloatv(GL_ZOOM_Y, &zoom);
    glGetFloatv(GL_RED_SCALE, &scale);
    glGetFloatv(GL_CURRENT_RASTER_POSITION, raster);
    EXPECT_EQ(zoom, 3.0f);
    EXPECT_EQ(scale, 0.0f);
    EXPECT_EQ(raster[0], rasterBefore[0]);
    EXPECT_EQ(raster[1], rasterBefore[1]);
    GLint alignment, rowLength, skipRows;
    glGetIntegerv(GL_UNPACK_ALIGNMENT, &alignment);
    glGetIntegerv(GL_UNPACK_ROW_LENGTH, &rowLength);
    glGetIntegerv(GL_PACK_SKIP_ROWS, &skipRows);
    EXPECT_EQ(alignment, 1);
    EXPECT_EQ(rowLength, 7);
    EXPECT_EQ(skipRows, 3);
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
