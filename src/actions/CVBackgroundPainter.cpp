#include "actions/CVBackgroundPainter.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <cwchar>

#include "image/CSimpleDIB.h"
#include "image/CVSearchPaths.h"
#include "platform/BaseTsd.h"
#include "platform/CException.h"
#include "platform/GdiPlusFlat.h"

namespace {

const wchar_t kBitmapPrefix[] = L"HBITMAP:";
const int kBitmapPrefixLength = 8;
const int kPathLength = 1024;

COLORREF ToColorRef(const RGBAColorStruct& c) {
    return RGB((int)(c.r * 255.0f), (int)(c.g * 255.0f), (int)(c.b * 255.0f));
}

// A gradient component: scaled, truncated and masked, so a step past 1 or
// below 0 wraps rather than saturates.
ARGB Component(float c) { return (ARGB)((int)(c * 255.0f) & 0xFF); }

// Many small pieces are drawn into a 32-bit scratch section off the GL side
// and handed over in one blit: every GDI call on the area's DC is a round
// trip to GL's colour buffer. Null when the section cannot be made.
HDC MakeScratch(CSimpleDIB& scratch, int width, int height) {
    try {
        scratch.Create(width, height, nullptr);
    } catch (const CMemoryException&) {
        return nullptr;
    }
    return scratch.GetDC();
}

// A name used as a path as it stands: UNC, "//" or drive-letter paths.
bool IsFullPath(const CString& name) {
    if (name.GetLength() <= 2) return false;
    return (name[0] == L'\\' && name[1] == L'\\') || (name[0] == L'/' && name[1] == L'/') || name[1] == L':';
}

// The handle value after "HBITMAP:", read like a decimal int (sign and
// leading blanks allowed, stops at the first non-digit, clamped to 32 bits).
LONG ParseHandleValue(const CString& digits) {
    long long v = std::wcstoll(digits.GetString(), nullptr, 10);
    return (LONG)std::clamp<long long>(v, INT_MIN, INT_MAX);
}

}  // namespace

CVBackgroundPainter::~CVBackgroundPainter() {
    if (m_hBitmap) DeleteObject(m_hBitmap);
}

void CVBackgroundPainter::Paint(HDC hdc, const RECT& rect, const Target& target) {
    if (m_nFillStyle == 1) {
        PaintGradient(hdc, rect);
        return;
    }
    if (m_nFillStyle >= 2 && m_nFillStyle <= 4 && target.texturing && PaintImage(hdc, rect, target)) return;
    HBRUSH brush = CreateSolidBrush(ToColorRef(target.clear));
    FillRect(hdc, &rect, brush);
    DeleteObject(brush);
}

void CVBackgroundPainter::PaintGradient(HDC hdc, const RECT& rect) const {
    const int x = rect.left, y = rect.bottom, w = rect.right - rect.left, h = rect.top - rect.bottom;
    const int t = m_nGradientType;
    const bool reverse = t == 5 || t == 6 || t == 9;
    const bool horizontal = t == 1 || t == 4 || t == 5;
    const RGBAColorStruct& from = reverse ? m_EndGradientColor : m_StartGradientColor;
    const RGBAColorStruct& to = reverse ? m_StartGradientColor : m_EndGradientColor;
    const float half = (horizontal ? w : h) * 0.5f;
    if (!(half > 0.0f)) return;
    const float step[3] = {(to.r - from.r) / half, (to.g - from.g) / half, (to.b - from.b) / half};
    const int n = 2 * (int)half;

    // Everything the strips cover, the first and last strips included.
    RECT cover;
    if (horizontal)
        cover = RECT{x, y, x + n + 2, y + h};
    else
        cover = RECT{x, y + h - n, x + w, y + h + 2};
    const int cw = cover.right - cover.left, ch = cover.bottom - cover.top;
    if (cw <= 0 || ch <= 0) return;
    CSimpleDIB scratch;
    HDC strips = MakeScratch(scratch, cw, ch);
    GpGraphics* graphics = nullptr;
    if (!strips || GdipCreateFromHDC(strips, &graphics) != Ok) return;
    GpSolidFill* brush = nullptr;
    GdipCreateSolidFill(0xFF000000, &brush);

    float c[3] = {from.r, from.g, from.b};
    for (int i = 0; i <= n; i += 2) {
        for (int k = 0; k < 3; ++k) c[k] += step[k];  // the first strip already carries one step
        GdipSetSolidFillColor(brush, 0xFF000000 | Component(c[0]) << 16 | Component(c[1]) << 8 | Component(c[2]));
        if (horizontal)
            GdipFillRectangleI(graphics, brush, x + i - cover.left, y - cover.top, 2, h);
        else
            GdipFillRectangleI(graphics, brush, x - cover.left, y + h - i - cover.top, w, 2);
    }
    GdipDeleteBrush(brush);
    GdipDeleteGraphics(graphics);
    BitBlt(hdc, cover.left, cover.top, cw, ch, strips, 0, 0, SRCCOPY);
}

