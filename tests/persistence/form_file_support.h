#pragma once
// What the form file tests share: a fresh folder per test, whole-file reads, folder listings,
// and the check that an operation fails with a given Error whose description says what it should.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <initializer_list>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include "persistence/form_file.h"
#include "platform/runtime/error.h"

namespace TabulonLib12::testing {

// A folder made for one test and removed with everything in it afterwards.
class TemporaryFolder {
public:
    TemporaryFolder() {
        const char* base = std::getenv("TMPDIR");
        std::string pattern = std::string(base && *base ? base : "/tmp") + "/tabulon_form.XXXXXX";
        if (!mkdtemp(pattern.data())) throw std::runtime_error("mkdtemp failed");
        path_ = pattern;
    }
    ~TemporaryFolder() {
        std::error_code ec;
        std::filesystem::permissions(path_, std::filesystem::perms::owner_all, std::filesystem::perm_options::add, ec);
        std::filesystem::remove_all(path_, ec);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::string operator/(const std::string& name) const { return (path_ / name).string(); }
    const std::filesystem::path& path() const { return path_; }

    // The names in the folder, sorted.
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(path_)) names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

private:
    std::filesystem::path path_;
};

inline std::string ReadBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

inline void WriteBytes(const std::string& path, const std::string& bytes) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

// Runs `operation`, which must fail with an Error of that kind and number whose description
// holds every one of `fragments`; answers the description.
inline std::string ExpectFailure(ErrorKind kind, int32_t number, std::initializer_list<std::string> fragments,
                                 const std::function<void()>& operation) {
    try {
        operation();
    } catch (const Error& e) {
        EXPECT_EQ(e.kind(), kind) << e.what();
        EXPECT_EQ(e.number(), number) << e.what();
        for (const std::string& fragment : fragments) {
            EXPECT_NE(e.description().find(fragment), std::string::npos)
                << "the description lacks [" << fragment << "]: " << e.what();
        }
        return e.description();
    }
    ADD_FAILURE() << "no error; expected error " << number;
    return {};
}

}  // namespace TabulonLib12::testing
