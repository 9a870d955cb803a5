#include "actions/CVRenderAction.h"

#include <GL/gl.h>

#include <algorithm>
#include <cstring>

#include "core/CVNode.h"
#include "render/CVLight.h"
#include "platform/CVAccumBuffer.h"
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

}  // namespace

CVRenderAction::CVRenderAction(CVGLDevice* device) : CVGLAction(device) { Init(); }

CVRenderAction::CVRenderAction(CVGLRenderArea* area) : CVGLAction(area) { Init(); }

CVRenderAction::~CVRenderAction() {
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
    m_pState->m_nRenderPass = CVRenderPassScene;

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
    m_pState->m_nRenderPass = CVRenderPassIdle;
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
    m_Background.Paint(area->GetHdc(), rect, {m_ClearColor, s, area->IsTexturingEnabled(), area->GetIUnknownInterface()});
}

void CVRenderAction::LoadBackgroundTextureImage() { m_Background.LoadImage(m_pRenderArea->GetIUnknownInterface()); }

void CVRenderAction::BeginReplay(CVRenderPass pass) {
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
    BeginReplay(CVRenderPassTransparent);

    // The list may grow while it is drawn.
    for (int i = 0; i < area->GetTransparentNodeListSize(); ++i) {
        const TranspNodeInfoStruct* info = area->GetTransparentNodeInfo(i);
        BeginRecord(info->projectionMatrix, info->modelviewMatrix);
        if (info->type == CVDeferText) {
            PreActOn(info->node);
        } else {
            if (info->type == CVDeferTransparent) {
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
    BeginReplay(CVRenderPassAnnotation);

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
    m_Background.m_nFillStyle = style;
    return 1;
}

int CVRenderAction::SetImageFilename(CString name) {
    m_Background.m_strImageFilename = name;
    return 1;
}

int CVRenderAction::SetImageOffset(int x, int y) {
    m_Background.m_nImageOffsetX = x;
    m_Background.m_nImageOffsetY = y;
    return 1;
}

int CVRenderAction::SetImageScale(float scale) {
    m_Background.m_fImageScale = scale;
    return 1;
}

int CVRenderAction::SetImageFitStyle(int style) {
    m_Background.m_nImageFitStyle = style;
    return 1;
}

int CVRenderAction::SetGradientType(int type) {
    m_Background.m_nGradientType = type;
    return 1;
}

int CVRenderAction::SetStartGradientColor(const RGBAColorStruct& color) {
    m_Background.m_StartGradientColor = color;
    return 1;
}

int CVRenderAction::SetEndGradientColor(const RGBAColorStruct& color) {
    m_Background.m_EndGradientColor = color;
    return 1;
}
