#pragma once
// A DIB section selected into a memory DC of its own: the off-screen target
// the DIB actions render into and hosts copy from.
//
// The depth follows the reference DC's BITSPIXEL: 16 gives 5-6-5
// (BI_BITFIELDS), 8 gives an 8-bit section whose colour table starts as the
// reference DC's palette (black past its entries); any other depth gives
// 32 bits, BI_RGB. GL draws only into the 32- and 16-bit forms. Rows are
// bottom-up and start zeroed (black).
//
// Hazard: a memory DC freshly made with CreateCompatibleDC reports 1 bit
// until a bitmap is selected into it, and so yields 32 bits here.
#include "../platform/CVExport.h"
#include "../base/CVBase.h"
#include "../platform/CString.h"
#include "../platform/WinGDI.h"

class CVSCENE_API CSimpleDIB : public CVBase {
    DECLARE_DYNAMIC(CSimpleDIB)
public:
    CSimpleDIB() = default;
    ~CSimpleDIB() override;
    CSimpleDIB(const CSimpleDIB&) = delete;
    CSimpleDIB& operator=(const CSimpleDIB&) = delete;

    // Releases any previous bitmap and DC, then makes a width x height
    // section for reference (null: the screen, 32 bits) in a new memory DC
    // compatible with it. Throws CMemoryException when the DC or section
    // cannot be made (a non-positive size among the causes); the object is
    // then empty.
    void Create(int width, int height, HDC reference);
    // Deselects and deletes the bitmap and the DC; the object is empty after.
    void Release();

    // 0, 0, 0 and null while empty.
    int GetWidth() const { return m_nWidth; }
    int GetHeight() const { return m_nHeight; }
    int GetBitCount() const { return m_nBitCount; }
    HDC GetDC() const { return m_hDC; }
    HBITMAP GetBitmap() const { return m_hBitmap; }
    // The rows, bottom-up, each padded to 4 bytes. While GL draws into the DC
    // they hold the last frame swapped or flushed (GdiFlush); Save reads GL's
    // latest frame itself.
    void* GetBits() const { return m_pBits; }

    // Writes the picture as a PNG when the name ends in ".png" (any case),
    // else as a 24-bit BMP. FALSE while empty or when the file cannot be
    // written.
    BOOL Save(const CString& fileName) const;

protected:
    HDC m_hDC = nullptr;
    HBITMAP m_hBitmap = nullptr;
    HGDIOBJ m_hOldBitmap = nullptr;
    void* m_pBits = nullptr;
    int m_nWidth = 0;
    int m_nHeight = 0;
    int m_nBitCount = 0;
};
