#pragma once
// Pieces shared by the action, grouping, shape and camera and light suites: an
// action that logs the walk, a geometry that records how it was drawn, a
// render action that draws in PreActOn, and the headless GL fixture.
#include <gtest/gtest.h>

#include <GL/gl.h>

#include <cmath>
#include <functional>
#include <initializer_list>
#include <map>
#include <string>
#include <vector>

#include "library/CVLibrary.h"
#include "core/CVAction.h"
#include "core/CVState.h"
#include "geometry/CVGeometry.h"
#include "math/CVBox3f.h"
#include "math/CVMatrix.h"
#include "nodes/CVAppearance.h"
#include "render/CVBitmapDevice.h"
#include "render/CVGLAction.h"
#include "render/CVGLRenderArea.h"
#include "support/CVGLQuery.h"
#include "support/CVTestBitmap.h"

namespace cvtest {

using Log = std::vector<std::string>;

// Logs every callback as "pre A", "post A", "push", "pop" with the labels
// given to nodes; unlabelled nodes log as "?". onPre runs after logging.
class LogAction : public CVAction {
public:
    int Apply(CVNode* node) override {
        Reset();
        node->Traverse(this, nullptr, 0);
        return 1;
    }
    void PreActOn(CVNode* node) override {
        log.push_back("pre " + Label(node));
        if (onPre) onPre(node);
    }
    void PostActOn(CVNode* node) override { log.push_back("post " + Label(node)); }
    void PushState() override {
        log.push_back("push");
        CVAction::PushState();
    }
    void PopState() override {
        log.push_back("pop");
        CVAction::PopState();
    }
    void Stop() { m_bContinue = 0; }
    std::string Label(CVNode* node) const {
        auto it = labels.find(node);
        return it == labels.end() ? "?" : it->second;
    }

    std::map<CVNode*, std::string> labels;
    Log log;
    std::function<void(CVNode*)> onPre;
};

inline CArray<CVNode*, CVNode*> Path(std::initializer_list<CVNode*> nodes) {
    CArray<CVNode*, CVNode*> path;
    for (CVNode* n : nodes) path.Add(n);
    return path;
}

// What one call of TestGeometry::Render saw.
struct DrawRecord {
    CVAppearance* appearance;
    float color[4];
    CVMatrix modelView, textureMatrix;
    bool stipple, lighting;
    GLint nameStackDepth;
};

// Draws nothing itself; records each Render. Its box is `box` (a unit box at
// the origin unless changed), united into the given one.
class TestGeometry : public CVGeometry {
public:
    TestGeometry() {
        box.SetCenter(0.0f, 0.0f, 0.0f);
        box.SetSize(1.0f, 1.0f, 1.0f);
    }
    void Render(CVState*, CVGLRenderArea*, CVAppearance* appearance) override {
        DrawRecord r;
        r.appearance = appearance;
        glGetFloatv(GL_CURRENT_COLOR, r.color);
        r.modelView = GetMatrix(GL_MODELVIEW_MATRIX);
        r.textureMatrix = GetMatrix(GL_TEXTURE_MATRIX);
        r.stipple = glIsEnabled(GL_POLYGON_STIPPLE) != 0;
        r.lighting = glIsEnabled(GL_LIGHTING) != 0;
        r.nameStackDepth = GetInt(GL_NAME_STACK_DEPTH);
        draws.push_back(r);
    }
    void ComputeBoundingBox(CVState*, CVGLRenderArea*, CVBox3f* target) override { target->Union(&box); }

    CVBox3f box;
    std::vector<DrawRecord> draws;
};

// The part of a render walk these suites need: nodes draw themselves in
// PreActOn, in the given pass.
class DrawAction : public CVGLAction {
public:
    explicit DrawAction(CVGLRenderArea* area) : CVGLAction(area) {}
    int Apply(CVNode* node) override {
        Reset();
        node->Traverse(this, nullptr, 0);
        return 1;
    }
    void PreActOn(CVNode* node) override { node->Render(m_pState, m_pRenderArea); }
};

// A 64 x 64 headless context with an uninflated viewport over the whole bitmap.
class GLFixture : public ::testing::Test {
protected:
    GLFixture() : bitmap(64, 64), device(bitmap.GetDC()) {
        CVLibrary::ResetSettings();  // suites must not see each other's settings or materials
        CVGLRenderArea::SetInflateWorld(0);
        area = new CVGLRenderArea(&device);
        area->Ref();
        area->SetViewport(0, 0, 64, 64);
    }
    ~GLFixture() override {
        area->Unref();
        CVLibrary::ResetSettings();
    }

    static CVMatrix ModelView() { return GetMatrix(GL_MODELVIEW_MATRIX); }

    CVTestBitmap bitmap;
    CVBitmapDevice device;
    CVGLRenderArea* area;
};

// Element-wise comparison with a tolerance for float round-off in GL.
inline ::testing::AssertionResult MatrixNear(const CVMatrix& a, const CVMatrix& b, float tolerance = 1e-5f) {
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            if (std::fabs(a.m[r][c] - b.m[r][c]) > tolerance)
                return ::testing::AssertionFailure() << "element [" << r << "][" << c << "]: " << a.m[r][c]
                                                     << " vs " << b.m[r][c];
    return ::testing::AssertionSuccess();
}

// Components of a vector or point within a tolerance.
template <class A, class B>
::testing::AssertionResult Near3(const A& a, const B& b, float tolerance = 1e-5f) {
    if (std::fabs(a.x - b.x) > tolerance || std::fabs(a.y - b.y) > tolerance || std::fabs(a.z - b.z) > tolerance)
        return ::testing::AssertionFailure() << "(" << a.x << ", " << a.y << ", " << a.z << ") vs (" << b.x << ", "
                                             << b.y << ", " << b.z << ")";
    return ::testing::AssertionSuccess();
}

}  // namespace cvtest
