#include "platform/CVRegistryFile.h"

#include <cstdlib>
#include <cwctype>
#include <fstream>
#include <iterator>

#include "platform/CString.h"
#include "platform/WinReg.h"

namespace {

const wchar_t kRoot[] = L"HKEY_LOCAL_MACHINE";

std::wstring Fold(const std::wstring& s) {
    std::wstring out(s);
    for (wchar_t& c : out) c = (wchar_t)towupper((wint_t)c);
    return out;
}

bool EqualNoCase(const std::wstring& a, const std::wstring& b) { return Fold(a) == Fold(b); }

std::wstring Trim(const std::wstring& s) {
    size_t b = 0, e = s.size();
    while (b < e && iswspace((wint_t)s[b])) ++b;
    while (e > b && iswspace((wint_t)s[e - 1])) --e;
    return s.substr(b, e - b);
}

void SkipBlanks(const std::wstring& s, size_t& pos) {
    while (pos < s.size() && (s[pos] == L' ' || s[pos] == L'\t')) ++pos;
}

std::wstring DecodeUTF16LE(const std::string& bytes, size_t start) {
    std::wstring out;
    out.reserve((bytes.size() - start) / 2);
    for (size_t i = start; i + 1 < bytes.size(); i += 2) {
        unsigned u = (unsigned char)bytes[i] | ((unsigned)(unsigned char)bytes[i + 1] << 8);
        if (u >= 0xD800 && u < 0xDC00 && i + 3 < bytes.size()) {
            unsigned v = (unsigned char)bytes[i + 2] | ((unsigned)(unsigned char)bytes[i + 3] << 8);
            if (v >= 0xDC00 && v < 0xE000) {
                out += (wchar_t)(0x10000 + ((u - 0xD800) << 10) + (v - 0xDC00));
                i += 2;
                continue;
            }
        }
        out += (u >= 0xD800 && u < 0xE000) ? (wchar_t)0xFFFD : (wchar_t)u;
    }
    return out;
}

std::wstring DecodeText(const std::string& bytes) {
    if (bytes.size() >= 2 && (unsigned char)bytes[0] == 0xFF && (unsigned char)bytes[1] == 0xFE)
        return DecodeUTF16LE(bytes, 2);
    size_t start = 0;
    if (bytes.size() >= 3 && bytes.compare(0, 3, "\xEF\xBB\xBF") == 0) start = 3;
    // A stray NUL would cut the conversion short; such a file is not text anyway.
    return CVUTF8ToWide(bytes.c_str() + start);
}

// A quoted token starting at pos, with \\ and \" escapes; pos ends after the
// closing quote.
bool ParseQuoted(const std::wstring& s, size_t& pos, std::wstring& out) {
    if (pos >= s.size() || s[pos] != L'"') return false;
    out.clear();
    for (size_t i = pos + 1; i < s.size(); ++i) {
        wchar_t c = s[i];
        if (c == L'"') {
            pos = i + 1;
            return true;
        }
        if (c == L'\\') {
            if (i + 1 >= s.size() || (s[i + 1] != L'\\' && s[i + 1] != L'"')) return false;
            c = s[++i];
        }
        out += c;
    }
    return false;
}

// The value name and the position just after the '=' (blanks skipped).
bool ParseNameAndEquals(const std::wstring& line, std::wstring& name, size_t& pos) {
    pos = 0;
    if (line.empty()) return false;
    if (line[0] == L'@') {
        name.clear();
        pos = 1;
    } else if (!ParseQuoted(line, pos, name)) {
        return false;
    }
    SkipBlanks(line, pos);
    if (pos >= line.size() || line[pos] != L'=') return false;
    ++pos;
    SkipBlanks(line, pos);
    return true;
}

bool StartsWithNoCase(const std::wstring& s, size_t pos, const wchar_t* prefix) {
    for (size_t i = 0; prefix[i]; ++i)
        if (pos + i >= s.size() || towlower((wint_t)s[pos + i]) != (wint_t)prefix[i]) return false;
    return true;
}

int HexDigit(wchar_t c) {
    if (c >= L'0' && c <= L'9') return c - L'0';
    if (c >= L'a' && c <= L'f') return c - L'a' + 10;
    if (c >= L'A' && c <= L'F') return c - L'A' + 10;
    return -1;
}

bool IsHexValueLine(const std::wstring& line) {
    std::wstring name;
    size_t pos;
    return ParseNameAndEquals(line, name, pos) && StartsWithNoCase(line, pos, L"hex");
}

// "hex:01,02" or "hex(7):..." from pos; type defaults to REG_BINARY.
bool ParseHex(const std::wstring& s, size_t pos, DWORD& type, std::vector<BYTE>& bytes) {
    pos += 3;
    type = REG_BINARY;
    if (pos < s.size() && s[pos] == L'(') {
        size_t close = s.find(L')', pos);
        if (close == std::wstring::npos || close == pos + 1 || close - pos > 9) return false;
        DWORD t = 0;
        for (size_t i = pos + 1; i < close; ++i) {
            int d = HexDigit(s[i]);
            if (d < 0) return false;
            t = t * 16 + (DWORD)d;
        }
        type = t;
        pos = close + 1;
    }
    if (pos >= s.size() || s[pos] != L':') return false;
    ++pos;
    bytes.clear();
    while (true) {
        SkipBlanks(s, pos);
        if (pos >= s.size()) break;
        int hi = HexDigit(s[pos]);
        int lo = pos + 1 < s.size() ? HexDigit(s[pos + 1]) : -1;
        if (hi < 0 || lo < 0) return false;
        bytes.push_back((BYTE)(hi * 16 + lo));
        pos += 2;
        SkipBlanks(s, pos);
        if (pos >= s.size()) break;
        if (s[pos] != L',') return false;
        ++pos;
    }
    return true;
}

bool IsStringType(DWORD type) { return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ; }

std::vector<BYTE> WideBytes(const std::wstring& text) {
    const BYTE* p = reinterpret_cast<const BYTE*>(text.c_str());
    return std::vector<BYTE>(p, p + (text.size() + 1) * sizeof(wchar_t));
}

}  // namespace

