#include "platform/WinSys.h"

#include <sys/utsname.h>

#include <cstdio>
#include <cstring>

UINT GetOEMCP() { return 65001; }

BOOL GetVersionExW(OSVERSIONINFOW* info) {
    if (!info || info->dwOSVersionInfoSize < sizeof(OSVERSIONINFOW)) return FALSE;
    std::memset(&info->dwMajorVersion, 0, sizeof(OSVERSIONINFOW) - sizeof(DWORD));
    info->dwPlatformId = VER_PLATFORM_WIN32_NT;
    utsname u;
    if (uname(&u) == 0) {
        unsigned major = 0, minor = 0, build = 0;
        std::sscanf(u.release, "%u.%u.%u", &major, &minor, &build);
        info->dwMajorVersion = major;
        info->dwMinorVersion = minor;
        info->dwBuildNumber = build;
    }
    return TRUE;
}
