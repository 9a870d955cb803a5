#include "render/CVAttribStack.h"

#include <unordered_map>
#include <vector>

#include "platform/WinGL.h"

namespace {

struct Saved {
    bool polygon;
    GLint mode[2];  // front, back
};

// One stack per context: contexts take turns on a thread.
std::vector<Saved>& StackOfCurrentContext() {
    static std::unordered_map<HGLRC, std::vector<Saved>>* stacks = new std::unordered_map<HGLRC, std::vector<Saved>>();
    return (*stacks)[wglGetCurrentContext()];
}

}  // namespace

void CVAttribStack::Push(GLbitfield mask) {
    Saved saved = {(mask & GL_POLYGON_BIT) != 0, {GL_FILL, GL_FILL}};
    if (saved.polygon) glGetIntegerv(GL_POLYGON_MODE, saved.mode);
    StackOfCurrentContext().push_back(saved);
    glPushAttrib(mask);
}

void CVAttribStack::Pop() {
    glPopAttrib();
    std::vector<Saved>& stack = StackOfCurrentContext();
    if (stack.empty()) return;
    Saved saved = stack.back();
    stack.pop_back();
    if (!saved.polygon) return;
    glPolygonMode(GL_FRONT, saved.mode[0]);
    glPolygonMode(GL_BACK, saved.mode[1]);
}
