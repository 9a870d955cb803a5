#pragma once
// Base of everything a handle names: GDI objects, device contexts and GL
// rendering contexts. Objects live in CVGdiHandleTable, which owns them and
// hands out small integer handles, so a stale or made-up handle is looked up
// and refused instead of being dereferenced.
#include "WinTypes.h"

class CVGdiObject {
public:
    virtual ~CVGdiObject();
    CVGdiObject(const CVGdiObject&) = delete;
    CVGdiObject& operator=(const CVGdiObject&) = delete;

    // OBJ_BITMAP, OBJ_BRUSH, OBJ_PAL, OBJ_DC, OBJ_MEMDC...; 0 for objects that
    // are not GDI objects (GL contexts).
    virtual DWORD GetObjectType() const = 0;
    // GetObjectW for this kind: bytes written, or the size wanted when out is
    // null; 0 when size is too small or the kind has no description.
    virtual int GetObjectInfo(int size, void* out) const;
    // DeleteObject refuses objects that are in use (a bitmap selected into a DC).
    virtual int CanDelete() const;

    // The handle value naming this object; 0 before the table took it.
    uintptr_t GetHandle() const { return m_nHandle; }
    // Stock objects are shared and DeleteObject leaves them alone.
    int IsStock() const { return m_bStock; }

protected:
    CVGdiObject() = default;

private:
    friend class CVGdiHandleTable;
    uintptr_t m_nHandle = 0;
    int m_bStock = 0;
};
