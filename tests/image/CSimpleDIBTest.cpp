// CSimpleDIB: depth from the reference DC, re-creation, failures, saving;
// the GL suite checks that saving sees what GL drew last.
#include <gtest/gtest.h>

#include <GL/gl.h>

#include <cstring>
#include <string>
#include <vector>

#include "image/CSimpleDIB.h"
#include "image/CVImageFile.h"
#include "platform/CException.h"
#include "render/CVBitmapDevice.h"
#include "render/CVGLRenderArea.h"
#include "support/CVTestBitmap.h"
#include "support/CVTestFiles.h"

namespace {

// A memory DC holding an 8-bit DIB section, with a palette of its own selected.
class IndexedReference {
public:
    IndexedReference() {
        std::vector<BYTE> buf(sizeof(LOGPALETTE) + 3 * sizeof(PALETTEENTRY));
        LOGPALETTE* lp = reinterpret_cast<LOGPALETTE*>(buf.data());
        lp->palVersion = 0x300;
        lp->palNumEntries = 4;
        for (int i = 0; i < 4; ++i) lp->palPalEntry[i] = PALETTEENTRY{(BYTE)(10 + i), (BYTE)(20 * i), 200, 0};
        m_hPalette = CreatePalette(lp);
        std::vector<BYTE> info(sizeof(BITMAPINFOHEADER) + 256 * sizeof(RGBQUAD));
        *reinterpret_cast<BITMAPINFOHEADER*>(info.data()) = BITMAPINFOHEADER{40, 4, 4, 1, 8, BI_RGB, 0, 0, 0, 0, 0};
        m_hDC = CreateCompatibleDC(nullptr);
        void* bits = nullptr;
        m_hBitmap = CreateDIBSection(m_hDC, reinterpret_cast<BITMAPINFO*>(info.data()), DIB_RGB_COLORS, &bits, nullptr, 0);
        m_hOld = SelectObject(m_hDC, m_hBitmap);
        SelectPalette(m_hDC, m_hPalette, FALSE);
    }
    ~IndexedReference() {
        SelectObject(m_hDC, m_hOld);
        DeleteObject(m_hBitmap);
        DeleteDC(m_hDC);
        DeleteObject(m_hPalette);
    }
    HDC GetDC() const { return m_hDC; }

private:
    HPALETTE m_hPalette;
    HDC m_hDC;
    HBITMAP m_hBitmap;
    HGDIOBJ m_hOld;
};

TEST(CSimpleDIBTest, DepthFollowsTheReference) {
    CVTestBitmap ref32(2, 2, 32), ref16(2, 2, 16);
    IndexedReference ref8;
    HDC bare = CreateCompatibleDC(nullptr);  // reports 1 bit
    struct Case {
        const char* name;
        HDC reference;
        int bits;
        DWORD greenMask;
    } cases[] = {{"32", ref32.GetDC(), 32, 0x0000FF00}, {"16", ref16.GetDC(), 16, 0x07E0},
                 {"8", ref8.GetDC(), 8, 0},           {"bare", bare, 32, 0x0000FF00},
                 {"null", nullptr, 32, 0x0000FF00}};
    for (const Case& c : cases) {
        CSimpleDIB dib;
        dib.Create(7, 3, c.reference);
        EXPECT_EQ(dib.GetBitCount(), c.bits) << c.name;
        EXPECT_EQ(dib.GetWidth(), 7);
        EXPECT_EQ(dib.GetHeight(), 3);
        EXPECT_EQ(GetDeviceCaps(dib.GetDC(), BITSPIXEL), c.bits) << c.name;
        EXPECT_EQ(GetCurrentObject(dib.GetDC(), OBJ_BITMAP), dib.GetBitmap());
        DIBSECTION ds{};
        ASSERT_EQ(GetObjectW(dib.GetBitmap(), sizeof ds, &ds), (int)sizeof ds) << c.name;
        EXPECT_EQ(ds.dsBm.bmBits, dib.GetBits());
        EXPECT_GT(ds.dsBmih.biHeight, 0) << "bottom-up";
        if (c.bits != 8) {
            EXPECT_EQ(ds.dsBitfields[1], c.greenMask) << c.name;
        }
    }
    DeleteDC(bare);

    // An 8-bit section starts with the reference's palette, then black.
    CSimpleDIB indexed;
    indexed.Create(4, 4, ref8.GetDC());
    RGBQUAD table[6] = {};
    ASSERT_EQ(GetDIBColorTable(indexed.GetDC(), 0, 6, table), 6u);
    EXPECT_EQ(table[3].rgbRed, 13);
    EXPECT_EQ(table[3].rgbGreen, 60);
    EXPECT_EQ(table[3].rgbBlue, 200);
    EXPECT_EQ(table[5].rgbBlue, 0);
}

TEST(CSimpleDIBTest, CreatingAgainReleasesTheOldBitmapAndDC) {
    CSimpleDIB dib;
    dib.Create(8, 8, nullptr);
    HDC oldDC = dib.GetDC();
    HBITMAP oldBitmap = dib.GetBitmap();
    dib.Create(16, 4, nullptr);
    EXPECT_EQ(GetDeviceCaps(oldDC, BITSPIXEL), 0);  // no such DC any more
    EXPECT_EQ(GetObjectType(oldBitmap), 0u);
    EXPECT_EQ(dib.GetWidth(), 16);
    EXPECT_EQ(GetDeviceCaps(dib.GetDC(), HORZRES), 16);
    dib.Release();
    EXPECT_EQ(dib.GetDC(), nullptr);
    EXPECT_FALSE(dib.Save(CString("/tmp/never-written.bmp")));
}

TEST(CSimpleDIBTest, FailureThrowsAndLeavesItEmpty) {
    HDC stale = CreateCompatibleDC(nullptr);
    DeleteDC(stale);
    struct Case {
        int w, h;
        HDC reference;
    } cases[] = {{0, 5, nullptr}, {5, -2, nullptr}, {4, 4, stale}};
    for (const Case& c : cases) {
        CSimpleDIB dib;
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
            ASSERT_TRUE(dib.Save(CString(path.c_str()))) << path;
            CVImageFile back;
            ASSERT_TRUE(back.Read(CString(path.c_str()))) << path;
            EXPECT_EQ(back.GetFormat(), name[0] == 'a' ? CVImageFile::FormatBMP : CVImageFile::FormatPNG);
            EXPECT_FALSE(back.HasAlpha());
            for (int y = 0; y < 4; ++y)
                for (int x = 0; x < 5; ++x) {
                    const COLORREF c = GetPixel(dib.GetDC(), x, y);
                    ASSERT_EQ(back.GetPixel(x, y) & 0xFFFFFF,
                              (uint32_t)(GetRValue(c) << 16 | GetGValue(c) << 8 | GetBValue(c)))
                        << path << " " << x << "," << y;
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
