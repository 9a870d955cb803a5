// The WGL entry points over EGL (memory DCs) and GLX (window DCs).
#include "platform/WinGL.h"

#include "platform/CVEGLContext.h"
#include "platform/CVEGLDisplay.h"
#include "platform/CVGLXContext.h"
#include "platform/CVGLXFormatList.h"
#include "platform/CVGdiBitmap.h"
#include "platform/CVGdiDC.h"
#include "platform/CVGdiHandleTable.h"
#include "platform/CVXErrorTrap.h"

#include <GL/glx.h>

namespace {
thread_local DWORD t_lastError = ERROR_SUCCESS;

uintptr_t H(const void* h) { return reinterpret_cast<uintptr_t>(h); }

CVGdiDC* LookupDC(HDC hdc) {
    CVGdiDC* dc = CVGdiHandleTable::FindAs<CVGdiDC>(H(hdc));
    if (!dc) SetLastError(ERROR_INVALID_HANDLE);
    return dc;
}

CVGLContext* LookupContext(HGLRC hglrc) {
    CVGLContext* ctx = CVGdiHandleTable::FindAs<CVGLContext>(H(hglrc));
    if (!ctx) SetLastError(ERROR_INVALID_HANDLE);
    return ctx;
}

// Number of pixel formats of the DC (0 when its kind of GL is unavailable).
int FormatCount(CVGdiDC& dc) {
    if (dc.GetKind() == CVGdiDC::kWindow) {
        CVGLXFormatList* formats = dc.GetFormats();
        return formats ? formats->GetCount() : 0;
    }
    CVEGLDisplay* egl = CVEGLDisplay::Get();
    return egl ? egl->GetFormatCount() : 0;
}
}  // namespace

DWORD GetLastError() { return t_lastError; }

void SetLastError(DWORD code) { t_lastError = code; }

int ChoosePixelFormat(HDC hdc, const PIXELFORMATDESCRIPTOR* pfd) {
    CVGdiDC* dc = LookupDC(hdc);
    if (!dc) return 0;
    if (!pfd) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    int format = 0;
    if (dc->GetKind() == CVGdiDC::kWindow) {
        CVGLXFormatList* formats = dc->GetFormats();
        if (!formats) {
            SetLastError(ERROR_NOT_SUPPORTED);
            return 0;
        }
        format = formats->Choose(*pfd);
    } else {
        CVGdiBitmap* bmp = dc->GetBitmap();
        CVGdiBitmap::GLLayout layout = bmp ? bmp->GetGLLayout() : CVGdiBitmap::kGLNone;
        CVEGLDisplay* egl = layout != CVGdiBitmap::kGLNone ? CVEGLDisplay::Get() : nullptr;
        if (egl) format = egl->ChooseFormat(layout, *pfd);
        else if (layout != CVGdiBitmap::kGLNone) return 0;  // no EGL: the display set the error
    }
    if (!format) SetLastError(ERROR_INVALID_PIXEL_FORMAT);
    return format;
}

