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
        EXPECT_EQ(m_key ? RegCloseKey(m_key) : ERROR_SUCCESS, ERROR_SUCCESS);
    }
    LONG Open(HKEY parent, const wchar_t* path, HKEY* key, REGSAM access = KEY_READ) {
        return RegOpenKeyExW(parent, path, 0, access, key);
    }
    static DWORD ValueCount(HKEY key) {
        DWORD values = 0;
        RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &values, nullptr, nullptr, nullptr,
                         nullptr);
        return values;
    }

    cvtest::TempDir m_dir;
    std::string m_file = m_dir / "registry.reg";
    cvtest::ScopedEnv m_env{"CVSCENE_REGISTRY", m_file.c_str()};
    HKEY m_key = nullptr;
};

TEST_F(WinRegTest, OpenFailsForMissingKeysAbsentFilesAndWriteAccess) {
    HKEY key = reinterpret_cast<HKEY>(1);
    EXPECT_EQ(Open(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Nobody", &key), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(key, nullptr);
    EXPECT_EQ(Open(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Vendor", &key, KEY_WRITE), ERROR_ACCESS_DENIED);
    EXPECT_EQ(Open(HKEY_CURRENT_USER, L"SOFTWARE\\Vendor", &key), ERROR_FILE_NOT_FOUND);
    cvtest::ScopedEnv absent("CVSCENE_REGISTRY", (m_dir / "missing.reg").c_str());
    EXPECT_EQ(Open(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Vendor", &key), ERROR_FILE_NOT_FOUND);
}

TEST_F(WinRegTest, EnumeratesInFileOrderAndReportsShortBuffers) {
    ASSERT_EQ(Open(HKEY_LOCAL_MACHINE, L"software\\VENDOR\\product", &m_key), ERROR_SUCCESS);
    DWORD values = 0, maxName = 0, maxData = 0;
    ASSERT_EQ(RegQueryInfoKeyW(m_key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &values, &maxName,
                               &maxData, nullptr, nullptr),
              ERROR_SUCCESS);
    const DWORD pathBytes = 13 * sizeof(wchar_t);  // "/opt/product" and its zero
    EXPECT_EQ(values, 3u);
    EXPECT_EQ(maxName, 11u);  // "LongestName"
    EXPECT_EQ(maxData, pathBytes);
    wchar_t name[32], data[32] = L"untouched";
    DWORD nameLength = 32, dataLength = sizeof data, type = 0, number = 0, numberLength = sizeof number;
    ASSERT_EQ(RegEnumValueW(m_key, 0, name, &nameLength, nullptr, &type, (LPBYTE)data, &dataLength), ERROR_SUCCESS);
    EXPECT_EQ(std::wstring(name) + L"=" + data, L"Path=/opt/product");
    EXPECT_EQ(nameLength, 4u);
    EXPECT_EQ(type, (DWORD)REG_SZ);
    EXPECT_EQ(dataLength, pathBytes);
    nameLength = 32;
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
    EXPECT_EQ(dataLength, pathBytes);
    EXPECT_EQ(std::wstring(data), L"untouched");
    nameLength = 32;
    EXPECT_EQ(RegEnumValueW(m_key, 3, name, &nameLength, nullptr, nullptr, nullptr, nullptr), ERROR_NO_MORE_ITEMS);
}

TEST_F(WinRegTest, SubkeysOpenRelativeToAHandleAndEnumerate) {
    ASSERT_EQ(Open(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Vendor", &m_key), ERROR_SUCCESS);
    wchar_t name[32];
    DWORD length = 32;
    ASSERT_EQ(RegEnumKeyExW(m_key, 1, name, &length, nullptr, nullptr, nullptr, nullptr), ERROR_SUCCESS);
    EXPECT_EQ(std::wstring(name), L"Other");
    HKEY child = nullptr;
    ASSERT_EQ(Open(m_key, L"PRODUCT", &child), ERROR_SUCCESS);
    EXPECT_EQ(ValueCount(child), 3u);
    EXPECT_EQ(RegCloseKey(child), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(child), ERROR_INVALID_HANDLE);
    EXPECT_EQ(RegEnumValueW(child, 0, name, &length, nullptr, nullptr, nullptr, nullptr), ERROR_INVALID_HANDLE);
}

TEST_F(WinRegTest, AnOpenKeyKeepsItsReadingWhileTheFileChanges) {
    ASSERT_EQ(Open(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Vendor\\Product", &m_key), ERROR_SUCCESS);
    cvtest::WriteFile(m_file, "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Vendor\\Product]\n\"Only\"=\"1\"\n");
    HKEY fresh = nullptr;
    ASSERT_EQ(Open(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Vendor\\Product", &fresh), ERROR_SUCCESS);
    EXPECT_EQ(ValueCount(m_key), 3u);
    EXPECT_EQ(ValueCount(fresh), 1u);
    RegCloseKey(fresh);
}

}  // namespace
