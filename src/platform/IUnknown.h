#pragma once
// The root host interface: interface lookup and reference counting, with the
// usual slot order. Objects are destroyed through Release, never delete, so
// the destructor is protected and not virtual.
#include <cstring>

#include "WinTypes.h"

struct GUID {
    DWORD Data1;
    WORD Data2;
    WORD Data3;
    BYTE Data4[8];
};
typedef GUID IID;
typedef GUID CLSID;
typedef const IID& REFIID;
typedef const GUID& REFGUID;
typedef const CLSID& REFCLSID;

inline bool IsEqualGUID(REFGUID a, REFGUID b) { return memcmp(&a, &b, sizeof(GUID)) == 0; }
inline bool operator==(REFGUID a, REFGUID b) { return IsEqualGUID(a, b); }
inline bool operator!=(REFGUID a, REFGUID b) { return !IsEqualGUID(a, b); }

// {00000000-0000-0000-C000-000000000046}
inline constexpr IID IID_IUnknown = {0x00000000, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

struct IUnknown {
    // S_OK with an added reference in *object, or E_NOINTERFACE with null.
    virtual HRESULT QueryInterface(REFIID riid, void** object) = 0;
    // Both return the new count.
    virtual ULONG AddRef() = 0;
    virtual ULONG Release() = 0;

protected:
    ~IUnknown() = default;
};
typedef IUnknown* LPUNKNOWN;
