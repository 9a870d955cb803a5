#include "render/CVGLRenderArea.h"

#include <GL/gl.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <vector>

#include "core/CVState.h"
#include "core/CVNode.h"
#include "math/CVBox3f.h"
#include "math/CVMatrix.h"
#include "render/CVGLDevice.h"
#include "render/CVGLErrors.h"
#include "render/CVLight.h"

IMPLEMENT_DYNAMIC(CVGLRenderArea, CVRefCount)

float CVGLRenderArea::m_fWorldInflation = 3.0f;

namespace {

const DWORD kThinHatch[8] = {0x80808080, 0x40404040, 0x20202020, 0x10101010,
                             0x08080808, 0x04040404, 0x02020202, 0x01010101};
const DWORD kThickHatch[8] = {0xC0C0C0C0, 0x60606060, 0x30303030, 0x18181818,
                              0x0C0C0C0C, 0x06060606, 0x03030303, 0x81818181};
const DWORD kAllBits[8] = {0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF,
                           0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF};

// Intensity of palette component value v with the given bit count.
BYTE PaletteComponent(int v, int bits) {
    static const BYTE one[2] = {0, 255};
    static const BYTE two[4] = {0, 85, 170, 255};
    static const BYTE three[8] = {0, 36, 73, 109, 146, 182, 219, 255};
    switch (bits) {
        case 1: return one[v & 1];
        case 2: return two[v & 3];
        case 3: return three[v & 7];
        default: return 0;
    }
}

// Eye-space z of the centre of box after the model-view matrix (GL order).
float EyeDepth(CVBox3f& box, const float modelview[16]) {
    CVMatrix m;
    m.SetValue(modelview);
    box.Transform(m);
    return box.GetCenter().z;
}

}  // namespace

CVGLRenderArea::CVGLRenderArea(CVGLDevice* device) { Initialize(device); }

CVGLRenderArea::CVGLRenderArea(CVGLDevice* device, CVGLRenderArea* other) {
    Initialize(device);
    if (other) m_Viewport = other->m_Viewport;
}

CVGLRenderArea::~CVGLRenderArea() {
    if (m_hPalette) DeleteObject(m_hPalette);
    // Cached GL objects go while the context still exists.
    if (m_hRC) {
        wglMakeCurrent(m_hDC, m_hRC);
        m_TextureCache.RemoveAll();
        m_FontCache.RemoveAll();
    }
    wglMakeCurrent(m_hDC, nullptr);
    if (m_hRC) wglDeleteContext(m_hRC);
    // Records still listed belong to an unfinished frame; only the arrays go.
    m_TranspNodeList.clear();
    m_AnnotateNodeList.RemoveAll();
}

void CVGLRenderArea::Initialize(CVGLDevice* device) {
    m_hDC = device ? device->GetHdc() : nullptr;
    for (int row = 0; row < 32; ++row) std::memset(m_halftone[row], (row % 2) ? 0xAA : 0x55, 4);
    std::memset(m_dProjectionMatrix, 0, sizeof(m_dProjectionMatrix));
    std::memset(&m_pfdRequested, 0, sizeof(m_pfdRequested));
    std::memset(&m_pfdChosen, 0, sizeof(m_pfdChosen));
    if (device) {
        device->GetPFD(m_pfdRequested);
        device->GetChosenPFD(m_pfdChosen);
    }

    m_hRC = wglCreateContext(m_hDC);
    if (!m_hRC) CVGLErrors::DiscardLastError();
    if (!wglMakeCurrent(m_hDC, m_hRC)) CVGLErrors::DiscardLastError();

    CreateRGBPalette();
    if (m_hPalette) {
        SelectPalette(m_hDC, m_hPalette, FALSE);
        RealizePalette(m_hDC);
    }
    if (!m_hRC) return;  // nothing below would reach a context

    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glMatrixMode(GL_TEXTURE);
    glLoadIdentity();
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glClearDepth(1.0);
    glDepthFunc(GL_LEQUAL);
    glEnable(GL_DEPTH_TEST);
    glColorMaterial(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE);
    glEnable(GL_COLOR_MATERIAL);
    glGetIntegerv(GL_MAX_LIGHTS, &m_nMaxLights);
    glEnable(GL_CULL_FACE);
    glEnable(GL_NORMALIZE);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glHint(GL_LINE_SMOOTH_HINT, GL_NICEST);
    glHint(GL_POINT_SMOOTH_HINT, GL_NICEST);
    m_bTexturing = 1;
    SetTextureFunction(Modulate);
    SetTextureFilter(Nearest);
    SetStipplePattern(0);
}

