#include "platform/WinReg.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_set>
#include <vector>

#include "platform/CVRegistryFile.h"

// An open key: the reading of the file taken when it was opened.
struct HKEY__ {
    std::wstring path;
    std::vector<CVRegistryFile::Value> values;
    std::vector<std::wstring> subKeys;
};

namespace {

// Handles are checked against this set so that a stale or foreign pointer is
// refused rather than followed.
std::mutex g_handleLock;
std::unordered_set<HKEY__*> g_handles;

bool IsRoot(HKEY key) {
    uintptr_t v = (uintptr_t)key;
    return v >= 0x80000000u && v <= 0x80000006u;
}

HKEY__* Snapshot(const std::wstring& path) {
    CVRegistryFile file(CVRegistryFile::DefaultFileName());
    const CVRegistryFile::Key* found = file.FindKey(path);
    if (!found) return nullptr;
    return new HKEY__{found->path, found->values, file.SubKeyNames(found->path)};
}

bool IsLive(HKEY key) {
    std::lock_guard<std::mutex> lock(g_handleLock);
    return g_handles.count(key) != 0;
}

// The key behind a handle; a root is read on the spot and held by temp.
LSTATUS Resolve(HKEY key, std::unique_ptr<HKEY__>& temp, HKEY__*& out) {
    if (key == HKEY_LOCAL_MACHINE) {
        temp.reset(Snapshot(L""));
        out = temp.get();
        return ERROR_SUCCESS;
    }
    if (IsRoot(key)) {
        temp.reset(new HKEY__{});
        out = temp.get();
        return ERROR_SUCCESS;
    }
    if (!key || !IsLive(key)) return ERROR_INVALID_HANDLE;
    out = key;
    return ERROR_SUCCESS;
}

// Copies text with its zero into a buffer of *length characters.
LSTATUS CopyName(const std::wstring& text, LPWSTR buffer, LPDWORD length) {
    if (!buffer || !length) return ERROR_INVALID_PARAMETER;
    if (text.size() + 1 > *length) {
        *length = (DWORD)text.size();
        return ERROR_MORE_DATA;
    }
    std::copy(text.begin(), text.end(), buffer);
    buffer[text.size()] = 0;
    *length = (DWORD)text.size();
    return ERROR_SUCCESS;
}

}  // namespace

LSTATUS RegOpenKeyExW(HKEY key, LPCWSTR subKey, DWORD, REGSAM samDesired, PHKEY result) {
    if (!result) return ERROR_INVALID_PARAMETER;
    *result = nullptr;
    if (samDesired & ~(REGSAM)(KEY_READ | KEY_WOW64_64KEY | KEY_WOW64_32KEY)) return ERROR_ACCESS_DENIED;

    std::wstring base;
    if (key == HKEY_LOCAL_MACHINE) {
        base.clear();
    } else if (IsRoot(key)) {
        return ERROR_FILE_NOT_FOUND;
    } else if (!key || !IsLive(key)) {
        return ERROR_INVALID_HANDLE;
    } else {
        base = key->path;
    }
    std::wstring path = base;
    if (subKey && *subKey) {
        if (!path.empty()) path += L'\\';
        path += subKey;
    }

    HKEY__* opened = Snapshot(path);
    if (!opened) return ERROR_FILE_NOT_FOUND;
    std::lock_guard<std::mutex> lock(g_handleLock);
    g_handles.insert(opened);
    *result = opened;
    return ERROR_SUCCESS;
}

LSTATUS RegQueryInfoKeyW(HKEY key, LPWSTR className, LPDWORD classLength, LPDWORD, LPDWORD subKeys,
                         LPDWORD maxSubKeyLength, LPDWORD maxClassLength, LPDWORD values,
                         LPDWORD maxValueNameLength, LPDWORD maxValueLength, LPDWORD securityDescriptor,
                         PFILETIME lastWriteTime) {
    std::unique_ptr<HKEY__> temp;
    HKEY__* k = nullptr;
    LSTATUS status = Resolve(key, temp, k);
    if (status != ERROR_SUCCESS) return status;

    if (className && classLength && *classLength > 0) className[0] = 0;
    if (classLength) *classLength = 0;
    if (maxClassLength) *maxClassLength = 0;
    if (securityDescriptor) *securityDescriptor = 0;
    if (lastWriteTime) *lastWriteTime = FILETIME{0, 0};
    if (subKeys) *subKeys = (DWORD)k->subKeys.size();
    if (maxSubKeyLength) {
        size_t longest = 0;
        for (const auto& name : k->subKeys) longest = std::max(longest, name.size());
        *maxSubKeyLength = (DWORD)longest;
    }
    if (values) *values = (DWORD)k->values.size();
    size_t longestName = 0, longestData = 0;
    for (const auto& v : k->values) {
        longestName = std::max(longestName, v.name.size());
        longestData = std::max(longestData, v.data.size());
    }
    if (maxValueNameLength) *maxValueNameLength = (DWORD)longestName;
    if (maxValueLength) *maxValueLength = (DWORD)longestData;
    return ERROR_SUCCESS;
}

LSTATUS RegEnumValueW(HKEY key, DWORD index, LPWSTR name, LPDWORD nameLength, LPDWORD, LPDWORD type,
                      LPBYTE data, LPDWORD dataLength) {
    std::unique_ptr<HKEY__> temp;
    HKEY__* k = nullptr;
    LSTATUS status = Resolve(key, temp, k);
    if (status != ERROR_SUCCESS) return status;
    if (data && !dataLength) return ERROR_INVALID_PARAMETER;
    if (index >= k->values.size()) return ERROR_NO_MORE_ITEMS;

    const CVRegistryFile::Value& v = k->values[index];
    status = CopyName(v.name, name, nameLength);
    if (status != ERROR_SUCCESS) {
        if (dataLength) *dataLength = (DWORD)v.data.size();
        return status;
    }
    if (type) *type = v.type;
    if (dataLength) {
        if (data && *dataLength < v.data.size()) status = ERROR_MORE_DATA;
        else if (data && !v.data.empty()) memcpy(data, v.data.data(), v.data.size());
        *dataLength = (DWORD)v.data.size();
    }
    return status;
}

LSTATUS RegEnumKeyExW(HKEY key, DWORD index, LPWSTR name, LPDWORD nameLength, LPDWORD, LPWSTR className,
                      LPDWORD classLength, PFILETIME lastWriteTime) {
    std::unique_ptr<HKEY__> temp;
    HKEY__* k = nullptr;
    LSTATUS status = Resolve(key, temp, k);
    if (status != ERROR_SUCCESS) return status;
    if (index >= k->subKeys.size()) return ERROR_NO_MORE_ITEMS;
    status = CopyName(k->subKeys[index], name, nameLength);
    if (status != ERROR_SUCCESS) return status;
    if (className && classLength && *classLength > 0) className[0] = 0;
    if (classLength) *classLength = 0;
    if (lastWriteTime) *lastWriteTime = FILETIME{0, 0};
    return ERROR_SUCCESS;
}

LSTATUS RegCloseKey(HKEY key) {
    if (IsRoot(key)) return ERROR_SUCCESS;
    {
        std::lock_guard<std::mutex> lock(g_handleLock);
        if (!key || g_handles.erase(key) == 0) return ERROR_INVALID_HANDLE;
    }
    delete key;
    return ERROR_SUCCESS;
}
