#pragma once
// The GL target of the library: one rendering context on one device context,
// every per-target setting that actions and nodes read while drawing, and the
// two lists of nodes deferred to the end of a frame (transparent nodes sorted
// back to front, annotation nodes in arrival order).
//
// Construction creates the context and leaves it current. A failed context is
// silent: GetHGLRC() returns null and GL calls made through the area do nothing.
// The world inflation factor is process-wide: every area's GL viewport (and
// every camera's frustum) is enlarged by it, and a scissor clips back to the
// window rectangle.
#include "../platform/CVExport.h"
#include <limits>
#include <vector>

#include "../core/CVRefCount.h"
#include "../math/CVStructs.h"
#include "../math/CVViewport.h"
#include "../platform/CArray.h"
#include "../platform/WinGL.h"
#include "CVCache.h"
#include "CVDeferredNodeInfo.h"

class CVGLDevice;
class CVLight;
class CVNode;
class CVState;
struct IUnknown;

class CVSCENE_API CVGLRenderArea : public CVRefCount {
    DECLARE_DYNAMIC(CVGLRenderArea)
public:
    enum TextureFunction { Decal = 0, Modulate = 1, Blend = 2 };
    enum TextureFilter { Nearest = 0, Linear = 1 };

    explicit CVGLRenderArea(CVGLDevice* device);
    // As above, then copies other's viewport. Display lists are not shared.
    CVGLRenderArea(CVGLDevice* device, CVGLRenderArea* other);
    ~CVGLRenderArea() override;

    void MakeCurrent();
    void SwapBuffers();

    HDC GetHdc() const { return m_hDC; }
    HGLRC GetHGLRC() const { return m_hRC; }
    HPALETTE GetPalette() const { return m_hPalette; }
    void GetPFD(PIXELFORMATDESCRIPTOR& pfd) const { pfd = m_pfdRequested; }
    void GetChosenPFD(PIXELFORMATDESCRIPTOR& pfd) const { pfd = m_pfdChosen; }
    int GetMaxLights() const { return m_nMaxLights; }
    CVGLRenderArea* GetRenderCache() const { return m_pRenderCache; }
    CVCache* GetFontCache() { return &m_FontCache; }
    CVCache* GetTextureCache() { return &m_TextureCache; }
    // Written by cameras: the pure camera projection, reloaded by deferred passes.
    double* GetProjectionMatrix() { return m_dProjectionMatrix; }
    const float* GetShadowMatrix() const { return m_fShadowMatrix; }
    // 50% checkerboard for polygon stipple (32 rows of 4 bytes).
    const BYTE* GetHalftoneMask() const { return &m_halftone[0][0]; }

