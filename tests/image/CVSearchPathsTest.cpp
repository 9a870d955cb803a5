#include <gtest/gtest.h>

#include <cwchar>
#include <filesystem>
#include <string>
#include <vector>

#include "library/CVLibrary.h"
#include "image/CVSearchPaths.h"
#include "support/CVTestFiles.h"

namespace {

const char kSharedKey[] = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Kestrix\\Common Data\\Shared Files";
const char kComponentKey[] = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Kestrix\\Common Data\\Shared Files\\Vantor V9]\n";

// The shared-files path is read once per process and then kept, so every test
// here gives the registry this same value for it.
const std::string& SharedDir() {
    static cvtest::TempDir dir;
    return dir.Path();
}

std::wstring Wide(const std::string& s) { return CString(s.c_str()).str(); }

struct DownloadCall {
    IUnknown* caller;
    std::wstring url;
    DWORD length;
    DWORD reserved;
    void* callback;
};
std::vector<DownloadCall> g_calls;
int g_succeedingCall = -1;

// Records the call; succeeds only on call number g_succeedingCall, and leaves
// junk in the buffer when it fails.
HRESULT RecordingDownload(IUnknown* caller, LPCWSTR url, LPWSTR fileName, DWORD length, DWORD reserved,
                          void* callback) {
    g_calls.push_back({caller, url, length, reserved, callback});
    bool ok = (int)g_calls.size() - 1 == g_succeedingCall;
    wcscpy(fileName, ok ? (L"/cache/" + std::wstring(url)).c_str() : L"junk");
    return ok ? S_OK : E_FAIL;
}

struct FakeHost : IUnknown {
    HRESULT QueryInterface(REFIID, void** object) override {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    ULONG AddRef() override { return 2; }
    ULONG Release() override { return 1; }
};

class CVSearchPathsTest : public ::testing::Test {
protected:
    void SetUp() override {
        m_oldCwd = std::filesystem::current_path();
        std::filesystem::create_directories(m_dir / "cwd");
        std::filesystem::current_path(m_dir / "cwd");
        CVSetURLDownloadToCacheFileProc(RecordingDownload);
        g_calls.clear();
        g_succeedingCall = -1;
    }
    void TearDown() override {
        CVLibrary::ResetSettings();
        std::filesystem::current_path(m_oldCwd);
        std::error_code ec;
        std::filesystem::remove_all(SharedDir() + "/images", ec);
    }

    // The shared-files key, then componentBody under the component key
    // (no component key when null).
    void WriteRegistry(const char* componentBody, const std::string& shared = SharedDir()) {
        std::string text = "Windows Registry Editor Version 5.00\n\n" + std::string(kSharedKey) + "]\n@=\"" + shared +
                           "\"\n";
        if (componentBody) text += kComponentKey + std::string(componentBody);
        cvtest::WriteFile(m_registry, text);
    }
    std::wstring Resolve(IUnknown* caller, const std::wstring& name) {
        wchar_t path[1024];
        wcscpy(path, L"stale");
        CVGetURLTextureSearchPath(caller, name.c_str(), path);
        return path;
    }

