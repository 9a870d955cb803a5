#pragma once
// Hash map from a wide string to an object pointer, compared case-sensitively.
// The typed form fixes the value type.
#include "CVExport.h"
#include <unordered_map>

#include "CString.h"

template <class VALUE>
class CVSCENE_API CTypedStringMap {
public:
    explicit CTypedStringMap(INT_PTR nBlockSize = 10) : m_nBlockSize(nBlockSize) {}

    INT_PTR GetCount() const { return static_cast<INT_PTR>(m_map.size()); }
    INT_PTR GetSize() const { return GetCount(); }
    BOOL IsEmpty() const { return m_map.empty(); }
    INT_PTR GetBlockSize() const { return m_nBlockSize; }

    BOOL Lookup(const CString& key, VALUE& value) const {
        auto it = m_map.find(key);
        if (it == m_map.end()) return FALSE;
        value = it->second;
        return TRUE;
    }
    void SetAt(const CString& key, VALUE value) { m_map[key] = value; }
    VALUE& operator[](const CString& key) { return m_map[key]; }
    BOOL RemoveKey(const CString& key) { return m_map.erase(key) != 0; }
    void RemoveAll() { m_map.clear(); }

    template <class F>
    void ForEach(F&& f) const {
        for (const auto& kv : m_map) f(kv.first, kv.second);
    }

private:
    std::unordered_map<CString, VALUE, CStringHash> m_map;
    INT_PTR m_nBlockSize;
};

class CObject;
class CVSCENE_API CMapStringToOb : public CTypedStringMap<CObject*> {
public:
    using CTypedStringMap<CObject*>::CTypedStringMap;
};

// The framework's typed wrapper over a base map; only the string-keyed base is offered.
template <class BASE_CLASS, class KEY, class VALUE>
class CVSCENE_API CTypedPtrMap : public CTypedStringMap<VALUE> {
public:
    using CTypedStringMap<VALUE>::CTypedStringMap;
};
