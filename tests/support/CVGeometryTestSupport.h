#pragma once
// The headless fixture of the geometry and marker suites: a 64 x 64 bitmap
// context looking down -z through an orthographic box of -2..2 (16 pixels a
// unit, the origin between pixels 31 and 32) and depth -10..10, cleared to
// black, unlit, drawing white. Geometry is drawn directly or picked through a
// shape, as the pick action does.
#include <gtest/gtest.h>

#include <GL/gl.h>
#include <GL/glu.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <vector>

#include "library/CVLibrary.h"
#include "core/CVState.h"
#include "geometry/CVCone.h"
#include "geometry/CVCylinder.h"
#include "geometry/CVGeometry.h"
#include "geometry/CVShape.h"
#include "geometry/CVSphere.h"
#include "render/CVBitmapDevice.h"
#include "render/CVCacheManager.h"
#include "render/CVGLAction.h"
#include "render/CVGLRenderArea.h"
#include "support/CVGLQuery.h"
#include "support/CVTestBitmap.h"

namespace cvtest {

// Binds a new 1 x 2 texture, red below t = 0.5 and green above, sampled
// nearest; the caller deletes it.
inline GLuint BindRedGreenTexture() {
    GLuint texture = 0;
    glGenTextures(1, &texture);
    glBindTexture(GL_TEXTURE_2D, texture);
    const GLubyte texels[2][4] = {{255, 0, 0, 255}, {0, 255, 0, 255}};
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, 1, 2, 0, GL_RGBA, GL_UNSIGNED_BYTE, texels);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    return texture;
}

// Renders each node in PreActOn with the action's state; with picking on the
// state is the identification walk's.
class GeometryAction : public CVGLAction {
public:
    explicit GeometryAction(CVGLRenderArea* area, int picking) : CVGLAction(area), m_bPicking(picking) {}
    int Apply(CVNode* node) override {
        Reset();
        m_pState->m_bRecordPath = m_bPicking;
        node->Traverse(this, nullptr, 0);
        return 1;
    }
    void PreActOn(CVNode* node) override { node->Render(m_pState, m_pRenderArea); }

private:
    int m_bPicking;
};

// Lit pixels' extent, inclusive; empty when nothing is lit.
struct PixelBounds {
    int x0 = 1 << 30, y0 = 1 << 30, x1 = -1, y1 = -1;
    bool Empty() const { return x1 < 0; }
};

class GeometryFixture : public ::testing::Test {
protected:
    static const int kSize = 64;

    GeometryFixture() : bitmap(kSize, kSize), device(bitmap.GetDC()) {
        CVGLRenderArea::SetInflateWorld(0);
        area = new CVGLRenderArea(&device);
        area->Ref();
        area->SetViewport(0, 0, kSize, kSize);
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        glOrtho(-2.0, 2.0, -2.0, 2.0, -10.0, 10.0);
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        glClearColor(0.0f, 0.0f, 0.0f, 1.0f);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        glColor3f(1.0f, 1.0f, 1.0f);
    }
    ~GeometryFixture() override {
        for (CVNode* node : m_Held) node->Unref();
        if (m_pSavedManager) {
            // The ring ids are shared by both managers: drop what this test
            // compiled so that the library's manager cannot replay it.
            glDeleteLists(1000, CVCacheManager::kRingSize);
            glDeleteLists(2000, CVCacheManager::kRingSize);
            glDeleteLists(3000, CVCacheManager::kRingSize);
            CVSetCacheManagerPtr(m_pSavedManager);
        }
        delete m_pOwnManager;
        area->Unref();
        CVLibrary::ResetSettings();
    }

    // A new node held by the fixture for the test's life.
    template <class T>
    T* Make() {
        T* node = new T;
        node->Ref();
        m_Held.push_back(node);
        return node;
    }

    // Replaces the process-wide cache manager by an empty one until the test
    // ends, so that ring positions and keys start from scratch.
    CVCacheManager* FreshCacheManager() {
        if (!m_pSavedManager) m_pSavedManager = CVGetCacheManagerPtr();
        delete m_pOwnManager;
        m_pOwnManager = new CVCacheManager;
        CVSetCacheManagerPtr(m_pOwnManager);
        return m_pOwnManager;
    }

    void Draw(CVGeometry* g, CVAppearance* appearance = nullptr) {
        CVState state;
        g->Render(&state, area, appearance);
    }

    // Hits of a pick walk over a shape holding g, through a 3 x 3 pixel pick
    // matrix at window (x, y), with name 1 pushed around the walk.
    int Pick(CVGeometry* g, double x = 32.0, double y = 32.0) {
        CVShape* shape = Make<CVShape>();
        shape->geometry.SetValue(g);
        GLuint buffer[256];
        glSelectBuffer(256, buffer);
        glRenderMode(GL_SELECT);
        glInitNames();
        glMatrixMode(GL_PROJECTION);
        glPushMatrix();
        glLoadIdentity();
        GLint viewport[4];
        glGetIntegerv(GL_VIEWPORT, viewport);
        gluPickMatrix(x, y, 3.0, 3.0, viewport);
        glOrtho(-2.0, 2.0, -2.0, 2.0, -10.0, 10.0);
        glMatrixMode(GL_MODELVIEW);
        glPushName(1);
        GeometryAction action(area, 1);
        action.Apply(shape);
        glPopName();
        const int hits = glRenderMode(GL_RENDER);
        glMatrixMode(GL_PROJECTION);
        glPopMatrix();
        glMatrixMode(GL_MODELVIEW);
        return hits;
    }

