#pragma once
// Moves pixel rectangles between memory and the current context's default
// framebuffer without disturbing the host's GL state. While the object lives,
// everything that would alter glDrawPixels/glReadPixels is saved and set
// neutral: depth, stencil and alpha tests, blending, logic op, fog, lighting,
// polygon stipple, colour sum, texturing on every fixed-function unit, the
// bound program, framebuffers and pixel buffers, pixel store (pack and
// unpack), pixel transfer scale/bias/maps, zoom, the raster position and the
// read buffer (set to the draw buffer). The destructor puts it all back.
// Scissor, dither and colour mask are neutralised too for GDI transfers and
// kept for accumulation returns, which GL defines to honour them.
// Requires a current context of GL 1.4 or later.
#include "CVGdiBitmap.h"

#include <GL/gl.h>

#include <vector>

class CVPixelTransfer {
public:
    enum Mode { kGdi, kAccum };
    explicit CVPixelTransfer(Mode mode = kGdi);
    ~CVPixelTransfer();
    CVPixelTransfer(const CVPixelTransfer&) = delete;
    CVPixelTransfer& operator=(const CVPixelTransfer&) = delete;

    // rect (top-down bitmap coordinates) of a bitmap with a GL layout whose
    // size is the drawable's, from GL into the bitmap / from the bitmap to GL.
    void ReadBitmap(CVGdiBitmap& bmp, const RECT& rect);
    void DrawBitmap(const CVGdiBitmap& bmp, const RECT& rect);
    // RGBA floats of a window-coordinate rectangle (GL's bottom-up rows).
    void ReadFloats(int x, int y, int width, int height, GLfloat* out);
    void DrawFloats(int x, int y, int width, int height, const GLfloat* in);

private:
    struct Enable {
        GLenum cap;
        GLboolean on;
    };
    void Disable(GLenum cap);
    void SetPack(GLint rowLength, GLint skipPixels, GLint skipRows, GLint alignment);

    Mode m_mode;
    int m_nVersion = 0;  // major * 10 + minor
    std::vector<Enable> m_enables;
    std::vector<GLboolean> m_textureEnables;  // per unit, per target
    GLint m_nActiveTexture = 0;
    GLint m_nUnits = 1;
    GLboolean m_colorMask[4] = {GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE};
    GLint m_pack[8] = {};
    GLint m_unpack[8] = {};
    GLfloat m_transfer[10] = {};
    GLboolean m_bMapColor = GL_FALSE;
    GLfloat m_zoom[2] = {1.0f, 1.0f};
    GLint m_nReadBuffer = 0;
    GLint m_nProgram = 0;
    GLint m_nDrawFramebuffer = 0;
    GLint m_nReadFramebuffer = 0;
    GLint m_nPackBuffer = 0;
    GLint m_nUnpackBuffer = 0;
    int m_bPushedCurrent = 0;
    GLfloat m_rasterPos[4] = {};
};
