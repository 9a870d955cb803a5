// The packed-DIB utilities: layout of new DIBs, copies of bitmaps, blits,
// resampling, tiling, padding, and BMP/PNG/JPEG files, each with bad input.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "image/CVDIBUtil.h"
#include "platform/CVImageFile.h"
#include "support/CVTestBitmap.h"
#include "support/CVTestFiles.h"

namespace {

const BITMAPINFOHEADER* Head(HGLOBAL dib) { return static_cast<const BITMAPINFOHEADER*>(GlobalLock(dib)); }

BYTE* Rows(HGLOBAL dib) {
    BYTE* p = static_cast<BYTE*>(GlobalLock(dib));
    const BITMAPINFOHEADER* h = reinterpret_cast<BITMAPINFOHEADER*>(p);
    GlobalUnlock(dib);
    return p + h->biSize + ColorTableSize(h);
}

int Stride(int w, int bpp) { return (w * bpp + 31) / 32 * 4; }

// Colour at (x, y) from the top of a bottom-up DIB of any depth, decoded here
// independently of the library.
COLORREF At(HGLOBAL dib, int x, int y) {
    const BYTE* p = static_cast<const BYTE*>(GlobalLock(dib));
    GlobalUnlock(dib);
    BITMAPINFOHEADER h;
    std::memcpy(&h, p, sizeof h);
    const BYTE* row = p + h.biSize + ColorTableSize(&h) + (size_t)Stride(h.biWidth, h.biBitCount) * (h.biHeight - 1 - y);
    const RGBQUAD* table = reinterpret_cast<const RGBQUAD*>(p + h.biSize);
    switch (h.biBitCount) {
        case 1: case 4: case 8: {
            const int bit = x * h.biBitCount;
            const int index = (row[bit / 8] >> (8 - h.biBitCount - bit % 8)) & ((1 << h.biBitCount) - 1);
            return RGB(table[index].rgbRed, table[index].rgbGreen, table[index].rgbBlue);
        }
        case 16: {  // 5-6-5 only in these tests
            const int v = row[2 * x] | row[2 * x + 1] << 8;
            return RGB(((v >> 11) * 255 + 15) / 31, (((v >> 5) & 63) * 255 + 31) / 63, ((v & 31) * 255 + 15) / 31);
        }
        case 24: return RGB(row[3 * x + 2], row[3 * x + 1], row[3 * x]);
        default: return RGB(row[4 * x + 2], row[4 * x + 1], row[4 * x]);
    }
}

// A DIB with every row byte set from a pattern; 16 bits are 5-6-5.
HGLOBAL Patterned(int w, int h, int bpp) {
    HGLOBAL dib = nullptr;
    if (bpp == 16) {
        dib = GlobalAlloc(GHND, 40 + 12 + Stride(w, 16) * h);
        BYTE* p = static_cast<BYTE*>(GlobalLock(dib));
        const BITMAPINFOHEADER head{40, w, h, 1, 16, BI_BITFIELDS, 0, 0, 0, 0, 0};
        const DWORD masks[3] = {0xF800, 0x07E0, 0x001F};
        std::memcpy(p, &head, 40);
        std::memcpy(p + 40, masks, 12);
        GlobalUnlock(dib);
    } else {
        dib = CreateRGBDIB(w, h, bpp);
    }
    BYTE* rows = Rows(dib);
    for (int i = 0; i < Stride(w, bpp) * h; ++i) rows[i] = (BYTE)(i * 37 + 11);
    return dib;
}

class DIBTest : public ::testing::Test {
protected:
    ~DIBTest() override {
        for (HGLOBAL h : m_owned) GlobalFreeDIB(h);
    }
    HGLOBAL Keep(HGLOBAL h) {
        if (h) m_owned.push_back(h);
        return h;
    }
    cvtest::TempDir m_dir;

private:
    std::vector<HGLOBAL> m_owned;
};

TEST_F(DIBTest, CreateRGBDIBLaysOutHeaderTableAndZeroRowsOrRefuses) {
    const struct {
        int bpp;
        DWORD tableBytes;
    } depths[] = {{1, 8}, {4, 64}, {8, 1024}, {16, 0}, {24, 0}, {32, 0}};
    for (const auto& c : depths) {
        SCOPED_TRACE(c.bpp);
        HGLOBAL dib = Keep(CreateRGBDIB(13, 5, c.bpp));
        ASSERT_NE(dib, nullptr);
        const BITMAPINFOHEADER* h = Head(dib);
        EXPECT_EQ((std::vector<long>{(long)h->biSize, h->biWidth, h->biHeight, h->biBitCount, (long)h->biCompression}),
                  (std::vector<long>{40, 13, 5, c.bpp, BI_RGB}));
        EXPECT_EQ(ColorTableSize(h), c.tableBytes);
        EXPECT_EQ(GlobalSize(dib), 40u + c.tableBytes + Stride(13, c.bpp) * 5u);
        if (c.tableBytes) {  // a grey ramp to white
            const RGBQUAD* table = reinterpret_cast<const RGBQUAD*>(h + 1);
            EXPECT_EQ(table[0].rgbRed, 0);
            EXPECT_EQ(table[c.tableBytes / 4 - 1].rgbGreen, 255);
        }
        const BYTE* rows = Rows(dib);
        EXPECT_EQ(std::vector<BYTE>(rows, rows + Stride(13, c.bpp) * 5), std::vector<BYTE>(Stride(13, c.bpp) * 5, 0));
        GlobalUnlock(dib);
    }
    EXPECT_EQ(CreateRGBDIB(0, 5, 24), nullptr);
    EXPECT_EQ(CreateRGBDIB(5, -1, 24), nullptr);
    EXPECT_EQ(CreateRGBDIB(5, 5, 7), nullptr);
    EXPECT_EQ(CreateRGBDIB(100000, 100000, 32), nullptr);
}

TEST(CVDIBUtilTest, ColorTableSizeCountsMasksAndEntriesAndGlobalFreeDIBFreesOnce) {
    const struct {
        WORD bpp;
        DWORD compression, used, size, bytes;
    } cases[] = {{8, BI_RGB, 0, 40, 1024}, {8, BI_RGB, 16, 40, 64}, {16, BI_BITFIELDS, 0, 40, 12},
                 {32, BI_BITFIELDS, 2, 40, 20}, {24, BI_RGB, 0, 40, 0},  {16, BI_BITFIELDS, 0, 108, 0}};
    for (const auto& c : cases) {
        const BITMAPINFOHEADER h{c.size, 1, 1, 1, c.bpp, c.compression, 0, 0, 0, c.used, 0};
        EXPECT_EQ(ColorTableSize(&h), c.bytes) << c.bpp << " bits, " << c.used << " used, header " << c.size;
    }
    EXPECT_EQ(ColorTableSize(nullptr), 0u);
    HGLOBAL dib = CreateRGBDIB(2, 2, 24);
    EXPECT_TRUE(GlobalFreeDIB(dib));
    EXPECT_FALSE(GlobalFreeDIB(dib));
    EXPECT_FALSE(GlobalFreeDIB(nullptr));
}

TEST_F(DIBTest, DIBFromBitmapCopiesASelectedSection) {
    CVTestBitmap bitmap(5, 3, 16);
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 5; ++x) SetPixel(bitmap.GetDC(), x, y, RGB(x * 60, y * 100, 255 - x * 50));
    HBITMAP section = (HBITMAP)GetCurrentObject(bitmap.GetDC(), OBJ_BITMAP);

