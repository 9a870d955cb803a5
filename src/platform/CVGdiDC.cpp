#include "platform/CVGdiDC.h"

#include "platform/CVEGLDisplay.h"
#include "platform/CVGLContext.h"
#include "platform/CVGLContextSwitch.h"
#include "platform/CVGLXFormatList.h"
#include "platform/CVGdiBitmap.h"
#include "platform/CVGdiBrush.h"
#include "platform/CVGdiHandleTable.h"
#include "platform/CVGdiPalette.h"
#include "platform/CVPixelTransfer.h"
#include "platform/CVXErrorTrap.h"

#include <GL/gl.h>
#include <X11/Xlib.h>

std::unique_ptr<CVGdiDC> CVGdiDC::CreateMemory() {
    std::unique_ptr<CVGdiDC> dc(new CVGdiDC);
    dc->m_kind = kMemory;
    dc->m_hBitmap = CVGdiBitmap::GetDefault();
    dc->m_hBrush = CVGdiBrush::GetDefault();
    dc->m_hPalette = CVGdiPalette::GetDefault();
    return dc;
}

std::unique_ptr<CVGdiDC> CVGdiDC::CreateWindow(_XDisplay* display, unsigned long window) {
    if (!display || !window) return nullptr;
    XWindowAttributes attrs;
    {
        CVXErrorTrap trap(display);
        Status ok = XGetWindowAttributes(display, window, &attrs);
        if (!ok || trap.Failed()) return nullptr;
    }
    std::unique_ptr<CVGdiDC> dc(new CVGdiDC);
    dc->m_kind = kWindow;
    dc->m_pDisplay = display;
    dc->m_window = window;
    dc->m_hBrush = CVGdiBrush::GetDefault();
    dc->m_hPalette = CVGdiPalette::GetDefault();
    return dc;
}

CVGdiDC::~CVGdiDC() {
    if (GetHandle() && CVGLContext::GetCurrentDC() == GetHandle()) CVGLContext::ReleaseCurrent();
    DropSurface();
    if (CVGdiBitmap* bmp = GetBitmap()) {
        if (bmp->GetSelectedDC() == GetHandle()) bmp->SetSelectedDC(0);
    }
}

DWORD CVGdiDC::GetObjectType() const { return m_kind == kWindow ? OBJ_DC : OBJ_MEMDC; }

CVGdiBitmap* CVGdiDC::GetBitmap() const {
    return m_kind == kMemory ? CVGdiHandleTable::FindAs<CVGdiBitmap>(m_hBitmap) : nullptr;
}

COLORREF CVGdiDC::GetBrushColor() const {
    CVGdiBrush* brush = CVGdiHandleTable::FindAs<CVGdiBrush>(m_hBrush);
    return brush ? brush->GetColor() : RGB(255, 255, 255);
}

uintptr_t CVGdiDC::Select(uintptr_t handle) {
    CVGdiObject* obj = CVGdiHandleTable::Find(handle);
    if (!obj) return 0;
    uintptr_t prev = 0;
    switch (obj->GetObjectType()) {
    case OBJ_BITMAP: {
        CVGdiBitmap* bmp = static_cast<CVGdiBitmap*>(obj);
        if (m_kind != kMemory) return 0;
        if (!bmp->IsStock() && bmp->GetSelectedDC() != 0 && bmp->GetSelectedDC() != GetHandle()) return 0;
        prev = m_hBitmap;
        if (handle != m_hBitmap) SetBitmap(handle);
        return prev;
    }
    case OBJ_BRUSH: prev = m_hBrush; m_hBrush = handle; return prev;
    case OBJ_FONT: prev = m_hFont; m_hFont = handle; return prev;
    case OBJ_PEN: prev = m_hPen; m_hPen = handle; return prev;
    default: return 0;  // palettes go through SelectPalette
    }
}

void CVGdiDC::SetBitmap(uintptr_t handle) {
    if (CVGdiBitmap* old = GetBitmap()) {
        if (old->GetSelectedDC() == GetHandle()) old->SetSelectedDC(0);
    }
    m_hBitmap = handle;
    CVGdiBitmap* bmp = GetBitmap();
    if (bmp && !bmp->IsStock()) bmp->SetSelectedDC(GetHandle());
    if (!m_pSurface) return;
    // GL's copy belonged to the old bitmap. A context current here moves to
    // a pbuffer made for the new one (or is released if it cannot draw there).
    const bool current = CVGLContext::GetCurrentDC() == GetHandle();
    const uintptr_t ctx = CVGLContext::GetCurrentHandle();
    if (current) CVGLContext::ReleaseCurrent();
    DropSurface();
    m_bBitmapCurrent = 1;
    if (current) CVGLContext::MakeCurrent(GetHandle(), ctx);
}

uintptr_t CVGdiDC::SelectPalette(uintptr_t palette) {
    if (!CVGdiHandleTable::FindAs<CVGdiPalette>(palette)) return 0;
    uintptr_t prev = m_hPalette;
    m_hPalette = palette;
    return prev;
}

