#pragma once
// A render action whose target is a bitmap of its own (CSimpleDIB), which the
// host then copies to a DC (plain, stretched or with a transparent colour),
// gives a palette, or saves.
//
// The bitmap starts at 32 x 32 for the reference DC given at construction
// and follows its depth (see CSimpleDIB). Each change of viewport size makes
// a new bitmap and a new render area, and so a new GL context: the area's
// settings (and display lists) start again from their defaults, and the area
// is marked as a bitmap. The first area, made at construction, is not marked
// as a bitmap: until the first SetViewport it is cleared with GL like a
// window.
//
// The copy operations take a null CDC* as a null HDC (and so fail).
#include "../platform/CVExport.h"
#include "CVRenderAction.h"
#include "../image/CSimpleDIB.h"
#include "../platform/CDC.h"
#include "../platform/CPalette.h"

class CVBitmapDevice;

class CVSCENE_API CVRenderToDIBAction : public CVRenderAction {
    DECLARE_DYNAMIC(CVRenderToDIBAction)
public:
    // hdc is not owned and must outlive the action. Throws CMemoryException
    // when the bitmap cannot be made.
    explicit CVRenderToDIBAction(HDC hdc);
    ~CVRenderToDIBAction() override;

    // Nothing when (x, y, w, h) is the current viewport; otherwise a w x h
    // bitmap, a new render area, and the viewport stored. A bitmap that
    // cannot be made throws CMemoryException and leaves the action without a
    // render area (Apply returns 0) until a SetViewport succeeds. Returns 1.
    int SetViewport(int x, int y, int w, int h) override;

    CSimpleDIB* GetSimpleDIB() const { return m_pDIB; }
    // The bitmap's Save.
    BOOL SaveToDIBFile(const CString& fileName) const;

    // The whole bitmap to (x, y).
    BOOL BitBlt(CDC* dc, int x, int y);
    BOOL BitBlt(CDC* dc, int x, int y, int w, int h, int srcX, int srcY);
    BOOL StretchBlt(CDC* dc, int x, int y, int w, int h, int srcX, int srcY, int srcW, int srcH);
    // Copies the source rectangle stretched to (x, y, w, h), leaving the
    // destination where the source has transparentColor. Hazard, kept as the
    // library has always done it: the mask that cuts the opaque part out of
    // the destination is applied at the destination's origin, not at (x, y),
    // so for (x, y) other than (0, 0) the destination's top-left w x h area
    // turns black under opaque source pixels and the picture is ORed onto
    // what is at (x, y).
    void TransparentBlt(CDC* dc, int x, int y, int w, int h, int srcX, int srcY, int srcW, int srcH,
                        unsigned long transparentColor);
    // Writes the palette's entries as the bitmap's colour table from index 0;
    // only indexed bitmaps (an 8-bit reference DC) have one. Null: nothing.
    void SetPalette(CPalette* palette);

protected:
    // Makes the bitmap at 32 x 32 for hdc and returns a new device over its DC.
    CVBitmapDevice* CreateDevice(HDC hdc);

    CSimpleDIB* m_pDIB = nullptr;
    HDC m_hDC = nullptr;

private:
    // Takes the area off the action, withdrawing the headlight from it.
    void ReleaseRenderArea();
};
