// Opening PostgreSQL databases: by URI and by key=value parameters, with the password of the
// connect text, which no message ever shows; a read-only session; table and view names; one
// engine for servers and files.
#include <algorithm>

#include "pg_fixture.h"
#include "platform/db/composite_engine.h"
#include "platform/sqlite/sqlite_engine.h"
#include "tests/db/sqlite_fixture.h"

namespace TabulonLib12::testing {
namespace {

using PgEngineTest = PgTest;

std::string FirstText(Database& db, const std::string& query) {
    auto rs = db.OpenRecordset(query);
    std::string text;
    rs->AppendFieldText(0, text);
    return text;
}

TEST_F(PgEngineTest, ConnectsByUriWithThePasswordOfTheConnectText) {
    Exec("CREATE TABLE t (id integer); INSERT INTO t VALUES (1), (2)");
    auto db = Open();
    ASSERT_TRUE(db->IsOpen());
    EXPECT_EQ(db->Name(), schema_->Uri());
    EXPECT_EQ(FirstText(*db, "SELECT count(*) FROM t"), "2");
}

TEST_F(PgEngineTest, ConnectsByKeyValueParameters) {
    Exec("CREATE TABLE t (id integer); INSERT INTO t VALUES (7)");
    auto db = Open(schema_->KeyValue());
    EXPECT_EQ(FirstText(*db, "SELECT id FROM t"), "7");
}

TEST_F(PgEngineTest, TheUriSchemeIsReadInAnyCase) {
    std::string uri = schema_->Uri();
    ASSERT_EQ(uri.rfind("postgresql://", 0), 0u);
    uri.replace(0, 13, "PostgreSQL://");
    auto db = Open(uri);
    EXPECT_EQ(FirstText(*db, "SELECT 1"), "1");
}

TEST_F(PgEngineTest, WithoutAPasswordTheServerRefusesTheConnection) {
    // Nothing else may supply one: neither the environment nor a password file.
    ASSERT_EQ(std::getenv("PGPASSWORD"), nullptr);
    try {
        engine_.OpenDatabase(schema_->Uri(), OpenOptions{});
        FAIL() << "connected without a password";
    } catch (const Error& error) {
        EXPECT_EQ(error.kind(), ErrorKind::Database);
        EXPECT_EQ(error.number(), SqlStateNumber("08001"));
        EXPECT_NE(error.description().find("password"), std::string::npos) << error.description();
    }
}

TEST_F(PgEngineTest, AWrongPasswordFailsInTheEnginesWordsWithoutThePassword) {
    const std::string wrong = "Wr0ng-Secret-Word";
    try {
        engine_.OpenDatabase(schema_->Uri(), WithPassword(wrong));
        FAIL() << "connected with a wrong password";
    } catch (const Error& error) {
        EXPECT_EQ(error.kind(), ErrorKind::Database);
        EXPECT_NE(error.description().find("password authentication failed"), std::string::npos)
            << error.description();
        EXPECT_EQ(error.description().find(wrong), std::string::npos);
        EXPECT_EQ(error.description().find(ServerPassword()), std::string::npos);
    }
}

TEST_F(PgEngineTest, APasswordWrittenInTheUriIsNeverShownEither) {
    const std::string wrong = "in-the-uri-9";
    std::string uri = ServerUri();
    const size_t at = uri.find('@');
    ASSERT_NE(at, std::string::npos);
    uri.insert(at, ":" + wrong);
    try {
        engine_.OpenDatabase(uri, OpenOptions{});
        FAIL() << "connected with a wrong password";
    } catch (const Error& error) {
        EXPECT_NE(error.description().find("password authentication failed"), std::string::npos)
            << error.description();
        EXPECT_EQ(error.description().find(wrong), std::string::npos);
    }
    // The connect text's password overrides the one in the name.
    auto db = engine_.OpenDatabase(uri, WithPassword(ServerPassword()));
    EXPECT_EQ(FirstText(*db, "SELECT 1"), "1");
}

TEST_F(PgEngineTest, APasswordWithSemicolonsQuotesAndBlanksIsUsedWhole) {
    const std::string role = schema_->name() + "_r";
    const std::string password = "a;b 'c' %40 \\d;pwd=e";
    std::string quoted;
    for (char c : password) quoted += c == '\'' ? std::string("''") : std::string(1, c);
    Admin().Exec("CREATE ROLE " + role + " LOGIN PASSWORD '" + quoted + "'");
    Exec("CREATE TABLE t (id integer); INSERT INTO t VALUES (3); GRANT USAGE ON SCHEMA " + schema_->name() + " TO " +
         role + "; GRANT SELECT ON t TO " + role);
    std::string uri = schema_->Uri();
    uri.replace(uri.find("tabulon@"), 8, role + "@");
    {
        auto db = engine_.OpenDatabase(uri, WithPassword(password));
        EXPECT_EQ(FirstText(*db, "SELECT current_user"), role);
        EXPECT_EQ(FirstText(*db, "SELECT id FROM t"), "3");
        // A message that would carry the password shows asterisks in its place.
        try {
            db->OpenRecordset("SELECT 1 FROM \"" + password + "\"");
            FAIL();
        } catch (const Error& error) {
            EXPECT_EQ(error.description(), "relation \"********\" does not exist");
        }
    }
    Exec("REVOKE ALL ON t FROM " + role + "; REVOKE ALL ON SCHEMA " + schema_->name() + " FROM " + role);
    Admin().Exec("DROP ROLE " + role);
}

TEST_F(PgEngineTest, AnEchoOfThePasswordInAServerMessageIsHidden) {
    auto db = Open();
    try {
        db->OpenRecordset("SELECT 1 FROM \"" + ServerPassword() + "\"");
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), SqlStateNumber("42P01"));
        EXPECT_EQ(error.description(), "relation \"********\" does not exist");
    }
}

