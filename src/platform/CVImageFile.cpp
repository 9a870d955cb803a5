#include "platform/CVImageFile.h"

#include <sys/stat.h>

#include <csetjmp>
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>
#include <string>

// jpeglib.h needs FILE and size_t declared first.
#include <jerror.h>
#include <jpeglib.h>
#include <png.h>

#include "platform/CException.h"

namespace {

const int64_t kMaxPixels = int64_t(1) << 26;
const int64_t kMaxFileBytes = int64_t(1) << 30;

bool SizeAcceptable(int64_t width, int64_t height) {
    return width > 0 && height > 0 && width * height <= kMaxPixels;
}

// For decoders that must release their own state when allocation fails.
bool AllocatePixels(std::vector<uint32_t>& pixels, size_t count) {
    try {
        pixels.assign(count, 0);
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

struct FileCloser {
    void operator()(FILE* f) const { fclose(f); }
};
typedef std::unique_ptr<FILE, FileCloser> FilePtr;

bool ReadWholeFile(const std::string& name, std::vector<BYTE>& out) {
    FilePtr f(fopen(name.c_str(), "rb"));
    if (!f) return false;
    struct stat st;
    if (fstat(fileno(f.get()), &st) != 0 || !S_ISREG(st.st_mode)) return false;
    if (st.st_size <= 0 || st.st_size > kMaxFileBytes) return false;
    out.resize((size_t)st.st_size);
    return fread(out.data(), 1, out.size(), f.get()) == out.size();
}

// Leaves no file behind when writing fails.
bool WriteWholeFile(const std::string& name, const void* data, size_t size) {
    FilePtr f(fopen(name.c_str(), "wb"));
    if (!f) return false;
    bool ok = fwrite(data, 1, size, f.get()) == size;
    ok = (fclose(f.release()) == 0) && ok;
    if (!ok) remove(name.c_str());
    return ok;
}

uint16_t Le16(const BYTE* p) { return (uint16_t)(p[0] | (p[1] << 8)); }
uint32_t Le32(const BYTE* p) { return p[0] | (p[1] << 8) | (p[2] << 16) | ((uint32_t)p[3] << 24); }
void Put16(std::vector<BYTE>& out, uint32_t v) {
    out.push_back((BYTE)v);
    out.push_back((BYTE)(v >> 8));
}
void Put32(std::vector<BYTE>& out, uint32_t v) {
    Put16(out, v & 0xFFFF);
    Put16(out, v >> 16);
}

uint32_t Argb(uint32_t a, uint32_t r, uint32_t g, uint32_t b) { return (a << 24) | (r << 16) | (g << 8) | b; }

// ---- PNG: libpng's simplified interface keeps its own setjmp inside libpng.

bool DecodePNG(const BYTE* data, size_t size, std::vector<uint32_t>& pixels, int& width, int& height, int& alpha) {
    png_image image;
    memset(&image, 0, sizeof image);
    image.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_memory(&image, data, size)) return false;
    if (!SizeAcceptable(image.width, image.height)) {
        png_image_free(&image);
        return false;
    }
    alpha = (image.format & PNG_FORMAT_FLAG_ALPHA) ? 1 : 0;
    image.format = PNG_FORMAT_BGRA;
    if (!AllocatePixels(pixels, (size_t)image.width * image.height)) {
        png_image_free(&image);
        return false;
    }
    // Frees the image's reader whether or not it succeeds.
    if (!png_image_finish_read(&image, nullptr, pixels.data(), (png_int_32)(image.width * 4), nullptr)) return false;
    width = (int)image.width;
    height = (int)image.height;
    return true;
}

bool EncodePNG(const std::string& name, int width, int height, const BYTE* bgra, int stride, int hasAlpha) {
    png_image image;
    memset(&image, 0, sizeof image);
    image.version = PNG_IMAGE_VERSION;
    image.width = (png_uint_32)width;
    image.height = (png_uint_32)height;
    if (hasAlpha) {
        image.format = PNG_FORMAT_BGRA;
        return png_image_write_to_file(&image, name.c_str(), 0, bgra, stride, nullptr) != 0;
    }
    std::vector<BYTE> bgr((size_t)width * height * 3);
    for (int y = 0; y < height; ++y) {
        const BYTE* src = bgra + (size_t)y * stride;
        BYTE* dst = &bgr[(size_t)y * width * 3];
        for (int x = 0; x < width; ++x, src += 4, dst += 3) memcpy(dst, src, 3);
    }
    image.format = PNG_FORMAT_BGR;
    return png_image_write_to_file(&image, name.c_str(), 0, bgr.data(), width * 3, nullptr) != 0;
}

// ---- JPEG. An error inside libjpeg longjmps back to the frame that called
// setjmp, so those frames hold plain C data only and free nothing but what
// libjpeg owns.

struct JpegErrorManager {
    jpeg_error_mgr pub;  // first, so libjpeg's pointer is also ours
    jmp_buf jump;
    int truncated;
};

void JpegErrorExit(j_common_ptr cinfo) { longjmp(reinterpret_cast<JpegErrorManager*>(cinfo->err)->jump, 1); }

// Warnings are not printed. Running out of data is a warning to libjpeg (it
// pads with grey); here it fails the read.
void JpegEmitMessage(j_common_ptr cinfo, int level) {
    if (level < 0 && cinfo->err->msg_code == JWRN_JPEG_EOF)
        reinterpret_cast<JpegErrorManager*>(cinfo->err)->truncated = 1;
}

void JpegOutputMessage(j_common_ptr) {}

void JpegPrepare(jpeg_decompress_struct* cinfo, JpegErrorManager* err) {
    memset(cinfo, 0, sizeof *cinfo);
    cinfo->err = jpeg_std_error(&err->pub);
    err->pub.error_exit = JpegErrorExit;
    err->pub.emit_message = JpegEmitMessage;
    err->pub.output_message = JpegOutputMessage;
    err->truncated = 0;
}

void JpegConvertRow(const JSAMPLE* src, uint32_t* dst, int width, int components, int invertedCmyk) {
    for (int x = 0; x < width; ++x, src += components) {
        if (components == 1) {
            dst[x] = Argb(0xFF, src[0], src[0], src[0]);
        } else if (components == 3) {
            dst[x] = Argb(0xFF, src[0], src[1], src[2]);
        } else {
            uint32_t c = src[0], m = src[1], y = src[2], k = src[3];
            if (!invertedCmyk) {
                c = 255 - c;
                m = 255 - m;
                y = 255 - y;
                k = 255 - k;
            }
            dst[x] = Argb(0xFF, (c * k + 127) / 255, (m * k + 127) / 255, (y * k + 127) / 255);
        }
    }
}

void JpegChooseOutputSpace(jpeg_decompress_struct* cinfo) {
    switch (cinfo->jpeg_color_space) {
    case JCS_GRAYSCALE: cinfo->out_color_space = JCS_GRAYSCALE; break;
    case JCS_CMYK:
    case JCS_YCCK: cinfo->out_color_space = JCS_CMYK; break;
    default: cinfo->out_color_space = JCS_RGB; break;
    }
}

// Reads the header once: size check, allocation and decoding follow it.
bool DecodeJPEG(const BYTE* data, size_t size, std::vector<uint32_t>& pixels, int& width, int& height) {
    jpeg_decompress_struct cinfo;
    JpegErrorManager err;
    JpegPrepare(&cinfo, &err);
    if (setjmp(err.jump)) {
        jpeg_destroy_decompress(&cinfo);
        return false;
    }
    jpeg_create_decompress(&cinfo);
    jpeg_mem_src(&cinfo, const_cast<BYTE*>(data), (unsigned long)size);
    if (jpeg_read_header(&cinfo, TRUE) != JPEG_HEADER_OK ||
        !SizeAcceptable(cinfo.image_width, cinfo.image_height)) {
        jpeg_destroy_decompress(&cinfo);
        return false;
    }
    JpegChooseOutputSpace(&cinfo);
    jpeg_start_decompress(&cinfo);
    const int w = (int)cinfo.output_width, h = (int)cinfo.output_height;
    if (!SizeAcceptable(w, h) || !AllocatePixels(pixels, (size_t)w * h)) {
        jpeg_destroy_decompress(&cinfo);
        return false;
    }
    JSAMPARRAY row = (*cinfo.mem->alloc_sarray)(reinterpret_cast<j_common_ptr>(&cinfo), JPOOL_IMAGE,
                                                cinfo.output_width * cinfo.output_components, 1);
    // Files that carry the Adobe marker store CMYK inverted.
    const int inverted = cinfo.saw_Adobe_marker;
    while (cinfo.output_scanline < cinfo.output_height) {
        uint32_t* dst = pixels.data() + (size_t)cinfo.output_scanline * w;
        if (jpeg_read_scanlines(&cinfo, row, 1) != 1) break;
        JpegConvertRow(row[0], dst, w, cinfo.output_components, inverted);
    }
    const bool complete = cinfo.output_scanline == cinfo.output_height;
    if (complete) jpeg_finish_decompress(&cinfo);
    const bool ok = complete && !err.truncated;
    jpeg_destroy_decompress(&cinfo);
    if (!ok) return false;
    width = w;
    height = h;
    return true;
}

// Compresses top-down RGB rows into a malloc'd buffer that the caller frees.
bool CompressJPEG(const BYTE* rgb, int width, int height, int quality, unsigned char** out, unsigned long* size) {
    jpeg_compress_struct cinfo;
    JpegErrorManager err;
    memset(&cinfo, 0, sizeof cinfo);
    cinfo.err = jpeg_std_error(&err.pub);
    err.pub.error_exit = JpegErrorExit;
    err.pub.emit_message = JpegEmitMessage;
    err.pub.output_message = JpegOutputMessage;
    err.truncated = 0;
    if (setjmp(err.jump)) {
        jpeg_destroy_compress(&cinfo);
        return false;
    }
    jpeg_create_compress(&cinfo);
    jpeg_mem_dest(&cinfo, out, size);
    cinfo.image_width = (JDIMENSION)width;
    cinfo.image_height = (JDIMENSION)height;
    cinfo.input_components = 3;
    cinfo.in_color_space = JCS_RGB;
    jpeg_set_defaults(&cinfo);
    jpeg_set_quality(&cinfo, quality, TRUE);
    jpeg_start_compress(&cinfo, TRUE);
    while (cinfo.next_scanline < cinfo.image_height) {
        JSAMPROW row = const_cast<BYTE*>(rgb) + (size_t)cinfo.next_scanline * width * 3;
        jpeg_write_scanlines(&cinfo, &row, 1);
    }
    jpeg_finish_compress(&cinfo);
    jpeg_destroy_compress(&cinfo);
    return true;
}

bool EncodeJPEG(const std::string& name, int width, int height, const BYTE* bgra, int stride, int quality) {
    std::vector<BYTE> rgb((size_t)width * height * 3);
    for (int y = 0; y < height; ++y) {
        const BYTE* src = bgra + (size_t)y * stride;
        BYTE* dst = &rgb[(size_t)y * width * 3];
        for (int x = 0; x < width; ++x, src += 4, dst += 3) {
            dst[0] = src[2];
            dst[1] = src[1];
            dst[2] = src[0];
        }
    }
    unsigned char* jpeg = nullptr;
    unsigned long size = 0;
    const bool ok = CompressJPEG(rgb.data(), width, height, quality, &jpeg, &size) && WriteWholeFile(name, jpeg, size);
    free(jpeg);
    return ok;
}

// ---- BMP.

// One channel of a bit-field pixel, scaled to 8 bits.
struct Channel {
    uint32_t mask = 0;
    int shift = 0;
    uint32_t max = 0;

    explicit Channel(uint32_t m = 0) : mask(m) {
        if (!m) return;
        while (!(m & 1)) {
            m >>= 1;
            ++shift;
        }
        max = m;
    }
    uint32_t Get(uint32_t pixel) const {
        if (!max) return 0;
        uint32_t v = (pixel & mask) >> shift;
        return max == 255 ? v : (uint32_t)(((uint64_t)v * 255 + max / 2) / max);
    }
};

bool DecodeBMP(const BYTE* data, size_t size, std::vector<uint32_t>& pixels, int& width, int& height, int& alpha) {
    const size_t kFileHeader = 14;
    if (size < kFileHeader + 40) return false;
    uint32_t offBits = Le32(data + 10);
    uint32_t headerSize = Le32(data + 14);
    if (headerSize < 40 || kFileHeader + headerSize > size) return false;
    const BYTE* info = data + kFileHeader;
    int64_t w = (int32_t)Le32(info + 4);
    int64_t rawHeight = (int32_t)Le32(info + 8);
    int bpp = Le16(info + 14);
    uint32_t compression = Le32(info + 16);
    uint32_t colorsUsed = Le32(info + 32);
    bool topDown = rawHeight < 0;
    int64_t h = topDown ? -rawHeight : rawHeight;
    if (!SizeAcceptable(w, h) || Le16(info + 12) != 1) return false;

    const uint32_t kRGB = 0, kBitFields = 3, kAlphaBitFields = 6;
    Channel red, green, blue, alphaChannel;
    size_t afterHeader = kFileHeader + headerSize;
    if (compression == kBitFields || compression == kAlphaBitFields) {
        if (bpp != 16 && bpp != 32) return false;
        int count = compression == kAlphaBitFields ? 4 : 3;
        const BYTE* masks = info + 40;
        if (headerSize == 40) {
            if (afterHeader + 4 * count > size) return false;
            afterHeader += 4 * count;
        } else if (headerSize < 40 + 4u * count) {
            return false;
        }
        red = Channel(Le32(masks));
        green = Channel(Le32(masks + 4));
        blue = Channel(Le32(masks + 8));
        if (count == 4 || headerSize >= 56) alphaChannel = Channel(Le32(masks + 12));
    } else if (compression == kRGB) {
        if (bpp == 16) {
            red = Channel(0x7C00);
            green = Channel(0x03E0);
            blue = Channel(0x001F);
        } else if (bpp == 32) {
            red = Channel(0x00FF0000);
            green = Channel(0x0000FF00);
            blue = Channel(0x000000FF);
            alphaChannel = Channel(0xFF000000);
        } else if (bpp != 1 && bpp != 4 && bpp != 8 && bpp != 24) {
            return false;
        }
    } else {
        return false;
    }
    if (bpp != 32) alphaChannel = Channel();

    std::vector<uint32_t> palette;
    if (bpp <= 8) {
        uint32_t count = colorsUsed ? colorsUsed : (1u << bpp);
        if (count > (1u << bpp)) count = 1u << bpp;
        if (afterHeader + 4 * (size_t)count > size) return false;
        for (uint32_t i = 0; i < count; ++i) {
            const BYTE* q = data + afterHeader + 4 * i;
            palette.push_back(Argb(0xFF, q[2], q[1], q[0]));
        }
        palette.resize(1u << bpp, Argb(0xFF, 0, 0, 0));  // indexes past the table read black
    }

    int64_t stride = ((w * bpp + 31) / 32) * 4;
    if (offBits > size || (int64_t)(size - offBits) < stride * h) return false;

    pixels.assign((size_t)(w * h), 0);
    bool anyAlpha = false;
    for (int64_t y = 0; y < h; ++y) {
        const BYTE* row = data + offBits + stride * (topDown ? y : h - 1 - y);
        uint32_t* dst = &pixels[(size_t)(y * w)];
        for (int64_t x = 0; x < w; ++x) {
            uint32_t argb;
            if (bpp <= 8) {
                int perByte = 8 / bpp;
                int shift = 8 - bpp * (int)(x % perByte + 1);
                argb = palette[(row[x / perByte] >> shift) & ((1u << bpp) - 1)];
            } else if (bpp == 24) {
                const BYTE* p = row + 3 * x;
                argb = Argb(0xFF, p[2], p[1], p[0]);
            } else {
                uint32_t raw = bpp == 16 ? Le16(row + 2 * x) : Le32(row + 4 * x);
                uint32_t a = alphaChannel.Get(raw);
                anyAlpha = anyAlpha || a != 0;
                argb = Argb(a, red.Get(raw), green.Get(raw), blue.Get(raw));
            }
            dst[x] = argb;
        }
    }
    // A 32-bit file whose fourth bytes are all zero is plain RGB.
    alpha = anyAlpha ? 1 : 0;
    if (!anyAlpha && bpp >= 16)
        for (uint32_t& p : pixels) p |= 0xFF000000u;
    width = (int)w;
    height = (int)h;
    return true;
}

bool EncodeBMP(const std::string& name, int width, int height, const BYTE* bgra, int stride, int hasAlpha) {
    const uint32_t bpp = hasAlpha ? 32 : 24;
    const uint32_t rowBytes = ((width * bpp + 31) / 32) * 4;
    const uint32_t imageBytes = rowBytes * (uint32_t)height;
    const uint32_t offBits = 14 + 40;
    const uint32_t kPixelsPerMetre = 3780;  // 96 dpi

    std::vector<BYTE> out;
    out.reserve(offBits + imageBytes);
    out.push_back('B');
    out.push_back('M');
    Put32(out, offBits + imageBytes);
    Put32(out, 0);
    Put32(out, offBits);
    Put32(out, 40);
    Put32(out, (uint32_t)width);
    Put32(out, (uint32_t)height);  // positive: rows stored bottom-up
    Put16(out, 1);
    Put16(out, bpp);
    Put32(out, 0);  // BI_RGB
    Put32(out, imageBytes);
    Put32(out, kPixelsPerMetre);
    Put32(out, kPixelsPerMetre);
    Put32(out, 0);
    Put32(out, 0);
    for (int y = height - 1; y >= 0; --y) {
        const BYTE* src = bgra + (size_t)y * stride;
        size_t start = out.size();
        for (int x = 0; x < width; ++x, src += 4) out.insert(out.end(), src, src + bpp / 8);
        out.resize(start + rowBytes, 0);
    }

    return WriteWholeFile(name, out.data(), out.size());
}

bool EncodeArgumentsValid(int width, int height, const BYTE* bgra, int stride) {
    return bgra && SizeAcceptable(width, height) && stride >= width * 4;
}

}  // namespace

int CVImageFile::Read(const CString& fileName) {
    Empty();
    std::vector<BYTE> bytes;
    try {
        if (!ReadWholeFile(fileName.ToUTF8(), bytes)) return 0;
    } catch (const std::bad_alloc&) {
        return 0;
    }
    return ReadMemory(bytes.data(), bytes.size());
}

int CVImageFile::ReadMemory(const void* data, size_t size) {
    Empty();
    const BYTE* p = static_cast<const BYTE*>(data);
    if (!p || size < 8) return 0;
    static const BYTE kPngSignature[8] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    int width = 0, height = 0, alpha = 0, format = FormatNone;
    bool ok = false;
    try {
        if (memcmp(p, kPngSignature, 8) == 0) {
            format = FormatPNG;
            ok = DecodePNG(p, size, m_pixels, width, height, alpha);
        } else if (p[0] == 0xFF && p[1] == 0xD8 && p[2] == 0xFF) {
            format = FormatJPEG;
            ok = DecodeJPEG(p, size, m_pixels, width, height);
        } else if (p[0] == 'B' && p[1] == 'M') {
            format = FormatBMP;
            ok = DecodeBMP(p, size, m_pixels, width, height, alpha);
        }
    } catch (const std::bad_alloc&) {
        ok = false;
    }
    if (!ok) {
        Empty();
        return 0;
    }
    m_nWidth = width;
    m_nHeight = height;
    m_bHasAlpha = alpha;
    m_nFormat = format;
    return 1;
}

int CVImageFile::WritePNG(const CString& fileName) const {
    return WritePNG(fileName, m_nWidth, m_nHeight, reinterpret_cast<const BYTE*>(m_pixels.data()), m_nWidth * 4,
                    m_bHasAlpha);
}

int CVImageFile::WriteBMP(const CString& fileName) const {
    return WriteBMP(fileName, m_nWidth, m_nHeight, reinterpret_cast<const BYTE*>(m_pixels.data()), m_nWidth * 4,
                    m_bHasAlpha);
}

int CVImageFile::WritePNG(const CString& fileName, int width, int height, const BYTE* bgra, int stride,
                          int hasAlpha) {
    if (!EncodeArgumentsValid(width, height, bgra, stride)) return 0;
    try {
        return EncodePNG(fileName.ToUTF8(), width, height, bgra, stride, hasAlpha) ? 1 : 0;
    } catch (const std::bad_alloc&) {
        return 0;
    }
}

int CVImageFile::WriteBMP(const CString& fileName, int width, int height, const BYTE* bgra, int stride,
                          int hasAlpha) {
    if (!EncodeArgumentsValid(width, height, bgra, stride)) return 0;
    try {
        return EncodeBMP(fileName.ToUTF8(), width, height, bgra, stride, hasAlpha) ? 1 : 0;
    } catch (const std::bad_alloc&) {
        return 0;
    }
}

int CVImageFile::WriteJPEG(const CString& fileName, int quality) const {
    return WriteJPEG(fileName, m_nWidth, m_nHeight, reinterpret_cast<const BYTE*>(m_pixels.data()), m_nWidth * 4,
                     quality);
}

int CVImageFile::WriteJPEG(const CString& fileName, int width, int height, const BYTE* bgra, int stride,
                           int quality) {
    if (quality < 0 || quality > 100 || !EncodeArgumentsValid(width, height, bgra, stride)) return 0;
    try {
        return EncodeJPEG(fileName.ToUTF8(), width, height, bgra, stride, quality) ? 1 : 0;
    } catch (const std::bad_alloc&) {
        return 0;
    }
}

void CVImageFile::Create(int width, int height, int hasAlpha) {
    Empty();
    if (!SizeAcceptable(width, height)) return;
    m_pixels.assign((size_t)width * height, 0);
    m_nWidth = width;
    m_nHeight = height;
    m_bHasAlpha = hasAlpha ? 1 : 0;
}

void CVImageFile::Empty() {
    m_pixels.clear();
    m_pixels.shrink_to_fit();
    m_nWidth = m_nHeight = 0;
    m_bHasAlpha = 0;
    m_nFormat = FormatNone;
}

uint32_t CVImageFile::GetPixel(int x, int y) const {
    if (x < 0 || y < 0 || x >= m_nWidth || y >= m_nHeight)
        AfxThrowInvalidArgException("CVImageFile::GetPixel(): position outside the image");
    return m_pixels[(size_t)y * m_nWidth + x];
}

void CVImageFile::SetPixel(int x, int y, uint32_t argb) {
    if (x < 0 || y < 0 || x >= m_nWidth || y >= m_nHeight)
        AfxThrowInvalidArgException("CVImageFile::SetPixel(): position outside the image");
    m_pixels[(size_t)y * m_nWidth + x] = argb;
}
