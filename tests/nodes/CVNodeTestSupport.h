#pragma once
// Pieces shared by the property-node suites: the headless 64 x 64 GL target,
// a walk that draws in PreActOn through the scene and annotation passes as
// the render action does, and a quad geometry that draws and records.
#include <gtest/gtest.h>

#include <GL/gl.h>

#include <vector>

#include "actions/CVGLAction.h"
#include "actions/CVGroup.h"
#include "actions/CVShape.h"
#include "actions/CVState.h"
#include "geometry/CVGeometry.h"
#include "math/CVBox3f.h"
#include "nodes/CVAppearance.h"
#include "render/CVBitmapDevice.h"
#include "render/CVCacheManager.h"
#include "render/CVGLRenderArea.h"
#include "support/CVTestBitmap.h"

namespace cvtest {

// Scene pass (1), then the annotation list in pass 3, each record walked
// under its captured matrices; nodes draw themselves in PreActOn.
class PassAction : public CVGLAction {
public:
    explicit PassAction(CVGLRenderArea* area) : CVGLAction(area) {}
    int Apply(CVNode* root) override {
        Reset();
        PushModelView();
        PushState();
        m_pState->m_nRenderPass = 1;
        root->Traverse(this, nullptr, 0);
        annotationsAfterScene = m_pRenderArea->GetAnnotationNodeListSize();
        if (annotationsAfterScene > 0) {
            m_pState->m_nRenderPass = 3;
            for (int i = 0; i < m_pRenderArea->GetAnnotationNodeListSize(); ++i) {
                AnnotateNodeInfoStruct* info = m_pRenderArea->GetAnnotationNodeInfo(i);
                glPushAttrib(GL_ENABLE_BIT | GL_POLYGON_BIT | GL_LINE_BIT | GL_POINT_BIT);
                glMatrixMode(GL_PROJECTION);
                glLoadMatrixd(info->projectionMatrix);
                glMatrixMode(GL_MODELVIEW);
                glLoadMatrixf(info->modelviewMatrix);
                info->node->Traverse(this, nullptr, 0);
                glPopAttrib();
            }
            m_pRenderArea->ResetAnnotationNodeList();
        }
        PopState();
        PopModelView();
        m_pState->m_nRenderPass = 0;
        return 1;
    }
    void PreActOn(CVNode* node) override { node->Render(m_pState, m_pRenderArea); }

    INT_PTR annotationsAfterScene = 0;
};

// What one draw of a QuadGeometry saw.
struct QuadDraw {
    int pass;
    bool depthTest;
    float modelViewX;  // x translation of the model-view matrix
};

// A rectangle (x0,y0)-(x1,y1) at height z facing +z, texture coordinates 0..1
// over it. Enables 2-D texturing when the appearance holds a texture and the
// area allows it, as geometry does.
class QuadGeometry : public CVGeometry {
public:
    QuadGeometry(float x0 = -1.0f, float y0 = -1.0f, float x1 = 1.0f, float y1 = 1.0f, float z = 0.0f)
        : m_x0(x0), m_y0(y0), m_x1(x1), m_y1(y1), m_z(z) {}
    void Render(CVState* state, CVGLRenderArea* area, CVAppearance* appearance) override {
        GLfloat m[16];
        glGetFloatv(GL_MODELVIEW_MATRIX, m);
        draws.push_back({state ? state->m_nRenderPass : -1, glIsEnabled(GL_DEPTH_TEST) != 0, m[12]});
        glPushAttrib(GL_ENABLE_BIT);
        if (appearance && appearance->GetTexture() && area->IsTexturingEnabled()) glEnable(GL_TEXTURE_2D);
        glBegin(GL_QUADS);
        glNormal3f(0.0f, 0.0f, 1.0f);
        glTexCoord2f(0.0f, 0.0f);
        glVertex3f(m_x0, m_y0, m_z);
        glTexCoord2f(1.0f, 0.0f);
        glVertex3f(m_x1, m_y0, m_z);
        glTexCoord2f(1.0f, 1.0f);
        glVertex3f(m_x1, m_y1, m_z);
        glTexCoord2f(0.0f, 1.0f);
        glVertex3f(m_x0, m_y1, m_z);
        glEnd();
        glPopAttrib();
    }
    void ComputeBoundingBox(CVState*, CVGLRenderArea*, CVBox3f* box) override {
        CVBox3f own;
        own.SetCenter((m_x0 + m_x1) * 0.5f, (m_y0 + m_y1) * 0.5f, m_z);
        own.SetSize(m_x1 - m_x0, m_y1 - m_y0, 0.0f);
        box->Union(&own);
    }

    std::vector<QuadDraw> draws;

private:
    float m_x0, m_y0, m_x1, m_y1, m_z;
};

// A shape holding a quad and, optionally, an appearance.
inline CVShape* MakeQuadShape(QuadGeometry* quad, CVAppearance* appearance = nullptr) {
    auto* shape = new CVShape;
    shape->geometry.SetValue(quad);
    if (appearance) shape->appearance.SetValue(appearance);
    return shape;
}

// The 64 x 64 headless context, uninflated viewport over the whole bitmap,
// identity matrices, and the process-wide material state reset to unknown so
// that suites do not see each other's materials.
class NodeGLFixture : public ::testing::Test {
protected:
    NodeGLFixture() : bitmap(64, 64), device(bitmap.GetDC()) {
        CVGLRenderArea::SetInflateWorld(0);
        area = new CVGLRenderArea(&device);
        area->Ref();
        area->SetViewport(0, 0, 64, 64);
        ForgetMaterial();
    }
    ~NodeGLFixture() override {
        area->ResetAnnotationNodeList();
        area->Unref();
        CVGLRenderArea::SetInflateWorld(1);
    }

    static void ForgetMaterial() {
        CVCacheManager* m = CVGetCacheManagerPtr();
        m->InitGLColor();
        m->m_EmissiveColor = m->m_SpecularColor = {-1.0f, -1.0f, -1.0f};
        m->m_fAmbientIntensity = m->m_fShininess = m->m_fTransparency = -1.0f;
    }

    // Clears to the given colour (exact in 8 bits) with depth 1.
    static void Clear(float r, float g, float b) {
        glClearColor(r, g, b, 1.0f);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    }

    // Brings the frame into the bitmap, then reads one pixel (y up) as 0xRRGGBB.
    uint32_t Pixel(int x, int y) const { return bitmap.Pixel(x, y); }
    void ToBitmap() { area->SwapBuffers(); }

    CVTestBitmap bitmap;
    CVBitmapDevice device;
    CVGLRenderArea* area;
};

}  // namespace cvtest
