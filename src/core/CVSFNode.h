#pragma once
// A reference to one node of class T (field type 276), null after
// construction. The field holds one reference on the node it stores: setting
// Refs the new node before it Unrefs the old one (so setting a node over
// itself is safe), and destruction Unrefs the held node, which deletes it when
// that was its last reference. Not copyable: copies would double-release.
// Fields of this kind are public members that clients and nodes set directly.
#include "../platform/CVExport.h"
#include <string>

#include "CVSField.h"

template <class T>
class CVSCENE_API CVSFNode : public CVSField {
    DECLARE_DYNAMIC_TEMPLATE(CVSFNode, CVSField, ClassName())
public:
    CVSFNode() : CVSField(CVField::GetSFNodeTokenType()) {}
    CVSFNode(const CVSFNode&) = delete;
    CVSFNode& operator=(const CVSFNode&) = delete;
    ~CVSFNode() override {
        if (m_pValue != nullptr) m_pValue->Unref();
    }

    // Null clears the field. Returns 1.
    int SetValue(T* node) {
        if (node != nullptr) node->Ref();
        T* old = m_pValue;
        m_pValue = node;
        if (old != nullptr) old->Unref();
        return 1;
    }
    T* GetValue() const { return m_pValue; }
    // Shares the other field's node, with a reference of its own.
    void Clone(const CVSFNode& other) { SetValue(other.m_pValue); }

protected:
    T* m_pValue = nullptr;

private:
    // "CVSFNode<CVAppearance>": one record per instantiation, named after T.
    static const char* ClassName() {
        static const std::string name = std::string("CVSFNode<") + T::GetThisClass()->m_lpszClassName + ">";
        return name.c_str();
    }
};
