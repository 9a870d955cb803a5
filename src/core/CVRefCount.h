#pragma once
// Intrusive reference count. Starts at 0; whoever stores an object Refs it and
// Unrefs it on release. The object deletes itself when Unref brings the count
// to exactly 0; a count driven below 0 deletes nothing.
#include "../platform/CVExport.h"
#include "../base/CVBase.h"

class CVSCENE_API CVRefCount : public CVBase {
    DECLARE_DYNAMIC(CVRefCount)
public:
    CVRefCount() = default;
    CVRefCount(const CVRefCount&) = delete;
    CVRefCount& operator=(const CVRefCount&) = delete;

    void Ref() { ++m_nRef; }
    void Unref();
    // Drops a reference but never deletes, even at 0.
    void UnrefNoDelete() { --m_nRef; }
    int GetRef() const { return m_nRef; }

    // Public: a node created and never stored is deleted by its creator.
    ~CVRefCount() override = default;

private:
    int m_nRef = 0;
};
