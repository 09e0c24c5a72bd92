// No query text can change the database: every statement that writes fails with the engine's
// message, and the file stays byte for byte as it was, with no journal left beside it.
#include "sqlite_fixture.h"

namespace TabulonLib12::testing {
namespace {

class SqliteReadOnly : public SqliteFileTest, public ::testing::WithParamInterface<const char*> {
protected:
    void SetUp() override {
        path_ = WriteTestDatabase(
            "CREATE TABLE t (id INTEGER PRIMARY KEY, name TEXT);"
            "INSERT INTO t VALUES (1, 'uno'), (2, 'due'), (3, 'tre');"
            "CREATE TABLE other (x INTEGER);"
            "CREATE INDEX t_name ON t (name);"
            "CREATE VIEW v AS SELECT name FROM t;");
        before_ = ReadBytes(path_);
        ASSERT_FALSE(before_.empty());
    }

    void ExpectFileUnchanged() {
        EXPECT_EQ(ReadBytes(path_), before_);
        EXPECT_FALSE(Exists(path_ + "-journal"));
        EXPECT_FALSE(Exists(path_ + "-wal"));
        EXPECT_FALSE(Exists(path_ + "-shm"));
        EXPECT_EQ(dir_.Entries(), std::vector<std::string>{"test.db"});
    }

    std::string path_;
    std::vector<char> before_;
};

TEST_P(SqliteReadOnly, StatementIsRefusedAndFileStaysUnchanged) {
    std::string query = std::string(GetParam());
    // Relative names in ATTACH and VACUUM INTO would land in the working folder: use the test's.
    auto replace = [&query](const std::string& from, const std::string& to) {
        auto at = query.find(from);
        if (at != std::string::npos) query.replace(at, from.size(), to);
    };
    replace("@DIR@", dir_.path().string());
    {
        OpenOptions options;
        options.connect = "; pwd=secret";
        auto db = Open(path_, options);
        try {
            auto rs = db->OpenRecordset(query);
            // Should a statement get this far, running it to the end must still fail.
            while (!rs->IsEOF()) rs->MoveNext();
            ADD_FAILURE() << "accepted: " << query;
        } catch (const Error& error) {
            EXPECT_EQ(error.kind(), ErrorKind::Database) << query;
            EXPECT_NE(error.number(), 0) << query;
            EXPECT_FALSE(error.description().empty()) << query;
            EXPECT_EQ(error.description().find("secret"), std::string::npos) << query;
        }
        // The connection is still good for reading afterwards.
        auto rs = db->OpenRecordset("SELECT count(*) FROM t");
        EXPECT_EQ(rs->FieldValue(0), Value(int64_t{3})) << query;
    }
    ExpectFileUnchanged();
}

INSTANTIATE_TEST_SUITE_P(
    WritingStatements, SqliteReadOnly,
    ::testing::Values("DELETE FROM t", "DELETE FROM t WHERE id = 1", "UPDATE t SET name = 'x'",
                      "INSERT INTO t VALUES (4, 'quattro')", "INSERT INTO t SELECT id + 10, name FROM t",
                      "REPLACE INTO t VALUES (1, 'one')", "WITH n AS (SELECT 9) INSERT INTO other SELECT * FROM n",
                      "DROP TABLE t", "DROP TABLE IF EXISTS other", "DROP VIEW v", "CREATE TABLE x (a)",
                      "CREATE TABLE y AS SELECT * FROM t", "CREATE INDEX i ON t (name)", "CREATE VIEW w AS SELECT 1",
                      "CREATE TRIGGER tr AFTER INSERT ON t BEGIN DELETE FROM t; END",
                      "ALTER TABLE t ADD COLUMN z TEXT", "ALTER TABLE t RENAME TO t2", "VACUUM",
                      "VACUUM INTO '@DIR@/copy.db'", "ATTACH '@DIR@/test.db' AS again",
                      "ATTACH '@DIR@/new.db' AS fresh", "DETACH main", "PRAGMA user_version=5",
                      "PRAGMA user_version = 5", "PRAGMA journal_mode=WAL", "PRAGMA journal_mode = DELETE",
                      "PRAGMA query_only=OFF", "PRAGMA main.page_size=8192", "PRAGMA wal_checkpoint",
                      "PRAGMA optimize", "PRAGMA incremental_vacuum", "PRAGMA writable_schema=ON",
                      "PRAGMA foreign_keys=ON", "SELECT 1; DELETE FROM t", "SELECT * FROM t;DELETE FROM t;",
                      "SELECT 1; SELECT 2", "BEGIN", "BEGIN IMMEDIATE", "BEGIN EXCLUSIVE", "COMMIT", "ROLLBACK",
                      "SAVEPOINT s", "RELEASE s", "CREATE TEMP TABLE tt (a)", "CREATE TEMPORARY VIEW tv AS SELECT 1",
                      "ANALYZE", "REINDEX", "REINDEX t_name", "REINDEX t", "SELECT load_extension('nothing')",
                      "SELECT fts3_tokenizer('simple')", "CREATE VIRTUAL TABLE vt USING fts5(a)"));

TEST_F(SqliteFileTest, VacuumIntoCreatesNoFile) {
    std::string path = WriteTestDatabase("CREATE TABLE t (a); INSERT INTO t VALUES (1);");
    auto db = Open(path);
    std::string target = dir_.File("copy.db");
    EXPECT_THROW(db->OpenRecordset("VACUUM INTO '" + target + "'"), Error);
    EXPECT_FALSE(Exists(target));
}

TEST_F(SqliteFileTest, ReadingPragmasAndCatalogQueriesAreAllowed) {
    std::string path = WriteTestDatabase("CREATE TABLE t (a INTEGER, b TEXT); PRAGMA user_version = 7;");
    auto db = Open(path);
    EXPECT_EQ(db->OpenRecordset("PRAGMA user_version")->FieldValue(0), Value(int64_t{7}));
    EXPECT_EQ(db->OpenRecordset("PRAGMA query_only")->FieldValue(0), Value(int64_t{1}));
    auto info = db->OpenRecordset("PRAGMA table_info(t)");
    EXPECT_EQ(info->FieldValue(info->FieldIndex("name")), Value("a"));
    auto catalog = db->OpenRecordset("SELECT name FROM sqlite_master WHERE type = 'table'");
    EXPECT_EQ(catalog->FieldValue(0), Value("t"));
}

TEST_F(SqliteFileTest, WriteRefusalGivesTheEngineMessage) {
    std::string path = WriteTestDatabase("CREATE TABLE t (a);");
    auto db = Open(path);
    try {
        db->OpenRecordset("DELETE FROM t");
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.kind(), ErrorKind::Database);
        EXPECT_EQ(error.number(), SQLITE_AUTH);
        EXPECT_EQ(error.description(), "not authorized");
    }
}

}  // namespace
}  // namespace TabulonLib12::testing
