// The GDI entry points: handle checks and the GL pixel exchange around the
// raster engine. Bad handles fail with ERROR_INVALID_HANDLE and touch nothing.
#include "platform/WinGDI.h"

#include "platform/CVGdiBitmap.h"
#include "platform/CVGdiBrush.h"
#include "platform/CVGdiDC.h"
#include "platform/CVGdiHandleTable.h"
#include "platform/CVGdiPalette.h"
#include "platform/CVGdiRaster.h"
#include "platform/WinGL.h"

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

namespace {
uintptr_t H(const void* h) { return reinterpret_cast<uintptr_t>(h); }

template <class T>
T* Lookup(const void* handle) {
    T* obj = CVGdiHandleTable::FindAs<T>(H(handle));
    if (!obj) SetLastError(ERROR_INVALID_HANDLE);
    return obj;
}

// The DC and its bitmap, for calls that draw; null for window DCs.
CVGdiBitmap* DrawTarget(HDC hdc, CVGdiDC*& dc) {
    dc = Lookup<CVGdiDC>(hdc);
    if (!dc) return nullptr;
    CVGdiBitmap* bmp = dc->GetBitmap();
    if (!bmp) SetLastError(ERROR_INVALID_HANDLE);
    return bmp;
}

BOOL Blit(HDC hdcDst, int x, int y, int w, int h, HDC hdcSrc, int sx, int sy, int sw, int sh, DWORD rop,
          const COLORREF* brush) {
    CVGdiDC* dst = nullptr;
    CVGdiBitmap* dstBmp = DrawTarget(hdcDst, dst);
    if (!dstBmp) return FALSE;
    CVGdiDC* src = nullptr;
    CVGdiBitmap* srcBmp = nullptr;
    if (CVGdiRaster::UsesSource(rop)) {
        srcBmp = DrawTarget(hdcSrc, src);
        if (!srcBmp) return FALSE;
    }
    CVGdiRaster raster(*dstBmp, srcBmp, rop);
    if (!raster.Plan(x, y, w, h, sx, sy, sw, sh)) return TRUE;
    if (src) src->PrepareRead(raster.GetSourceRect());
    if (CVGdiRaster::UsesDest(rop)) dst->PrepareRead(raster.GetDestRect());
    CVGdiRaster::Colors colors;
    colors.crBrush = brush ? *brush : dst->GetBrushColor();
    colors.crDstText = dst->m_crText;
    colors.crDstBk = dst->m_crBk;
    colors.crSrcBk = src ? src->m_crBk : RGB(255, 255, 255);
    raster.Run(colors);
    dst->CommitWrite(raster.GetDestRect());
    return TRUE;
}
}  // namespace

HDC CreateCompatibleDC(HDC hdc) {
    if (hdc && !Lookup<CVGdiDC>(hdc)) return nullptr;
    return CVHandleFromValue<HDC>(CVGdiHandleTable::Add(CVGdiDC::CreateMemory()));
}

BOOL DeleteDC(HDC hdc) {
    if (!Lookup<CVGdiDC>(hdc)) return FALSE;
    CVGdiHandleTable::Remove(H(hdc));
    return TRUE;
}

HGDIOBJ SelectObject(HDC hdc, HGDIOBJ obj) {
    CVGdiDC* dc = Lookup<CVGdiDC>(hdc);
    if (!dc) return nullptr;
    uintptr_t prev = dc->Select(H(obj));
    if (!prev) SetLastError(ERROR_INVALID_PARAMETER);
    return CVHandleFromValue<HGDIOBJ>(prev);
}

HGDIOBJ GetCurrentObject(HDC hdc, UINT type) {
    CVGdiDC* dc = Lookup<CVGdiDC>(hdc);
    return dc ? CVHandleFromValue<HGDIOBJ>(dc->GetCurrentObject(type)) : nullptr;
}

