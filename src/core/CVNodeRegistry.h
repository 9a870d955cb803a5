#pragma once
// The process-wide list of live nodes in construction order. Ids only grow, so
// the list is also sorted by id: lookup and removal are binary searches, and
// removed slots are tombstones swept out once they outnumber the live ones.
#include <vector>

#include "../platform/WinTypes.h"

class CVNode;

class CVNodeRegistry {
public:
    // Appends; keeps the fast path while ids arrive in increasing order.
    void Add(CVNode* node, int id);
    // Removes the first occurrence of node; nothing happens if absent.
    void Remove(CVNode* node, int id);
    // The live node with this id, or null. O(log n).
    CVNode* Find(int id) const;

    INT_PTR GetCount() const { return (INT_PTR)(m_nodes.size() - m_nDead); }
    // i-th live node in construction order; throws CInvalidArgException out of range.
    CVNode* GetAt(INT_PTR i);

private:
    INT_PTR IndexOf(const CVNode* node, int id) const;
    void Compact();

    std::vector<CVNode*> m_nodes;  // null marks a removed slot
    std::vector<int> m_ids;
    size_t m_nDead = 0;
    bool m_bSorted = true;  // false once a client rewinds the id counter
};
