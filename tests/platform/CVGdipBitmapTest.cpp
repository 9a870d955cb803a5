#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "platform/CVImageFile.h"
#include "platform/CString.h"
#include "platform/GdiPlusFlat.h"
#include "support/CVTestFiles.h"

namespace {

std::wstring Wide(const std::string& s) { return CString(s.c_str()).str(); }

// A 3 x 2 image whose pixels are 0xFF000000 + index (row-major).
GpBitmap* Numbered() {
    std::vector<uint32_t> pixels(6);
    for (int i = 0; i < 6; ++i) pixels[i] = 0xFF000000u + i;
    GpBitmap* bitmap = nullptr;
    GdipCreateBitmapFromScan0(3, 2, 12, PixelFormat32bppRGB, reinterpret_cast<BYTE*>(pixels.data()), &bitmap);
    return bitmap;
}

uint32_t PixelAt(GpBitmap* bitmap, int x, int y) {
    BitmapData data;
    GpRect one{x, y, 1, 1};
    if (GdipBitmapLockBits(bitmap, &one, ImageLockModeRead, PixelFormat32bppARGB, &data) != Ok) return 0xDEAD;
    uint32_t p;
    memcpy(&p, data.Scan0, 4);
    GdipBitmapUnlockBits(bitmap, &data);
    return p;
}

TEST(CVGdipBitmapTest, RotateFlipMovesPixelsAsTheTypeSays) {
    // Where pixels 0 (0, 0) and 1 (1, 0) end up. Turns are clockwise on
    // screen; the mirror in x comes after the turn.
    const struct {
        RotateFlipType type;
        UINT width, height;
        GpPoint first, second;
    } cases[] = {
        {RotateNoneFlipNone, 3, 2, {0, 0}, {1, 0}}, {Rotate90FlipNone, 2, 3, {1, 0}, {1, 1}},
        {Rotate180FlipNone, 3, 2, {2, 1}, {1, 1}},  {Rotate270FlipNone, 2, 3, {0, 2}, {0, 1}},
        {RotateNoneFlipX, 3, 2, {2, 0}, {1, 0}},    {Rotate90FlipX, 2, 3, {0, 0}, {0, 1}},
        {RotateNoneFlipY, 3, 2, {0, 1}, {1, 1}},    {Rotate270FlipX, 2, 3, {1, 2}, {1, 1}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE((int)c.type);
        GpBitmap* bitmap = Numbered();
        ASSERT_EQ(GdipImageRotateFlip(bitmap, c.type), Ok);
        UINT w = 0, h = 0;
        GdipGetImageWidth(bitmap, &w);
        GdipGetImageHeight(bitmap, &h);
        EXPECT_EQ((std::vector<uint32_t>{w, h, PixelAt(bitmap, c.first.X, c.first.Y), PixelAt(bitmap, c.second.X, c.second.Y)}),
                  (std::vector<uint32_t>{c.width, c.height, 0xFF000000u, 0xFF000001u}));
        GdipDisposeImage(bitmap);
    }
}

TEST(CVGdipBitmapTest, FilesLoadWithTheirAlphaFlagOrGiveStatusAndNoBitmap) {
    cvtest::TempDir dir;
    CVImageFile source;
    source.Create(4, 3, 1);
    source.SetPixel(3, 2, 0x80112233);
    source.WritePNG((dir / "a.png").c_str());
    source.SetHasAlpha(0);
    source.SetPixel(3, 2, 0xFF112233);
    source.WriteBMP((dir / "o.bmp").c_str());
    for (const char* name : {"a.png", "o.bmp"}) {
        SCOPED_TRACE(name);
        GpBitmap* bitmap = nullptr;
        ASSERT_EQ(GdipCreateBitmapFromFile(Wide(dir / name).c_str(), &bitmap), Ok);
        PixelFormat format = 0;
        GdipGetImagePixelFormat(bitmap, &format);
        UINT w = 0;
        GdipGetImageWidth(bitmap, &w);
        EXPECT_EQ(IsAlphaPixelFormat(format), name[0] == 'a');
        EXPECT_EQ(w, 4u);
        EXPECT_EQ(PixelAt(bitmap, 3, 2), name[0] == 'a' ? 0x80112233u : 0xFF112233u);
        GdipDisposeImage(bitmap);
    }
    cvtest::WriteFile(dir / "empty.png", "");
    cvtest::WriteFile(dir / "junk.bmp", "BM not really a bitmap");
    const std::pair<const char*, GpStatus> bad[] = {
        {"missing.png", FileNotFound}, {"empty.png", UnknownImageFormat}, {"junk.bmp", UnknownImageFormat}};
    for (const auto& [name, status] : bad) {
        GpBitmap* bitmap = reinterpret_cast<GpBitmap*>(1);
        EXPECT_EQ(GdipCreateBitmapFromFile(Wide(dir / name).c_str(), &bitmap), status) << name;
        EXPECT_EQ(bitmap, nullptr);
    }
    EXPECT_EQ(GdipCreateBitmapFromFile(nullptr, nullptr), InvalidParameter);
}

TEST(CVGdipBitmapTest, LocksShareOrConvertPixelsOneAtATime) {
    GpBitmap* bitmap = Numbered();
    BitmapData data, second;
    ASSERT_EQ(GdipBitmapLockBits(bitmap, nullptr, ImageLockModeRead | ImageLockModeWrite, PixelFormat32bppARGB, &data),
              Ok);
    EXPECT_EQ(data.Stride, 12);
    EXPECT_EQ(data.Width, 3u);
    static_cast<uint32_t*>(data.Scan0)[4] = 0x40ABCDEF;
    EXPECT_EQ(GdipBitmapLockBits(bitmap, nullptr, ImageLockModeRead, PixelFormat32bppARGB, &second), WrongState);
    EXPECT_EQ(GdipImageRotateFlip(bitmap, RotateNoneFlipY), WrongState);
    ASSERT_EQ(GdipBitmapUnlockBits(bitmap, &data), Ok);
    EXPECT_EQ(GdipBitmapUnlockBits(bitmap, &data), WrongState);
    EXPECT_EQ(PixelAt(bitmap, 1, 1), 0x40ABCDEFu);
    // 24-bit copies come back opaque; a sub-rectangle leaves the rest alone.
    GpRect rect{1, 0, 2, 1};
    ASSERT_EQ(GdipBitmapLockBits(bitmap, &rect, ImageLockModeRead | ImageLockModeWrite, PixelFormat24bppRGB, &data),
              Ok);
    EXPECT_EQ(data.Stride, 8);
    BYTE* row = static_cast<BYTE*>(data.Scan0);
    EXPECT_EQ(row[0], 1);  // blue byte of pixel 1
    row[3] = 0x7F;
    ASSERT_EQ(GdipBitmapUnlockBits(bitmap, &data), Ok);
    EXPECT_EQ(PixelAt(bitmap, 2, 0), 0xFF00007Fu);
    EXPECT_EQ(PixelAt(bitmap, 0, 0), 0xFF000000u);
    GpRect outside{2, 1, 2, 1};
    EXPECT_EQ(GdipBitmapLockBits(bitmap, &outside, ImageLockModeRead, PixelFormat32bppARGB, &data), InvalidParameter);
    EXPECT_EQ(GdipBitmapLockBits(bitmap, nullptr, ImageLockModeRead, PixelFormat32bppPARGB, &data), InvalidParameter);
    GdipDisposeImage(bitmap);
}

TEST(CVGdipBitmapTest, EncodersWriteWhatTheyAreAskedFor) {
    cvtest::TempDir dir;
    UINT count = 0, size = 0;
    ASSERT_EQ(GdipGetImageEncodersSize(&count, &size), Ok);
    std::vector<BYTE> block(size);
    auto* codecs = reinterpret_cast<ImageCodecInfo*>(block.data());
    ASSERT_EQ(GdipGetImageEncoders(count, size, codecs), Ok);
    const CLSID* png = nullptr;
    for (UINT i = 0; i < count; ++i)
        if (std::wstring(codecs[i].MimeType) == L"image/png") png = &codecs[i].Clsid;
    ASSERT_NE(png, nullptr);
    GpBitmap* bitmap = Numbered();
    GdipImageRotateFlip(bitmap, Rotate90FlipNone);
    ASSERT_EQ(GdipSaveImageToFile(bitmap, Wide(dir / "n.png").c_str(), png, nullptr), Ok);
    ASSERT_EQ(GdipSaveImageToFile(bitmap, Wide(dir / "n.bmp").c_str(), &CLSID_BMPEncoder, nullptr), Ok);
    EXPECT_EQ(GdipSaveImageToFile(bitmap, Wide(dir / "n.gif").c_str(), &ImageFormatPNG, nullptr), UnknownImageFormat);
    EXPECT_EQ(GdipSaveImageToFile(bitmap, L"/nonexistent-folder/n.png", png, nullptr), Win32Error);
    for (const char* name : {"n.png", "n.bmp"}) {
        SCOPED_TRACE(name);
        CVImageFile back;
        ASSERT_EQ(back.Read((dir / name).c_str()), 1);
        EXPECT_EQ(back.GetWidth(), 2);
        EXPECT_EQ(back.HasAlpha(), 0);
        EXPECT_EQ(back.GetPixel(1, 0), PixelAt(bitmap, 1, 0));
        EXPECT_EQ(back.GetPixel(0, 2), PixelAt(bitmap, 0, 2));
    }
    GdipDisposeImage(bitmap);
}

}  // namespace
