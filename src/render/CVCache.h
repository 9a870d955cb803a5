#pragma once
// A render area's cache of shared GL resources (textures, font display
// lists). Elements are found by key, shared by every user that asks for the
// same key, and deleted when the last user releases them. The cache owns its
// elements; deleting the cache deletes any left, so the owning context must
// be current then.
#include "../platform/CVExport.h"
#include <unordered_map>

#include "../base/CVBase.h"
#include "../platform/CList.h"
#include "CVCacheElement.h"

class CVSCENE_API CVCache : public CVBase {
    DECLARE_DYNAMIC(CVCache)
public:
    CVCache();
    ~CVCache() override;
    CVCache(const CVCache&) = delete;
    CVCache& operator=(const CVCache&) = delete;

    // The element stored under key, or null.
    CVCacheElement* Find(const CString& key) const;
    // Finds the element for key and records owner as its user; null if absent.
    CVCacheElement* Acquire(const CString& key, const void* owner);
    // Takes ownership of a new element (its key must not be present) and
    // records owner as its first user. Returns the element.
    CVCacheElement* Add(CVCacheElement* element, const void* owner);
    // Drops owner's use of element; deletes the element when nobody uses it.
    // Returns 1 when the element was deleted.
    int Release(CVCacheElement* element, const void* owner);

    INT_PTR GetCount() const { return m_elements.GetCount(); }
    void RemoveAll();

private:
    CList<CVCacheElement*, CVCacheElement*> m_elements;
    std::unordered_map<CString, POSITION, CStringHash> m_index;
};
