#include "actions/CVRenderAction.h"

#include <GL/gl.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <cwchar>

#include "core/CVNode.h"
#include "image/CSimpleDIB.h"
#include "image/CVSearchPaths.h"
#include "render/CVLight.h"
#include "platform/BaseTsd.h"
#include "platform/CException.h"
#include "platform/CVAccumBuffer.h"
#include "platform/GdiPlusFlat.h"
#include "render/CVAttribStack.h"
#include "render/CVDeferredNodeInfo.h"
#include "render/CVGLRenderArea.h"

IMPLEMENT_DYNAMIC(CVRenderAction, CVGLAction)

namespace {

// Sub-pixel offsets of the three jittered passes; x and y are scaled
// differently (5.5 and 3.0) on purpose.
const float kJitter[3][2] = {{0.10339227f, 0.43179670f}, {0.38060161f, -0.14956191f}, {-0.17381711f, 0.013155341f}};
const float kJitterScaleX = 5.5f;
const float kJitterScaleY = 3.0f;

// What a deferred node may change while it is replayed.
const GLbitfield kReplayAttribs = GL_ENABLE_BIT | GL_POLYGON_BIT | GL_LINE_BIT | GL_POINT_BIT;

const wchar_t kBitmapPrefix[] = L"HBITMAP:";
const int kBitmapPrefixLength = 8;
const int kPathLength = 1024;

COLORREF ToColorRef(const RGBAColorStruct& c) {
    return RGB((int)(c.r * 255.0f), (int)(c.g * 255.0f), (int)(c.b * 255.0f));
}

// A gradient component: scaled, truncated and masked, so a step past 1 or
// below 0 wraps rather than saturates.
ARGB Component(float c) { return (ARGB)((int)(c * 255.0f) & 0xFF); }

// Many small pieces are drawn into a 32-bit scratch section off the GL side
// and handed over in one blit: every GDI call on the area's DC is a round
// trip to GL's colour buffer. Null when the section cannot be made.
HDC MakeScratch(CSimpleDIB& scratch, int width, int height) {
    try {
        scratch.Create(width, height, nullptr);
    } catch (const CMemoryException&) {
        return nullptr;
    }
    return scratch.GetDC();
}

// A name used as a path as it stands: UNC, "//" or drive-letter paths.
bool IsFullPath(const CString& name) {
    if (name.GetLength() <= 2) return false;
    return (name[0] == L'\\' && name[1] == L'\\') || (name[0] == L'/' && name[1] == L'/') || name[1] == L':';
}

// The handle value after "HBITMAP:", read like a decimal int (sign and
// leading blanks allowed, stops at the first non-digit, clamped to 32 bits).
LONG ParseHandleValue(const CString& digits) {
    long long v = std::wcstoll(digits.GetString(), nullptr, 10);
    return (LONG)std::clamp<long long>(v, INT_MIN, INT_MAX);
}

}  // namespace

CVRenderAction::CVRenderAction(CVGLDevice* device) : CVGLAction(device) { Init(); }

CVRenderAction::CVRenderAction(CVGLRenderArea* area) : CVGLAction(area) { Init(); }

CVRenderAction::~CVRenderAction() {
    if (m_hBackgroundBitmap) DeleteObject(m_hBackgroundBitmap);
    // The area outlives us when others hold it; it must not keep our headlight.
    if (m_pRenderArea && m_pRenderArea->GetLightNode() == &m_Headlight) m_pRenderArea->SetLightNode(nullptr);
}

void CVRenderAction::Init() {
    m_bSwapBuffersAfterRender = 1;
    m_bClearColorBeforeRender = 1;
    m_bClearDepthBeforeRender = 1;
    m_Headlight.ambientIntensity.SetValue(0.2f);
    m_Headlight.intensity.SetValue(1.0f);
    m_Headlight.on.SetValue(0);
    m_ClearColor = {0.0f, 0.0f, 0.0f, 1.0f};
    if (m_pRenderArea) m_pRenderArea->GetViewport(m_Viewport);
    m_nFillStyle = 0;
    m_strImageFilename.Empty();
    m_strLoadedImageName.Empty();
    m_nImageFitStyle = 1;
    m_nImageOffsetX = 0;
    m_nImageOffsetY = 0;
    m_nImageWidth = 0;
    m_nImageHeight = 0;
    m_fImageScale = 1.0f;
    m_bImageHasAlpha = 0;
    m_hBackgroundBitmap = nullptr;
    m_nGradientType = 7;
    m_StartGradientColor = {0.0f, 0.0f, 0.0f, 1.0f};
    m_EndGradientColor = {1.0f, 1.0f, 1.0f, 1.0f};
}

