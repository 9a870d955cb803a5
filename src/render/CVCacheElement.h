#pragma once
// A shared resource in a per-render-area cache (a texture object, a font's
// display lists), found by its key and kept while it has users. Subclasses
// free their GL objects in the destructor, which runs with the owning render
// area's context current.
#include "../platform/CVExport.h"
#include "../base/CVBase.h"
#include "../platform/CList.h"
#include "../platform/CString.h"
#include "CVCacheUser.h"

class CVSCENE_API CVCacheElement : public CVBase {
    DECLARE_DYNAMIC(CVCacheElement)
public:
    explicit CVCacheElement(const CString& key);
    ~CVCacheElement() override;
    CVCacheElement(const CVCacheElement&) = delete;
    CVCacheElement& operator=(const CVCacheElement&) = delete;

    const CString& GetKey() const { return m_strKey; }

    // Adds owner as a user unless it already is one. Returns the user count.
    int AddUser(const void* owner);
    // Removes owner's use, if any. Returns the users left.
    int RemoveUser(const void* owner);
    BOOL HasUser(const void* owner) const;
    int GetUserCount() const { return static_cast<int>(m_users.GetCount()); }

private:
    CString m_strKey;
    CList<CVCacheUser*, CVCacheUser*> m_users;
};
