#include "platform/CVEGLContext.h"

#include "platform/CVEGLDisplay.h"
#include "platform/CVGdiBitmap.h"
#include "platform/CVGdiDC.h"
#include "platform/WinGL.h"

#include <EGL/egl.h>

std::unique_ptr<CVEGLContext> CVEGLContext::Create(CVGdiDC& dc) {
    CVEGLDisplay* egl = CVEGLDisplay::Get();
    if (!egl) return nullptr;
    CVGdiBitmap* bmp = dc.GetBitmap();
    int format = dc.m_nPixelFormat;
    if (dc.GetKind() != CVGdiDC::kMemory || !bmp || format == 0 ||
        egl->GetFormatLayout(format) != bmp->GetGLLayout() || bmp->GetGLLayout() == CVGdiBitmap::kGLNone) {
        SetLastError(ERROR_INVALID_PIXEL_FORMAT);
        return nullptr;
    }
    // The pbuffer is made now so that a size EGL refuses fails here, where
    // the caller looks for failure, rather than at wglMakeCurrent.
    if (!dc.AcquireSurface(format)) {
        SetLastError(ERROR_NO_SYSTEM_RESOURCES);
        return nullptr;
    }
    void* ctx = egl->CreateContext(format);
    if (!ctx) {
        SetLastError(ERROR_NO_SYSTEM_RESOURCES);
        return nullptr;
    }
    return std::unique_ptr<CVEGLContext>(new CVEGLContext(format, ctx));
}

CVEGLContext::~CVEGLContext() {
    if (CVEGLDisplay* egl = CVEGLDisplay::Get()) egl->DestroyContext(m_context);
}

CVGLContext::Kind CVEGLContext::GetKind() const { return kEGL; }

int CVEGLContext::SharesWith(const CVGLContext& other) const { return other.GetKind() == kEGL; }

int CVEGLContext::GetDrawableSize(int& width, int& height) const {
    CVEGLDisplay* egl = CVEGLDisplay::Get();
    EGLSurface surface = eglGetCurrentSurface(EGL_DRAW);
    if (!egl || eglGetCurrentContext() != m_context || surface == EGL_NO_SURFACE) return 0;
    EGLint w = 0, h = 0;
    eglQuerySurface(egl->GetDisplay(), surface, EGL_WIDTH, &w);
    eglQuerySurface(egl->GetDisplay(), surface, EGL_HEIGHT, &h);
    width = w;
    height = h;
    return 1;
}

int CVEGLContext::Bind(CVGdiDC& dc) {
    CVEGLDisplay* egl = CVEGLDisplay::Get();
    if (!egl || dc.GetKind() != CVGdiDC::kMemory) return 0;
    void* surface = dc.AcquireSurface(GetPixelFormat());
    return surface ? egl->MakeCurrent(surface, m_context) : 0;
}

void CVEGLContext::Unbind() {
    if (CVEGLDisplay* egl = CVEGLDisplay::Get()) egl->MakeCurrent(nullptr, nullptr);
}
