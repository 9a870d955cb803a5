#include "platform/CVGLXContext.h"

#include "platform/CVGLXFormatList.h"
#include "platform/CVGdiDC.h"
#include "platform/CVXErrorTrap.h"
#include "platform/WinGL.h"

#include <GL/glx.h>

#include <map>

namespace {
struct ShareRoot {
    GLXContext root = nullptr;
    int refs = 0;
};
std::map<Display*, ShareRoot> g_roots;

// The display's root context, made with the first context's config.
GLXContext AcquireRoot(Display* dpy, GLXFBConfig config) {
    ShareRoot& r = g_roots[dpy];
    if (!r.root) {
        CVXErrorTrap trap(dpy);
        r.root = glXCreateNewContext(dpy, config, GLX_RGBA_TYPE, nullptr, True);
        if (trap.Failed() && r.root) {
            glXDestroyContext(dpy, r.root);
            r.root = nullptr;
        }
        if (!r.root) {
            g_roots.erase(dpy);
            return nullptr;
        }
    }
    ++r.refs;
    return r.root;
}

void ReleaseRoot(Display* dpy) {
    auto it = g_roots.find(dpy);
    if (it == g_roots.end() || --it->second.refs > 0) return;
    glXDestroyContext(dpy, it->second.root);
    g_roots.erase(it);
}
}  // namespace

std::unique_ptr<CVGLXContext> CVGLXContext::Create(CVGdiDC& dc) {
    CVGLXFormatList* formats = dc.GetKind() == CVGdiDC::kWindow ? dc.GetFormats() : nullptr;
    GLXFBConfig config = formats ? formats->GetConfig(dc.m_nPixelFormat) : nullptr;
    if (!config) {
        SetLastError(ERROR_INVALID_PIXEL_FORMAT);
        return nullptr;
    }
    Display* dpy = dc.GetDisplay();
    GLXContext root = AcquireRoot(dpy, config);
    GLXContext ctx = nullptr;
    if (root) {
        CVXErrorTrap trap(dpy);
        ctx = glXCreateNewContext(dpy, config, GLX_RGBA_TYPE, root, glXIsDirect(dpy, root));
        if (trap.Failed() && ctx) {
            glXDestroyContext(dpy, ctx);
            ctx = nullptr;
        }
        if (!ctx) ReleaseRoot(dpy);
    }
    if (!ctx) {
        SetLastError(ERROR_NO_SYSTEM_RESOURCES);
        return nullptr;
    }
    return std::unique_ptr<CVGLXContext>(new CVGLXContext(dc.m_nPixelFormat, dpy, ctx));
}

CVGLXContext::~CVGLXContext() {
    glXDestroyContext(m_pDisplay, m_context);
    ReleaseRoot(m_pDisplay);
}

CVGLContext::Kind CVGLXContext::GetKind() const { return kGLX; }

int CVGLXContext::SharesWith(const CVGLContext& other) const {
    const CVGLXContext* glx = dynamic_cast<const CVGLXContext*>(&other);
    return glx && glx->m_pDisplay == m_pDisplay;
}

int CVGLXContext::GetDrawableSize(int& width, int& height) const {
    if (!m_drawable || glXGetCurrentContext() != m_context) return 0;
    unsigned int w = 0, h = 0;
    glXQueryDrawable(m_pDisplay, m_drawable, GLX_WIDTH, &w);
    glXQueryDrawable(m_pDisplay, m_drawable, GLX_HEIGHT, &h);
    width = (int)w;
    height = (int)h;
    return 1;
}

int CVGLXContext::Bind(CVGdiDC& dc) {
    if (dc.GetKind() != CVGdiDC::kWindow || dc.GetDisplay() != m_pDisplay) return 0;
    CVXErrorTrap trap(m_pDisplay);
    Bool ok = glXMakeCurrent(m_pDisplay, dc.GetWindow(), m_context);
    if (!ok || trap.Failed()) {
        glXMakeCurrent(m_pDisplay, None, nullptr);
        m_drawable = 0;
        return 0;
    }
    m_drawable = dc.GetWindow();
    return 1;
}

void CVGLXContext::Unbind() {
    glXMakeCurrent(m_pDisplay, None, nullptr);
    m_drawable = 0;
}
