#include "image/CVDIBUtil.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <vector>

#include "platform/CVImageFile.h"

namespace {

// Same ceiling as the image reader: larger images are refused, not attempted.
const uint64_t kMaxPixels = 64u * 1024u * 1024u;

size_t RowBytes(int width, int bitCount) { return ((size_t)width * (size_t)bitCount + 31) / 32 * 4; }

bool ValidBitCount(int bitCount) {
    return bitCount == 1 || bitCount == 4 || bitCount == 8 || bitCount == 16 || bitCount == 24 || bitCount == 32;
}

bool ValidSize(int width, int height) {
    return width > 0 && height > 0 && (uint64_t)width * (uint64_t)height <= kMaxPixels;
}

// Colour-table entries that follow the header (masks not counted).
DWORD TableEntries(const BITMAPINFOHEADER& h) {
    if (h.biBitCount == 0) return 0;  // compressed formats carry no table here
    if (h.biBitCount <= 8) return h.biClrUsed ? h.biClrUsed : (1u << h.biBitCount);
    return h.biClrUsed;
}

// BI_BITFIELDS masks sit right after a 40-byte header; larger headers hold
// them at the same offset inside themselves.
bool MasksFollowHeader(const BITMAPINFOHEADER& h) {
    return h.biCompression == BI_BITFIELDS && h.biSize == sizeof(BITMAPINFOHEADER);
}

// A packed DIB locked for the length of a call, checked before use.
class DIBLock {
public:
    explicit DIBLock(HGLOBAL dib) : m_hDIB(dib) {
        SIZE_T size = dib ? GlobalSize(dib) : 0;
        if (size < sizeof(BITMAPINFOHEADER)) return;
        m_pData = static_cast<const BYTE*>(GlobalLock(dib));
        if (!m_pData) return;
        std::memcpy(&m_header, m_pData, sizeof m_header);
        const BITMAPINFOHEADER& h = m_header;
        if (h.biSize < sizeof(BITMAPINFOHEADER) || h.biSize > size || h.biPlanes != 1 ||
            !ValidBitCount(h.biBitCount) || h.biHeight == INT32_MIN)
            return;
        if (h.biCompression != BI_RGB &&
            !(h.biCompression == BI_BITFIELDS && (h.biBitCount == 16 || h.biBitCount == 32)))
            return;
        if (h.biCompression == BI_BITFIELDS && !MasksFollowHeader(h) && h.biSize < 52) return;
        if (h.biBitCount <= 8 && h.biClrUsed > (1u << h.biBitCount)) return;
        m_nWidth = h.biWidth;
        m_nHeight = h.biHeight < 0 ? -h.biHeight : h.biHeight;
        if (!ValidSize(m_nWidth, m_nHeight) || h.biClrUsed > 256) return;
        m_nStride = RowBytes(m_nWidth, h.biBitCount);
        const uint64_t need = (uint64_t)h.biSize + ColorTableSize(&h) + (uint64_t)m_nStride * m_nHeight;
        if (need > size) return;
        m_bValid = true;
    }
    ~DIBLock() {
        if (m_pData) GlobalUnlock(m_hDIB);
    }
    DIBLock(const DIBLock&) = delete;
    DIBLock& operator=(const DIBLock&) = delete;