void CVRenderAction::Clone(const CVRenderAction* other) {
    int x, y, w, h;
    other->GetViewport(x, y, w, h);
    m_Viewport.Set(x, y, w, h);
    m_ClearColor = other->GetClearColor();
    m_bSwapBuffersAfterRender = other->GetSwapBuffersAfterRender();
    m_bClearColorBeforeRender = other->GetClearColorBeforeRender();
    SetHeadlightOn(other->IsHeadlightOn());
}

int CVRenderAction::Apply(CVNode* root) { return Apply(root, 1); }

int CVRenderAction::Apply(CVNode* root, int setViewport) {
    if (!root || !m_pRenderArea) return 0;
    CVGLRenderArea* area = m_pRenderArea;
    if (setViewport)
        DoSetViewport();
    else
        area->MakeCurrent();
    if (area->IsDropShadowsEnabled()) area->InitShadowMatrix();

    const int antialias = area->IsSceneAntialiasingEnabled();
    if (antialias) {
        int vx, vy, vw, vh;
        area->GetGLViewport(vx, vy, vw, vh);
        area->SetAntialiasingMode(1);
        for (int k = 0; k < 3; ++k) {
            area->MakeCurrent();
            // The jitter sits under the pass's own model-view push.
            glMatrixMode(GL_MODELVIEW);
            glPushMatrix();
            glTranslatef(kJitter[k][0] * kJitterScaleX / vw, kJitter[k][1] * kJitterScaleY / vh, 0.0f);
            RunPass(root);
            glMatrixMode(GL_MODELVIEW);
            glPopMatrix();
            CVAccum(k == 0 ? GL_LOAD : GL_ACCUM, 1.0f / 3.0f);
        }
        CVAccum(GL_RETURN, 1.0f);
        area->SetAntialiasingMode(2);
        m_bClearColorBeforeRender = 0;
        m_bClearDepthBeforeRender = 0;
    }
    RunPass(root);
    if (antialias) {
        area->SetAntialiasingMode(0);
        m_bClearColorBeforeRender = 1;
        m_bClearDepthBeforeRender = 1;
    }
    if (m_bSwapBuffersAfterRender) {
        glFinish();
        area->SwapBuffers();
    }
    return 1;
}

void CVRenderAction::RunPass(CVNode* root) {
    Reset();
    PreApplyGL();
    root->Traverse(this, nullptr, 0);
    RenderTransparentNodes();
    RenderAnnotationNodes();
    // Nodes deferred while the annotations were drawn.
    RenderTransparentNodes();
    PostApplyGL();
}

void CVRenderAction::PreActOn(CVNode* node) { node->Render(m_pState, m_pRenderArea); }

void CVRenderAction::PreApplyGL() {
    CVGLRenderArea* area = m_pRenderArea;
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    PushModelView();
    PushState();
    m_pState->m_nRenderPass = 1;

    if (!area->RenderAreaIsBitmap() && m_bClearColorBeforeRender && m_bClearDepthBeforeRender) {
        glClearColor(m_ClearColor.r, m_ClearColor.g, m_ClearColor.b, m_ClearColor.a);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    } else {
        if (m_bClearColorBeforeRender) {
            if (area->RenderAreaIsBitmap()) {
                PaintBackground();
            } else {
                glClearColor(m_ClearColor.r, m_ClearColor.g, m_ClearColor.b, m_ClearColor.a);
                glClear(GL_COLOR_BUFFER_BIT);
            }
        }
        if (m_bClearDepthBeforeRender) glClear(GL_DEPTH_BUFFER_BIT);
    }
    m_Headlight.Render(m_pState, area);
}

void CVRenderAction::PostApplyGL() {
    PopModelView();
    PopState();
    m_pState->m_nRenderPass = 0;
}

