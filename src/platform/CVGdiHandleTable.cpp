#include "platform/CVGdiHandleTable.h"

#include <map>
#include <mutex>

namespace {
// Handles start above the small values hosts use as sentinels and stay below
// 2^31 so they survive a round trip through a signed 32-bit integer.
constexpr uintptr_t kFirstHandle = 0x100;
constexpr uintptr_t kLastHandle = 0x7FFFFFFF;

struct Table {
    std::mutex mutex;
    std::map<uintptr_t, std::unique_ptr<CVGdiObject>> objects;
    uintptr_t next = kFirstHandle;
};

// Never destroyed: hosts may release handles from their own static
// destructors, after ours would have run.
Table& TheTable() {
    static Table* table = new Table;
    return *table;
}
}  // namespace

uintptr_t CVGdiHandleTable::Add(std::unique_ptr<CVGdiObject> obj, int stock) {
    if (!obj) return 0;
    Table& t = TheTable();
    std::lock_guard<std::mutex> lock(t.mutex);
    if (t.next > kLastHandle) return 0;  // two billion handles: refuse rather than reuse
    uintptr_t handle = t.next++;
    obj->m_nHandle = handle;
    obj->m_bStock = stock ? 1 : 0;
    t.objects.emplace(handle, std::move(obj));
    return handle;
}

CVGdiObject* CVGdiHandleTable::Find(uintptr_t handle) {
    if (handle == 0) return nullptr;
    Table& t = TheTable();
    std::lock_guard<std::mutex> lock(t.mutex);
    auto it = t.objects.find(handle);
    return it == t.objects.end() ? nullptr : it->second.get();
}

std::unique_ptr<CVGdiObject> CVGdiHandleTable::Remove(uintptr_t handle) {
    Table& t = TheTable();
    std::lock_guard<std::mutex> lock(t.mutex);
    auto it = t.objects.find(handle);
    if (it == t.objects.end() || it->second->IsStock()) return nullptr;
    std::unique_ptr<CVGdiObject> obj = std::move(it->second);
    t.objects.erase(it);
    return obj;
}

std::vector<CVGdiObject*> CVGdiHandleTable::FindAll(DWORD type) {
    Table& t = TheTable();
    std::lock_guard<std::mutex> lock(t.mutex);
    std::vector<CVGdiObject*> out;
    for (auto& entry : t.objects) {
        if (entry.second->GetObjectType() == type) out.push_back(entry.second.get());
    }
    return out;
}

size_t CVGdiHandleTable::GetCount() {
    Table& t = TheTable();
    std::lock_guard<std::mutex> lock(t.mutex);
    return t.objects.size();
}
