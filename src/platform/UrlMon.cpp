#include "platform/UrlMon.h"

#include <curl/curl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <string>

#include "platform/CString.h"
#include "platform/WinBase.h"

namespace {

std::once_flag g_curlInit;

bool HasAllowedScheme(const std::string& url) {
    size_t colon = url.find("://");
    if (colon == std::string::npos || colon == 0) return false;
    std::string scheme = url.substr(0, colon);
    std::transform(scheme.begin(), scheme.end(), scheme.begin(), [](unsigned char c) { return (char)tolower(c); });
    return scheme == "http" || scheme == "https" || scheme == "file";
}

bool MakeFolders(const std::string& folder) {
    for (size_t pos = 1; pos <= folder.size(); ++pos) {
        if (pos != folder.size() && folder[pos] != '/') continue;
        std::string part = folder.substr(0, pos);
        if (mkdir(part.c_str(), 0700) != 0 && errno != EEXIST) return false;
    }
    struct stat st;
    return stat(folder.c_str(), &st) == 0 && S_ISDIR(st.st_mode);
}

std::string CacheFolder() {
    const char* xdg = getenv("XDG_CACHE_HOME");
    if (xdg && xdg[0] == '/') return std::string(xdg) + "/cvscene";
    const char* home = getenv("HOME");
    if (home && home[0] == '/') return std::string(home) + "/.cache/cvscene";
    return std::string();
}

// A stable name per URL that keeps the last path segment, so the file still
// says what it is (and its extension) to whoever reads it.
std::string CacheFileName(const std::string& url) {
    uint64_t hash = 0xcbf29ce484222325ull;  // FNV-1a
    for (unsigned char c : url) {
        hash ^= c;
        hash *= 0x100000001b3ull;
    }
    std::string path = url.substr(0, url.find_first_of("?#"));
    std::string leaf = path.substr(path.rfind('/') + 1);
    std::string clean;
    for (char c : leaf) {
        bool plain = isalnum((unsigned char)c) || c == '.' || c == '-' || c == '_';
        clean += plain ? c : '_';
    }
    if (clean.size() > 64) clean = clean.substr(clean.size() - 64);
    if (clean.empty() || clean[0] == '.') clean = "download" + clean;
    char hex[17];
    snprintf(hex, sizeof hex, "%016llx", (unsigned long long)hash);
    return std::string(hex) + "-" + clean;
}

size_t WriteToFile(char* data, size_t size, size_t count, void* stream) {
    return fwrite(data, size, count, static_cast<FILE*>(stream)) * size;
}

// Fetches url into the open file; true on a complete, successful transfer.
bool Fetch(const std::string& url, FILE* out) {
    std::call_once(g_curlInit, [] { curl_global_init(CURL_GLOBAL_DEFAULT); });
    CURL* curl = curl_easy_init();
    if (!curl) return false;
    curl_easy_setopt(curl, CURLOPT_URL, url.c_str());
#if LIBCURL_VERSION_NUM >= 0x075500
    curl_easy_setopt(curl, CURLOPT_PROTOCOLS_STR, "http,https,file");
    curl_easy_setopt(curl, CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
#else
    curl_easy_setopt(curl, CURLOPT_PROTOCOLS, (long)(CURLPROTO_HTTP | CURLPROTO_HTTPS | CURLPROTO_FILE));
    curl_easy_setopt(curl, CURLOPT_REDIR_PROTOCOLS, (long)(CURLPROTO_HTTP | CURLPROTO_HTTPS));
#endif
    curl_easy_setopt(curl, CURLOPT_FOLLOWLOCATION, 1L);
    curl_easy_setopt(curl, CURLOPT_MAXREDIRS, 10L);
    curl_easy_setopt(curl, CURLOPT_FAILONERROR, 1L);
    curl_easy_setopt(curl, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(curl, CURLOPT_CONNECTTIMEOUT, 10L);
    curl_easy_setopt(curl, CURLOPT_LOW_SPEED_LIMIT, 1L);
    curl_easy_setopt(curl, CURLOPT_LOW_SPEED_TIME, 30L);
    curl_easy_setopt(curl, CURLOPT_WRITEFUNCTION, WriteToFile);
    curl_easy_setopt(curl, CURLOPT_WRITEDATA, out);
    CURLcode code = curl_easy_perform(curl);
    curl_easy_cleanup(curl);
    return code == CURLE_OK;
}

}  // namespace

HRESULT URLDownloadToCacheFileW(IUnknown*, LPCWSTR url, LPWSTR fileName, DWORD bufferLength, DWORD, void*) {
    if (fileName) fileName[0] = 0;
    if (!url || !fileName) return E_FAIL;
    std::string target = CVWideToUTF8(url);
    if (!HasAllowedScheme(target)) return E_FAIL;

    std::string folder = CacheFolder();
    if (folder.empty() || !MakeFolders(folder)) return E_FAIL;
    std::string finalName = folder + "/" + CacheFileName(target);
    std::wstring wide = CVUTF8ToWide(finalName.c_str());
    DWORD limit = std::max<DWORD>(bufferLength, MAX_PATH);
    if (wide.size() + 1 > limit) return E_FAIL;

    std::string partName = folder + "/.part-XXXXXX";
    int fd = mkstemp(&partName[0]);
    if (fd < 0) return E_FAIL;
    FILE* out = fdopen(fd, "wb");
    if (!out) {
        close(fd);
        unlink(partName.c_str());
        return E_FAIL;
    }
    bool ok = Fetch(target, out);
    ok = (fclose(out) == 0) && ok;
    if (ok) ok = rename(partName.c_str(), finalName.c_str()) == 0;
    if (!ok) {
        unlink(partName.c_str());
        return E_FAIL;
    }
    wide.copy(fileName, wide.size());
    fileName[wide.size()] = 0;
    return S_OK;
}
