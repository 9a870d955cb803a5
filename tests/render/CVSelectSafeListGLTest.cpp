#include <gtest/gtest.h>

#include <GL/gl.h>
#include <GL/glu.h>

#include "render/CVBitmapDevice.h"
#include "render/CVGLRenderArea.h"
#include "render/CVSelectSafeList.h"
#include "support/CVTestBitmap.h"

namespace {

// A unit square at the origin drawn as a strip, then twice as a polygon (the
// cylinder's block pattern), picked at the centre. Without the separating
// state call this list crashes Mesa 22.3 in selection mode.
TEST(CVSelectSafeListGLTest, MixedBlocksReplayInSelectionMode) {
    CVTestBitmap bitmap(16, 16);
    CVBitmapDevice device(bitmap.GetDC());
    auto* area = new CVGLRenderArea(&device);
    area->Ref();
    glViewport(0, 0, 16, 16);
    const GLuint list = glGenLists(1);
    for (GLenum mode : {GL_COMPILE, GL_COMPILE_AND_EXECUTE}) {
        glNewList(list, mode);
        CVSelectSafeList::BeginBlock(GL_TRIANGLE_STRIP, 0.0f, 0.0f, 1.0f);
        glVertex2f(-0.5f, -0.5f);
        glVertex2f(0.5f, -0.5f);
        glVertex2f(-0.5f, 0.5f);
        glVertex2f(0.5f, 0.5f);
        glEnd();
        for (int i = 0; i < 2; ++i) {
            CVSelectSafeList::BeginBlock(GL_POLYGON, 0.0f, i ? -1.0f : 1.0f, 0.0f);
            glVertex2f(-0.5f, -0.5f);
            glVertex2f(0.5f, -0.5f);
            glVertex2f(0.5f, 0.5f);
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
        EXPECT_EQ(glRenderMode(GL_RENDER), 1) << (mode == GL_COMPILE ? "compiled" : "compiled and executed");
    }
    glDeleteLists(list, 1);
    area->Unref();
}

}  // namespace
