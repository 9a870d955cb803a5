#include "nodes/CVDrawStyle.h"

#include <GL/gl.h>

IMPLEMENT_DYNAMIC(CVDrawStyle, CVChild)

CVDrawStyle::CVDrawStyle() { lineWidth.SetValue(1.0f); }

void CVDrawStyle::Render(CVState*, CVGLRenderArea*) {
    switch (style.GetValue()) {
        case 1: glPolygonMode(GL_FRONT_AND_BACK, GL_LINE); break;
        case 2: glPolygonMode(GL_FRONT_AND_BACK, GL_POINT); break;
        case 3: break;  // inherit whatever mode is in force
        default: glPolygonMode(GL_FRONT_AND_BACK, GL_FILL); break;
    }
}
