#include "render/CVCache.h"

#include "platform/CException.h"

IMPLEMENT_DYNAMIC(CVCache, CVBase)

CVCache::CVCache() : m_elements(10) {}

CVCache::~CVCache() { RemoveAll(); }

CVCacheElement* CVCache::Find(const CString& key) const {
    auto it = m_index.find(key);
    return it == m_index.end() ? nullptr : const_cast<CVCache*>(this)->m_elements.GetAt(it->second);
}

CVCacheElement* CVCache::Acquire(const CString& key, const void* owner) {
    CVCacheElement* element = Find(key);
    if (element) element->AddUser(owner);
    return element;
}

CVCacheElement* CVCache::Add(CVCacheElement* element, const void* owner) {
    if (!element) AfxThrowInvalidArgException("CVCache::Add(): null element");
    if (m_index.count(element->GetKey()))
        AfxThrowInvalidArgException("CVCache::Add(): key already cached");
    m_index[element->GetKey()] = m_elements.AddTail(element);
    element->AddUser(owner);
    return element;
}

int CVCache::Release(CVCacheElement* element, const void* owner) {
    if (!element) return 0;
    auto it = m_index.find(element->GetKey());
    if (it == m_index.end() || m_elements.GetAt(it->second) != element) return 0;
    if (element->RemoveUser(owner) > 0) return 0;
    m_elements.RemoveAt(it->second);
    m_index.erase(it);
    delete element;
    return 1;
}

void CVCache::RemoveAll() {
    m_index.clear();
    while (!m_elements.IsEmpty()) delete m_elements.RemoveHead();
}
