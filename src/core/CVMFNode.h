#pragma once
// An array of node pointers (field type 289); T is the pointer type, e.g.
// CVMFNode<CVChild*> for a group's children. Every non-null entry holds one
// reference on its node. Empty after construction; the growth step is the
// array default.
//
// Index rules: below zero always throws CInvalidArgException; operator[] and
// RemoveAt also throw at or past the end; SetAt and InsertAt past the end grow
// the array with null entries. A throwing call changes nothing, counts
// included.
//
// Hazards, kept as they are: Clone does not release the entries it replaces
// (their references leak), and SetSize neither references nor releases, so
// shrinking leaks the dropped references and growing adds null entries.
// Not copyable: copies would double-release.
#include "../platform/CVExport.h"
#include <string>
#include <type_traits>

#include "CVMField.h"
#include "../platform/CArray.h"

template <class T>
class CVSCENE_API CVMFNode : public CVMField {
    DECLARE_DYNAMIC_TEMPLATE(CVMFNode, CVMField, ClassName())
public:
    CVMFNode() : CVMField(CVField::GetMFNodeTokenType()) {}
    CVMFNode(const CVMFNode&) = delete;
    CVMFNode& operator=(const CVMFNode&) = delete;
    // Releases every entry, which deletes nodes left without references.
    ~CVMFNode() override {
        UnrefAll();
        m_aNodes.RemoveAll();
    }

    // Refs and appends the node; a null node is ignored. Returns 1.
    int Add(T node) {
        if (node == nullptr) return 1;
        m_aNodes.Add(node);  // may throw; Ref only once stored
        node->Ref();
        return 1;
    }

    // Refs the new node before releasing the old entry, so storing a node
    // over itself keeps it alive. Past the end the array grows, new slots null.
    void SetAt(int i, T node) {
        CheckNotNegative(i, "CVMFNode::SetAt()");
        // Grow first so that running out of memory leaves every count as it was.
        if (i >= m_aNodes.GetSize()) m_aNodes.SetSize(static_cast<INT_PTR>(i) + 1);
        if (node != nullptr) node->Ref();
        if (m_aNodes[i] != nullptr) m_aNodes[i]->Unref();
        m_aNodes[i] = node;
    }

    // Inside the array the entries from i move up by one; at or past the end
    // the array grows to i + 1. A null node is stored as an empty slot.
    void InsertAt(int i, T node) {
        CheckNotNegative(i, "CVMFNode::InsertAt()");
        m_aNodes.InsertAt(i, node);  // may throw; Ref only once stored
        if (node != nullptr) node->Ref();
    }

    // Releases the entry (an empty slot is just removed) and closes the gap.
    void RemoveAt(int i) {
        CheckIndex(i, m_aNodes.GetSize(), "CVMFNode::RemoveAt()");
        if (m_aNodes[i] != nullptr) m_aNodes[i]->Unref();
        m_aNodes.RemoveAt(i);
    }

    // Index of the first entry equal to node, or -1.
    int Find(T node) const {
        for (INT_PTR i = 0; i < m_aNodes.GetSize(); ++i) {
            if (m_aNodes[i] == node) return static_cast<int>(i);
        }
        return -1;
    }

    T operator[](int i) const {
        CheckIndex(i, m_aNodes.GetSize(), "CVMFNode::operator[]()");
        return m_aNodes[i];
    }

    // Takes the other's entries, with a reference each. The entries held
    // before are not released.
    void Clone(const CVMFNode& other) {
        const INT_PTR n = other.m_aNodes.GetSize();
        m_aNodes.SetSize(n);
        for (INT_PTR i = 0; i < n; ++i) {
            T node = other.m_aNodes[i];
            m_aNodes[i] = node;
            if (node != nullptr) node->Ref();
        }
    }

    // Releases every entry, then frees the storage.
    void RemoveAll() {
        UnrefAll();
        m_aNodes.RemoveAll();
    }

    LONGLONG GetNum() const override { return m_aNodes.GetSize(); }
    void SetSize(LONGLONG n, int growBy) override {
        CheckNotNegative(n, "CVMFNode::SetSize()");
        m_aNodes.SetSize(n, growBy);
    }

protected:
    CArray<T, T> m_aNodes;

private:
    static_assert(std::is_pointer<T>::value, "CVMFNode holds node pointers: CVMFNode<CVChild*>");

    // Releases every entry and keeps the storage (and the dangling entries):
    // only for callers that free the storage next.
    void UnrefAll() {
        for (INT_PTR i = 0; i < m_aNodes.GetSize(); ++i) {
            if (m_aNodes[i] != nullptr) m_aNodes[i]->Unref();
        }
    }

    // "CVMFNode<CVChild*>": one record per instantiation, named after T.
    static const char* ClassName() {
        static const std::string name =
            std::string("CVMFNode<") + std::remove_pointer_t<T>::GetThisClass()->m_lpszClassName + "*>";
        return name.c_str();
    }
};
