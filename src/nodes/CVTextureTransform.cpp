#include "nodes/CVTextureTransform.h"

#include <GL/gl.h>

IMPLEMENT_DYNAMIC(CVTextureTransform, CVNode)

CVTextureTransform::CVTextureTransform() { scale.SetValue(1.0f, 1.0f); }

void CVTextureTransform::PushMatrix() {
    glMatrixMode(GL_TEXTURE);
    glPushMatrix();
    glMatrixMode(GL_MODELVIEW);
}

void CVTextureTransform::PopMatrix() {
    glMatrixMode(GL_TEXTURE);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
}

void CVTextureTransform::Apply() {
    const Point2fStruct& t = translation.GetValue();
    const Point2fStruct& c = center.GetValue();
    const Point2fStruct& s = scale.GetValue();
    const float angle = rotation.GetValue();
    glMatrixMode(GL_TEXTURE);
    glTranslatef(t.x, t.y, 0.0f);
    glTranslatef(c.x, c.y, 0.0f);
    if (angle != 0.0f) glRotatef(angle / 0.017453292f, 0.0f, 0.0f, 1.0f);
    glScalef(s.x, s.y, 0.0f);  // z factor 0 is what existing scenes were made with
    glTranslatef(-c.x, -c.y, 0.0f);
    glMatrixMode(GL_MODELVIEW);
}
