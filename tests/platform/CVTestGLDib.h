#pragma once
// A DIB-section DC with an EGL context made the way the render area makes
// it: the shared pixel-format template plus PFD_DRAW_TO_BITMAP |
// PFD_SUPPORT_GDI, 32 depth bits requested.
#include "platform/WinGL.h"
#include "support/CVTestDib.h"

#include <GL/gl.h>

struct CVTestGLDib : CVTestDib {
    int format = 0;
    HGLRC context = nullptr;

    static PIXELFORMATDESCRIPTOR Request() {
        PIXELFORMATDESCRIPTOR pfd{};
        pfd.nSize = sizeof pfd;
        pfd.nVersion = 1;
        pfd.dwFlags = PFD_DRAW_TO_BITMAP | PFD_SUPPORT_OPENGL | PFD_SUPPORT_GDI;
        pfd.iPixelType = PFD_TYPE_RGBA;
        pfd.cDepthBits = 32;
        return pfd;
    }

    CVTestGLDib(int w, int h, int bitCount, bool topDownRows = false) : CVTestDib(w, h, bitCount, topDownRows) {
        PIXELFORMATDESCRIPTOR pfd = Request();
        format = ChoosePixelFormat(hdc, &pfd);
        if (format && SetPixelFormat(hdc, format, &pfd)) context = wglCreateContext(hdc);
    }
    ~CVTestGLDib() {
        if (wglGetCurrentContext() == context) wglMakeCurrent(nullptr, nullptr);
        if (context) wglDeleteContext(context);
    }
    bool MakeCurrent() { return wglMakeCurrent(hdc, context) != FALSE; }

    // GL's pixel at GDI position (x, y), read from the colour buffer.
    COLORREF GLAt(int x, int y) const {
        BYTE px[4] = {};
        glReadPixels(x, height - 1 - y, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, px);
        return RGB(px[0], px[1], px[2]);
    }
};

inline void CVTestClear(float r, float g, float b) {
    glClearColor(r, g, b, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT);
}

inline GLint CVTestGetInt(GLenum name) {
    GLint v = -1;
    glGetIntegerv(name, &v);
    return v;
}

// A quad over window rectangle [x0, x1) x [y0, y1) (GL rows), drawn with an
// identity transform and no depth test.
inline void CVTestDrawRect(int x0, int y0, int x1, int y1, int w, int h, float r, float g, float b) {
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(0, w, 0, h, -1, 1);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glColor3f(r, g, b);
    glBegin(GL_QUADS);
    glVertex2i(x0, y0);
    glVertex2i(x1, y0);
    glVertex2i(x1, y1);
    glVertex2i(x0, y1);
    glEnd();
}