void CVRenderAction::PaintBackground() {
    CVGLRenderArea* area = m_pRenderArea;
    int x, y, w, h;
    area->GetViewport(x, y, w, h);
    const float s = area->GetGlobalScaleFactor();
    if (s < 1.0f) {
        x = (int)((x + 0.999) * s);
        y = (int)((y + 0.999) * s);
        w = (int)((w + 0.999) * s);
        h = (int)((h + 0.999) * s);
    }
    // Top and bottom as GL counts them; GDI normalises the rectangle.
    const RECT rect = {x, y + h, x + w, y};
    if (m_nFillStyle == 1) {
        PaintGradient(rect);
        return;
    }
    if (m_nFillStyle >= 2 && m_nFillStyle <= 4 && area->IsTexturingEnabled() && PaintImage(rect)) return;
    HBRUSH brush = CreateSolidBrush(ToColorRef(m_ClearColor));
    FillRect(area->GetHdc(), &rect, brush);
    DeleteObject(brush);
}

void CVRenderAction::PaintGradient(const RECT& rect) {
    const int x = rect.left, y = rect.bottom, w = rect.right - rect.left, h = rect.top - rect.bottom;
    const int t = m_nGradientType;
    const bool reverse = t == 5 || t == 6 || t == 9;
    const bool horizontal = t == 1 || t == 4 || t == 5;
    const RGBAColorStruct& from = reverse ? m_EndGradientColor : m_StartGradientColor;
    const RGBAColorStruct& to = reverse ? m_StartGradientColor : m_EndGradientColor;
    const float half = (horizontal ? w : h) * 0.5f;
    if (!(half > 0.0f)) return;
    const float step[3] = {(to.r - from.r) / half, (to.g - from.g) / half, (to.b - from.b) / half};
    const int n = 2 * (int)half;

    // Everything the strips cover, the first and last strips included.
    RECT cover;
    if (horizontal)
        cover = RECT{x, y, x + n + 2, y + h};
    else
        cover = RECT{x, y + h - n, x + w, y + h + 2};
    const int cw = cover.right - cover.left, ch = cover.bottom - cover.top;
    if (cw <= 0 || ch <= 0) return;
    CSimpleDIB scratch;
    HDC strips = MakeScratch(scratch, cw, ch);
    GpGraphics* graphics = nullptr;
    if (!strips || GdipCreateFromHDC(strips, &graphics) != Ok) return;
    GpSolidFill* brush = nullptr;
    GdipCreateSolidFill(0xFF000000, &brush);

    float c[3] = {from.r, from.g, from.b};
    for (int i = 0; i <= n; i += 2) {
        for (int k = 0; k < 3; ++k) c[k] += step[k];  // the first strip already carries one step
        GdipSetSolidFillColor(brush, 0xFF000000 | Component(c[0]) << 16 | Component(c[1]) << 8 | Component(c[2]));
        if (horizontal)
            GdipFillRectangleI(graphics, brush, x + i - cover.left, y - cover.top, 2, h);
        else
            GdipFillRectangleI(graphics, brush, x - cover.left, y + h - i - cover.top, w, 2);
    }
    GdipDeleteBrush(brush);
    GdipDeleteGraphics(graphics);
    BitBlt(m_pRenderArea->GetHdc(), cover.left, cover.top, cw, ch, strips, 0, 0, SRCCOPY);
}

