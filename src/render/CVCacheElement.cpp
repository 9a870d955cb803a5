#include "render/CVCacheElement.h"

IMPLEMENT_DYNAMIC(CVCacheElement, CVBase)

CVCacheElement::CVCacheElement(const CString& key) : m_strKey(key), m_users(10) {}

CVCacheElement::~CVCacheElement() {
    while (!m_users.IsEmpty()) delete m_users.RemoveHead();
}

int CVCacheElement::AddUser(const void* owner) {
    if (!HasUser(owner)) m_users.AddTail(new CVCacheUser(owner));
    return GetUserCount();
}

int CVCacheElement::RemoveUser(const void* owner) {
    for (POSITION pos = m_users.GetHeadPosition(); pos;) {
        POSITION at = pos;
        CVCacheUser* user = m_users.GetNext(pos);
        if (user->GetOwner() == owner) {
            m_users.RemoveAt(at);
            delete user;
            break;
        }
    }
    return GetUserCount();
}

BOOL CVCacheElement::HasUser(const void* owner) const {
    auto& users = const_cast<CList<CVCacheUser*, CVCacheUser*>&>(m_users);
    for (POSITION pos = users.GetHeadPosition(); pos;)
        if (users.GetNext(pos)->GetOwner() == owner) return TRUE;
    return FALSE;
}