CVRegistryFile::CVRegistryFile(const std::string& fileName) {
    AddKey(L"");
    std::ifstream in(fileName, std::ios::binary);
    if (!in) return;
    std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    Parse(DecodeText(bytes));
}

std::string CVRegistryFile::DefaultFileName() {
    const char* env = getenv("CVSCENE_REGISTRY");
    return (env && *env) ? std::string(env) : std::string("/etc/cvscene/registry.reg");
}

CVRegistryFile::Key& CVRegistryFile::AddKey(const std::wstring& path) {
    std::wstring folded = Fold(path);
    auto it = m_index.find(folded);
    if (it != m_index.end()) return m_keys[it->second];
    size_t cut = path.rfind(L'\\');
    if (!path.empty()) AddKey(cut == std::wstring::npos ? std::wstring() : path.substr(0, cut));
    m_index.emplace(folded, m_keys.size());
    m_keys.push_back(Key{path, {}});
    return m_keys.back();
}

const CVRegistryFile::Key* CVRegistryFile::FindKey(const std::wstring& path) const {
    std::wstring p = path;
    if (!p.empty() && p.back() == L'\\') p.pop_back();
    auto it = m_index.find(Fold(p));
    return it == m_index.end() ? nullptr : &m_keys[it->second];
}

std::vector<std::wstring> CVRegistryFile::SubKeyNames(const std::wstring& path) const {
    std::vector<std::wstring> names;
    const Key* parent = FindKey(path);
    if (!parent) return names;
    std::wstring prefix = Fold(parent->path);
    if (!prefix.empty()) prefix += L'\\';
    for (const Key& key : m_keys) {
        if (key.path.size() <= prefix.size()) continue;
        std::wstring folded = Fold(key.path);
        if (folded.compare(0, prefix.size(), prefix) != 0) continue;
        if (folded.find(L'\\', prefix.size()) != std::wstring::npos) continue;
        names.push_back(key.path.substr(prefix.size()));
    }
    return names;
}

