// WGL on memory DCs: EGL contexts drawing into DIB sections, and GDI and GL
// sharing the DIB's pixels.
#include "platform/CVAccumBuffer.h"
#include "platform/CVGdiHandleTable.h"
#include "platform/CVTestGLDib.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {
class DepthTest : public testing::TestWithParam<int> {};

TEST_P(DepthTest, PixelFormatDescribesWhatTheContextHas) {
    const bool deep = GetParam() == 32;
    CVTestGLDib dib(64, 64, GetParam());
    ASSERT_NE(dib.context, nullptr) << GetLastError();
    PIXELFORMATDESCRIPTOR pfd{};
    const int count = DescribePixelFormat(dib.hdc, dib.format, sizeof pfd, &pfd);
    EXPECT_GE(count, dib.format);
    EXPECT_EQ(DescribePixelFormat(dib.hdc, 0, 0, nullptr), count);
    EXPECT_EQ(GetPixelFormat(dib.hdc), dib.format);
    EXPECT_EQ(pfd.dwFlags, DWORD(PFD_DRAW_TO_BITMAP | PFD_SUPPORT_GDI | PFD_SUPPORT_OPENGL));
    ASSERT_TRUE(dib.MakeCurrent());
    EXPECT_EQ((std::vector<int>{pfd.cColorBits, pfd.cRedBits, pfd.cGreenBits, pfd.cAlphaBits, pfd.cDepthBits}),
              (std::vector<int>{GetParam(), CVTestGetInt(GL_RED_BITS), CVTestGetInt(GL_GREEN_BITS),
                                CVTestGetInt(GL_ALPHA_BITS), CVTestGetInt(GL_DEPTH_BITS)}));
    EXPECT_GE(pfd.cDepthBits, 24);             // 32 requested: the deepest buffer there is
    EXPECT_EQ(pfd.cRedShift, deep ? 16 : 11);  // where the DIB keeps each channel
    EXPECT_EQ(pfd.cGreenShift, deep ? 8 : 5);
    EXPECT_EQ(pfd.cAccumBits, 0);
    EXPECT_EQ(CVTestGetInt(GL_ACCUM_RED_BITS), 0);
    EXPECT_EQ(CVTestGetInt(GL_DOUBLEBUFFER), GL_FALSE);
    const char* version = reinterpret_cast<const char*>(glGetString(GL_VERSION));
    ASSERT_NE(version, nullptr);
    EXPECT_NE(std::string(version).find("Compatibility"), std::string::npos) << version;
}

TEST_P(DepthTest, TriangleReachesTheDibAfterSwapBuffersInEitherRowOrder) {
    for (bool topDown : {false, true}) {
        SCOPED_TRACE(topDown ? "top-down" : "bottom-up");
        CVTestGLDib dib(64, 64, GetParam(), topDown);
        ASSERT_TRUE(dib.MakeCurrent());
        glViewport(0, 0, 64, 64);
        CVTestClear(0, 0, 1);
        glColor3f(1.0f, 0.0f, 0.0f);
        glBegin(GL_TRIANGLES);  // lower-left half of the window
        glVertex2f(-1, -1);
        glVertex2f(1, -1);
        glVertex2f(-1, 1);
        glEnd();
        ASSERT_TRUE(SwapBuffers(dib.hdc));
        // GDI rows count from the top.
        EXPECT_EQ((std::vector<COLORREF>{dib.At(4, 59), dib.At(20, 50), dib.At(59, 4), dib.At(50, 20)}),
                  (std::vector<COLORREF>{RGB(255, 0, 0), RGB(255, 0, 0), RGB(0, 0, 255), RGB(0, 0, 255)}));
    }
}

TEST_P(DepthTest, GdiThenGlThenGdiLandInOrder) {
    CVTestGLDib dib(64, 64, GetParam());
    ASSERT_TRUE(dib.MakeCurrent());
    dib.Fill(RGB(0, 255, 0));  // background by GDI
    glDisable(GL_DEPTH_TEST);
    CVTestDrawRect(16, 16, 48, 48, 64, 64, 1.0f, 0.0f, 0.0f);  // GL over the middle
    dib.Fill(40, 8, 56, 24, RGB(0, 0, 255));                   // GDI again, across the quad's corner
    EXPECT_EQ(GetPixel(dib.hdc, 20, 40), RGB(255, 0, 0));      // GDI sees GL's drawing before any swap
    EXPECT_EQ(dib.GLAt(2, 2), RGB(0, 255, 0));                 // and GL sees both fills
    EXPECT_EQ(dib.GLAt(44, 20), RGB(0, 0, 255));
    ASSERT_TRUE(SwapBuffers(dib.hdc));
    const struct {
        int x, y;
        COLORREF c;
    } probes[] = {{2, 2, RGB(0, 255, 0)},  {20, 40, RGB(255, 0, 0)}, {44, 20, RGB(0, 0, 255)},
                  {44, 30, RGB(255, 0, 0)}, {52, 30, RGB(0, 255, 0)}};
    for (const auto& p : probes) EXPECT_EQ(dib.At(p.x, p.y), p.c) << p.x << "," << p.y;
}