TEST_F(PgEngineTest, AServerThatDoesNotAnswerFailsInLibpqsWords) {
    // Port 1: nothing listens there.
    std::string uri = "postgresql://tabulon@127.0.0.1:1/tabulon?connect_timeout=3";
    try {
        engine_.OpenDatabase(uri, WithPassword("unused-secret"));
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), SqlStateNumber("08001"));
        EXPECT_NE(error.description().find("127.0.0.1"), std::string::npos) << error.description();
        EXPECT_EQ(error.description().find("unused-secret"), std::string::npos);
    }
}

TEST_F(PgEngineTest, AMalformedUriFailsWithLibpqsMessage) {
    try {
        engine_.OpenDatabase("postgresql://tabulon@127.0.0.1:5432/db?nonsense_key=1", WithPassword("x-secret"));
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), SqlStateNumber("08001"));
        EXPECT_NE(error.description().find("nonsense_key"), std::string::npos) << error.description();
    }
}

TEST_F(PgEngineTest, ANameThatIsNoConnectionIsRefused) {
    EXPECT_THROW(engine_.OpenDatabase("/tmp/some.db", OpenOptions{}), Error);
    EXPECT_THROW(engine_.OpenDatabase("", OpenOptions{}), Error);
    EXPECT_THROW(engine_.OpenDatabase("tabulon", OpenOptions{}), Error);
}

TEST_F(PgEngineTest, OpeningForWritingIsRefused) {
    OpenOptions options = WithPassword(ServerPassword());
    options.readOnly = false;
    try {
        engine_.OpenDatabase(schema_->Uri(), options);
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), SqlStateNumber("25006"));
    }
}

TEST_F(PgEngineTest, TheSessionAndEveryRecordsetAreReadOnly) {
    auto db = Open();
    EXPECT_EQ(FirstText(*db, "SELECT current_setting('default_transaction_read_only')"), "on");
    EXPECT_EQ(FirstText(*db, "SELECT current_setting('transaction_read_only')"), "on");
    EXPECT_EQ(FirstText(*db, "SELECT current_setting('transaction_isolation')"), "repeatable read");
}

TEST_F(PgEngineTest, TheNamesOwnOptionsAreKeptBesideTheSessionOnes) {
    auto db = Open(UriWith(schema_->Uri(), "application_name", "lista clienti"));
    EXPECT_EQ(FirstText(*db, "SELECT current_setting('search_path')"), schema_->name());
    EXPECT_EQ(FirstText(*db, "SELECT current_setting('application_name')"), "lista clienti");
    EXPECT_EQ(FirstText(*db, "SELECT current_setting('DateStyle')"), "ISO, YMD");
}

TEST_F(PgEngineTest, TableNamesListBaseTablesAndQueryNamesListViews) {
    Exec("CREATE TABLE clienti (id integer); CREATE TABLE \"Ordini Aperti\" (id integer);"
         "CREATE TABLE parti (id integer) PARTITION BY RANGE (id);"
         "CREATE TABLE parti_1 PARTITION OF parti FOR VALUES FROM (0) TO (10);"
         "CREATE VIEW vista AS SELECT id FROM clienti; CREATE MATERIALIZED VIEW riepilogo AS SELECT 1 AS uno;"
         "CREATE SEQUENCE contatore");
    const std::string other = schema_->name() + "_altro";
    Admin().Exec("CREATE SCHEMA " + other + "; CREATE TABLE " + other + ".remota (id integer)");
    auto db = Open();
    // Only the names of this test's schemas: the server may hold others.
    auto ours = [&](std::vector<std::string> names) {
        std::erase_if(names, [&](const std::string& n) {
            return n.find('.') != std::string::npos && n.rfind(other, 0) != 0;
        });
        return names;
    };
    EXPECT_EQ(ours(db->TableNames()),
              (std::vector<std::string>{"clienti", "\"Ordini Aperti\"", "parti", other + ".remota"}));
    EXPECT_EQ(ours(db->QueryNames()), (std::vector<std::string>{"riepilogo", "vista"}));
    // A listed name stands in a query as it is.
    EXPECT_EQ(FirstText(*db, "SELECT count(*) FROM \"Ordini Aperti\""), "0");
    Admin().Exec("DROP SCHEMA " + other + " CASCADE");
}

