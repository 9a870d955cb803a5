#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include <jpeglib.h>
#include <png.h>

#include "platform/CVImageFile.h"
#include "platform/CException.h"
#include "support/CVTestFiles.h"

namespace {

// Every pixel different, alpha running through 0 and 255 when asked.
CVImageFile Pattern(int w, int h, bool alpha) {
    CVImageFile image;
    image.Create(w, h, alpha);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            uint32_t a = alpha ? (uint32_t)((x * 37 + y * 11) % 256) : 0xFF;
            image.SetPixel(x, y, (a << 24) | ((uint32_t)(x * 13) % 256 << 16) | ((uint32_t)(y * 29) % 256 << 8) |
                                     (uint32_t)((x + y) * 7 % 256));
        }
    return image;
}

std::vector<uint32_t> Pixels(const CVImageFile& image) {
    return std::vector<uint32_t>(image.GetBits(), image.GetBits() + image.GetWidth() * image.GetHeight());
}

// Writes a JPEG with libjpeg itself: a smooth gradient, grey or colour.
std::string WriteJPEG(const std::string& name, int w, int h, bool grey) {
    jpeg_compress_struct cinfo;
    jpeg_error_mgr err;
    cinfo.err = jpeg_std_error(&err);
    jpeg_create_compress(&cinfo);
    FILE* f = fopen(name.c_str(), "wb");
    jpeg_stdio_dest(&cinfo, f);
    cinfo.image_width = w;
    cinfo.image_height = h;
    cinfo.input_components = grey ? 1 : 3;
    cinfo.in_color_space = grey ? JCS_GRAYSCALE : JCS_RGB;
    jpeg_set_defaults(&cinfo);
    jpeg_set_quality(&cinfo, 95, TRUE);
    jpeg_start_compress(&cinfo, TRUE);
    std::vector<JSAMPLE> row(w * cinfo.input_components);
    for (int y = 0; y < h; ++y) {
        for (int x = 0; x < w; ++x) {
            JSAMPLE* p = &row[x * cinfo.input_components];
            p[0] = (JSAMPLE)(x * 4);
            if (!grey) {
                p[1] = (JSAMPLE)(y * 8);
                p[2] = 200;
            }
        }
        JSAMPROW rows[1] = {row.data()};
        jpeg_write_scanlines(&cinfo, rows, 1);
    }
    jpeg_finish_compress(&cinfo);
    jpeg_destroy_compress(&cinfo);
    fclose(f);
    return name;
}

int Channel(uint32_t argb, int shift) { return (int)((argb >> shift) & 0xFF); }

// A BMP file: 14-byte file header, info header of headerSize bytes with the
// given fields, then extra (masks or palette), then the pixel rows.
std::string BuildBMP(int w, int h, int bpp, uint32_t compression, const std::string& extra, const std::string& rows,
                     uint32_t headerSize = 40, const std::string& headerMasks = "") {
    auto put = [](std::string& s, uint32_t v, int bytes) {
        for (int i = 0; i < bytes; ++i) s += (char)(v >> (8 * i));
    };
    std::string info;
    put(info, headerSize, 4);
    put(info, (uint32_t)w, 4);
    put(info, (uint32_t)h, 4);
    put(info, 1, 2);
    put(info, bpp, 2);
    put(info, compression, 4);
    put(info, (uint32_t)rows.size(), 4);
    put(info, 0, 4);
    put(info, 0, 4);
    put(info, bpp <= 8 ? (uint32_t)extra.size() / 4 : 0, 4);  // palette entries
    info.resize(40, '\0');
    info += headerMasks;
    info.resize(headerSize, '\0');
    std::string file = "BM";
    put(file, 14 + headerSize + extra.size() + rows.size(), 4);
    put(file, 0, 4);
    put(file, 14 + headerSize + extra.size(), 4);
    return file + info + extra + rows;
}

std::string Bytes(std::initializer_list<int> values) {
    std::string s;
    for (int v : values) s += (char)v;
    return s;
}

class CVImageFileTest : public ::testing::Test {
protected:
    cvtest::TempDir m_dir;
};