int CVRenderAction::PaintImage(const RECT& rect) {
    LoadBackgroundTextureImage();
    if (!m_hBackgroundBitmap) return 0;
    CVGLRenderArea* area = m_pRenderArea;
    HDC hdc = area->GetHdc();
    HDC memory = CreateCompatibleDC(hdc);
    HGDIOBJ oldBitmap = memory ? SelectObject(memory, m_hBackgroundBitmap) : nullptr;
    if (!oldBitmap) {  // e.g. the host still has the handed-over bitmap selected somewhere
        if (memory) DeleteDC(memory);
        return 0;
    }
    const int x = rect.left, y = rect.bottom, w = rect.right - rect.left, h = rect.top - rect.bottom;
    const COLORREF clear = ToColorRef(m_ClearColor);

    DWORD rop = SRCCOPY;
    HBRUSH mergeBrush = nullptr;
    HGDIOBJ oldBrush = nullptr;
    if (m_nFillStyle == 3 || m_nFillStyle == 4 || m_bImageHasAlpha) {
        // MERGECOPY: image AND the clear colour.
        mergeBrush = CreateSolidBrush(clear);
        oldBrush = SelectObject(hdc, mergeBrush);
        rop = MERGECOPY;
    }
    const float factor = m_fImageScale > 1.0f ? m_fImageScale : area->GetGlobalScaleFactor();
    int iw = m_nImageWidth, ih = m_nImageHeight;
    if (factor != 1.0f) {
        iw = (int)((iw + 0.999) * factor);
        ih = (int)((ih + 0.999) * factor);
    }
    SetStretchBltMode(hdc, COLORONCOLOR);

    const int fit = m_nImageFitStyle;
    if (fit == 1) {
        StretchBlt(hdc, x, y, w, h, memory, 0, 0, m_nImageWidth, m_nImageHeight, rop);
    } else if (fit == 2 || fit == 13) {
        // Tiles go into a scratch bitmap and reach the DC in one blit; the
        // raster operation works per pixel, so applying it once is the same.
        // Positions are compared with w and h, not x + w and y + h.
        if (iw > 0 && ih > 0 && x < w && y < h) {
            const int cols = (w - x + iw - 1) / iw, rows = (h - y + ih - 1) / ih;
            CSimpleDIB scratch;
            if (HDC tiles = MakeScratch(scratch, cols * iw, rows * ih)) {
                SetStretchBltMode(tiles, COLORONCOLOR);
                for (int c = 0; c < cols; ++c)
                    for (int r = 0; r < rows; ++r)
                        StretchBlt(tiles, c * iw, r * ih, iw, ih, memory, 0, 0, m_nImageWidth, m_nImageHeight,
                                   SRCCOPY);
                BitBlt(hdc, x, y, cols * iw, rows * ih, tiles, 0, 0, rop);
            }
        }
    } else {
        if (iw < w || ih < h) {
            HBRUSH brush = CreateSolidBrush(clear);
            FillRect(hdc, &rect, brush);
            DeleteObject(brush);
        }
        int px, py;
        switch (fit) {
            case 4: px = (w - iw) / 2 + x; py = (h - ih) / 2 + y; break;
            case 5: px = (w - iw) / 2 + x; py = y; break;
            case 6: px = (w - iw) / 2 + x; py = y + h - ih; break;
            case 7: px = x; py = (h - ih) / 2 + y; break;
            case 8: px = x + w - iw; py = (h - ih) / 2 + y; break;
            case 9: px = x; py = y; break;
            case 10: px = x + w - iw; py = y; break;
            case 11: px = x; py = y + h - ih; break;
            case 12: px = x + w - iw; py = y + h - ih; break;
            default: px = m_nImageOffsetX; py = m_nImageOffsetY; break;
        }
        StretchBlt(hdc, px, py, iw, ih, memory, 0, 0, m_nImageWidth, m_nImageHeight, rop);
    }

    if (mergeBrush) {
        SelectObject(hdc, oldBrush);
        DeleteObject(mergeBrush);
    }
    SelectObject(memory, oldBitmap);
    DeleteDC(memory);
    return 1;
}

