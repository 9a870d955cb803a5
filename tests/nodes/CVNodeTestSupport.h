#pragma once
// Pieces shared by the property-node suites: the headless 64 x 64 GL target
// with a frame drawn by the render action, a quad geometry that draws and
// records, and GL state read-backs.
#include <array>
#include <vector>

#include "actions/CVRenderAction.h"
#include "geometry/CVShape.h"
#include "nodes/CVGroup.h"
#include "render/CVCacheManager.h"
#include "support/CVActionTestSupport.h"

namespace cvtest {

typedef std::array<GLfloat, 4> Rgba;

inline Rgba GetRgba(GLenum what) {
    Rgba v{};
    glGetFloatv(what, v.data());
    return v;
}

inline Rgba GetMaterial(GLenum face, GLenum what) {
    Rgba v{};
    glGetMaterialfv(face, what, v.data());
    return v;
}

inline ::testing::AssertionResult RgbaNear(const Rgba& got, const Rgba& want, float tolerance = 1e-6f) {
    for (int i = 0; i < 4; ++i)
        if (std::fabs(got[i] - want[i]) > tolerance)
            return ::testing::AssertionFailure() << "component " << i << ": " << got[i] << " vs " << want[i];
    return ::testing::AssertionSuccess();
}

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
        draws.push_back({state ? state->m_nRenderPass : -1, glIsEnabled(GL_DEPTH_TEST) != 0,
                         GetMatrix(GL_MODELVIEW_MATRIX).m[0][3]});
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

// The action suites' headless context (which starts from reset settings and
// an unknown material cache).
class NodeGLFixture : public GLFixture {
protected:
    ~NodeGLFixture() override { area->ResetAnnotationNodeList(); }

    static void ForgetMaterial() { CVGetCacheManagerPtr()->ForgetMaterial(); }

    // One frame on black, swapped into the bitmap, drawn twice: the second
    // must equal the first, since state that leaks from frame to frame is a
    // real class of bug. The headlight is on so that the deferred passes,
    // which light everything, show pure colours as the unlit scene pass does.
    void DrawFrame(CVNode* root) {
        CVRenderAction action(area);
        action.SetHeadlightOn(1);
        action.Apply(root);
        const std::vector<uint32_t> first = bitmap.Pixels();
        action.Apply(root);
        EXPECT_TRUE(first == bitmap.Pixels()) << "the second frame differs from the first";
    }
    // A pixel of the last frame (y up) as 0xRRGGBB.
    uint32_t Pixel(int x, int y) const { return bitmap.Pixel(x, y); }
};

}  // namespace cvtest
