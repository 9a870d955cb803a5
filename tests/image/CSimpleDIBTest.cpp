// CSimpleDIB: depth from the reference DC, re-creation, failures, saving;
// the GL suite checks that saving sees what GL drew last.
#include <gtest/gtest.h>

#include <GL/gl.h>

#include <string>
#include <vector>

#include "image/CSimpleDIB.h"
#include "platform/CException.h"
#include "platform/CVImageFile.h"
#include "render/CVBitmapDevice.h"
#include "render/CVGLRenderArea.h"
#include "support/CVTestBitmap.h"
#include "support/CVTestFiles.h"

namespace {

// A memory DC holding an 8-bit DIB section, with a palette of its own
// selected: entry i is (10 + i, 20 i, 200).
struct IndexedReference {
    IndexedReference() : dc(CreateCompatibleDC(nullptr)) {
        struct {
            WORD version, count;
            PALETTEENTRY entries[4];
        } lp{0x300, 4, {{10, 0, 200, 0}, {11, 20, 200, 0}, {12, 40, 200, 0}, {13, 60, 200, 0}}};
        palette = CreatePalette(reinterpret_cast<LOGPALETTE*>(&lp));
        std::vector<BYTE> info(sizeof(BITMAPINFOHEADER) + 256 * sizeof(RGBQUAD));
        *reinterpret_cast<BITMAPINFOHEADER*>(info.data()) = BITMAPINFOHEADER{40, 4, 4, 1, 8, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        bitmap = CreateDIBSection(dc, reinterpret_cast<BITMAPINFO*>(info.data()), DIB_RGB_COLORS, &bits, nullptr, 0);
        old = SelectObject(dc, bitmap);
        SelectPalette(dc, palette, FALSE);
    }
    ~IndexedReference() {
        SelectObject(dc, old);
        DeleteObject(bitmap);
        DeleteDC(dc);
        DeleteObject(palette);
    }
    HDC dc;
    HPALETTE palette;
    HBITMAP bitmap;
    HGDIOBJ old;
};

TEST(CSimpleDIBTest, DepthFollowsTheReference) {
    CVTestBitmap ref32(2, 2, 32), ref16(2, 2, 16);
    IndexedReference ref8;
    HDC bare = CreateCompatibleDC(nullptr);  // reports 1 bit
    const struct {
        HDC reference;
        int bits;
        DWORD greenMask;
    } cases[] = {{ref32.GetDC(), 32, 0x0000FF00}, {ref16.GetDC(), 16, 0x07E0}, {ref8.dc, 8, 0},
                 {bare, 32, 0x0000FF00},          {nullptr, 32, 0x0000FF00}};
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.reference << " " << c.bits);
        CSimpleDIB dib;
        dib.Create(7, 3, c.reference);
        EXPECT_EQ((std::vector<int>{dib.GetBitCount(), dib.GetWidth(), dib.GetHeight(),
                                    GetDeviceCaps(dib.GetDC(), BITSPIXEL)}),
                  (std::vector<int>{c.bits, 7, 3, c.bits}));
        EXPECT_EQ(GetCurrentObject(dib.GetDC(), OBJ_BITMAP), dib.GetBitmap());
        DIBSECTION ds{};
        ASSERT_EQ(GetObjectW(dib.GetBitmap(), sizeof ds, &ds), (int)sizeof ds);
        EXPECT_EQ(ds.dsBm.bmBits, dib.GetBits());
        EXPECT_GT(ds.dsBmih.biHeight, 0) << "bottom-up";
        EXPECT_EQ(c.bits == 8 ? 0 : ds.dsBitfields[1], c.greenMask);
    }
    DeleteDC(bare);
    // An 8-bit section starts with the reference's palette, then black.
    CSimpleDIB indexed;
    indexed.Create(4, 4, ref8.dc);
    RGBQUAD table[6] = {};
    ASSERT_EQ(GetDIBColorTable(indexed.GetDC(), 0, 6, table), 6u);
    EXPECT_EQ((std::vector<int>{table[3].rgbRed, table[3].rgbGreen, table[3].rgbBlue, table[5].rgbBlue}),
              (std::vector<int>{13, 60, 200, 0}));
}