int CVBackgroundPainter::PaintImage(HDC hdc, const RECT& rect, const Target& target) {
    LoadImage(target.resolver);
    if (!m_hBitmap) return 0;
    HDC memory = CreateCompatibleDC(hdc);
    HGDIOBJ oldBitmap = memory ? SelectObject(memory, m_hBitmap) : nullptr;
    if (!oldBitmap) {  // e.g. the host still has the handed-over bitmap selected somewhere
        if (memory) DeleteDC(memory);
        return 0;
    }
    const int x = rect.left, y = rect.bottom, w = rect.right - rect.left, h = rect.top - rect.bottom;
    const COLORREF clear = ToColorRef(target.clear);

    DWORD rop = SRCCOPY;
    HBRUSH mergeBrush = nullptr;
    HGDIOBJ oldBrush = nullptr;
    if (m_nFillStyle == 3 || m_nFillStyle == 4 || m_bImageHasAlpha) {
        // MERGECOPY: image AND the clear colour.
        mergeBrush = CreateSolidBrush(clear);
        oldBrush = SelectObject(hdc, mergeBrush);
        rop = MERGECOPY;
    }
    const float factor = m_fImageScale > 1.0f ? m_fImageScale : target.globalScale;
    int iw = m_nImageWidth, ih = m_nImageHeight;
    if (factor != 1.0f) {
        iw = (int)((iw + 0.999) * factor);
        ih = (int)((ih + 0.999) * factor);
    }
    SetStretchBltMode(hdc, COLORONCOLOR);

    const int fit = m_nImageFitStyle;
    if (fit == 1) {
        StretchBlt(hdc, x, y, w, h, memory, 0, 0, m_nImageWidth, m_nImageHeight, rop);
    } else if (fit == 2 || fit == 13) {
        // Tiles go into a scratch bitmap and reach the DC in one blit; the
        // raster operation works per pixel, so applying it once is the same.
        // Positions are compared with w and h, not x + w and y + h.
        if (iw > 0 && ih > 0 && x < w && y < h) {
            const int cols = (w - x + iw - 1) / iw, rows = (h - y + ih - 1) / ih;
            CSimpleDIB scratch;
            if (HDC tiles = MakeScratch(scratch, cols * iw, rows * ih)) {
                SetStretchBltMode(tiles, COLORONCOLOR);
                for (int c = 0; c < cols; ++c)
                    for (int r = 0; r < rows; ++r)
                        StretchBlt(tiles, c * iw, r * ih, iw, ih, memory, 0, 0, m_nImageWidth, m_nImageHeight,
                                   SRCCOPY);
                BitBlt(hdc, x, y, cols * iw, rows * ih, tiles, 0, 0, rop);
            }
        }
    } else {
        if (iw < w || ih < h) {
            HBRUSH brush = CreateSolidBrush(clear);
            FillRect(hdc, &rect, brush);
            DeleteObject(brush);
        }
        int px, py;
        switch (fit) {
            case 4: px = (w - iw) / 2 + x; py = (h - ih) / 2 + y; break;
            case 5: px = (w - iw) / 2 + x; py = y; break;
            case 6: px = (w - iw) / 2 + x; py = y + h - ih; break;
            case 7: px = x; py = (h - ih) / 2 + y; break;
            case 8: px = x + w - iw; py = (h - ih) / 2 + y; break;
            case 9: px = x; py = y; break;
            case 10: px = x + w - iw; py = y; break;
            case 11: px = x; py = y + h - ih; break;
            case 12: px = x + w - iw; py = y + h - ih; break;
            default: px = m_nImageOffsetX; py = m_nImageOffsetY; break;
        }
        StretchBlt(hdc, px, py, iw, ih, memory, 0, 0, m_nImageWidth, m_nImageHeight, rop);
    }

    if (mergeBrush) {
        SelectObject(hdc, oldBrush);
        DeleteObject(mergeBrush);
    }
    SelectObject(memory, oldBitmap);
    DeleteDC(memory);
    return 1;
}