    cvtest::TempDir m_dir;
    std::string m_registry = m_dir / "registry.reg";
    cvtest::ScopedEnv m_env{"CVSCENE_REGISTRY", m_registry.c_str()};
    cvtest::ScopedEnv m_imagePath{"CVSCENE_IMAGE_PATH", nullptr};
    cvtest::ScopedEnv m_cache{"XDG_CACHE_HOME", (m_dir / "cache").c_str()};
    std::filesystem::path m_oldCwd;
    FakeHost m_host;
};

TEST_F(CVSearchPathsTest, ComponentPathAndImageFolderFollowTheEnumerationQuirks) {
    const struct {
        const char* body;  // null: no component key
        const wchar_t* path;
    } cases[] = {
        {"\"Path\"=\"/opt/v9\"\n\"Later\"=\"/later\"\n", L"/opt/v9"},
        {nullptr, L""},
        {"", L""},                                     // a key without values
        {"\"Folder\"=\"/other\"\n", L"/other"},          // the only value, whatever its name
        {"\"path\"=\"/lower\"\n\"Zeta\"=\"/zeta\"\n", L"/zeta"},  // "path" is no match...
        {"\"Zeta\"=\"/zeta\"\n\"path\"=\"/lower\"\n", L"/lower"},  // ...but wins as the last value
        {"@=\"/default\"\n", L"/default"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.body ? c.body : "(no key)");
        WriteRegistry(c.body);
        EXPECT_EQ(CVGetSharedComponentPath(L"Vantor V9").str(), c.path);
        EXPECT_EQ(CVGetDefaultImageSearchPath().str(), std::wstring(c.path) + L"\\Images");
    }
    cvtest::ScopedEnv absent("CVSCENE_REGISTRY", (m_dir / "absent.reg").c_str());
    EXPECT_EQ(CVGetDefaultImageSearchPath().str(), L"\\Images");
}

TEST_F(CVSearchPathsTest, SharedFilesPathIsReadOnceAndKept) {
    WriteRegistry("\"Path\"=\"/first\"\n");
    EXPECT_EQ(CVGetKestrixSharedFilesPath().str(), Wide(SharedDir()));
    WriteRegistry("\"Path\"=\"/second\"\n", "/elsewhere");
    EXPECT_EQ(CVGetSharedComponentPath(L"Vantor V9").str(), L"/second");  // the file is read again...
    EXPECT_EQ(CVGetKestrixSharedFilesPath().str(), Wide(SharedDir()));    // ...the cached path is not
}

TEST_F(CVSearchPathsTest, FoldersAreSearchedInOrderBeforeAnyDownload) {
    const std::string component = m_dir / "v9";
    WriteRegistry(("\"Path\"=\"" + component + "\"\n").c_str());
    cvtest::ScopedEnv imagePath("CVSCENE_IMAGE_PATH", (m_dir / "extra").c_str());
    // The default folder, the shared images, then the plain search.
    const std::string places[] = {component + "/Images/", SharedDir() + "/images/", m_dir / "extra/"};
    for (int first = 0; first < 3; ++first) {
        const std::string file = "f" + std::to_string(first) + ".png";
        for (int i = first; i < 3; ++i) cvtest::WriteFile(places[i] + file, "x");
        EXPECT_EQ(Resolve(&m_host, Wide(file)), Wide(places[first] + file));
    }
    EXPECT_TRUE(g_calls.empty());
}

TEST_F(CVSearchPathsTest, NullCallerNeverDownloads) {
    WriteRegistry(nullptr);
    EXPECT_EQ(Resolve(nullptr, L"http://127.0.0.1:9/a.png"), L"");
    EXPECT_TRUE(g_calls.empty());
}

TEST_F(CVSearchPathsTest, DownloadTriesTheNameThenImagesPrefix) {
    WriteRegistry(nullptr);
    const std::wstring name = L"http://127.0.0.1:9/a.png";
    EXPECT_EQ(Resolve(&m_host, name), L"");  // both fail: the junk they left is cleared
    ASSERT_EQ(g_calls.size(), 2u);
    for (const DownloadCall& call : g_calls) {
        EXPECT_EQ(call.caller, &m_host);
        EXPECT_EQ(call.length, 2u);
        EXPECT_EQ(call.reserved, 0u);
        EXPECT_EQ(call.callback, nullptr);
    }
    EXPECT_EQ(g_calls[0].url, name);
    EXPECT_EQ(g_calls[1].url, L"images\\" + name);

    for (int succeeding : {0, 1}) {
        g_calls.clear();
        g_succeedingCall = succeeding;
        EXPECT_EQ(Resolve(&m_host, L"b.png"), succeeding == 0 ? L"/cache/b.png" : L"/cache/images\\b.png");
        EXPECT_EQ(g_calls.size(), (size_t)succeeding + 1);
    }
    CVSetURLDownloadToCacheFileProc(nullptr);  // as if the download entry could not be found
    EXPECT_EQ(Resolve(&m_host, L"b.png"), L"");
}

TEST_F(CVSearchPathsTest, BuiltInDownloaderCachesFileUrls) {
    WriteRegistry(nullptr);
    CVLibrary::ResetSettings();  // the built-in downloader
    cvtest::WriteFile(m_dir / "remote/pic.png", "pixels");
    std::wstring cached = Resolve(&m_host, Wide("file://" + (m_dir / "remote/pic.png")));
    EXPECT_EQ(cached.rfind(Wide(m_dir / "cache/cvscene/"), 0), 0u);
    EXPECT_EQ(cvtest::ReadFile(CString(cached.c_str()).ToUTF8()), "pixels");
    EXPECT_EQ(Resolve(&m_host, Wide("file://" + (m_dir / "remote/missing.png"))), L"");
    EXPECT_EQ(Resolve(&m_host, L""), L"");
}

TEST(CVJPEGEntryPointsTest, DoNothingAndReturnZero) {
    unsigned char data[4] = {1, 2, 3, 4};
    wchar_t name[] = L"/tmp/never-written.jpg";
    EXPECT_EQ(CVReadJPEGImageFileHeader(name, 2, 2, data), 0);
    EXPECT_EQ(CVReadJPEGImageFileData(name, 2, 2, data), 0);
    EXPECT_EQ(CVWriteJPEGImageFile(name, 2, 2, data), 0);
    EXPECT_EQ(data[0] + data[1] + data[2] + data[3], 10);
    EXPECT_FALSE(std::filesystem::exists("/tmp/never-written.jpg"));
}

}  // namespace