TEST(CSimpleDIBTest, CreatingAgainReleasesTheOldBitmapAndDCFailureLeavesItEmpty) {
    CSimpleDIB dib;
    dib.Create(8, 8, nullptr);
    HDC oldDC = dib.GetDC();
    HBITMAP oldBitmap = dib.GetBitmap();
    dib.Create(16, 4, nullptr);
    EXPECT_EQ(GetDeviceCaps(oldDC, BITSPIXEL), 0);  // no such DC any more
    EXPECT_EQ(GetObjectType(oldBitmap), 0u);
    EXPECT_EQ(GetDeviceCaps(dib.GetDC(), HORZRES), 16);
    dib.Release();
    EXPECT_EQ(dib.GetDC(), nullptr);
    EXPECT_FALSE(dib.Save(CString("/tmp/never-written.bmp")));
    HDC stale = CreateCompatibleDC(nullptr);
    DeleteDC(stale);
    const struct {
        int w, h;
        HDC reference;
    } bad[] = {{0, 5, nullptr}, {5, -2, nullptr}, {4, 4, stale}};
    for (const auto& c : bad) {
        dib.Create(3, 3, nullptr);
        try {
            dib.Create(c.w, c.h, c.reference);
            ADD_FAILURE() << "no exception for " << c.w << " x " << c.h;
        } catch (const CMemoryException& e) {
            EXPECT_EQ(std::string(e.what()).rfind("CSimpleDIB::Create()", 0), 0u) << e.what();
        }
        EXPECT_EQ(dib.GetDC(), nullptr);
        EXPECT_EQ(dib.GetBits(), nullptr);
        EXPECT_EQ(dib.GetWidth(), 0);
    }
}

TEST(CSimpleDIBTest, SavesBMPOrPNGByExtensionPixelForPixel) {
    cvtest::TempDir dir;
    for (int ref : {32, 16}) {
        CVTestBitmap reference(1, 1, ref);
        CSimpleDIB dib;
        dib.Create(5, 4, reference.GetDC());
        for (int y = 0; y < 4; ++y)
            for (int x = 0; x < 5; ++x) SetPixel(dib.GetDC(), x, y, RGB(x * 50, y * 70, 90 + x * y * 9));
        for (const char* name : {"a.bmp", "b.PNG"}) {
            const std::string path = dir / (std::to_string(ref) + name);
            SCOPED_TRACE(path);
            ASSERT_TRUE(dib.Save(CString(path.c_str())));
            CVImageFile back;
            ASSERT_TRUE(back.Read(CString(path.c_str())));
            EXPECT_EQ(back.GetFormat(), name[0] == 'a' ? CVImageFile::FormatBMP : CVImageFile::FormatPNG);
            EXPECT_FALSE(back.HasAlpha());
            for (int y = 0; y < 4; ++y)
                for (int x = 0; x < 5; ++x) {
                    const COLORREF c = GetPixel(dib.GetDC(), x, y);
                    ASSERT_EQ(back.GetPixel(x, y), 0xFF000000u | GetRValue(c) << 16 | GetGValue(c) << 8 | GetBValue(c))
                        << x << "," << y;
                }
        }
        EXPECT_FALSE(dib.Save(CString((dir / "missing/dir/c.bmp").c_str())));
    }
}

TEST(CSimpleDIBGLTest, SaveSeesWhatGLDrewLast) {
    cvtest::TempDir dir;
    CSimpleDIB dib;
    dib.Create(16, 16, nullptr);
    CVBitmapDevice device(dib.GetDC());
    CVGLRenderArea* area = new CVGLRenderArea(&device);
    area->Ref();
    ASSERT_NE(area->GetHGLRC(), nullptr);
    glViewport(0, 0, 16, 16);
    glClearColor(0.0f, 1.0f, 0.0f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT);  // no swap: the bitmap has not seen it yet
    const std::string path = dir / "gl.png";
    ASSERT_TRUE(dib.Save(CString(path.c_str())));
    CVImageFile back;
    ASSERT_TRUE(back.Read(CString(path.c_str())));
    EXPECT_EQ(back.GetPixel(0, 0), 0xFF00FF00u);
    EXPECT_EQ(back.GetPixel(15, 15), 0xFF00FF00u);
    area->Unref();
}

}  // namespace
