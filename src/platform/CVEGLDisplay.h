#pragma once
// The process-wide EGL display behind bitmap DCs, its pixel formats and its
// share group.
//
// Display: Mesa's surfaceless platform (no X server, no /dev/dri needed);
// failing that the first EGL device; failing that the default display. The
// OpenGL API is bound (eglBindAPI) before every context call, since EGL keeps
// the bound API per thread.
//
// Formats: the display's configs that can back a bitmap DC, i.e. pbuffer
// configs renderable with desktop OpenGL, without multisampling, in 8-8-8-8
// (for 32-bit DIBs) or 5-6-5 (for 16-bit 5-6-5 DIBs). Pixel format n is the
// n-th of them in the display's order.
//
// Sharing: a hidden root context is made with the first context and every
// context is created sharing with it, so all EGL contexts of the process are
// one share group (display lists, textures) for as long as the process runs.
//
// Nothing here is torn down at exit: the display and root context live as long
// as the process, as Mesa tolerates and as hosts expect of their GL libraries.
#include "CVGdiBitmap.h"
#include "WinGL.h"

#include <vector>

class CVEGLDisplay {
public:
    // The display, initialised on first use; null when EGL cannot be had
    // (the last error is ERROR_NOT_SUPPORTED then).
    static CVEGLDisplay* Get();

    // "surfaceless", "device" or "default".
    const char* GetPlatformName() const { return m_pszPlatform; }
    void* GetDisplay() const { return m_display; }

    int GetFormatCount() const { return (int)m_formats.size(); }
    // The format's description (see DescribePixelFormat); 0 for a bad index.
    int DescribeFormat(int format, PIXELFORMATDESCRIPTOR* pfd) const;
    CVGdiBitmap::GLLayout GetFormatLayout(int format) const;
    // Best format for a bitmap of that layout: the requested depth or the
    // closest above it, else the deepest available; fewest stencil bits
    // beyond the request. 0 when there is none.
    int ChooseFormat(CVGdiBitmap::GLLayout layout, const PIXELFORMATDESCRIPTOR& request) const;

    // A compatibility-profile context in the share group; null on failure.
    void* CreateContext(int format);
    void DestroyContext(void* context);
    // A pbuffer of that size; null on failure.
    void* CreatePbuffer(int format, int width, int height);
    void DestroySurface(void* surface);
    // Makes context current on surface for this thread; null context releases.
    int MakeCurrent(void* surface, void* context);

private:
    CVEGLDisplay() = default;
    int Initialise();
    void LoadFormats();

    struct Format {
        void* config;
        CVGdiBitmap::GLLayout layout;
        int depth;
        int stencil;
    };

    void* m_display = nullptr;
    const char* m_pszPlatform = "";
    void* m_root = nullptr;
    int m_bPlainAttribs = 0;  // the driver refused the profile attribute
    std::vector<Format> m_formats;
};
