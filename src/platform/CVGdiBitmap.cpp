#include "platform/CVGdiBitmap.h"

#include "platform/CVGdiHandleTable.h"
#include "platform/CVGdiPalette.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace {
// Bitmaps above this many bytes are refused rather than risking overflow in
// row arithmetic (an 8-bit DIB of 32767 x 32767 still fits).
constexpr size_t kMaxBytes = size_t(1) << 31;

int Popcount(DWORD v) { return __builtin_popcount(v); }
int LowestBit(DWORD v) { return v ? __builtin_ctz(v) : 0; }

// A mask must be one run of bits.
bool IsContiguous(DWORD mask) {
    if (mask == 0) return false;
    DWORD shifted = mask >> LowestBit(mask);
    return (shifted & (shifted + 1)) == 0;
}

// 8-bit component to n bits and back, rounded the way GL converts colours,
// so that values exactly representable in n bits survive both directions.
uint32_t Compress(BYTE v, int bits) {
    uint32_t max = (1u << bits) - 1;
    return bits >= 8 ? (uint32_t(v) << (bits - 8)) : (v * max + 127) / 255;
}
BYTE Expand(uint32_t v, int bits) {
    if (bits >= 8) return BYTE(v >> (bits - 8));
    uint32_t max = (1u << bits) - 1;
    return BYTE((v * 255 + max / 2) / max);
}

RGBQUAD Quad(BYTE r, BYTE g, BYTE b) { return RGBQUAD{b, g, r, 0}; }
}  // namespace

std::unique_ptr<CVGdiBitmap> CVGdiBitmap::CreateDIBSection(const BITMAPINFO* info, UINT usage,
                                                           const CVGdiPalette* palette) {
    if (!info) return nullptr;
    const BITMAPINFOHEADER& h = info->bmiHeader;
    if (h.biSize < sizeof(BITMAPINFOHEADER) || h.biWidth <= 0 || h.biHeight == 0 ||
        h.biHeight == INT32_MIN || h.biPlanes != 1)
        return nullptr;
    int bpp = h.biBitCount;
    if (bpp != 1 && bpp != 4 && bpp != 8 && bpp != 16 && bpp != 24 && bpp != 32) return nullptr;
    if (h.biCompression != BI_RGB && !(h.biCompression == BI_BITFIELDS && (bpp == 16 || bpp == 32)))
        return nullptr;
    if (usage != DIB_RGB_COLORS && usage != DIB_PAL_COLORS) return nullptr;

    std::unique_ptr<CVGdiBitmap> bmp(new CVGdiBitmap);
    bmp->m_nWidth = h.biWidth;
    bmp->m_nHeight = h.biHeight < 0 ? -h.biHeight : h.biHeight;
    bmp->m_bTopDown = h.biHeight < 0;
    bmp->m_nBitsPixel = bpp;
    bmp->m_bDIBSection = 1;
    bmp->m_header = h;
    bmp->m_header.biSize = sizeof(BITMAPINFOHEADER);
    bmp->m_compression = h.biCompression;
    bmp->m_nStride = ((bmp->m_nWidth * bpp + 31) / 32) * 4;

    const BYTE* table = reinterpret_cast<const BYTE*>(info) + h.biSize;
    if (bpp <= 8) {
        UINT n = h.biClrUsed ? h.biClrUsed : (1u << bpp);
        if (n > (1u << bpp)) return nullptr;
        bmp->m_colors.resize(n);
        for (UINT i = 0; i < n; ++i) {
            if (usage == DIB_PAL_COLORS) {
                WORD index;
                std::memcpy(&index, table + 2 * i, sizeof index);
                if (palette && index < palette->GetEntryCount()) {
                    const PALETTEENTRY& e = palette->GetEntry(index);
                    bmp->m_colors[i] = Quad(e.peRed, e.peGreen, e.peBlue);
                }
            } else {
                std::memcpy(&bmp->m_colors[i], table + 4 * i, sizeof(RGBQUAD));
                bmp->m_colors[i].rgbReserved = 0;
            }
        }
        bmp->m_nColorMask = (1u << bpp) - 1;
    } else if (h.biCompression == BI_BITFIELDS) {
        DWORD masks[3];
        std::memcpy(masks, table, sizeof masks);
        for (DWORD m : masks) {
            if (!IsContiguous(m) || (bpp == 16 && m > 0xFFFF) || Popcount(m) > 8) return nullptr;
        }
        if ((masks[0] & masks[1]) || (masks[0] & masks[2]) || (masks[1] & masks[2])) return nullptr;
        bmp->SetMasks(masks[0], masks[1], masks[2]);
    } else if (bpp == 16) {
        bmp->SetMasks(0x7C00, 0x03E0, 0x001F);
    } else if (bpp == 32) {
        bmp->SetMasks(0x00FF0000, 0x0000FF00, 0x000000FF);
    } else {
        bmp->m_nColorMask = 0x00FFFFFF;
    }
    if (!bmp->Allocate()) return nullptr;
    return bmp;
}

