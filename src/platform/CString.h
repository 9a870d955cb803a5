#pragma once
// Wide-character string with the framework's member names. Eight-bit text
// converts as UTF-8 in both directions; wchar_t is 32-bit here.
#include "CVExport.h"
#include <string>

#include "WinTypes.h"

class CVSCENE_API CString {
public:
    CString() = default;
    CString(const wchar_t* text);
    CString(const char* utf8);
    CString(wchar_t ch, int count = 1);
    CString(const wchar_t* text, int length);
    CString(std::wstring text);

    int GetLength() const { return static_cast<int>(m_str.size()); }
    BOOL IsEmpty() const { return m_str.empty(); }
    void Empty() { m_str.clear(); }

    operator LPCWSTR() const { return m_str.c_str(); }
    LPCWSTR GetString() const { return m_str.c_str(); }
    const std::wstring& str() const { return m_str; }
    // The text as UTF-8 bytes.
    std::string ToUTF8() const;

    // Out-of-range positions throw CInvalidArgException.
    wchar_t GetAt(int i) const;
    void SetAt(int i, wchar_t ch);
    wchar_t operator[](int i) const { return GetAt(i); }

    CString& operator=(const wchar_t* text);
    CString& operator=(const char* utf8);
    CString& operator+=(const CString& other);
    CString& operator+=(const wchar_t* text);
    CString& operator+=(wchar_t ch);

    int Compare(const wchar_t* text) const;
    int CompareNoCase(const wchar_t* text) const;

    CString Left(int count) const;
    CString Right(int count) const;
    CString Mid(int first) const;
    CString Mid(int first, int count) const;
    // -1 when absent.
    int Find(wchar_t ch, int start = 0) const;
    int Find(const wchar_t* sub, int start = 0) const;
    int ReverseFind(wchar_t ch) const;
    int Replace(const wchar_t* from, const wchar_t* to);
    CString& MakeUpper();
    CString& MakeLower();
    CString& Trim();
    CString& TrimLeft();
    CString& TrimRight();

    // printf-style; %s and %c take wide arguments as in the framework.
    void Format(const wchar_t* format, ...);
    void AppendFormat(const wchar_t* format, ...);

private:
    std::wstring m_str;
};

CString operator+(const CString& a, const CString& b);
CString operator+(const CString& a, const wchar_t* b);
CString operator+(const wchar_t* a, const CString& b);
bool operator==(const CString& a, const CString& b);
bool operator==(const CString& a, const wchar_t* b);
bool operator!=(const CString& a, const CString& b);
bool operator!=(const CString& a, const wchar_t* b);
bool operator<(const CString& a, const CString& b);

// Byte-level conversions shared by the platform layer.
CVSCENE_API std::wstring CVUTF8ToWide(const char* utf8);
CVSCENE_API std::string CVWideToUTF8(const wchar_t* text);

struct CStringHash {
    size_t operator()(const CString& s) const { return std::hash<std::wstring>()(s.str()); }
};