    int Set2DView(int on) { m_b2DView = on; return 1; }
    int Get2DView() const { return m_b2DView; }
    // Not reference counted: the area remembers the light's node id as well,
    // and GetLightNode returns null once that node has been destroyed.
    int SetLightNode(CVLight* light);
    CVLight* GetLightNode() const;
    // 1 during jittered passes of scene antialiasing, 2 in the final pass, else 0.
    int SetAntialiasingMode(int mode) { m_nAntialiasingMode = mode; return 1; }
    int GetAntialiasingMode() const { return m_nAntialiasingMode; }
    int SetShadowProjectionZ(double z) { m_dShadowProjectionZ = z; return 1; }
    double GetShadowProjectionZ() const { return m_dShadowProjectionZ; }
    int SetShadowOrientation(int o) { m_nShadowOrientation = o; return 1; }
    int GetShadowOrientation() const { return m_nShadowOrientation; }
    // Opaque host pointer; not reference counted.
    int SetIUnknownInterface(IUnknown* unk) { m_pIUnknown = unk; return 1; }
    IUnknown* GetIUnknownInterface() const { return m_pIUnknown; }
    int SetRenderAreaToBitmap(int on) { m_bRenderAreaIsBitmap = on; return 1; }
    int RenderAreaIsBitmap() const { return m_bRenderAreaIsBitmap; }
    int SetGlobalScaleFactor(float f) { m_fGlobalScaleFactor = f; return 1; }
    float GetGlobalScaleFactor() const { return m_fGlobalScaleFactor; }
    int SetGlobalStretchFactor(float f) { m_fGlobalStretchFactor = f; return 1; }
    float GetGlobalStretchFactor() const { return m_fGlobalStretchFactor; }
    int SetViewportFontScalingEnabled(int on) { m_bViewportFontScaling = on; return 1; }
    int IsViewportFontScalingEnabled() const { return m_bViewportFontScaling; }
    int SetViewportFontScaleFactor(float f) { m_fViewportFontScaleFactor = f; return 1; }
    float GetViewportFontScaleFactor() const { return m_fViewportFontScaleFactor; }
    int SetLineAntialiasingEnabled(int on) { m_bLineAntialiasing = on; return 1; }
    int IsLineAntialiasingEnabled() const { return m_bLineAntialiasing; }
    int SetSceneAntialiasingEnabled(int on) { m_bSceneAntialiasing = on; return 1; }
    int IsSceneAntialiasingEnabled() const { return m_bSceneAntialiasing; }
    int SetTransparencyEnabled(int on) { m_bTransparency = on; return 1; }
    int IsTransparencyEnabled() const { return m_bTransparency; }
    int SetDropShadowsEnabled(int on) { m_bDropShadows = on; return 1; }
    int IsDropShadowsEnabled() const { return m_bDropShadows; }
    int SetTextBordersEnabled(int on) { m_bTextBorders = on; return 1; }
    int IsTextBordersEnabled() const { return m_bTextBorders; }
    int SetMipmappingEnabled(int on) { m_bMipmapping = on; return 1; }
    int IsMipmappingEnabled() const { return m_bMipmapping; }
    int SetTexturingEnabled(int on) { m_bTexturing = on; return 1; }
    int IsTexturingEnabled() const { return m_bTexturing; }
    // Text filter used by shapes in passes 1 and 3: 1 skips text, 2 skips non-text.
    int SetTextFilterMode(int mode) { m_nTextFilterMode = mode; return 1; }
    int GetTextFilterMode() const { return m_nTextFilterMode; }

    int SetDropShadowColor(RGBAColorStruct color);
    // Keeps the stored alpha.
    int SetDropShadowColor(RGBColorStruct color);
    RGBAColorStruct GetDropShadowColor() const { return m_DropShadowColor; }
    int SetSelectionColor(RGBColorStruct color);
    RGBColorStruct GetSelectionColor() const { return m_SelectionColor; }

    // Also sets GL_TEXTURE_ENV_MODE: 0 decal, 1 modulate, 2 blend, other decal.
    int SetTextureFunction(TextureFunction f);
    TextureFunction GetTextureFunction() const { return m_eTextureFunction; }
    // Also sets both GL_TEXTURE_2D filters: nearest for 0, linear otherwise.
    int SetTextureFilter(TextureFilter f);
    TextureFilter GetTextureFilter() const { return m_eTextureFilter; }

    // Loads polygon stipple 0 (thin hatch) or 1 (thick hatch); the current
    // pattern and values above 1 are ignored. A negative value loads all bits set.
    void SetStipplePattern(int pattern);
    int GetStipplePattern() const { return m_nStipplePattern; }

    // Stores the rectangle, makes the context current and sets the GL viewport
    // enlarged by the world inflation factor (with a scissor back to the
    // rectangle) and shrunk by the global scale factor.
    void SetViewport(int x, int y, int width, int height);
    void SetViewport(const CVViewport& viewport);
    void GetViewport(int& x, int& y, int& width, int& height) const;
    void GetViewport(int viewport[4]) const;
    void GetViewport(CVViewport& viewport) const { viewport = m_Viewport; }
    float GetViewportAspectRatio() const { return m_Viewport.GetAspectRatio(); }
    int PointInViewport(int x, int y) const { return m_Viewport.PointInViewport(x, y); }
    // The stored viewport enlarged by the world inflation factor.
    void GetGLViewport(int& x, int& y, int& width, int& height) const;
    void GetGLViewport(int viewport[4]) const;

    // Shares other's display lists. 0 for null or when the contexts cannot share.
    int SetRenderCache(CVGLRenderArea* other);