    // Primitives that reach the rasteriser while draw runs, from GL feedback
    // (polygons may arrive split into triangles).
    struct Feedback {
        int points = 0, lines = 0, polygons = 0;
    };
    static Feedback Collect(const std::function<void()>& draw) {
        std::vector<GLfloat> buffer(1 << 16);
        glFeedbackBuffer((GLsizei)buffer.size(), GL_2D, buffer.data());
        glRenderMode(GL_FEEDBACK);
        draw();
        const int n = glRenderMode(GL_RENDER);
        Feedback f;
        for (int i = 0; i < n;) {
            const int token = (int)buffer[(size_t)i];
            if (token == GL_POINT_TOKEN) {
                ++f.points;
                i += 3;
            } else if (token == GL_LINE_TOKEN || token == GL_LINE_RESET_TOKEN) {
                ++f.lines;
                i += 5;
            } else if (token == GL_POLYGON_TOKEN) {
                ++f.polygons;
                i += 2 + 2 * (int)buffer[(size_t)i + 1];
            } else {
                ++i;  // pass-through and bitmap tokens do not occur here
            }
        }
        return f;
    }

    // A white light shining along -z from the viewer, no ambient light.
    static void LightFromViewer() {
        const GLfloat position[4] = {0.0f, 0.0f, 1.0f, 0.0f};
        const GLfloat white[4] = {1.0f, 1.0f, 1.0f, 1.0f};
        const GLfloat none[4] = {0.0f, 0.0f, 0.0f, 1.0f};
        glLightModelfv(GL_LIGHT_MODEL_AMBIENT, none);
        glLightfv(GL_LIGHT0, GL_POSITION, position);
        glLightfv(GL_LIGHT0, GL_DIFFUSE, white);
        glLightfv(GL_LIGHT0, GL_AMBIENT, none);
        glEnable(GL_LIGHT0);
        glEnable(GL_LIGHTING);
    }

    // Window pixel as 0x00RRGGBB, y up.
    static uint32_t Pixel(int x, int y) {
        GLubyte p[4];
        glReadPixels(x, y, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, p);
        return ((uint32_t)p[0] << 16) | ((uint32_t)p[1] << 8) | p[2];
    }
    static int Red(int x, int y) { return (int)(Pixel(x, y) >> 16); }
    // Window depth: 0.5 - z / 20 for eye z under the fixture's projection.
    static float Depth(int x, int y) {
        GLfloat d;
        glReadPixels(x, y, 1, 1, GL_DEPTH_COMPONENT, GL_FLOAT, &d);
        return d;
    }
    // Pixel of the point (x, y) in object units (its pixel's lower-left corner
    // rounding down).
    static int Px(float units) { return (int)((units + 2.0f) * 16.0f); }
    static bool Lit(float x, float y) { return Pixel(Px(x), Px(y)) != 0; }

    static PixelBounds LitBounds() {
        std::vector<GLubyte> p(kSize * kSize * 4);
        glReadPixels(0, 0, kSize, kSize, GL_RGBA, GL_UNSIGNED_BYTE, p.data());
        PixelBounds b;
        for (int y = 0; y < kSize; ++y) {
            for (int x = 0; x < kSize; ++x) {
                const GLubyte* q = &p[(size_t)(y * kSize + x) * 4];
                if (q[0] || q[1] || q[2]) {
                    b.x0 = std::min(b.x0, x);
                    b.y0 = std::min(b.y0, y);
                    b.x1 = std::max(b.x1, x);
                    b.y1 = std::max(b.y1, y);
                }
            }
        }
        return b;
    }
    static int CountLit(int x0, int y0, int x1, int y1) {
        int n = 0;
        for (int y = y0; y <= y1; ++y)
            for (int x = x0; x <= x1; ++x) n += Pixel(x, y) != 0;
        return n;
    }
    static GLint FrontPolygonMode() {
        GLint modes[2] = {0, 0};
        glGetIntegerv(GL_POLYGON_MODE, modes);
        return modes[0];
    }

    CVTestBitmap bitmap;
    CVBitmapDevice device;
    CVGLRenderArea* area;

private:
    std::vector<CVNode*> m_Held;
    CVCacheManager* m_pSavedManager = nullptr;
    CVCacheManager* m_pOwnManager = nullptr;
};

// Lit extent as {x0, y0, x1, y1}, for one comparison.
inline std::array<int, 4> Corners(const PixelBounds& b) { return {b.x0, b.y0, b.x1, b.y1}; }

// Field setters that hand the node back, for building shapes in one line.
template <class T>
T* Sized(T* g, float x, float y, float z) {
    g->size.SetValue(x, y, z);
    return g;
}
inline CVCone* Shaped(CVCone* g, float radius, float height) {
    g->bottomRadius.SetValue(radius);
    g->height.SetValue(height);
    return g;
}
inline CVCylinder* Shaped(CVCylinder* g, float radius, float height) {
    g->radius.SetValue(radius);
    g->height.SetValue(height);
    return g;
}
inline CVSphere* Shaped(CVSphere* g, float radius) {
    g->radius.SetValue(radius);
    return g;
}

// Keeps nodes alive until it goes out of scope.
class Holder {
public:
    ~Holder() {
        for (CVNode* n : m_nodes) n->Unref();
    }
    template <class T>
    T* operator()(T* node) {
        node->Ref();
        m_nodes.push_back(node);
        return node;
    }

private:
    std::vector<CVNode*> m_nodes;
};

}  // namespace cvtest
