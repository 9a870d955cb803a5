#pragma once
// The raster-operation engine behind BitBlt, StretchBlt, PatBlt and FillRect:
// one ternary raster operation of a solid pattern, an optional source bitmap
// and the destination, applied bit-wise to destination-encoded pixel values.
// Scaling is nearest neighbour (each destination pixel takes the source pixel
// under its centre) whatever the stretch mode. Used in two steps so that the
// caller can bring GL's pixels in before and send them back after: Plan clips
// and reports the rectangles touched, Run draws.
#include "CVGdiBitmap.h"

#include <vector>

class CVGdiRaster {
public:
    // The DC attributes that take part in colour conversion.
    struct Colors {
        COLORREF crBrush = RGB(255, 255, 255);
        COLORREF crDstText = RGB(0, 0, 0);        // mono source: 0 bits become this
        COLORREF crDstBk = RGB(255, 255, 255);    // mono source: 1 bits become this
        COLORREF crSrcBk = RGB(255, 255, 255);    // colour source to mono: this colour gives 1
    };

    // src may be null when the operation does not use a source.
    CVGdiRaster(CVGdiBitmap& dst, const CVGdiBitmap* src, DWORD rop);

    // Destination rectangle (x, y, w, h) from source (sx, sy, sw, sh), both
    // top-down; a negative extent counts from the other edge, and opposite
    // signs on one axis mirror the image. Destination pixels outside the
    // destination, or whose source pixel lies outside the source, are left
    // alone. Returns 0 when no pixel is drawn.
    int Plan(int x, int y, int w, int h, int sx, int sy, int sw, int sh);
    // Destination pixels the planned operation writes, and source pixels it reads.
    const RECT& GetDestRect() const { return m_rcDest; }
    const RECT& GetSourceRect() const { return m_rcSource; }
    void Run(const Colors& colors);

    // Which of pattern, source and destination a raster operation reads.
    static int UsesPattern(DWORD rop);
    static int UsesSource(DWORD rop);
    static int UsesDest(DWORD rop);
    // The ternary operation itself on packed values (bits P, S, D).
    static uint32_t Apply(DWORD rop, uint32_t pattern, uint32_t source, uint32_t dest);

private:
    CVGdiBitmap& m_dst;
    const CVGdiBitmap* m_src;
    DWORD m_rop;
    int m_bPlanned = 0;
    RECT m_rcDest{};
    RECT m_rcSource{};
    std::vector<int> m_xmap;  // per destination column of m_rcDest: source column
    std::vector<int> m_ymap;  // per destination row of m_rcDest: source row
};