    bool IsValid() const { return m_bValid; }
    const BITMAPINFOHEADER& Header() const { return m_header; }
    int Width() const { return m_nWidth; }
    int Height() const { return m_nHeight; }
    int BitCount() const { return m_header.biBitCount; }
    size_t Stride() const { return m_nStride; }
    size_t ImageBytes() const { return m_nStride * (size_t)m_nHeight; }
    // Header, table and rows: the bytes that make up the DIB.
    size_t TotalBytes() const { return m_header.biSize + ColorTableSize(&m_header) + ImageBytes(); }
    const BYTE* Data() const { return m_pData; }
    const BYTE* Masks() const { return m_header.biCompression == BI_BITFIELDS ? m_pData + 40 : nullptr; }
    const RGBQUAD* Table() const {
        return reinterpret_cast<const RGBQUAD*>(m_pData + m_header.biSize + (MasksFollowHeader(m_header) ? 12 : 0));
    }
    const BYTE* Bits() const { return m_pData + m_header.biSize + ColorTableSize(&m_header); }
    // Row y counted from the top.
    const BYTE* Row(int y) const { return Bits() + m_nStride * (size_t)(m_header.biHeight < 0 ? y : m_nHeight - 1 - y); }

private:
    HGLOBAL m_hDIB;
    const BYTE* m_pData = nullptr;
    BITMAPINFOHEADER m_header{};
    int m_nWidth = 0;
    int m_nHeight = 0;
    size_t m_nStride = 0;
    bool m_bValid = false;
};

// A new bottom-up DIB with a 40-byte header followed by masks (when
// BI_BITFIELDS) and table entries; its rows are zero. Null when memory runs out.
class NewDIB {
public:
    NewDIB(int width, int height, int bitCount, DWORD compression, const BYTE* masks, const RGBQUAD* table,
           DWORD entries) {
        if (!ValidSize(width, height) || !ValidBitCount(bitCount)) return;
        BITMAPINFOHEADER h{};
        h.biSize = sizeof h;
        h.biWidth = width;
        h.biHeight = height;
        h.biPlanes = 1;
        h.biBitCount = (WORD)bitCount;
        h.biCompression = compression;
        h.biSizeImage = (DWORD)(RowBytes(width, bitCount) * (size_t)height);
        h.biClrUsed = bitCount <= 8 && entries == (1u << bitCount) ? 0 : entries;
        const size_t tableBytes = ColorTableSize(&h);
        m_nStride = RowBytes(width, bitCount);
        m_nHeight = height;
        m_hDIB = GlobalAlloc(GHND, sizeof h + tableBytes + h.biSizeImage);
        if (!m_hDIB) return;
        BYTE* p = static_cast<BYTE*>(GlobalLock(m_hDIB));
        std::memcpy(p, &h, sizeof h);
        BYTE* t = p + sizeof h;
        if (compression == BI_BITFIELDS) {
            std::memcpy(t, masks, 12);
            t += 12;
        }
        if (entries && table) std::memcpy(t, table, entries * sizeof(RGBQUAD));
        m_pBits = p + sizeof h + tableBytes;
    }
    ~NewDIB() {
        if (m_hDIB) {
            GlobalUnlock(m_hDIB);
            GlobalFree(m_hDIB);
        }
    }
    NewDIB(const NewDIB&) = delete;
    NewDIB& operator=(const NewDIB&) = delete;

