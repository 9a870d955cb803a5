#define GL_GLEXT_PROTOTYPES 1
#include "platform/CVPixelTransfer.h"

#include <GL/glext.h>

#include <cstdio>
#include <cstring>

namespace {
const GLenum kPackNames[8] = {GL_PACK_SWAP_BYTES,  GL_PACK_LSB_FIRST,   GL_PACK_ROW_LENGTH,
                              GL_PACK_IMAGE_HEIGHT, GL_PACK_SKIP_ROWS,   GL_PACK_SKIP_PIXELS,
                              GL_PACK_SKIP_IMAGES,  GL_PACK_ALIGNMENT};
const GLenum kUnpackNames[8] = {GL_UNPACK_SWAP_BYTES,  GL_UNPACK_LSB_FIRST, GL_UNPACK_ROW_LENGTH,
                                GL_UNPACK_IMAGE_HEIGHT, GL_UNPACK_SKIP_ROWS, GL_UNPACK_SKIP_PIXELS,
                                GL_UNPACK_SKIP_IMAGES,  GL_UNPACK_ALIGNMENT};
const GLint kStoreDefaults[8] = {0, 0, 0, 0, 0, 0, 0, 4};
const GLenum kTransferNames[10] = {GL_RED_SCALE,  GL_GREEN_SCALE, GL_BLUE_SCALE, GL_ALPHA_SCALE,
                                   GL_DEPTH_SCALE, GL_RED_BIAS,    GL_GREEN_BIAS, GL_BLUE_BIAS,
                                   GL_ALPHA_BIAS,  GL_DEPTH_BIAS};
const GLfloat kTransferDefaults[10] = {1, 1, 1, 1, 1, 0, 0, 0, 0, 0};
const GLenum kTextureTargets[4] = {GL_TEXTURE_1D, GL_TEXTURE_2D, GL_TEXTURE_3D, GL_TEXTURE_CUBE_MAP};

int ParseVersion() {
    const char* v = reinterpret_cast<const char*>(glGetString(GL_VERSION));
    int major = 0, minor = 0;
    if (!v || std::sscanf(v, "%d.%d", &major, &minor) != 2) return 0;
    return major * 10 + minor;
}

void SetStore(const GLenum* names, const GLint* values) {
    for (int i = 0; i < 8; ++i) glPixelStorei(names[i], values[i]);
}

// GL's format and type for a bitmap layout, and its bytes per pixel.
void GLFormat(CVGdiBitmap::GLLayout layout, GLenum& format, GLenum& type, int& bytes) {
    if (layout == CVGdiBitmap::kGLRGB565) {
        format = GL_RGB;
        type = GL_UNSIGNED_SHORT_5_6_5;
        bytes = 2;
    } else {
        format = GL_BGRA;
        type = GL_UNSIGNED_BYTE;
        bytes = 4;
    }
}
}  // namespace

