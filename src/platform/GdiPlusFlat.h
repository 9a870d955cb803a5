#pragma once
// The GDI+ flat-interface subset: graphics on a device context, pens, solid
// brushes, lines, rectangles, ellipses, arcs, pies and polygons; bitmaps read
// from PNG, JPEG and BMP files, flipped and rotated, locked as 32-bit ARGB and
// saved as PNG or BMP. Every call returns a GpStatus and throws nothing.
//
// Graphics (GdipCreateFromHDC) draw with Cairo straight into the pixels of
// the bitmap selected into a memory DC, in the DC's top-down coordinates,
// with GDI+'s pixel model: pixel (x, y) is centred on the integer point, so a
// 1-wide line at y = 5 covers row 5 and an outlined w x h rectangle spans
// w + 1 pixels. On a DC with a GL context every call works like a GDI call:
// it first brings GL's pixels of the rectangle it may touch into the bitmap
// and afterwards sends that rectangle back to GL, so the two stay in step
// (cost: one small read and one small write per call). 32-bit BI_RGB
// bitmaps are drawn in place; other bitmap formats through a converted copy
// of the touched rectangle. A window DC, a deleted DC or a DC without a
// bitmap gives Win32Error for each drawing call.
//
// Pen widths are in pixels whatever the unit; widths below 1 draw 1 pixel
// wide. Caps are flat, joins mitred. Angles are degrees, clockwise on screen,
// measured to the actual point on the ellipse.
//
// GdiplusStartup need not be called first; it is kept for hosts that do.
#include "IUnknown.h"
#include "WinGDI.h"
#include "WinTypes.h"

typedef float REAL;
typedef int INT;
typedef DWORD ARGB;
typedef INT PixelFormat;
typedef UINT_PTR ULONG_PTR;

enum GpStatus {
    Ok = 0,
    GenericError = 1,
    InvalidParameter = 2,
    OutOfMemory = 3,
    ObjectBusy = 4,
    InsufficientBuffer = 5,
    NotImplemented = 6,
    Win32Error = 7,
    WrongState = 8,
    Aborted = 9,
    FileNotFound = 10,
    ValueOverflow = 11,
    AccessDenied = 12,
    UnknownImageFormat = 13,
    FontFamilyNotFound = 14,
    FontStyleNotFound = 15,
    NotTrueTypeFont = 16,
    UnsupportedGdiplusVersion = 17,
    GdiplusNotInitialized = 18,
    PropertyNotFound = 19,
    PropertyNotSupported = 20
};

enum GpUnit { UnitWorld = 0, UnitDisplay = 1, UnitPixel = 2, UnitPoint = 3, UnitInch = 4, UnitDocument = 5, UnitMillimeter = 6 };

enum GpFillMode { FillModeAlternate = 0, FillModeWinding = 1 };

enum SmoothingMode {
    SmoothingModeInvalid = -1,
    SmoothingModeDefault = 0,  // aliased
    SmoothingModeHighSpeed = 1,
    SmoothingModeHighQuality = 2,  // anti-aliased
    SmoothingModeNone = 3,
    SmoothingModeAntiAlias = 4,
    SmoothingModeAntiAlias8x4 = 4,
    SmoothingModeAntiAlias8x8 = 5
};

enum RotateFlipType {
    RotateNoneFlipNone = 0,
    Rotate90FlipNone = 1,
    Rotate180FlipNone = 2,
    Rotate270FlipNone = 3,
    RotateNoneFlipX = 4,
    Rotate90FlipX = 5,
    Rotate180FlipX = 6,
    Rotate270FlipX = 7,
    RotateNoneFlipY = Rotate180FlipX,
    Rotate90FlipY = Rotate270FlipX,
    Rotate180FlipY = RotateNoneFlipX,
    Rotate270FlipY = Rotate90FlipX,
    RotateNoneFlipXY = Rotate180FlipNone,
    Rotate90FlipXY = Rotate270FlipNone,
    Rotate180FlipXY = RotateNoneFlipNone,
    Rotate270FlipXY = Rotate90FlipNone
};

