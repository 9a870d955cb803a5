// The flat entry points: argument checks, then the bitmap and graphics classes.
#include "platform/GdiPlusFlat.h"

#include <cairo.h>

#include <atomic>
#include <cmath>
#include <cstring>
#include <new>
#include <string>

#include "platform/CVGdiDC.h"
#include "platform/CVGdiHandleTable.h"
#include "platform/CVGdipBitmap.h"
#include "platform/CVGdipGraphics.h"

namespace {

std::atomic<ULONG_PTR> g_startups{0};

const double kPi = 3.14159265358979323846;

CVGdipGraphics* AsGraphics(GpGraphics* g) { return dynamic_cast<CVGdipGraphics*>(g); }
CVGdipBitmap* AsBitmap(GpImage* image) { return dynamic_cast<CVGdipBitmap*>(image); }

// Angles are to the point on the ellipse; Cairo draws the unit circle scaled,
// so they become that circle's parameter.
double Parameter(double degrees, double rx, double ry) {
    double t = degrees * kPi / 180.0;
    return std::atan2(rx * std::sin(t), ry * std::cos(t));
}

// An elliptical arc in the box (x, y, w, h), continuing the current path.
void ArcPath(cairo_t* cr, double x, double y, double w, double h, double start, double sweep) {
    double rx = w / 2, ry = h / 2;
    if (rx <= 0 || ry <= 0 || sweep == 0) return;
    double t0, t1;
    if (std::fabs(sweep) >= 360) {
        t0 = Parameter(start, rx, ry);
        t1 = t0 + (sweep > 0 ? 2 * kPi : -2 * kPi);
    } else {
        t0 = Parameter(start, rx, ry);
        t1 = Parameter(start + sweep, rx, ry);
        while (sweep > 0 && t1 <= t0) t1 += 2 * kPi;
        while (sweep < 0 && t1 >= t0) t1 -= 2 * kPi;
    }
    cairo_save(cr);
    cairo_translate(cr, x + rx, y + ry);
    cairo_scale(cr, rx, ry);
    if (sweep > 0) cairo_arc(cr, 0, 0, 1, t0, t1);
    else cairo_arc_negative(cr, 0, 0, 1, t0, t1);
    cairo_restore(cr);
}

template <class P>
CVGdipGraphics::PathBuilder PointsPath(const P* points, INT count, bool close) {
    return [points, count, close](cairo_t* cr) {
        cairo_move_to(cr, points[0].X, points[0].Y);
        for (INT i = 1; i < count; ++i) cairo_line_to(cr, points[i].X, points[i].Y);
        if (close) cairo_close_path(cr);
    };
}

GpStatus StrokeWith(GpGraphics* graphics, GpPen* pen, const CVGdipGraphics::PathBuilder& path) {
    CVGdipGraphics* g = AsGraphics(graphics);
    if (!g || !pen) return InvalidParameter;
    return g->Stroke(path, pen->m_color, pen->m_fWidth);
}

GpStatus FillWith(GpGraphics* graphics, GpBrush* brush, const CVGdipGraphics::PathBuilder& path, int winding = 0) {
    CVGdipGraphics* g = AsGraphics(graphics);
    GpSolidFill* fill = dynamic_cast<GpSolidFill*>(brush);
    if (!g || !fill) return InvalidParameter;
    return g->Fill(path, fill->m_color, winding);
}

CVGdipGraphics::PathBuilder RectanglePath(REAL x, REAL y, REAL w, REAL h) {
    return [=](cairo_t* cr) { cairo_rectangle(cr, x, y, w, h); };
}

CVGdipGraphics::PathBuilder EllipsePath(REAL x, REAL y, REAL w, REAL h) {
    return [=](cairo_t* cr) {
        cairo_new_sub_path(cr);
        ArcPath(cr, x, y, w, h, 0, 360);
        cairo_close_path(cr);
    };
}

CVGdipGraphics::PathBuilder PiePath(REAL x, REAL y, REAL w, REAL h, REAL start, REAL sweep) {
    return [=](cairo_t* cr) {
        cairo_move_to(cr, x + w / 2, y + h / 2);
        ArcPath(cr, x, y, w, h, start, sweep);
        cairo_close_path(cr);
    };
}

struct EncoderEntry {
    const CLSID* clsid;
    const GUID* format;
    const wchar_t* name;
    const wchar_t* description;
    const wchar_t* extensions;
    const wchar_t* mime;
};
const EncoderEntry kEncoders[] = {
    {&CLSID_BMPEncoder, &ImageFormatBMP, L"BMP encoder", L"BMP", L"*.BMP;*.DIB;*.RLE", L"image/bmp"},
    {&CLSID_PNGEncoder, &ImageFormatPNG, L"PNG encoder", L"PNG", L"*.PNG", L"image/png"},
};
const UINT kEncoderCount = sizeof kEncoders / sizeof kEncoders[0];

size_t TextBytes(const wchar_t* s) { return (wcslen(s) + 1) * sizeof(wchar_t); }

UINT EncodersSize() {
    size_t size = kEncoderCount * sizeof(ImageCodecInfo);
    for (const auto& e : kEncoders) size += TextBytes(e.name) + TextBytes(e.description) + TextBytes(e.extensions) + TextBytes(e.mime);
    return (UINT)size;
}

}  // namespace