    BYTE* Row(int y) { return m_pBits + m_nStride * (size_t)(m_nHeight - 1 - y); }
    HGLOBAL Release() {
        HGLOBAL h = m_hDIB;
        if (h) GlobalUnlock(h);
        m_hDIB = nullptr;
        return h;
    }
    bool IsValid() const { return m_hDIB != nullptr; }

private:
    HGLOBAL m_hDIB = nullptr;
    BYTE* m_pBits = nullptr;
    size_t m_nStride = 0;
    int m_nHeight = 0;
};

// Pixel values in the DIB's own encoding (index, packed word, B-G-R bytes).
uint32_t GetNative(const BYTE* row, int x, int bitCount) {
    switch (bitCount) {
        case 1: return (row[x >> 3] >> (7 - (x & 7))) & 1;
        case 4: return (row[x >> 1] >> ((x & 1) ? 0 : 4)) & 0xF;
        case 8: return row[x];
        case 16: return row[2 * x] | (row[2 * x + 1] << 8);
        case 24: return row[3 * x] | (row[3 * x + 1] << 8) | ((uint32_t)row[3 * x + 2] << 16);
        default: {
            uint32_t v;
            std::memcpy(&v, row + 4 * x, 4);
            return v;
        }
    }
}

void SetNative(BYTE* row, int x, int bitCount, uint32_t v) {
    switch (bitCount) {
        case 1: {
            const BYTE bit = (BYTE)(0x80 >> (x & 7));
            row[x >> 3] = (BYTE)(v ? (row[x >> 3] | bit) : (row[x >> 3] & ~bit));
            break;
        }
        case 4: {
            const int shift = (x & 1) ? 0 : 4;
            row[x >> 1] = (BYTE)((row[x >> 1] & ~(0xF << shift)) | ((v & 0xF) << shift));
            break;
        }
        case 8: row[x] = (BYTE)v; break;
        case 16:
            row[2 * x] = (BYTE)v;
            row[2 * x + 1] = (BYTE)(v >> 8);
            break;
        case 24:
            row[3 * x] = (BYTE)v;
            row[3 * x + 1] = (BYTE)(v >> 8);
            row[3 * x + 2] = (BYTE)(v >> 16);
            break;
        default: std::memcpy(row + 4 * x, &v, 4); break;
    }
}

// One colour channel stored under mask, from 8 bits.
uint32_t PackChannel(BYTE c, DWORD mask) {
    if (!mask) return 0;
    int shift = 0;
    while (!((mask >> shift) & 1)) ++shift;
    const uint32_t max = mask >> shift;
    return ((c * max + 127) / 255) << shift;
}

uint32_t NativeFromColor(const DIBLock& dib, COLORREF color) {
    const BYTE r = GetRValue(color), g = GetGValue(color), b = GetBValue(color);
    const BITMAPINFOHEADER& h = dib.Header();
    if (h.biBitCount <= 8) {
        const RGBQUAD* table = dib.Table();
        uint32_t best = 0;
        int bestDistance = 0x7FFFFFFF;
        for (DWORD i = 0; i < TableEntries(h); ++i) {
            const int dr = table[i].rgbRed - r, dg = table[i].rgbGreen - g, db = table[i].rgbBlue - b;
            const int d = dr * dr + dg * dg + db * db;
            if (d < bestDistance) {
                bestDistance = d;
                best = i;
            }
        }
        return best;
    }
    if (h.biBitCount == 24) return b | (g << 8) | ((uint32_t)r << 16);
    DWORD masks[3] = {0x00FF0000, 0x0000FF00, 0x000000FF};
    if (h.biBitCount == 16) masks[0] = 0x7C00, masks[1] = 0x03E0, masks[2] = 0x001F;
    if (dib.Masks()) std::memcpy(masks, dib.Masks(), sizeof masks);
    return PackChannel(r, masks[0]) | PackChannel(g, masks[1]) | PackChannel(b, masks[2]);
}

// A DIB of the source's format, masks and table at a new size.
NewDIB* SameFormat(const DIBLock& dib, int width, int height) {
    const BITMAPINFOHEADER& h = dib.Header();
    return new (std::nothrow) NewDIB(width, height, h.biBitCount, h.biCompression, dib.Masks(), dib.Table(),
                                     TableEntries(h));
}

// The pixels as 0xAARRGGBB, through the BMP reader, which knows every layout.
bool Decode(const DIBLock& dib, CVImageFile& image) {
    const BITMAPINFOHEADER& h = dib.Header();
    std::vector<BYTE> file(sizeof(BITMAPFILEHEADER) + dib.TotalBytes());
    BITMAPFILEHEADER fh{};
    fh.bfType = 0x4D42;
    fh.bfSize = (DWORD)file.size();
    fh.bfOffBits = (DWORD)(sizeof fh + h.biSize + ColorTableSize(&h));
    std::memcpy(file.data(), &fh, sizeof fh);
    std::memcpy(file.data() + sizeof fh, dib.Data(), dib.TotalBytes());
    return image.ReadMemory(file.data(), file.size()) != 0;
}

// A bottom-up 24- or 32-bit DIB of the image; the fourth byte carries alpha
// only when alpha is set, 0 otherwise.
HGLOBAL Encode(const CVImageFile& image, int bitCount, bool alpha) {
    NewDIB out(image.GetWidth(), image.GetHeight(), bitCount, BI_RGB, nullptr, nullptr, 0);
    if (!out.IsValid()) return nullptr;
    const uint32_t* src = image.GetBits();
    for (int y = 0; y < image.GetHeight(); ++y) {
        BYTE* row = out.Row(y);
        for (int x = 0; x < image.GetWidth(); ++x) {
            const uint32_t p = *src++;
            uint32_t v = p & 0x00FFFFFF;
            if (bitCount == 32 && alpha) v |= p & 0xFF000000;
            SetNative(row, x, bitCount, v);
        }
    }
    return out.Release();
}

// Source samples and weights that make up each result sample along one axis.
struct Tap {
    int index;
    float weight;
};

std::vector<std::vector<Tap>> Taps(int from, int to) {
    std::vector<std::vector<Tap>> taps(to);
    const double scale = (double)from / to;
    for (int i = 0; i < to; ++i) {
        if (from == to) {
            taps[i].push_back({i, 1.0f});
        } else if (to < from) {
            // Box: the share of each source pixel the result pixel covers.
            const double lo = i * scale, hi = (i + 1) * scale;
            for (int j = (int)std::floor(lo); j < (int)std::ceil(hi) && j < from; ++j) {
                const double w = std::min(hi, j + 1.0) - std::max(lo, (double)j);
                if (w > 0) taps[i].push_back({j, (float)(w / scale)});
            }
        } else {
            // Linear between the two nearest source centres, edges clamped.
            const double c = (i + 0.5) * scale - 0.5;
            const int j = (int)std::floor(c);
            const float f = (float)(c - j);
            taps[i].push_back({std::clamp(j, 0, from - 1), 1.0f - f});
            taps[i].push_back({std::clamp(j + 1, 0, from - 1), f});
        }
    }
    return taps;
}

// Resamples premultiplied RGBA floats, columns first, then rows.
std::vector<float> Resample(const std::vector<float>& in, int w, int h, int nw, int nh) {
    const std::vector<std::vector<Tap>> tx = Taps(w, nw), ty = Taps(h, nh);
    std::vector<float> mid((size_t)nw * h * 4, 0.0f);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < nw; ++x) {
            float* d = &mid[((size_t)y * nw + x) * 4];
            for (const Tap& t : tx[x]) {
                const float* s = &in[((size_t)y * w + t.index) * 4];
                for (int c = 0; c < 4; ++c) d[c] += s[c] * t.weight;
            }
        }
    std::vector<float> out((size_t)nw * nh * 4, 0.0f);
    for (int y = 0; y < nh; ++y)
        for (const Tap& t : ty[y]) {
            const float* s = &mid[(size_t)t.index * nw * 4];
            float* d = &out[(size_t)y * nw * 4];
            for (int i = 0; i < nw * 4; ++i) d[i] += s[i] * t.weight;
        }
    return out;
}

