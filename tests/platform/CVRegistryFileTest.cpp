#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/CString.h"
#include "platform/CVRegistryFile.h"
#include "platform/WinReg.h"
#include "support/CVTestFiles.h"

namespace {

std::wstring Text(const CVRegistryFile::Value& v) {
    return std::wstring(reinterpret_cast<const wchar_t*>(v.data.data()), v.data.size() / sizeof(wchar_t));
}

// "name=text" per value of key in the parsed text, strings without their zero.
std::vector<std::wstring> Parse(const std::string& text, const wchar_t* key) {
    cvtest::TempDir dir;
    cvtest::WriteFile(dir / "r.reg", text);
    const CVRegistryFile file(dir / "r.reg");
    const CVRegistryFile::Key* k = file.FindKey(key);
    if (!k) return {L"(no key)"};
    std::vector<std::wstring> out;
    for (const auto& v : k->values) {
        std::wstring t = Text(v);
        if (v.type == REG_SZ && !t.empty()) t.pop_back();
        out.push_back(v.name + L"=" + t);
    }
    return out;
}

TEST(CVRegistryFileTest, KeepsWellFormedValuesInFileOrder) {
    const struct {
        const char* file;
        const wchar_t* key;
        std::vector<std::wstring> values;
    } cases[] = {
        {"Windows Registry Editor Version 5.00\r\n\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\A]\r\n"
         "@=\"root\"\r\n\"Path\"=\"C:\\\\Data\\\\\"\r\n\"Quote\" = \"say \\\"hi\\\"\"\r\n",
         L"SOFTWARE\\A",
         {L"=root", L"Path=C:\\Data\\", L"Quote=say \"hi\""}},
        // Malformed lines are skipped.
        {"[HKEY_LOCAL_MACHINE\\K]\n\"Good\"=\"1\"\n\"Open\"=\"no end\nBare=x\n\"T\"=bogus:1\n"
         "\"Esc\"=\"a\\qb\"\n\"Tail\"=\"x\" junk\n\"Last\"=\"2\"\n[HKEY_LOCAL_MACHINE\\Broken\n\"Stray\"=\"s\"\n",
         L"K",
         {L"Good=1", L"Last=2"}},
        // Values outside local-machine keys, and of deleted keys, are ignored.
        {"\"Early\"=\"x\"\n[HKEY_CURRENT_USER\\K]\n\"User\"=\"u\"\n[HKEY_LOCAL_MACHINE\\K]\n\"Mine\"=\"m\"\n"
         "[-HKEY_LOCAL_MACHINE\\K]\n\"Deleted\"=\"d\"\n",
         L"K",
         {L"Mine=m"}},
        // A repeated name replaces in place; "-" deletes.
        {"[HKEY_LOCAL_MACHINE\\K]\n\"Path\"=\"1\"\n\"B\"=\"b\"\n\"C\"=\"c\"\n\"path\"=\"2\"\n\"B\"=-\n",
         L"K",
         {L"Path=2", L"C=c"}},
    };
    for (const auto& c : cases) EXPECT_EQ(Parse(c.file, c.key), c.values) << c.file;
}

TEST(CVRegistryFileTest, KeysCompareWithoutCaseAndImplyTheirAncestors) {
    cvtest::TempDir dir;
    cvtest::WriteFile(dir / "r.reg", "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Vendor\\B]\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Vendor\\A]\n"
                                     "[hkey_local_machine\\software\\VENDOR\\b\\]\n\"x\"=\"1\"\n");
    CVRegistryFile file(dir / "r.reg");
    ASSERT_NE(file.FindKey(L"software\\vendor"), nullptr);
    ASSERT_NE(file.FindKey(L"SOFTWARE\\VENDOR\\B\\"), nullptr);
    EXPECT_EQ(file.FindKey(L"Software\\Vendor\\b")->values.size(), 1u);
    EXPECT_EQ(file.SubKeyNames(L"SOFTWARE\\Vendor"), (std::vector<std::wstring>{L"B", L"A"}));
    EXPECT_EQ(file.FindKey(L"SOFTWARE\\Other"), nullptr);
}

TEST(CVRegistryFileTest, ReadsUTF16WithBOMAndTypedValues) {
    const std::wstring text = L"[HKEY_LOCAL_MACHINE\\K]\r\n\"Name\"=\"Gr\u00FC\u00DF \U0001F600\"\r\n"
                              L"\"N\"=dword:0000002a\r\n\"E\"=hex(2):41,00,\\\r\n  42,00,00,00\r\n";
    const std::string utf8 = CString(text.c_str()).ToUTF8();
    std::string utf16 = "\xFF\xFE";
    for (wchar_t c : text) {
        if (c > 0xFFFF) {  // surrogate pair
            unsigned v = (unsigned)c - 0x10000, hi = 0xD800 + (v >> 10), lo = 0xDC00 + (v & 0x3FF);
            utf16 += {(char)(hi & 0xFF), (char)(hi >> 8), (char)(lo & 0xFF), (char)(lo >> 8)};
        } else {
            utf16 += {(char)(c & 0xFF), (char)(c >> 8)};
        }
    }
    cvtest::TempDir dir;
    for (const std::string& bytes : {utf8, "\xEF\xBB\xBF" + utf8, utf16}) {
        cvtest::WriteFile(dir / "r.reg", bytes);
        const CVRegistryFile file(dir / "r.reg");
        const CVRegistryFile::Key* key = file.FindKey(L"K");
        ASSERT_NE(key, nullptr);
        ASSERT_EQ(key->values.size(), 3u);
        EXPECT_EQ(Text(key->values[0]), std::wstring(L"Gr\u00FC\u00DF \U0001F600") + L'\0');
        EXPECT_EQ(key->values[1].type, (DWORD)REG_DWORD);
        EXPECT_EQ(key->values[1].data, (std::vector<BYTE>{42, 0, 0, 0}));
        EXPECT_EQ(key->values[2].type, (DWORD)REG_EXPAND_SZ);
        EXPECT_EQ(Text(key->values[2]), std::wstring(L"AB") + L'\0');
    }
}

}  // namespace
