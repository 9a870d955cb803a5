#pragma once
// Test fixture pieces: a memory DC with a DIB section selected, the headless
// target every GL test renders into, plus pixel access in RGB terms.
#include <cstdint>
#include <cstring>
#include <vector>

#include "support/CVTestDib.h"

class CVTestBitmap {
public:
    // 32-bit bottom-up BGRA, or 16-bit 5-6-5 when bits is 16.
    CVTestBitmap(int width, int height, int bits = 32) : m_dib(width, height, bits) {}

    HDC GetDC() const { return m_dib.hdc; }
    void* GetBits() const { return m_dib.bits; }
    int GetWidth() const { return m_dib.width; }
    int GetHeight() const { return m_dib.height; }

    // Pixel at (x, y) with y up from the bottom row, as GL counts, as 0x00RRGGBB.
    uint32_t Pixel(int x, int y) const {
        const BYTE* row = m_dib.Row(m_dib.height - 1 - y);
        if (m_dib.bpp == 16) {
            uint16_t v;
            std::memcpy(&v, row + x * 2, 2);
            uint32_t r = (v >> 11) & 0x1F, g = (v >> 5) & 0x3F, b = v & 0x1F;
            return ((r * 255 / 31) << 16) | ((g * 255 / 63) << 8) | (b * 255 / 31);
        }
        const BYTE* p = row + x * 4;
        return ((uint32_t)p[2] << 16) | ((uint32_t)p[1] << 8) | p[0];
    }

    // Every pixel, row by row from the bottom, for whole-frame comparisons.
    std::vector<uint32_t> Pixels() const {
        std::vector<uint32_t> all;
        for (int y = 0; y < GetHeight(); ++y)
            for (int x = 0; x < GetWidth(); ++x) all.push_back(Pixel(x, y));
        return all;
    }

private:
    CVTestDib m_dib;
};
