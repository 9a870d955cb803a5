#include "platform/WinBase.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <mutex>
#include <new>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/CString.h"
#include "platform/WinGL.h"

namespace {

std::string ToNative(LPCWSTR text) {
    std::string out = CVWideToUTF8(text);
    for (char& c : out)
        if (c == '\\') c = '/';
    return out;
}

bool IsFile(const std::string& name) {
    struct stat st;
    return stat(name.c_str(), &st) == 0 && !S_ISDIR(st.st_mode);
}

std::string CurrentDirectory() {
    std::vector<char> buf(4096);
    while (!getcwd(buf.data(), buf.size())) {
        if (buf.size() > (1u << 20)) return "/";
        buf.resize(buf.size() * 2);
    }
    return buf.data();
}

// Absolute, with "." and ".." resolved by name as the system does, not by
// following links.
std::string FullPath(const std::string& name) {
    std::string whole = name[0] == '/' ? name : CurrentDirectory() + "/" + name;
    std::vector<std::string> parts;
    size_t start = 0;
    while (start <= whole.size()) {
        size_t end = whole.find('/', start);
        if (end == std::string::npos) end = whole.size();
        std::string part = whole.substr(start, end - start);
        if (part == "..") {
            if (!parts.empty()) parts.pop_back();
        } else if (!part.empty() && part != ".") {
            parts.push_back(part);
        }
        start = end + 1;
    }
    std::string out;
    for (const auto& part : parts) out += "/" + part;
    return out.empty() ? "/" : out;
}

std::string Join(const std::string& folder, const std::string& name) {
    if (folder.empty()) return name;
    return folder.back() == '/' ? folder + name : folder + "/" + name;
}

std::vector<std::string> DefaultFolders() {
    std::vector<std::string> folders{std::string()};
    const char* env = getenv("CVSCENE_IMAGE_PATH");
    std::string list = env ? env : "";
    size_t start = 0;
    while (start < list.size()) {
        size_t end = list.find(':', start);
        if (end == std::string::npos) end = list.size();
        if (end > start) folders.push_back(list.substr(start, end - start));
        start = end + 1;
    }
    return folders;
}

}  // namespace

DWORD SearchPathW(LPCWSTR path, LPCWSTR fileName, LPCWSTR ext, DWORD bufferLength, LPWSTR buffer, LPWSTR* filePart) {
    if (!fileName || !*fileName) return 0;
    std::string name = ToNative(fileName);
    if (ext && *ext) {
        size_t slash = name.rfind('/');
        size_t dot = name.rfind('.');
        if (dot == std::string::npos || (slash != std::string::npos && dot < slash)) name += ToNative(ext);
    }

    std::string found;
    if (name[0] == '/') {
        if (IsFile(name)) found = name;
    } else {
        std::vector<std::string> folders = path ? std::vector<std::string>{ToNative(path)} : DefaultFolders();
        for (const auto& folder : folders) {
            std::string candidate = Join(folder, name);
            if (IsFile(candidate)) {
                found = candidate;
                break;
            }
        }
    }
    if (found.empty()) return 0;

    std::wstring full = CVUTF8ToWide(FullPath(found).c_str());
    if (!buffer || full.size() + 1 > bufferLength) return (DWORD)(full.size() + 1);
    full.copy(buffer, full.size());
    buffer[full.size()] = 0;
    if (filePart) *filePart = buffer + full.rfind(L'/') + 1;
    return (DWORD)full.size();
}

// ---- Global memory.

namespace {

struct GlobalBlock {
    BYTE* data;
    SIZE_T size;
    int locks;
    int movable;
};

// Live blocks by handle. Heap-held so that it outlives static destructors of
// hosts that free blocks late.
struct GlobalTable {
    std::mutex lock;
    std::unordered_map<HGLOBAL, GlobalBlock> blocks;
};

GlobalTable& Globals() {
    static GlobalTable* table = new GlobalTable;
    return *table;
}

}  // namespace

HGLOBAL GlobalAlloc(UINT flags, SIZE_T bytes) {
    if (bytes == 0 || (flags & ~(UINT)(GMEM_MOVEABLE | GMEM_ZEROINIT))) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    BYTE* data = (flags & GMEM_ZEROINIT) ? new (std::nothrow) BYTE[bytes]() : new (std::nothrow) BYTE[bytes];
    if (!data) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    GlobalBlock block{data, bytes, 0, (flags & GMEM_MOVEABLE) ? 1 : 0};
    // A movable block's handle only has to be unique and distinct from any
    // address handed out; one byte of its own does that.
    HGLOBAL handle = data;
    if (block.movable) {
        handle = new (std::nothrow) BYTE;
        if (!handle) {
            delete[] data;
            SetLastError(ERROR_NOT_ENOUGH_MEMORY);
            return nullptr;
        }
    }
    GlobalTable& t = Globals();
    std::lock_guard<std::mutex> guard(t.lock);
    t.blocks.emplace(handle, block);
    return handle;
}

LPVOID GlobalLock(HGLOBAL mem) {
    GlobalTable& t = Globals();
    std::lock_guard<std::mutex> guard(t.lock);
    auto it = t.blocks.find(mem);
    if (it == t.blocks.end()) {
        SetLastError(ERROR_INVALID_HANDLE);
        return nullptr;
    }
    if (it->second.movable) ++it->second.locks;
    return it->second.data;
}

BOOL GlobalUnlock(HGLOBAL mem) {
    GlobalTable& t = Globals();
    std::lock_guard<std::mutex> guard(t.lock);
    auto it = t.blocks.find(mem);
    if (it == t.blocks.end()) {
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    if (it->second.locks > 0) --it->second.locks;
    return it->second.locks > 0;
}

HGLOBAL GlobalFree(HGLOBAL mem) {
    GlobalBlock block;
    {
        GlobalTable& t = Globals();
        std::lock_guard<std::mutex> guard(t.lock);
        auto it = t.blocks.find(mem);
        if (it == t.blocks.end()) {
            SetLastError(ERROR_INVALID_HANDLE);
            return mem;
        }
        block = it->second;
        t.blocks.erase(it);
    }
    if (block.movable) delete static_cast<BYTE*>(mem);
    delete[] block.data;
    return nullptr;
}

SIZE_T GlobalSize(HGLOBAL mem) {
    GlobalTable& t = Globals();
    std::lock_guard<std::mutex> guard(t.lock);
    auto it = t.blocks.find(mem);
    if (it == t.blocks.end()) {
        SetLastError(ERROR_INVALID_HANDLE);
        return 0;
    }
    return it->second.size;
}
