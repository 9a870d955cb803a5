#include "markers/CVMarkerTransform.h"

#include <GL/gl.h>

CVMarkerTransform::CVMarkerTransform(const CVGeometry& geometry, const Point3fStruct& size, int turnMarker) {
    glPushMatrix();
    if (turnMarker && geometry.IsMarkerNode()) glRotatef(90.0f, 1.0f, 0.0f, 0.0f);
    if (size.x < 0.0f) {
        glScalef(-size.x, -size.y, -size.z);
        glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
    } else {
        glScalef(size.x, size.y, size.z);
    }
}

CVMarkerTransform::~CVMarkerTransform() { glPopMatrix(); }