int GetDeviceCaps(HDC hdc, int index) {
    CVGdiDC* dc = Lookup<CVGdiDC>(hdc);
    if (!dc) return 0;
    int bpp = 32, width = 0, height = 0, colors = 0;
    if (CVGdiBitmap* bmp = dc->GetBitmap()) {
        bpp = bmp->GetBitsPixel();
        width = bmp->GetWidth();
        height = bmp->GetHeight();
        colors = (int)bmp->GetColorTableSize();
    } else {
        dc->GetWindowSize(width, height);
    }
    const bool palette = bpp <= 8;
    switch (index) {
    case BITSPIXEL: return bpp;
    case PLANES: return 1;
    case HORZRES: return width;
    case VERTRES: return height;
    case NUMCOLORS: return palette ? colors : -1;
    case RASTERCAPS: return RC_BITBLT | RC_STRETCHBLT | RC_DI_BITMAP | (palette ? RC_PALETTE : 0);
    case SIZEPALETTE: return palette ? (1 << bpp) : 0;
    default: return 0;
    }
}

DWORD GetObjectType(HGDIOBJ obj) {
    CVGdiObject* o = Lookup<CVGdiObject>(obj);
    return o ? o->GetObjectType() : 0;
}

BOOL GdiFlush() {
    BOOL ok = TRUE;
    for (CVGdiObject* obj : CVGdiHandleTable::FindAll(OBJ_MEMDC)) {
        if (!static_cast<CVGdiDC*>(obj)->FlushGL()) ok = FALSE;
    }
    return ok;
}

HBITMAP CreateDIBSection(HDC hdc, const BITMAPINFO* info, UINT usage, void** bits, void* section, DWORD) {
    if (bits) *bits = nullptr;
    const CVGdiPalette* palette = nullptr;
    if (usage == DIB_PAL_COLORS) {
        CVGdiDC* dc = Lookup<CVGdiDC>(hdc);
        if (!dc) return nullptr;
        palette = CVGdiHandleTable::FindAs<CVGdiPalette>(dc->GetPalette());
    }
    // File-mapping sections do not exist here.
    std::unique_ptr<CVGdiBitmap> bmp = section ? nullptr : CVGdiBitmap::CreateDIBSection(info, usage, palette);
    if (!bmp) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    void* p = bmp->GetBits();
    HBITMAP h = CVHandleFromValue<HBITMAP>(CVGdiHandleTable::Add(std::move(bmp)));
    if (bits && h) *bits = p;
    return h;
}

HBITMAP CreateCompatibleBitmap(HDC hdc, int width, int height) {
    int bpp = 32;
    if (hdc) {
        CVGdiDC* dc = Lookup<CVGdiDC>(hdc);
        if (!dc) return nullptr;
        if (CVGdiBitmap* sel = dc->GetBitmap()) bpp = sel->GetBitsPixel();
    }
    if (bpp == 4 || bpp == 8) bpp = 32;  // indexed DDBs are not kept; the colours survive in 32 bits
    if (width == 0 || height == 0) width = height = 1, bpp = 1;
    std::unique_ptr<CVGdiBitmap> bmp = CVGdiBitmap::CreateDDB(width, height, bpp, nullptr);
    if (!bmp) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    return CVHandleFromValue<HBITMAP>(CVGdiHandleTable::Add(std::move(bmp)));
}

HBITMAP CreateBitmap(int width, int height, UINT planes, UINT bitCount, const void* bits) {
    std::unique_ptr<CVGdiBitmap> bmp = planes == 1 ? CVGdiBitmap::CreateDDB(width, height, (int)bitCount, bits) : nullptr;
    if (!bmp) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    return CVHandleFromValue<HBITMAP>(CVGdiHandleTable::Add(std::move(bmp)));
}

int GetObjectW(HGDIOBJ obj, int size, void* out) {
    CVGdiObject* o = Lookup<CVGdiObject>(obj);
    return o ? o->GetObjectInfo(size, out) : 0;
}

