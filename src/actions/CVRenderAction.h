#pragma once
// Draws a scene graph into a render area, one frame per Apply:
//   viewport (which makes the area current), shadow matrix when drop shadows
//   are on, the optional jittered antialiasing passes, then a pass:
//   background, headlight, the walk (render pass 1), the transparent list
//   (pass 2), the annotation list (pass 3), the transparent list again;
//   finally glFinish and SwapBuffers when asked.
//
// Background. A window is cleared with glClear. A bitmap is never cleared
// with GL: its background is painted with GDI on the area's DC by the
// action's CVBackgroundPainter (fill styles, images, gradients: see there).
//
// Scene antialiasing (the area's setting) draws three jittered passes into
// the accumulation buffer (CVAccum), returns their average and draws a final
// unjittered pass over it without clearing; geometry reads the area's
// antialiasing mode (1 jittered, 2 final) to choose what each pass draws.
//
// Hazard: a headlight that is on becomes the area's light node; the action
// withdraws it from the area when it is destroyed.
#include "../platform/CVExport.h"
#include "CVBackgroundPainter.h"
#include "../math/CVStructs.h"
#include "../math/CVViewport.h"
#include "../nodes/CVDirectionalLight.h"
#include "../platform/CString.h"
#include "../platform/WinGDI.h"
#include "../render/CVGLAction.h"

class CVSCENE_API CVRenderAction : public CVGLAction {
    DECLARE_DYNAMIC(CVRenderAction)
public:
    // Both take the area's viewport as the action's.
    explicit CVRenderAction(CVGLDevice* device);
    explicit CVRenderAction(CVGLRenderArea* area);
    ~CVRenderAction() override;

    // Apply(root, 1).
    int Apply(CVNode* root) override;
    // One frame; 0 for a null root (or no render area), else 1. setViewport 0
    // keeps the area's GL viewport and only makes the area current.
    int Apply(CVNode* root, int setViewport);
    // node->Render(state, area).
    void PreActOn(CVNode* node) override;

    virtual int SetSwapBuffersAfterRender(int on);
    virtual int GetSwapBuffersAfterRender() const;
    virtual int SetClearColorBeforeRender(int on);
    virtual int GetClearColorBeforeRender() const;
    virtual int SetClearColor(const RGBAColorStruct& color);
    virtual int SetClearColor(float r, float g, float b, float a);
    virtual RGBAColorStruct GetClearColor() const;
    virtual int SetHeadlightOn(int on);
    virtual int IsHeadlightOn() const;
    // The action's viewport only; Apply hands it to the area.
    virtual int SetViewport(int x, int y, int width, int height);
    virtual void GetViewport(int& x, int& y, int& width, int& height) const;
    // Forwarded to the render area.
    virtual int SetRenderCache(CVGLRenderArea* other);
    virtual CVGLRenderArea* GetRenderCache() const;

    // 1 gradient, 2 to 4 image, other values plain clear colour (default 0).
    int SetFillStyle(int style);
    int SetImageFilename(CString name);
    // Where fit styles without a placement rule put the image (DC coordinates).
    int SetImageOffset(int x, int y);
    // Above 1: the drawn size factor; otherwise the area's global scale factor is.
    int SetImageScale(float scale);
    // 1 stretch (default), 2 or 13 tile, 4 centre, 5 to 8 edge centres,
    // 9 to 12 corners (top left, top right, bottom left, bottom right).
    int SetImageFitStyle(int style);
    // Types 1, 4 and 5 sweep horizontally, the others vertically; 5, 6 and 9
    // run from the end colour to the start colour. Default 7.
    int SetGradientType(int type);
    int SetStartGradientColor(const RGBAColorStruct& color);
    int SetEndGradientColor(const RGBAColorStruct& color);

protected:
    // Every default; the viewport is copied from the render area.
    void Init();
    // Viewport, clear colour, swap and clear flags and headlight switch of other.
    void Clone(const CVRenderAction* other);
    void DoSetViewport();
    // Projection identity, model-view and state pushes, render pass 1,
    // background, headlight.
    void PreApplyGL();
    // Model-view and state pops, render pass 0.
    void PostApplyGL();
    // Replays the deferred lists with the matrices and state captured at deferral.
    void RenderTransparentNodes();
    void RenderAnnotationNodes();
    // Fills the background bitmap from the image file name (see above).
    void LoadBackgroundTextureImage();

    int m_bSwapBuffersAfterRender;
    int m_bClearColorBeforeRender;
    int m_bClearDepthBeforeRender;  // off only in the last pass of scene antialiasing
    CVDirectionalLight m_Headlight;
    RGBAColorStruct m_ClearColor;
    CVViewport m_Viewport;
    CVBackgroundPainter m_Background;

private:
    void PaintBackground();
    void RunPass(CVNode* root);
    // Shared bracket of both deferred-list replays: the pass, the area's
    // projection, lighting and the shadow light; and per record its
    // captured matrices inside an attribute push that the caller pops.
    void BeginReplay(CVRenderPass pass);
    void BeginRecord(const double* projection, const float* modelview);
    void EndReplay();
};
