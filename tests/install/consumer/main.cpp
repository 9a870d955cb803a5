// Built against an installed CVScene: the package, headers and library must be found.
#include <cvscene/cvscene.h>

int main() {
    auto* node = new CVChild;
    node->SetName(L"installed");
    int ok = CVNode::NameToNode(L"installed") == node && node->GetID() > 0;
    delete node;
    return ok ? 0 : 1;
}
