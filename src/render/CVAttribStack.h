#pragma once
// glPushAttrib/glPopAttrib as the library uses them, with one driver
// workaround.
//
// Mesa 22.3 (llvmpipe, EGL and GLX): when a glPopAttrib of an inner
// GL_ENABLE_BIT group runs after glPolygonMode was changed, the outer
// glPopAttrib of GL_POLYGON_BIT no longer restores the polygon mode. A shape
// that leaves line mode behind (a partially selected cylinder does so by
// design) then turns every later shape into wire-frame although its group
// popped the polygon attributes. Push records the polygon mode of groups
// that save GL_POLYGON_BIT and Pop puts it back after glPopAttrib.
//
// Pushes and pops pair per GL context, as glPushAttrib's own stack does.
#include <GL/gl.h>

class CVAttribStack {
public:
    static void Push(GLbitfield mask);
    static void Pop();
};