// Two-pixel-wide images; rows padded to four bytes.
TEST_F(CVImageFileTest, BMPVariantsDecodeToArgb) {
    const struct {
        const char* name;
        std::string file;
        int width, height, hasAlpha;
        uint32_t topLeft, bottomRight;
    } cases[] = {
        {"8-bit palette, bottom-up", BuildBMP(2, 2, 8, 0, Bytes({0, 0, 255, 0, 0, 255, 0, 0}), Bytes({1, 1, 0, 0, 0, 0, 0, 0})),
         2, 2, 0, 0xFFFF0000, 0xFF00FF00},
        {"1-bit index past the table is black", BuildBMP(2, 1, 1, 0, Bytes({255, 255, 255, 0}), Bytes({0x40, 0, 0, 0})),
         2, 1, 0, 0xFFFFFFFF, 0xFF000000},
        {"24-bit top-down", BuildBMP(2, -2, 24, 0, "", Bytes({1, 2, 3, 4, 5, 6, 0, 0, 7, 8, 9, 10, 11, 12, 0, 0})), 2, 2,
         0, 0xFF030201, 0xFF0C0B0A},
        {"32-bit zero alpha is opaque", BuildBMP(2, 1, 32, 0, "", Bytes({1, 2, 3, 0, 4, 5, 6, 0})), 2, 1, 0, 0xFF030201,
         0xFF060504},
        {"32-bit with alpha", BuildBMP(2, 1, 32, 0, "", Bytes({1, 2, 3, 0, 4, 5, 6, 128})), 2, 1, 1, 0x00030201,
         0x80060504},
        {"5-6-5 bit fields",
         BuildBMP(2, 1, 16, 3, Bytes({0, 0xF8, 0, 0, 0xE0, 7, 0, 0, 0x1F, 0, 0, 0}), Bytes({0x00, 0xF8, 0x1F, 0x00})), 2,
         1, 0, 0xFFFF0000, 0xFF0000FF},
        {"32-bit fields with alpha inside a V4 header",  // masks R, G, B, A
         BuildBMP(2, 1, 32, 3, "", Bytes({0x10, 0x20, 0x30, 0x40, 0x50, 0x60, 0x70, 0x80}), 108,
                  Bytes({0, 0, 0, 0xFF, 0, 0, 0xFF, 0, 0, 0xFF, 0, 0, 0xFF, 0, 0, 0})),
         2, 1, 1, 0x10403020, 0x50807060},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        CVImageFile image;
        ASSERT_EQ(image.ReadMemory(c.file.data(), c.file.size()), 1);
        EXPECT_EQ(image.GetFormat(), CVImageFile::FormatBMP);
        EXPECT_EQ(std::make_pair(image.GetWidth(), image.GetHeight()), std::make_pair(c.width, c.height));
        EXPECT_EQ(image.HasAlpha(), c.hasAlpha);
        EXPECT_EQ(image.GetPixel(0, 0), c.topLeft);
        EXPECT_EQ(image.GetPixel(c.width - 1, c.height - 1), c.bottomRight);
    }
}

TEST_F(CVImageFileTest, PngAndBmpRoundTripsAreExact) {
    for (bool alpha : {false, true}) {
        CVImageFile source = Pattern(7, 5, alpha);  // odd width: BMP rows need padding
        for (int bmp : {0, 1}) {
            std::string name = m_dir / (bmp ? "t.bmp" : "t.png");
            ASSERT_EQ(bmp ? source.WriteBMP(name.c_str()) : source.WritePNG(name.c_str()), 1);
            CVImageFile back;
            ASSERT_EQ(back.Read(name.c_str()), 1) << name;
            EXPECT_EQ(back.GetFormat(), bmp ? CVImageFile::FormatBMP : CVImageFile::FormatPNG);
            EXPECT_EQ(back.HasAlpha(), alpha ? 1 : 0) << name;
            EXPECT_EQ(Pixels(back), Pixels(source)) << name << (alpha ? " with alpha" : "");
        }
    }
}

TEST_F(CVImageFileTest, JpegFromLibjpegDecodesWithinTolerance) {
    CVImageFile colour, grey;
    ASSERT_EQ(colour.Read(WriteJPEG(m_dir / "c.jpg", 32, 16, false).c_str()), 1);
    ASSERT_EQ(grey.Read(WriteJPEG(m_dir / "g.jpg", 32, 16, true).c_str()), 1);
    EXPECT_EQ(colour.GetFormat(), CVImageFile::FormatJPEG);
    EXPECT_EQ(colour.HasAlpha(), 0);
    ASSERT_EQ(colour.GetWidth(), 32);
    ASSERT_EQ(colour.GetHeight(), 16);
    // Quality 95 on a smooth gradient; chroma subsampling costs a few levels.
    int worst = 0;
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 32; ++x) {
            uint32_t c = colour.GetPixel(x, y), g = grey.GetPixel(x, y);
            EXPECT_EQ(c >> 24, 0xFFu);
            worst = std::max({worst, abs(Channel(c, 16) - x * 4), abs(Channel(c, 8) - y * 8), abs(Channel(c, 0) - 200),
                              abs(Channel(g, 16) - x * 4)});
            EXPECT_EQ(Channel(g, 16), Channel(g, 0));
        }
    EXPECT_LE(worst, 6);
}

