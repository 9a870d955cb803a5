#pragma once
// Doubly linked list addressed by POSITION values, with the framework's names.
// A POSITION is the address of the element's node; it stays valid until that
// element is removed.
#include "CVExport.h"
#include <string>
#include <utility>

#include "CException.h"
#include "WinTypes.h"

template <class TYPE, class ARG_TYPE = const TYPE&>
class CVSCENE_API CList {
    struct Node {
        Node* pNext;
        Node* pPrev;
        TYPE data;
    };

public:
    explicit CList(INT_PTR nBlockSize = 10) : m_nBlockSize(nBlockSize) {}
    CList(const CList&) = delete;
    CList& operator=(const CList&) = delete;
    ~CList() { RemoveAll(); }

    INT_PTR GetCount() const { return m_nCount; }
    INT_PTR GetSize() const { return m_nCount; }
    BOOL IsEmpty() const { return m_nCount == 0; }
    INT_PTR GetBlockSize() const { return m_nBlockSize; }

    TYPE& GetHead() { return NonEmpty("GetHead")->data; }
    TYPE& GetTail() { NonEmpty("GetTail"); return m_pTail->data; }

    POSITION AddHead(ARG_TYPE v) { return Link(new Node{m_pHead, nullptr, v}); }
    POSITION AddTail(ARG_TYPE v) { return Link(new Node{nullptr, m_pTail, v}); }

    TYPE RemoveHead() { return Unlink(NonEmpty("RemoveHead")); }
    TYPE RemoveTail() { NonEmpty("RemoveTail"); return Unlink(m_pTail); }

    void RemoveAll() {
        while (m_pHead) {
            Node* next = m_pHead->pNext;
            delete m_pHead;
            m_pHead = next;
        }
        m_pTail = nullptr;
        m_nCount = 0;
    }

    POSITION GetHeadPosition() const { return reinterpret_cast<POSITION>(m_pHead); }
    POSITION GetTailPosition() const { return reinterpret_cast<POSITION>(m_pTail); }

    // Returns the element at pos and moves pos on (null past the end).
    TYPE& GetNext(POSITION& pos) {
        Node* n = At(pos, "GetNext");
        pos = reinterpret_cast<POSITION>(n->pNext);
        return n->data;
    }
    TYPE& GetPrev(POSITION& pos) {
        Node* n = At(pos, "GetPrev");
        pos = reinterpret_cast<POSITION>(n->pPrev);
        return n->data;
    }
    TYPE& GetAt(POSITION pos) { return At(pos, "GetAt")->data; }
    void SetAt(POSITION pos, ARG_TYPE v) { At(pos, "SetAt")->data = v; }
    void RemoveAt(POSITION pos) { Unlink(At(pos, "RemoveAt")); }

    POSITION InsertBefore(POSITION pos, ARG_TYPE v) {
        if (!pos) return AddHead(v);
        Node* at = At(pos, "InsertBefore");
        return Link(new Node{at, at->pPrev, v});
    }
    POSITION InsertAfter(POSITION pos, ARG_TYPE v) {
        if (!pos) return AddTail(v);
        Node* at = At(pos, "InsertAfter");
        return Link(new Node{at->pNext, at, v});
    }

    POSITION Find(ARG_TYPE v, POSITION after = nullptr) const {
        for (Node* n = after ? reinterpret_cast<Node*>(after)->pNext : m_pHead; n; n = n->pNext)
            if (n->data == v) return reinterpret_cast<POSITION>(n);
        return nullptr;
    }

private:
    Node* NonEmpty(const char* what) const {
        if (!m_pHead) AfxThrowInvalidArgException(std::string("CList::") + what + "(): list is empty");
        return m_pHead;
    }

    static Node* At(POSITION pos, const char* what) {
        if (!pos) AfxThrowInvalidArgException(std::string("CList::") + what + "(): null position");
        return reinterpret_cast<Node*>(pos);
    }

    // n's neighbours are already set; hook them to n.
    POSITION Link(Node* n) {
        (n->pPrev ? n->pPrev->pNext : m_pHead) = n;
        (n->pNext ? n->pNext->pPrev : m_pTail) = n;
        ++m_nCount;
        return reinterpret_cast<POSITION>(n);
    }

    TYPE Unlink(Node* n) {
        (n->pPrev ? n->pPrev->pNext : m_pHead) = n->pNext;
        (n->pNext ? n->pNext->pPrev : m_pTail) = n->pPrev;
        --m_nCount;
        TYPE v = std::move(n->data);
        delete n;
        return v;
    }

    Node* m_pHead = nullptr;
    Node* m_pTail = nullptr;
    INT_PTR m_nCount = 0;
    INT_PTR m_nBlockSize;
};
