#include "nodes/CVImageTexture.h"

#include <GL/gl.h>
#include <GL/glu.h>

#include <algorithm>
#include <cstring>

#include "core/CVState.h"
#include "image/CVDIBUtil.h"
#include "image/CVSearchPaths.h"
#include "platform/GdiPlusFlat.h"
#include "render/CVGLRenderArea.h"

IMPLEMENT_DYNAMIC(CVImageTexture, CVTexture)

namespace {

// The whole image stretched into a size x size 32-bit DIB, pixel for pixel
// as a COLORONCOLOR StretchBlt does it: textures keep hard texel edges
// rather than the smoothed resampling of ScaleDIB.
HGLOBAL StretchToSquare(HGLOBAL image, int width, int height, int size) {
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = size;
    info.bmiHeader.biHeight = size;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    HDC dc = CreateCompatibleDC(nullptr);
    void* bits = nullptr;
    HBITMAP bitmap = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    HGLOBAL square = nullptr;
    if (bitmap) {
        HGDIOBJ old = SelectObject(dc, bitmap);
        SetStretchBltMode(dc, COLORONCOLOR);
        BOOL drawn = StretchDIBBlt(dc, 0, 0, size, size, image, 0, 0, width, height, SRCCOPY);
        SelectObject(dc, old);
        if (drawn) square = DIBFromBitmap(bitmap, 32);
        DeleteObject(bitmap);
    }
    DeleteDC(dc);
    return square;
}


const int kPathLength = 1024;
const int kMinTextureSize = 64;
const int kMaxTextureSize = 512;

// UNC, "//" and drive paths are taken as they are; anything else is searched.
bool IsFullPath(const CString& name) {
    if (name.GetLength() <= 2) return false;
    return (name[0] == L'\\' && name[1] == L'\\') || (name[0] == L'/' && name[1] == L'/') || name[1] == L':';
}

CString ResolvePath(const CString& name, CVGLRenderArea* area) {
    if (name.IsEmpty()) return CString();
    if (IsFullPath(name)) return name;
    wchar_t path[kPathLength] = {0};
    CVGetURLTextureSearchPath(area->GetIUnknownInterface(), name, path);
    return CString(path);
}

// The image as an upright 32-bit DIB (rows bottom-up, as GL wants them), or
// null when the file cannot be read or is empty.
HGLOBAL ReadImage(const CString& path) {
    if (path.IsEmpty()) return nullptr;
    GpBitmap* bitmap = nullptr;
    if (GdipCreateBitmapFromFile(path, &bitmap) != Ok || !bitmap) return nullptr;
    GpImage* image = reinterpret_cast<GpImage*>(bitmap);
    UINT width = 0, height = 0;
    GdipGetImageWidth(image, &width);
    GdipGetImageHeight(image, &height);
    HGLOBAL dib = nullptr;
    if (width > 0 && height > 0) {
        // Locked rows come top-down; flipped, they fill the bottom-up DIB upright.
        GdipImageRotateFlip(image, RotateNoneFlipY);
        BitmapData data = {};
        if (GdipBitmapLockBits(bitmap, nullptr, ImageLockModeRead, PixelFormat32bppARGB, &data) == Ok) {
            dib = CreateRGBDIB((int)width, (int)height, 32);
            if (BITMAPINFOHEADER* header = dib ? static_cast<BITMAPINFOHEADER*>(GlobalLock(dib)) : nullptr) {
                BYTE* bits = reinterpret_cast<BYTE*>(header) + header->biSize + ColorTableSize(header);
                const size_t row = (size_t)width * 4;
                for (UINT y = 0; y < height; ++y)
                    std::memcpy(bits + y * row, static_cast<const BYTE*>(data.Scan0) + (size_t)y * data.Stride, row);
                GlobalUnlock(dib);
            }
            GdipBitmapUnlockBits(bitmap, &data);
        }
    }
    GdipDisposeImage(image);
    return dib;
}

// The side of the square texture for an image: the largest power of two not
// above its longer side (bits counted up to 16), at most 512 (always 512 for
// tile mode 2), at least 64.
int TextureSize(int width, int height, int tileMode) {
    const unsigned m = (unsigned)std::max(std::max(width, height), 0);
    int bits = 0;
    while (bits < 16 && (m >> bits) != 0) ++bits;
    const int power = bits ? 1 << (bits - 1) : 0;
    const int size = tileMode == 2 ? kMaxTextureSize : std::min(power, kMaxTextureSize);
    return std::max(size, kMinTextureSize);
}

// Defines the bound texture from a square DIB; false for a layout GL cannot take.
bool UploadSquare(HGLOBAL dib, int size, int mipmap) {
    BITMAPINFOHEADER* header = static_cast<BITMAPINFOHEADER*>(GlobalLock(dib));
    if (!header) return false;
    const GLenum format = header->biBitCount == 32 ? GL_BGRA_EXT : header->biBitCount == 24 ? GL_BGR_EXT : 0;
    const bool ok = format != 0 && header->biHeight > 0 && header->biWidth == size;
    if (ok) {
        const BYTE* pixels = reinterpret_cast<const BYTE*>(header) + header->biSize + ColorTableSize(header);
        if (mipmap) {
            gluBuild2DMipmaps(GL_TEXTURE_2D, 3, size, size, format, GL_UNSIGNED_BYTE, pixels);
            glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR_MIPMAP_LINEAR);
            glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
        } else {
            glTexImage2D(GL_TEXTURE_2D, 0, 3, size, size, 0, format, GL_UNSIGNED_BYTE, pixels);
            glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
            glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
        }
    }
    GlobalUnlock(dib);
    return ok;
}

}  // namespace

