#include "library/CVLibrary.h"

#include "core/CVNode.h"
#include "render/CVCacheManager.h"
#include "platform/CException.h"

namespace {
bool g_bAttached = false;
int g_nLocked = 0;

__attribute__((constructor)) void LibraryLoad() { CVLibrary::Attach(); }
__attribute__((destructor)) void LibraryUnload() { CVLibrary::Detach(); }
}  // namespace

void CVLibrary::Attach() {
    if (g_bAttached) return;
    g_bAttached = true;
    CVSetCacheManagerPtr(new CVCacheManager());
    CVNode::Init();
}

void CVLibrary::Detach() {
    if (!g_bAttached) return;
    g_bAttached = false;
    try {
        CVNode::UnInit();
    } catch (const CException&) {
        // A host that popped every name space already closed them.
    }
    delete CVGetCacheManagerPtr();
    CVSetCacheManagerPtr(nullptr);
}

bool CVLibrary::IsAttached() { return g_bAttached; }

void InitDLL() { CVLibrary::Attach(); }
int DllCanUnloadNow() { return g_nLocked == 0; }
void SetDllLockedFlag() { g_nLocked = 1; }
void ClearDllLockedFlag() { g_nLocked = 0; }