    HGLOBAL same = Keep(DIBFromBitmap(section));
    ASSERT_NE(same, nullptr);
    const BITMAPINFOHEADER* h = Head(same);
    EXPECT_EQ(h->biBitCount, 16);
    EXPECT_EQ(h->biCompression, (DWORD)BI_BITFIELDS);
    EXPECT_EQ(reinterpret_cast<const DWORD*>(h + 1)[1], 0x07E0u);
    EXPECT_EQ(std::memcmp(Rows(same), bitmap.GetBits(), Stride(5, 16) * 3), 0);
    GlobalUnlock(same);

    HGLOBAL wide = Keep(DIBFromBitmap(section, 24));
    ASSERT_NE(wide, nullptr);
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 5; ++x) EXPECT_EQ(At(wide, x, y), GetPixel(bitmap.GetDC(), x, y)) << x << "," << y;

    EXPECT_EQ(DIBFromBitmap(nullptr), nullptr);
    HBRUSH brush = CreateSolidBrush(0);
    EXPECT_EQ(DIBFromBitmap(brush), nullptr);
    DeleteObject(brush);
    EXPECT_EQ(DIBFromBitmap(section, 7), nullptr);
}

TEST_F(DIBTest, StretchDIBBltCountsSourceRowsFromTheTop) {
    HGLOBAL dib = Keep(CreateRGBDIB(2, 2, 24));
    BYTE* rows = Rows(dib);  // bottom-up: the first memory row is the bottom one
    const BYTE bottom[6] = {0, 0, 255, 0, 255, 0}, top[6] = {255, 0, 0, 255, 255, 255};
    std::memcpy(rows, bottom, 6);
    std::memcpy(rows + 8, top, 6);
    CVTestBitmap target(8, 8);
    HDC dc = target.GetDC();
    ASSERT_TRUE(StretchDIBBlt(dc, 0, 0, 4, 4, dib, 0, 0, 2, 2, SRCCOPY));
    EXPECT_EQ((std::vector<COLORREF>{GetPixel(dc, 0, 0), GetPixel(dc, 3, 1), GetPixel(dc, 1, 3), GetPixel(dc, 2, 2)}),
              (std::vector<COLORREF>{RGB(0, 0, 255), RGB(255, 255, 255), RGB(255, 0, 0), RGB(0, 255, 0)}));
    ASSERT_TRUE(StretchDIBBlt(dc, 4, 4, 4, 4, dib, 1, 1, 1, 1, SRCCOPY));  // the bottom-right pixel only
    EXPECT_EQ(GetPixel(dc, 7, 7), RGB(0, 255, 0));

    EXPECT_FALSE(StretchDIBBlt(dc, 0, 0, 4, 4, nullptr, 0, 0, 2, 2, SRCCOPY));
    EXPECT_FALSE(StretchDIBBlt(nullptr, 0, 0, 4, 4, dib, 0, 0, 2, 2, SRCCOPY));
    BITMAPINFOHEADER* h = static_cast<BITMAPINFOHEADER*>(GlobalLock(dib));
    h->biHeight = 1000;  // rows the block does not hold
    EXPECT_FALSE(StretchDIBBlt(dc, 0, 0, 4, 4, dib, 0, 0, 2, 2, SRCCOPY));
    h->biHeight = 2;
    GlobalUnlock(dib);
}