void CVRegistryFile::Parse(const std::wstring& text) {
    std::vector<std::wstring> lines;
    size_t start = 0;
    while (start <= text.size()) {
        size_t end = text.find(L'\n', start);
        if (end == std::wstring::npos) end = text.size();
        lines.push_back(Trim(text.substr(start, end - start)));
        start = end + 1;
    }
    long current = -1;  // index of the key receiving values; -1 while values are ignored
    for (size_t i = 0; i < lines.size(); ++i) {
        std::wstring line = lines[i];
        if (IsHexValueLine(line)) {
            while (!line.empty() && line.back() == L'\\' && i + 1 < lines.size()) {
                line.pop_back();
                line += lines[++i];
            }
        }
        ParseLine(line, current);
    }
}

void CVRegistryFile::ParseLine(const std::wstring& line, long& current) {
    if (line.empty() || line[0] == L';') return;
    if (line[0] == L'[') {
        current = -1;
        if (line.back() != L']' || line.size() < 3 || line[1] == L'-') return;
        std::wstring full = line.substr(1, line.size() - 2);
        size_t sep = full.find(L'\\');
        if (!EqualNoCase(full.substr(0, sep), kRoot)) return;
        std::wstring path = sep == std::wstring::npos ? std::wstring() : full.substr(sep + 1);
        if (!path.empty() && path.back() == L'\\') path.pop_back();
        if (path.find(L"\\\\") != std::wstring::npos || (!path.empty() && path[0] == L'\\')) return;
        Key& key = AddKey(path);
        current = (long)m_index[Fold(key.path)];
        return;
    }
    if (current < 0) return;
    std::wstring name;
    size_t pos;
    if (!ParseNameAndEquals(line, name, pos)) return;

    Value value;
    value.name = name;
    if (line[pos] == L'"') {
        std::wstring text;
        if (!ParseQuoted(line, pos, text)) return;
        SkipBlanks(line, pos);
        if (pos != line.size()) return;
        value.type = REG_SZ;
        value.data = WideBytes(text);
    } else if (StartsWithNoCase(line, pos, L"dword:")) {
        pos += 6;
        if (line.size() - pos < 1 || line.size() - pos > 8) return;
        DWORD v = 0;
        for (; pos < line.size(); ++pos) {
            int d = HexDigit(line[pos]);
            if (d < 0) return;
            v = v * 16 + (DWORD)d;
        }
        value.type = REG_DWORD;
        for (int b = 0; b < 4; ++b) value.data.push_back((BYTE)(v >> (8 * b)));
    } else if (StartsWithNoCase(line, pos, L"hex")) {
        std::vector<BYTE> bytes;
        if (!ParseHex(line, pos, value.type, bytes)) return;
        if (IsStringType(value.type)) {
            // Exported wide text is UTF-16LE; held here in wchar_t units.
            std::wstring text = DecodeUTF16LE(std::string(bytes.begin(), bytes.end()), 0);
            const BYTE* p = reinterpret_cast<const BYTE*>(text.data());
            value.data.assign(p, p + text.size() * sizeof(wchar_t));
        } else {
            value.data = bytes;
        }
    } else if (line.compare(pos, std::wstring::npos, L"-") == 0) {
        auto& values = m_keys[current].values;
        for (auto it = values.begin(); it != values.end(); ++it) {
            if (EqualNoCase(it->name, name)) {
                values.erase(it);
                break;
            }
        }
        return;
    } else {
        return;
    }

    auto& values = m_keys[current].values;
    for (Value& existing : values) {
        if (EqualNoCase(existing.name, name)) {
            existing.type = value.type;
            existing.data = std::move(value.data);
            return;
        }
    }
    values.push_back(std::move(value));
}
