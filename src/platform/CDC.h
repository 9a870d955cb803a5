#pragma once
// Framework wrapper over a device context. Owns what it holds: the destructor
// and DeleteDC delete the DC; Detach gives it up. FromHandle makes a
// temporary, non-owning wrapper that lives until DeleteTempMap (per thread).
// The drawing members forward to the GDI calls of the same name.
#include "CVExport.h"
#include "CObject.h"
#include "WinGDI.h"

class CPalette;

class CVSCENE_API CDC : public CObject {
    DECLARE_DYNAMIC(CDC)
public:
    CDC() = default;
    ~CDC() override;
    CDC(const CDC&) = delete;
    CDC& operator=(const CDC&) = delete;

    static CDC* FromHandle(HDC hdc);
    static void DeleteTempMap();

    BOOL Attach(HDC hdc);
    HDC Detach();
    HDC GetSafeHdc() const { return m_hDC; }
    operator HDC() const { return m_hDC; }
    // A memory DC compatible with pDC (null: with the screen).
    BOOL CreateCompatibleDC(CDC* pDC);
    BOOL DeleteDC();

    HGDIOBJ SelectObject(HGDIOBJ obj);
    CPalette* SelectPalette(CPalette* palette, BOOL forceBackground);
    UINT RealizePalette();
    int GetDeviceCaps(int index) const;

    COLORREF SetBkColor(COLORREF color);
    COLORREF GetBkColor() const;
    COLORREF SetTextColor(COLORREF color);
    COLORREF GetTextColor() const;
    int SetBkMode(int mode);
    int GetBkMode() const;
    int SetStretchBltMode(int mode);
    int GetStretchBltMode() const;

    // Fills with a solid colour. Like the framework's, it does so through
    // the background colour, which stays set to color afterwards.
    void FillSolidRect(const RECT* rect, COLORREF color);
    void FillSolidRect(int x, int y, int cx, int cy, COLORREF color);
    BOOL BitBlt(int x, int y, int width, int height, CDC* pSrcDC, int xSrc, int ySrc, DWORD rop);
    BOOL StretchBlt(int x, int y, int width, int height, CDC* pSrcDC, int xSrc, int ySrc, int srcWidth,
                    int srcHeight, DWORD rop);
    BOOL PatBlt(int x, int y, int width, int height, DWORD rop);
    COLORREF GetPixel(int x, int y) const;
    COLORREF SetPixel(int x, int y, COLORREF color);

    HDC m_hDC = nullptr;
    HDC m_hAttribDC = nullptr;
};