void CVBackgroundPainter::LoadImage(IUnknown* resolver) {
    const CString& name = m_strImageFilename;
    if (name.GetLength() >= kBitmapPrefixLength && name.Left(kBitmapPrefixLength) == kBitmapPrefix) {
        HBITMAP handed = static_cast<HBITMAP>(LongToHandle(ParseHandleValue(name.Mid(kBitmapPrefixLength))));
        if (m_hBitmap && m_hBitmap != handed) DeleteObject(m_hBitmap);
        // A later file name must load its file, whatever was loaded before.
        m_strLoadedImageName.Empty();
        m_bImageHasAlpha = 0;
        BITMAP bm;
        if (GetObjectType(handed) == OBJ_BITMAP && GetObjectW(handed, sizeof(bm), &bm)) {
            m_hBitmap = handed;
            m_nImageWidth = bm.bmWidth;
            m_nImageHeight = std::abs(bm.bmHeight);
        } else {
            m_hBitmap = nullptr;
            m_nImageWidth = m_nImageHeight = 0;
        }
        return;
    }

    if (name == m_strLoadedImageName && m_hBitmap) return;
    m_strLoadedImageName = name;
    if (m_hBitmap) DeleteObject(m_hBitmap);
    m_hBitmap = nullptr;
    m_nImageWidth = m_nImageHeight = 0;
    if (name.IsEmpty()) return;

    CString path;
    if (IsFullPath(name)) {
        path = name;
    } else {
        wchar_t found[kPathLength];
        CVGetURLTextureSearchPath(resolver, name, found);
        path = found;
    }
    if (path.IsEmpty()) return;

    GpBitmap* image = nullptr;
    if (GdipCreateBitmapFromFile(path, &image) != Ok || !image) return;
    UINT width = 0, height = 0;
    GdipGetImageWidth(image, &width);
    GdipGetImageHeight(image, &height);
    BitmapData data;
    // Locked rows run top-down; flipped first, they fill a bottom-up DIB upright.
    if (width >= 1 && height >= 1 && GdipImageRotateFlip(image, RotateNoneFlipY) == Ok &&
        GdipBitmapLockBits(image, nullptr, ImageLockModeRead, PixelFormat32bppARGB, &data) == Ok) {
        BITMAPINFO info;
        std::memset(&info, 0, sizeof(info));
        info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
        info.bmiHeader.biWidth = (LONG)width;
        info.bmiHeader.biHeight = (LONG)height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        info.bmiHeader.biCompression = BI_RGB;
        void* bits = nullptr;
        HBITMAP dib = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        if (dib && bits) {
            for (UINT row = 0; row < height; ++row)
                std::memcpy(static_cast<BYTE*>(bits) + (size_t)row * width * 4,
                            static_cast<const BYTE*>(data.Scan0) + (ptrdiff_t)row * data.Stride, (size_t)width * 4);
            m_hBitmap = dib;
            m_nImageWidth = (int)width;
            m_nImageHeight = (int)height;
            PixelFormat format = 0;
            GdipGetImagePixelFormat(image, &format);
            m_bImageHasAlpha = IsAlphaPixelFormat(format) ? 1 : 0;
        }
        GdipBitmapUnlockBits(image, &data);
    }
    GdipDisposeImage(image);
}

