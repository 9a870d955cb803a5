#include "platform/CVGdiRaster.h"

#include <algorithm>
#include <cstdint>

namespace {
BYTE Code(DWORD rop) { return BYTE(rop >> 16); }

// Source pixel under the centre of destination pixel i of n, over a source
// span of m pixels, optionally mirrored.
int64_t MapCoord(int64_t i, int64_t n, int64_t m, bool flip) {
    int64_t f = flip ? n - 1 - i : i;
    return ((2 * f + 1) * m) / (2 * n);
}

// Destination indexes [first, last) whose mapped source lies in [lo, hi);
// the map is monotonic, so they form one run.
void ValidRun(const std::vector<int>& map, int lo, int hi, int& first, int& last) {
    first = 0;
    last = 0;
    int n = (int)map.size();
    int i = 0;
    while (i < n && (map[i] < lo || map[i] >= hi)) ++i;
    first = i;
    while (i < n && map[i] >= lo && map[i] < hi) ++i;
    last = i;
}
}  // namespace

CVGdiRaster::CVGdiRaster(CVGdiBitmap& dst, const CVGdiBitmap* src, DWORD rop)
    : m_dst(dst), m_src(UsesSource(rop) ? src : nullptr), m_rop(rop) {}

int CVGdiRaster::UsesPattern(DWORD rop) {
    BYTE c = Code(rop);
    return ((c >> 4) ^ c) & 0x0F ? 1 : 0;
}
int CVGdiRaster::UsesSource(DWORD rop) {
    BYTE c = Code(rop);
    return ((c >> 2) ^ c) & 0x33 ? 1 : 0;
}
int CVGdiRaster::UsesDest(DWORD rop) {
    BYTE c = Code(rop);
    return ((c >> 1) ^ c) & 0x55 ? 1 : 0;
}

uint32_t CVGdiRaster::Apply(DWORD rop, uint32_t p, uint32_t s, uint32_t d) {
    switch (rop) {
    case SRCCOPY: return s;
    case SRCPAINT: return s | d;
    case SRCAND: return s & d;
    case SRCINVERT: return s ^ d;
    case NOTSRCCOPY: return ~s;
    case MERGECOPY: return p & s;
    case PATCOPY: return p;
    case PATINVERT: return p ^ d;
    case BLACKNESS: return 0;
    case WHITENESS: return ~0u;
    case DSTINVERT: return ~d;
    default: break;
    }
    // Any other code: the OR of the minterms its truth table selects, with
    // bit i of the code standing for P = i & 4, S = i & 2, D = i & 1.
    BYTE c = Code(rop);
    uint32_t r = 0;
    for (int i = 0; i < 8; ++i) {
        if (c & (1 << i)) r |= ((i & 4) ? p : ~p) & ((i & 2) ? s : ~s) & ((i & 1) ? d : ~d);
    }
    return r;
}

int CVGdiRaster::Plan(int x32, int y32, int w32, int h32, int sx32, int sy32, int sw32, int sh32) {
    m_bPlanned = 0;
    // 64 bits, so that no extent or edge can overflow whatever the caller passes.
    int64_t x = x32, y = y32, w = w32, h = h32, sx = sx32, sy = sy32, sw = sw32, sh = sh32;
    bool flipX = false, flipY = false;
    if (w < 0) { x += w; w = -w; flipX = !flipX; }
    if (h < 0) { y += h; h = -h; flipY = !flipY; }
    if (!m_src) { sx = x; sy = y; sw = w; sh = h; flipX = flipY = false; }
    if (sw < 0) { sx += sw; sw = -sw; flipX = !flipX; }
    if (sh < 0) { sy += sh; sh = -sh; flipY = !flipY; }
    if (w == 0 || h == 0 || sw == 0 || sh == 0) return 0;

    // Clip the destination first, so that the maps are only as long as the
    // part that can be drawn.
    const int x0 = (int)std::max<int64_t>(x, 0), x1 = (int)std::min<int64_t>(x + w, m_dst.GetWidth());
    const int y0 = (int)std::max<int64_t>(y, 0), y1 = (int)std::min<int64_t>(y + h, m_dst.GetHeight());
    if (x0 >= x1 || y0 >= y1) return 0;
    m_xmap.resize(x1 - x0);
    m_ymap.resize(y1 - y0);
    // Source positions far outside any bitmap are clamped; they are dropped below anyway.
    auto clampCoord = [](int64_t v) { return (int)std::clamp<int64_t>(v, INT32_MIN / 2, INT32_MAX / 2); };
    for (int i = x0; i < x1; ++i) m_xmap[i - x0] = clampCoord(sx + MapCoord(i - x, w, sw, flipX));
    for (int j = y0; j < y1; ++j) m_ymap[j - y0] = clampCoord(sy + MapCoord(j - y, h, sh, flipY));

    int cx0 = 0, cx1 = (int)m_xmap.size(), cy0 = 0, cy1 = (int)m_ymap.size();
    if (m_src) {
        ValidRun(m_xmap, 0, m_src->GetWidth(), cx0, cx1);
        ValidRun(m_ymap, 0, m_src->GetHeight(), cy0, cy1);
        if (cx0 >= cx1 || cy0 >= cy1) return 0;
    }
    m_xmap.erase(m_xmap.begin() + cx1, m_xmap.end());
    m_xmap.erase(m_xmap.begin(), m_xmap.begin() + cx0);
    m_ymap.erase(m_ymap.begin() + cy1, m_ymap.end());
    m_ymap.erase(m_ymap.begin(), m_ymap.begin() + cy0);
    m_rcDest = RECT{x0 + cx0, y0 + cy0, x0 + cx1, y0 + cy1};
    if (m_src) {
        auto [xmin, xmax] = std::minmax_element(m_xmap.begin(), m_xmap.end());
        auto [ymin, ymax] = std::minmax_element(m_ymap.begin(), m_ymap.end());
        m_rcSource = RECT{*xmin, *ymin, *xmax + 1, *ymax + 1};
    } else {
        m_rcSource = RECT{0, 0, 0, 0};
    }
    m_bPlanned = 1;
    return 1;
}

