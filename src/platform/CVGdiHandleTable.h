#pragma once
// Process-wide table of handle objects. Handles are positive 32-bit integers
// (hosts pass bitmap handles around as decimal text) that are never reused
// while the process runs, so a handle kept after DeleteObject stays invalid.
// The table itself is guarded; the objects are not (GDI objects belong to one
// thread at a time, as on the described system).
#include "CVGdiObject.h"

#include <memory>
#include <vector>

class CVGdiHandleTable {
public:
    // Takes ownership and returns the new handle, or 0 when obj is null.
    static uintptr_t Add(std::unique_ptr<CVGdiObject> obj, int stock = 0);
    // The object named by handle, or null for 0, stale or unknown handles.
    static CVGdiObject* Find(uintptr_t handle);
    template <class T>
    static T* FindAs(uintptr_t handle) {
        return dynamic_cast<T*>(Find(handle));
    }
    // Takes the object out of the table and gives it back to the caller
    // (null when the handle is unknown). Stock objects are never removed.
    static std::unique_ptr<CVGdiObject> Remove(uintptr_t handle);
    // Live objects of one GetObjectType() kind, in creation order.
    static std::vector<CVGdiObject*> FindAll(DWORD type);
    // Number of live objects, stock ones included.
    static size_t GetCount();
};

// Handle <-> integer, for the typed handles of WinGDI.h and WinGL.h.
template <class H>
inline uintptr_t CVHandleValue(H h) {
    return reinterpret_cast<uintptr_t>(h);
}
template <class H>
inline H CVHandleFromValue(uintptr_t v) {
    return reinterpret_cast<H>(v);
}
