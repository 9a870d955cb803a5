#include "platform/CVAccumBuffer.h"

#include "platform/CVGLContext.h"
#include "platform/CVMesaQuirks.h"
#include "platform/CVPixelTransfer.h"

#include <algorithm>

void CVAccum(GLenum op, GLfloat value) {
    CVGLContext* ctx = CVGLContext::GetCurrent();
    if (!ctx) return;
    GLint bits = 0;
    glGetIntegerv(GL_ACCUM_RED_BITS, &bits);
    if (bits > 0 && !CVMesaQuirks::Applies(CVMesaQuirk::AccumThroughSRGB)) {
        glAccum(op, value);
        return;
    }
    int w = 0, h = 0;
    if (!ctx->GetDrawableSize(w, h)) return;
    ctx->GetAccumBuffer().Apply(op, value, w, h);
}

void CVAccumBuffer::Apply(GLenum op, GLfloat value, int drawableWidth, int drawableHeight) {
    if (op != GL_LOAD && op != GL_ACCUM && op != GL_MULT && op != GL_ADD && op != GL_RETURN) return;
    if (drawableWidth <= 0 || drawableHeight <= 0) return;
    if (drawableWidth != m_nWidth || drawableHeight != m_nHeight) {
        m_nWidth = drawableWidth;
        m_nHeight = drawableHeight;
        m_values.assign((size_t)m_nWidth * m_nHeight * 4, 0.0f);
    }

    int x0 = 0, y0 = 0, x1 = m_nWidth, y1 = m_nHeight;
    if (glIsEnabled(GL_SCISSOR_TEST)) {
        GLint box[4];
        glGetIntegerv(GL_SCISSOR_BOX, box);
        x0 = std::max(x0, box[0]);
        y0 = std::max(y0, box[1]);
        x1 = std::min(x1, box[0] + box[2]);
        y1 = std::min(y1, box[1] + box[3]);
    }
    const int w = x1 - x0, h = y1 - y0;
    if (w <= 0 || h <= 0) return;

    std::vector<GLfloat> pixels;
    if (op == GL_LOAD || op == GL_ACCUM || op == GL_RETURN) pixels.resize((size_t)w * h * 4);
    CVPixelTransfer transfer(CVPixelTransfer::kAccum);
    if (op == GL_LOAD || op == GL_ACCUM) transfer.ReadFloats(x0, y0, w, h, pixels.data());

    for (int j = 0; j < h; ++j) {
        GLfloat* acc = &m_values[((size_t)(y0 + j) * m_nWidth + x0) * 4];
        GLfloat* px = pixels.empty() ? nullptr : &pixels[(size_t)j * w * 4];
        for (int i = 0; i < w * 4; ++i) {
            switch (op) {
            case GL_LOAD: acc[i] = value * px[i]; break;
            case GL_ACCUM: acc[i] += value * px[i]; break;
            case GL_MULT: acc[i] *= value; break;
            case GL_ADD: acc[i] += value; break;
            default: px[i] = std::clamp(value * acc[i], 0.0f, 1.0f); break;
            }
        }
    }
    if (op == GL_RETURN) transfer.DrawFloats(x0, y0, w, h, pixels.data());
}