enum ImageLockMode { ImageLockModeRead = 1, ImageLockModeWrite = 2, ImageLockModeUserInputBuf = 4 };

#define PixelFormatIndexed 0x00010000
#define PixelFormatGDI 0x00020000
#define PixelFormatAlpha 0x00040000
#define PixelFormatPAlpha 0x00080000
#define PixelFormatCanonical 0x00200000
#define PixelFormat24bppRGB (8 | (24 << 8) | PixelFormatGDI)
#define PixelFormat32bppRGB (9 | (32 << 8) | PixelFormatGDI)
#define PixelFormat32bppARGB (10 | (32 << 8) | PixelFormatAlpha | PixelFormatGDI | PixelFormatCanonical)
#define PixelFormat32bppPARGB (11 | (32 << 8) | PixelFormatAlpha | PixelFormatPAlpha | PixelFormatGDI)

inline int IsAlphaPixelFormat(PixelFormat format) { return (format & PixelFormatAlpha) != 0; }
inline unsigned GetPixelFormatSize(PixelFormat format) { return (format >> 8) & 0xFF; }

struct GpPoint {
    INT X, Y;
};
struct GpPointF {
    REAL X, Y;
};
struct GpRect {
    INT X, Y, Width, Height;
};
struct GpRectF {
    REAL X, Y, Width, Height;
};

struct BitmapData {
    UINT Width;
    UINT Height;
    INT Stride;
    ::PixelFormat PixelFormat;
    void* Scan0;
    UINT_PTR Reserved;
};

struct EncoderParameter {
    GUID Guid;
    ULONG NumberOfValues;
    ULONG Type;
    void* Value;
};
struct EncoderParameters {
    UINT Count;
    EncoderParameter Parameter[1];
};

struct ImageCodecInfo {
    CLSID Clsid;
    GUID FormatID;
    const WCHAR* CodecName;
    const WCHAR* DllName;
    const WCHAR* FormatDescription;
    const WCHAR* FilenameExtension;
    const WCHAR* MimeType;
    DWORD Flags;
    DWORD Version;
    DWORD SigCount;
    DWORD SigSize;
    const BYTE* SigPattern;
    const BYTE* SigMask;
};

