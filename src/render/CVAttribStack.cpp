#include "render/CVAttribStack.h"

#include <unordered_map>
#include <vector>

#include "platform/CVGLContext.h"
#include "platform/CVMesaQuirks.h"

namespace {

const int kTrackedLights = 8;  // the fixed-function minimum, and Mesa's count

// What a push recorded for its pop, decided once at the push.
struct Saved {
    bool polygon, lights, colorMaterial;
    GLint mode[2];         // front, back
    unsigned char lightsOn;   // enable bits of GL_LIGHT0..7
};

using Stack = std::vector<Saved>;

// One stack per context: contexts take turns on a thread. The stack of the
// context bound last is kept at hand, so a push or pop costs no lookup; an
// emptied stack is dropped when the thread moves on to another context.
struct Stacks {
    std::unordered_map<uintptr_t, Stack> byContext;
    uintptr_t handle = 0;
    Stack* current = nullptr;
};

Stack& CurrentStack() {
    thread_local Stacks t_stacks;
    const uintptr_t handle = CVGLContext::GetBoundHandle();
    if (handle != t_stacks.handle || !t_stacks.current) {
        if (t_stacks.current && t_stacks.current->empty()) t_stacks.byContext.erase(t_stacks.handle);
        t_stacks.handle = handle;
        t_stacks.current = &t_stacks.byContext[handle];
    }
    return *t_stacks.current;
}

unsigned char LightEnables() {
    unsigned char bits = 0;
    for (int i = 0; i < kTrackedLights; ++i)
        if (glIsEnabled(GL_LIGHT0 + i)) bits |= (unsigned char)(1u << i);
    return bits;
}

void RestoreLightEnables(unsigned char saved) {
    const unsigned char now = LightEnables();
    for (int i = 0; i < kTrackedLights; ++i) {
        const unsigned char bit = (unsigned char)(1u << i);
        if ((now & bit) == (saved & bit)) continue;
        if (saved & bit)
            glEnable(GL_LIGHT0 + i);
        else
            glDisable(GL_LIGHT0 + i);
    }
}

bool SavesPolygonMode(GLbitfield mask) {
    return (mask & GL_POLYGON_BIT) && CVMesaQuirks::Applies(CVMesaQuirk::PolygonModeLostAfterEnablePop);
}

bool SavesLights(GLbitfield mask) {
    return (mask & GL_ENABLE_BIT) && !(mask & GL_LIGHTING_BIT) &&
           CVMesaQuirks::Applies(CVMesaQuirk::LightEnablesSurviveEnablePop);
}

}  // namespace

void CVAttribStack::Push(GLbitfield mask) {
    Saved saved = {SavesPolygonMode(mask), SavesLights(mask),
                   (mask & GL_LIGHTING_BIT) && CVMesaQuirks::Applies(CVMesaQuirk::ColorMaterialStaleAfterLightingPop),
                   {GL_FILL, GL_FILL}, 0};
    if (saved.polygon) glGetIntegerv(GL_POLYGON_MODE, saved.mode);
    if (saved.lights) saved.lightsOn = LightEnables();
    CurrentStack().push_back(saved);
    glPushAttrib(mask);
}

void CVAttribStack::Pop() {
    glPopAttrib();
    Stack& stack = CurrentStack();
    if (stack.empty()) return;
    const Saved saved = stack.back();
    stack.pop_back();
    if (saved.polygon) {
        glPolygonMode(GL_FRONT, saved.mode[0]);
        glPolygonMode(GL_BACK, saved.mode[1]);
    }
    if (saved.lights) RestoreLightEnables(saved.lightsOn);
    // Disabling and enabling again makes the driver apply the current colour
    // to the tracked material; a repeated glColor would be dropped.
    if (saved.colorMaterial && glIsEnabled(GL_COLOR_MATERIAL)) {
        glDisable(GL_COLOR_MATERIAL);
        glEnable(GL_COLOR_MATERIAL);
    }
}
