#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <thread>

#include "platform/CString.h"
#include "platform/UrlMon.h"
#include "platform/WinBase.h"
#include "support/CVTestFiles.h"

namespace {

const char kBody[] = "\x89PNG pretend image bytes";

// A one-thread HTTP server on 127.0.0.1 answering "/image.png" with kBody and
// anything else with 404. It serves at most `requests` connections and gives
// up after two seconds without traffic, so it always ends by itself.
class LoopbackServer {
public:
    explicit LoopbackServer(int requests) {
        m_listen = socket(AF_INET, SOCK_STREAM, 0);
        const timeval timeout{2, 0};  // bounds accept and read alike
        setsockopt(m_listen, SOL_SOCKET, SO_RCVTIMEO, &timeout, sizeof timeout);
        sockaddr_in addr{};
        addr.sin_family = AF_INET;
        addr.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t len = sizeof addr;
        if (bind(m_listen, (sockaddr*)&addr, len) != 0 || listen(m_listen, 4) != 0 ||
            getsockname(m_listen, (sockaddr*)&addr, &len) != 0)
            return;
        m_port = ntohs(addr.sin_port);
        m_thread = std::thread([this, requests, timeout] {
            for (int i = 0; i < requests; ++i) {
                const int c = accept(m_listen, nullptr, nullptr);
                if (c < 0) return;
                setsockopt(c, SOL_SOCKET, SO_RCVTIMEO, &timeout, sizeof timeout);
                std::string request;
                char buf[512];
                for (ssize_t n; request.find("\r\n\r\n") == std::string::npos && (n = read(c, buf, sizeof buf)) > 0;)
                    request.append(buf, n);
                const bool hit = request.rfind("GET /image.png ", 0) == 0;
                const std::string body = hit ? kBody : "missing";
                const std::string reply = std::string(hit ? "HTTP/1.1 200 OK" : "HTTP/1.1 404 Not Found") +
                                          "\r\nContent-Length: " + std::to_string(body.size()) +
                                          "\r\nConnection: close\r\n\r\n" + body;
                (void)!write(c, reply.data(), reply.size());
                close(c);
            }
        });
    }
    ~LoopbackServer() {
        if (m_thread.joinable()) m_thread.join();
        close(m_listen);
    }
    std::wstring Url(const char* path) const {
        return CString(("http://127.0.0.1:" + std::to_string(m_port) + path).c_str()).str();
    }

private:
    int m_listen = -1;
    int m_port = 0;
    std::thread m_thread;
};

class UrlMonTest : public ::testing::Test {
protected:
    HRESULT Download(const std::wstring& url, DWORD length = 1024) {
        m_path[0] = L'?';
        m_path[1] = 0;
        return URLDownloadToCacheFileW(nullptr, url.c_str(), m_path, length, 0, nullptr);
    }
    std::string Path() const { return CString(m_path).ToUTF8(); }
    std::wstring FileUrl(const std::string& name) { return CString(("file://" + name).c_str()).str(); }
    // Files left in the cache folder, hidden ones included.
    size_t CacheEntries() const {
        std::error_code ec;
        auto it = std::filesystem::directory_iterator(m_cache / "cvscene", ec);
        return ec ? 0 : (size_t)std::distance(it, std::filesystem::directory_iterator());
    }

    cvtest::TempDir m_cache;
    cvtest::ScopedEnv m_xdg{"XDG_CACHE_HOME", m_cache.Path().c_str()};
    cvtest::ScopedEnv m_noProxy{"no_proxy", "127.0.0.1,localhost"};
    wchar_t m_path[1024];
};

TEST_F(UrlMonTest, FileUrlIsCopiedIntoTheCacheUnderOneNamePerUrl) {
    cvtest::WriteFile(m_cache / "src/picture.png", kBody);
    ASSERT_EQ(Download(FileUrl(m_cache / "src/picture.png")), S_OK);
    const std::string first = Path();
    EXPECT_EQ(first.rfind(m_cache / "cvscene/", 0), 0u) << first;
    EXPECT_EQ(first.substr(first.size() - 12), "-picture.png");
    EXPECT_EQ(cvtest::ReadFile(first), kBody);
    cvtest::WriteFile(m_cache / "src/picture.png", "changed");
    ASSERT_EQ(Download(FileUrl(m_cache / "src/picture.png")), S_OK);
    EXPECT_EQ(Path(), first);
    EXPECT_EQ(cvtest::ReadFile(first), "changed");
    EXPECT_EQ(CacheEntries(), 1u);
}

TEST_F(UrlMonTest, LoopbackHttpServesOrFails) {
    LoopbackServer server(2);
    ASSERT_EQ(Download(server.Url("/image.png")), S_OK);
    EXPECT_EQ(cvtest::ReadFile(Path()), kBody);
    EXPECT_EQ(Download(server.Url("/absent.png")), E_FAIL);
    EXPECT_EQ(Path(), "");
    EXPECT_EQ(CacheEntries(), 1u);  // the failed transfer left nothing
}

TEST_F(UrlMonTest, UnreachableMissingOrUnsupportedUrlsFail) {
    for (const std::wstring& url : {FileUrl(m_cache / "missing.png"), std::wstring(L"http://127.0.0.1:9/x.png"),
                                    std::wstring(L"ftp://127.0.0.1/x.png"), std::wstring(L"images\\x.png"),
                                    std::wstring(L"")}) {
        EXPECT_EQ(Download(url), E_FAIL) << CString(url.c_str()).ToUTF8();
        EXPECT_EQ(Path(), "");
    }
    EXPECT_EQ(CacheEntries(), 0u);
}

TEST_F(UrlMonTest, BufferLimitIsTheLargerOfLengthAndMaxPath) {
    cvtest::WriteFile(m_cache / "src/p.png", kBody);
    EXPECT_EQ(Download(FileUrl(m_cache / "src/p.png"), 2), S_OK);  // short path: MAX_PATH applies
    std::string deep = m_cache / (std::string(100, 'd') + "/" + std::string(100, 'e') + "/" + std::string(100, 'f'));
    std::filesystem::create_directories(deep);
    cvtest::ScopedEnv xdg("XDG_CACHE_HOME", deep.c_str());
    EXPECT_EQ(Download(FileUrl(m_cache / "src/p.png"), 2), E_FAIL);
    EXPECT_EQ(Download(FileUrl(m_cache / "src/p.png"), 1024), S_OK);
    EXPECT_GT(Path().size(), (size_t)MAX_PATH);
}

}  // namespace
