// A window device under Xvfb (`make test` starts one). Frames drawn, swapped
// and read back from a window are checked in CVRenderActionGLTest.
#include <gtest/gtest.h>

#include "platform/WinUser.h"
#include "render/CVWindowDevice.h"
#include "support/CVTestWindow.h"

namespace {

TEST(CVWindowDeviceGLTest, RequestedFlagsNeverCarryDoubleBuffering) {
    CVTestWindow win{64, 48};
    ASSERT_NE(win.GetDC(), nullptr);
    CVWindowDevice device(win.GetDC(), 1);
    EXPECT_EQ(device.IsDoubleBuffer(), 1);
    PIXELFORMATDESCRIPTOR pfd;
    device.GetPFD(pfd);
    EXPECT_EQ(pfd.dwFlags, (DWORD)(PFD_DRAW_TO_WINDOW | PFD_DRAW_TO_BITMAP | PFD_SUPPORT_OPENGL));
    device.GetChosenPFD(pfd);
    EXPECT_TRUE(pfd.dwFlags & PFD_DRAW_TO_WINDOW);
    EXPECT_TRUE(pfd.dwFlags & PFD_DOUBLEBUFFER);
}

TEST(CVWindowDeviceTest, PreCreateWindowClipsChildrenAndSiblings) {
    CREATESTRUCTW cs = {};
    cs.style = 0x80 | 0x1;
    CVWindowDevice::PreCreateWindow(cs);
    EXPECT_EQ(cs.style, (LONG)(0x1 | WS_CLIPCHILDREN | WS_CLIPSIBLINGS));
}

}  // namespace
