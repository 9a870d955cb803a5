#include "platform/CVGLContext.h"

#include "platform/CVAccumBuffer.h"
#include "platform/CVGdiDC.h"
#include "platform/CVGdiHandleTable.h"
#include "platform/WinGL.h"

namespace {
thread_local uintptr_t t_hglrc = 0;
thread_local uintptr_t t_hdc = 0;
}  // namespace

CVGLContext::CVGLContext(int pixelFormat) : m_nPixelFormat(pixelFormat) {}

CVGLContext::~CVGLContext() = default;

DWORD CVGLContext::GetObjectType() const { return 0; }

CVAccumBuffer& CVGLContext::GetAccumBuffer() {
    if (!m_pAccum) m_pAccum = std::make_unique<CVAccumBuffer>();
    return *m_pAccum;
}

int CVGLContext::IsCurrentElsewhere() const {
    return m_bCurrent && m_owner != std::this_thread::get_id();
}

CVGLContext* CVGLContext::GetCurrent() { return CVGdiHandleTable::FindAs<CVGLContext>(t_hglrc); }

uintptr_t CVGLContext::GetCurrentHandle() { return GetCurrent() ? t_hglrc : 0; }

uintptr_t CVGLContext::GetBoundHandle() { return t_hglrc; }

uintptr_t CVGLContext::GetCurrentDC() { return GetCurrent() ? t_hdc : 0; }

void CVGLContext::ReleaseCurrent() {
    if (CVGLContext* cur = GetCurrent()) {
        cur->Unbind();
        cur->m_bCurrent = 0;
    }
    t_hglrc = 0;
    t_hdc = 0;
}

int CVGLContext::MakeCurrent(uintptr_t hdc, uintptr_t hglrc, int internal) {
    if (hglrc == 0) {
        ReleaseCurrent();
        return 1;
    }
    CVGLContext* ctx = CVGdiHandleTable::FindAs<CVGLContext>(hglrc);
    CVGdiDC* dc = CVGdiHandleTable::FindAs<CVGdiDC>(hdc);
    DWORD error = ERROR_SUCCESS;
    if (!ctx || !dc) {
        error = ERROR_INVALID_HANDLE;
    } else if (ctx->IsCurrentElsewhere()) {
        error = ERROR_BUSY;
    } else if (dc->m_nPixelFormat != ctx->m_nPixelFormat ||
               (dc->GetKind() == CVGdiDC::kWindow) != (ctx->GetKind() == kGLX)) {
        error = ERROR_INVALID_PIXEL_FORMAT;
    }
    if (error != ERROR_SUCCESS) {
        ReleaseCurrent();
        SetLastError(error);
        return 0;
    }
    if (t_hglrc == hglrc && t_hdc == hdc) {
        dc->OnContextBound(hglrc, internal);
        return 1;
    }
    // Always release first: switching between EGL and GLX requires it, and
    // within one kind it costs one call.
    ReleaseCurrent();
    if (!ctx->Bind(*dc)) {
        SetLastError(ERROR_INVALID_PIXEL_FORMAT);
        return 0;
    }
    ctx->m_bCurrent = 1;
    ctx->m_owner = std::this_thread::get_id();
    t_hglrc = hglrc;
    t_hdc = hdc;
    dc->OnContextBound(hglrc, internal);
    return 1;
}