void CVRenderAction::LoadBackgroundTextureImage() {
    const CString& name = m_strImageFilename;
    if (name.GetLength() >= kBitmapPrefixLength && name.Left(kBitmapPrefixLength) == kBitmapPrefix) {
        HBITMAP handed = static_cast<HBITMAP>(LongToHandle(ParseHandleValue(name.Mid(kBitmapPrefixLength))));
        if (m_hBackgroundBitmap && m_hBackgroundBitmap != handed) DeleteObject(m_hBackgroundBitmap);
        // A later file name must load its file, whatever was loaded before.
        m_strLoadedImageName.Empty();
        m_bImageHasAlpha = 0;
        BITMAP bm;
        if (GetObjectType(handed) == OBJ_BITMAP && GetObjectW(handed, sizeof(bm), &bm)) {
            m_hBackgroundBitmap = handed;
            m_nImageWidth = bm.bmWidth;
            m_nImageHeight = std::abs(bm.bmHeight);
        } else {
            m_hBackgroundBitmap = nullptr;
            m_nImageWidth = m_nImageHeight = 0;
        }
        return;
    }

    if (name == m_strLoadedImageName && m_hBackgroundBitmap) return;
    m_strLoadedImageName = name;
    if (m_hBackgroundBitmap) DeleteObject(m_hBackgroundBitmap);
    m_hBackgroundBitmap = nullptr;
    m_nImageWidth = m_nImageHeight = 0;
    if (name.IsEmpty()) return;

    CString path;
    if (IsFullPath(name)) {
        path = name;
    } else {
        wchar_t found[kPathLength];
        CVGetURLTextureSearchPath(m_pRenderArea->GetIUnknownInterface(), name, found);
        path = found;
    }
    if (path.IsEmpty()) return;

    GpBitmap* image = nullptr;
    if (GdipCreateBitmapFromFile(path, &image) != Ok || !image) return;
    UINT width = 0, height = 0;
    GdipGetImageWidth(image, &width);
    GdipGetImageHeight(image, &height);
    BitmapData data;
    // Locked rows run top-down; flipped first, they fill a bottom-up DIB upright.
    if (width >= 1 && height >= 1 && GdipImageRotateFlip(image, RotateNoneFlipY) == Ok &&
        GdipBitmapLockBits(image, nullptr, ImageLockModeRead, PixelFormat32bppARGB, &data) == Ok) {
        BITMAPINFO info;
        std::memset(&info, 0, sizeof(info));
        info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
        info.bmiHeader.biWidth = (LONG)width;
        info.bmiHeader.biHeight = (LONG)height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        info.bmiHeader.biCompression = BI_RGB;
        void* bits = nullptr;
        HBITMAP dib = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        if (dib && bits) {
            for (UINT row = 0; row < height; ++row)
                std::memcpy(static_cast<BYTE*>(bits) + (size_t)row * width * 4,
                            static_cast<const BYTE*>(data.Scan0) + (ptrdiff_t)row * data.Stride, (size_t)width * 4);
            m_hBackgroundBitmap = dib;
            m_nImageWidth = (int)width;
            m_nImageHeight = (int)height;
            PixelFormat format = 0;
            GdipGetImagePixelFormat(image, &format);
            m_bImageHasAlpha = IsAlphaPixelFormat(format) ? 1 : 0;
        }
        GdipBitmapUnlockBits(image, &data);
    }
    GdipDisposeImage(image);
}

void CVRenderAction::BeginReplay(int pass) {
    m_pState->m_nRenderPass = pass;
    CVAttribStack::Push(kReplayAttribs);
    PushProjection();
    glLoadMatrixd(m_pRenderArea->GetProjectionMatrix());
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glEnable(GL_LIGHTING);
    if (CVLight* light = m_pRenderArea->GetLightNode()) PreActOn(light);
}

void CVRenderAction::BeginRecord(const double* projection, const float* modelview) {
    CVAttribStack::Push(kReplayAttribs);
    glMatrixMode(GL_PROJECTION);
    glLoadMatrixd(projection);
    glMatrixMode(GL_MODELVIEW);
    glLoadMatrixf(modelview);
}

void CVRenderAction::EndReplay() {
    glPopMatrix();
    PopProjection();
    CVAttribStack::Pop();
}

void CVRenderAction::RenderTransparentNodes() {
    CVGLRenderArea* area = m_pRenderArea;
    if (area->GetTransparentNodeListSize() == 0) return;
    BeginReplay(2);

    // The list may grow while it is drawn.
    for (int i = 0; i < area->GetTransparentNodeListSize(); ++i) {
        const TranspNodeInfoStruct* info = area->GetTransparentNodeInfo(i);
        BeginRecord(info->projectionMatrix, info->modelviewMatrix);
        if (info->type == 2) {
            PreActOn(info->node);
        } else {
            if (info->type == 1) {
                glEnable(GL_LINE_SMOOTH);
                glEnable(GL_POINT_SMOOTH);
                glEnable(GL_BLEND);
                if (info->polygonMode == GL_LINE) {
                    glDepthMask(GL_FALSE);
                    const float width = info->lineWidth > 0.3f ? info->lineWidth - 0.3f : info->lineWidth;
                    glLineWidth(width);
                    glPointSize(width);
                }
            }
            // The first n planes, whichever n were on: intended.
            for (int p = 0; p < info->numClipPlanes; ++p) glEnable(GL_CLIP_PLANE0 + p);
            glPolygonMode(GL_FRONT_AND_BACK, info->polygonMode);
            if (!info->lightingEnabled) glDisable(GL_LIGHTING);
            if (info->twoSidedLighting) glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, 1);
            if (info->polygonOffsetMode) {
                glEnable(info->polygonOffsetMode);
                glPolygonOffset(info->polygonOffsetFactor, info->polygonOffsetUnits);
            }
            PreActOn(info->node);
            glDepthMask(GL_TRUE);
        }
        CVAttribStack::Pop();
    }

    EndReplay();
    area->ResetTransparentNodeList();
}

