#pragma once
// Base of the typed value holders that nodes embed by value. A field only
// holds its value: changing it notifies nobody (no modified flag, no call back
// into the owning node), so a node that caches derived data must notice
// changes through its own setters. Fields are not reference counted.
#include "../platform/CVExport.h"
#include "../base/CVBase.h"

class CVNode;

class CVSCENE_API CVField : public CVBase {
    DECLARE_DYNAMIC(CVField)
public:
    CVField() = default;
    ~CVField() override = default;

    // The field type code, 271..289 for the concrete fields, 0 for the bases.
    virtual int GetType() const;
    // Accepts and ignores the text; each class parses text in its own
    // SetValue(const char*) or Add(const char*). Returns 1.
    virtual int Set(const char* text);

    // The owning node is for clients only: nothing in the library sets or
    // reads it, and it is null after construction.
    void SetContainer(CVNode* container) { m_pContainer = container; }
    CVNode* GetContainer() const { return m_pContainer; }

    // Type codes of the node-reference fields.
    static int GetSFNodeTokenType() { return 276; }
    static int GetMFNodeTokenType() { return 289; }

protected:
    explicit CVField(int nType) : m_nType(nType) {}

    int m_nType = 0;
    CVNode* m_pContainer = nullptr;
};
