#include "platform/CObject.h"

namespace {
CRuntimeClass* NoBaseClass() { return nullptr; }
}

CRuntimeClass CObject::classCObject = {"CObject", (int)sizeof(CObject), 0xFFFF, nullptr,
                                       &NoBaseClass};

CRuntimeClass* CRuntimeClass::GetBaseClass() const {
    return m_pfnGetBaseClass ? m_pfnGetBaseClass() : nullptr;
}

BOOL CRuntimeClass::IsDerivedFrom(const CRuntimeClass* pClass) const {
    for (const CRuntimeClass* c = this; c != nullptr; c = c->GetBaseClass()) {
        if (c == pClass) return TRUE;
    }
    return FALSE;
}

CRuntimeClass* CObject::GetThisClass() { return &classCObject; }
CRuntimeClass* CObject::GetRuntimeClass() const { return &classCObject; }
void CObject::Serialize(CArchive&) {}
void CObject::AssertValid() const {}
void CObject::Dump(CDumpContext&) const {}

BOOL CObject::IsKindOf(const CRuntimeClass* pClass) const {
    return pClass != nullptr && GetRuntimeClass()->IsDerivedFrom(pClass);
}