TEST_F(DIBTest, ScaleDIBAveragesDownInterpolatesUpAndWeightsByAlpha) {
    HGLOBAL big = Keep(CreateRGBDIB(300, 200, 24));
    BYTE* rows = Rows(big);
    for (int y = 0; y < 200; ++y)
        for (int x = 0; x < 300; ++x) rows[y * 900 + 3 * x + 1] = (BYTE)(x * 255 / 299);
    HGLOBAL texture = Keep(ScaleDIB(big, 256, 256));
    ASSERT_NE(texture, nullptr);
    EXPECT_EQ((std::vector<long>{Head(texture)->biWidth, Head(texture)->biHeight, Head(texture)->biBitCount}),
              (std::vector<long>{256, 256, 24}));
    for (int x = 1; x < 256; ++x) ASSERT_GE(GetGValue(At(texture, x, 100)), GetGValue(At(texture, x - 1, 100))) << x;
    EXPECT_EQ(At(texture, 10, 0), At(texture, 10, 255));  // rows stay alike

    HGLOBAL ends = Keep(CreateRGBDIB(2, 1, 24));
    std::memset(Rows(ends) + 3, 255, 3);  // black, white
    HGLOBAL up = Keep(ScaleDIB(ends, 4, 1));
    const int expected[4] = {0, 64, 191, 255};
    for (int x = 0; x < 4; ++x) EXPECT_EQ(GetRValue(At(up, x, 0)), expected[x]) << x;
    HGLOBAL down = Keep(ScaleDIB(up, 2, 1));
    EXPECT_EQ(GetRValue(At(down, 0, 0)), 32);  // mean of 0 and 64

    // Colours are weighted by alpha.
    HGLOBAL dib = Keep(CreateRGBDIB(2, 1, 32));
    const BYTE pixels[8] = {0, 0, 255, 255, 255, 0, 0, 0};  // opaque red, transparent blue
    std::memcpy(Rows(dib), pixels, 8);
    HGLOBAL one = Keep(ScaleDIB(dib, 1, 1));
    ASSERT_NE(one, nullptr);
    EXPECT_EQ(Head(one)->biBitCount, 32);
    const BYTE* p = Rows(one);
    EXPECT_EQ((std::vector<int>{p[0], p[2], p[3]}), (std::vector<int>{0, 255, 128}));

    HGLOBAL grey = Keep(Patterned(3, 3, 8));
    HGLOBAL copy = Keep(ScaleDIB(grey, 3, 3));
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(Head(copy)->biBitCount, 24);
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 3; ++x) EXPECT_EQ(At(copy, x, y), At(grey, x, y));
    EXPECT_EQ(ScaleDIB(nullptr, 4, 4), nullptr);
    EXPECT_EQ(ScaleDIB(grey, 0, 4), nullptr);
}