std::unique_ptr<CVGdiBitmap> CVGdiBitmap::CreateDDB(int width, int height, int bitsPixel,
                                                    const void* bits) {
    if (width <= 0 || height <= 0) return nullptr;
    if (bitsPixel != 1 && bitsPixel != 16 && bitsPixel != 24 && bitsPixel != 32) return nullptr;
    std::unique_ptr<CVGdiBitmap> bmp(new CVGdiBitmap);
    bmp->m_nWidth = width;
    bmp->m_nHeight = height;
    bmp->m_nBitsPixel = bitsPixel;
    bmp->m_bTopDown = 1;
    bmp->m_nStride = ((width * bitsPixel + 15) / 16) * 2;
    if (bitsPixel == 1) {
        bmp->m_colors = {Quad(0, 0, 0), Quad(255, 255, 255)};
        bmp->m_nColorMask = 1;
    } else if (bitsPixel == 16) {
        bmp->SetMasks(0xF800, 0x07E0, 0x001F);
    } else if (bitsPixel == 32) {
        bmp->SetMasks(0x00FF0000, 0x0000FF00, 0x000000FF);
    } else {
        bmp->m_nColorMask = 0x00FFFFFF;
    }
    if (!bmp->Allocate()) return nullptr;
    if (bits) std::memcpy(bmp->m_pBits.get(), bits, (size_t)bmp->m_nStride * height);
    return bmp;
}

uintptr_t CVGdiBitmap::GetDefault() {
    static const uintptr_t handle = CVGdiHandleTable::Add(CreateDDB(1, 1, 1, nullptr), 1);
    return handle;
}

int CVGdiBitmap::Allocate() {
    size_t bytes = (size_t)m_nStride * (size_t)m_nHeight;
    if (m_nWidth > 0x7FFFFF || bytes > kMaxBytes) return 0;
    m_pBits.reset(new (std::nothrow) BYTE[bytes]());
    return m_pBits != nullptr;
}

void CVGdiBitmap::SetMasks(DWORD red, DWORD green, DWORD blue) {
    DWORD masks[3] = {red, green, blue};
    for (int i = 0; i < 3; ++i) {
        m_channels[i].mask = masks[i];
        m_channels[i].shift = LowestBit(masks[i]);
        m_channels[i].bits = Popcount(masks[i]);
    }
    m_nColorMask = red | green | blue;
}

DWORD CVGdiBitmap::GetObjectType() const { return OBJ_BITMAP; }

int CVGdiBitmap::GetObjectInfo(int size, void* out) const {
    BITMAP bm{};
    bm.bmType = 0;
    bm.bmWidth = m_nWidth;
    bm.bmHeight = m_nHeight;
    bm.bmWidthBytes = m_nStride;
    bm.bmPlanes = 1;
    bm.bmBitsPixel = (WORD)m_nBitsPixel;
    bm.bmBits = m_bDIBSection ? const_cast<BYTE*>(m_pBits.get()) : nullptr;
    if (!out) return m_bDIBSection ? (int)sizeof(DIBSECTION) : (int)sizeof(BITMAP);
    if (m_bDIBSection && size >= (int)sizeof(DIBSECTION)) {
        DIBSECTION ds{};
        ds.dsBm = bm;
        ds.dsBmih = m_header;
        ds.dsBmih.biSizeImage = (DWORD)m_nStride * (DWORD)m_nHeight;
        if (m_nBitsPixel == 16 || m_nBitsPixel == 32) {
            for (int i = 0; i < 3; ++i) ds.dsBitfields[i] = m_channels[i].mask;
        }
        std::memcpy(out, &ds, sizeof ds);
        return (int)sizeof(DIBSECTION);
    }
    if (size < (int)sizeof(BITMAP)) return 0;
    std::memcpy(out, &bm, sizeof bm);
    return (int)sizeof(BITMAP);
}

int CVGdiBitmap::CanDelete() const { return m_hSelectedDC == 0; }

uint32_t CVGdiBitmap::GetNative(int x, int y) const {
    const BYTE* row = GetRow(y);
    switch (m_nBitsPixel) {
    case 1: return (row[x >> 3] >> (7 - (x & 7))) & 1;
    case 4: return (row[x >> 1] >> ((x & 1) ? 0 : 4)) & 0xF;
    case 8: return row[x];
    case 16: return uint32_t(row[2 * x]) | (uint32_t(row[2 * x + 1]) << 8);
    case 24: {
        const BYTE* p = row + 3 * x;
        return uint32_t(p[0]) | (uint32_t(p[1]) << 8) | (uint32_t(p[2]) << 16);
    }
    default: {
        uint32_t v;
        std::memcpy(&v, row + 4 * x, 4);
        return v;
    }
    }
}

