#include "platform/CVMesaQuirks.h"

#include <GL/gl.h>

#include <cstdint>
#include <cstring>

#include "platform/CVGLContext.h"

namespace {

const CVMesaQuirkEntry kEntries[] = {
    {CVMesaQuirk::AccumThroughSRGB, "AccumThroughSRGB", "CVAccum",
     "CVGLXContextGLTest.ContextWithAccumulationBitsAveragesLinearly"},
    {CVMesaQuirk::PolygonModeLostAfterEnablePop, "PolygonModeLostAfterEnablePop", "CVAttribStack",
     "CVMesaQuirksGLTest.EachSymptomNeedsItsWorkaround"},
    {CVMesaQuirk::SelectListMixedBlocksCrash, "SelectListMixedBlocksCrash", "CVSelectSafeList",
     "CVMesaQuirksDeathTest.SelectListMixedBlocksCrash"},
    {CVMesaQuirk::LightEnablesSurviveEnablePop, "LightEnablesSurviveEnablePop", "CVAttribStack",
     "CVMesaQuirksGLTest.EachSymptomNeedsItsWorkaround"},
    {CVMesaQuirk::ColorMaterialStaleAfterLightingPop, "ColorMaterialStaleAfterLightingPop", "CVAttribStack",
     "CVRenderActionGLTest.LitChartScenesRepeatFrameAfterFrame"},
    {CVMesaQuirk::TrackedAmbientIgnored, "TrackedAmbientIgnored", "CVMesaQuirks::SetMaterialAmbient",
     "CVMesaQuirksGLTest.EachSymptomNeedsItsWorkaround"},
};
static_assert(sizeof(kEntries) / sizeof(kEntries[0]) == static_cast<size_t>(CVMesaQuirk::Count),
              "one entry per quirk");

int g_disabled[static_cast<int>(CVMesaQuirk::Count)] = {};

// Whether the context bound on this thread is Mesa's, asked once per context.
int CurrentDriverIsMesa() {
    thread_local uintptr_t t_handle = 0;
    thread_local int t_mesa = 0;
    const uintptr_t handle = CVGLContext::GetBoundHandle();
    if (handle == 0) return 0;
    if (handle != t_handle) {
        const char* version = reinterpret_cast<const char*>(glGetString(GL_VERSION));
        t_mesa = version && std::strstr(version, "Mesa") ? 1 : 0;
        t_handle = handle;
    }
    return t_mesa;
}

}  // namespace

const CVMesaQuirkEntry& CVMesaQuirks::Entry(CVMesaQuirk quirk) { return kEntries[static_cast<int>(quirk)]; }

int CVMesaQuirks::Applies(CVMesaQuirk quirk) {
    return !g_disabled[static_cast<int>(quirk)] && CurrentDriverIsMesa();
}

void CVMesaQuirks::SetWorkaroundEnabled(CVMesaQuirk quirk, int on) { g_disabled[static_cast<int>(quirk)] = !on; }

int CVMesaQuirks::IsWorkaroundEnabled(CVMesaQuirk quirk) { return !g_disabled[static_cast<int>(quirk)]; }

void CVMesaQuirks::EnableAllWorkarounds() {
    for (int& disabled : g_disabled) disabled = 0;
}

void CVMesaQuirks::SetMaterialAmbient(unsigned int face, const float* rgba) {
    if (Applies(CVMesaQuirk::TrackedAmbientIgnored) && glIsEnabled(GL_COLOR_MATERIAL))
        glColorMaterial(face, GL_DIFFUSE);
    glMaterialfv(face, GL_AMBIENT, rgba);
}
