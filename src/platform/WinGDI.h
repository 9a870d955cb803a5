#pragma once
// The GDI subset, implemented on an in-memory raster. A memory DC holds one
// selected bitmap (32-bit BGRA bottom-up, 16-bit 5-6-5, or 1-bit mask) and the
// raster operations work on its pixels. A DC that has a GL context bound keeps
// the DIB and GL's colour buffer in step (see WinGL.h).
//
// Behaviour worth knowing:
// - Handles are small positive integers, never reused; a bad, stale or
//   wrongly typed handle makes a call fail (0, FALSE, null or CLR_INVALID)
//   with ERROR_INVALID_HANDLE, and touches nothing. Window DCs (WinGL.h) have
//   no bitmap: drawing calls on them fail.
// - Raster operations work bit-wise on the destination's pixel values (the
//   colour-table index for 1-, 4- and 8-bit bitmaps). A colour source on a
//   mono destination gives 1 where it equals the source DC's background
//   colour and 0 elsewhere; a mono source on a colour destination gives the
//   destination DC's text colour for 0 and its background colour for 1.
//   Other colours are matched to the nearest the destination can hold.
// - The reserved byte of 32-bit pixels is written 0, except by a SRCCOPY from
//   a 32-bit bitmap, which copies it.
// - Rectangles (FillRect, and the extents of the blits) are normalised: a
//   rectangle given bottom-up still covers its area. Opposite extent signs in
//   StretchBlt mirror. Every stretch mode scales by nearest neighbour (each
//   destination pixel takes the source pixel under its centre).
#include "CVExport.h"
#include "WinTypes.h"

struct HDC__;
struct HGDIOBJ__;
typedef HDC__* HDC;
typedef HGDIOBJ__* HGDIOBJ;
typedef HGDIOBJ HBITMAP;
typedef HGDIOBJ HBRUSH;
typedef HGDIOBJ HPALETTE;
typedef HGDIOBJ HFONT;
typedef HGDIOBJ HPEN;
typedef DWORD COLORREF;  // 0x00BBGGRR

#define RGB(r, g, b)                                                                                  \
    (static_cast<COLORREF>(static_cast<BYTE>(r) | (static_cast<WORD>(static_cast<BYTE>(g)) << 8) | \
                           (static_cast<DWORD>(static_cast<BYTE>(b)) << 16)))
#define GetRValue(c) ((BYTE)((c)&0xFF))
#define GetGValue(c) ((BYTE)(((c) >> 8) & 0xFF))
#define GetBValue(c) ((BYTE)(((c) >> 16) & 0xFF))
#define CLR_INVALID 0xFFFFFFFF

struct RECT {
    LONG left, top, right, bottom;
};
struct POINT {
    LONG x, y;
};
struct SIZE {
    LONG cx, cy;
};

struct RGBQUAD {
    BYTE rgbBlue, rgbGreen, rgbRed, rgbReserved;
};

#pragma pack(push, 2)
struct BITMAPFILEHEADER {
    WORD bfType;
    DWORD bfSize;
    WORD bfReserved1;
    WORD bfReserved2;
    DWORD bfOffBits;
};
#pragma pack(pop)

struct BITMAPINFOHEADER {
    DWORD biSize;  // 40
    LONG biWidth;
    LONG biHeight;  // positive: bottom-up
    WORD biPlanes;
    WORD biBitCount;
    DWORD biCompression;
    DWORD biSizeImage;
    LONG biXPelsPerMeter;
    LONG biYPelsPerMeter;
    DWORD biClrUsed;
    DWORD biClrImportant;
};

struct BITMAPINFO {
    BITMAPINFOHEADER bmiHeader;
    RGBQUAD bmiColors[1];  // colour table, or three DWORD masks for BI_BITFIELDS
};

struct BITMAP {
    LONG bmType;
    LONG bmWidth;
    LONG bmHeight;
    LONG bmWidthBytes;
    WORD bmPlanes;
    WORD bmBitsPixel;
    void* bmBits;
};