BOOL DeleteObject(HGDIOBJ obj) {
    CVGdiObject* o = Lookup<CVGdiObject>(obj);
    if (!o) return FALSE;
    DWORD type = o->GetObjectType();
    if (type == 0 || type == OBJ_DC || type == OBJ_MEMDC) {
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    if (o->IsStock()) return TRUE;
    if (!o->CanDelete()) {
        SetLastError(ERROR_BUSY);
        return FALSE;
    }
    CVGdiHandleTable::Remove(H(obj));
    return TRUE;
}

UINT SetDIBColorTable(HDC hdc, UINT start, UINT count, const RGBQUAD* colors) {
    CVGdiDC* dc = nullptr;
    CVGdiBitmap* bmp = DrawTarget(hdc, dc);
    if (!bmp || !bmp->IsDIBSection()) return 0;
    return bmp->SetColorTable(start, count, colors);
}

UINT GetDIBColorTable(HDC hdc, UINT start, UINT count, RGBQUAD* colors) {
    CVGdiDC* dc = nullptr;
    CVGdiBitmap* bmp = DrawTarget(hdc, dc);
    if (!bmp || !bmp->IsDIBSection()) return 0;
    return bmp->GetColorTable(start, count, colors);
}

int GetDIBits(HDC hdc, HBITMAP bitmap, UINT start, UINT lines, void* bits, BITMAPINFO* info, UINT usage) {
    CVGdiBitmap* src = Lookup<CVGdiBitmap>(bitmap);
    if (!src || !info || usage != DIB_RGB_COLORS || info->bmiHeader.biSize < sizeof(BITMAPINFOHEADER)) {
        if (src) SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    CVGdiDC* dc = nullptr;
    if (hdc && !(dc = Lookup<CVGdiDC>(hdc))) return 0;
    BITMAPINFOHEADER& h = info->bmiHeader;
    const int width = src->GetWidth(), height = src->GetHeight();

    if (h.biBitCount == 0) {
        DIBSECTION ds{};
        const bool section = src->IsDIBSection() && src->GetObjectInfo(sizeof ds, &ds) == (int)sizeof ds;
        h.biWidth = width;
        h.biHeight = height;
        h.biPlanes = 1;
        h.biBitCount = (WORD)src->GetBitsPixel();
        h.biCompression = BI_RGB;
        if (h.biBitCount == 16 && (!section || ds.dsBitfields[1] != 0x03E0)) h.biCompression = BI_BITFIELDS;
        if (h.biBitCount == 32 && section && ds.dsBitfields[0] != 0x00FF0000) h.biCompression = BI_BITFIELDS;
        h.biSizeImage = (DWORD)((width * h.biBitCount + 31) / 32 * 4) * (DWORD)height;
        h.biClrUsed = h.biClrImportant = 0;
        return 1;
    }

    const int bpp = h.biBitCount;
    if (h.biWidth != width || (h.biHeight != height && h.biHeight != -height)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    // The result is made as a DIB section of the caller's format, table included.
    const UINT tableSize = bpp <= 8 ? (1u << bpp) : 0;
    std::vector<BYTE> desc(sizeof(BITMAPINFOHEADER) + 256 * sizeof(RGBQUAD));
    BITMAPINFOHEADER head = h;
    head.biSize = sizeof(BITMAPINFOHEADER);
    head.biClrUsed = 0;
    std::memcpy(desc.data(), &head, sizeof head);
    BYTE* table = desc.data() + sizeof head;
    if (h.biCompression == BI_BITFIELDS) std::memcpy(table, reinterpret_cast<BYTE*>(info) + h.biSize, 12);
    if (tableSize) {
        std::vector<RGBQUAD> colors(tableSize, RGBQUAD{0, 0, 0, 0});
        if (src->GetBitsPixel() == bpp) {
            src->GetColorTable(0, tableSize, colors.data());
        } else if (bpp == 1) {
            colors[1] = RGBQUAD{255, 255, 255, 0};
        } else {
            uintptr_t pal = dc ? dc->GetPalette() : CVGdiPalette::GetDefault();
            std::vector<PALETTEENTRY> entries(tableSize);
            UINT n = 0;
            if (CVGdiPalette* p = CVGdiHandleTable::FindAs<CVGdiPalette>(pal)) n = p->GetEntries(0, tableSize, entries.data());
            for (UINT i = 0; i < n; ++i)
                colors[i] = RGBQUAD{entries[i].peBlue, entries[i].peGreen, entries[i].peRed, 0};
        }
        std::memcpy(table, colors.data(), tableSize * sizeof(RGBQUAD));
    }
    std::unique_ptr<CVGdiBitmap> dst =
        CVGdiBitmap::CreateDIBSection(reinterpret_cast<const BITMAPINFO*>(desc.data()), DIB_RGB_COLORS, nullptr);
    if (!dst) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    if (tableSize) dst->GetColorTable(0, tableSize, reinterpret_cast<RGBQUAD*>(reinterpret_cast<BYTE*>(info) + h.biSize));
    h.biSizeImage = (DWORD)dst->GetStride() * (DWORD)height;
    if (!bits) return 1;

    if (CVGdiDC* owner = CVGdiHandleTable::FindAs<CVGdiDC>(src->GetSelectedDC()))
        owner->PrepareRead(RECT{0, 0, width, height});
    if (start >= (UINT)height) return 0;
    const UINT n = std::min<UINT>(lines, (UINT)height - start);
    const bool same = dst->HasSameEncoding(*src);
    std::vector<uint32_t> row(width);
    for (UINT m = start; m < start + n; ++m) {
        const int y = dst->IsTopDown() ? (int)m : height - 1 - (int)m;
        src->ReadRow(0, y, width, row.data());
        if (!same)
            for (uint32_t& v : row) v = dst->NativeFromColor(src->ColorFromNative(v));
        dst->WriteRow(0, y, width, row.data());
    }
    const size_t stride = (size_t)dst->GetStride();
    std::memcpy(bits, dst->GetBits() + start * stride, n * stride);
    return (int)n;
}

HBRUSH CreateSolidBrush(COLORREF color) {
    return CVHandleFromValue<HBRUSH>(CVGdiHandleTable::Add(std::make_unique<CVGdiBrush>(color)));
}

int FillRect(HDC hdc, const RECT* rect, HBRUSH brush) {
    CVGdiBrush* b = Lookup<CVGdiBrush>(brush);
    if (!rect || !b) return 0;
    COLORREF color = b->GetColor();
    return Blit(hdc, rect->left, rect->top, rect->right - rect->left, rect->bottom - rect->top, nullptr, 0, 0, 0,
                0, PATCOPY, &color);
}

BOOL PatBlt(HDC hdc, int x, int y, int w, int h, DWORD rop) {
    if (CVGdiRaster::UsesSource(rop)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    return Blit(hdc, x, y, w, h, nullptr, 0, 0, 0, 0, rop, nullptr);
}

BOOL BitBlt(HDC dst, int x, int y, int w, int h, HDC src, int sx, int sy, DWORD rop) {
    return Blit(dst, x, y, w, h, src, sx, sy, w, h, rop, nullptr);
}

BOOL StretchBlt(HDC dst, int x, int y, int w, int h, HDC src, int sx, int sy, int sw, int sh, DWORD rop) {
    return Blit(dst, x, y, w, h, src, sx, sy, sw, sh, rop, nullptr);
}

int SetStretchBltMode(HDC hdc, int mode) {
    CVGdiDC* dc = Lookup<CVGdiDC>(hdc);
    if (!dc || mode < BLACKONWHITE || mode > HALFTONE) return 0;
    return std::exchange(dc->m_nStretchMode, mode);
}

int GetStretchBltMode(HDC hdc) {
    CVGdiDC* dc = Lookup<CVGdiDC>(hdc);
    return dc ? dc->m_nStretchMode : 0;
}

COLORREF SetBkColor(HDC hdc, COLORREF color) {
    CVGdiDC* dc = Lookup<CVGdiDC>(hdc);
    return dc ? std::exchange(dc->m_crBk, color & 0x00FFFFFF) : CLR_INVALID;
}

COLORREF GetBkColor(HDC hdc) {
    CVGdiDC* dc = Lookup<CVGdiDC>(hdc);
    return dc ? dc->m_crBk : CLR_INVALID;
}

COLORREF SetTextColor(HDC hdc, COLORREF color) {
    CVGdiDC* dc = Lookup<CVGdiDC>(hdc);
    return dc ? std::exchange(dc->m_crText, color & 0x00FFFFFF) : CLR_INVALID;
}

COLORREF GetTextColor(HDC hdc) {
    CVGdiDC* dc = Lookup<CVGdiDC>(hdc);
    return dc ? dc->m_crText : CLR_INVALID;
}

int SetBkMode(HDC hdc, int mode) {
    CVGdiDC* dc = Lookup<CVGdiDC>(hdc);
    if (!dc || (mode != TRANSPARENT && mode != OPAQUE)) return 0;
    return std::exchange(dc->m_nBkMode, mode);
}

int GetBkMode(HDC hdc) {
    CVGdiDC* dc = Lookup<CVGdiDC>(hdc);
    return dc ? dc->m_nBkMode : 0;
}

COLORREF GetPixel(HDC hdc, int x, int y) {
    CVGdiDC* dc = nullptr;
    CVGdiBitmap* bmp = DrawTarget(hdc, dc);
    if (!bmp || x < 0 || y < 0 || x >= bmp->GetWidth() || y >= bmp->GetHeight()) return CLR_INVALID;
    dc->PrepareRead(RECT{x, y, x + 1, y + 1});
    return bmp->ColorFromNative(bmp->GetNative(x, y));
}

COLORREF SetPixel(HDC hdc, int x, int y, COLORREF color) {
    CVGdiDC* dc = nullptr;
    CVGdiBitmap* bmp = DrawTarget(hdc, dc);
    if (!bmp || x < 0 || y < 0 || x >= bmp->GetWidth() || y >= bmp->GetHeight()) return CLR_INVALID;
    uint32_t v = bmp->NativeFromColor(color);
    bmp->SetNative(x, y, v);
    dc->CommitWrite(RECT{x, y, x + 1, y + 1});
    return bmp->ColorFromNative(v);
}

HPALETTE CreatePalette(const LOGPALETTE* palette) {
    std::unique_ptr<CVGdiPalette> pal = CVGdiPalette::Create(palette);
    if (!pal) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    return CVHandleFromValue<HPALETTE>(CVGdiHandleTable::Add(std::move(pal)));
}

HPALETTE SelectPalette(HDC hdc, HPALETTE palette, BOOL) {
    CVGdiDC* dc = Lookup<CVGdiDC>(hdc);
    if (!dc || !Lookup<CVGdiPalette>(palette)) return nullptr;
    return CVHandleFromValue<HPALETTE>(dc->SelectPalette(H(palette)));
}

UINT RealizePalette(HDC hdc) {
    CVGdiDC* dc = Lookup<CVGdiDC>(hdc);
    if (!dc) return 0;
    // The device has no hardware palette to fill: every entry of a selected
    // palette maps, the default palette adds nothing new.
    CVGdiPalette* pal = CVGdiHandleTable::FindAs<CVGdiPalette>(dc->GetPalette());
    if (!pal || pal->IsStock()) return 0;
    return pal->GetEntryCount();
}

UINT GetPaletteEntries(HPALETTE palette, UINT start, UINT count, PALETTEENTRY* entries) {
    CVGdiPalette* pal = Lookup<CVGdiPalette>(palette);
    return pal ? pal->GetEntries(start, count, entries) : 0;
}

BOOL SetRect(RECT* rect, int left, int top, int right, int bottom) {
    if (!rect) return FALSE;
    *rect = RECT{left, top, right, bottom};
    return TRUE;
}

BOOL IsRectEmpty(const RECT* rect) {
    return !rect || rect->right <= rect->left || rect->bottom <= rect->top;
}

BOOL IntersectRect(RECT* out, const RECT* a, const RECT* b) {
    if (!out || !a || !b) return FALSE;
    RECT r{std::max(a->left, b->left), std::max(a->top, b->top), std::min(a->right, b->right),
           std::min(a->bottom, b->bottom)};
    if (IsRectEmpty(&r)) {
        *out = RECT{0, 0, 0, 0};
        return FALSE;
    }
    *out = r;
    return TRUE;
}