BYTE ToByte(float v) { return (BYTE)std::clamp((int)std::lround(v), 0, 255); }

bool WriteWholeFile(const CString& fileName, const void* a, size_t aSize, const void* b, size_t bSize) {
    const std::string name = fileName.ToUTF8();
    if (name.empty()) return false;
    FILE* f = std::fopen(name.c_str(), "wb");
    if (!f) return false;
    bool ok = std::fwrite(a, 1, aSize, f) == aSize && (!bSize || std::fwrite(b, 1, bSize, f) == bSize);
    ok = std::fclose(f) == 0 && ok;
    if (!ok) std::remove(name.c_str());
    return ok;
}

}  // namespace

DWORD ColorTableSize(const BITMAPINFOHEADER* header) {
    if (!header) return 0;
    return (MasksFollowHeader(*header) ? 12 : 0) + TableEntries(*header) * (DWORD)sizeof(RGBQUAD);
}

HGLOBAL CreateRGBDIB(int width, int height, int bitCount) {
    if (!ValidBitCount(bitCount)) return nullptr;
    RGBQUAD ramp[256];
    const DWORD entries = bitCount <= 8 ? (1u << bitCount) : 0;
    for (DWORD i = 0; i < entries; ++i) {
        const BYTE v = (BYTE)(i * 255 / (entries - 1));
        ramp[i] = RGBQUAD{v, v, v, 0};
    }
    NewDIB dib(width, height, bitCount, BI_RGB, nullptr, ramp, entries);
    return dib.Release();
}

BOOL GlobalFreeDIB(HGLOBAL dib) { return dib && GlobalFree(dib) == nullptr; }