void CVGdiBitmap::SetNative(int x, int y, uint32_t value) {
    BYTE* row = GetRow(y);
    switch (m_nBitsPixel) {
    case 1: {
        BYTE bit = BYTE(0x80 >> (x & 7));
        row[x >> 3] = (value & 1) ? (row[x >> 3] | bit) : (row[x >> 3] & ~bit);
        break;
    }
    case 4: {
        BYTE& b = row[x >> 1];
        b = (x & 1) ? BYTE((b & 0xF0) | (value & 0xF)) : BYTE((b & 0x0F) | ((value & 0xF) << 4));
        break;
    }
    case 8: row[x] = BYTE(value); break;
    case 16:
        row[2 * x] = BYTE(value);
        row[2 * x + 1] = BYTE(value >> 8);
        break;
    case 24: {
        BYTE* p = row + 3 * x;
        p[0] = BYTE(value);
        p[1] = BYTE(value >> 8);
        p[2] = BYTE(value >> 16);
        break;
    }
    default: std::memcpy(row + 4 * x, &value, 4); break;
    }
}

void CVGdiBitmap::ReadRow(int x, int y, int n, uint32_t* out) const {
    if (m_nBitsPixel == 32) {
        std::memcpy(out, GetRow(y) + 4 * x, (size_t)n * 4);
        return;
    }
    for (int i = 0; i < n; ++i) out[i] = GetNative(x + i, y);
}

void CVGdiBitmap::WriteRow(int x, int y, int n, const uint32_t* in) {
    if (m_nBitsPixel == 32) {
        std::memcpy(GetRow(y) + 4 * x, in, (size_t)n * 4);
        return;
    }
    for (int i = 0; i < n; ++i) SetNative(x + i, y, in[i]);
}

uint32_t CVGdiBitmap::NativeFromColor(COLORREF color) const {
    BYTE r = GetRValue(color), g = GetGValue(color), b = GetBValue(color);
    if (m_nBitsPixel <= 8) {
        uint32_t best = 0;
        int bestDist = 0x7FFFFFFF;
        for (size_t i = 0; i < m_colors.size(); ++i) {
            int dr = m_colors[i].rgbRed - r, dg = m_colors[i].rgbGreen - g, db = m_colors[i].rgbBlue - b;
            int d = dr * dr + dg * dg + db * db;
            if (d < bestDist) {
                bestDist = d;
                best = (uint32_t)i;
                if (d == 0) break;
            }
        }
        return best;
    }
    if (m_nBitsPixel == 24) return (uint32_t(r) << 16) | (uint32_t(g) << 8) | b;
    BYTE comps[3] = {r, g, b};
    uint32_t v = 0;
    for (int i = 0; i < 3; ++i)
        v |= Compress(comps[i], m_channels[i].bits) << m_channels[i].shift;
    return v;
}

COLORREF CVGdiBitmap::ColorFromNative(uint32_t value) const {
    if (m_nBitsPixel <= 8) {
        if (value >= m_colors.size()) return RGB(0, 0, 0);
        const RGBQUAD& q = m_colors[value];
        return RGB(q.rgbRed, q.rgbGreen, q.rgbBlue);
    }
    if (m_nBitsPixel == 24) return RGB(value >> 16, value >> 8, value);
    BYTE c[3];
    for (int i = 0; i < 3; ++i)
        c[i] = Expand((value & m_channels[i].mask) >> m_channels[i].shift, m_channels[i].bits);
    return RGB(c[0], c[1], c[2]);
}

int CVGdiBitmap::HasSameEncoding(const CVGdiBitmap& other) const {
    if (m_nBitsPixel != other.m_nBitsPixel) return 0;
    if (m_nBitsPixel == 16 || m_nBitsPixel == 32) {
        for (int i = 0; i < 3; ++i)
            if (m_channels[i].mask != other.m_channels[i].mask) return 0;
        return 1;
    }
    if (m_colors.size() != other.m_colors.size()) return 0;
    for (size_t i = 0; i < m_colors.size(); ++i) {
        const RGBQUAD &a = m_colors[i], &b = other.m_colors[i];
        if (a.rgbRed != b.rgbRed || a.rgbGreen != b.rgbGreen || a.rgbBlue != b.rgbBlue) return 0;
    }
    return 1;
}

CVGdiBitmap::GLLayout CVGdiBitmap::GetGLLayout() const {
    if (m_nBitsPixel == 32 && m_channels[0].mask == 0x00FF0000 && m_channels[1].mask == 0x0000FF00 &&
        m_channels[2].mask == 0x000000FF)
        return kGLBGRA8888;
    if (m_nBitsPixel == 16 && m_channels[0].mask == 0xF800 && m_channels[1].mask == 0x07E0 &&
        m_channels[2].mask == 0x001F)
        return kGLRGB565;
    return kGLNone;
}

UINT CVGdiBitmap::SetColorTable(UINT start, UINT count, const RGBQUAD* colors) {
    if (!colors || start >= m_colors.size()) return 0;
    UINT n = std::min<UINT>(count, GetColorTableSize() - start);
    for (UINT i = 0; i < n; ++i) {
        m_colors[start + i] = colors[i];
        m_colors[start + i].rgbReserved = 0;
    }
    return n;
}

UINT CVGdiBitmap::GetColorTable(UINT start, UINT count, RGBQUAD* colors) const {
    if (!colors || start >= m_colors.size()) return 0;
    UINT n = std::min<UINT>(count, GetColorTableSize() - start);
    std::copy(m_colors.begin() + start, m_colors.begin() + start + n, colors);
    return n;
}