void CVGdiRaster::Run(const Colors& colors) {
    if (!m_bPlanned) return;
    const int width = m_rcDest.right - m_rcDest.left;
    const uint32_t mask = m_dst.GetColorMask();
    const uint32_t pattern = UsesPattern(m_rop) ? m_dst.NativeFromColor(colors.crBrush) : 0;
    const bool readDest = UsesDest(m_rop) != 0;

    // How a source value becomes a destination value.
    enum { kSame, kMonoToColor, kColorToMono, kByColor } conv = kSame;
    uint32_t monoZero = 0, monoOne = 0, srcBk = 0;
    if (m_src) {
        if (m_src->IsMono() && m_dst.IsMono()) {
            conv = kSame;
        } else if (m_src->IsMono()) {
            conv = kMonoToColor;
            monoZero = m_dst.NativeFromColor(colors.crDstText);
            monoOne = m_dst.NativeFromColor(colors.crDstBk);
        } else if (m_dst.IsMono()) {
            conv = kColorToMono;
            srcBk = m_src->NativeFromColor(colors.crSrcBk) & m_src->GetColorMask();
        } else {
            conv = m_src->HasSameEncoding(m_dst) ? kSame : kByColor;
        }
    }
    // A plain copy between like bitmaps carries every bit, the 32-bit
    // reserved byte included; everything else writes colour bits only.
    const bool verbatim = m_rop == SRCCOPY && conv == kSame;
    // Unscaled, unmirrored: source columns are consecutive.
    bool straight = m_src != nullptr;
    for (int i = 1; straight && i < width; ++i) straight = m_xmap[i] == m_xmap[i - 1] + 1;

    std::vector<uint32_t> row(width);
    if (!m_src && !readDest) {
        // The pattern alone: one value for every pixel.
        std::fill(row.begin(), row.end(), Apply(m_rop, pattern, 0, 0) & mask);
        for (size_t j = 0; j < m_ymap.size(); ++j) m_dst.WriteRow(m_rcDest.left, m_rcDest.top + (int)j, width, row.data());
        return;
    }

    // Source rows are read before anything is written when source and
    // destination are one bitmap, so overlapping copies see the old pixels.
    const int sx0 = m_rcSource.left, sw = m_rcSource.right - m_rcSource.left;
    std::vector<uint32_t> srcCache;
    if (m_src == &m_dst) {
        const int sh = m_rcSource.bottom - m_rcSource.top;
        srcCache.resize((size_t)sw * sh);
        for (int j = 0; j < sh; ++j) m_src->ReadRow(sx0, m_rcSource.top + j, sw, &srcCache[(size_t)j * sw]);
    }

    std::vector<uint32_t> srcRow(m_src ? sw : 0);
    uint32_t lastIn = 0, lastOut = 0;
    bool haveLast = false;
    for (size_t j = 0; j < m_ymap.size(); ++j) {
        const int dy = m_rcDest.top + (int)j;
        if (readDest) m_dst.ReadRow(m_rcDest.left, dy, width, row.data());
        const uint32_t* s = nullptr;
        if (m_src) {
            if (!srcCache.empty()) {
                s = &srcCache[(size_t)(m_ymap[j] - m_rcSource.top) * sw];
            } else {
                m_src->ReadRow(sx0, m_ymap[j], sw, srcRow.data());
                s = srcRow.data();
            }
        }
        if (verbatim && straight) {
            std::copy(s + (m_xmap[0] - sx0), s + (m_xmap[0] - sx0) + width, row.begin());
            m_dst.WriteRow(m_rcDest.left, dy, width, row.data());
            continue;
        }
        for (int i = 0; i < width; ++i) {
            uint32_t sv = 0;
            if (s) {
                uint32_t v = s[m_xmap[i] - sx0];
                switch (conv) {
                case kSame: sv = v; break;
                case kMonoToColor: sv = v ? monoOne : monoZero; break;
                case kColorToMono: sv = (v & m_src->GetColorMask()) == srcBk ? 1 : 0; break;
                case kByColor:
                    if (!haveLast || v != lastIn) {
                        lastIn = v;
                        lastOut = m_dst.NativeFromColor(m_src->ColorFromNative(v));
                        haveLast = true;
                    }
                    sv = lastOut;
                    break;
                }
            }
            row[i] = verbatim ? sv : (Apply(m_rop, pattern, sv, row[i]) & mask);
        }
        m_dst.WriteRow(m_rcDest.left, dy, width, row.data());
    }
}