GpStatus GdiplusStartup(ULONG_PTR* token, const GdiplusStartupInput* input, GdiplusStartupOutput* output) {
    if (!token || !input) return InvalidParameter;
    if (input->GdiplusVersion != 1) return UnsupportedGdiplusVersion;
    if (output) {
        output->NotificationHook = nullptr;
        output->NotificationUnhook = nullptr;
    }
    *token = ++g_startups;
    return Ok;
}

void GdiplusShutdown(ULONG_PTR) {}

GpStatus GdipCreateFromHDC(HDC hdc, GpGraphics** graphics) {
    if (!graphics) return InvalidParameter;
    *graphics = nullptr;
    if (!CVGdiHandleTable::FindAs<CVGdiDC>(CVHandleValue(hdc))) return InvalidParameter;
    *graphics = new (std::nothrow) CVGdipGraphics(hdc);
    return *graphics ? Ok : OutOfMemory;
}

GpStatus GdipDeleteGraphics(GpGraphics* graphics) {
    if (!graphics) return InvalidParameter;
    delete graphics;
    return Ok;
}

GpStatus GdipSetSmoothingMode(GpGraphics* graphics, SmoothingMode mode) {
    CVGdipGraphics* g = AsGraphics(graphics);
    if (!g || mode < SmoothingModeDefault || mode > SmoothingModeAntiAlias8x8) return InvalidParameter;
    g->SetSmoothingMode(mode);
    return Ok;
}

GpStatus GdipGetSmoothingMode(GpGraphics* graphics, SmoothingMode* mode) {
    CVGdipGraphics* g = AsGraphics(graphics);
    if (!g || !mode) return InvalidParameter;
    *mode = g->GetSmoothingMode();
    return Ok;
}

GpStatus GdipGraphicsClear(GpGraphics* graphics, ARGB color) {
    CVGdipGraphics* g = AsGraphics(graphics);
    return g ? g->Clear(color) : InvalidParameter;
}

GpStatus GdipCreatePen1(ARGB color, REAL width, GpUnit, GpPen** pen) {
    if (!pen) return InvalidParameter;
    *pen = new (std::nothrow) GpPen(color, width);
    return *pen ? Ok : OutOfMemory;
}

GpStatus GdipDeletePen(GpPen* pen) {
    if (!pen) return InvalidParameter;
    delete pen;
    return Ok;
}

GpStatus GdipSetPenColor(GpPen* pen, ARGB color) {
    if (!pen) return InvalidParameter;
    pen->m_color = color;
    return Ok;
}

