#include "library/CVLibrary.h"

#include "actions/CVRenderToDIBAction.h"
#include "core/CVNode.h"
#include "image/CVSearchPaths.h"
#include "platform/CException.h"
#include "platform/CVMesaQuirks.h"
#include "render/CVCacheManager.h"
#include "render/CVGLRenderArea.h"

namespace {
bool g_bAttached = false;
int g_nLocked = 0;

__attribute__((constructor)) void LibraryLoad() { CVLibrary::Attach(); }
__attribute__((destructor)) void LibraryUnload() { CVLibrary::Detach(); }

// Lower layers reach these classes of higher ones through hooks set here.
CVGLRenderArea* RenderCacheOf(CVGLRenderArea* area) { return area->GetRenderCache(); }
CVGLAction* MakeCacheAction(HDC hdc) { return new CVRenderToDIBAction(hdc); }
}  // namespace

void CVLibrary::Attach() {
    if (g_bAttached) return;
    g_bAttached = true;
    CVMesaQuirks::EnableAllWorkarounds();
    CVNode::SetRenderCacheProc(RenderCacheOf);
    CVCacheManager::SetCacheActionMaker(MakeCacheAction);
    CVGLRenderArea::SetInflateWorld(1);
    CVSetCacheManagerPtr(new CVCacheManager());
    CVNode::Init();
    CVResetSearchPathState();
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
    CVResetSearchPathState();
}

bool CVLibrary::IsAttached() { return g_bAttached; }

void CVLibrary::ResetSettings() {
    CVMesaQuirks::EnableAllWorkarounds();
    CVGLRenderArea::SetInflateWorld(1);
    if (CVCacheManager* manager = CVGetCacheManagerPtr()) manager->ForgetMaterial();
    CVResetSearchPathState();
}

void InitDLL() { CVLibrary::Attach(); }
int DllCanUnloadNow() { return g_nLocked == 0; }
void SetDllLockedFlag() { g_nLocked = 1; }
void ClearDllLockedFlag() { g_nLocked = 0; }
