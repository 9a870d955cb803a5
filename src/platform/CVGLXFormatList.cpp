#include "platform/CVGLXFormatList.h"

#include <GL/glx.h>
#include <X11/Xutil.h>


namespace {
int Attrib(Display* dpy, GLXFBConfig config, int name) {
    int v = 0;
    glXGetFBConfigAttrib(dpy, config, name, &v);
    return v;
}

BYTE Shift(unsigned long mask) { return mask ? BYTE(__builtin_ctzl(mask)) : 0; }
}  // namespace

CVGLXFormatList* CVGLXFormatList::Create(_XDisplay* display, int screen, int depth) {
    int errorBase, eventBase;
    if (!display || !glXQueryExtension(display, &errorBase, &eventBase)) return nullptr;

    // Visuals of the window's depth, with their channel masks.
    XVisualInfo tmpl{};
    tmpl.screen = screen;
    tmpl.depth = depth;
    int nVisuals = 0;
    XVisualInfo* visuals = XGetVisualInfo(display, VisualScreenMask | VisualDepthMask, &tmpl, &nVisuals);
    if (!visuals) return nullptr;

    CVGLXFormatList* list = new CVGLXFormatList;
    int nConfigs = 0;
    GLXFBConfig* configs = glXGetFBConfigs(display, screen, &nConfigs);
    list->m_pConfigs = configs;
    for (int i = 0; configs && i < nConfigs; ++i) {
        GLXFBConfig c = configs[i];
        if (!(Attrib(display, c, GLX_DRAWABLE_TYPE) & GLX_WINDOW_BIT)) continue;
        if (!(Attrib(display, c, GLX_RENDER_TYPE) & GLX_RGBA_BIT)) continue;
        if (Attrib(display, c, GLX_SAMPLE_BUFFERS) != 0) continue;
        if (Attrib(display, c, GLX_X_VISUAL_TYPE) != GLX_TRUE_COLOR) continue;
        int visualId = Attrib(display, c, GLX_VISUAL_ID);
        const XVisualInfo* vi = nullptr;
        for (int k = 0; k < nVisuals; ++k) {
            if ((int)visuals[k].visualid == visualId) vi = &visuals[k];
        }
        if (!vi) continue;

        PIXELFORMATDESCRIPTOR d{};
        d.nSize = sizeof d;
        d.nVersion = 1;
        d.dwFlags = PFD_DRAW_TO_WINDOW | PFD_SUPPORT_OPENGL;
        if (Attrib(display, c, GLX_DOUBLEBUFFER)) d.dwFlags |= PFD_DOUBLEBUFFER;
        if (Attrib(display, c, GLX_STEREO)) d.dwFlags |= PFD_STEREO;
        d.iPixelType = PFD_TYPE_RGBA;
        d.cColorBits = (BYTE)Attrib(display, c, GLX_BUFFER_SIZE);
        d.cRedBits = (BYTE)Attrib(display, c, GLX_RED_SIZE);
        d.cRedShift = Shift(vi->red_mask);
        d.cGreenBits = (BYTE)Attrib(display, c, GLX_GREEN_SIZE);
        d.cGreenShift = Shift(vi->green_mask);
        d.cBlueBits = (BYTE)Attrib(display, c, GLX_BLUE_SIZE);
        d.cBlueShift = Shift(vi->blue_mask);
        d.cAlphaBits = (BYTE)Attrib(display, c, GLX_ALPHA_SIZE);
        // Alpha sits above the colour channels of a 32-bit pixel.
        d.cAlphaShift = d.cAlphaBits ? BYTE(d.cRedBits + d.cGreenBits + d.cBlueBits) : 0;
        d.cAccumRedBits = (BYTE)Attrib(display, c, GLX_ACCUM_RED_SIZE);
        d.cAccumGreenBits = (BYTE)Attrib(display, c, GLX_ACCUM_GREEN_SIZE);
        d.cAccumBlueBits = (BYTE)Attrib(display, c, GLX_ACCUM_BLUE_SIZE);
        d.cAccumAlphaBits = (BYTE)Attrib(display, c, GLX_ACCUM_ALPHA_SIZE);
        d.cAccumBits = BYTE(d.cAccumRedBits + d.cAccumGreenBits + d.cAccumBlueBits + d.cAccumAlphaBits);
        d.cDepthBits = (BYTE)Attrib(display, c, GLX_DEPTH_SIZE);
        d.cStencilBits = (BYTE)Attrib(display, c, GLX_STENCIL_SIZE);
        d.cAuxBuffers = (BYTE)Attrib(display, c, GLX_AUX_BUFFERS);
        d.iLayerType = PFD_MAIN_PLANE;
        list->m_formats.push_back(Format{c, d, Attrib(display, c, GLX_CONFIG_CAVEAT) == GLX_SLOW_CONFIG});
    }
    XFree(visuals);
    if (list->m_formats.empty()) {
        delete list;
        return nullptr;
    }
    return list;
}

CVGLXFormatList::~CVGLXFormatList() {
    if (m_pConfigs) XFree(m_pConfigs);
}

int CVGLXFormatList::Describe(int format, PIXELFORMATDESCRIPTOR* pfd) const {
    if (format < 1 || format > GetCount() || !pfd) return 0;
    *pfd = m_formats[format - 1].pfd;
    return 1;
}

__GLXFBConfigRec* CVGLXFormatList::GetConfig(int format) const {
    if (format < 1 || format > GetCount()) return nullptr;
    return m_formats[format - 1].config;
}

int CVGLXFormatList::Choose(const PIXELFORMATDESCRIPTOR& request) const {
    const bool dbAny = (request.dwFlags & PFD_DOUBLEBUFFER_DONTCARE) != 0;
    const bool dbWanted = (request.dwFlags & PFD_DOUBLEBUFFER) != 0;
    const int wantDepth = (request.dwFlags & PFD_DEPTH_DONTCARE) ? 0 : request.cDepthBits;
    const int wantStencil = request.cStencilBits;
    const int wantAccum = request.cAccumBits;
    const int wantAlpha = request.cAlphaBits;
    // Distance from a request: being short costs more than any surplus.
    auto cost = [](int have, int want) -> int64_t {
        return have < want ? (int64_t(1) << 9) + (want - have) : have - want;
    };
    int best = 0;
    int64_t bestScore = 0;
    for (int i = 0; i < GetCount(); ++i) {
        const Format& f = m_formats[i];
        const bool db = (f.pfd.dwFlags & PFD_DOUBLEBUFFER) != 0;
        if (!dbAny && dbWanted && !db) continue;
        int64_t s = 0;
        s = s * 2 + (!dbAny && db != dbWanted);
        s = (s << 10) + cost(f.pfd.cDepthBits, wantDepth);
        s = (s << 10) + cost(f.pfd.cStencilBits, wantStencil);
        s = (s << 10) + cost(f.pfd.cAccumBits, wantAccum);
        s = (s << 10) + cost(f.pfd.cAlphaBits, wantAlpha);
        s = s * 2 + f.slow;
        if (!best || s < bestScore) {
            best = i + 1;
            bestScore = s;
        }
    }
    return best;
}