CVPixelTransfer::CVPixelTransfer(Mode mode) : m_mode(mode) {
    m_nVersion = ParseVersion();
    if (m_nVersion < 14) return;  // no glWindowPos: the transfers below refuse

    // Framebuffers first: the read buffer saved below is the default one's.
    if (m_nVersion >= 30) {
        glGetIntegerv(GL_DRAW_FRAMEBUFFER_BINDING, &m_nDrawFramebuffer);
        glGetIntegerv(GL_READ_FRAMEBUFFER_BINDING, &m_nReadFramebuffer);
        glBindFramebuffer(GL_FRAMEBUFFER, 0);
    }
    if (m_nVersion >= 21) {
        glGetIntegerv(GL_PIXEL_PACK_BUFFER_BINDING, &m_nPackBuffer);
        glGetIntegerv(GL_PIXEL_UNPACK_BUFFER_BINDING, &m_nUnpackBuffer);
        glBindBuffer(GL_PIXEL_PACK_BUFFER, 0);
        glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
    }
    if (m_nVersion >= 20) {
        glGetIntegerv(GL_CURRENT_PROGRAM, &m_nProgram);
        if (m_nProgram) glUseProgram(0);
    }

    // The raster position goes through the attribute stack when it has room;
    // otherwise it is put back from its window coordinates.
    GLint depth = 0, maxDepth = 0;
    glGetIntegerv(GL_ATTRIB_STACK_DEPTH, &depth);
    glGetIntegerv(GL_MAX_ATTRIB_STACK_DEPTH, &maxDepth);
    if (depth < maxDepth) {
        glPushAttrib(GL_CURRENT_BIT);
        m_bPushedCurrent = 1;
    } else {
        glGetFloatv(GL_CURRENT_RASTER_POSITION, m_rasterPos);
    }

    for (GLenum cap : {GL_DEPTH_TEST, GL_STENCIL_TEST, GL_ALPHA_TEST, GL_BLEND, GL_COLOR_LOGIC_OP, GL_FOG,
                       GL_LIGHTING, GL_POLYGON_STIPPLE, GL_COLOR_SUM}) {
        Disable(cap);
    }
    if (m_mode == kGdi) {
        Disable(GL_SCISSOR_TEST);
        Disable(GL_DITHER);
        glGetBooleanv(GL_COLOR_WRITEMASK, m_colorMask);
        glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    }

    glGetIntegerv(GL_ACTIVE_TEXTURE, &m_nActiveTexture);
    glGetIntegerv(GL_MAX_TEXTURE_UNITS, &m_nUnits);
    if (m_nUnits < 1) m_nUnits = 1;
    m_textureEnables.resize((size_t)m_nUnits * 4);
    for (GLint u = 0; u < m_nUnits; ++u) {
        glActiveTexture(GL_TEXTURE0 + u);
        for (int t = 0; t < 4; ++t) {
            GLboolean on = glIsEnabled(kTextureTargets[t]);
            m_textureEnables[(size_t)u * 4 + t] = on;
            if (on) glDisable(kTextureTargets[t]);
        }
    }
    glActiveTexture(m_nActiveTexture);

    for (int i = 0; i < 8; ++i) {
        glGetIntegerv(kPackNames[i], &m_pack[i]);
        glGetIntegerv(kUnpackNames[i], &m_unpack[i]);
    }
    SetStore(kPackNames, kStoreDefaults);
    SetStore(kUnpackNames, kStoreDefaults);
    for (int i = 0; i < 10; ++i) {
        glGetFloatv(kTransferNames[i], &m_transfer[i]);
        glPixelTransferf(kTransferNames[i], kTransferDefaults[i]);
    }
    glGetBooleanv(GL_MAP_COLOR, &m_bMapColor);
    glPixelTransferi(GL_MAP_COLOR, GL_FALSE);
    glGetFloatv(GL_ZOOM_X, &m_zoom[0]);
    glGetFloatv(GL_ZOOM_Y, &m_zoom[1]);
    glPixelZoom(1.0f, 1.0f);

    glGetIntegerv(GL_READ_BUFFER, &m_nReadBuffer);
    if (m_mode == kGdi) {
        GLint draw = 0;
        glGetIntegerv(GL_DRAW_BUFFER, &draw);
        glReadBuffer(draw);
    }
}

CVPixelTransfer::~CVPixelTransfer() {
    if (m_nVersion < 14) return;
    glReadBuffer(m_nReadBuffer);
    glPixelZoom(m_zoom[0], m_zoom[1]);
    glPixelTransferi(GL_MAP_COLOR, m_bMapColor);
    for (int i = 0; i < 10; ++i) glPixelTransferf(kTransferNames[i], m_transfer[i]);
    SetStore(kPackNames, m_pack);
    SetStore(kUnpackNames, m_unpack);

    for (GLint u = 0; u < m_nUnits; ++u) {
        bool any = false;
        for (int t = 0; t < 4; ++t) any = any || m_textureEnables[(size_t)u * 4 + t];
        if (!any) continue;
        glActiveTexture(GL_TEXTURE0 + u);
        for (int t = 0; t < 4; ++t) {
            if (m_textureEnables[(size_t)u * 4 + t]) glEnable(kTextureTargets[t]);
        }
    }
    glActiveTexture(m_nActiveTexture);

    if (m_mode == kGdi) glColorMask(m_colorMask[0], m_colorMask[1], m_colorMask[2], m_colorMask[3]);
    for (const Enable& e : m_enables) glEnable(e.cap);

    if (m_bPushedCurrent) {
        glPopAttrib();
    } else {
        glWindowPos3f(m_rasterPos[0], m_rasterPos[1], m_rasterPos[2]);
    }
    if (m_nVersion >= 20 && m_nProgram) glUseProgram(m_nProgram);
    if (m_nVersion >= 21) {
        glBindBuffer(GL_PIXEL_PACK_BUFFER, m_nPackBuffer);
        glBindBuffer(GL_PIXEL_UNPACK_BUFFER, m_nUnpackBuffer);
    }
    if (m_nVersion >= 30) {
        glBindFramebuffer(GL_DRAW_FRAMEBUFFER, m_nDrawFramebuffer);
        glBindFramebuffer(GL_READ_FRAMEBUFFER, m_nReadFramebuffer);
    }
}

