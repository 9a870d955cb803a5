#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "platform/CString.h"
#include "platform/WinBase.h"
#include "support/CVTestFiles.h"

namespace {

class SearchPathWTest : public ::testing::Test {
protected:
    void SetUp() override {
        for (const char* name :
             {"cwd/here.png", "a/one.png", "a/sub/two.png", "a/noext", "a/noext.png", "b/one.png", "b/only-b.png"})
            cvtest::WriteFile(m_dir / name, "x");
        std::filesystem::create_directories(m_dir / "a/folder.png");
        m_oldCwd = std::filesystem::current_path();
        std::filesystem::current_path(m_dir / "cwd");
    }
    void TearDown() override { std::filesystem::current_path(m_oldCwd); }

    // The path found, or "" when SearchPathW reports nothing.
    std::wstring Search(const std::string& folder, const std::wstring& name, const wchar_t* ext = nullptr) {
        wchar_t buffer[1024] = L"";
        CString wideFolder(folder.c_str());
        DWORD n = SearchPathW(folder.empty() ? nullptr : (LPCWSTR)wideFolder, name.c_str(), ext, 1024, buffer, nullptr);
        EXPECT_EQ(n, wcslen(buffer));
        return buffer;
    }
    std::wstring Path(const std::string& name) { return CString((m_dir / name).c_str()).str(); }

    cvtest::TempDir m_dir;
    std::filesystem::path m_oldCwd;
    cvtest::ScopedEnv m_env{"CVSCENE_IMAGE_PATH", nullptr};
};

TEST_F(SearchPathWTest, AFolderIsTheOnlyPlaceLookedAndAbsoluteNamesAreCheckedAsTheyAre) {
    std::string backslashed = m_dir.Path();  // backslashes read as slashes
    for (char& c : backslashed)
        if (c == '/') c = '\\';
    const struct {
        std::string folder;
        std::wstring name, found;
    } cases[] = {
        {m_dir / "a", L"one.png", Path("a/one.png")},
        {m_dir / "a", L"here.png", L""},
        {m_dir / "a", L"folder.png", L""},  // folders are not files
        {m_dir / "a/sub/..", L"sub\\two.png", Path("a/sub/two.png")},
        {backslashed + "\\a\\sub", L"two.png", Path("a/sub/two.png")},
        {m_dir / "a", Path("b/only-b.png"), Path("b/only-b.png")},
        {m_dir / "b", Path("a/missing.png"), L""},
    };
    for (const auto& c : cases) EXPECT_EQ(Search(c.folder, c.name), c.found) << c.folder;
}

TEST_F(SearchPathWTest, NoFolderMeansCurrentDirectoryThenImagePathInOrder) {
    std::string list = ":" + (m_dir / "b") + "::" + (m_dir / "a");
    cvtest::ScopedEnv env("CVSCENE_IMAGE_PATH", list.c_str());
    EXPECT_EQ(Search("", L"here.png"), Path("cwd/here.png"));
    EXPECT_EQ(Search("", L"one.png"), Path("b/one.png"));
    EXPECT_EQ(Search("", L"sub/two.png"), Path("a/sub/two.png"));
    EXPECT_EQ(Search("", L"none.png"), L"");
}

TEST_F(SearchPathWTest, ExtensionIsAddedOnlyWhenTheNameHasNone) {
    EXPECT_EQ(Search(m_dir / "a", L"noext", L".png"), Path("a/noext.png"));
    EXPECT_EQ(Search(m_dir / "a", L"one.png", L".bmp"), Path("a/one.png"));
    EXPECT_EQ(Search("", L""), L"");
    EXPECT_EQ(SearchPathW(nullptr, nullptr, nullptr, 0, nullptr, nullptr), 0u);
}

TEST_F(SearchPathWTest, ShortBufferGetsTheNeededLengthAndIsLeftAlone) {
    const std::wstring want = Path("a/one.png");
    CString folder((m_dir / "a").c_str());
    wchar_t buffer[1024] = L"keep";
    EXPECT_EQ(SearchPathW(folder, L"one.png", nullptr, (DWORD)want.size(), buffer, nullptr), want.size() + 1);
    EXPECT_EQ(std::wstring(buffer), L"keep");
    LPWSTR filePart = nullptr;
    EXPECT_EQ(SearchPathW(folder, L"one.png", nullptr, (DWORD)want.size() + 1, buffer, &filePart), want.size());
    EXPECT_EQ(std::wstring(buffer), want);
    ASSERT_NE(filePart, nullptr);
    EXPECT_EQ(std::wstring(filePart), L"one.png");
}

}  // namespace
