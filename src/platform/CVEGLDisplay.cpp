#include "platform/CVEGLDisplay.h"

#include <EGL/egl.h>
#include <EGL/eglext.h>

#include <cstring>
#include <mutex>

namespace {
bool HasExtension(const char* list, const char* name) {
    if (!list) return false;
    size_t n = std::strlen(name);
    for (const char* p = std::strstr(list, name); p; p = std::strstr(p + 1, name)) {
        if ((p == list || p[-1] == ' ') && (p[n] == ' ' || p[n] == '\0')) return true;
    }
    return false;
}

EGLint Attrib(EGLDisplay dpy, EGLConfig config, EGLint name) {
    EGLint v = 0;
    eglGetConfigAttrib(dpy, config, name, &v);
    return v;
}

// The first EGL device, or null when the device extensions are missing.
EGLDeviceEXT FirstDevice() {
    auto queryDevices = reinterpret_cast<PFNEGLQUERYDEVICESEXTPROC>(eglGetProcAddress("eglQueryDevicesEXT"));
    if (!queryDevices) return nullptr;
    EGLDeviceEXT devices[8];
    EGLint count = 0;
    if (!queryDevices(8, devices, &count) || count < 1) return nullptr;
    return devices[0];
}
}  // namespace

CVEGLDisplay* CVEGLDisplay::Get() {
    static CVEGLDisplay* display = [] {
        CVEGLDisplay* d = new CVEGLDisplay;
        if (!d->Initialise()) {
            delete d;
            return static_cast<CVEGLDisplay*>(nullptr);
        }
        return d;
    }();
    if (!display) SetLastError(ERROR_NOT_SUPPORTED);
    return display;
}

int CVEGLDisplay::Initialise() {
    const char* client = eglQueryString(EGL_NO_DISPLAY, EGL_EXTENSIONS);
    struct Attempt {
        const char* name;
        EGLDisplay (*open)(const char* client);
    };
    const Attempt attempts[] = {
        {"surfaceless",
         [](const char* ext) -> EGLDisplay {
             if (!HasExtension(ext, "EGL_MESA_platform_surfaceless")) return EGL_NO_DISPLAY;
             return eglGetPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
         }},
        {"device",
         [](const char* ext) -> EGLDisplay {
             if (!HasExtension(ext, "EGL_EXT_platform_device")) return EGL_NO_DISPLAY;
             EGLDeviceEXT device = FirstDevice();
             return device ? eglGetPlatformDisplay(EGL_PLATFORM_DEVICE_EXT, device, nullptr) : EGL_NO_DISPLAY;
         }},
        {"default", [](const char*) -> EGLDisplay { return eglGetDisplay(EGL_DEFAULT_DISPLAY); }},
    };
    for (const Attempt& a : attempts) {
        EGLDisplay dpy = a.open(client);
        if (dpy == EGL_NO_DISPLAY) continue;
        if (!eglInitialize(dpy, nullptr, nullptr)) continue;
        m_display = dpy;
        m_pszPlatform = a.name;
        LoadFormats();
        if (!m_formats.empty()) return 1;
        eglTerminate(dpy);
        m_display = nullptr;
    }
    return 0;
}

void CVEGLDisplay::LoadFormats() {
    EGLint count = 0;
    if (!eglGetConfigs(m_display, nullptr, 0, &count) || count <= 0) return;
    std::vector<EGLConfig> configs(count);
    eglGetConfigs(m_display, configs.data(), count, &count);
    for (EGLint i = 0; i < count; ++i) {
        EGLConfig c = configs[i];
        if (!(Attrib(m_display, c, EGL_SURFACE_TYPE) & EGL_PBUFFER_BIT)) continue;
        if (!(Attrib(m_display, c, EGL_RENDERABLE_TYPE) & EGL_OPENGL_BIT)) continue;
        if (Attrib(m_display, c, EGL_COLOR_BUFFER_TYPE) != EGL_RGB_BUFFER) continue;
        if (Attrib(m_display, c, EGL_SAMPLE_BUFFERS) != 0) continue;
        EGLint r = Attrib(m_display, c, EGL_RED_SIZE), g = Attrib(m_display, c, EGL_GREEN_SIZE),
               b = Attrib(m_display, c, EGL_BLUE_SIZE), a = Attrib(m_display, c, EGL_ALPHA_SIZE);
        CVGdiBitmap::GLLayout layout = CVGdiBitmap::kGLNone;
        if (r == 8 && g == 8 && b == 8 && a == 8) layout = CVGdiBitmap::kGLBGRA8888;
        if (r == 5 && g == 6 && b == 5 && a == 0) layout = CVGdiBitmap::kGLRGB565;
        if (layout == CVGdiBitmap::kGLNone) continue;
        m_formats.push_back(Format{c, layout, Attrib(m_display, c, EGL_DEPTH_SIZE),
                                   Attrib(m_display, c, EGL_STENCIL_SIZE)});
    }
}