void CVPixelTransfer::Disable(GLenum cap) {
    if (glIsEnabled(cap)) {
        m_enables.push_back(Enable{cap, GL_TRUE});
        glDisable(cap);
    }
}

void CVPixelTransfer::SetPack(GLint rowLength, GLint skipPixels, GLint skipRows, GLint alignment) {
    glPixelStorei(GL_PACK_ROW_LENGTH, rowLength);
    glPixelStorei(GL_PACK_SKIP_PIXELS, skipPixels);
    glPixelStorei(GL_PACK_SKIP_ROWS, skipRows);
    glPixelStorei(GL_PACK_ALIGNMENT, alignment);
    glPixelStorei(GL_UNPACK_ROW_LENGTH, rowLength);
    glPixelStorei(GL_UNPACK_SKIP_PIXELS, skipPixels);
    glPixelStorei(GL_UNPACK_SKIP_ROWS, skipRows);
    glPixelStorei(GL_UNPACK_ALIGNMENT, alignment);
}

void CVPixelTransfer::ReadBitmap(CVGdiBitmap& bmp, const RECT& r) {
    if (m_nVersion < 14 || r.right <= r.left || r.bottom <= r.top) return;
    GLenum format, type;
    int bytes;
    GLFormat(bmp.GetGLLayout(), format, type, bytes);
    const int w = r.right - r.left, h = r.bottom - r.top, glY = bmp.GetHeight() - r.bottom;
    if (!bmp.IsTopDown()) {
        // Bottom-up rows are GL's rows: read straight into the bitmap.
        SetPack(bmp.GetStride() / bytes, r.left, glY, 1);
        glReadPixels(r.left, glY, w, h, format, type, bmp.GetBits());
        return;
    }
    std::vector<BYTE> tmp((size_t)w * h * bytes);
    SetPack(0, 0, 0, 1);
    glReadPixels(r.left, glY, w, h, format, type, tmp.data());
    for (int k = 0; k < h; ++k) {
        std::memcpy(bmp.GetRow(r.bottom - 1 - k) + (size_t)r.left * bytes, &tmp[(size_t)k * w * bytes],
                    (size_t)w * bytes);
    }
}

void CVPixelTransfer::DrawBitmap(const CVGdiBitmap& bmp, const RECT& r) {
    if (m_nVersion < 14 || r.right <= r.left || r.bottom <= r.top) return;
    GLenum format, type;
    int bytes;
    GLFormat(bmp.GetGLLayout(), format, type, bytes);
    const int w = r.right - r.left, h = r.bottom - r.top, glY = bmp.GetHeight() - r.bottom;
    glWindowPos2i(r.left, glY);
    if (!bmp.IsTopDown()) {
        SetPack(bmp.GetStride() / bytes, r.left, glY, 1);
        glDrawPixels(w, h, format, type, bmp.GetBits());
        return;
    }
    std::vector<BYTE> tmp((size_t)w * h * bytes);
    for (int k = 0; k < h; ++k) {
        std::memcpy(&tmp[(size_t)k * w * bytes], bmp.GetRow(r.bottom - 1 - k) + (size_t)r.left * bytes,
                    (size_t)w * bytes);
    }
    SetPack(0, 0, 0, 1);
    glDrawPixels(w, h, format, type, tmp.data());
}

void CVPixelTransfer::ReadFloats(int x, int y, int width, int height, GLfloat* out) {
    if (m_nVersion < 14 || width <= 0 || height <= 0) return;
    SetPack(0, 0, 0, 4);
    glReadPixels(x, y, width, height, GL_RGBA, GL_FLOAT, out);
}

void CVPixelTransfer::DrawFloats(int x, int y, int width, int height, const GLfloat* in) {
    if (m_nVersion < 14 || width <= 0 || height <= 0) return;
    SetPack(0, 0, 0, 4);
    glWindowPos2i(x, y);
    glDrawPixels(width, height, GL_RGBA, GL_FLOAT, in);
}
