// No query text changes a database, on either engine: every statement that writes fails with
// the engine's message (a few that a read-only transaction admits run and change nothing), the
// database answers reads afterwards and still refuses writes, and it is unchanged: the SQLite
// file byte for byte with no journal beside it, the PostgreSQL schema by the checksums of its
// tables, its sequence, its definitions and grants, and the server's locks, large objects,
// roles and schemas, read over a separate read-write connection.
#include <map>

#include "pg_fixture.h"
#include "platform/sqlite/sqlite_engine.h"
#include "tests/db/sqlite_fixture.h"

namespace TabulonLib12::testing {
namespace {

enum Engine : unsigned { kSqlite = 1, kPostgres = 2, kBoth = 3 };

struct WritingStatement {
    unsigned engines;
    const char* text;
    bool mayRun = false;  // admitted by a read-only transaction, undone when the recordset closes
};

const WritingStatement kCorpus[] = {
    // Both engines.
    {kBoth, "DELETE FROM t"},
    {kBoth, "DELETE FROM t WHERE id = 1"},
    {kBoth, "UPDATE t SET name = 'x'"},
    {kBoth, "INSERT INTO t VALUES (4, 'quattro')"},
    {kBoth, "INSERT INTO t VALUES (5, 'cinque') RETURNING id"},
    {kBoth, "INSERT INTO t SELECT id + 10, name FROM t"},
    {kBoth, "INSERT INTO t VALUES (1, 'uno') ON CONFLICT (id) DO UPDATE SET name = 'doppio'"},
    {kBoth, "UPDATE t SET name = 'y' WHERE id = 2 RETURNING name"},
    {kBoth, "DELETE FROM t RETURNING *"},
    {kBoth, "WITH d AS (DELETE FROM t RETURNING id) SELECT * FROM d"},
    {kBoth, "WITH n AS (SELECT 9 AS x) INSERT INTO other SELECT x FROM n"},
    {kBoth, "DROP TABLE t"},
    {kBoth, "DROP TABLE IF EXISTS other"},
    {kBoth, "DROP VIEW v"},
    {kBoth, "DROP INDEX t_name"},
    {kBoth, "CREATE TABLE x (a INTEGER)"},
    {kBoth, "CREATE TABLE y AS SELECT * FROM t"},
    {kBoth, "CREATE INDEX i ON t (name)"},
    {kBoth, "CREATE VIEW w AS SELECT 1 AS one"},
    {kBoth, "CREATE TEMP TABLE tt (a INTEGER)"},
    {kBoth, "ALTER TABLE t ADD COLUMN z TEXT"},
    {kBoth, "ALTER TABLE t RENAME TO t2"},
    {kBoth, "SELECT 1; DELETE FROM t"},
    {kBoth, "SELECT * FROM t;DELETE FROM t;"},
    {kBoth, "COMMIT; DELETE FROM t"},
    {kBoth, "ROLLBACK; DELETE FROM t"},
    {kBoth, "BEGIN; DELETE FROM t; COMMIT"},
    {kBoth, "BEGIN"},
    {kBoth, "COMMIT"},
    {kBoth, "SAVEPOINT s"},
    {kBoth, "VACUUM"},
    {kBoth, "ANALYZE"},
    // SQLite.
    {kSqlite, "REPLACE INTO t VALUES (1, 'one')"},
    {kSqlite, "INSERT OR REPLACE INTO t VALUES (2, 'two')"},
    {kSqlite, "VACUUM INTO '@DIR@/copy.db'"},
    {kSqlite, "ATTACH '@DIR@/test.db' AS again"},
    {kSqlite, "ATTACH '@DIR@/new.db' AS fresh"},
    {kSqlite, "DETACH main"},
    {kSqlite, "PRAGMA user_version=5"},
    {kSqlite, "PRAGMA journal_mode=WAL"},
    {kSqlite, "PRAGMA query_only=OFF"},
    {kSqlite, "PRAGMA writable_schema=ON"},
    {kSqlite, "PRAGMA wal_checkpoint"},
    {kSqlite, "PRAGMA incremental_vacuum"},
    {kSqlite, "BEGIN IMMEDIATE"},
    {kSqlite, "RELEASE s"},
    {kSqlite, "REINDEX t_name"},
    {kSqlite, "ALTER TABLE t DROP COLUMN name"},
    {kSqlite, "CREATE TRIGGER tr AFTER INSERT ON t BEGIN DELETE FROM t; END"},
    {kSqlite, "CREATE VIRTUAL TABLE vt USING fts5(a)"},
    {kSqlite, "SELECT load_extension('nothing')"},
    // PostgreSQL.
    {kPostgres, "TRUNCATE t"},
    {kPostgres, "TRUNCATE other, t CASCADE"},
    {kPostgres, "SET TRANSACTION READ WRITE"},
    {kPostgres, "SET TRANSACTION READ WRITE; DELETE FROM t"},
    {kPostgres, "SET SESSION CHARACTERISTICS AS TRANSACTION READ WRITE"},
    {kPostgres, "SELECT set_config('transaction_read_only', 'off', true)"},
    {kPostgres, "SELECT nextval('s')"},
    {kPostgres, "SELECT setval('s', 100)"},
    {kPostgres, "SELECT setval('s', 1, false)"},
    {kPostgres, "SELECT wipe()"},
    {kPostgres, "SELECT sneaky()"},
    {kPostgres, "SELECT * FROM t FOR UPDATE"},
    {kPostgres, "SELECT * FROM t FOR SHARE"},
    {kPostgres, "LOCK TABLE t IN ACCESS EXCLUSIVE MODE"},
    {kPostgres, "COPY t FROM STDIN"},
    {kPostgres, "COPY t TO STDOUT"},
    {kPostgres, "COPY (SELECT 1) TO '/tmp/tabulon_copy_out'"},
    {kPostgres, "GRANT SELECT ON t TO PUBLIC"},
    {kPostgres, "REVOKE SELECT ON t FROM PUBLIC"},
    {kPostgres, "COMMENT ON TABLE t IS 'changed'"},
    {kPostgres, "DO $$ BEGIN DELETE FROM t; END $$"},
    {kPostgres, "CALL p()"},
    {kPostgres, "PREPARE d AS DELETE FROM t"},
    {kPostgres, "PREPARE d AS DELETE FROM t; EXECUTE d"},
    {kPostgres, "EXECUTE d"},
    {kPostgres, "DEALLOCATE ALL"},
    {kPostgres, "EXPLAIN ANALYZE DELETE FROM t"},
    {kPostgres, "MERGE INTO t USING other ON t.id = other.x WHEN NOT MATCHED THEN INSERT VALUES (other.x, 'm')"},
    {kPostgres, "REINDEX INDEX t_name"},
    {kPostgres, "VACUUM FULL t"},
    {kPostgres, "CLUSTER t USING t_pkey"},
    {kPostgres, "REFRESH MATERIALIZED VIEW mv"},
    {kPostgres, "ALTER SEQUENCE s RESTART WITH 50"},
    {kPostgres, "CREATE SEQUENCE s2"},
    {kPostgres, "CREATE SCHEMA evil"},
    {kPostgres, "CREATE ROLE evil"},
    {kPostgres, "CREATE FUNCTION f() RETURNS integer LANGUAGE sql AS 'SELECT 1'"},
    {kPostgres, "CREATE EXTENSION IF NOT EXISTS dblink"},
    {kPostgres, "ALTER DATABASE tabulon SET default_transaction_read_only = off"},
    {kPostgres, "ALTER ROLE tabulon SET default_transaction_read_only = off"},
    {kPostgres, "CHECKPOINT"},
    {kPostgres, "DISCARD ALL"},
    {kPostgres, "VALUES (1); DELETE FROM t"},
    {kPostgres, "TABLE t; TRUNCATE t"},
    {kPostgres, "SELECT 1 FROM t) AS q; DELETE FROM t; SELECT (1"},
    {kPostgres, "SELECT lo_import('/etc/hostname')"},
    {kPostgres, "SELECT pg_advisory_lock(42)", true},
    {kPostgres, "SELECT pg_try_advisory_lock(7)", true},
    {kPostgres, "SELECT pg_advisory_xact_lock(9)", true},
    {kPostgres, "SELECT pg_notify('c', 'x')", true},
    {kPostgres, "SELECT set_config('default_transaction_read_only', 'off', false)", true},
    {kPostgres, "SELECT txid_current()", true},
    {kPostgres, "SELECT lo_creat(-1)", true},
    {kPostgres, "SELECT lo_from_bytea(0, 'abc')", true},
};

struct CorpusCase {
    Engine engine;
    size_t index;
};

void PrintTo(const CorpusCase& c, std::ostream* os) {
    *os << (c.engine == kSqlite ? "SQLite: " : "PostgreSQL: ") << kCorpus[c.index].text;
}

std::vector<CorpusCase> Cases() {
    std::vector<CorpusCase> cases;
    for (Engine engine : {kSqlite, kPostgres}) {
        for (size_t i = 0; i < std::size(kCorpus); ++i) {
            if (kCorpus[i].engines & engine) cases.push_back({engine, i});
        }
    }
    return cases;
}

// Fails the test unless the statement is refused in the engine's words (or, where allowed, runs).
void TryToWrite(Database& db, const WritingStatement& statement, const std::string& text, const std::string& secret) {
    try {
        auto rs = db.OpenRecordset(text);
        // Should a statement get this far, running it to the end must still change nothing.
        while (!rs->IsEOF()) rs->MoveNext();
        rs->Close();
        EXPECT_TRUE(statement.mayRun) << "accepted: " << text;
    } catch (const Error& error) {
        EXPECT_EQ(error.kind(), ErrorKind::Database) << text;
        EXPECT_NE(error.number(), 0) << text;
        EXPECT_FALSE(error.description().empty()) << text;
        EXPECT_EQ(error.description().find(secret), std::string::npos) << text;
    }
}

class ReadOnlyCorpus : public ::testing::TestWithParam<CorpusCase> {
protected:
    void RunOnSqlite(const WritingStatement& statement);
    void RunOnPostgres(const WritingStatement& statement);
};

void ReadOnlyCorpus::RunOnSqlite(const WritingStatement& statement) {
    TempDir dir;
    const std::string path = dir.File("test.db");
    WriteDatabase(path,
                  "CREATE TABLE t (id INTEGER PRIMARY KEY, name TEXT);"
                  "INSERT INTO t VALUES (1, 'uno'), (2, 'due'), (3, 'tre');"
                  "CREATE TABLE other (x INTEGER); CREATE INDEX t_name ON t (name);"
                  "CREATE VIEW v AS SELECT name FROM t;");
    const std::vector<char> before = ReadBytes(path);
    std::string text = statement.text;
    const auto at = text.find("@DIR@");
    if (at != std::string::npos) text.replace(at, 5, dir.path().string());
    SqliteEngine engine;
    {
        auto db = engine.OpenDatabase(path, WithPassword("segreto-sqlite"));
        TryToWrite(*db, statement, text, "segreto-sqlite");
        auto rs = db->OpenRecordset("SELECT count(*) FROM t");
        EXPECT_EQ(rs->FieldValue(0), Value(int64_t{3})) << text;
        rs->Close();
        EXPECT_THROW(db->OpenRecordset("DELETE FROM t"), Error) << text;
    }
    EXPECT_EQ(ReadBytes(path), before) << text;
    EXPECT_EQ(dir.Entries(), std::vector<std::string>{"test.db"}) << text;  // no -journal, -wal or -shm
}

// What a statement could change, read over the admin connection.
std::map<std::string, std::string> ServerState(AdminConnection& admin, const std::string& schema) {
    const std::string ns = "'" + schema + "'::regnamespace";
    std::map<std::string, std::string> state;
    auto rowsOf = [&](const std::string& table, const std::string& order) {
        return admin.Scalar("SELECT md5(coalesce(string_agg(x::text, ',' ORDER BY " + order + "), '')) FROM " +
                            schema + "." + table + " x");
    };
    state["rows t"] = rowsOf("t", "x.id");
    state["rows other"] = rowsOf("other", "x.x");
    state["rows mv"] = rowsOf("mv", "x.id");
    state["sequence s"] = admin.Scalar("SELECT last_value || ':' || is_called FROM " + schema + ".s");
    state["relations"] = admin.Scalar(
        "SELECT string_agg(c.relname || ':' || c.relkind::text || ':' || coalesce(c.relacl::text, '') || ':' ||"
        " coalesce(obj_description(c.oid, 'pg_class'), '') || ':' || c.relfilenode, ',' ORDER BY c.relname)"
        " FROM pg_class c WHERE c.relnamespace = " + ns);
    state["columns"] = admin.Scalar(
        "SELECT string_agg(c.relname || '.' || a.attname || ':' || format_type(a.atttypid, a.atttypmod), ','"
        " ORDER BY c.relname, a.attnum) FROM pg_attribute a JOIN pg_class c ON c.oid = a.attrelid"
        " WHERE c.relnamespace = " + ns + " AND a.attnum > 0 AND NOT a.attisdropped");
    state["routines"] = admin.Scalar(
        "SELECT string_agg(proname || ':' || md5(prosrc) || ':' || coalesce(proconfig::text, ''), ','"
        " ORDER BY proname) FROM pg_proc WHERE pronamespace = " + ns);
    state["schemas"] = admin.Scalar(
        "SELECT string_agg(nspname, ',' ORDER BY nspname) FROM pg_namespace"
        " WHERE nspname NOT LIKE 'tabulon\\_test\\_%' AND nspname NOT LIKE 'pg\\_temp\\_%'"
        " AND nspname NOT LIKE 'pg\\_toast\\_temp\\_%'");
    state["roles"] = admin.Scalar("SELECT string_agg(rolname, ',' ORDER BY rolname) FROM pg_roles");
    state["role settings"] = admin.Scalar("SELECT count(*) FROM pg_db_role_setting");
    state["extensions"] = admin.Scalar("SELECT string_agg(extname, ',' ORDER BY extname) FROM pg_extension");
    state["large objects"] = admin.Scalar("SELECT count(*) FROM pg_largeobject_metadata");
    state["advisory locks"] = admin.Scalar("SELECT count(*) FROM pg_locks WHERE locktype = 'advisory'");
    state["prepared transactions"] = admin.Scalar("SELECT count(*) FROM pg_prepared_xacts");
    state["maintenance"] = admin.Scalar(
        "SELECT string_agg(relname || ':' || vacuum_count || ':' || analyze_count, ',' ORDER BY relname)"
        " FROM pg_stat_user_tables WHERE schemaname = '" + schema + "'");
    return state;
}

void ReadOnlyCorpus::RunOnPostgres(const WritingStatement& statement) {
    ASSERT_FALSE(ServerUri().empty()) << kRunThroughScript;
    AdminConnection admin;
    ASSERT_TRUE(admin.Ok()) << kRunThroughScript;
    TestSchema schema(admin);
    schema.Exec(
        "CREATE TABLE t (id integer PRIMARY KEY, name text);"
        "INSERT INTO t VALUES (1, 'uno'), (2, 'due'), (3, 'tre');"
        "CREATE TABLE other (x integer); CREATE INDEX t_name ON t (name);"
        "CREATE VIEW v AS SELECT name FROM t; CREATE MATERIALIZED VIEW mv AS SELECT id FROM t;"
        "CREATE SEQUENCE s; SELECT nextval('s');"
        "CREATE FUNCTION wipe() RETURNS integer LANGUAGE plpgsql AS $$ BEGIN DELETE FROM t; RETURN 1; END $$;"
        "CREATE FUNCTION sneaky() RETURNS integer LANGUAGE plpgsql SET transaction_read_only = off"
        " AS $$ BEGIN DELETE FROM t; RETURN 1; END $$;"
        "CREATE PROCEDURE p() LANGUAGE sql AS $$ DELETE FROM t $$");
    const auto before = ServerState(admin, schema.name());
    PostgresEngine engine;
    const std::string password = ServerPassword();
    {
        auto db = engine.OpenDatabase(schema.Uri(), WithPassword(password));
        TryToWrite(*db, statement, statement.text, password);
        // Still a good read-only session: it reads, and a function that writes still fails.
        auto rs = db->OpenRecordset("SELECT count(*), current_setting('default_transaction_read_only') FROM t");
        EXPECT_EQ(rs->FieldValue(0), Value(int64_t{3})) << statement.text;
        EXPECT_EQ(rs->FieldValue(1), Value("on")) << statement.text;
        rs->Close();
        EXPECT_THROW(db->OpenRecordset("SELECT wipe()"), Error) << statement.text;
        // Checked while the session is still open: nothing waits for its end.
        const auto after = ServerState(admin, schema.name());
        for (const auto& [what, value] : before) {
            EXPECT_EQ(after.at(what), value) << what << " after " << statement.text;
        }
    }
    EXPECT_EQ(ServerState(admin, schema.name()), before) << statement.text;
}

TEST_P(ReadOnlyCorpus, AWritingStatementFailsOrChangesNothing) {
    const CorpusCase& c = GetParam();
    const WritingStatement& statement = kCorpus[c.index];
    if (c.engine == kSqlite) {
        RunOnSqlite(statement);
    } else {
        RunOnPostgres(statement);
    }
}

INSTANTIATE_TEST_SUITE_P(BothEngines, ReadOnlyCorpus, ::testing::ValuesIn(Cases()),
                         [](const ::testing::TestParamInfo<CorpusCase>& info) {
                             std::string name = info.param.engine == kSqlite ? "Sqlite_" : "Postgres_";
                             std::string number = std::to_string(info.param.index);
                             return name + std::string(3 - std::min<size_t>(3, number.size()), '0') + number;
                         });

TEST(ReadOnlyCorpusSize, EachEngineMeetsAtLeastThirtyWritingStatements) {
    size_t sqlite = 0, postgres = 0;
    for (const CorpusCase& c : Cases()) (c.engine == kSqlite ? sqlite : postgres)++;
    EXPECT_GE(sqlite, 30u);
    EXPECT_GE(postgres, 30u);
}

}  // namespace
}  // namespace TabulonLib12::testing
