#pragma once
// One user of a cache element: the node (or other owner) that holds it.
#include "../platform/CVExport.h"
#include "../base/CVBase.h"

class CVSCENE_API CVCacheUser : public CVBase {
    DECLARE_DYNAMIC(CVCacheUser)
public:
    explicit CVCacheUser(const void* owner) : m_pOwner(owner) {}
    const void* GetOwner() const { return m_pOwner; }

private:
    const void* m_pOwner;  // not owned; only compared
};