TEST_F(PgEngineTest, ARecordsetOutlivesTheCloseOfItsDatabase) {
    Exec("CREATE TABLE t (id integer); INSERT INTO t SELECT generate_series(1, 3)");
    auto db = Open();
    auto rs = db->OpenRecordset("SELECT id FROM t ORDER BY id");
    db->Close();
    EXPECT_FALSE(db->IsOpen());
    EXPECT_THROW(db->OpenRecordset("SELECT 1"), Error);
    EXPECT_THROW(db->TableNames(), Error);
    rs->MoveLast();
    EXPECT_EQ(rs->RecordCount(), 3);
    EXPECT_EQ(rs->FieldValue(0), Value(int64_t{3}));
    rs->Close();
}

TEST_F(PgEngineTest, TwoRecordsetsOpenAtOnceEachHaveTheirOwnSession) {
    Exec("CREATE TABLE t (id integer); INSERT INTO t SELECT generate_series(1, 5)");
    auto db = Open();
    auto first = db->OpenRecordset("SELECT pg_backend_pid() AS pid, id FROM t ORDER BY id");
    auto second = db->OpenRecordset("SELECT pg_backend_pid() AS pid, id FROM t ORDER BY id DESC");
    EXPECT_NE(first->FieldValue(0), second->FieldValue(0));
    EXPECT_EQ(first->FieldValue(1), Value(int64_t{1}));
    EXPECT_EQ(second->FieldValue(1), Value(int64_t{5}));
    const auto tables = db->TableNames();
    EXPECT_NE(std::find(tables.begin(), tables.end(), "t"), tables.end());
    first->Close();
    // The database's own session is free again and serves the next recordset.
    auto third = db->OpenRecordset("SELECT pg_backend_pid()");
    EXPECT_NE(third->FieldValue(0), second->FieldValue(0));
}

TEST_F(PgEngineTest, ALostSessionIsReopenedForTheNextRecordset) {
    auto db = Open();
    const std::string pid = FirstText(*db, "SELECT pg_backend_pid()");
    Admin().Exec("SELECT pg_terminate_backend(" + pid + ")");
    for (int i = 0; i < 50 && Admin().Scalar("SELECT count(*) FROM pg_stat_activity WHERE pid = " + pid) != "0"; ++i) {
        usleep(20000);
    }
    EXPECT_NE(FirstText(*db, "SELECT pg_backend_pid()"), pid);
    EXPECT_EQ(FirstText(*db, "SELECT current_setting('default_transaction_read_only')"), "on");
}

TEST(CompositeEngine, TellsServerNamesFromFilePaths) {
    EXPECT_TRUE(IsServerDatabaseName("postgresql://u@127.0.0.1:5433/db"));
    EXPECT_TRUE(IsServerDatabaseName("postgres://localhost/db"));
    EXPECT_TRUE(IsServerDatabaseName("POSTGRESQL://localhost/db"));
    EXPECT_TRUE(IsServerDatabaseName("host=127.0.0.1 port=5433 dbname=x"));
    EXPECT_TRUE(IsServerDatabaseName("dbname = x  user='a b' options='-c search_path=\\'s\\''"));
    EXPECT_FALSE(IsServerDatabaseName("/tmp/data.db"));
    EXPECT_FALSE(IsServerDatabaseName("clienti.db"));
    EXPECT_FALSE(IsServerDatabaseName("/tmp/a=b.db"));
    EXPECT_FALSE(IsServerDatabaseName("x=1.db"));
    EXPECT_FALSE(IsServerDatabaseName("host=127.0.0.1 and more"));
    EXPECT_FALSE(IsServerDatabaseName("dbname='unclosed"));
    EXPECT_FALSE(IsServerDatabaseName(""));
    EXPECT_FALSE(IsServerDatabaseName("file:test.db?mode=ro"));
}

TEST_F(PgEngineTest, TheCompositeEngineSendsServersToPostgresAndFilesToSqlite) {
    Exec("CREATE TABLE t (engine text); INSERT INTO t VALUES ('server')");
    TempDir dir;
    const std::string path = dir.File("file.db");
    WriteDatabase(path, "CREATE TABLE t (engine TEXT); INSERT INTO t VALUES ('file');");
    SqliteEngine sqlite;
    CompositeEngine engine(engine_, sqlite);
    auto server = engine.OpenDatabase(schema_->Uri(), WithPassword(ServerPassword()));
    auto file = engine.OpenDatabase(path, WithPassword(ServerPassword()));
    EXPECT_EQ(FirstText(*server, "SELECT engine FROM t"), "server");
    EXPECT_EQ(FirstText(*file, "SELECT engine FROM t"), "file");
    EXPECT_THROW(engine.OpenDatabase(dir.File("missing.db"), OpenOptions{}), Error);
}

}  // namespace
}  // namespace TabulonLib12::testing
