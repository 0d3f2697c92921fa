#pragma once

// Small helpers shared by the tests: a temporary folder and whole-file I/O.
#include "core/explain/fieldlayout.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>
#ifdef _WIN32
#include <process.h>
#endif

namespace testutil {

namespace fs = std::filesystem;

class TempDir {
public:
    TempDir() {
#ifdef _WIN32
        // A folder of its own: a name no other test of any process has taken.
        static std::atomic<unsigned> counter{0};
        for (unsigned attempt = 0; path_.empty(); ++attempt) {
            const fs::path candidate =
                fs::temp_directory_path() /
                ("parlex-test-" + std::to_string(::_getpid()) + "-" + std::to_string(counter++));
            std::error_code ec;
            if (fs::create_directory(candidate, ec))
                path_ = candidate;
            else if (attempt > 1000)
                throw std::runtime_error("no temporary folder");
        }
#else
        std::string pattern = (fs::temp_directory_path() / "parlex-test-XXXXXX").string();
        if (!::mkdtemp(pattern.data()))
            throw std::runtime_error("mkdtemp failed");
        path_ = pattern;
#endif
    }
    ~TempDir() {
        std::error_code ec;
        fs::permissions(path_, fs::perms::owner_all, fs::perm_options::add, ec);
        fs::remove_all(path_, ec);
    }
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;
    const fs::path& path() const {
        return path_;
    }
    fs::path operator/(const std::string& name) const {
        return path_ / name;
    }

private:
    fs::path path_;
};

// Whether UTF-8 text holds a letter of the Cyrillic block (U+0400-U+04FF: lead
// bytes D0-D3): a Russian word where only English belongs.
inline bool hasCyrillic(std::string_view text) {
    return std::ranges::any_of(text, [](char c) {
        const auto b = static_cast<unsigned char>(c);
        return b >= 0xD0 && b <= 0xD3;
    });
}

inline void writeBytes(const fs::path& path, const std::vector<std::uint8_t>& bytes) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(bytes.data()),
              static_cast<std::streamsize>(bytes.size()));
}

inline void writeText(const fs::path& path, const std::string& text) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << text;
}

inline std::vector<std::uint8_t> readBytes(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

inline std::string readText(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// A byte pattern that never starts with the "ja" mark: byte i is (i * 7 + seed) % 251.
inline std::vector<std::uint8_t> patternBytes(std::size_t size, unsigned seed = 3) {
    std::vector<std::uint8_t> bytes(size);
    for (std::size_t i = 0; i < size; ++i)
        bytes[i] = static_cast<std::uint8_t>((i * 7 + seed) % 251);
    return bytes;
}

inline std::vector<std::uint8_t> jaBytes(unsigned seed = 5) {
    auto bytes = patternBytes(1600, seed);
    bytes[0] = 0x39, bytes[1] = 0x00, bytes[2] = 0x35, bytes[3] = 0x00;
    return bytes;
}

// A "ub" script whose records at the given positions (1-50) hold the neutral record.
inline std::vector<std::uint8_t> script(std::initializer_list<int> filled) {
    std::vector<std::uint8_t> bytes(1600, 0);
    for (int position : filled)
        std::copy(parlex::kNeutralRecord.begin(), parlex::kNeutralRecord.end(),
                  bytes.begin() + (position - 1) * 32);
    return bytes;
}

} // namespace testutil
