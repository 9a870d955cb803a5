#pragma once
// Load and unload of the library: the counterpart of process attach and
// detach. Attach runs when the shared object is loaded (before main for hosts
// that link it), Detach when it is unloaded. Both are idempotent.
class CVLibrary {
public:
    // Connects the hooks through which lower layers reach higher ones
    // (CVNode::SetRenderCacheProc, CVCacheManager::SetCacheActionMaker), opens
    // the first name space and creates the process-wide managers.
    static void Attach();
    // Closes the name space and deletes the managers.
    static void Detach();
    static bool IsAttached();
};

// Entry points kept for hosts written against the extension-module interface.
extern "C" {
void InitDLL();
int DllCanUnloadNow();
void SetDllLockedFlag();
void ClearDllLockedFlag();
}
