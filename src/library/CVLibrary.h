#pragma once
#include "../platform/CVExport.h"
// Load and unload of the library: the counterpart of process attach and
// detach. Attach runs when the shared object is loaded (before main for hosts
// that link it), Detach when it is unloaded. Both are idempotent.
//
// Every piece of process-wide state, layer by layer. There are no threads of
// the library's own and nothing is locked, except where a line says so.
//   platform  GDI handle table (CVGdiHandleTable): made on first use and kept
//             to process exit, since hosts release DCs, bitmaps and contexts
//             from their own static destructors, after unload. Locked.
//             EGL display and its share-group root context (CVEGLDisplay):
//             made by the first bitmap context (opening the driver costs tens
//             of milliseconds a host that never draws should not pay), kept
//             to process exit for the same reason. GLX share roots: one per X
//             display, made with its first window context and released with
//             its last. Driver workaround switches (CVMesaQuirks): all on.
//   core      Node id counter (CVNode::nextID, from 1, never reset: ids are
//             selection names and must stay unique), node registry (ids to
//             live nodes) and the stack of name spaces, whose first space
//             Attach opens and Detach closes. The registry outlives Detach:
//             nodes a host frees after unload still leave it.
//   render    Hooks lower layers call up through (render cache of an area,
//             the off-screen cache action). World inflation factor (3). The
//             cache manager, which holds the material cache and the display
//             lists of cached primitives: made by Attach, deleted by Detach.
//   nodes     Texture-name counter (CVTextureCacheElement, from 1, never
//             reset: names must not collide with live textures).
//   image     Shared-files path kept after its first read, and the procedure
//             that downloads images named by URL.
// Attach, in this order: workaround switches on, hooks, world inflation, the
// cache manager, the first name space (after the cache manager, so that a
// failure there finds the manager), search-path state. Detach: the name
// spaces closed, the cache manager deleted, the search-path state dropped.
class CVSCENE_API CVLibrary {
public:
    static void Attach();
    static void Detach();
    static bool IsAttached();

    // Puts back every setting and cache that Attach leaves, without touching
    // what must stay (nodes, ids, name spaces, handles, contexts, texture
    // names): world inflation 3, the material cache unknown, the shared-files
    // path unread, the default download procedure, every driver workaround on.
    // The one reset for test fixtures and for hosts that run unrelated jobs
    // in one process.
    static void ResetSettings();
};

// Entry points kept for hosts written against the extension-module interface.
extern "C" {
CVSCENE_API void InitDLL();
CVSCENE_API int DllCanUnloadNow();
CVSCENE_API void SetDllLockedFlag();
CVSCENE_API void ClearDllLockedFlag();
}