struct DIBSECTION {
    BITMAP dsBm;
    BITMAPINFOHEADER dsBmih;
    DWORD dsBitfields[3];
    void* dshSection;
    DWORD dsOffset;
};

struct PALETTEENTRY {
    BYTE peRed, peGreen, peBlue, peFlags;
};

struct LOGPALETTE {
    WORD palVersion;  // 0x300
    WORD palNumEntries;
    PALETTEENTRY palPalEntry[1];
};

struct LOGBRUSH {
    UINT lbStyle;
    COLORREF lbColor;
    UINT_PTR lbHatch;
};

#define BI_RGB 0
#define BI_BITFIELDS 3
#define DIB_RGB_COLORS 0
#define DIB_PAL_COLORS 1

// Raster operations.
#define SRCCOPY 0x00CC0020
#define SRCPAINT 0x00EE0086
#define SRCAND 0x008800C6
#define SRCINVERT 0x00660046
#define NOTSRCCOPY 0x00330008
#define MERGECOPY 0x00C000CA
#define PATCOPY 0x00F00021
#define PATINVERT 0x005A0049
#define BLACKNESS 0x00000042
#define WHITENESS 0x00FF0062
#define DSTINVERT 0x00550009

// Stretch modes.
#define BLACKONWHITE 1
#define WHITEONBLACK 2
#define COLORONCOLOR 3
#define HALFTONE 4

// Background modes.
#define TRANSPARENT 1
#define OPAQUE 2

// GetDeviceCaps indexes.
#define HORZRES 8
#define VERTRES 10
#define BITSPIXEL 12
#define PLANES 14
#define NUMCOLORS 24
#define RASTERCAPS 38
#define SIZEPALETTE 104
#define RC_BITBLT 0x0001
#define RC_DI_BITMAP 0x0080
#define RC_PALETTE 0x0100
#define RC_STRETCHBLT 0x0800

#define OBJ_BITMAP 7
#define OBJ_BRUSH 2
#define OBJ_PAL 5
#define OBJ_FONT 6
#define OBJ_PEN 1
#define OBJ_DC 3
#define OBJ_MEMDC 10

#define BS_SOLID 0

#define HGDI_ERROR ((HGDIOBJ)(intptr_t)-1)

// For hosts: bitmaps that the library hands over are freed with
// DeleteObject; memory DCs are made with CSimpleDIB or CDC.
// Brings GL's current frame into the DIB of every memory DC with a context.
CVSCENE_API BOOL GdiFlush();
// Fails for a bitmap selected into a DC; stock objects stay (TRUE).
CVSCENE_API BOOL DeleteObject(HGDIOBJ obj);

#ifdef CVSCENE_INTERNAL
// Device contexts.
// A memory DC with the stock 1x1 mono bitmap, white brush and default palette
// selected; hdc, when given, must be a valid DC.
HDC CreateCompatibleDC(HDC hdc);
// Any DC. A context current on it in this thread is released first.
BOOL DeleteDC(HDC hdc);
// Bitmaps (memory DCs only, and not one selected into another DC), brushes,
// fonts and pens; null when refused. Palettes go through SelectPalette.
HGDIOBJ SelectObject(HDC hdc, HGDIOBJ obj);
HGDIOBJ GetCurrentObject(HDC hdc, UINT type);
// BITSPIXEL, PLANES, NUMCOLORS, SIZEPALETTE, RASTERCAPS describe the selected
// bitmap; HORZRES and VERTRES are its size (a window DC: the window's size).
int GetDeviceCaps(HDC hdc, int index);
DWORD GetObjectType(HGDIOBJ obj);

