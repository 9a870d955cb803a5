#include "platform/CVGdipGraphics.h"

#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <new>
#include <vector>

#include "platform/CVGdiBitmap.h"
#include "platform/CVGdiDC.h"
#include "platform/CVGdiHandleTable.h"

namespace {

// GDI+ centres pixel (x, y) on the integer point, Cairo on (x + 0.5, y + 0.5).
const double kPixelCentre = 0.5;

void SetUp(cairo_t* cr, REAL width, int winding, int antialias) {
    cairo_translate(cr, kPixelCentre, kPixelCentre);
    cairo_set_line_width(cr, std::max(1.0, (double)width));
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_BUTT);
    cairo_set_line_join(cr, CAIRO_LINE_JOIN_MITER);
    cairo_set_miter_limit(cr, 10.0);
    cairo_set_fill_rule(cr, winding ? CAIRO_FILL_RULE_WINDING : CAIRO_FILL_RULE_EVEN_ODD);
    cairo_set_antialias(cr, antialias ? CAIRO_ANTIALIAS_GRAY : CAIRO_ANTIALIAS_NONE);
}

uint32_t RgbFromColorRef(COLORREF c) { return ((c & 0xFF) << 16) | (c & 0xFF00) | ((c >> 16) & 0xFF); }
COLORREF ColorRefFromRgb(uint32_t p) { return RGB((p >> 16) & 0xFF, (p >> 8) & 0xFF, p & 0xFF); }

}  // namespace

int CVGdipGraphics::IsAntiAliased() const {
    return m_nSmoothing == SmoothingModeHighQuality || m_nSmoothing == SmoothingModeAntiAlias ||
           m_nSmoothing == SmoothingModeAntiAlias8x8;
}

GpStatus CVGdipGraphics::Stroke(const PathBuilder& path, ARGB color, REAL width) {
    return Paint(path, color, width, kStroke, 0);
}

GpStatus CVGdipGraphics::Fill(const PathBuilder& path, ARGB color, int winding) {
    return Paint(path, color, 1.0f, kFill, winding);
}

GpStatus CVGdipGraphics::Clear(ARGB color) { return Paint(nullptr, color, 1.0f, kClear, 0); }

GpStatus CVGdipGraphics::Paint(const PathBuilder& path, ARGB color, REAL width, Mode mode, int winding) {
    CVGdiDC* dc = CVGdiHandleTable::FindAs<CVGdiDC>(CVHandleValue(m_hdc));
    CVGdiBitmap* bmp = dc ? dc->GetBitmap() : nullptr;
    if (!bmp) return Win32Error;
    const int w = bmp->GetWidth(), h = bmp->GetHeight();
    const int antialias = IsAntiAliased();

    // The pixels this shape can touch, with a pixel of slack for smoothing.
    RECT rc{0, 0, w, h};
    if (mode != kClear) {
        cairo_surface_t* scratch = cairo_image_surface_create(CAIRO_FORMAT_A8, 1, 1);
        cairo_t* measure = cairo_create(scratch);
        SetUp(measure, width, winding, antialias);
        path(measure);
        double x1, y1, x2, y2;
        if (mode == kStroke) cairo_stroke_extents(measure, &x1, &y1, &x2, &y2);
        else cairo_fill_extents(measure, &x1, &y1, &x2, &y2);
        bool empty = cairo_status(measure) != CAIRO_STATUS_SUCCESS || x2 <= x1 || y2 <= y1;
        cairo_destroy(measure);
        cairo_surface_destroy(scratch);
        if (empty) return Ok;
        rc.left = std::max(0.0, std::floor(x1 + kPixelCentre) - 1);
        rc.top = std::max(0.0, std::floor(y1 + kPixelCentre) - 1);
        rc.right = std::min((double)w, std::ceil(x2 + kPixelCentre) + 1);
        rc.bottom = std::min((double)h, std::ceil(y2 + kPixelCentre) + 1);
        if (rc.right <= rc.left || rc.bottom <= rc.top) return Ok;
    }
    const int rw = rc.right - rc.left, rh = rc.bottom - rc.top;

    // GL's pixels of the rectangle first, as for any GDI call on the DC: the
    // whole rectangle goes back to GL afterwards.
    dc->PrepareRead(rc);

    // 32-bit BI_RGB bitmaps are drawn in place; others through an RGB copy
    // of the rectangle, converted back where a pixel changed.
    const bool direct = bmp->GetGLLayout() == CVGdiBitmap::kGLBGRA8888 &&
                        bmp->GetStride() == cairo_format_stride_for_width(CAIRO_FORMAT_RGB24, w);
    std::vector<uint32_t> before, copy;
    std::vector<uint32_t> natives(rw);
    cairo_surface_t* target;
    if (direct) {
        // Bottom-up rows are addressed from the top with a negative stride, so
        // both row orders rasterise alike (a flipping transform would turn
        // Cairo's tie rule on pixel centres upside down).
        BYTE* top = bmp->GetRow(0);
        int stride = bmp->IsTopDown() ? bmp->GetStride() : -bmp->GetStride();
        target = cairo_image_surface_create_for_data(top, CAIRO_FORMAT_RGB24, w, h, stride);
    } else {
        try {
            before.resize((size_t)rw * rh);
        } catch (const std::bad_alloc&) {
            return OutOfMemory;
        }
        for (int y = 0; y < rh; ++y) {
            bmp->ReadRow(rc.left, rc.top + y, rw, natives.data());
            for (int x = 0; x < rw; ++x) before[(size_t)y * rw + x] = RgbFromColorRef(bmp->ColorFromNative(natives[x]));
        }
        copy = before;
        target = cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(copy.data()),
                                                     CAIRO_FORMAT_RGB24, rw, rh, rw * 4);
    }
    cairo_t* cr = cairo_create(target);
    if (!direct) cairo_translate(cr, -rc.left, -rc.top);
    // What is sent back to GL afterwards is rc, so nothing outside it may change.
    cairo_rectangle(cr, rc.left, rc.top, rw, rh);
    cairo_clip(cr);
    SetUp(cr, width, winding, antialias);
    const double a = ((color >> 24) & 0xFF) / 255.0, r = ((color >> 16) & 0xFF) / 255.0,
                 g = ((color >> 8) & 0xFF) / 255.0, b = (color & 0xFF) / 255.0;
    if (mode == kClear) {
        cairo_set_source_rgb(cr, r, g, b);
        cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
        cairo_paint(cr);
    } else {
        cairo_set_source_rgba(cr, r, g, b, a);
        path(cr);
        if (mode == kStroke) cairo_stroke(cr);
        else cairo_fill(cr);
    }
    cairo_destroy(cr);
    cairo_surface_flush(target);
    cairo_surface_destroy(target);

    if (!direct) {
        for (int y = 0; y < rh; ++y) {
            bmp->ReadRow(rc.left, rc.top + y, rw, natives.data());
            bool changed = false;
            for (int x = 0; x < rw; ++x) {
                size_t i = (size_t)y * rw + x;
                if ((copy[i] & 0xFFFFFF) == (before[i] & 0xFFFFFF)) continue;
                natives[x] = bmp->NativeFromColor(ColorRefFromRgb(copy[i]));
                changed = true;
            }
            if (changed) bmp->WriteRow(rc.left, rc.top + y, rw, natives.data());
        }
    }
    dc->CommitWrite(rc);
    return Ok;
}
