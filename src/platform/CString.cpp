#include "platform/CString.h"

#include <algorithm>
#include <cstdarg>
#include <cwchar>
#include <cwctype>
#include <vector>

#include "platform/CException.h"

namespace {

// Decodes one UTF-8 sequence; malformed bytes come through as U+FFFD.
wchar_t DecodeOne(const unsigned char*& p) {
    unsigned c = *p++;
    if (c < 0x80) return (wchar_t)c;
    int extra = (c >= 0xF0) ? 3 : (c >= 0xE0) ? 2 : (c >= 0xC0) ? 1 : -1;
    if (extra < 0) return (wchar_t)0xFFFD;
    unsigned cp = c & (0x3F >> extra);
    for (int i = 0; i < extra; ++i) {
        if ((*p & 0xC0) != 0x80) return (wchar_t)0xFFFD;
        cp = (cp << 6) | (*p++ & 0x3F);
    }
    return (wchar_t)cp;
}

void EncodeOne(unsigned cp, std::string& out) {
    if (cp < 0x80) {
        out += (char)cp;
    } else if (cp < 0x800) {
        out += (char)(0xC0 | (cp >> 6));
        out += (char)(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        out += (char)(0xE0 | (cp >> 12));
        out += (char)(0x80 | ((cp >> 6) & 0x3F));
        out += (char)(0x80 | (cp & 0x3F));
    } else {
        out += (char)(0xF0 | (cp >> 18));
        out += (char)(0x80 | ((cp >> 12) & 0x3F));
        out += (char)(0x80 | ((cp >> 6) & 0x3F));
        out += (char)(0x80 | (cp & 0x3F));
    }
}

// The framework's wide %s means a wide string; glibc's means narrow.
std::wstring WidenConversions(const wchar_t* format) {
    std::wstring out;
    for (const wchar_t* p = format; *p; ++p) {
        out += *p;
        if (*p != L'%') continue;
        ++p;
        while (*p && wcschr(L"-+ #0123456789.*", *p)) out += *p++;
        if (!*p) break;
        if (*p == L's' || *p == L'c') {
            out += L'l';
            out += *p;
        } else if (*p == L'S') {
            out += L's';
        } else {
            out += *p;
        }
    }
    return out;
}

std::wstring VFormat(const wchar_t* format, va_list args) {
    std::wstring fmt = WidenConversions(format);
    std::vector<wchar_t> buf(256);
    for (;;) {
        va_list copy;
        va_copy(copy, args);
        int n = vswprintf(buf.data(), buf.size(), fmt.c_str(), copy);
        va_end(copy);
        if (n >= 0 && (size_t)n < buf.size()) return std::wstring(buf.data(), n);
        if (buf.size() > (1u << 24)) return std::wstring();
        buf.resize(buf.size() * 4);
    }
}

bool IsBlank(wchar_t c) { return iswspace(c) != 0; }

}  // namespace

std::wstring CVUTF8ToWide(const char* utf8) {
    std::wstring out;
    if (!utf8) return out;
    const unsigned char* p = (const unsigned char*)utf8;
    while (*p) out += DecodeOne(p);
    return out;
}

std::string CVWideToUTF8(const wchar_t* text) {
    std::string out;
    if (!text) return out;
    for (; *text; ++text) EncodeOne((unsigned)*text, out);
    return out;
}

CString::CString(const wchar_t* text) : m_str(text ? text : L"") {}
CString::CString(const char* utf8) : m_str(CVUTF8ToWide(utf8)) {}
CString::CString(wchar_t ch, int count) : m_str(count > 0 ? count : 0, ch) {}
CString::CString(const wchar_t* text, int length)
    : m_str(text && length > 0 ? std::wstring(text, length) : std::wstring()) {}
CString::CString(std::wstring text) : m_str(std::move(text)) {}

std::string CString::ToUTF8() const { return CVWideToUTF8(m_str.c_str()); }

wchar_t CString::GetAt(int i) const {
    if (i < 0 || i >= GetLength()) AfxThrowInvalidArgException("CString::GetAt(): index out of range");
    return m_str[i];
}

void CString::SetAt(int i, wchar_t ch) {
    if (i < 0 || i >= GetLength()) AfxThrowInvalidArgException("CString::SetAt(): index out of range");
    m_str[i] = ch;
}

CString& CString::operator=(const wchar_t* text) {
    m_str = text ? text : L"";
    return *this;
}

CString& CString::operator=(const char* utf8) {
    m_str = CVUTF8ToWide(utf8);
    return *this;
}

CString& CString::operator+=(const CString& other) {
    m_str += other.m_str;
    return *this;
}

CString& CString::operator+=(const wchar_t* text) {
    if (text) m_str += text;
    return *this;
}

CString& CString::operator+=(wchar_t ch) {
    m_str += ch;
    return *this;
}

int CString::Compare(const wchar_t* text) const { return wcscmp(m_str.c_str(), text ? text : L""); }

int CString::CompareNoCase(const wchar_t* text) const {
    return wcscasecmp(m_str.c_str(), text ? text : L"");
}

CString CString::Left(int count) const {
    count = std::clamp(count, 0, GetLength());
    return CString(m_str.substr(0, count));
}

CString CString::Right(int count) const {
    count = std::clamp(count, 0, GetLength());
    return CString(m_str.substr(m_str.size() - count));
}

CString CString::Mid(int first) const { return Mid(first, GetLength()); }

CString CString::Mid(int first, int count) const {
    first = std::clamp(first, 0, GetLength());
    count = std::clamp(count, 0, GetLength() - first);
    return CString(m_str.substr(first, count));
}

int CString::Find(wchar_t ch, int start) const {
    if (start < 0 || start > GetLength()) return -1;
    size_t at = m_str.find(ch, start);
    return at == std::wstring::npos ? -1 : (int)at;
}

int CString::Find(const wchar_t* sub, int start) const {
    if (!sub || start < 0 || start > GetLength()) return -1;
    size_t at = m_str.find(sub, start);
    return at == std::wstring::npos ? -1 : (int)at;
}

int CString::ReverseFind(wchar_t ch) const {
    size_t at = m_str.rfind(ch);
    return at == std::wstring::npos ? -1 : (int)at;
}

int CString::Replace(const wchar_t* from, const wchar_t* to) {
    if (!from || !*from) return 0;
    std::wstring f(from), t(to ? to : L"");
    int n = 0;
    for (size_t at = m_str.find(f); at != std::wstring::npos; at = m_str.find(f, at + t.size())) {
        m_str.replace(at, f.size(), t);
        ++n;
    }
    return n;
}

CString& CString::MakeUpper() {
    for (auto& c : m_str) c = (wchar_t)towupper(c);
    return *this;
}

CString& CString::MakeLower() {
    for (auto& c : m_str) c = (wchar_t)towlower(c);
    return *this;
}

CString& CString::Trim() { return TrimRight().TrimLeft(); }

CString& CString::TrimLeft() {
    size_t i = 0;
    while (i < m_str.size() && IsBlank(m_str[i])) ++i;
    m_str.erase(0, i);
    return *this;
}

CString& CString::TrimRight() {
    while (!m_str.empty() && IsBlank(m_str.back())) m_str.pop_back();
    return *this;
}

void CString::Format(const wchar_t* format, ...) {
    va_list args;
    va_start(args, format);
    m_str = VFormat(format, args);
    va_end(args);
}

void CString::AppendFormat(const wchar_t* format, ...) {
    va_list args;
    va_start(args, format);
    m_str += VFormat(format, args);
    va_end(args);
}

CString operator+(const CString& a, const CString& b) { return CString(a.str() + b.str()); }
CString operator+(const CString& a, const wchar_t* b) { return CString(a.str() + (b ? b : L"")); }
CString operator+(const wchar_t* a, const CString& b) { return CString((a ? a : L"") + b.str()); }
bool operator==(const CString& a, const CString& b) { return a.str() == b.str(); }
bool operator==(const CString& a, const wchar_t* b) { return a.str() == (b ? b : L""); }
bool operator!=(const CString& a, const CString& b) { return !(a == b); }
bool operator!=(const CString& a, const wchar_t* b) { return !(a == b); }
bool operator<(const CString& a, const CString& b) { return a.str() < b.str(); }
