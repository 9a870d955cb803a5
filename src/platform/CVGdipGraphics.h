#pragma once
// The graphics behind GpGraphics: Cairo drawing into the bitmap selected into
// a memory DC. The DC is looked up by handle on every call, so a graphics
// outliving its DC, or a bitmap swapped under it, is safe (see GdiPlusFlat.h
// for the pixel model and the exchange with GL).
#include <functional>

#include "GdiPlusFlat.h"

typedef struct _cairo cairo_t;

class CVGdipGraphics : public GpGraphics {
public:
    explicit CVGdipGraphics(HDC hdc) : m_hdc(hdc) {}

    HDC GetDC() const { return m_hdc; }
    SmoothingMode GetSmoothingMode() const { return m_nSmoothing; }
    void SetSmoothingMode(SmoothingMode mode) { m_nSmoothing = mode; }
    // HighQuality, AntiAlias and AntiAlias8x8 smooth; the other modes do not.
    int IsAntiAliased() const;

    // Adds one shape to the path, in GDI+ coordinates (top-down, pixel
    // centres on integers).
    typedef std::function<void(cairo_t*)> PathBuilder;
    GpStatus Stroke(const PathBuilder& path, ARGB color, REAL width);
    GpStatus Fill(const PathBuilder& path, ARGB color, int winding);
    // Every pixel of the bitmap becomes color, opaque.
    GpStatus Clear(ARGB color);

private:
    enum Mode { kStroke, kFill, kClear };
    GpStatus Paint(const PathBuilder& path, ARGB color, REAL width, Mode mode, int winding);

    HDC m_hdc;
    SmoothingMode m_nSmoothing = SmoothingModeDefault;
};