void CVGLRenderArea::MakeCurrent() { wglMakeCurrent(m_hDC, m_hRC); }

void CVGLRenderArea::SwapBuffers() { ::SwapBuffers(m_hDC); }

int CVGLRenderArea::SetDropShadowColor(RGBAColorStruct color) {
    m_DropShadowColor = color;
    return 1;
}

int CVGLRenderArea::SetDropShadowColor(RGBColorStruct color) {
    m_DropShadowColor.r = color.r;
    m_DropShadowColor.g = color.g;
    m_DropShadowColor.b = color.b;
    return 1;
}

int CVGLRenderArea::SetSelectionColor(RGBColorStruct color) {
    m_SelectionColor = color;
    return 1;
}

int CVGLRenderArea::SetTextureFunction(TextureFunction f) {
    m_eTextureFunction = f;
    GLint mode = f == Modulate ? GL_MODULATE : f == Blend ? GL_BLEND : GL_DECAL;
    if (m_hRC) glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, mode);
    return 1;
}

int CVGLRenderArea::SetTextureFilter(TextureFilter f) {
    m_eTextureFilter = f;
    GLint filter = f == Nearest ? GL_NEAREST : GL_LINEAR;
    if (m_hRC) {
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, filter);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, filter);
    }
    return 1;
}

void CVGLRenderArea::SetStipplePattern(int pattern) {
    if (pattern == m_nStipplePattern || pattern > 1) return;
    m_nStipplePattern = pattern;
    LoadStipple(pattern == 0 ? kThinHatch : pattern == 1 ? kThickHatch : kAllBits);
}

void CVGLRenderArea::LoadStipple(const DWORD motif[8]) {
    GLubyte mask[128];
    for (int row = 0; row < 32; ++row) std::memset(mask + 4 * row, (int)(motif[row % 8] & 0xFF), 4);
    if (m_hRC) glPolygonStipple(mask);
}

void CVGLRenderArea::SetViewport(const CVViewport& viewport) {
    SetViewport(viewport.GetLeft(), viewport.GetBottom(), viewport.GetWidth(), viewport.GetHeight());
}

void CVGLRenderArea::SetViewport(int x, int y, int width, int height) {
    m_Viewport.Set(x, y, width, height);
    wglMakeCurrent(m_hDC, m_hRC);
    if (!m_hRC) return;
    float s = m_fGlobalScaleFactor > 1.0f ? 1.0f : m_fGlobalScaleFactor;
    int w = (int)(width * s);
    int h = (int)(height * s);
    float f = m_fWorldInflation;
    if (f == 1.0f) {
        glDisable(GL_SCISSOR_TEST);
        glViewport(x, y + (height - h), w, h);
        return;
    }
    float k = (f - 1.0f) * 0.5f;
    glViewport(x - (int)(w * k), y + (int)((height - h) * k) - (int)(h * k), (int)(w * f), (int)(h * f));
    glEnable(GL_SCISSOR_TEST);
    glScissor(x, y, width, height);
}

void CVGLRenderArea::GetViewport(int& x, int& y, int& width, int& height) const {
    m_Viewport.Get(x, y, width, height);
}

void CVGLRenderArea::GetViewport(int viewport[4]) const {
    m_Viewport.Get(viewport[0], viewport[1], viewport[2], viewport[3]);
}

void CVGLRenderArea::GetGLViewport(int& x, int& y, int& width, int& height) const {
    m_Viewport.Get(x, y, width, height);
    float f = m_fWorldInflation;
    if (f == 1.0f) return;
    float k = (f - 1.0f) * 0.5f;
    x -= (int)(width * k);
    y -= (int)(height * k);
    width = (int)(width * f);
    height = (int)(height * f);
}

void CVGLRenderArea::GetGLViewport(int viewport[4]) const {
    GetGLViewport(viewport[0], viewport[1], viewport[2], viewport[3]);
}

int CVGLRenderArea::SetRenderCache(CVGLRenderArea* other) {
    if (!other) return 0;
    if (wglShareLists(other->GetHGLRC(), m_hRC)) {
        m_pRenderCache = other;
        return 1;
    }
    m_pRenderCache = nullptr;
    return 0;
}

