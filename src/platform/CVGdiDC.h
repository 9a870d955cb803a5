#pragma once
// A device context (HDC). A memory DC draws into the bitmap selected into it;
// a window DC stands for an X11 window and carries only a pixel format and
// GL contexts (GDI drawing on it fails).
//
// A memory DC with a GL context keeps the bitmap and GL's colour buffer in
// step. GL's buffer (an EGL pbuffer of the bitmap's size) is the newer copy
// while a context is bound: GDI calls that read pixels first pull the
// rectangle they read from GL (unless the bitmap already holds GL's latest
// frame), and every GDI write sends the rectangle it changed back to GL.
// SwapBuffers and GdiFlush bring the whole frame into the bitmap, after which
// the bitmap counts as current until a context is next made current on the
// DC. Hazard: GL drawing issued after that without a new wglMakeCurrent is not
// seen by the next GDI read (the render action always makes current first).
#include "CVGdiObject.h"
#include "WinGDI.h"

#include <memory>

class CVGdiBitmap;
class CVGLXFormatList;
struct _XDisplay;

class CVGdiDC : public CVGdiObject {
public:
    enum Kind { kMemory, kWindow };

    // A memory DC with the stock 1x1 mono bitmap, white brush and default palette.
    static std::unique_ptr<CVGdiDC> CreateMemory();
    // A window DC; null when the display is null or the window does not exist.
    static std::unique_ptr<CVGdiDC> CreateWindow(_XDisplay* display, unsigned long window);
    ~CVGdiDC() override;

    DWORD GetObjectType() const override;
    Kind GetKind() const { return m_kind; }

    // SelectObject: bitmaps (memory DCs only; a bitmap already selected into
    // another DC is refused), brushes, fonts, pens. Returns the previous
    // handle of that kind, or 0 when refused.
    uintptr_t Select(uintptr_t handle);
    uintptr_t SelectPalette(uintptr_t palette);
    uintptr_t GetCurrentObject(UINT type) const;
    // The selected bitmap (null for window DCs) and brush colour (the stock
    // white brush when the selected one was deleted).
    CVGdiBitmap* GetBitmap() const;
    COLORREF GetBrushColor() const;
    // The selected palette; the stock default palette when none was selected.
    uintptr_t GetPalette() const { return m_hPalette; }

    COLORREF m_crBk = RGB(255, 255, 255);
    COLORREF m_crText = RGB(0, 0, 0);
    int m_nBkMode = OPAQUE;
    int m_nStretchMode = BLACKONWHITE;
    int m_nPixelFormat = 0;  // set once by SetPixelFormat

    // Window DCs.
    _XDisplay* GetDisplay() const { return m_pDisplay; }
    unsigned long GetWindow() const { return m_window; }
    int GetWindowSize(int& width, int& height) const;
    // The GLX formats of the window's screen and depth (made on first use; null on failure).
    CVGLXFormatList* GetFormats();

    // GL side of memory DCs. The EGL pbuffer for the selected bitmap in the
    // given format, made when missing or when the bitmap changed; a new one
    // receives the bitmap's pixels the first time a context is current on it.
    void* AcquireSurface(int format);
    void DropSurface();
    void* GetSurface() const { return m_pSurface; }
    // A context was made current on this DC. internal: a transfer of ours,
    // which does not mean that GL may draw.
    void OnContextBound(uintptr_t hglrc, int internal);
    // The context was deleted: unbind it and drop the pbuffer it drew into.
    void OnContextDeleted(uintptr_t hglrc);
    uintptr_t GetBoundContext() const { return m_hglrcBound; }

    // The GDI side of the pixel exchange (no-ops without a bound context).
    void PrepareRead(const RECT& rect);
    void CommitWrite(const RECT& rect);
    // The whole frame into the bitmap (SwapBuffers, GdiFlush).
    int FlushGL();
    int IsBitmapCurrent() const { return m_bBitmapCurrent; }

private:
    CVGdiDC() = default;
    void SetBitmap(uintptr_t bitmap);

    Kind m_kind = kMemory;
    uintptr_t m_hBitmap = 0;
    uintptr_t m_hBrush = 0;
    uintptr_t m_hPalette = 0;
    uintptr_t m_hFont = 0;
    uintptr_t m_hPen = 0;

    _XDisplay* m_pDisplay = nullptr;
    unsigned long m_window = 0;
    std::unique_ptr<CVGLXFormatList> m_pFormats;

    uintptr_t m_hglrcBound = 0;
    void* m_pSurface = nullptr;
    int m_nSurfaceFormat = 0;
    int m_nSurfaceWidth = 0;
    int m_nSurfaceHeight = 0;
    int m_bUploadPending = 0;
    int m_bBitmapCurrent = 1;
};
