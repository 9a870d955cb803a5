// A render area on an X11 window (run under Xvfb: `make test` starts one).
#include <gtest/gtest.h>

#include <GL/gl.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>


#include "platform/WinUser.h"
#include "render/CVGLRenderArea.h"
#include "render/CVWindowDevice.h"
#include "support/CVTestWindow.h"

namespace {

class CVWindowDeviceGLTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_NE(win.GetDC(), nullptr);
        display = win.GetDisplay();
        window = win.GetWindow();
        dc = win.GetDC();
    }
    CVTestWindow win{64, 48};
    Display* display = nullptr;
    Window window = 0;
    HDC dc = nullptr;
};

TEST_F(CVWindowDeviceGLTest, RequestedFlagsNeverCarryDoubleBuffering) {
    CVWindowDevice device(dc, 1);
    EXPECT_EQ(device.IsDoubleBuffer(), 1);
    PIXELFORMATDESCRIPTOR pfd;
    device.GetPFD(pfd);
    EXPECT_EQ(pfd.dwFlags, (DWORD)(PFD_DRAW_TO_WINDOW | PFD_DRAW_TO_BITMAP | PFD_SUPPORT_OPENGL));
    PIXELFORMATDESCRIPTOR chosen;
    device.GetChosenPFD(chosen);
    EXPECT_TRUE(chosen.dwFlags & PFD_DRAW_TO_WINDOW);
    EXPECT_TRUE(chosen.dwFlags & PFD_DOUBLEBUFFER);
}

TEST_F(CVWindowDeviceGLTest, WindowAreaClearsDrawsAndSwaps) {
    CVWindowDevice device(dc, 1);
    auto* area = new CVGLRenderArea(&device);
    area->Ref();
    ASSERT_NE(area->GetHGLRC(), nullptr);
    CVGLRenderArea::SetInflateWorld(0);
    area->SetViewport(0, 0, 64, 48);
    glClearColor(0.0f, 0.0f, 1.0f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glDisable(GL_CULL_FACE);
    glColor3f(1.0f, 0.0f, 0.0f);
    glBegin(GL_QUADS);  // left half red
    glVertex2f(-1.0f, -1.0f);
    glVertex2f(0.0f, -1.0f);
    glVertex2f(0.0f, 1.0f);
    glVertex2f(-1.0f, 1.0f);
    glEnd();
    glFinish();
    area->SwapBuffers();
    glFinish();
    // What the X server shows, not what GL thinks it drew.
    XImage* image = XGetImage(display, window, 0, 0, 64, 48, AllPlanes, ZPixmap);
    ASSERT_NE(image, nullptr);
    unsigned long left = XGetPixel(image, 10, 24), right = XGetPixel(image, 50, 24);
    XDestroyImage(image);
    EXPECT_EQ(left & 0xFFFFFF, 0xFF0000ul);
    EXPECT_EQ(right & 0xFFFFFF, 0x0000FFul);
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