    // Selects and realises the palette; 1 when entries were mapped.
    int InstallPalette(int background);
    // Drains GL errors; nothing is reported.
    void ReportOGLErrors();
    // Planar projection onto z = Z/2 along the light node's direction.
    void InitShadowMatrix();

    // Listed by depth, back to front: a record goes before the first record
    // with a greater depth, so equal depths keep their arrival order. Records
    // added while the list is read (drawn) take their sorted place at once.
    void AddToTransparentNodeList(CVNode* node, CVState* state, int type);
    INT_PTR GetTransparentNodeListSize() const { return static_cast<INT_PTR>(m_TranspNodeList.size()); }
    // Throws CInvalidArgException outside 0..size-1.
    TranspNodeInfoStruct* GetTransparentNodeInfo(int index) const;
    void ResetTransparentNodeList();
    void AddToAnnotationNodeList(CVNode* node, CVState* state);
    INT_PTR GetAnnotationNodeListSize() const { return m_AnnotateNodeList.GetSize(); }
    AnnotateNodeInfoStruct* GetAnnotationNodeInfo(int index) const { return m_AnnotateNodeList[index]; }
    void ResetAnnotationNodeList();

    static void SetInflateWorld(int on) { m_fWorldInflation = on ? 3.0f : 1.0f; }
    static float GetWorldInflationFactor() { return m_fWorldInflation; }
    static float m_fWorldInflation;

protected:
    void Initialize(CVGLDevice* device);
    void CreateRGBPalette();

    PIXELFORMATDESCRIPTOR m_pfdRequested;
    PIXELFORMATDESCRIPTOR m_pfdChosen;
    HPALETTE m_hPalette = nullptr;

private:
    void LoadStipple(const DWORD motif[8]);

    float m_fShadowMatrix[16] = {};
    BYTE m_halftone[32][4];
    HGLRC m_hRC = nullptr;
    HDC m_hDC = nullptr;
    int m_nMaxLights = 0;
    CVGLRenderArea* m_pRenderCache = nullptr;
    CVViewport m_Viewport;
    CVCache m_FontCache;
    CVCache m_TextureCache;
    TextureFunction m_eTextureFunction = Modulate;
    TextureFilter m_eTextureFilter = Nearest;
    float m_fGlobalScaleFactor = 1.0f;
    float m_fViewportFontScaleFactor = 1.0f;
    float m_fGlobalStretchFactor = 1.0f;
    int m_bViewportFontScaling = 0;
    int m_bRenderAreaIsBitmap = 0;
    int m_bTexturing = 1;
    int m_bLineAntialiasing = 1;
    int m_bSceneAntialiasing = 0;
    int m_bTransparency = 1;
    int m_bDropShadows = 0;
    int m_bTextBorders = 0;
    int m_bMipmapping = 0;
    int m_b2DView = 0;
    RGBAColorStruct m_DropShadowColor = {0.4f, 0.4f, 0.4f, 0.5f};
    RGBColorStruct m_SelectionColor = {0.0f, 0.0f, 0.0f};
    double m_dProjectionMatrix[16];
    int m_nStipplePattern = -1;
    double m_dShadowProjectionZ = 0.0;
    int m_nShadowOrientation = 0;
    int m_nAntialiasingMode = 0;
    int m_nTextFilterMode = 0;
    IUnknown* m_pIUnknown = nullptr;
    // A scene walk appends thousands of records and reads none of them, so
    // they are sorted once, at the first read; from then on each new record
    // is inserted at its place.
    struct TranspEntry {
        float key;  // the depth; NaN replaced as AddToTransparentNodeList explains
        TranspNodeInfoStruct* info;
    };
    mutable std::vector<TranspEntry> m_TranspNodeList;
    mutable bool m_bTranspNodeListSorted = false;
    float m_fTranspMaxDepth = -std::numeric_limits<float>::infinity();  // greatest non-NaN depth listed
    CVLight* m_pLightNode = nullptr;
    int m_nLightNodeID = 0;
    CArray<AnnotateNodeInfoStruct*, AnnotateNodeInfoStruct*> m_AnnotateNodeList;
};
