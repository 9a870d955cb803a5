#pragma once
// Scratch files and environment for tests that touch the file system.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "image/CSimpleDIB.h"

namespace cvtest {

// A fresh folder under /tmp, removed with everything in it.
class TempDir {
public:
    TempDir() {
        char pattern[] = "/tmp/cvscene-test-XXXXXX";
        const char* made = mkdtemp(pattern);
        m_path = made ? made : "";
    }
    ~TempDir() {
        std::error_code ec;
        if (!m_path.empty()) std::filesystem::remove_all(m_path, ec);
    }
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::string& Path() const { return m_path; }
    std::string operator/(const std::string& name) const { return m_path + "/" + name; }

private:
    std::string m_path;
};

// Writes bytes, making the parent folders first.
inline void WriteFile(const std::string& name, const std::string& bytes) {
    std::filesystem::create_directories(std::filesystem::path(name).parent_path());
    std::ofstream(name, std::ios::binary) << bytes;
}

inline std::string ReadFile(const std::string& name) {
    std::ifstream in(name, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

// Sets (or, with null, unsets) an environment variable for one scope.
class ScopedEnv {
public:
    ScopedEnv(const char* name, const char* value) : m_name(name) {
        const char* old = getenv(name);
        m_hadOld = old != nullptr;
        if (old) m_old = old;
        if (value) setenv(name, value, 1);
        else unsetenv(name);
    }
    ~ScopedEnv() {
        if (m_hadOld) setenv(m_name.c_str(), m_old.c_str(), 1);
        else unsetenv(m_name.c_str());
    }
    ScopedEnv(const ScopedEnv&) = delete;
    ScopedEnv& operator=(const ScopedEnv&) = delete;

private:
    std::string m_name, m_old;
    bool m_hadOld = false;
};

// A DIB's pixel bytes, rows padded as stored, for whole-frame comparisons.
inline std::vector<BYTE> DIBBytes(const CSimpleDIB& dib) {
    const size_t row = ((size_t)dib.GetWidth() * dib.GetBitCount() + 31) / 32 * 4;
    const BYTE* bits = static_cast<const BYTE*>(dib.GetBits());
    return std::vector<BYTE>(bits, bits + row * dib.GetHeight());
}

}  // namespace cvtest