void CVGLRenderArea::CreateRGBPalette() {
    m_hPalette = nullptr;
    const PIXELFORMATDESCRIPTOR& pfd = m_pfdChosen;
    if (!(pfd.dwFlags & PFD_NEED_PALETTE)) return;
    int n = 1 << pfd.cColorBits;
    std::vector<BYTE> block(sizeof(LOGPALETTE) + n * sizeof(PALETTEENTRY));
    auto* pal = reinterpret_cast<LOGPALETTE*>(block.data());
    pal->palVersion = 0x300;
    pal->palNumEntries = (WORD)n;
    for (int i = 0; i < n; ++i) {
        PALETTEENTRY& e = pal->palPalEntry[i];
        e.peRed = PaletteComponent(i >> pfd.cRedShift, pfd.cRedBits);
        e.peGreen = PaletteComponent(i >> pfd.cGreenShift, pfd.cGreenBits);
        e.peBlue = PaletteComponent(i >> pfd.cBlueShift, pfd.cBlueBits);
        e.peFlags = 0;
    }
    if (pfd.cColorBits == 8 && pfd.cRedBits == 3 && pfd.cRedShift == 0 && pfd.cGreenBits == 3 &&
        pfd.cGreenShift == 3 && pfd.cBlueBits == 2 && pfd.cBlueShift == 6) {
        static const struct {
            int index;
            BYTE r, g, b;
        } kStatic[12] = {{3, 128, 0, 0},     {24, 0, 128, 0},      {27, 128, 128, 0},    {64, 0, 0, 128},
                         {67, 128, 0, 128},  {88, 0, 128, 128},    {173, 192, 192, 192}, {181, 192, 220, 192},
                         {236, 166, 202, 240}, {247, 255, 251, 240}, {164, 160, 160, 164}, {91, 128, 128, 128}};
        for (const auto& c : kStatic) pal->palPalEntry[c.index] = {c.r, c.g, c.b, 0};
    }
    m_hPalette = CreatePalette(pal);
}

int CVGLRenderArea::InstallPalette(int background) {
    if (!m_hPalette) return 0;
    SelectPalette(m_hDC, m_hPalette, background);
    return RealizePalette(m_hDC) != 0;
}

void CVGLRenderArea::ReportOGLErrors() {
    if (!wglGetCurrentContext()) return;
    glFinish();
    int invalidOps = 0;
    for (GLenum e = glGetError(); e != GL_NO_ERROR; e = glGetError()) {
        if (e == GL_INVALID_OPERATION) ++invalidOps;
        // Two invalid operations in a row usually mean a glBegin left open.
        if (invalidOps == 2) glEnd();
        if (invalidOps > 3) break;
    }
}

int CVGLRenderArea::SetLightNode(CVLight* light) {
    m_pLightNode = light;
    m_nLightNodeID = light ? light->GetID() : 0;
    return 1;
}

// Node ids are never reused, so a live node under the stored id is the light.
CVLight* CVGLRenderArea::GetLightNode() const {
    if (!m_pLightNode || CVNode::FindNodeByID(m_nLightNodeID) != m_pLightNode) return nullptr;
    return m_pLightNode;
}

void CVGLRenderArea::InitShadowMatrix() {
    float L[4] = {0.5f, 0.7f, 1.0f, 0.0f};
    CVLight* light = GetLightNode();
    if (const Point3fStruct* direction = light ? light->GetShadowDirection() : nullptr) {
        const Point3fStruct& d = *direction;
        if (m_nShadowOrientation == 2) {
            L[0] = -d.x - 0.9f;
            L[1] = -d.y;
            L[2] = -d.z;
        } else {
            L[0] = -d.y;
            L[1] = d.x;
            L[2] = -d.z;
        }
    }
    float Z = (float)m_dShadowProjectionZ;
    L[1] -= 0.25f;
    L[2] -= 10.0f * Z;
    const float c = 0.1f * 0.2f;
    const float P[4] = {0.0f, 0.0f, c, -c * (Z * 0.5f)};
    float dot = P[0] * L[0] + P[1] * L[1] + P[2] * L[2] + P[3] * 0.0f;
    for (int col = 0; col < 4; ++col)
        for (int row = 0; row < 4; ++row)
            m_fShadowMatrix[col * 4 + row] = (row == col ? dot : 0.0f) - L[row] * P[col];
}

