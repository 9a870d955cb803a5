#include "platform/CVGdipBitmap.h"

#include <cstdio>
#include <cstring>
#include <new>

#include "platform/CString.h"

namespace {

int IsLockFormat(PixelFormat format) {
    return format == PixelFormat32bppARGB || format == PixelFormat32bppRGB || format == PixelFormat24bppRGB;
}

int CanOpen(const CString& name) {
    FILE* f = fopen(name.ToUTF8().c_str(), "rb");
    if (!f) return 0;
    fclose(f);
    return 1;
}

}  // namespace

GpStatus CVGdipBitmap::FromFile(const WCHAR* fileName, CVGdipBitmap** out) {
    if (!out) return InvalidParameter;
    *out = nullptr;
    if (!fileName) return InvalidParameter;
    CString name(fileName);
    if (!CanOpen(name)) return FileNotFound;
    CVGdipBitmap* bitmap = new (std::nothrow) CVGdipBitmap;
    if (!bitmap) return OutOfMemory;
    if (!bitmap->m_image.Read(name)) {
        delete bitmap;
        return UnknownImageFormat;
    }
    bitmap->m_nPixelFormat = bitmap->m_image.HasAlpha() ? PixelFormat32bppARGB : PixelFormat32bppRGB;
    *out = bitmap;
    return Ok;
}

GpStatus CVGdipBitmap::FromScan0(INT width, INT height, INT stride, PixelFormat format, const BYTE* scan0,
                                 CVGdipBitmap** out) {
    if (!out) return InvalidParameter;
    *out = nullptr;
    if (width <= 0 || height <= 0 || (format != PixelFormat32bppARGB && format != PixelFormat32bppRGB))
        return InvalidParameter;
    if (scan0 && (stride < width * 4 && stride > -width * 4)) return InvalidParameter;
    CVGdipBitmap* bitmap = new (std::nothrow) CVGdipBitmap;
    if (!bitmap) return OutOfMemory;
    bitmap->m_image.Create(width, height, IsAlphaPixelFormat(format));
    if (bitmap->m_image.GetWidth() != width) {
        delete bitmap;
        return OutOfMemory;
    }
    bitmap->m_nPixelFormat = format;
    if (scan0) {
        uint32_t* dst = bitmap->m_image.GetBits();
        for (int y = 0; y < height; ++y) {
            memcpy(dst + (size_t)y * width, scan0 + (ptrdiff_t)y * stride, (size_t)width * 4);
            if (format == PixelFormat32bppRGB)
                for (int x = 0; x < width; ++x) dst[(size_t)y * width + x] |= 0xFF000000u;
        }
    }
    *out = bitmap;
    return Ok;
}

GpStatus CVGdipBitmap::RotateFlip(RotateFlipType type) {
    if (m_bLocked) return WrongState;
    if (type < RotateNoneFlipNone || type > Rotate270FlipX) return InvalidParameter;
    const int w = m_image.GetWidth(), h = m_image.GetHeight();
    const int quarter = type & 3;  // clockwise quarter turns, then a mirror in x
    const bool mirror = (type & 4) != 0;
    const int nw = (quarter & 1) ? h : w, nh = (quarter & 1) ? w : h;
    CVImageFile turned;
    turned.Create(nw, nh, m_image.HasAlpha());
    if (turned.GetWidth() != nw) return OutOfMemory;
    const uint32_t* src = m_image.GetBits();
    uint32_t* dst = turned.GetBits();
    for (int y = 0; y < nh; ++y)
        for (int x = 0; x < nw; ++x) {
            int tx = mirror ? nw - 1 - x : x;
            int sx, sy;
            switch (quarter) {
            case 0: sx = tx, sy = y; break;
            case 1: sx = y, sy = h - 1 - tx; break;
            case 2: sx = w - 1 - tx, sy = h - 1 - y; break;
            default: sx = w - 1 - y, sy = tx; break;
            }
            dst[(size_t)y * nw + x] = src[(size_t)sy * w + sx];
        }
    m_image = std::move(turned);
    return Ok;
}

void CVGdipBitmap::CopyOut(BYTE* buffer, INT stride) const {
    const int w = m_image.GetWidth();
    for (int y = 0; y < m_rcLock.Height; ++y) {
        const uint32_t* src = m_image.GetBits() + (size_t)(m_rcLock.Y + y) * w + m_rcLock.X;
        BYTE* row = buffer + (ptrdiff_t)y * stride;
        for (int x = 0; x < m_rcLock.Width; ++x) {
            uint32_t p = src[x];
            if (m_nLockFormat == PixelFormat24bppRGB) {
                row[3 * x] = (BYTE)p;
                row[3 * x + 1] = (BYTE)(p >> 8);
                row[3 * x + 2] = (BYTE)(p >> 16);
            } else {
                if (m_nLockFormat == PixelFormat32bppRGB) p |= 0xFF000000u;
                memcpy(row + 4 * x, &p, 4);
            }
        }
    }
}