// The two encoders: image/bmp and image/png.
inline constexpr CLSID CLSID_BMPEncoder = {0x557CF400, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};
inline constexpr CLSID CLSID_PNGEncoder = {0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};
inline constexpr GUID ImageFormatBMP = {0xB96B3CAB, 0x0728, 0x11D3, {0x9D, 0x7B, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};
inline constexpr GUID ImageFormatPNG = {0xB96B3CAF, 0x0728, 0x11D3, {0x9D, 0x7B, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

// Handle types. Objects are made and destroyed only through the functions
// below; the types carry no data a caller may use.
class GpImage {
public:
    virtual ~GpImage() = default;
    GpImage(const GpImage&) = delete;
    GpImage& operator=(const GpImage&) = delete;

protected:
    GpImage() = default;
};
class GpBitmap : public GpImage {
protected:
    GpBitmap() = default;
};
class GpGraphics {
public:
    virtual ~GpGraphics() = default;
    GpGraphics(const GpGraphics&) = delete;
    GpGraphics& operator=(const GpGraphics&) = delete;

protected:
    GpGraphics() = default;
};

// Pens and brushes are plain colour records.
class GpPen {
public:
    GpPen(ARGB color, REAL width) : m_color(color), m_fWidth(width) {}
    ARGB m_color;
    REAL m_fWidth;
};
class GpBrush {
public:
    virtual ~GpBrush() = default;

protected:
    GpBrush() = default;
};
class GpSolidFill : public GpBrush {
public:
    explicit GpSolidFill(ARGB color) : m_color(color) {}
    ARGB m_color;
};

struct GdiplusStartupInput {
    UINT GdiplusVersion = 1;
    void* DebugEventCallback = nullptr;
    BOOL SuppressBackgroundThread = FALSE;
    BOOL SuppressExternalCodecs = FALSE;
};
struct GdiplusStartupOutput {
    void* NotificationHook;
    void* NotificationUnhook;
};

// Version 1 only; token is a count kept for GdiplusShutdown.
GpStatus GdiplusStartup(ULONG_PTR* token, const GdiplusStartupInput* input, GdiplusStartupOutput* output);
void GdiplusShutdown(ULONG_PTR token);

// Graphics.
GpStatus GdipCreateFromHDC(HDC hdc, GpGraphics** graphics);  // InvalidParameter for an unknown DC
GpStatus GdipDeleteGraphics(GpGraphics* graphics);
GpStatus GdipSetSmoothingMode(GpGraphics* graphics, SmoothingMode mode);
GpStatus GdipGetSmoothingMode(GpGraphics* graphics, SmoothingMode* mode);
GpStatus GdipGraphicsClear(GpGraphics* graphics, ARGB color);  // every pixel, alpha ignored

// Pens and solid brushes.
GpStatus GdipCreatePen1(ARGB color, REAL width, GpUnit unit, GpPen** pen);
GpStatus GdipDeletePen(GpPen* pen);
GpStatus GdipSetPenColor(GpPen* pen, ARGB color);
GpStatus GdipGetPenColor(GpPen* pen, ARGB* color);
GpStatus GdipSetPenWidth(GpPen* pen, REAL width);
GpStatus GdipGetPenWidth(GpPen* pen, REAL* width);
GpStatus GdipCreateSolidFill(ARGB color, GpSolidFill** brush);
GpStatus GdipSetSolidFillColor(GpSolidFill* brush, ARGB color);
GpStatus GdipGetSolidFillColor(GpSolidFill* brush, ARGB* color);
GpStatus GdipDeleteBrush(GpBrush* brush);

// Shapes. Outlines take a pen, fills a brush.
GpStatus GdipDrawLine(GpGraphics* graphics, GpPen* pen, REAL x1, REAL y1, REAL x2, REAL y2);
GpStatus GdipDrawLineI(GpGraphics* graphics, GpPen* pen, INT x1, INT y1, INT x2, INT y2);
GpStatus GdipDrawLines(GpGraphics* graphics, GpPen* pen, const GpPointF* points, INT count);
GpStatus GdipDrawLinesI(GpGraphics* graphics, GpPen* pen, const GpPoint* points, INT count);
GpStatus GdipDrawRectangle(GpGraphics* graphics, GpPen* pen, REAL x, REAL y, REAL width, REAL height);
GpStatus GdipDrawRectangleI(GpGraphics* graphics, GpPen* pen, INT x, INT y, INT width, INT height);
GpStatus GdipFillRectangle(GpGraphics* graphics, GpBrush* brush, REAL x, REAL y, REAL width, REAL height);
GpStatus GdipFillRectangleI(GpGraphics* graphics, GpBrush* brush, INT x, INT y, INT width, INT height);
GpStatus GdipDrawEllipse(GpGraphics* graphics, GpPen* pen, REAL x, REAL y, REAL width, REAL height);
GpStatus GdipDrawEllipseI(GpGraphics* graphics, GpPen* pen, INT x, INT y, INT width, INT height);
GpStatus GdipFillEllipse(GpGraphics* graphics, GpBrush* brush, REAL x, REAL y, REAL width, REAL height);
GpStatus GdipFillEllipseI(GpGraphics* graphics, GpBrush* brush, INT x, INT y, INT width, INT height);
GpStatus GdipDrawArc(GpGraphics* graphics, GpPen* pen, REAL x, REAL y, REAL width, REAL height, REAL startAngle,
                     REAL sweepAngle);
GpStatus GdipDrawArcI(GpGraphics* graphics, GpPen* pen, INT x, INT y, INT width, INT height, REAL startAngle,
                      REAL sweepAngle);
GpStatus GdipDrawPie(GpGraphics* graphics, GpPen* pen, REAL x, REAL y, REAL width, REAL height, REAL startAngle,
                     REAL sweepAngle);
GpStatus GdipDrawPieI(GpGraphics* graphics, GpPen* pen, INT x, INT y, INT width, INT height, REAL startAngle,
                      REAL sweepAngle);
GpStatus GdipFillPie(GpGraphics* graphics, GpBrush* brush, REAL x, REAL y, REAL width, REAL height, REAL startAngle,
                     REAL sweepAngle);
GpStatus GdipFillPieI(GpGraphics* graphics, GpBrush* brush, INT x, INT y, INT width, INT height, REAL startAngle,
                      REAL sweepAngle);
GpStatus GdipDrawPolygon(GpGraphics* graphics, GpPen* pen, const GpPointF* points, INT count);
GpStatus GdipDrawPolygonI(GpGraphics* graphics, GpPen* pen, const GpPoint* points, INT count);
GpStatus GdipFillPolygon(GpGraphics* graphics, GpBrush* brush, const GpPointF* points, INT count, GpFillMode mode);
GpStatus GdipFillPolygonI(GpGraphics* graphics, GpBrush* brush, const GpPoint* points, INT count, GpFillMode mode);

// Bitmaps. Files are recognised by content (PNG, JPEG, BMP): FileNotFound
// when the file cannot be opened, UnknownImageFormat when it cannot be
// decoded. The pixel format is PixelFormat32bppARGB for images with alpha
// (PNG alpha or transparency, 32-bit BMPs with alpha) and
// PixelFormat32bppRGB otherwise.
GpStatus GdipCreateBitmapFromFile(const WCHAR* fileName, GpBitmap** bitmap);
GpStatus GdipLoadImageFromFile(const WCHAR* fileName, GpImage** image);
// format: PixelFormat32bppARGB or PixelFormat32bppRGB; scan0 null gives
// transparent black, else rows are copied from scan0, stride bytes apart.
GpStatus GdipCreateBitmapFromScan0(INT width, INT height, INT stride, PixelFormat format, BYTE* scan0,
                                   GpBitmap** bitmap);
GpStatus GdipDisposeImage(GpImage* image);
GpStatus GdipGetImageWidth(GpImage* image, UINT* width);
GpStatus GdipGetImageHeight(GpImage* image, UINT* height);
GpStatus GdipGetImagePixelFormat(GpImage* image, PixelFormat* format);
GpStatus GdipImageRotateFlip(GpImage* image, RotateFlipType type);
// rect null: the whole bitmap. format: PixelFormat32bppARGB (the pixels
// themselves, top-down, unless ImageLockModeUserInputBuf), PixelFormat32bppRGB
// or PixelFormat24bppRGB (converted copies). One lock at a time (WrongState
// otherwise); a locked bitmap refuses flips and saves with WrongState.
GpStatus GdipBitmapLockBits(GpBitmap* bitmap, const GpRect* rect, UINT flags, PixelFormat format,
                            BitmapData* lockedData);
GpStatus GdipBitmapUnlockBits(GpBitmap* bitmap, BitmapData* lockedData);

// Encoders: CLSID_PNGEncoder and CLSID_BMPEncoder; parameters are ignored.
// Images with alpha are saved with it. Another CLSID gives UnknownImageFormat;
// a file that cannot be written, Win32Error.
GpStatus GdipSaveImageToFile(GpImage* image, const WCHAR* fileName, const CLSID* encoder,
                             const EncoderParameters* params);
// The encoder list (BMP, then PNG): size is the bytes GdipGetImageEncoders
// needs, strings included.
GpStatus GdipGetImageEncodersSize(UINT* count, UINT* size);
GpStatus GdipGetImageEncoders(UINT count, UINT size, ImageCodecInfo* encoders);
