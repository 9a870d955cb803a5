#include "core/CVNodeRegistry.h"

#include <algorithm>
#include <string>

#include "platform/CException.h"

void CVNodeRegistry::Add(CVNode* node, int id) {
    if (!m_ids.empty() && id <= m_ids.back()) m_bSorted = false;
    try {
        m_nodes.push_back(node);
        m_ids.push_back(id);
    } catch (const std::bad_alloc&) {
        if (m_nodes.size() > m_ids.size()) m_nodes.pop_back();
        AfxThrowMemoryException("CVNodeRegistry::Add(): out of memory");
    }
}

INT_PTR CVNodeRegistry::IndexOf(const CVNode* node, int id) const {
    if (m_bSorted) {
        auto it = std::lower_bound(m_ids.begin(), m_ids.end(), id);
        for (; it != m_ids.end() && *it == id; ++it) {
            size_t i = it - m_ids.begin();
            if (m_nodes[i] && (node == nullptr || m_nodes[i] == node)) return (INT_PTR)i;
        }
        if (node == nullptr) return -1;
    }
    for (size_t i = 0; i < m_nodes.size(); ++i) {
        if (node ? m_nodes[i] == node : (m_nodes[i] && m_ids[i] == id)) return (INT_PTR)i;
    }
    return -1;
}

void CVNodeRegistry::Remove(CVNode* node, int id) {
    INT_PTR i = IndexOf(node, id);
    if (i < 0) return;
    m_nodes[i] = nullptr;
    ++m_nDead;
    if (m_nDead == m_nodes.size()) {
        m_nodes.clear();
        m_ids.clear();
        m_nDead = 0;
        m_bSorted = true;
    } else if (m_nDead > 64 && m_nDead * 2 > m_nodes.size()) {
        Compact();
    }
}

CVNode* CVNodeRegistry::Find(int id) const {
    INT_PTR i = IndexOf(nullptr, id);
    return i < 0 ? nullptr : m_nodes[i];
}

CVNode* CVNodeRegistry::GetAt(INT_PTR i) {
    if (i < 0 || i >= GetCount())
        AfxThrowInvalidArgException("CVNodeRegistry::GetAt(): index " + std::to_string(i) + " out of range");
    if (m_nDead) Compact();
    return m_nodes[i];
}

void CVNodeRegistry::Compact() {
    size_t out = 0;
    for (size_t i = 0; i < m_nodes.size(); ++i) {
        if (!m_nodes[i]) continue;
        m_nodes[out] = m_nodes[i];
        m_ids[out] = m_ids[i];
        ++out;
    }
    m_nodes.resize(out);
    m_ids.resize(out);
    m_nDead = 0;
}