TEST_F(DIBTest, TileAndPadKeepTheFormat) {
    for (int bpp : {1, 4, 16, 24}) {
        HGLOBAL src = Keep(Patterned(3, 2, bpp));
        HGLOBAL tiled = Keep(TileDIB(src, 7, 5));
        ASSERT_NE(tiled, nullptr) << bpp;
        EXPECT_EQ(Head(tiled)->biBitCount, bpp);
        EXPECT_EQ(ColorTableSize(Head(tiled)), ColorTableSize(Head(src)));
        for (int y = 0; y < 5; ++y)
            for (int x = 0; x < 7; ++x) ASSERT_EQ(At(tiled, x, y), At(src, x % 3, y % 2)) << bpp << ": " << x << "," << y;

        HGLOBAL padded = Keep(PadDIB(src, 5, 4, RGB(255, 255, 255)));
        ASSERT_NE(padded, nullptr) << bpp;
        for (int y = 0; y < 4; ++y)
            for (int x = 0; x < 5; ++x)
                ASSERT_EQ(At(padded, x, y), x < 3 && y < 2 ? At(src, x, y) : RGB(255, 255, 255)) << bpp << ": " << x << "," << y;
        HGLOBAL cropped = Keep(PadDIB(src, 2, 1));
        EXPECT_EQ(At(cropped, 1, 0), At(src, 1, 0));
    }
    HGLOBAL grey = Keep(CreateRGBDIB(1, 1, 4));
    HGLOBAL near = Keep(PadDIB(grey, 2, 1, RGB(130, 140, 120)));
    EXPECT_EQ(At(near, 1, 0), RGB(136, 136, 136));  // nearest entry of the 16-step ramp
    EXPECT_EQ(TileDIB(nullptr, 4, 4), nullptr);
    EXPECT_EQ(TileDIB(grey, 4, 0), nullptr);
    EXPECT_EQ(PadDIB(grey, -1, 4), nullptr);
}

TEST_F(DIBTest, BMPFileHoldsTheBlockAndReadsBackTheSameColours) {
    for (int bpp : {1, 4, 8, 16, 24, 32}) {
        SCOPED_TRACE(bpp);
        HGLOBAL dib = Keep(Patterned(9, 4, bpp));
        const std::string name = m_dir / "out.bmp";
        ASSERT_TRUE(ConvertDIBtoBMP(dib, CString(name.c_str())));
        const std::string file = cvtest::ReadFile(name);
        const size_t blockBytes = 40 + ColorTableSize(Head(dib)) + Stride(9, bpp) * 4;
        GlobalUnlock(dib);
        ASSERT_EQ(file.size(), 14 + blockBytes);
        EXPECT_EQ(file.substr(0, 2), "BM");
        EXPECT_EQ(std::memcmp(file.data() + 14, Head(dib), blockBytes), 0);
        HGLOBAL back = Keep(OpenDIB(CString(name.c_str())));
        ASSERT_NE(back, nullptr);
        EXPECT_EQ(Head(back)->biBitCount, bpp == 32 ? 32 : 24);  // patterned fourth bytes read as alpha
        for (int y = 0; y < 4; ++y)
            for (int x = 0; x < 9; ++x) ASSERT_EQ(At(back, x, y), At(dib, x, y)) << x << "," << y;
    }
}