HGLOBAL DIBFromBitmap(HBITMAP bitmap, int bitCount) {
    BITMAP bm{};
    if (GetObjectType(bitmap) != OBJ_BITMAP || GetObjectW(bitmap, sizeof bm, &bm) != (int)sizeof bm) return nullptr;
    if (bitCount != 0 && !ValidBitCount(bitCount)) return nullptr;

    struct {
        BITMAPINFOHEADER h;
        RGBQUAD table[256];
    } info{};
    info.h.biSize = sizeof(BITMAPINFOHEADER);
    if (!GetDIBits(nullptr, bitmap, 0, 0, nullptr, reinterpret_cast<BITMAPINFO*>(&info), DIB_RGB_COLORS))
        return nullptr;
    DWORD masks[3] = {0xF800, 0x07E0, 0x001F};  // what a 16-bit bitmap that is not a section holds
    if (bitCount == 0 || bitCount == info.h.biBitCount) {
        DIBSECTION ds{};
        if (GetObjectW(bitmap, sizeof ds, &ds) == (int)sizeof ds) std::memcpy(masks, ds.dsBitfields, sizeof masks);
    } else {
        info.h.biBitCount = (WORD)bitCount;
        info.h.biCompression = BI_RGB;
    }
    const int bits = info.h.biBitCount;
    NewDIB dib(bm.bmWidth, bm.bmHeight, bits, info.h.biCompression, reinterpret_cast<const BYTE*>(masks), nullptr,
               bits <= 8 ? (1u << bits) : 0);
    if (!dib.IsValid()) return nullptr;
    HGLOBAL h = dib.Release();
    BITMAPINFO* locked = static_cast<BITMAPINFO*>(GlobalLock(h));
    BYTE* rows = reinterpret_cast<BYTE*>(locked) + locked->bmiHeader.biSize + ColorTableSize(&locked->bmiHeader);
    const int copied = GetDIBits(nullptr, bitmap, 0, (UINT)bm.bmHeight, rows, locked, DIB_RGB_COLORS);
    GlobalUnlock(h);
    if (copied != bm.bmHeight) {
        GlobalFree(h);
        return nullptr;
    }
    return h;
}

BOOL StretchDIBBlt(HDC dc, int x, int y, int w, int h, HGLOBAL dib, int srcX, int srcY, int srcW, int srcH,
                   DWORD rop) {
    DIBLock src(dib);
    if (!src.IsValid()) return FALSE;
    // The rows go into a DIB section of the same format, which the raster
    // engine can blit from.
    std::vector<BYTE> desc(sizeof(BITMAPINFOHEADER) + 12 + 256 * sizeof(RGBQUAD));
    BITMAPINFOHEADER head = src.Header();
    head.biSize = sizeof head;
    std::memcpy(desc.data(), &head, sizeof head);
    if (src.Masks()) std::memcpy(desc.data() + sizeof head, src.Masks(), 12);
    else if (head.biBitCount <= 8)
        std::memcpy(desc.data() + sizeof head, src.Table(), TableEntries(head) * sizeof(RGBQUAD));
    void* bits = nullptr;
    HBITMAP section = CreateDIBSection(nullptr, reinterpret_cast<const BITMAPINFO*>(desc.data()), DIB_RGB_COLORS,
                                       &bits, nullptr, 0);
    if (!section) return FALSE;
    std::memcpy(bits, src.Bits(), src.ImageBytes());
    HDC memory = CreateCompatibleDC(nullptr);
    HGDIOBJ old = memory ? SelectObject(memory, section) : nullptr;
    const BOOL ok = old && StretchBlt(dc, x, y, w, h, memory, srcX, srcY, srcW, srcH, rop);
    if (old) SelectObject(memory, old);
    if (memory) DeleteDC(memory);
    DeleteObject(section);
    return ok;
}