uintptr_t CVGdiDC::GetCurrentObject(UINT type) const {
    switch (type) {
    case OBJ_BITMAP: return m_kind == kMemory ? m_hBitmap : 0;
    case OBJ_BRUSH: return m_hBrush;
    case OBJ_PAL: return m_hPalette;
    case OBJ_FONT: return m_hFont;
    case OBJ_PEN: return m_hPen;
    default: return 0;
    }
}

int CVGdiDC::GetWindowSize(int& width, int& height) const {
    if (m_kind != kWindow) return 0;
    XWindowAttributes attrs;
    CVXErrorTrap trap(m_pDisplay);
    if (!XGetWindowAttributes(m_pDisplay, m_window, &attrs) || trap.Failed()) return 0;
    width = attrs.width;
    height = attrs.height;
    return 1;
}

CVGLXFormatList* CVGdiDC::GetFormats() {
    if (m_kind != kWindow) return nullptr;
    if (!m_pFormats) {
        XWindowAttributes attrs;
        CVXErrorTrap trap(m_pDisplay);
        if (!XGetWindowAttributes(m_pDisplay, m_window, &attrs) || trap.Failed()) return nullptr;
        m_pFormats.reset(CVGLXFormatList::Create(m_pDisplay, XScreenNumberOfScreen(attrs.screen), attrs.depth));
    }
    return m_pFormats.get();
}

void* CVGdiDC::AcquireSurface(int format) {
    CVGdiBitmap* bmp = GetBitmap();
    CVEGLDisplay* egl = CVEGLDisplay::Get();
    if (!bmp || !egl || egl->GetFormatLayout(format) != bmp->GetGLLayout()) return nullptr;
    if (m_pSurface && m_nSurfaceFormat == format && m_nSurfaceWidth == bmp->GetWidth() &&
        m_nSurfaceHeight == bmp->GetHeight())
        return m_pSurface;
    DropSurface();
    m_pSurface = egl->CreatePbuffer(format, bmp->GetWidth(), bmp->GetHeight());
    if (!m_pSurface) return nullptr;
    m_nSurfaceFormat = format;
    m_nSurfaceWidth = bmp->GetWidth();
    m_nSurfaceHeight = bmp->GetHeight();
    m_bUploadPending = 1;
    m_bBitmapCurrent = 1;
    return m_pSurface;
}

void CVGdiDC::DropSurface() {
    if (!m_pSurface) return;
    if (CVEGLDisplay* egl = CVEGLDisplay::Get()) egl->DestroySurface(m_pSurface);
    m_pSurface = nullptr;
    m_nSurfaceFormat = 0;
    m_bUploadPending = 0;
}

void CVGdiDC::OnContextBound(uintptr_t hglrc, int internal) {
    if (m_kind != kMemory) return;
    m_hglrcBound = hglrc;
    if (m_bUploadPending) {
        // A new pbuffer starts as a copy of the bitmap.
        m_bUploadPending = 0;
        if (CVGdiBitmap* bmp = GetBitmap()) {
            CVPixelTransfer transfer;
            transfer.DrawBitmap(*bmp, RECT{0, 0, bmp->GetWidth(), bmp->GetHeight()});
        }
    }
    if (!internal) m_bBitmapCurrent = 0;
}

void CVGdiDC::OnContextDeleted(uintptr_t hglrc) {
    if (m_hglrcBound != hglrc) return;
    m_hglrcBound = 0;
    DropSurface();
    m_bBitmapCurrent = 1;
}

void CVGdiDC::PrepareRead(const RECT& rect) {
    if (!m_pSurface || !m_hglrcBound || m_bBitmapCurrent || m_bUploadPending) return;
    CVGdiBitmap* bmp = GetBitmap();
    CVGLContextSwitch use(m_hglrcBound, GetHandle());
    if (!bmp || !use.IsActive()) return;
    CVPixelTransfer transfer;
    transfer.ReadBitmap(*bmp, rect);
}

void CVGdiDC::CommitWrite(const RECT& rect) {
    if (!m_pSurface || !m_hglrcBound || m_bUploadPending) return;
    CVGdiBitmap* bmp = GetBitmap();
    CVGLContextSwitch use(m_hglrcBound, GetHandle());
    if (!bmp || !use.IsActive()) return;
    CVPixelTransfer transfer;
    transfer.DrawBitmap(*bmp, rect);
}

int CVGdiDC::FlushGL() {
    if (!m_pSurface || !m_hglrcBound || m_bBitmapCurrent || m_bUploadPending) return 1;
    CVGdiBitmap* bmp = GetBitmap();
    CVGLContextSwitch use(m_hglrcBound, GetHandle());
    if (!bmp || !use.IsActive()) return 0;
    glFinish();
    {
        CVPixelTransfer transfer;
        transfer.ReadBitmap(*bmp, RECT{0, 0, bmp->GetWidth(), bmp->GetHeight()});
    }
    m_bBitmapCurrent = 1;
    return 1;
}
