#pragma once
// Bitmap utilities on packed DIBs: one global memory block (GlobalAlloc)
// holding a BITMAPINFOHEADER, its colour table or BI_BITFIELDS masks, and
// the pixel rows, each row padded to 4 bytes. This is the form bitmaps take on
// the clipboard and in most hosts' image code; the functions here make,
// convert, resize, draw, read and write such blocks.
//
// Common rules:
// - A DIB handed in is only read; results are new blocks that the caller
//   owns and releases with GlobalFreeDIB (or GlobalFree).
// - Accepted input: 1, 4, 8, 16, 24 or 32 bits per pixel, BI_RGB, or
//   BI_BITFIELDS at 16 and 32 bits; bottom-up or top-down; the block must be
//   large enough for header, table and rows. Anything else, a null handle or
//   a non-positive size makes a function return null (or FALSE) without
//   side effects; nothing throws.
// - Coordinates inside an image are top-down: (0, 0) is the top-left pixel
//   whatever the row order in memory.
// - Results are bottom-up, the usual order for DIBs.
#include "../platform/CVExport.h"
#include "../platform/CString.h"
#include "../platform/WinBase.h"
#include "../platform/WinGDI.h"

// Bytes between the header and the pixel rows: the colour table (biClrUsed
// entries, or 2^bits for 1, 4 and 8 bits when biClrUsed is 0) and, for
// BI_BITFIELDS, the three masks before it. 0 for a null header.
CVSCENE_API DWORD ColorTableSize(const BITMAPINFOHEADER* header);

// A new width x height DIB, BI_RGB, bottom-up, its pixels zero (black).
// bitCount is 1, 4, 8, 16 (5-5-5), 24 or 32; the indexed depths get a grey
// ramp from black to white as their colour table.
CVSCENE_API HGLOBAL CreateRGBDIB(int width, int height, int bitCount = 24);

// Releases a DIB made by these functions. FALSE for null or unknown handles.
CVSCENE_API BOOL GlobalFreeDIB(HGLOBAL dib);

// A DIB holding a copy of the bitmap's pixels (see GetDIBits). bitCount 0
// keeps the bitmap's depth, with its colour table or its 16-bit masks;
// otherwise colours are converted, indexed depths matching against the
// default palette. Works on a bitmap that is selected into a DC, and reads
// GL's latest frame when that DC has a context.
CVSCENE_API HGLOBAL DIBFromBitmap(HBITMAP bitmap, int bitCount = 0);

// Draws the DIB's (srcX, srcY, srcW, srcH) rectangle into (x, y, w, h) of the
// DC with a raster operation, scaling by nearest neighbour as StretchBlt does.
// TRUE when the DIB was valid and the DC accepted the blit.
CVSCENE_API BOOL StretchDIBBlt(HDC dc, int x, int y, int w, int h, HGLOBAL dib, int srcX, int srcY, int srcW, int srcH,
                   DWORD rop);

// The image resampled to width x height: each axis is averaged over the
// source pixels a result pixel covers when shrinking and interpolated
// linearly when growing, so the power-of-two sizes textures need keep their
// detail. Alpha (in a 32-bit DIB whose fourth bytes are not all 0) is
// resampled with the colours weighted by it. The result has 32 bits when the
// source has, 24 otherwise; scaling to the same size copies the colours.
CVSCENE_API HGLOBAL ScaleDIB(HGLOBAL dib, int width, int height);

// A width x height DIB covered with copies of the image repeated from the
// top-left corner, cut off at the right and bottom edges. Same format, masks
// and colour table as the source.
CVSCENE_API HGLOBAL TileDIB(HGLOBAL dib, int width, int height);

// A width x height DIB with the image in its top-left corner and the rest
// filled with fill (the nearest table colour for indexed DIBs). A smaller
// size keeps the top-left part. Same format as the source.
CVSCENE_API HGLOBAL PadDIB(HGLOBAL dib, int width, int height, COLORREF fill = RGB(0, 0, 0));

// Writes the DIB as a .bmp file as it is: a file header, then the block's
// header, table and rows. FALSE when the DIB is invalid or the file cannot
// be written.
CVSCENE_API BOOL ConvertDIBtoBMP(HGLOBAL dib, const CString& fileName);

// Reads a PNG, JPEG or BMP file (recognised by content) into a bottom-up
// DIB: 32 bits with straight alpha in the fourth byte when the image has
// alpha, 24 bits otherwise. Null when the file is missing or cannot be
// decoded.
CVSCENE_API HGLOBAL OpenDIB(const CString& fileName);

// Writes the DIB as a baseline colour JPEG file with quality 0 (smallest) to
// 100 (best); alpha is dropped. FALSE for a quality outside 0..100, an
// invalid DIB or a file that cannot be written (no file is left behind).
CVSCENE_API BOOL WriteDIBtoJPEGEx(HGLOBAL dib, const CString& fileName, int quality);