HGLOBAL ScaleDIB(HGLOBAL dib, int width, int height) {
    DIBLock src(dib);
    if (!src.IsValid() || !ValidSize(width, height)) return nullptr;
    try {
        CVImageFile image;
        if (!Decode(src, image)) return nullptr;
        const bool alpha = image.HasAlpha() != 0;
        const int w = image.GetWidth(), h = image.GetHeight();
        std::vector<float> planes((size_t)w * h * 4);
        const uint32_t* p = image.GetBits();
        for (size_t i = 0; i < (size_t)w * h; ++i) {
            const float a = alpha ? (float)(p[i] >> 24) : 255.0f;
            planes[4 * i + 0] = (float)((p[i] >> 16) & 0xFF) * a / 255.0f;
            planes[4 * i + 1] = (float)((p[i] >> 8) & 0xFF) * a / 255.0f;
            planes[4 * i + 2] = (float)(p[i] & 0xFF) * a / 255.0f;
            planes[4 * i + 3] = a;
        }
        const std::vector<float> out = Resample(planes, w, h, width, height);
        CVImageFile result;
        result.Create(width, height, alpha);
        uint32_t* q = result.GetBits();
        for (size_t i = 0; i < (size_t)width * height; ++i) {
            const float a = out[4 * i + 3];
            const float unmul = a > 0.0f ? 255.0f / a : 0.0f;
            q[i] = ((uint32_t)ToByte(a) << 24) | ((uint32_t)ToByte(out[4 * i] * unmul) << 16) |
                   ((uint32_t)ToByte(out[4 * i + 1] * unmul) << 8) | ToByte(out[4 * i + 2] * unmul);
        }
        return Encode(result, src.BitCount() == 32 ? 32 : 24, alpha);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

HGLOBAL TileDIB(HGLOBAL dib, int width, int height) {
    DIBLock src(dib);
    if (!src.IsValid() || !ValidSize(width, height)) return nullptr;
    NewDIB* out = SameFormat(src, width, height);
    if (!out || !out->IsValid()) {
        delete out;
        return nullptr;
    }
    const int bits = src.BitCount();
    for (int y = 0; y < height; ++y) {
        const BYTE* s = src.Row(y % src.Height());
        BYTE* d = out->Row(y);
        for (int x = 0; x < width; ++x) SetNative(d, x, bits, GetNative(s, x % src.Width(), bits));
    }
    HGLOBAL result = out->Release();
    delete out;
    return result;
}

HGLOBAL PadDIB(HGLOBAL dib, int width, int height, COLORREF fill) {
    DIBLock src(dib);
    if (!src.IsValid() || !ValidSize(width, height)) return nullptr;
    NewDIB* out = SameFormat(src, width, height);
    if (!out || !out->IsValid()) {
        delete out;
        return nullptr;
    }
    const int bits = src.BitCount();
    const uint32_t background = NativeFromColor(src, fill);
    for (int y = 0; y < height; ++y) {
        const BYTE* s = y < src.Height() ? src.Row(y) : nullptr;
        BYTE* d = out->Row(y);
        for (int x = 0; x < width; ++x)
            SetNative(d, x, bits, s && x < src.Width() ? GetNative(s, x, bits) : background);
    }
    HGLOBAL result = out->Release();
    delete out;
    return result;
}

BOOL ConvertDIBtoBMP(HGLOBAL dib, const CString& fileName) {
    DIBLock src(dib);
    if (!src.IsValid()) return FALSE;
    const BITMAPINFOHEADER& h = src.Header();
    BITMAPFILEHEADER fh{};
    fh.bfType = 0x4D42;  // "BM"
    fh.bfSize = (DWORD)(sizeof fh + src.TotalBytes());
    fh.bfOffBits = (DWORD)(sizeof fh + h.biSize + ColorTableSize(&h));
    return WriteWholeFile(fileName, &fh, sizeof fh, src.Data(), src.TotalBytes()) ? TRUE : FALSE;
}

HGLOBAL OpenDIB(const CString& fileName) {
    try {
        CVImageFile image;
        if (!image.Read(fileName)) return nullptr;
        return Encode(image, image.HasAlpha() ? 32 : 24, image.HasAlpha() != 0);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

BOOL WriteDIBtoJPEGEx(HGLOBAL dib, const CString& fileName, int quality) {
    if (quality < 0 || quality > 100) return FALSE;
    DIBLock src(dib);
    if (!src.IsValid()) return FALSE;
    try {
        CVImageFile image;
        if (!Decode(src, image)) return FALSE;
        return image.WriteJPEG(fileName, quality) ? TRUE : FALSE;
    } catch (const std::bad_alloc&) {
        return FALSE;
    }
}
