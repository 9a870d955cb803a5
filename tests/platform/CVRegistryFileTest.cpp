#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/CVRegistryFile.h"
#include "platform/WinReg.h"
#include "support/CVTestFiles.h"

namespace {

std::wstring Text(const CVRegistryFile::Value& v) {
    return std::wstring(reinterpret_cast<const wchar_t*>(v.data.data()), v.data.size() / sizeof(wchar_t));
}

// "name=text" per value, strings shown without their terminating zero.
std::vector<std::wstring> Describe(const CVRegistryFile::Key* key) {
    std::vector<std::wstring> out;
    for (const auto& v : key->values) {
        std::wstring text = Text(v);
        if (v.type == REG_SZ && !text.empty()) text.pop_back();
        out.push_back(v.name + L"=" + text);
    }
    return out;
}

struct ParseCase {
    const char* name;
    const char* file;
    const wchar_t* key;
    std::vector<std::wstring> values;
};
void PrintTo(const ParseCase& c, std::ostream* os) { *os << c.name; }

const ParseCase kParseCases[] = {
    {"StringsDefaultAndEscapes",
     "Windows Registry Editor Version 5.00\r\n\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\A]\r\n"
     "@=\"root\"\r\n\"Path\"=\"C:\\\\Data\\\\\"\r\n\"Quote\" = \"say \\\"hi\\\"\"\r\n",
     L"SOFTWARE\\A",
     {L"=root", L"Path=C:\\Data\\", L"Quote=say \"hi\""}},
    {"MalformedLinesAreSkipped",
     "[HKEY_LOCAL_MACHINE\\K]\n\"Good\"=\"1\"\n\"Open\"=\"no end\nBare=x\n\"T\"=bogus:1\n"
     "\"Esc\"=\"a\\qb\"\n\"Tail\"=\"x\" junk\n\"Last\"=\"2\"\n[HKEY_LOCAL_MACHINE\\Broken\n\"Stray\"=\"s\"\n",
     L"K",
     {L"Good=1", L"Last=2"}},
    {"ValuesOutsideLocalMachineAreIgnored",
     "\"Early\"=\"x\"\n[HKEY_CURRENT_USER\\K]\n\"User\"=\"u\"\n[HKEY_LOCAL_MACHINE\\K]\n\"Mine\"=\"m\"\n"
     "[-HKEY_LOCAL_MACHINE\\K]\n\"Deleted\"=\"d\"\n",
     L"K",
     {L"Mine=m"}},
    {"RepeatedNameReplacesInPlaceAndDashDeletes",
     "[HKEY_LOCAL_MACHINE\\K]\n\"Path\"=\"1\"\n\"B\"=\"b\"\n\"C\"=\"c\"\n\"path\"=\"2\"\n\"B\"=-\n",
     L"K",
     {L"Path=2", L"C=c"}},
};

class CVRegistryFileParseTest : public ::testing::TestWithParam<ParseCase> {};

TEST_P(CVRegistryFileParseTest, KeepsWellFormedValuesInFileOrder) {
    cvtest::TempDir dir;
    cvtest::WriteFile(dir / "r.reg", GetParam().file);
    CVRegistryFile file(dir / "r.reg");
    const CVRegistryFile::Key* key = file.FindKey(GetParam().key);
    ASSERT_NE(key, nullptr);
    EXPECT_EQ(Describe(key), GetParam().values);
}

INSTANTIATE_TEST_SUITE_P(Cases, CVRegistryFileParseTest, ::testing::ValuesIn(kParseCases),
                         [](const auto& info) { return std::string(info.param.name); });

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
    std::string utf8 = "[HKEY_LOCAL_MACHINE\\K]\r\n\"Name\"=\"Gr\xC3\xBC\xC3\x9F \xF0\x9F\x98\x80\"\r\n"
                       "\"N\"=dword:0000002a\r\n\"E\"=hex(2):41,00,\\\r\n  42,00,00,00\r\n";
    std::wstring text = L"[HKEY_LOCAL_MACHINE\\K]\r\n\"Name\"=\"Gr\u00FC\u00DF \U0001F600\"\r\n"
                        L"\"N\"=dword:0000002a\r\n\"E\"=hex(2):41,00,\\\r\n  42,00,00,00\r\n";
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
        CVRegistryFile file(dir / "r.reg");
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
