#pragma once
// glPushAttrib/glPopAttrib as the library uses them, with the driver
// workarounds that belong to the attribute stack (see CVMesaQuirks):
// - PolygonModeLostAfterEnablePop: a push of GL_POLYGON_BIT records the
//   polygon mode and the pop puts it back;
// - LightEnablesSurviveEnablePop: a push of GL_ENABLE_BIT without
//   GL_LIGHTING_BIT records which lights are on and the pop restores them;
// - ColorMaterialStaleAfterLightingPop: a pop of GL_LIGHTING_BIT re-applies
//   colour-material tracking to the restored material.
//
// Pushes and pops pair per GL context, as glPushAttrib's own stack does.
#include <GL/gl.h>

class CVAttribStack {
public:
    static void Push(GLbitfield mask);
    static void Pop();
};
