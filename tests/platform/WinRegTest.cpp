#include <gtest/gtest.h>

#include <string>

#include "platform/WinReg.h"
#include "support/CVTestFiles.h"

namespace {

const char kFile[] =
    "Windows Registry Editor Version 5.00\n"
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Vendor]\n@=\"top\"\n"
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Vendor\\Product]\n\"Path\"=\"/opt/product\"\n\"N\"=dword:00000007\n"
    "\"LongestName\"=\"x\"\n"
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Vendor\\Other]\n";

class WinRegTest : public ::testing::Test {
protected:
    void SetUp() override { cvtest::WriteFile(m_file, kFile); }
    void TearDown() override {
        if (m_key) {
            EXPECT_EQ(RegCloseKey(m_key), ERROR_SUCCESS);
        }
    }

    cvtest::TempDir m_dir;
    std::string m_file = m_dir / "registry.reg";
    cvtest::ScopedEnv m_env{"CVSCENE_REGISTRY", m_file.c_str()};
    HKEY m_key = nullptr;
};

TEST_F(WinRegTest, OpenFailsForMissingKeysAbsentFilesAndWriteAccess) {
    HKEY key = reinterpret_cast<HKEY>(1);
    EXPECT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Nobody", 0, KEY_READ, &key), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(key, nullptr);
    EXPECT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Vendor", 0, KEY_WRITE, &key), ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"SOFTWARE\\Vendor", 0, KEY_READ, &key), ERROR_FILE_NOT_FOUND);
    cvtest::ScopedEnv absent("CVSCENE_REGISTRY", (m_dir / "missing.reg").c_str());
    EXPECT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Vendor", 0, KEY_READ, &key), ERROR_FILE_NOT_FOUND);
}

TEST_F(WinRegTest, EnumeratesInFileOrderAndReportsShortBuffers) {
    ASSERT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"software\\VENDOR\\product", 0, KEY_READ, &m_key), ERROR_SUCCESS);
    DWORD values = 0, maxName = 0, maxData = 0;
    ASSERT_EQ(RegQueryInfoKeyW(m_key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &values, &maxName,
                               &maxData, nullptr, nullptr),
              ERROR_SUCCESS);
    EXPECT_EQ(values, 3u);
    EXPECT_EQ(maxName, 11u);                            // "LongestName"
    EXPECT_EQ(maxData, (DWORD)(13 * sizeof(wchar_t)));  // "/opt/product" and its zero
    wchar_t name[32];
    wchar_t data[32] = L"untouched";
    DWORD nameLength = 32, dataLength = sizeof data, type = 0;
    ASSERT_EQ(RegEnumValueW(m_key, 0, name, &nameLength, nullptr, &type, (LPBYTE)data, &dataLength), ERROR_SUCCESS);
    EXPECT_EQ(std::wstring(name), L"Path");
    EXPECT_EQ(nameLength, 4u);
    EXPECT_EQ(type, (DWORD)REG_SZ);
    EXPECT_EQ(std::wstring(data), L"/opt/product");
    EXPECT_EQ(dataLength, (DWORD)(13 * sizeof(wchar_t)));

    nameLength = 32;
    DWORD number = 0, numberLength = sizeof number;
    ASSERT_EQ(RegEnumValueW(m_key, 1, name, &nameLength, nullptr, &type, (LPBYTE)&number, &numberLength),
              ERROR_SUCCESS);
    EXPECT_EQ(type, (DWORD)REG_DWORD);
    EXPECT_EQ(number, 7u);

    nameLength = 4;  // "Path" needs 5 with its zero
    EXPECT_EQ(RegEnumValueW(m_key, 0, name, &nameLength, nullptr, nullptr, nullptr, nullptr), ERROR_MORE_DATA);
    nameLength = 32;
    wcscpy(data, L"untouched");
    dataLength = 8;
    EXPECT_EQ(RegEnumValueW(m_key, 0, name, &nameLength, nullptr, nullptr, (LPBYTE)data, &dataLength), ERROR_MORE_DATA);
    EXPECT_EQ(dataLength, (DWORD)(13 * sizeof(wchar_t)));
    EXPECT_EQ(std::wstring(data), L"untouched");
    nameLength = 32;
    EXPECT_EQ(RegEnumValueW(m_key, 3, name, &nameLength, nullptr, nullptr, nullptr, nullptr), ERROR_NO_MORE_ITEMS);
}

TEST_F(WinRegTest, SubkeysOpenRelativeToAHandleAndEnumerate) {
    ASSERT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Vendor", 0, KEY_READ, &m_key), ERROR_SUCCESS);
    wchar_t name[32];
    DWORD length = 32;
    ASSERT_EQ(RegEnumKeyExW(m_key, 1, name, &length, nullptr, nullptr, nullptr, nullptr), ERROR_SUCCESS);
    EXPECT_EQ(std::wstring(name), L"Other");
    HKEY child = nullptr;
    ASSERT_EQ(RegOpenKeyExW(m_key, L"PRODUCT", 0, KEY_READ, &child), ERROR_SUCCESS);
    DWORD values = 0;
    RegQueryInfoKeyW(child, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &values, nullptr, nullptr,
                     nullptr, nullptr);
    EXPECT_EQ(values, 3u);
    EXPECT_EQ(RegCloseKey(child), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(child), ERROR_INVALID_HANDLE);
    EXPECT_EQ(RegEnumValueW(child, 0, name, &length, nullptr, nullptr, nullptr, nullptr), ERROR_INVALID_HANDLE);
}

TEST_F(WinRegTest, AnOpenKeyKeepsItsReadingWhileTheFileChanges) {
    ASSERT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Vendor\\Product", 0, KEY_READ, &m_key), ERROR_SUCCESS);
    cvtest::WriteFile(m_file, "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Vendor\\Product]\n\"Only\"=\"1\"\n");
    DWORD before = 0, after = 0;
    RegQueryInfoKeyW(m_key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &before, nullptr, nullptr,
                     nullptr, nullptr);
    HKEY fresh = nullptr;
    ASSERT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Vendor\\Product", 0, KEY_READ, &fresh), ERROR_SUCCESS);
    RegQueryInfoKeyW(fresh, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &after, nullptr, nullptr, nullptr,
                     nullptr);
    RegCloseKey(fresh);
    EXPECT_EQ(before, 3u);
    EXPECT_EQ(after, 1u);
}

}  // namespace