TEST_F(CVImageFileTest, PaletteTransparencyChunkGivesAlpha) {
    png_image png{};
    png.version = PNG_IMAGE_VERSION;
    png.width = 2;
    png.height = 1;
    png.format = PNG_FORMAT_RGBA_COLORMAP;
    png.colormap_entries = 2;
    const BYTE colormap[] = {255, 0, 0, 255, 0, 0, 255, 0};  // opaque red, transparent blue
    const BYTE indexes[] = {0, 1};
    std::string name = m_dir / "trns.png";
    ASSERT_NE(png_image_write_to_file(&png, name.c_str(), 0, indexes, 2, colormap), 0);
    CVImageFile image;
    ASSERT_EQ(image.Read(name.c_str()), 1);
    EXPECT_EQ(image.HasAlpha(), 1);
    EXPECT_EQ(image.GetPixel(0, 0), 0xFFFF0000u);
    EXPECT_EQ(image.GetPixel(1, 0) >> 24, 0u);
}

TEST_F(CVImageFileTest, BadFilesFailAndLeaveTheImageEmpty) {
    Pattern(16, 16, true).WritePNG((m_dir / "ok.png").c_str());
    Pattern(16, 16, false).WriteBMP((m_dir / "ok.bmp").c_str());
    WriteJPEG(m_dir / "ok.jpg", 64, 64, false);
    std::string png = cvtest::ReadFile(m_dir / "ok.png"), bmp = cvtest::ReadFile(m_dir / "ok.bmp"),
                jpg = cvtest::ReadFile(m_dir / "ok.jpg");
    std::string flipped = png;
    flipped[flipped.size() / 2] ^= 0x5A;  // inside the image data: checksum fails
    std::string bogusHeader = bmp;
    bogusHeader[14] = 7;  // info header size
    const std::pair<const char*, std::string> cases[] = {
        {"empty", ""},
        {"text", "just some text, not an image"},
        {"png-truncated", png.substr(0, png.size() / 2)},
        {"png-corrupt", flipped},
        {"jpeg-truncated", jpg.substr(0, jpg.size() / 2)},
        {"jpeg-garbage", jpg.substr(0, 3) + std::string(200, '\x17')},
        {"bmp-truncated", bmp.substr(0, bmp.size() - 10)},
        {"bmp-bad-header", bogusHeader},
        {"bmp-rle", BuildBMP(2, 1, 8, 1, std::string(8, '\0'), Bytes({2, 0, 0, 1}))},
        {"bmp-zero-width", BuildBMP(0, 1, 24, 0, "", "")},
    };
    for (const auto& [label, bytes] : cases) {
        cvtest::WriteFile(m_dir / label, bytes);
        CVImageFile image = Pattern(2, 2, false);
        EXPECT_EQ(image.Read((m_dir / label).c_str()), 0) << label;
        EXPECT_EQ(image.GetWidth(), 0) << label;
        EXPECT_EQ(image.GetBits(), nullptr) << label;
    }
    CVImageFile image;
    EXPECT_EQ(image.Read((m_dir / "missing.png").c_str()), 0);
    EXPECT_EQ(image.Read(m_dir.Path().c_str()), 0);  // a folder
}

TEST_F(CVImageFileTest, WritingNothingOrNowhereFails) {
    CVImageFile empty;
    EXPECT_EQ(empty.WritePNG((m_dir / "e.png").c_str()), 0);
    EXPECT_EQ(empty.WriteBMP((m_dir / "e.bmp").c_str()), 0);
    CVImageFile image = Pattern(2, 2, false);
    EXPECT_EQ(image.WritePNG("/nonexistent-folder/x.png"), 0);
    EXPECT_EQ(image.WriteBMP("/nonexistent-folder/x.bmp"), 0);
    EXPECT_THROW(image.GetPixel(2, 0), CInvalidArgException);
    EXPECT_EQ(image.GetPixel(1, 1), Pattern(2, 2, false).GetPixel(1, 1));
}

}  // namespace
