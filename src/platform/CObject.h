#pragma once
// Root of the object model: a run-time class record per class, type tests by
// walking the base links, and the three diagnostic hooks every class keeps.
#include "CVExport.h"
#include "WinTypes.h"

class CObject;
class CVSCENE_API CArchive {};      // serialisation is not supported; the hook keeps its shape
class CVSCENE_API CDumpContext {};  // diagnostics sink; likewise only the shape

struct CVSCENE_API CRuntimeClass {
    const char* m_lpszClassName;
    int m_nObjectSize;
    UINT m_wSchema;                          // 0xFFFF: not serialisable
    CObject* (*m_pfnCreateObject)();         // null: no dynamic creation
    CRuntimeClass* (*m_pfnGetBaseClass)();   // null only for CObject

    CRuntimeClass* GetBaseClass() const;
    // True when this class is pClass or derives from it.
    BOOL IsDerivedFrom(const CRuntimeClass* pClass) const;
};

class CVSCENE_API CObject {
public:
    virtual CRuntimeClass* GetRuntimeClass() const;
    virtual ~CObject() = default;
    virtual void Serialize(CArchive& ar);
    virtual void AssertValid() const;
    virtual void Dump(CDumpContext& dc) const;

    BOOL IsKindOf(const CRuntimeClass* pClass) const;

    static CRuntimeClass classCObject;
    static CRuntimeClass* GetThisClass();

protected:
    CObject() = default;
    CObject(const CObject&) = default;
    CObject& operator=(const CObject&) = default;
};

#define RUNTIME_CLASS(class_name) (class_name::GetThisClass())

#define DECLARE_DYNAMIC(class_name)                      \
protected:                                               \
    static CRuntimeClass* _GetBaseClass();               \
                                                         \
public:                                                  \
    static CRuntimeClass class##class_name;              \
    static CRuntimeClass* GetThisClass();                \
    CRuntimeClass* GetRuntimeClass() const override;

#define IMPLEMENT_DYNAMIC(class_name, base_class_name)                                      \
    CRuntimeClass* class_name::_GetBaseClass() { return RUNTIME_CLASS(base_class_name); }   \
    CRuntimeClass class_name::class##class_name = {#class_name, static_cast<int>(sizeof(class_name)),    \
                                                   0xFFFF, nullptr,                         \
                                                   &class_name::_GetBaseClass};             \
    CRuntimeClass* class_name::GetThisClass() { return &class_name::class##class_name; }    \
    CRuntimeClass* class_name::GetRuntimeClass() const { return &class_name::class##class_name; }

// Class templates carry one record per instantiation, defined in the header.
#define DECLARE_DYNAMIC_TEMPLATE(class_name, base_class_name, display_name)          \
public:                                                                             \
    static CRuntimeClass* GetThisClass() {                                          \
        static CRuntimeClass rc = {display_name, static_cast<int>(sizeof(class_name)), 0xFFFF,   \
                                   nullptr, &class_name::_GetBaseClass};            \
        return &rc;                                                                 \
    }                                                                               \
    CRuntimeClass* GetRuntimeClass() const override { return GetThisClass(); }     \
                                                                                    \
protected:                                                                          \
    static CRuntimeClass* _GetBaseClass() { return RUNTIME_CLASS(base_class_name); }
