#pragma once
// Where shared files and images are found: folders named in the registry
// (HKEY_LOCAL_MACHINE, see platform/WinReg.h), the file search, and downloads
// of images named by URL.
#include "../platform/CVExport.h"
#include "../platform/CString.h"
#include "../platform/IUnknown.h"
#include "../platform/WinTypes.h"

// The "Path" value of the shared-files key's subkey named component, or an
// empty string when the key is missing or cannot be read. Hazard: a key
// without a "Path" value (the name compares case-sensitively) gives the data
// of its last value, and a key without values an empty string.
CVSCENE_API CString CVGetSharedComponentPath(CString component);

// The default component's path with "\\Images" appended; just "\\Images" when
// the registry gives nothing.
CVSCENE_API CString CVGetDefaultImageSearchPath();

// The default value of the shared-files key. Read on the first call that finds
// the process-wide copy empty, then kept for the life of the process: later
// registry changes are not seen. Unguarded; call from the drawing thread.
CVSCENE_API CString CVGetKestrixSharedFilesPath();

// Resolves an image name into path, a buffer of at least 1024 characters
// (empty when nothing is found). Looks in the default image folder, then the
// shared-files folder's "images", then the plain file search (current
// directory, then $CVSCENE_IMAGE_PATH). Failing those, and only when caller
// is not null, downloads name as a URL, then "images\\" + name, into the
// cache; the cached file's path is the result. Backslashes read as '/'.
CVSCENE_API void CVGetURLTextureSearchPath(IUnknown* caller, CString name, wchar_t* path);

// The download entry used by CVGetURLTextureSearchPath, the counterpart of
// looking the download function up at run time. It starts as the built-in
// URLDownloadToCacheFileW (platform/UrlMon.h), always present in-process; a
// host may route downloads through its own fetcher, and null stands for a
// failed lookup, so nothing is downloaded. Returns the previous entry.
typedef HRESULT (*CVURLDownloadToCacheFileProc)(IUnknown* caller, LPCWSTR url, LPWSTR fileName, DWORD bufferLength,
                                                DWORD reserved, void* callback);
CVSCENE_API CVURLDownloadToCacheFileProc CVSetURLDownloadToCacheFileProc(CVURLDownloadToCacheFileProc proc);

// Drops the kept shared-files path and restores the default download
// procedure: the state library load leaves (see CVLibrary).
CVSCENE_API void CVResetSearchPathState();

// Kept for hosts that call them: each does nothing and returns 0. JPEG files
// are read through the image file class instead (platform/CVImageFile.h).
CVSCENE_API int CVReadJPEGImageFileHeader(wchar_t* fileName, int width, int height, unsigned char* data);
CVSCENE_API int CVReadJPEGImageFileData(wchar_t* fileName, int width, int height, unsigned char* data);
CVSCENE_API int CVWriteJPEGImageFile(wchar_t* fileName, int width, int height, unsigned char* data);