GpStatus GdipGetPenColor(GpPen* pen, ARGB* color) {
    if (!pen || !color) return InvalidParameter;
    *color = pen->m_color;
    return Ok;
}

GpStatus GdipSetPenWidth(GpPen* pen, REAL width) {
    if (!pen) return InvalidParameter;
    pen->m_fWidth = width;
    return Ok;
}

GpStatus GdipGetPenWidth(GpPen* pen, REAL* width) {
    if (!pen || !width) return InvalidParameter;
    *width = pen->m_fWidth;
    return Ok;
}

GpStatus GdipCreateSolidFill(ARGB color, GpSolidFill** brush) {
    if (!brush) return InvalidParameter;
    *brush = new (std::nothrow) GpSolidFill(color);
    return *brush ? Ok : OutOfMemory;
}

GpStatus GdipSetSolidFillColor(GpSolidFill* brush, ARGB color) {
    if (!brush) return InvalidParameter;
    brush->m_color = color;
    return Ok;
}

GpStatus GdipGetSolidFillColor(GpSolidFill* brush, ARGB* color) {
    if (!brush || !color) return InvalidParameter;
    *color = brush->m_color;
    return Ok;
}

GpStatus GdipDeleteBrush(GpBrush* brush) {
    if (!brush) return InvalidParameter;
    delete brush;
    return Ok;
}

GpStatus GdipDrawLine(GpGraphics* graphics, GpPen* pen, REAL x1, REAL y1, REAL x2, REAL y2) {
    return StrokeWith(graphics, pen, [=](cairo_t* cr) {
        cairo_move_to(cr, x1, y1);
        cairo_line_to(cr, x2, y2);
    });
}

GpStatus GdipDrawLineI(GpGraphics* graphics, GpPen* pen, INT x1, INT y1, INT x2, INT y2) {
    return GdipDrawLine(graphics, pen, (REAL)x1, (REAL)y1, (REAL)x2, (REAL)y2);
}

GpStatus GdipDrawLines(GpGraphics* graphics, GpPen* pen, const GpPointF* points, INT count) {
    if (!points || count < 2) return InvalidParameter;
    return StrokeWith(graphics, pen, PointsPath(points, count, false));
}

GpStatus GdipDrawLinesI(GpGraphics* graphics, GpPen* pen, const GpPoint* points, INT count) {
    if (!points || count < 2) return InvalidParameter;
    return StrokeWith(graphics, pen, PointsPath(points, count, false));
}

GpStatus GdipDrawRectangle(GpGraphics* graphics, GpPen* pen, REAL x, REAL y, REAL width, REAL height) {
    return StrokeWith(graphics, pen, RectanglePath(x, y, width, height));
}

GpStatus GdipDrawRectangleI(GpGraphics* graphics, GpPen* pen, INT x, INT y, INT width, INT height) {
    return GdipDrawRectangle(graphics, pen, (REAL)x, (REAL)y, (REAL)width, (REAL)height);
}

GpStatus GdipFillRectangle(GpGraphics* graphics, GpBrush* brush, REAL x, REAL y, REAL width, REAL height) {
    return FillWith(graphics, brush, RectanglePath(x, y, width, height));
}

GpStatus GdipFillRectangleI(GpGraphics* graphics, GpBrush* brush, INT x, INT y, INT width, INT height) {
    return GdipFillRectangle(graphics, brush, (REAL)x, (REAL)y, (REAL)width, (REAL)height);
}

GpStatus GdipDrawEllipse(GpGraphics* graphics, GpPen* pen, REAL x, REAL y, REAL width, REAL height) {
    return StrokeWith(graphics, pen, EllipsePath(x, y, width, height));
}

GpStatus GdipDrawEllipseI(GpGraphics* graphics, GpPen* pen, INT x, INT y, INT width, INT height) {
    return GdipDrawEllipse(graphics, pen, (REAL)x, (REAL)y, (REAL)width, (REAL)height);
}

GpStatus GdipFillEllipse(GpGraphics* graphics, GpBrush* brush, REAL x, REAL y, REAL width, REAL height) {
    return FillWith(graphics, brush, EllipsePath(x, y, width, height));
}

