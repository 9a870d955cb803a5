#include "nodes/CVTransform.h"

#include <GL/gl.h>

#include "core/CVAction.h"

IMPLEMENT_DYNAMIC(CVTransform, CVGroup)

namespace {

const float kRadiansPerDegree = 0.017453292f;

bool IsZero(const Point3fStruct& v) { return v.x == 0.0f && v.y == 0.0f && v.z == 0.0f; }

void Rotate(float angle, const Point3fStruct& axis) {
    glRotatef(angle / kRadiansPerDegree, axis.x, axis.y, axis.z);
}

}  // namespace

CVTransform::CVTransform() {
    rotation.SetValue(1.0f, 0.0f, 0.0f, 0.0f);
    scale.SetValue(1.0f, 1.0f, 1.0f);
}

void CVTransform::Traverse(CVAction* action, const CArray<CVNode*, CVNode*>* path, int index) {
    TraverseInModelView(action, path, index);
}

void CVTransform::Render(CVState*, CVGLRenderArea*) {
    const Point3fStruct& t = translation.GetValue();
    const Point3fStruct& c = center.GetValue();
    const Point3fStruct& s = scale.GetValue();
    const CVRotation& r = rotation.GetValue();
    const CVRotation& so = scaleOrientation.GetValue();

    if (!IsZero(t)) glTranslatef(t.x, t.y, t.z);
    const bool centered = !IsZero(c);
    if (centered) glTranslatef(c.x, c.y, c.z);
    if (r.GetAngle() != 0.0f) Rotate(r.GetAngle(), r.GetAxis());
    if (so.GetAngle() != 0.0f) {
        Rotate(so.GetAngle(), so.GetAxis());
        glScalef(s.x, s.y, s.z);
        Rotate(-so.GetAngle(), so.GetAxis());
    } else if (!(s.x == 1.0f && s.y == 1.0f && s.z == 1.0f)) {
        glScalef(s.x, s.y, s.z);
    }
    if (centered) glTranslatef(-c.x, -c.y, -c.z);
}

CVMatrix CVTransform::GetMatrix() {
    GLint mode = GL_MODELVIEW;
    glGetIntegerv(GL_MATRIX_MODE, &mode);
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
    Render(nullptr, nullptr);
    GLfloat m[16];
    glGetFloatv(GL_MODELVIEW_MATRIX, m);
    glPopMatrix();
    glMatrixMode((GLenum)mode);
    return CVMatrix(m);
}
