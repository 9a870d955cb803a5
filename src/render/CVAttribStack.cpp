#include "render/CVAttribStack.h"

#include <unordered_map>
#include <vector>

#include "platform/WinGL.h"

namespace {

struct Saved {
    bool polygon;
    GLint mode[2];  // front, back
};

using Stacks = std::unordered_map<HGLRC, std::vector<Saved>>;

// One stack per context: contexts take turns on a thread. Emptied stacks are
// dropped so that contexts created and deleted over a long run leave nothing.
Stacks& AllStacks() {
    static Stacks* stacks = new Stacks();
    return *stacks;
}

}  // namespace

void CVAttribStack::Push(GLbitfield mask) {
    Saved saved = {(mask & GL_POLYGON_BIT) != 0, {GL_FILL, GL_FILL}};
    if (saved.polygon) glGetIntegerv(GL_POLYGON_MODE, saved.mode);
    AllStacks()[wglGetCurrentContext()].push_back(saved);
    glPushAttrib(mask);
}

void CVAttribStack::Pop() {
    glPopAttrib();
    Stacks& stacks = AllStacks();
    auto it = stacks.find(wglGetCurrentContext());
    if (it == stacks.end()) return;
    Saved saved = it->second.back();
    it->second.pop_back();
    if (it->second.empty()) stacks.erase(it);
    if (!saved.polygon) return;
    glPolygonMode(GL_FRONT, saved.mode[0]);
    glPolygonMode(GL_BACK, saved.mode[1]);
}
