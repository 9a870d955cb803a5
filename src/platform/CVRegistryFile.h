#pragma once
// One reading of a registry export file (the ".reg" text format), holding the
// keys under HKEY_LOCAL_MACHINE with their values in file order.
//
// Accepted: an optional "Windows Registry Editor Version 5.00" or "REGEDIT4"
// header; "[HKEY_LOCAL_MACHINE\Path\To\Key]" lines; values "Name"="text" and
// @="text" (the default value) with \\ and \" escapes; dword:xxxxxxxx and
// hex:/hex(n): values, continued over lines by a trailing backslash; ';'
// comments. Text is UTF-8 (BOM optional) or UTF-16LE with its BOM.
// Lines that fit none of these are skipped, as are values under other roots,
// deletions ("[-...]", "Name"=-) and values before the first key line.
// A missing or unreadable file gives no keys.
//
// Key paths are stored without the root and compare case-insensitively; a key
// line also makes its ancestors exist. A value named again in the same key
// (names compare case-insensitively, as the system does) replaces the earlier
// data in place, keeping the first spelling and position.
//
// String data (REG_SZ, REG_EXPAND_SZ, REG_MULTI_SZ) is stored as wchar_t units
// including the terminating zero(s), so its size in bytes is a multiple of
// sizeof(wchar_t), which is 4 here.
#include <string>
#include <unordered_map>
#include <vector>

#include "WinTypes.h"

class CVRegistryFile {
public:
    struct Value {
        std::wstring name;  // empty for the default value
        DWORD type = 0;     // REG_SZ, REG_DWORD, ...
        std::vector<BYTE> data;
    };
    struct Key {
        std::wstring path;  // "SOFTWARE\\Vendor\\Product", as first spelt
        std::vector<Value> values;
    };

    // Reads and parses fileName (a local path, UTF-8).
    explicit CVRegistryFile(const std::string& fileName);

    // The file the platform layer reads: $CVSCENE_REGISTRY, or
    // /etc/cvscene/registry.reg when that is unset or empty.
    static std::string DefaultFileName();

    // Null when the key does not exist. path uses '\\' separators; a
    // trailing separator is ignored. The empty path is the root itself.
    const Key* FindKey(const std::wstring& path) const;
    // Names of the direct subkeys of path, in file order.
    std::vector<std::wstring> SubKeyNames(const std::wstring& path) const;

    int GetKeyCount() const { return (int)m_keys.size(); }

private:
    Key& AddKey(const std::wstring& path);
    void Parse(const std::wstring& text);
    void ParseLine(const std::wstring& line, long& current);

    std::vector<Key> m_keys;                            // file order; index 0 is the root
    std::unordered_map<std::wstring, size_t> m_index;   // folded path -> position
};