GpStatus GdipFillEllipseI(GpGraphics* graphics, GpBrush* brush, INT x, INT y, INT width, INT height) {
    return GdipFillEllipse(graphics, brush, (REAL)x, (REAL)y, (REAL)width, (REAL)height);
}

GpStatus GdipDrawArc(GpGraphics* graphics, GpPen* pen, REAL x, REAL y, REAL width, REAL height, REAL startAngle,
                     REAL sweepAngle) {
    return StrokeWith(graphics, pen, [=](cairo_t* cr) {
        cairo_new_sub_path(cr);
        ArcPath(cr, x, y, width, height, startAngle, sweepAngle);
    });
}

GpStatus GdipDrawArcI(GpGraphics* graphics, GpPen* pen, INT x, INT y, INT width, INT height, REAL startAngle,
                      REAL sweepAngle) {
    return GdipDrawArc(graphics, pen, (REAL)x, (REAL)y, (REAL)width, (REAL)height, startAngle, sweepAngle);
}

GpStatus GdipDrawPie(GpGraphics* graphics, GpPen* pen, REAL x, REAL y, REAL width, REAL height, REAL startAngle,
                     REAL sweepAngle) {
    return StrokeWith(graphics, pen, PiePath(x, y, width, height, startAngle, sweepAngle));
}

GpStatus GdipDrawPieI(GpGraphics* graphics, GpPen* pen, INT x, INT y, INT width, INT height, REAL startAngle,
                      REAL sweepAngle) {
    return GdipDrawPie(graphics, pen, (REAL)x, (REAL)y, (REAL)width, (REAL)height, startAngle, sweepAngle);
}

GpStatus GdipFillPie(GpGraphics* graphics, GpBrush* brush, REAL x, REAL y, REAL width, REAL height, REAL startAngle,
                     REAL sweepAngle) {
    return FillWith(graphics, brush, PiePath(x, y, width, height, startAngle, sweepAngle));
}

GpStatus GdipFillPieI(GpGraphics* graphics, GpBrush* brush, INT x, INT y, INT width, INT height, REAL startAngle,
                      REAL sweepAngle) {
    return GdipFillPie(graphics, brush, (REAL)x, (REAL)y, (REAL)width, (REAL)height, startAngle, sweepAngle);
}

GpStatus GdipDrawPolygon(GpGraphics* graphics, GpPen* pen, const GpPointF* points, INT count) {
    if (!points || count < 2) return InvalidParameter;
    return StrokeWith(graphics, pen, PointsPath(points, count, true));
}

GpStatus GdipDrawPolygonI(GpGraphics* graphics, GpPen* pen, const GpPoint* points, INT count) {
    if (!points || count < 2) return InvalidParameter;
    return StrokeWith(graphics, pen, PointsPath(points, count, true));
}

GpStatus GdipFillPolygon(GpGraphics* graphics, GpBrush* brush, const GpPointF* points, INT count, GpFillMode mode) {
    if (!points || count < 2) return InvalidParameter;
    return FillWith(graphics, brush, PointsPath(points, count, true), mode == FillModeWinding);
}

GpStatus GdipFillPolygonI(GpGraphics* graphics, GpBrush* brush, const GpPoint* points, INT count, GpFillMode mode) {
    if (!points || count < 2) return InvalidParameter;
    return FillWith(graphics, brush, PointsPath(points, count, true), mode == FillModeWinding);
}

GpStatus GdipCreateBitmapFromFile(const WCHAR* fileName, GpBitmap** bitmap) {
    if (!bitmap) return InvalidParameter;
    CVGdipBitmap* made = nullptr;
    GpStatus status = CVGdipBitmap::FromFile(fileName, &made);
    *bitmap = made;
    return status;
}

GpStatus GdipLoadImageFromFile(const WCHAR* fileName, GpImage** image) {
    if (!image) return InvalidParameter;
    CVGdipBitmap* made = nullptr;
    GpStatus status = CVGdipBitmap::FromFile(fileName, &made);
    *image = made;
    return status;
}

