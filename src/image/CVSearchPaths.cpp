#include "image/CVSearchPaths.h"

#include <cwchar>
#include <vector>

#include "platform/UrlMon.h"
#include "platform/WinBase.h"
#include "platform/WinReg.h"

namespace {

const wchar_t kSharedFilesKey[] = L"SOFTWARE\\Kestrix\\Common Data\\Shared Files";
const wchar_t kDefaultComponent[] = L"Vantor V9";
const DWORD kPathLength = 1024;
const DWORD kValueNameLength = 16383;

CString& SharedFilesCache() {
    static CString cache;
    return cache;
}

CVURLDownloadToCacheFileProc g_download = URLDownloadToCacheFileW;

// One value by exact name. The data buffer is shared by every value
// enumerated, so when nothing matches the last value's data is what remains
// and becomes the result; callers rely on that reading.
CString ReadRegistryString(const CString& keyPath, const CString& valueName) {
    CString result;
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, keyPath, 0, KEY_READ, &key) != ERROR_SUCCESS) return result;
    DWORD valueCount = 0, maxDataLength = 0;
    if (RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &valueCount, nullptr,
                         &maxDataLength, nullptr, nullptr) != ERROR_SUCCESS) {
        RegCloseKey(key);
        return result;
    }
    // Zeroed, with one spare unit so data stored without a terminator still ends.
    std::vector<wchar_t> data(maxDataLength / sizeof(wchar_t) + 1, 0);
    bool take = true;
    if (valueCount > 0) {
        std::vector<wchar_t> name(kValueNameLength);
        for (DWORD i = 0; i < valueCount; ++i) {
            DWORD nameLength = kValueNameLength;
            DWORD dataLength = maxDataLength;
            if (RegEnumValueW(key, i, name.data(), &nameLength, nullptr, nullptr,
                              reinterpret_cast<LPBYTE>(data.data()), &dataLength) != ERROR_SUCCESS) {
                take = false;
                break;
            }
            if ((int)nameLength == valueName.GetLength() && wcsncmp(name.data(), valueName, nameLength) == 0) break;
        }
    }
    if (take) result = CString(data.data());
    RegCloseKey(key);
    return result;
}

// A path too long for the buffer was not written, so it counts as not found.
bool Found(DWORD length) { return length > 0 && length < kPathLength; }

}  // namespace

CString CVGetSharedComponentPath(CString component) {
    return ReadRegistryString(CString(kSharedFilesKey) + L"\\" + component, L"Path");
}

CString CVGetDefaultImageSearchPath() { return CVGetSharedComponentPath(kDefaultComponent) + L"\\Images"; }

CString CVGetKestrixSharedFilesPath() {
    CString& cache = SharedFilesCache();
    if (cache.IsEmpty()) cache = ReadRegistryString(kSharedFilesKey, L"");
    return cache;
}

void CVGetURLTextureSearchPath(IUnknown* caller, CString name, wchar_t* path) {
    if (!path) return;
    path[0] = 0;
    if (Found(SearchPathW(CVGetDefaultImageSearchPath(), name, nullptr, kPathLength, path, nullptr))) return;
    CString shared = CVGetKestrixSharedFilesPath() + L"\\images";
    if (Found(SearchPathW(shared, name, nullptr, kPathLength, path, nullptr))) return;
    if (Found(SearchPathW(nullptr, name, nullptr, kPathLength, path, nullptr))) return;
    if (!caller) return;

    path[0] = 0;
    CVURLDownloadToCacheFileProc download = g_download;
    if (!download) return;
    // The stated length of 2 is what the downloader has always been given;
    // it honours a larger floor, and path holds 1024.
    if (SUCCEEDED(download(caller, name, path, 2, 0, nullptr))) return;
    if (FAILED(download(caller, CString(L"images\\") + name, path, 2, 0, nullptr))) path[0] = 0;
}

CVURLDownloadToCacheFileProc CVSetURLDownloadToCacheFileProc(CVURLDownloadToCacheFileProc proc) {
    CVURLDownloadToCacheFileProc previous = g_download;
    g_download = proc;
    return previous;
}

void CVResetSearchPathState() {
    SharedFilesCache().Empty();
    g_download = URLDownloadToCacheFileW;
}

int CVReadJPEGImageFileHeader(wchar_t*, int, int, unsigned char*) { return 0; }
int CVReadJPEGImageFileData(wchar_t*, int, int, unsigned char*) { return 0; }
int CVWriteJPEGImageFile(wchar_t*, int, int, unsigned char*) { return 0; }
