#include "nodes/CVPolygonOffset.h"

#include <GL/gl.h>

IMPLEMENT_DYNAMIC(CVPolygonOffset, CVChild)

namespace {

void Switch(GLenum cap, int on) {
    if (on) glEnable(cap);
    else glDisable(cap);
}

}  // namespace

void CVPolygonOffset::Render(CVState*, CVGLRenderArea*) {
    Switch(GL_POLYGON_OFFSET_FILL, fill.GetValue());
    Switch(GL_POLYGON_OFFSET_LINE, line.GetValue());
    Switch(GL_POLYGON_OFFSET_POINT, point.GetValue());
    glPolygonOffset(factor.GetValue(), units.GetValue());
}
