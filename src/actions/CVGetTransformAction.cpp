#include "actions/CVGetTransformAction.h"

#include <GL/gl.h>
#include <GL/glu.h>

#include <cstring>

#include "nodes/CVGroup.h"

IMPLEMENT_DYNAMIC(CVGetTransformAction, CVGLAction)

const double CVGetTransformAction::m_identity[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

CVGetTransformAction::CVGetTransformAction(CVGLRenderArea* area) : CVGLAction(area) { Reset(); }

int CVGetTransformAction::Apply(CVNode* node) {
    CArray<CVNode*, CVNode*> path;
    path.Add(node);
    return Apply(path);
}

int CVGetTransformAction::Apply(const CArray<CVNode*, CVNode*>& path) {
    Reset();
    if (path.GetSize() == 0 || !path[0]) return 0;
    m_pPathEnd = path[path.GetSize() - 1];
    path[0]->Traverse(this, &path, 0);
    m_pPathEnd = nullptr;
    return m_bCaptured;
}

void CVGetTransformAction::PreActOn(CVNode* node) {
    if (node->IsKindOf(RUNTIME_CLASS(CVGroup))) node->Render(m_pState, m_pRenderArea);
    if (node == m_pPathEnd && !m_bCaptured) Capture();
}

void CVGetTransformAction::Capture() {
    glGetDoublev(GL_MODELVIEW_MATRIX, m_dModelView);
    glGetDoublev(GL_PROJECTION_MATRIX, m_dProjection);
    glGetIntegerv(GL_VIEWPORT, m_nViewport);
    m_bCaptured = 1;
}

void CVGetTransformAction::Reset() {
    CVGLAction::Reset();
    std::memcpy(m_dModelView, m_identity, sizeof(m_dModelView));
    std::memcpy(m_dProjection, m_identity, sizeof(m_dProjection));
    std::memset(m_nViewport, 0, sizeof(m_nViewport));
    m_bCaptured = 0;
}

int CVGetTransformAction::TransformCoord(float x, float y, float z, float& ox, float& oy, float& oz) const {
    GLdouble rx = 0.0, ry = 0.0, rz = 0.0;
    GLint ok = GL_FALSE;
    if (m_eTransformType == ObjectToWindow)
        ok = gluProject(x, y, z, m_dModelView, m_dProjection, m_nViewport, &rx, &ry, &rz);
    else if (m_eTransformType == WindowToObject)
        ok = gluUnProject(x, y, z, m_dModelView, m_dProjection, m_nViewport, &rx, &ry, &rz);
    if (ok != GL_TRUE) {
        ox = oy = oz = 0.0f;
        return 0;
    }
    ox = (float)rx;
    oy = (float)ry;
    oz = (float)rz;
    return 1;
}

int CVGetTransformAction::TransformCoord(const Point3fStruct& in, Point3fStruct& out) const {
    return TransformCoord(in.x, in.y, in.z, out.x, out.y, out.z);
}

int CVGetTransformAction::TransformSize(float x, float y, float z, float& ox, float& oy, float& oz) const {
    float ex, ey, ez, bx, by, bz;
    if (!TransformCoord(x, y, z, ex, ey, ez) || !TransformCoord(0.0f, 0.0f, 0.0f, bx, by, bz)) {
        ox = oy = oz = 0.0f;
        return 0;
    }
    ox = ex - bx;
    oy = ey - by;
    oz = ez - bz;
    return 1;
}

int CVGetTransformAction::TransformSize(const Point3fStruct& in, Point3fStruct& out) const {
    return TransformSize(in.x, in.y, in.z, out.x, out.y, out.z);
}