int CVEGLDisplay::DescribeFormat(int format, PIXELFORMATDESCRIPTOR* pfd) const {
    if (format < 1 || format > GetFormatCount() || !pfd) return 0;
    const Format& f = m_formats[format - 1];
    PIXELFORMATDESCRIPTOR d{};
    d.nSize = sizeof d;
    d.nVersion = 1;
    d.dwFlags = PFD_DRAW_TO_BITMAP | PFD_SUPPORT_GDI | PFD_SUPPORT_OPENGL;
    d.iPixelType = PFD_TYPE_RGBA;
    if (f.layout == CVGdiBitmap::kGLBGRA8888) {
        // Same bit positions as the DIB: 0xAARRGGBB.
        d.cColorBits = 32;
        d.cRedBits = 8, d.cRedShift = 16;
        d.cGreenBits = 8, d.cGreenShift = 8;
        d.cBlueBits = 8, d.cBlueShift = 0;
        d.cAlphaBits = 8, d.cAlphaShift = 24;
    } else {
        d.cColorBits = 16;
        d.cRedBits = 5, d.cRedShift = 11;
        d.cGreenBits = 6, d.cGreenShift = 5;
        d.cBlueBits = 5, d.cBlueShift = 0;
    }
    d.cDepthBits = (BYTE)f.depth;
    d.cStencilBits = (BYTE)f.stencil;
    d.iLayerType = PFD_MAIN_PLANE;
    *pfd = d;
    return 1;
}

CVGdiBitmap::GLLayout CVEGLDisplay::GetFormatLayout(int format) const {
    if (format < 1 || format > GetFormatCount()) return CVGdiBitmap::kGLNone;
    return m_formats[format - 1].layout;
}

int CVEGLDisplay::ChooseFormat(CVGdiBitmap::GLLayout layout, const PIXELFORMATDESCRIPTOR& request) const {
    const bool depthAny = (request.dwFlags & PFD_DEPTH_DONTCARE) != 0;
    const int wantDepth = depthAny ? 0 : request.cDepthBits;
    const int wantStencil = request.cStencilBits;
    // Lower is better: short of the request first, then distance from it.
    auto score = [&](const Format& f) {
        int64_t shortDepth = f.depth < wantDepth, shortStencil = f.stencil < wantStencil;
        int64_t depthCost = shortDepth ? wantDepth - f.depth : f.depth - wantDepth;
        int64_t stencilCost = shortStencil ? wantStencil - f.stencil : f.stencil - wantStencil;
        return (shortDepth << 40) | (depthCost << 24) | (shortStencil << 16) | stencilCost;
    };
    int best = 0;
    int64_t bestScore = 0;
    for (int i = 0; i < GetFormatCount(); ++i) {
        if (m_formats[i].layout != layout) continue;
        int64_t s = score(m_formats[i]);
        if (!best || s < bestScore) {
            best = i + 1;
            bestScore = s;
        }
    }
    return best;
}

void* CVEGLDisplay::CreateContext(int format) {
    if (format < 1 || format > GetFormatCount()) return nullptr;
    static std::mutex mutex;
    std::lock_guard<std::mutex> lock(mutex);
    eglBindAPI(EGL_OPENGL_API);
    const EGLint attribs[] = {EGL_CONTEXT_OPENGL_PROFILE_MASK, EGL_CONTEXT_OPENGL_COMPATIBILITY_PROFILE_BIT,
                              EGL_NONE};
    if (!m_root) {
        m_root = eglCreateContext(m_display, m_formats[format - 1].config, EGL_NO_CONTEXT, attribs);
        if (m_root == EGL_NO_CONTEXT) {
            // An EGL 1.4 driver without profile attributes gives compatibility anyway.
            m_bPlainAttribs = 1;
            m_root = eglCreateContext(m_display, m_formats[format - 1].config, EGL_NO_CONTEXT, nullptr);
        }
        if (m_root == EGL_NO_CONTEXT) {
            m_root = nullptr;
            return nullptr;
        }
    }
    EGLContext ctx =
        eglCreateContext(m_display, m_formats[format - 1].config, m_root, m_bPlainAttribs ? nullptr : attribs);
    return ctx == EGL_NO_CONTEXT ? nullptr : ctx;
}

void CVEGLDisplay::DestroyContext(void* context) {
    if (context) eglDestroyContext(m_display, context);
}

void* CVEGLDisplay::CreatePbuffer(int format, int width, int height) {
    if (format < 1 || format > GetFormatCount() || width <= 0 || height <= 0) return nullptr;
    const EGLint attribs[] = {EGL_WIDTH, width, EGL_HEIGHT, height, EGL_NONE};
    EGLSurface s = eglCreatePbufferSurface(m_display, m_formats[format - 1].config, attribs);
    return s == EGL_NO_SURFACE ? nullptr : s;
}

void CVEGLDisplay::DestroySurface(void* surface) {
    if (surface) eglDestroySurface(m_display, surface);
}

int CVEGLDisplay::MakeCurrent(void* surface, void* context) {
    eglBindAPI(EGL_OPENGL_API);
    if (!context) return eglMakeCurrent(m_display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT) ? 1 : 0;
    return eglMakeCurrent(m_display, surface, surface, context) ? 1 : 0;
}
