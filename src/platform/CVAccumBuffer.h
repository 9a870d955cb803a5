#pragma once
// The accumulation buffer for contexts that have none (EGL configs never do).
// CVAccum is what the render action calls in place of glAccum: when the
// current context reports accumulation bits it is glAccum itself (unless the
// driver's glAccum is known to be wrong, see CVMesaQuirks); otherwise
// the current context's CVAccumBuffer carries out the operation with GL's
// arithmetic on RGBA floats held on the CPU:
//   GL_LOAD   acc = value * colour       GL_ACCUM  acc += value * colour
//   GL_MULT   acc *= value               GL_ADD    acc += value
//   GL_RETURN colour = clamp(value * acc, 0, 1), written through the colour
//             mask, scissor and dither state, to the draw buffer
// where colour is read from the current read buffer. As in GL, the operations
// cover the whole drawable, or only the scissor box when the scissor test is
// enabled. The values are not clamped or quantised, so they can be more exact
// than a 16-bit accumulation buffer. The storage belongs to the context and
// goes with it; it is resized (and zeroed) when the drawable's size changes.
// Without a current context, and for other operations, nothing happens.
#include <GL/gl.h>

#include <cstddef>
#include <vector>

void CVAccum(GLenum op, GLfloat value);

class CVAccumBuffer {
public:
    // op over the drawable of the given size, on the current context.
    void Apply(GLenum op, GLfloat value, int drawableWidth, int drawableHeight);
    int GetWidth() const { return m_nWidth; }
    int GetHeight() const { return m_nHeight; }
    // RGBA of one stored pixel (window coordinates), for inspection.
    const GLfloat* GetValue(int x, int y) const { return &m_values[(static_cast<std::size_t>(y) * m_nWidth + x) * 4]; }

private:
    int m_nWidth = 0;
    int m_nHeight = 0;
    std::vector<GLfloat> m_values;
};