GpStatus GdipCreateBitmapFromScan0(INT width, INT height, INT stride, PixelFormat format, BYTE* scan0,
                                   GpBitmap** bitmap) {
    if (!bitmap) return InvalidParameter;
    CVGdipBitmap* made = nullptr;
    GpStatus status = CVGdipBitmap::FromScan0(width, height, stride, format, scan0, &made);
    *bitmap = made;
    return status;
}

GpStatus GdipDisposeImage(GpImage* image) {
    if (!image) return InvalidParameter;
    delete image;
    return Ok;
}

GpStatus GdipGetImageWidth(GpImage* image, UINT* width) {
    CVGdipBitmap* b = AsBitmap(image);
    if (!b || !width) return InvalidParameter;
    *width = b->GetWidth();
    return Ok;
}

GpStatus GdipGetImageHeight(GpImage* image, UINT* height) {
    CVGdipBitmap* b = AsBitmap(image);
    if (!b || !height) return InvalidParameter;
    *height = b->GetHeight();
    return Ok;
}

GpStatus GdipGetImagePixelFormat(GpImage* image, PixelFormat* format) {
    CVGdipBitmap* b = AsBitmap(image);
    if (!b || !format) return InvalidParameter;
    *format = b->GetPixelFormat();
    return Ok;
}

GpStatus GdipImageRotateFlip(GpImage* image, RotateFlipType type) {
    CVGdipBitmap* b = AsBitmap(image);
    return b ? b->RotateFlip(type) : InvalidParameter;
}

GpStatus GdipBitmapLockBits(GpBitmap* bitmap, const GpRect* rect, UINT flags, PixelFormat format,
                            BitmapData* lockedData) {
    CVGdipBitmap* b = AsBitmap(bitmap);
    return b ? b->LockBits(rect, flags, format, lockedData) : InvalidParameter;
}

GpStatus GdipBitmapUnlockBits(GpBitmap* bitmap, BitmapData* lockedData) {
    CVGdipBitmap* b = AsBitmap(bitmap);
    return b ? b->UnlockBits(lockedData) : InvalidParameter;
}

GpStatus GdipSaveImageToFile(GpImage* image, const WCHAR* fileName, const CLSID* encoder, const EncoderParameters*) {
    CVGdipBitmap* b = AsBitmap(image);
    if (!b || !encoder) return InvalidParameter;
    return b->Save(fileName, *encoder);
}

GpStatus GdipGetImageEncodersSize(UINT* count, UINT* size) {
    if (!count || !size) return InvalidParameter;
    *count = kEncoderCount;
    *size = EncodersSize();
    return Ok;
}

GpStatus GdipGetImageEncoders(UINT count, UINT size, ImageCodecInfo* encoders) {
    if (!encoders) return InvalidParameter;
    if (count != kEncoderCount || size != EncodersSize()) return GenericError;
    // The strings follow the records in the caller's block.
    BYTE* text = reinterpret_cast<BYTE*>(encoders + kEncoderCount);
    auto place = [&text](const wchar_t* s) {
        size_t bytes = TextBytes(s);
        memcpy(text, s, bytes);
        const WCHAR* at = reinterpret_cast<const WCHAR*>(text);
        text += bytes;
        return at;
    };
    for (UINT i = 0; i < kEncoderCount; ++i) {
        const EncoderEntry& e = kEncoders[i];
        ImageCodecInfo& info = encoders[i];
        memset(&info, 0, sizeof info);
        info.Clsid = *e.clsid;
        info.FormatID = *e.format;
        info.CodecName = place(e.name);
        info.FormatDescription = place(e.description);
        info.FilenameExtension = place(e.extensions);
        info.MimeType = place(e.mime);
        info.Flags = 0x00010007;  // encoder, decoder, supports bitmaps, built in
        info.Version = 1;
    }
    return Ok;
}
