#pragma once
// An image in memory, read from and written to image files.
//
// Pixels are 32-bit 0xAARRGGBB with straight (not premultiplied) alpha, rows
// top-down and packed (stride = width * 4); in memory each pixel is the bytes
// B, G, R, A. HasAlpha() is true only for PNGs with an alpha channel or a
// transparency chunk and for 32-bit BMPs whose alpha bytes are not all zero
// (32-bit BMPs with all-zero alpha are read as opaque). Pixels of images
// without alpha have A = 0xFF.
//
// Read: PNG, JPEG (baseline and progressive; grey, RGB, CMYK) and BMP (1, 4
// and 8-bit palettised, 16/24/32-bit BI_RGB, 16/32-bit BI_BITFIELDS, bottom-up
// and top-down; not compressed RLE), recognised by their first bytes, not the
// file name. Write: PNG, BMP and baseline colour JPEG (alpha dropped).
// Failures (missing, empty, truncated or corrupt files, unsupported variants,
// images above 64 megapixels) return 0 and leave the object empty; codec
// errors never escape as exceptions or reach stderr.
#include <cstddef>
#include <cstdint>
#include <vector>

#include "CString.h"
#include "WinTypes.h"

class CVImageFile {
public:
    enum Format { FormatNone = 0, FormatPNG, FormatJPEG, FormatBMP };

    CVImageFile() = default;

    // 1 on success.
    int Read(const CString& fileName);
    int ReadMemory(const void* data, size_t size);

    // 1 on success; 0 for an empty image or a file that cannot be written.
    // An image with alpha is written with it (RGBA PNG, 32-bit BMP), one
    // without as RGB (24-bit BMP).
    int WritePNG(const CString& fileName) const;
    int WriteBMP(const CString& fileName) const;
    // quality 0 (smallest) to 100 (best); 0 outside that range.
    int WriteJPEG(const CString& fileName, int quality) const;

    // Encoders for pixels held elsewhere: 32-bit B, G, R, A pixels, rows
    // top-down, row starts stride bytes apart (at least width * 4).
    static int WritePNG(const CString& fileName, int width, int height, const BYTE* bgra, int stride, int hasAlpha);
    static int WriteBMP(const CString& fileName, int width, int height, const BYTE* bgra, int stride, int hasAlpha);
    static int WriteJPEG(const CString& fileName, int width, int height, const BYTE* bgra, int stride, int quality);

    // A width x height image of transparent black; non-positive sizes empty it.
    void Create(int width, int height, int hasAlpha);
    void Empty();

    int GetWidth() const { return m_nWidth; }
    int GetHeight() const { return m_nHeight; }
    int HasAlpha() const { return m_bHasAlpha; }
    void SetHasAlpha(int hasAlpha) { m_bHasAlpha = hasAlpha ? 1 : 0; }
    // The format the pixels were read from; FormatNone after Create.
    int GetFormat() const { return m_nFormat; }
    uint32_t* GetBits() { return m_pixels.data(); }
    const uint32_t* GetBits() const { return m_pixels.data(); }
    // Throws CInvalidArgException outside the image.
    uint32_t GetPixel(int x, int y) const;
    void SetPixel(int x, int y, uint32_t argb);

private:
    int m_nWidth = 0;
    int m_nHeight = 0;
    int m_bHasAlpha = 0;
    int m_nFormat = FormatNone;
    std::vector<uint32_t> m_pixels;
};
