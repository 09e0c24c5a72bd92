#pragma once
// Real SQLite files for the engine tests: written here through the C API with a read-write
// connection that is closed again before the engine under test opens the file read-only.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/runtime/error.h"
#include "platform/sqlite/sqlite_engine.h"

namespace TabulonLib12::testing {

// A fresh folder, removed with everything in it at the end of the test.
class TempDir {
public:
    TempDir() {
        std::string pattern = (std::filesystem::temp_directory_path() / "tabulon_db_XXXXXX").string();
        std::vector<char> buffer(pattern.begin(), pattern.end());
        buffer.push_back('\0');
        if (mkdtemp(buffer.data()) == nullptr) throw std::runtime_error("mkdtemp failed");
        path_ = buffer.data();
    }
    ~TempDir() {
        std::error_code ignored;
        std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ignored);
        std::filesystem::remove_all(path_, ignored);
    }
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::string File(const std::string& name) const { return (path_ / name).string(); }

    // Every entry of the folder, by name.
    std::vector<std::string> Entries() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(path_)) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }

private:
    std::filesystem::path path_;
};

// Writes a database with the SQL script; fails the test when the script fails.
inline void WriteDatabase(const std::string& path, const std::string& script) {
    sqlite3* db = nullptr;
    int rc = sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    ASSERT_EQ(rc, SQLITE_OK) << (db != nullptr ? sqlite3_errmsg(db) : "open failed");
    char* message = nullptr;
    // The files are thrown away with the test: no need to wait for the disk.
    rc = sqlite3_exec(db, "PRAGMA synchronous=OFF", nullptr, nullptr, nullptr);
    if (rc == SQLITE_OK) rc = sqlite3_exec(db, script.c_str(), nullptr, nullptr, &message);
    std::string text = message != nullptr ? message : "";
    sqlite3_free(message);
    sqlite3_close(db);
    ASSERT_EQ(rc, SQLITE_OK) << text;
}

inline std::vector<char> ReadBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::vector<char>(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

inline bool Exists(const std::string& path) {
    return std::filesystem::exists(path);
}

// A folder with one database "test.db" written by `script`.
class SqliteFileTest : public ::testing::Test {
protected:
    std::string WriteTestDatabase(const std::string& script, const std::string& name = "test.db") {
        std::string path = dir_.File(name);
        WriteDatabase(path, script);
        return path;
    }

    std::shared_ptr<Database> Open(const std::string& path, OpenOptions options = {}) {
        return engine_.OpenDatabase(path, options);
    }

    TempDir dir_;
    SqliteEngine engine_;
};

}  // namespace TabulonLib12::testing
