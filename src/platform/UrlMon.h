#pragma once
// Download to the per-user cache. The entry point is linked into the library,
// so it is always available in-process: there is no module to load first.
#include "IUnknown.h"
#include "WinTypes.h"

// Fetches url (http, https or file scheme; scheme names ignore case) into
// $XDG_CACHE_HOME/cvscene, or ~/.cache/cvscene when that is unset or not
// absolute, and writes the cached file's full path into fileName.
//
// Buffer rule: the limit on what is written is max(bufferLength, MAX_PATH),
// zero included. Callers therefore pass a buffer of at least MAX_PATH (260)
// characters whatever bufferLength they state (the library's own callers pass
// 1024-character buffers); a larger bufferLength raises the limit. A path that
// does not fit is a failure.
//
// Returns S_OK, or E_FAIL for a URL without one of those schemes (including
// relative names, as there is no base to resolve them against), an HTTP
// status of 400 or more, a missing file, a network failure or a cache folder
// that cannot be made; fileName is then the empty string when not null.
// Redirects are followed between http and https only. One URL always maps to
// the same cache file, which a later download replaces; a failed download
// leaves no partial file. Bounded: 10 s to connect, 30 s without progress.
// caller, reserved and callback are accepted and not used (no binding
// context to consult, no progress reported).
HRESULT URLDownloadToCacheFileW(IUnknown* caller, LPCWSTR url, LPWSTR fileName, DWORD bufferLength, DWORD reserved,
                                void* callback);