void CVGdipBitmap::CopyIn(const BYTE* buffer, INT stride) {
    const int w = m_image.GetWidth();
    for (int y = 0; y < m_rcLock.Height; ++y) {
        uint32_t* dst = m_image.GetBits() + (size_t)(m_rcLock.Y + y) * w + m_rcLock.X;
        const BYTE* row = buffer + (ptrdiff_t)y * stride;
        for (int x = 0; x < m_rcLock.Width; ++x) {
            uint32_t p;
            if (m_nLockFormat == PixelFormat24bppRGB) {
                p = 0xFF000000u | ((uint32_t)row[3 * x + 2] << 16) | ((uint32_t)row[3 * x + 1] << 8) | row[3 * x];
            } else {
                memcpy(&p, row + 4 * x, 4);
                if (m_nLockFormat == PixelFormat32bppRGB) p |= 0xFF000000u;
            }
            dst[x] = p;
        }
    }
}

GpStatus CVGdipBitmap::LockBits(const GpRect* rect, UINT flags, PixelFormat format, BitmapData* data) {
    if (!data) return InvalidParameter;
    if (m_bLocked) return WrongState;
    GpRect r = rect ? *rect : GpRect{0, 0, (INT)GetWidth(), (INT)GetHeight()};
    if (r.X < 0 || r.Y < 0 || r.Width <= 0 || r.Height <= 0 || r.X + r.Width > (INT)GetWidth() ||
        r.Y + r.Height > (INT)GetHeight())
        return InvalidParameter;
    if (!(flags & (ImageLockModeRead | ImageLockModeWrite)) || !IsLockFormat(format)) return InvalidParameter;
    const bool user = (flags & ImageLockModeUserInputBuf) != 0;
    if (user && !data->Scan0) return InvalidParameter;

    m_rcLock = r;
    m_nLockFlags = flags;
    m_nLockFormat = format;
    m_pLockTarget = nullptr;
    if (user) {
        m_pLockTarget = static_cast<BYTE*>(data->Scan0);
        m_nLockStride = data->Stride;
    } else if (format == PixelFormat32bppARGB) {
        m_nLockStride = (INT)GetWidth() * 4;
        data->Scan0 = m_image.GetBits() + (size_t)r.Y * GetWidth() + r.X;
    } else {
        m_nLockStride = ((r.Width * (INT)GetPixelFormatSize(format) / 8) + 3) & ~3;
        try {
            m_lockBuffer.assign((size_t)m_nLockStride * r.Height, 0);
        } catch (const std::bad_alloc&) {
            return OutOfMemory;
        }
        m_pLockTarget = m_lockBuffer.data();
        data->Scan0 = m_pLockTarget;
    }
    if (m_pLockTarget && (flags & ImageLockModeRead)) CopyOut(m_pLockTarget, m_nLockStride);
    data->Width = (UINT)r.Width;
    data->Height = (UINT)r.Height;
    data->Stride = m_nLockStride;
    data->PixelFormat = format;
    data->Reserved = 0;
    m_bLocked = 1;
    return Ok;
}

GpStatus CVGdipBitmap::UnlockBits(BitmapData* data) {
    if (!data) return InvalidParameter;
    if (!m_bLocked) return WrongState;
    if (m_pLockTarget && (m_nLockFlags & ImageLockModeWrite)) CopyIn(m_pLockTarget, m_nLockStride);
    m_lockBuffer.clear();
    m_lockBuffer.shrink_to_fit();
    m_pLockTarget = nullptr;
    m_bLocked = 0;
    return Ok;
}

GpStatus CVGdipBitmap::Save(const WCHAR* fileName, const CLSID& encoder) {
    if (!fileName) return InvalidParameter;
    if (m_bLocked) return WrongState;
    m_image.SetHasAlpha(IsAlphaPixelFormat(m_nPixelFormat));
    int written;
    if (encoder == CLSID_PNGEncoder) written = m_image.WritePNG(fileName);
    else if (encoder == CLSID_BMPEncoder) written = m_image.WriteBMP(fileName);
    else return UnknownImageFormat;
    return written ? Ok : Win32Error;
}