INSTANTIATE_TEST_SUITE_P(CVEGLContextGLTest, DepthTest, testing::Values(32, 16),
                         [](const testing::TestParamInfo<int>& i) { return "Bits" + std::to_string(i.param); });

TEST(CVEGLContextGLTest, OperationsReadingTheDestinationSeeGlsPixels) {
    CVTestGLDib dib(64, 64, 32);
    CVTestDib magenta(64, 64, 32), copy(64, 64, 32);
    magenta.Fill(RGB(255, 0, 255));
    ASSERT_TRUE(dib.MakeCurrent());
    CVTestClear(0, 1, 0);
    glDisable(GL_DEPTH_TEST);
    CVTestDrawRect(0, 0, 32, 64, 64, 64, 1, 1, 0);  // left half yellow
    ASSERT_TRUE(BitBlt(dib.hdc, 0, 0, 64, 64, magenta.hdc, 0, 0, SRCAND));
    EXPECT_EQ(dib.GLAt(10, 10), RGB(255, 0, 0));
    EXPECT_EQ(dib.GLAt(50, 10), RGB(0, 0, 0));
    ASSERT_TRUE(BitBlt(copy.hdc, 0, 0, 64, 64, dib.hdc, 0, 0, SRCCOPY));  // GL's pixels as a source
    EXPECT_EQ(copy.At(10, 10), RGB(255, 0, 0));
}

TEST(CVEGLContextGLTest, GdiCallsBorrowTheContextAndPutBackWhatWasCurrent) {
    CVTestGLDib a(32, 32, 32), b(32, 32, 32);
    ASSERT_TRUE(a.MakeCurrent());
    CVTestClear(0, 0, 0);
    ASSERT_TRUE(b.MakeCurrent());
    a.Fill(RGB(255, 255, 0));  // a's context is not current
    EXPECT_EQ(wglGetCurrentContext(), b.context);
    EXPECT_EQ(wglGetCurrentDC(), b.hdc);
    wglMakeCurrent(nullptr, nullptr);
    EXPECT_EQ(GetPixel(a.hdc, 5, 5), RGB(255, 255, 0));
    EXPECT_EQ(wglGetCurrentContext(), nullptr);
    ASSERT_TRUE(a.MakeCurrent());
    EXPECT_EQ(a.GLAt(5, 5), RGB(255, 255, 0));
}

TEST(CVEGLContextGLTest, NewBitmapGetsItsOwnBuffer) {
    CVTestGLDib dib(64, 64, 32);
    ASSERT_TRUE(dib.MakeCurrent());
    CVTestClear(1, 0, 0);
    SwapBuffers(dib.hdc);
    CVTestDib other(32, 16, 32);
    SelectObject(other.hdc, other.old);  // free the bitmap for our DC
    HGDIOBJ first = SelectObject(dib.hdc, other.bitmap);
    EXPECT_EQ(wglGetCurrentContext(), dib.context);
    glViewport(0, 0, 32, 16);
    CVTestClear(0, 0, 1);
    SwapBuffers(dib.hdc);
    EXPECT_EQ(other.At(31, 15), RGB(0, 0, 255));
    EXPECT_EQ(dib.At(63, 63), RGB(255, 0, 0));  // the first DIB kept its frame
    SelectObject(dib.hdc, first);
    SelectObject(other.hdc, other.bitmap);
}

TEST(CVEGLContextGLTest, ContextsShareListsWithinEglOnly) {
    CVTestGLDib a(16, 16, 32), b(16, 16, 16);
    ASSERT_TRUE(wglShareLists(a.context, b.context));
    ASSERT_TRUE(a.MakeCurrent());
    GLuint list = glGenLists(1);
    glNewList(list, GL_COMPILE);
    CVTestClear(1, 0, 0);
    glEndList();
    ASSERT_TRUE(b.MakeCurrent());
    EXPECT_TRUE(glIsList(list));
    glCallList(list);
    EXPECT_EQ(b.GLAt(3, 3), RGB(255, 0, 0));
    glDeleteLists(list, 1);
    ASSERT_TRUE(a.MakeCurrent());
    EXPECT_FALSE(glIsList(list));
    // A context that does not exist shares with nothing.
    EXPECT_FALSE(wglShareLists(a.context, reinterpret_cast<HGLRC>(uintptr_t(0x7FFFFF00))));
    wglMakeCurrent(nullptr, nullptr);
}