// Bitmaps.
// 1, 4, 8, 16, 24 or 32 bits; BI_RGB, or BI_BITFIELDS for 16 and 32 bits
// (16-bit BI_RGB is 5-5-5). The pixels are zeroed plain memory that stays at
// *bits until DeleteObject. File-mapping sections are refused (section must
// be null); hdc is used only for DIB_PAL_COLORS.
HBITMAP CreateDIBSection(HDC hdc, const BITMAPINFO* info, UINT usage, void** bits, void* section, DWORD offset);
// The depth of the bitmap selected into hdc (so 1 bit for a new memory DC);
// 32 bits for a null or window DC and in place of 4 and 8. A zero side gives
// a 1x1 mono bitmap.
HBITMAP CreateCompatibleBitmap(HDC hdc, int width, int height);
// 1, 16 (5-6-5), 24 or 32 bits, one plane; bits are rows padded to 16 bits.
HBITMAP CreateBitmap(int width, int height, UINT planes, UINT bitCount, const void* bits);
// BITMAP (or DIBSECTION for a DIB section when size allows), LOGBRUSH, or a
// palette's entry count (WORD). A null out returns the size of the largest.
int GetObjectW(HGDIOBJ obj, int size, void* out);
UINT SetDIBColorTable(HDC hdc, UINT start, UINT count, const RGBQUAD* colors);
UINT GetDIBColorTable(HDC hdc, UINT start, UINT count, RGBQUAD* colors);
// Copies a bitmap's pixels into a DIB of the format info's header gives: 1,
// 4, 8, 16, 24 or 32 bits, BI_RGB or BI_BITFIELDS (masks after the header),
// top-down rows for a negative height; biWidth and |biHeight| must be the
// bitmap's. Colours convert to the nearest the DIB holds; a 32-bit copy of a
// 32-bit bitmap keeps the reserved byte. An indexed DIB gets its colour table
// written after the header (the caller leaves room for it): the bitmap's own
// table when it is indexed at that depth, black and white for 1 bit, else the
// entries of the palette selected into hdc (null hdc: the default palette),
// black beyond them. Rows start .. start + lines - 1 are counted in the DIB's
// row order, clipped to the bitmap. With bits null only the table is written.
// A biBitCount of 0 fills in the header from the bitmap instead (size, bit
// count, compression, image size) and writes nothing after it. A bitmap
// selected into a DC with a GL context is read as GL last drew it. Returns the
// rows copied (nonzero when bits is null), 0 on failure; DIB_RGB_COLORS only.
int GetDIBits(HDC hdc, HBITMAP bitmap, UINT start, UINT lines, void* bits, BITMAPINFO* info, UINT usage);

// Brushes and fills.
HBRUSH CreateSolidBrush(COLORREF color);
int FillRect(HDC hdc, const RECT* rect, HBRUSH brush);
BOOL PatBlt(HDC hdc, int x, int y, int w, int h, DWORD rop);
BOOL BitBlt(HDC dst, int x, int y, int w, int h, HDC src, int sx, int sy, DWORD rop);
BOOL StretchBlt(HDC dst, int x, int y, int w, int h, HDC src, int sx, int sy, int sw, int sh, DWORD rop);
int SetStretchBltMode(HDC hdc, int mode);
int GetStretchBltMode(HDC hdc);
COLORREF SetBkColor(HDC hdc, COLORREF color);
COLORREF GetBkColor(HDC hdc);
COLORREF SetTextColor(HDC hdc, COLORREF color);
COLORREF GetTextColor(HDC hdc);
int SetBkMode(HDC hdc, int mode);
int GetBkMode(HDC hdc);
COLORREF GetPixel(HDC hdc, int x, int y);
COLORREF SetPixel(HDC hdc, int x, int y, COLORREF color);

// Palettes.
HPALETTE CreatePalette(const LOGPALETTE* palette);
HPALETTE SelectPalette(HDC hdc, HPALETTE palette, BOOL forceBackground);
// The memory raster has no hardware palette to fill: returns the entry count
// of the selected palette, 0 for the default one.
UINT RealizePalette(HDC hdc);
UINT GetPaletteEntries(HPALETTE palette, UINT start, UINT count, PALETTEENTRY* entries);

// Rectangles.
BOOL SetRect(RECT* rect, int left, int top, int right, int bottom);
BOOL IsRectEmpty(const RECT* rect);
BOOL IntersectRect(RECT* out, const RECT* a, const RECT* b);
#endif  // CVSCENE_INTERNAL