void CVGLRenderArea::AddToTransparentNodeList(CVNode* node, CVState* state, int type) {
    auto* info = static_cast<TranspNodeInfoStruct*>(std::malloc(sizeof(TranspNodeInfoStruct)));
    glGetDoublev(GL_PROJECTION_MATRIX, info->projectionMatrix);
    glGetFloatv(GL_MODELVIEW_MATRIX, info->modelviewMatrix);
    info->type = type;
    CVBox3f box;
    if (type == CVDeferText) {
        box.SetSize(1.0f, 1.0f, 1.0f);
        box.SetCenter(0.0f, 0.0f, 0.0f);
    } else {
        GLint mode[2] = {GL_FILL, GL_FILL};
        glGetIntegerv(GL_POLYGON_MODE, mode);
        info->polygonMode = mode[0];
        glGetFloatv(GL_LINE_WIDTH, &info->lineWidth);
        info->lightingEnabled = glIsEnabled(GL_LIGHTING) ? 1 : 0;
        GLint twoSide = 0;
        glGetIntegerv(GL_LIGHT_MODEL_TWO_SIDE, &twoSide);
        info->twoSidedLighting = twoSide ? 1 : 0;
        info->numClipPlanes = 0;
        for (int i = 0; i < 6; ++i)
            if (glIsEnabled(GL_CLIP_PLANE0 + i)) ++info->numClipPlanes;
        info->polygonOffsetMode = glIsEnabled(GL_POLYGON_OFFSET_FILL)   ? GL_POLYGON_OFFSET_FILL
                                  : glIsEnabled(GL_POLYGON_OFFSET_LINE) ? GL_POLYGON_OFFSET_LINE
                                                                        : 0;
        info->polygonOffsetFactor = 0.0f;
        info->polygonOffsetUnits = 0.0f;
        if (info->polygonOffsetMode) {
            glGetFloatv(GL_POLYGON_OFFSET_FACTOR, &info->polygonOffsetFactor);
            glGetFloatv(GL_POLYGON_OFFSET_UNITS, &info->polygonOffsetUnits);
        }
        if (node) node->ComputeBoundingBox(state, this, &box);
    }
    info->depth = EyeDepth(box, info->modelviewMatrix);
    info->node = node;

    // Nothing is greater than a NaN depth and it is greater than nothing: the
    // record goes last, and later records go before it only when they are
    // below the greatest depth listed before it. So it sorts as that depth,
    // arriving now, which keeps the keys totally ordered for the sort.
    float key = info->depth;
    if (std::isnan(key))
        key = m_fTranspMaxDepth;
    else
        m_fTranspMaxDepth = std::max(m_fTranspMaxDepth, key);
    const TranspEntry entry{key, info};
    if (!m_bTranspNodeListSorted) {
        m_TranspNodeList.push_back(entry);
        return;
    }
    auto at = std::upper_bound(m_TranspNodeList.begin(), m_TranspNodeList.end(), key,
                               [](float k, const TranspEntry& e) { return k < e.key; });
    m_TranspNodeList.insert(at, entry);
}

TranspNodeInfoStruct* CVGLRenderArea::GetTransparentNodeInfo(int index) const {
    if (index < 0 || index >= GetTransparentNodeListSize())
        AfxThrowInvalidArgException("CVGLRenderArea::GetTransparentNodeInfo(): index out of range");
    if (!m_bTranspNodeListSorted) {
        // Stable: equal depths keep their arrival order.
        std::stable_sort(m_TranspNodeList.begin(), m_TranspNodeList.end(),
                         [](const TranspEntry& a, const TranspEntry& b) { return a.key < b.key; });
        m_bTranspNodeListSorted = true;
    }
    return m_TranspNodeList[(size_t)index].info;
}

void CVGLRenderArea::ResetTransparentNodeList() {
    for (const TranspEntry& e : m_TranspNodeList) std::free(e.info);
    m_TranspNodeList.clear();  // the capacity serves the next frame
    m_bTranspNodeListSorted = false;
    m_fTranspMaxDepth = -std::numeric_limits<float>::infinity();
}

void CVGLRenderArea::AddToAnnotationNodeList(CVNode* node, CVState*) {
    auto* info = static_cast<AnnotateNodeInfoStruct*>(std::malloc(sizeof(AnnotateNodeInfoStruct)));
    glGetDoublev(GL_PROJECTION_MATRIX, info->projectionMatrix);
    glGetFloatv(GL_MODELVIEW_MATRIX, info->modelviewMatrix);
    info->node = node;
    m_AnnotateNodeList.Add(info);
}

void CVGLRenderArea::ResetAnnotationNodeList() {
    for (INT_PTR i = 0; i < m_AnnotateNodeList.GetSize(); ++i) std::free(m_AnnotateNodeList[i]);
    m_AnnotateNodeList.RemoveAll();
}
