#pragma once
// A bitmap (HBITMAP): a DIB section or a device-dependent bitmap, both plain
// memory. Pixel values are handled in the bitmap's own encoding ("native"
// values: a colour-table index for 1-, 4- and 8-bit bitmaps, the masked
// 16-bit word, 0x00RRGGBB for 24 bits, the little-endian BGRA word for 32
// bits) so that raster operations work bit-wise as they do on the device.
// Coordinates are top-down (row 0 is the top) whatever the memory order.
#include "CVGdiObject.h"
#include "WinGDI.h"

#include <memory>
#include <vector>

class CVGdiPalette;

class CVGdiBitmap : public CVGdiObject {
public:
    // Colour layouts a GL colour buffer can share byte for byte.
    enum GLLayout { kGLNone = 0, kGLBGRA8888 = 1, kGLRGB565 = 2 };

    // A DIB section: 1, 4, 8, 16, 24 or 32 bits per pixel; BI_RGB, or
    // BI_BITFIELDS with three masks for 16 and 32 bits (16-bit BI_RGB means
    // 5-5-5). A negative height makes a top-down DIB. Rows are padded to 32
    // bits and zeroed. DIB_PAL_COLORS tables index palette (the DC's). Null on
    // bad arguments or when memory runs out.
    static std::unique_ptr<CVGdiBitmap> CreateDIBSection(const BITMAPINFO* info, UINT usage,
                                                         const CVGdiPalette* palette);
    // A device-dependent bitmap of 1 (black and white), 16 (5-6-5), 24 or 32
    // bits: top-down rows padded to 16 bits, zeroed or copied from bits.
    static std::unique_ptr<CVGdiBitmap> CreateDDB(int width, int height, int bitsPixel,
                                                  const void* bits);
    // The 1x1 monochrome bitmap every memory DC starts with (stock).
    static uintptr_t GetDefault();

    DWORD GetObjectType() const override;
    // BITMAP for any bitmap, DIBSECTION for DIB sections when size allows.
    int GetObjectInfo(int size, void* out) const override;
    // A bitmap selected into a DC cannot be deleted.
    int CanDelete() const override;

    int GetWidth() const { return m_nWidth; }
    int GetHeight() const { return m_nHeight; }
    int GetBitsPixel() const { return m_nBitsPixel; }
    int GetStride() const { return m_nStride; }
    int IsTopDown() const { return m_bTopDown; }
    int IsDIBSection() const { return m_bDIBSection; }
    int IsMono() const { return m_nBitsPixel == 1; }
    BYTE* GetBits() { return m_pBits.get(); }
    const BYTE* GetBits() const { return m_pBits.get(); }
    // Start of row y (top-down coordinates).
    BYTE* GetRow(int y) { return m_pBits.get() + (size_t)RowIndex(y) * m_nStride; }
    const BYTE* GetRow(int y) const { return m_pBits.get() + (size_t)RowIndex(y) * m_nStride; }
    // Memory row holding row y: y for top-down bitmaps, height - 1 - y otherwise.
    int RowIndex(int y) const { return m_bTopDown ? y : m_nHeight - 1 - y; }

    uint32_t GetNative(int x, int y) const;
    void SetNative(int x, int y, uint32_t value);
    // n native values of row y from column x on (no bounds checks).
    void ReadRow(int x, int y, int n, uint32_t* out) const;
    void WriteRow(int x, int y, int n, const uint32_t* in);

    // Nearest encodable value (nearest table colour for indexed bitmaps).
    uint32_t NativeFromColor(COLORREF color) const;
    COLORREF ColorFromNative(uint32_t value) const;
    // Bits of a native value that carry colour (the 32-bit reserved byte does not).
    uint32_t GetColorMask() const { return m_nColorMask; }
    // Same bits per pixel, masks and colour table: values copy as they are.
    int HasSameEncoding(const CVGdiBitmap& other) const;
    GLLayout GetGLLayout() const;

    // Colour table of 1-, 4- and 8-bit bitmaps.
    UINT GetColorTableSize() const { return (UINT)m_colors.size(); }
    UINT SetColorTable(UINT start, UINT count, const RGBQUAD* colors);
    UINT GetColorTable(UINT start, UINT count, RGBQUAD* colors) const;

    // The DC this bitmap is selected into (0: none). Stock bitmaps stay 0.
    uintptr_t GetSelectedDC() const { return m_hSelectedDC; }
    void SetSelectedDC(uintptr_t hdc) { m_hSelectedDC = hdc; }

private:
    CVGdiBitmap() = default;
    int Allocate();
    void SetMasks(DWORD red, DWORD green, DWORD blue);

    struct Channel {
        DWORD mask = 0;
        int shift = 0;
        int bits = 0;
    };

    int m_nWidth = 0;
    int m_nHeight = 0;
    int m_nBitsPixel = 0;
    int m_nStride = 0;
    int m_bTopDown = 1;
    int m_bDIBSection = 0;
    uint32_t m_nColorMask = 0;
    Channel m_channels[3];  // red, green, blue for 16 and 32 bits
    std::vector<RGBQUAD> m_colors;
    BITMAPINFOHEADER m_header{};  // as given to CreateDIBSection, for GetObjectW
    DWORD m_compression = BI_RGB;
    std::unique_ptr<BYTE[]> m_pBits;
    uintptr_t m_hSelectedDC = 0;
};
