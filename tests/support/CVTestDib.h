#pragma once
// A memory DC with a DIB section selected, for GDI and GL suites. Pixels
// are read straight from the DIB's memory, independently of GetPixel.
#include "platform/WinGDI.h"

#include <cstring>
#include <vector>

struct CVTestDib {
    HDC hdc = nullptr;
    HBITMAP bitmap = nullptr;
    HGDIOBJ old = nullptr;
    BYTE* bits = nullptr;
    int width, height, bpp, stride;
    bool topDown;

    // 32: BI_RGB; 16: BI_BITFIELDS 5-6-5; 8: grey ramp; 1: black/white.
    CVTestDib(int w, int h, int bitCount, bool topDownRows = false)
        : width(w), height(h), bpp(bitCount), topDown(topDownRows) {
        std::vector<BYTE> buf(sizeof(BITMAPINFOHEADER) + 256 * sizeof(RGBQUAD));
        auto* info = reinterpret_cast<BITMAPINFO*>(buf.data());
        info->bmiHeader = BITMAPINFOHEADER{40, w, topDownRows ? -h : h, 1, (WORD)bitCount, BI_RGB, 0, 0, 0, 0, 0};
        auto* table = reinterpret_cast<RGBQUAD*>(buf.data() + sizeof(BITMAPINFOHEADER));
        if (bitCount == 16) {
            info->bmiHeader.biCompression = BI_BITFIELDS;
            DWORD masks[3] = {0xF800, 0x07E0, 0x001F};
            std::memcpy(table, masks, sizeof masks);
        } else if (bitCount <= 8) {
            int n = 1 << bitCount;
            for (int i = 0; i < n; ++i) {
                BYTE v = BYTE(i * 255 / (n - 1));
                table[i] = RGBQUAD{v, v, v, 0};
            }
        }
        stride = ((w * bitCount + 31) / 32) * 4;
        hdc = CreateCompatibleDC(nullptr);
        void* p = nullptr;
        bitmap = CreateDIBSection(hdc, info, DIB_RGB_COLORS, &p, nullptr, 0);
        bits = static_cast<BYTE*>(p);
        old = SelectObject(hdc, bitmap);
    }
    ~CVTestDib() {
        SelectObject(hdc, old);
        DeleteObject(bitmap);
        DeleteDC(hdc);
    }
    CVTestDib(const CVTestDib&) = delete;
    CVTestDib& operator=(const CVTestDib&) = delete;

    BYTE* Row(int y) const { return bits + (size_t)(topDown ? y : height - 1 - y) * stride; }
    // The pixel at (x, y), y counted from the top, decoded from memory.
    COLORREF At(int x, int y) const {
        const BYTE* r = Row(y);
        if (bpp == 32) return RGB(r[4 * x + 2], r[4 * x + 1], r[4 * x]);
        if (bpp == 16) {
            unsigned v = r[2 * x] | (r[2 * x + 1] << 8);
            unsigned r5 = v >> 11, g6 = (v >> 5) & 63, b5 = v & 31;
            return RGB((r5 * 255 + 15) / 31, (g6 * 255 + 31) / 63, (b5 * 255 + 15) / 31);
        }
        if (bpp == 8) return RGB(r[x], r[x], r[x]);
        return (r[x >> 3] >> (7 - (x & 7))) & 1 ? RGB(255, 255, 255) : RGB(0, 0, 0);
    }
    void Fill(COLORREF c) { Fill(0, 0, width, height, c); }
    void Fill(int l, int t, int r, int btm, COLORREF c) {
        HBRUSH b = CreateSolidBrush(c);
        RECT rc{l, t, r, btm};
        FillRect(hdc, &rc, b);
        DeleteObject(b);
    }
};