int DescribePixelFormat(HDC hdc, int format, UINT size, PIXELFORMATDESCRIPTOR* pfd) {
    CVGdiDC* dc = LookupDC(hdc);
    if (!dc) return 0;
    int count = FormatCount(*dc);
    if (!pfd) return count;
    if (format < 1 || format > count || size < sizeof(PIXELFORMATDESCRIPTOR)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    int ok = dc->GetKind() == CVGdiDC::kWindow ? dc->GetFormats()->Describe(format, pfd)
                                                : CVEGLDisplay::Get()->DescribeFormat(format, pfd);
    return ok ? count : 0;
}

BOOL SetPixelFormat(HDC hdc, int format, const PIXELFORMATDESCRIPTOR*) {
    CVGdiDC* dc = LookupDC(hdc);
    if (!dc) return FALSE;
    bool valid = format >= 1 && format <= FormatCount(*dc);
    if (valid && dc->GetKind() == CVGdiDC::kMemory) {
        CVGdiBitmap* bmp = dc->GetBitmap();
        valid = bmp && CVEGLDisplay::Get()->GetFormatLayout(format) == bmp->GetGLLayout();
    }
    // As on a window, the format is set once.
    if (!valid || (dc->m_nPixelFormat != 0 && dc->m_nPixelFormat != format)) {
        SetLastError(ERROR_INVALID_PIXEL_FORMAT);
        return FALSE;
    }
    dc->m_nPixelFormat = format;
    return TRUE;
}

int GetPixelFormat(HDC hdc) {
    CVGdiDC* dc = LookupDC(hdc);
    if (!dc) return 0;
    if (!dc->m_nPixelFormat) SetLastError(ERROR_INVALID_PIXEL_FORMAT);
    return dc->m_nPixelFormat;
}

HGLRC wglCreateContext(HDC hdc) {
    CVGdiDC* dc = LookupDC(hdc);
    if (!dc) return nullptr;
    if (!dc->m_nPixelFormat) {
        SetLastError(ERROR_INVALID_PIXEL_FORMAT);
        return nullptr;
    }
    std::unique_ptr<CVGLContext> ctx;
    if (dc->GetKind() == CVGdiDC::kWindow) ctx = CVGLXContext::Create(*dc);
    else ctx = CVEGLContext::Create(*dc);
    return CVHandleFromValue<HGLRC>(CVGdiHandleTable::Add(std::move(ctx)));
}

BOOL wglMakeCurrent(HDC hdc, HGLRC context) { return CVGLContext::MakeCurrent(H(hdc), H(context)); }

BOOL wglDeleteContext(HGLRC context) {
    CVGLContext* ctx = LookupContext(context);
    if (!ctx) return FALSE;
    if (ctx->IsCurrentElsewhere()) {
        SetLastError(ERROR_BUSY);
        return FALSE;
    }
    if (CVGLContext::GetCurrentHandle() == H(context)) CVGLContext::ReleaseCurrent();
    for (CVGdiObject* obj : CVGdiHandleTable::FindAll(OBJ_MEMDC))
        static_cast<CVGdiDC*>(obj)->OnContextDeleted(H(context));
    CVGdiHandleTable::Remove(H(context));
    return TRUE;
}

BOOL wglShareLists(HGLRC first, HGLRC second) {
    CVGLContext* a = LookupContext(first);
    CVGLContext* b = LookupContext(second);
    if (!a || !b) return FALSE;
    // Every context already shares with all others of its group; this only
    // tells whether the two are in the same group.
    if (!a->SharesWith(*b)) {
        SetLastError(ERROR_INVALID_OPERATION);
        return FALSE;
    }
    return TRUE;
}

HGLRC wglGetCurrentContext() { return CVHandleFromValue<HGLRC>(CVGLContext::GetCurrentHandle()); }

HDC wglGetCurrentDC() { return CVHandleFromValue<HDC>(CVGLContext::GetCurrentDC()); }

BOOL SwapBuffers(HDC hdc) {
    CVGdiDC* dc = LookupDC(hdc);
    if (!dc) return FALSE;
    if (dc->GetKind() == CVGdiDC::kMemory) return dc->FlushGL();
    CVXErrorTrap trap(dc->GetDisplay());
    glXSwapBuffers(dc->GetDisplay(), dc->GetWindow());
    return trap.Failed() ? FALSE : TRUE;
}

HDC CreateWindowDC(_XDisplay* display, unsigned long window) {
    std::unique_ptr<CVGdiDC> dc = CVGdiDC::CreateWindow(display, window);
    if (!dc) {
        SetLastError(ERROR_INVALID_HANDLE);
        return nullptr;
    }
    return CVHandleFromValue<HDC>(CVGdiHandleTable::Add(std::move(dc)));
}

void ReleaseWindowDC(HDC hdc) {
    CVGdiDC* dc = LookupDC(hdc);
    if (dc && dc->GetKind() == CVGdiDC::kWindow) CVGdiHandleTable::Remove(H(hdc));
}
