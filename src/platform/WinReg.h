#pragma once
// The read-only registry subset. HKEY_LOCAL_MACHINE is backed by a registry
// export file (see CVRegistryFile.h for the format): $CVSCENE_REGISTRY, or
// /etc/cvscene/registry.reg. The file is read afresh by every RegOpenKeyExW,
// and the handle keeps that reading, so edits to the file show in keys opened
// afterwards and never in the middle of an enumeration. A missing file means
// a registry with no keys.
//
// Key names compare case-insensitively. String data is wchar_t text with its
// terminating zero, so sizes in bytes count 4 per character here.
// Other predefined roots hold no keys. Write access is refused.
#include "WinTypes.h"

struct HKEY__;
typedef HKEY__* HKEY;
typedef HKEY* PHKEY;
typedef DWORD REGSAM;
typedef DWORD* LPDWORD;
typedef BYTE* LPBYTE;
typedef LONG LSTATUS;

struct FILETIME {
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
};
typedef FILETIME* PFILETIME;

#define HKEY_CLASSES_ROOT ((HKEY)(uintptr_t)0x80000000)
#define HKEY_CURRENT_USER ((HKEY)(uintptr_t)0x80000001)
#define HKEY_LOCAL_MACHINE ((HKEY)(uintptr_t)0x80000002)
#define HKEY_USERS ((HKEY)(uintptr_t)0x80000003)

#define KEY_QUERY_VALUE 0x0001
#define KEY_SET_VALUE 0x0002
#define KEY_CREATE_SUB_KEY 0x0004
#define KEY_ENUMERATE_SUB_KEYS 0x0008
#define KEY_NOTIFY 0x0010
#define KEY_CREATE_LINK 0x0020
#define KEY_WOW64_64KEY 0x0100
#define KEY_WOW64_32KEY 0x0200
#define KEY_READ 0x20019
#define KEY_WRITE 0x20006
#define KEY_ALL_ACCESS 0xF003F

#define REG_NONE 0
#define REG_SZ 1
#define REG_EXPAND_SZ 2
#define REG_BINARY 3
#define REG_DWORD 4
#define REG_MULTI_SZ 7
#define REG_QWORD 11

// Spelt exactly as in WinGL.h, which defines some of them too.
#define ERROR_SUCCESS 0
#define ERROR_FILE_NOT_FOUND 2
#define ERROR_ACCESS_DENIED 5
#define ERROR_INVALID_HANDLE 6
#define ERROR_INVALID_PARAMETER 87
#define ERROR_MORE_DATA 234
#define ERROR_NO_MORE_ITEMS 259

// Opens subKey (null or empty: key itself) under key, a root or an open
// handle. Fails with ERROR_FILE_NOT_FOUND for a missing key and
// ERROR_ACCESS_DENIED when samDesired asks for more than KEY_READ (the WOW64
// view bits are accepted and ignored). *result is null on failure.
LSTATUS RegOpenKeyExW(HKEY key, LPCWSTR subKey, DWORD options, REGSAM samDesired, PHKEY result);

// Counts and longest lengths of an open key: names in characters without the
// terminating zero, data in bytes. Every out-parameter may be null; the class
// is always empty and the write time zero.
LSTATUS RegQueryInfoKeyW(HKEY key, LPWSTR className, LPDWORD classLength, LPDWORD reserved, LPDWORD subKeys,
                         LPDWORD maxSubKeyLength, LPDWORD maxClassLength, LPDWORD values,
                         LPDWORD maxValueNameLength, LPDWORD maxValueLength, LPDWORD securityDescriptor,
                         PFILETIME lastWriteTime);

// Value index of the open key, in file order. *nameLength is the buffer size
// in characters on entry and the name length on return; *dataLength likewise
// in bytes (data may be null to ask for the size). A name or data buffer that
// is too small gives ERROR_MORE_DATA with the needed sizes and no data
// copied; past the last value: ERROR_NO_MORE_ITEMS.
LSTATUS RegEnumValueW(HKEY key, DWORD index, LPWSTR name, LPDWORD nameLength, LPDWORD reserved, LPDWORD type,
                      LPBYTE data, LPDWORD dataLength);

// Subkey index of the open key, in file order; sizes as for RegEnumValueW.
LSTATUS RegEnumKeyExW(HKEY key, DWORD index, LPWSTR name, LPDWORD nameLength, LPDWORD reserved, LPWSTR className,
                      LPDWORD classLength, PFILETIME lastWriteTime);

// Closing a root is a no-op; closing a handle twice gives ERROR_INVALID_HANDLE.
LSTATUS RegCloseKey(HKEY key);
