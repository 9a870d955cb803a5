// Logical palettes and their selection into DCs.
#include "platform/WinGDI.h"
#include "support/CVTestDib.h"

#include <gtest/gtest.h>

#include <vector>

namespace {
// Entry i is (i, 2i, 3i); the block stays alive with the caller.
struct LogPalette {
    explicit LogPalette(int n, WORD version = 0x300) : buf(sizeof(LOGPALETTE) + n * sizeof(PALETTEENTRY)) {
        auto* lp = reinterpret_cast<LOGPALETTE*>(buf.data());
        lp->palVersion = version;
        lp->palNumEntries = (WORD)n;
        for (int i = 0; i < n; ++i) lp->palPalEntry[i] = PALETTEENTRY{BYTE(i), BYTE(2 * i), BYTE(3 * i), 0};
    }
    HPALETTE Create() { return CreatePalette(reinterpret_cast<LOGPALETTE*>(buf.data())); }
    std::vector<BYTE> buf;
};

TEST(CVGdiPaletteTest, EntriesRoundTripAndMalformedPalettesAreRefused) {
    HPALETTE pal = LogPalette(8).Create();
    ASSERT_NE(pal, nullptr);
    EXPECT_EQ(GetPaletteEntries(pal, 0, 0, nullptr), 8u);
    PALETTEENTRY e[8];
    EXPECT_EQ(GetPaletteEntries(pal, 6, 5, e), 2u);
    EXPECT_EQ(e[1].peGreen, 14);
    EXPECT_EQ(GetPaletteEntries(pal, 8, 1, e), 0u);
    WORD count = 0;
    EXPECT_EQ(GetObjectW(pal, sizeof count, &count), 2);
    EXPECT_EQ(count, 8);
    DeleteObject(pal);
    EXPECT_EQ(LogPalette(4, 0x200).Create(), nullptr);
    EXPECT_EQ(LogPalette(0).Create(), nullptr);
    EXPECT_EQ(CreatePalette(nullptr), nullptr);
}

TEST(CVGdiPaletteTest, SelectAndRealize) {
    CVTestDib dib(2, 2, 32);
    HPALETTE pal = LogPalette(16).Create();
    HPALETTE def = SelectPalette(dib.hdc, pal, FALSE);
    ASSERT_NE(def, nullptr);
    EXPECT_EQ(GetPaletteEntries(def, 0, 0, nullptr), 20u);  // the static colours
    EXPECT_EQ(RealizePalette(dib.hdc), 16u);
    EXPECT_EQ(GetCurrentObject(dib.hdc, OBJ_PAL), pal);
    EXPECT_EQ(SelectPalette(dib.hdc, def, FALSE), pal);
    EXPECT_EQ(RealizePalette(dib.hdc), 0u);
    EXPECT_EQ(SelectPalette(dib.hdc, reinterpret_cast<HPALETTE>(dib.bitmap), FALSE), nullptr);
    DeleteObject(pal);
}

TEST(CVGdiPaletteTest, PaletteIndexedColourTableComesFromTheDCsPalette) {
    CVTestDib host(1, 1, 32);
    HPALETTE pal = LogPalette(4).Create();
    SelectPalette(host.hdc, pal, FALSE);
    struct {
        BITMAPINFOHEADER h;
        WORD indexes[2];
    } info{{40, 8, 1, 1, 1, BI_RGB, 0, 0, 0, 0, 0}, {3, 1}};
    void* bits = nullptr;
    HBITMAP bmp = CreateDIBSection(host.hdc, reinterpret_cast<BITMAPINFO*>(&info), DIB_PAL_COLORS, &bits, nullptr, 0);
    ASSERT_NE(bmp, nullptr);
    HDC dc = CreateCompatibleDC(host.hdc);
    SelectObject(dc, bmp);
    EXPECT_EQ(GetPixel(dc, 0, 0), RGB(3, 6, 9));
    DeleteDC(dc);
    DeleteObject(bmp);
    DeleteObject(pal);
}
}  // namespace
