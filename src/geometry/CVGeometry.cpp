#include "geometry/CVGeometry.h"

#include <GL/gl.h>

#include "core/CVState.h"
#include "math/CVBox3f.h"
#include "math/CVVector.h"
#include "nodes/CVAppearance.h"
#include "render/CVGLRenderArea.h"

IMPLEMENT_DYNAMIC(CVGeometry, CVNode)

int CVGeometry::SetModifiedFlag(int on) {
    m_nFlags &= ~kCached;
    return Set(kModified, on);
}

int CVGeometry::SetStippleIndex(unsigned short index) {
    m_nStipple = (unsigned short)((m_nStipple & 0xFF00) | (index ? 1 : 0));
    return 1;
}

int CVGeometry::SetStipplePercent(unsigned short percent) {
    m_nStipple = (unsigned short)((m_nStipple & 0x00FF) | ((percent & 0xFF) << 8));
    return 1;
}

void CVGeometry::BeginImageMap(int) {}
void CVGeometry::EndImageMap() {}

CVImageMapKeyStruct CVGeometry::GetImageMapKey() const {
    return CVImageMapKeyStruct{IsDetailPieSlice() ? 1 : 0, IsGraphShape() ? 1 : 0, IsAnnotationNode() ? 1 : 0,
                               IsLineGeometry(), GetCrdOverlayIndex()};
}

void CVGeometry::PreRenderGL(CVState*, CVGLRenderArea* area, CVAppearance* appearance) {
    glPushAttrib(GL_ENABLE_BIT);
    if (appearance && appearance->GetTexture() && area && area->IsTexturingEnabled()) glEnable(GL_TEXTURE_2D);
    if (IsStippled() && area) area->SetStipplePattern(GetStippleIndex());
}

void CVGeometry::PostRenderGL(CVState*, CVGLRenderArea*, CVAppearance*) { glPopAttrib(); }

void CVGeometry::ComputeArea(const CArray<Point3fStruct>& points, Point3fStruct& area) {
    area = Point3fStruct{0.0f, 0.0f, 0.0f};
    const INT_PTR m = points.GetSize() - 2;
    for (INT_PTR i = 0; i < m; ++i) {
        const Point3fStruct& p = points[i];
        const Point3fStruct& q = points[i + 1 < m ? i + 1 : 0];
        area.x += (q.z - p.z) * 0.5f * (q.y + p.y);
        area.y += (q.x - p.x) * 0.5f * (q.z + p.z);
        area.z += (q.x - p.x) * 0.5f * (q.y + p.y);
    }
    area.z = -area.z;
}

void CVGeometry::ComputeNormal(const CArray<Point3fStruct>& points, int counterClockwise, CVVector& normal) {
    const INT_PTR n = points.GetSize();
    if (n < 3) {
        normal.SetValue(0.0f, 0.0f, 0.0f);
    } else if (n == 3) {
        const CVVector p0(points[0]), p1(points[1]), p2(points[2]);
        normal = (p1 - p0) * (p2 - p1);
    } else if (n == 4) {
        const CVVector p0(points[0]), p1(points[1]), p2(points[2]), p3(points[3]);
        normal = (p2 - p0) * (p3 - p1);
    } else {
        Point3fStruct area;
        ComputeArea(points, area);
        normal.SetValue(area);
    }
    if (!counterClockwise) normal *= -1.0f;
}

int CVGeometry::UsesTiledTexture(const CVAppearance* appearance) const {
    if (IsVRMLCompliant() || !appearance) return 0;
    const CVTexture* texture = appearance->GetTexture();
    return texture && texture->IsTiled() ? 1 : 0;
}

int CVGeometry::IsPicking(const CVState* state) { return state && state->m_bRecordPath ? 1 : 0; }

void CVGeometry::SetCenteredBox(CVBox3f* box, const Point3fStruct& size) {
    if (!box) return;
    box->SetCenter(0.0f, 0.0f, 0.0f);
    box->SetSize(size);
}
