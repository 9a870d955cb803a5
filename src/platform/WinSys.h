#pragma once
// System queries recorded at start-up.
#include "WinTypes.h"

struct OSVERSIONINFOW {
    DWORD dwOSVersionInfoSize;  // 276
    DWORD dwMajorVersion;
    DWORD dwMinorVersion;
    DWORD dwBuildNumber;
    DWORD dwPlatformId;
    WCHAR szCSDVersion[128];
};

#define VER_PLATFORM_WIN32_NT 2

// The OEM code page; text is UTF-8 on this platform, reported as 65001.
UINT GetOEMCP();
// Fills the record from the running kernel's release (major.minor.patch).
BOOL GetVersionExW(OSVERSIONINFOW* info);
