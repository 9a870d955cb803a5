#pragma once
// The one table of driver quirks the library works around. Each entry names
// the driver it was seen on, the symptom, where the workaround lives and the
// test that fails without it. The workarounds ask Applies() before they act.
//
// Every entry was seen on Mesa 22.3 (Debian 12, llvmpipe); no release is known
// that fixes any of them, so each applies to every context whose GL_VERSION
// names Mesa.

enum class CVMesaQuirk {
    // glAccum converts through sRGB on GLX window buffers, even with
    // GL_FRAMEBUFFER_SRGB off: three frames at 1/3 average to grey 156, not
    // 85. Workaround: CVAccum uses the CPU accumulation buffer.
    AccumThroughSRGB,
    // After an inner glPopAttrib(GL_ENABLE_BIT) that follows a glPolygonMode,
    // the outer glPopAttrib(GL_POLYGON_BIT) no longer restores the polygon
    // mode, so one wire-frame shape turns every later shape into wire-frame.
    // Workaround: CVAttribStack puts the mode back.
    PolygonModeLostAfterEnablePop,
    // glCallList in GL_SELECT mode crashes inside the driver when the list
    // holds three or more glBegin/glEnd blocks of mixed primitive types with
    // nothing between them (a cylinder). Workaround: CVSelectSafeList opens
    // each block after a state call.
    SelectListMixedBlocksCrash,
    // glPopAttrib(GL_ENABLE_BIT) without GL_LIGHTING_BIT leaves lights enabled
    // that were enabled after the push. The replay of deferred shapes enables
    // the scene light inside such a bracket, so every frame adds one more
    // light and transparent shapes brighten frame after frame. Workaround:
    // CVAttribStack restores the light enables itself.
    LightEnablesSurviveEnablePop,
    // glPopAttrib(GL_LIGHTING_BIT) restores the saved material but does not
    // apply colour-material tracking to it, and a glColor equal to the current
    // colour is dropped as redundant. Shapes whose colour repeats the last one
    // drawn then show the material of the push: white boxes from the second
    // frame on. Workaround: CVAttribStack re-applies tracking after the pop.
    ColorMaterialStaleAfterLightingPop,
    // glMaterialfv(GL_AMBIENT) is ignored while colour material tracks ambient
    // and diffuse, so a material's ambient intensity has no effect. The
    // workaround (CVMesaQuirks::SetMaterialAmbient) narrows tracking to the
    // diffuse colour before setting the ambient one. Trade-off: colours a
    // geometry sends per vertex afterwards change the diffuse colour only.
    TrackedAmbientIgnored,
    Count
};

struct CVMesaQuirkEntry {
    CVMesaQuirk quirk;
    const char* name;
    const char* workaround;  // the class that owns it
    const char* test;        // suite.case that fails without it
};

class CVMesaQuirks {
public:
    static const CVMesaQuirkEntry& Entry(CVMesaQuirk quirk);

    // The current context's driver has the quirk and its workaround is on.
    // False without a current context. Cheap: the driver check is made once
    // per context and thread.
    static int Applies(CVMesaQuirk quirk);

    // Tests turn a workaround off to show that its test fails without it.
    // Process-wide; every workaround starts on.
    static void SetWorkaroundEnabled(CVMesaQuirk quirk, int on);
    static int IsWorkaroundEnabled(CVMesaQuirk quirk);
    static void EnableAllWorkarounds();

    // glMaterialfv(face, GL_AMBIENT, rgba) that takes effect under colour
    // material: with TrackedAmbientIgnored, tracking on face is narrowed to
    // GL_DIFFUSE first.
    static void SetMaterialAmbient(unsigned int face, const float* rgba);
};
