#include "image/CSimpleDIB.h"

#include <cstring>
#include <cwctype>
#include <string>
#include <vector>

#include "platform/CException.h"
#include "platform/CVImageFile.h"

IMPLEMENT_DYNAMIC(CSimpleDIB, CVBase)

namespace {

bool EndsWithPNG(const CString& name) {
    const std::wstring& s = name.str();
    if (s.size() < 4) return false;
    std::wstring ext = s.substr(s.size() - 4);
    for (wchar_t& c : ext) c = (wchar_t)std::towlower(c);
    return ext == L".png";
}

}  // namespace

CSimpleDIB::~CSimpleDIB() { Release(); }

void CSimpleDIB::Create(int width, int height, HDC reference) {
    Release();
    const int caps = reference ? GetDeviceCaps(reference, BITSPIXEL) : 32;
    const int bits = caps == 16 || caps == 8 ? caps : 32;

    struct {
        BITMAPINFOHEADER h;
        union {
            DWORD masks[3];
            WORD indexes[256];
        };
    } info;
    std::memset(&info, 0, sizeof info);
    info.h.biSize = sizeof(BITMAPINFOHEADER);
    info.h.biWidth = width;
    info.h.biHeight = height;
    info.h.biPlanes = 1;
    info.h.biBitCount = (WORD)bits;
    info.h.biCompression = bits == 16 ? BI_BITFIELDS : BI_RGB;
    UINT usage = DIB_RGB_COLORS;
    if (bits == 16) {
        info.masks[0] = 0xF800;
        info.masks[1] = 0x07E0;
        info.masks[2] = 0x001F;
    } else if (bits == 8) {
        // Palette indexes: the table is read from the reference DC's palette.
        for (int i = 0; i < 256; ++i) info.indexes[i] = (WORD)i;
        usage = DIB_PAL_COLORS;
    }

    m_hDC = CreateCompatibleDC(reference);
    if (!m_hDC) AfxThrowMemoryException("CSimpleDIB::Create(): no memory DC for the reference DC");
    if (width > 0 && height > 0)
        m_hBitmap = CreateDIBSection(reference ? reference : m_hDC, reinterpret_cast<BITMAPINFO*>(&info), usage,
                                     &m_pBits, nullptr, 0);
    if (!m_hBitmap || !m_pBits) {
        Release();
        AfxThrowMemoryException("CSimpleDIB::Create(): cannot make a " + std::to_string(width) + " x " +
                                std::to_string(height) + " DIB section");
    }
    m_hOldBitmap = SelectObject(m_hDC, m_hBitmap);
    m_nWidth = width;
    m_nHeight = height;
    m_nBitCount = bits;
}

void CSimpleDIB::Release() {
    if (m_hDC && m_hOldBitmap) SelectObject(m_hDC, m_hOldBitmap);
    if (m_hBitmap) DeleteObject(m_hBitmap);
    if (m_hDC) DeleteDC(m_hDC);
    m_hDC = nullptr;
    m_hBitmap = nullptr;
    m_hOldBitmap = nullptr;
    m_pBits = nullptr;
    m_nWidth = m_nHeight = m_nBitCount = 0;
}

BOOL CSimpleDIB::Save(const CString& fileName) const {
    if (!m_hBitmap) return FALSE;
    // A top-down 32-bit copy: GetDIBits converts any depth and brings in
    // what GL drew last.
    BITMAPINFO info;
    std::memset(&info, 0, sizeof info);
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = m_nWidth;
    info.bmiHeader.biHeight = -m_nHeight;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    std::vector<BYTE> pixels((size_t)m_nWidth * m_nHeight * 4);
    if (GetDIBits(m_hDC, m_hBitmap, 0, (UINT)m_nHeight, pixels.data(), &info, DIB_RGB_COLORS) != m_nHeight)
        return FALSE;
    const int stride = m_nWidth * 4;
    if (EndsWithPNG(fileName)) return CVImageFile::WritePNG(fileName, m_nWidth, m_nHeight, pixels.data(), stride, 0);
    return CVImageFile::WriteBMP(fileName, m_nWidth, m_nHeight, pixels.data(), stride, 0);
}
