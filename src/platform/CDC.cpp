#include "platform/CDC.h"

#include "platform/CPalette.h"

#include <map>
#include <memory>

IMPLEMENT_DYNAMIC(CDC, CObject)

namespace {
thread_local std::map<HDC, std::unique_ptr<CDC>> t_temps;

// The framework's wrappers accept null objects where a null handle is meant.
HDC SafeHdc(const CDC* dc) { return dc ? dc->m_hDC : nullptr; }
}  // namespace

CDC::~CDC() {
    if (m_hDC) ::DeleteDC(Detach());
}

CDC* CDC::FromHandle(HDC hdc) {
    if (!hdc) return nullptr;
    std::unique_ptr<CDC>& slot = t_temps[hdc];
    if (!slot) {
        slot = std::make_unique<CDC>();
        slot->m_hDC = slot->m_hAttribDC = hdc;
    }
    return slot.get();
}

void CDC::DeleteTempMap() {
    for (auto& entry : t_temps) entry.second->Detach();
    t_temps.clear();
}

BOOL CDC::Attach(HDC hdc) {
    if (m_hDC || !hdc) return FALSE;
    m_hDC = m_hAttribDC = hdc;
    return TRUE;
}

HDC CDC::Detach() {
    HDC h = m_hDC;
    m_hDC = m_hAttribDC = nullptr;
    return h;
}

BOOL CDC::CreateCompatibleDC(CDC* pDC) {
    if (m_hDC) return FALSE;
    return Attach(::CreateCompatibleDC(SafeHdc(pDC)));
}

BOOL CDC::DeleteDC() {
    if (!m_hDC) return FALSE;
    return ::DeleteDC(Detach());
}

HGDIOBJ CDC::SelectObject(HGDIOBJ obj) { return ::SelectObject(m_hDC, obj); }

CPalette* CDC::SelectPalette(CPalette* palette, BOOL forceBackground) {
    return CPalette::FromHandle(::SelectPalette(m_hDC, palette ? palette->m_hObject : nullptr, forceBackground));
}

UINT CDC::RealizePalette() { return ::RealizePalette(m_hDC); }
int CDC::GetDeviceCaps(int index) const { return ::GetDeviceCaps(m_hAttribDC, index); }
COLORREF CDC::SetBkColor(COLORREF color) { return ::SetBkColor(m_hDC, color); }
COLORREF CDC::GetBkColor() const { return ::GetBkColor(m_hAttribDC); }
COLORREF CDC::SetTextColor(COLORREF color) { return ::SetTextColor(m_hDC, color); }
COLORREF CDC::GetTextColor() const { return ::GetTextColor(m_hAttribDC); }
int CDC::SetBkMode(int mode) { return ::SetBkMode(m_hDC, mode); }
int CDC::GetBkMode() const { return ::GetBkMode(m_hAttribDC); }
int CDC::SetStretchBltMode(int mode) { return ::SetStretchBltMode(m_hDC, mode); }
int CDC::GetStretchBltMode() const { return ::GetStretchBltMode(m_hAttribDC); }

void CDC::FillSolidRect(const RECT* rect, COLORREF color) {
    if (!rect) return;
    ::SetBkColor(m_hDC, color);
    HBRUSH brush = ::CreateSolidBrush(color);
    ::FillRect(m_hDC, rect, brush);
    ::DeleteObject(brush);
}

void CDC::FillSolidRect(int x, int y, int cx, int cy, COLORREF color) {
    RECT r{x, y, x + cx, y + cy};
    FillSolidRect(&r, color);
}

BOOL CDC::BitBlt(int x, int y, int width, int height, CDC* pSrcDC, int xSrc, int ySrc, DWORD rop) {
    return ::BitBlt(m_hDC, x, y, width, height, SafeHdc(pSrcDC), xSrc, ySrc, rop);
}

BOOL CDC::StretchBlt(int x, int y, int width, int height, CDC* pSrcDC, int xSrc, int ySrc, int srcWidth,
                     int srcHeight, DWORD rop) {
    return ::StretchBlt(m_hDC, x, y, width, height, SafeHdc(pSrcDC), xSrc, ySrc, srcWidth, srcHeight, rop);
}

BOOL CDC::PatBlt(int x, int y, int width, int height, DWORD rop) {
    return ::PatBlt(m_hDC, x, y, width, height, rop);
}

COLORREF CDC::GetPixel(int x, int y) const { return ::GetPixel(m_hDC, x, y); }
COLORREF CDC::SetPixel(int x, int y, COLORREF color) { return ::SetPixel(m_hDC, x, y, color); }
