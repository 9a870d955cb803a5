// Off-screen rendering from a program that loads libGL ahead of the library,
// as hosts using GLX or a toolkit do. Exits 0 when the frame lands in the DIB.
#include "platform/WinGL.h"

#include <GL/gl.h>
#include <link.h>

#include <cstdio>
#include <cstring>
#include <string>

namespace {
// Position of the first loaded object whose name contains part, or -1.
int LoadIndex(const char* part) {
    struct Search {
        const char* part;
        int index = 0;
        int found = -1;
    } s{part};
    dl_iterate_phdr(
        [](dl_phdr_info* info, size_t, void* data) {
            auto* s = static_cast<Search*>(data);
            if (s->found < 0 && info->dlpi_name && std::strstr(info->dlpi_name, s->part)) s->found = s->index;
            ++s->index;
            return 0;
        },
        &s);
    return s.found;
}

int Fail(const char* what) {
    std::fprintf(stderr, "link_order: %s\n", what);
    return 1;
}
}  // namespace

int main() {
    int gl = LoadIndex("libGL.so"), lib = LoadIndex("libcvscene.so");
    if (gl < 0 || lib < 0 || gl > lib) return Fail("libGL is not loaded ahead of libcvscene");

    BITMAPINFO bi{};
    bi.bmiHeader = BITMAPINFOHEADER{40, 64, 64, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    HDC dc = CreateCompatibleDC(nullptr);
    HBITMAP bmp = CreateDIBSection(dc, &bi, DIB_RGB_COLORS, &bits, nullptr, 0);
    HGDIOBJ old = SelectObject(dc, bmp);
    PIXELFORMATDESCRIPTOR pfd{};
    pfd.nSize = sizeof pfd;
    pfd.nVersion = 1;
    pfd.dwFlags = PFD_DRAW_TO_BITMAP | PFD_SUPPORT_OPENGL | PFD_SUPPORT_GDI;
    pfd.cDepthBits = 32;
    int format = ChoosePixelFormat(dc, &pfd);
    if (!format || !SetPixelFormat(dc, format, &pfd)) return Fail("no pixel format");
    HGLRC rc = wglCreateContext(dc);
    if (!rc || !wglMakeCurrent(dc, rc)) return Fail("no context");
    if (!glGetString(GL_RENDERER)) return Fail("GL calls reach no driver");

    glViewport(0, 0, 64, 64);
    glClearColor(0, 0, 1, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    glColor3f(1, 0, 0);
    glRectf(-1, -1, 0, 1);  // left half
    SwapBuffers(dc);

    const BYTE* p = static_cast<const BYTE*>(bits);
    const BYTE* left = p + (32 * 64 + 8) * 4;    // row 32 from the bottom, column 8
    const BYTE* right = p + (32 * 64 + 56) * 4;  // column 56
    bool ok = left[2] == 255 && left[0] == 0 && right[0] == 255 && right[2] == 0;

    wglMakeCurrent(nullptr, nullptr);
    wglDeleteContext(rc);
    SelectObject(dc, old);
    DeleteObject(bmp);
    DeleteDC(dc);
    if (!ok) return Fail("the frame did not reach the DIB");
    std::printf("link_order: rendered with libGL loaded ahead of the library\n");
    return 0;
}