TEST(CVEGLContextGLTest, NoContextOnBadTargetsAndEverythingAfterIsHarmless) {
    for (int bpp : {0, 1, 8}) {  // 0: no bitmap selected
        SCOPED_TRACE(bpp);
        HDC dc = CreateCompatibleDC(nullptr);
        HBITMAP bmp = nullptr;
        if (bpp) {
            CVTestDib probe(8, 8, bpp);
            SelectObject(probe.hdc, probe.old);
            bmp = probe.bitmap;
            probe.bitmap = CreateBitmap(1, 1, 1, 1, nullptr);  // probe deletes this instead
            SelectObject(dc, bmp);
        }
        PIXELFORMATDESCRIPTOR pfd = CVTestGLDib::Request();
        SetLastError(0);
        EXPECT_EQ(ChoosePixelFormat(dc, &pfd), 0);
        EXPECT_NE(GetLastError(), 0u);
        EXPECT_FALSE(SetPixelFormat(dc, 1, &pfd));
        HGLRC rc = wglCreateContext(dc);
        EXPECT_EQ(rc, nullptr);
        EXPECT_EQ(GetLastError(), (DWORD)ERROR_INVALID_PIXEL_FORMAT);
        EXPECT_FALSE(wglMakeCurrent(dc, rc) && wglGetCurrentContext() != nullptr);
        EXPECT_EQ(wglGetCurrentContext(), nullptr);
        EXPECT_FALSE(wglDeleteContext(rc));
        EXPECT_FALSE(wglShareLists(rc, rc));
        EXPECT_TRUE(SwapBuffers(dc));  // nothing to bring in
        EXPECT_TRUE(GdiFlush());
        CVAccum(GL_ACCUM, 0.5f);
        EXPECT_FALSE(SwapBuffers(nullptr));
        EXPECT_EQ(wglCreateContext(nullptr), nullptr);
        DeleteDC(dc);
        if (bmp) DeleteObject(bmp);
    }
}

TEST(CVEGLContextGLTest, DeletedContextLeavesTheDCUsable) {
    CVTestGLDib dib(16, 16, 32);
    ASSERT_TRUE(dib.MakeCurrent());
    CVTestClear(0, 1, 0);
    EXPECT_TRUE(wglDeleteContext(dib.context));
    EXPECT_EQ(wglGetCurrentContext(), nullptr);
    EXPECT_FALSE(wglMakeCurrent(dib.hdc, dib.context));
    dib.Fill(RGB(1, 2, 3));
    EXPECT_EQ(GetPixel(dib.hdc, 1, 1), RGB(1, 2, 3));
    dib.context = wglCreateContext(dib.hdc);  // a new context on the same DC starts from the DIB
    ASSERT_TRUE(dib.MakeCurrent());
    EXPECT_EQ(dib.GLAt(1, 1), RGB(1, 2, 3));
}

long ResidentKiB() {
    long pages = 0, resident = 0;
    if (FILE* f = std::fopen("/proc/self/statm", "r")) {
        if (std::fscanf(f, "%ld %ld", &pages, &resident) != 2) resident = 0;
        std::fclose(f);
    }
    return resident * 4;
}

TEST(CVEGLContextGLTest, RepeatedContextsLeaveNothingBehind) {
    // CVSCENE_LEAK_SIZE=1920x1080 for the full-size run under a leak checker.
    int w = 512, h = 512;
    if (const char* s = std::getenv("CVSCENE_LEAK_SIZE")) std::sscanf(s, "%dx%d", &w, &h);
    DeleteDC(CreateCompatibleDC(nullptr));  // the stock objects exist from here on
    const size_t handles = CVGdiHandleTable::GetCount();
    long before = 0;
    for (int i = 0; i < 100; ++i) {
        CVTestGLDib dib(w, h, 32);
        ASSERT_TRUE(dib.MakeCurrent());
        CVTestClear(0, 0, 1);
        ASSERT_TRUE(SwapBuffers(dib.hdc));
        ASSERT_EQ(dib.At(w - 1, 0), RGB(0, 0, 255));
        if (i == 9) before = ResidentKiB();  // after Mesa's one-off allocations
    }
    EXPECT_EQ(CVGdiHandleTable::GetCount(), handles);
    // Ninety leaked rounds would hold well over 200 MB (DIB, colour and depth).
    EXPECT_LT(ResidentKiB() - before, 64 * 1024);
}
}  // namespace
