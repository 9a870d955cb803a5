#pragma once
// The bitmap behind GpBitmap: 32-bit ARGB pixels (straight alpha, top-down)
// held by a CVImageFile, a pixel format, and at most one lock.
#include <vector>

#include "CVImageFile.h"
#include "GdiPlusFlat.h"

class CVGdipBitmap : public GpBitmap {
public:
    // Ok with *out set, or the failure status with *out null.
    static GpStatus FromFile(const WCHAR* fileName, CVGdipBitmap** out);
    static GpStatus FromScan0(INT width, INT height, INT stride, PixelFormat format, const BYTE* scan0,
                              CVGdipBitmap** out);

    UINT GetWidth() const { return (UINT)m_image.GetWidth(); }
    UINT GetHeight() const { return (UINT)m_image.GetHeight(); }
    PixelFormat GetPixelFormat() const { return m_nPixelFormat; }
    int IsLocked() const { return m_bLocked; }
    const CVImageFile& GetImage() const { return m_image; }

    GpStatus RotateFlip(RotateFlipType type);
    GpStatus LockBits(const GpRect* rect, UINT flags, PixelFormat format, BitmapData* data);
    GpStatus UnlockBits(BitmapData* data);
    GpStatus Save(const WCHAR* fileName, const CLSID& encoder);

private:
    CVGdipBitmap() = default;
    // Between the pixels of the locked rectangle and a buffer in m_nLockFormat.
    void CopyOut(BYTE* buffer, INT stride) const;
    void CopyIn(const BYTE* buffer, INT stride);

    CVImageFile m_image;
    PixelFormat m_nPixelFormat = PixelFormat32bppRGB;

    int m_bLocked = 0;
    GpRect m_rcLock{};
    UINT m_nLockFlags = 0;
    PixelFormat m_nLockFormat = 0;
    std::vector<BYTE> m_lockBuffer;  // converted copies
    BYTE* m_pLockTarget = nullptr;   // what the caller was given, when not the pixels themselves
    INT m_nLockStride = 0;
};
