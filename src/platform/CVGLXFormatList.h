#pragma once
// The pixel formats of a window DC: the GLX framebuffer configs of the
// window's screen that can draw to windows of the window's depth, in RGBA,
// without multisampling. Pixel format n is the n-th of them in GLX's order.
// Any of them may be made current on the window (Mesa accepts configs whose
// visual differs from the window's as long as the depth matches).
#include "WinGL.h"

#include <vector>

struct _XDisplay;
struct __GLXFBConfigRec;

class CVGLXFormatList {
public:
    // Null when the display has no GLX or no usable config.
    static CVGLXFormatList* Create(_XDisplay* display, int screen, int depth);
    ~CVGLXFormatList();
    CVGLXFormatList(const CVGLXFormatList&) = delete;
    CVGLXFormatList& operator=(const CVGLXFormatList&) = delete;

    int GetCount() const { return (int)m_formats.size(); }
    int Describe(int format, PIXELFORMATDESCRIPTOR* pfd) const;
    // Double buffering as requested (unless PFD_DOUBLEBUFFER_DONTCARE), then
    // depth, stencil and accumulation bits as for bitmap formats, then
    // configs without a caveat first. 0 when none fits.
    int Choose(const PIXELFORMATDESCRIPTOR& request) const;
    __GLXFBConfigRec* GetConfig(int format) const;

private:
    CVGLXFormatList() = default;

    struct Format {
        __GLXFBConfigRec* config;
        PIXELFORMATDESCRIPTOR pfd;
        int slow;
    };
    void* m_pConfigs = nullptr;  // the array GLX returned, freed with XFree
    std::vector<Format> m_formats;
};