void CVRenderAction::RenderAnnotationNodes() {
    CVGLRenderArea* area = m_pRenderArea;
    if (area->GetAnnotationNodeListSize() == 0) return;
    BeginReplay(3);

    for (int i = 0; i < area->GetAnnotationNodeListSize(); ++i) {
        const AnnotateNodeInfoStruct* info = area->GetAnnotationNodeInfo(i);
        BeginRecord(info->projectionMatrix, info->modelviewMatrix);
        info->node->Traverse(this, nullptr, 0);
        CVAttribStack::Pop();
    }

    EndReplay();
    area->ResetAnnotationNodeList();
}

void CVRenderAction::DoSetViewport() {
    if (m_pRenderArea) m_pRenderArea->SetViewport(m_Viewport);
}

int CVRenderAction::SetSwapBuffersAfterRender(int on) {
    m_bSwapBuffersAfterRender = on;
    return 1;
}

int CVRenderAction::GetSwapBuffersAfterRender() const { return m_bSwapBuffersAfterRender; }

int CVRenderAction::SetClearColorBeforeRender(int on) {
    m_bClearColorBeforeRender = on;
    return 1;
}

int CVRenderAction::GetClearColorBeforeRender() const { return m_bClearColorBeforeRender; }

int CVRenderAction::SetClearColor(const RGBAColorStruct& color) {
    m_ClearColor = color;
    return 1;
}

int CVRenderAction::SetClearColor(float r, float g, float b, float a) {
    m_ClearColor = {r, g, b, a};
    return 1;
}

RGBAColorStruct CVRenderAction::GetClearColor() const { return m_ClearColor; }

int CVRenderAction::SetHeadlightOn(int on) {
    m_Headlight.on.SetValue(on);
    return 1;
}

int CVRenderAction::IsHeadlightOn() const { return m_Headlight.on.GetValue(); }

int CVRenderAction::SetViewport(int x, int y, int width, int height) {
    m_Viewport.Set(x, y, width, height);
    return 1;
}

void CVRenderAction::GetViewport(int& x, int& y, int& width, int& height) const {
    m_Viewport.Get(x, y, width, height);
}

int CVRenderAction::SetRenderCache(CVGLRenderArea* other) {
    return m_pRenderArea ? m_pRenderArea->SetRenderCache(other) : 0;
}

CVGLRenderArea* CVRenderAction::GetRenderCache() const {
    return m_pRenderArea ? m_pRenderArea->GetRenderCache() : nullptr;
}

int CVRenderAction::SetFillStyle(int style) {
    m_nFillStyle = style;
    return 1;
}

int CVRenderAction::SetImageFilename(CString name) {
    m_strImageFilename = name;
    return 1;
}

int CVRenderAction::SetImageOffset(int x, int y) {
    m_nImageOffsetX = x;
    m_nImageOffsetY = y;
    return 1;
}

int CVRenderAction::SetImageScale(float scale) {
    m_fImageScale = scale;
    return 1;
}

int CVRenderAction::SetImageFitStyle(int style) {
    m_nImageFitStyle = style;
    return 1;
}

int CVRenderAction::SetGradientType(int type) {
    m_nGradientType = type;
    return 1;
}

int CVRenderAction::SetStartGradientColor(const RGBAColorStruct& color) {
    m_StartGradientColor = color;
    return 1;
}

int CVRenderAction::SetEndGradientColor(const RGBAColorStruct& color) {
    m_EndGradientColor = color;
    return 1;
}
