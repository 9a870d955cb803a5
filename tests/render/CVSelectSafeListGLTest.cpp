#include <gtest/gtest.h>

#include <GL/gl.h>
#include <GL/glu.h>

#include "render/CVBitmapDevice.h"
#include "render/CVGLRenderArea.h"
#include "render/CVSelectSafeList.h"
#include "support/CVTestBitmap.h"

namespace {

class CVSelectSafeListGLTest : public ::testing::Test {
protected:
    CVSelectSafeListGLTest() : bitmap(16, 16), device(bitmap.GetDC()) {
        area = new CVGLRenderArea(&device);
        area->Ref();
        glViewport(0, 0, 16, 16);
        m_nList = glGenLists(1);
    }
    ~CVSelectSafeListGLTest() override {
        glDeleteLists(m_nList, 1);
        area->Unref();
    }

    // A unit square at the origin drawn as a strip, then twice as a polygon:
    // the cylinder's block pattern.
    void CompileMixedBlocks(GLenum mode) {
        glNewList(m_nList, mode);
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
    }

    int PickCentre() {
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
        glCallList(m_nList);
        glPopName();
        return glRenderMode(GL_RENDER);
    }

    CVTestBitmap bitmap;
    CVBitmapDevice device;
    CVGLRenderArea* area;
    GLuint m_nList = 0;
};

// Without the separating state call this list crashes Mesa 22.3 in selection mode.
TEST_F(CVSelectSafeListGLTest, MixedBlocksReplayInSelectionMode) {
    CompileMixedBlocks(GL_COMPILE);
    EXPECT_EQ(PickCentre(), 1);
    CompileMixedBlocks(GL_COMPILE_AND_EXECUTE);
    EXPECT_EQ(PickCentre(), 1);
}

}  // namespace
