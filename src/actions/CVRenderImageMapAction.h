#pragma once
// Renders a scene into a bitmap of its own as a colour-coded image map: flat,
// unlit, undithered, on white, every chart element painted in the colour the
// cache manager's SetImageMapColor gives its data index, so that a host can
// turn each pixel back into the data element under it. White is where no
// element was drawn.
//
// Only shapes whose geometry is a data point, graph shape, annotation or
// topographic chart are drawn; others (and elements with a negative index,
// pie slices, graph shapes, annotations and topographic charts excepted)
// leave no colour. Every other node (groups, transforms, properties) renders
// as it stands. The state's identification flag is 1 during Apply, so lights
// and cameras act as for picking and shapes draw their bare geometry (none
// for geometry marked not selectable); the transparent and annotation lists
// are not drawn.
//
// The colour depth is the reference DC's BITSPIXEL, read once: 16 selects the
// 5-bit code ramps, anything else the 8-bit codes. The bitmap follows the same
// depth (see CSimpleDIB).
//
// Cost: every SetViewport makes a new bitmap and a new render area (and so a
// new GL context) with default settings.
#include "../platform/CVExport.h"
#include "../image/CSimpleDIB.h"
#include "../math/CVViewport.h"
#include "../platform/CDC.h"
#include "../render/CVGLAction.h"

class CVBitmapDevice;

class CVSCENE_API CVRenderImageMapAction : public CVGLAction {
    DECLARE_DYNAMIC(CVRenderImageMapAction)
public:
    // A 32 x 32 bitmap for hdc (not owned; it must outlive the action) and a
    // render area on it; the viewport starts as (0, 0, 1, 1). Throws
    // CMemoryException when the bitmap cannot be made.
    explicit CVRenderImageMapAction(HDC hdc);
    ~CVRenderImageMapAction() override;

    // Equals Apply(root, null).
    int Apply(CVNode* root) override;
    // One image-map frame of root, then of overlay (when given) over it, in
    // the viewport set last. 0 for a null root (or no render area), else 1.
    virtual int Apply(CVNode* root, CVNode* overlay);
    void PreActOn(CVNode* node) override;

    // Always makes a w x h bitmap and a new render area (render-to-bitmap on)
    // and stores the viewport, even when nothing changed. When the bitmap
    // cannot be made (CMemoryException, a non-positive size among the causes)
    // the action is left without a render area and Apply returns 0 until a
    // SetViewport succeeds.
    void SetViewport(int x, int y, int w, int h);

    CSimpleDIB* GetDIB() const { return m_pDIB; }
    // The bitmap's Save.
    BOOL SaveToDIBFile(const CString& fileName) const;
    // BitBlt(dc, x, y, w, h, bitmap DC, srcX, srcY, SRCCOPY); a null dc stands
    // for a null HDC.
    BOOL BitBlt(CDC* dc, int x, int y, int w, int h, int srcX, int srcY);

protected:
    // Makes the bitmap at 32 x 32 for hdc and returns a new device over its DC.
    CVBitmapDevice* CreateDevice(HDC hdc);
    // The GL state of a frame: opening (identity projection, pushes, flat and
    // unlit, cleared to white) and closing.
    void PreApplyGL();
    void PostApplyGL();

    CSimpleDIB* m_pDIB = nullptr;
    CVBitmapDevice* m_pDevice = nullptr;  // only while constructing
    HDC m_hDC = nullptr;
    CVViewport m_Viewport;
    int m_nColorBits = 0;
};
