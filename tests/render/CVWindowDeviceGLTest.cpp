// A render area on an X11 window (run under Xvfb: `make test` starts one).
#include <gtest/gtest.h>

#include <GL/gl.h>

#include "platform/WinUser.h"
#include "render/CVGLRenderArea.h"
#include "render/CVWindowDevice.h"
#include "support/CVTestWindow.h"

namespace {

TEST(CVWindowDeviceGLTest, WindowAreaClearsDrawsAndSwapsButNeverAsksForDoubleBuffering) {
    CVTestWindow win{64, 48};
    ASSERT_NE(win.GetDC(), nullptr);
    CVWindowDevice device(win.GetDC(), 1);
    EXPECT_EQ(device.IsDoubleBuffer(), 1);
    PIXELFORMATDESCRIPTOR pfd;
    device.GetPFD(pfd);
    EXPECT_EQ(pfd.dwFlags, (DWORD)(PFD_DRAW_TO_WINDOW | PFD_DRAW_TO_BITMAP | PFD_SUPPORT_OPENGL));

    auto* area = new CVGLRenderArea(&device);
    area->Ref();
    ASSERT_NE(area->GetHGLRC(), nullptr);
    device.GetChosenPFD(pfd);
    EXPECT_TRUE(pfd.dwFlags & PFD_DRAW_TO_WINDOW);
    EXPECT_TRUE(pfd.dwFlags & PFD_DOUBLEBUFFER);
    CVGLRenderArea::SetInflateWorld(0);
    area->SetViewport(0, 0, 64, 48);
    glClearColor(0.0f, 0.0f, 1.0f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glDisable(GL_CULL_FACE);
    glColor3f(1.0f, 0.0f, 0.0f);
    glRectf(-1.0f, -1.0f, 0.0f, 1.0f);  // left half red
    glFinish();
    area->SwapBuffers();
    glFinish();
    // What the X server shows, not what GL thinks it drew.
    EXPECT_EQ(CVShownPixel(win.GetDisplay(), win.GetWindow(), 10, 24), 0xFF0000u);
    EXPECT_EQ(CVShownPixel(win.GetDisplay(), win.GetWindow(), 50, 24), 0x0000FFu);
    area->Unref();
    CVGLRenderArea::SetInflateWorld(1);
}

TEST(CVWindowDeviceTest, PreCreateWindowClipsChildrenAndSiblings) {
    CREATESTRUCTW cs = {};
    cs.style = 0x80 | 0x1;
    CVWindowDevice::PreCreateWindow(cs);
    EXPECT_EQ(cs.style, (LONG)(0x1 | WS_CLIPCHILDREN | WS_CLIPSIBLINGS));
}

}  // namespace
