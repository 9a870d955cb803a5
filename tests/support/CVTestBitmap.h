#pragma once
// Test fixture pieces: a memory DC with a DIB section selected, the headless
// target every GL test renders into, plus pixel access in RGB terms.
#include <cstdint>
#include <cstring>

#include "platform/WinGDI.h"

class CVTestBitmap {
public:
    // 32-bit bottom-up BGRA, or 16-bit 5-6-5 when bits is 16.
    CVTestBitmap(int width, int height, int bits = 32) : m_nWidth(width), m_nHeight(height), m_nBits(bits) {
        struct {
            BITMAPINFOHEADER h;
            DWORD masks[3];
        } info;
        std::memset(&info, 0, sizeof(info));
        info.h.biSize = sizeof(BITMAPINFOHEADER);
        info.h.biWidth = width;
        info.h.biHeight = height;
        info.h.biPlanes = 1;
        info.h.biBitCount = (WORD)bits;
        info.h.biCompression = bits == 16 ? BI_BITFIELDS : BI_RGB;
        info.masks[0] = 0xF800;
        info.masks[1] = 0x07E0;
        info.masks[2] = 0x001F;
        m_hDC = CreateCompatibleDC(nullptr);
        m_hBitmap = CreateDIBSection(m_hDC, reinterpret_cast<BITMAPINFO*>(&info), DIB_RGB_COLORS, &m_pBits,
                                     nullptr, 0);
        m_hOld = SelectObject(m_hDC, m_hBitmap);
    }
    ~CVTestBitmap() {
        SelectObject(m_hDC, m_hOld);
        DeleteObject(m_hBitmap);
        DeleteDC(m_hDC);
    }
    CVTestBitmap(const CVTestBitmap&) = delete;
    CVTestBitmap& operator=(const CVTestBitmap&) = delete;

    HDC GetDC() const { return m_hDC; }
    void* GetBits() const { return m_pBits; }
    int GetWidth() const { return m_nWidth; }
    int GetHeight() const { return m_nHeight; }

    // Pixel at (x, y) with y up from the bottom row, as GL counts, as 0x00RRGGBB.
    uint32_t Pixel(int x, int y) const {
        if (m_nBits == 16) {
            int stride = ((m_nWidth * 2 + 3) / 4) * 4;
            uint16_t v;
            std::memcpy(&v, static_cast<const uint8_t*>(m_pBits) + y * stride + x * 2, 2);
            uint32_t r = (v >> 11) & 0x1F, g = (v >> 5) & 0x3F, b = v & 0x1F;
            return ((r * 255 / 31) << 16) | ((g * 255 / 63) << 8) | (b * 255 / 31);
        }
        const uint8_t* p = static_cast<const uint8_t*>(m_pBits) + (y * m_nWidth + x) * 4;
        return ((uint32_t)p[2] << 16) | ((uint32_t)p[1] << 8) | p[0];
    }

private:
    int m_nWidth, m_nHeight, m_nBits;
    HDC m_hDC = nullptr;
    HBITMAP m_hBitmap = nullptr;
    HGDIOBJ m_hOld = nullptr;
    void* m_pBits = nullptr;
};
