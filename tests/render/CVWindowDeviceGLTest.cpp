// A render area on an X11 window (run under Xvfb: `make test` starts one).
#include <gtest/gtest.h>

#include <GL/gl.h>
#include <X11/Xlib.h>

#include <cstdlib>

#include "platform/WinUser.h"
#include "render/CVGLRenderArea.h"
#include "render/CVWindowDevice.h"

namespace {

class CVWindowDeviceGLTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_NE(std::getenv("DISPLAY"), nullptr) << "window tests need an X server (run under xvfb-run)";
        display = XOpenDisplay(nullptr);
        ASSERT_NE(display, nullptr) << "cannot open the X display";
        window = XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, 64, 48, 0, 0, 0);
        XMapWindow(display, window);
        XSync(display, False);
        dc = CreateWindowDC(reinterpret_cast<_XDisplay*>(display), window);
        ASSERT_NE(dc, nullptr);
    }
    void TearDown() override {
        if (dc) ReleaseWindowDC(dc);
        if (display) {
            XDestroyWindow(display, window);
            XCloseDisplay(display);
        }
    }
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
    GLubyte left[4] = {}, right[4] = {};
    glReadBuffer(GL_FRONT);
    glReadPixels(10, 24, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, left);
    glReadPixels(50, 24, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, right);
    EXPECT_EQ(left[0], 255);
    EXPECT_EQ(left[2], 0);
    EXPECT_EQ(right[0], 0);
    EXPECT_EQ(right[2], 255);
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