TEST_F(DIBTest, OpenDIBKeepsPNGAlphaAndRefusesBadFiles) {
    CVImageFile png;
    png.Create(2, 1, 1);
    png.SetPixel(0, 0, 0x80FF0000);
    png.SetPixel(1, 0, 0xFF00FF00);
    const std::string name = m_dir / "a.png";
    ASSERT_TRUE(png.WritePNG(CString(name.c_str())));
    HGLOBAL dib = Keep(OpenDIB(CString(name.c_str())));
    ASSERT_NE(dib, nullptr);
    EXPECT_EQ(Head(dib)->biBitCount, 32);
    const BYTE* p = Rows(dib);
    EXPECT_EQ((std::vector<int>{p[2], p[3], p[5]}), (std::vector<int>{255, 0x80, 255}));

    cvtest::WriteFile(m_dir / "junk.bmp", "BM not really a bitmap");
    cvtest::WriteFile(m_dir / "empty.png", "");
    for (const char* bad : {"missing.bmp", "junk.bmp", "empty.png"})
        EXPECT_EQ(OpenDIB(CString((m_dir / bad).c_str())), nullptr) << bad;
    EXPECT_FALSE(ConvertDIBtoBMP(nullptr, CString((m_dir / "x.bmp").c_str())));
    EXPECT_FALSE(ConvertDIBtoBMP(dib, CString((m_dir / "no/such/dir/x.bmp").c_str())));
}

TEST_F(DIBTest, JPEGQualityTradesSizeForFidelity) {
    HGLOBAL dib = Keep(CreateRGBDIB(64, 48, 24));
    BYTE* rows = Rows(dib);
    for (int y = 0; y < 48; ++y)
        for (int x = 0; x < 64; ++x) {
            rows[y * 192 + 3 * x] = (BYTE)(x * 4);
            rows[y * 192 + 3 * x + 1] = (BYTE)(y * 5);
            rows[y * 192 + 3 * x + 2] = 180;
        }
    const std::string best = m_dir / "best.jpg", small = m_dir / "small.jpg";
    ASSERT_TRUE(WriteDIBtoJPEGEx(dib, CString(best.c_str()), 95));
    ASSERT_TRUE(WriteDIBtoJPEGEx(dib, CString(small.c_str()), 5));
    EXPECT_LT(cvtest::ReadFile(small).size(), cvtest::ReadFile(best).size());
    CVImageFile back;
    ASSERT_TRUE(back.Read(CString(best.c_str())));
    EXPECT_EQ(back.GetFormat(), CVImageFile::FormatJPEG);
    int worst = 0;
    for (int y = 0; y < 48; ++y)
        for (int x = 0; x < 64; ++x) {
            const COLORREF want = At(dib, x, y);
            const uint32_t got = back.GetPixel(x, y);
            worst = std::max({worst, std::abs((int)(got >> 16 & 0xFF) - GetRValue(want)),
                              std::abs((int)(got >> 8 & 0xFF) - GetGValue(want)),
                              std::abs((int)(got & 0xFF) - GetBValue(want))});
        }
    EXPECT_LE(worst, 8);  // quality 95 on a smooth gradient

    const std::string refused = m_dir / "refused.jpg";
    EXPECT_FALSE(WriteDIBtoJPEGEx(dib, CString(refused.c_str()), 101));
    EXPECT_FALSE(WriteDIBtoJPEGEx(dib, CString(refused.c_str()), -1));
    EXPECT_FALSE(WriteDIBtoJPEGEx(nullptr, CString(refused.c_str()), 50));
    EXPECT_FALSE(std::fopen(refused.c_str(), "rb"));
    EXPECT_FALSE(WriteDIBtoJPEGEx(dib, CString((m_dir / "no/dir/x.jpg").c_str()), 50));
}

}  // namespace