void CVImageTexture::Render(CVState* state, CVGLRenderArea* area) {
    if (!area || !area->IsTexturingEnabled() || (state && state->m_bRecordPath)) return;
    CVCache* cache = area->GetTextureCache();

    const CString name = url.GetNum() > 0 ? url[0] : CString();
    const int tileMode = m_nTileMode;
    if (m_bHasImage && (name != m_strImageName || tileMode != m_nImageTileMode)) {
        CVCacheElement* old = cache->Find(CVTextureCacheElement::MakeKey(m_strImageName, m_nImageTileMode));
        if (old && old->HasUser(this)) cache->Release(old, this);
    }
    m_strImageName = name;
    m_nImageTileMode = tileMode;
    m_bHasImage = 1;

    const int mipmap = area->IsMipmappingEnabled() ? 1 : 0;
    auto* element = static_cast<CVTextureCacheElement*>(
        cache->Acquire(CVTextureCacheElement::MakeKey(name, tileMode), this));
    if (!element) {
        element = new CVTextureCacheElement(name, tileMode);
        cache->Add(element, this);
        LoadTexture(element, area);
    } else if (element->GetMipmapped() != mipmap) {
        LoadTexture(element, area);
    }
    SetTextureRendered(element->GetLoaded());

    glBindTexture(GL_TEXTURE_2D, element->GetTextureName());
    CVTexture::Render(state, area);
}

void CVImageTexture::LoadTexture(CVTextureCacheElement* element, CVGLRenderArea* area) {
    const int mipmap = area->IsMipmappingEnabled() ? 1 : 0;
    element->SetMipmapped(mipmap);
    const GLuint texture = element->GetTextureName();

    HGLOBAL image = ReadImage(ResolvePath(element->GetImageName(), area));
    if (image) {
        BITMAPINFOHEADER* header = static_cast<BITMAPINFOHEADER*>(GlobalLock(image));
        const int width = header->biWidth;
        const int height = header->biHeight < 0 ? -header->biHeight : header->biHeight;
        GlobalUnlock(image);
        const int tileMode = element->GetTileMode();
        const int size = TextureSize(width, height, tileMode);
        HGLOBAL square = tileMode < 1 ? StretchToSquare(image, width, height, size) : TileDIB(image, size, size);
        GlobalFreeDIB(image);
        if (square) {
            glBindTexture(GL_TEXTURE_2D, texture);
            glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
            const bool uploaded = UploadSquare(square, size, mipmap);
            GlobalFreeDIB(square);
            if (uploaded) {
                element->SetLoaded(1);
                return;
            }
        }
    }

    // Nothing usable: an empty texture, so that drawing with it shows no texels.
    glBindTexture(GL_TEXTURE_2D, texture);
    glTexImage2D(GL_TEXTURE_2D, 0, 4, 0, 0, 0, GL_BGRA_EXT, GL_UNSIGNED_BYTE, nullptr);
    element->SetLoaded(0);
}
