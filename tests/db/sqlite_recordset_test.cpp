// Snapshot recordsets: counting, moving, fields by name and index.
#include "sqlite_fixture.h"

namespace TabulonLib12::testing {
namespace {

class SqliteRecordsetTest : public SqliteFileTest {
protected:
    void SetUp() override {
        path_ = WriteTestDatabase(
            "CREATE TABLE people (id INTEGER PRIMARY KEY, Name TEXT, city TEXT);"
            "INSERT INTO people VALUES (1, 'Anna', 'Pisa'), (2, 'Bruno', 'Lucca'), (3, 'Carla', 'Siena'),"
            " (4, 'Dario', 'Prato'), (5, 'Elena', 'Arezzo');"
            "CREATE TABLE empty_table (id INTEGER);"
            "CREATE TABLE big (id INTEGER PRIMARY KEY, v INTEGER);"
            "INSERT INTO big WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 5000)"
            " SELECT i, i * 3 FROM n;");
        db_ = Open(path_);
    }

    std::vector<std::string> ReadColumn(Recordset& rs, int index) {
        std::vector<std::string> values;
        while (!rs.IsEOF()) {
            std::string text;
            rs.AppendFieldText(index, text);
            values.push_back(text);
            rs.MoveNext();
        }
        return values;
    }

    std::string path_;
    std::shared_ptr<Database> db_;
};

TEST_F(SqliteRecordsetTest, EmptyResultCountsZeroAndIsAtEof) {
    auto rs = db_->OpenRecordset("SELECT * FROM empty_table");
    EXPECT_EQ(rs->RecordCount(), 0);
    EXPECT_TRUE(rs->IsEOF());
    EXPECT_EQ(rs->FieldCount(), 1);
}

TEST_F(SqliteRecordsetTest, RecordCountIsAtLeastOneBeforeMoveLastAndExactAfter) {
    auto rs = db_->OpenRecordset("SELECT * FROM big");
    EXPECT_GE(rs->RecordCount(), 1);
    EXPECT_LT(rs->RecordCount(), 5000);
    rs->MoveLast();
    EXPECT_EQ(rs->RecordCount(), 5000);
    rs->MoveFirst();
    EXPECT_EQ(rs->RecordCount(), 5000);
}

TEST_F(SqliteRecordsetTest, RecordCountGrowsWithTheRecordsVisited) {
    auto rs = db_->OpenRecordset("SELECT * FROM people ORDER BY id");
    EXPECT_EQ(rs->RecordCount(), 1);
    rs->MoveNext();
    rs->MoveNext();
    EXPECT_EQ(rs->RecordCount(), 3);
    rs->MoveFirst();
    EXPECT_EQ(rs->RecordCount(), 3);
}

TEST_F(SqliteRecordsetTest, ReachingTheEndByMovingMakesTheCountExact) {
    auto rs = db_->OpenRecordset("SELECT * FROM people");
    while (!rs->IsEOF()) rs->MoveNext();
    EXPECT_EQ(rs->RecordCount(), 5);
}

TEST_F(SqliteRecordsetTest, MoveLastStandsOnTheLastRecord) {
    auto rs = db_->OpenRecordset("SELECT id, Name FROM people ORDER BY id");
    rs->MoveLast();
    EXPECT_FALSE(rs->IsEOF());
    EXPECT_EQ(rs->FieldValue(1), Value("Elena"));
    rs->MoveNext();
    EXPECT_TRUE(rs->IsEOF());
}

TEST_F(SqliteRecordsetTest, MoveLastThenMoveFirstReadsEveryRecordInOrder) {
    auto rs = db_->OpenRecordset("SELECT Name FROM people ORDER BY Name DESC");
    rs->MoveLast();
    rs->MoveFirst();
    EXPECT_EQ(ReadColumn(*rs, 0), (std::vector<std::string>{"Elena", "Dario", "Carla", "Bruno", "Anna"}));
    EXPECT_EQ(rs->RecordCount(), 5);
}

TEST_F(SqliteRecordsetTest, MoveFirstAfterReadingStartsAgain) {
    auto rs = db_->OpenRecordset("SELECT id FROM people ORDER BY id");
    EXPECT_EQ(ReadColumn(*rs, 0), (std::vector<std::string>{"1", "2", "3", "4", "5"}));
    rs->MoveFirst();
    EXPECT_FALSE(rs->IsEOF());
    EXPECT_EQ(ReadColumn(*rs, 0), (std::vector<std::string>{"1", "2", "3", "4", "5"}));
}

TEST_F(SqliteRecordsetTest, MoveNextPastEofFailsWithNoCurrentRecord) {
    auto rs = db_->OpenRecordset("SELECT id FROM people WHERE id = 1");
    rs->MoveNext();
    ASSERT_TRUE(rs->IsEOF());
    try {
        rs->MoveNext();
        FAIL() << "moved past EOF";
    } catch (const Error& error) {
        EXPECT_EQ(error.kind(), ErrorKind::Database);
        EXPECT_EQ(error.number(), 3021);
        EXPECT_EQ(error.description(), "No current record.");
    }
}

TEST_F(SqliteRecordsetTest, ReadingAtEofFailsWithNoCurrentRecord) {
    auto rs = db_->OpenRecordset("SELECT id FROM empty_table");
    for (auto read : {+[](Recordset& r) { r.FieldValue(0); }, +[](Recordset& r) { r.FieldIsNull(0); },
                      +[](Recordset& r) {
                          std::string s;
                          r.AppendFieldText(0, s);
                      }}) {
        try {
            read(*rs);
            FAIL() << "read with no current record";
        } catch (const Error& error) {
            EXPECT_EQ(error.number(), 3021);
        }
    }
}

TEST_F(SqliteRecordsetTest, MovesOnAnEmptyResultFail) {
    auto rs = db_->OpenRecordset("SELECT id FROM empty_table");
    EXPECT_THROW(rs->MoveFirst(), Error);
    EXPECT_THROW(rs->MoveLast(), Error);
    EXPECT_THROW(rs->MoveNext(), Error);
    EXPECT_EQ(rs->RecordCount(), 0);
}

TEST_F(SqliteRecordsetTest, FieldsByIndexAndByNameIgnoringCase) {
    auto rs = db_->OpenRecordset("SELECT id, Name, city FROM people WHERE id = 2");
    ASSERT_EQ(rs->FieldCount(), 3);
    EXPECT_EQ(rs->FieldName(0), "id");
    EXPECT_EQ(rs->FieldName(1), "Name");
    EXPECT_EQ(rs->FieldIndex("name"), 1);
    EXPECT_EQ(rs->FieldIndex("NAME"), 1);
    EXPECT_EQ(rs->FieldIndex("City"), 2);
    EXPECT_EQ(rs->FieldValue(rs->FieldIndex("CITY")), Value("Lucca"));
    EXPECT_EQ(rs->FieldValue(0), Value(int64_t{2}));
}

TEST_F(SqliteRecordsetTest, AliasesNameTheFields) {
    auto rs = db_->OpenRecordset("SELECT Name AS Cliente, id * 10 AS [Codice X] FROM people WHERE id = 3");
    EXPECT_EQ(rs->FieldIndex("cliente"), 0);
    EXPECT_EQ(rs->FieldIndex("codice x"), 1);
    EXPECT_EQ(rs->FieldValue(1), Value(int64_t{30}));
}

TEST_F(SqliteRecordsetTest, UnknownFieldNameGivesMinusOne) {
    auto rs = db_->OpenRecordset("SELECT id FROM people");
    EXPECT_EQ(rs->FieldIndex("nothing"), -1);
    EXPECT_EQ(rs->FieldIndex(""), -1);
    EXPECT_EQ(rs->FieldIndex("i"), -1);
}

TEST_F(SqliteRecordsetTest, BadFieldIndexFailsOutOfBounds) {
    auto rs = db_->OpenRecordset("SELECT id FROM people");
    for (int index : {-1, 1, 1000}) {
        EXPECT_THROW(rs->FieldValue(index), Error);
        EXPECT_THROW(rs->FieldName(index), Error);
        EXPECT_THROW(rs->FieldType(index), Error);
        EXPECT_THROW(rs->FieldIsNull(index), Error);
        std::string out;
        try {
            rs->AppendFieldText(index, out);
            FAIL();
        } catch (const Error& error) {
            EXPECT_EQ(error.kind(), ErrorKind::OutOfBounds);
        }
    }
}

TEST_F(SqliteRecordsetTest, AppendFieldTextAppendsToWhatIsThere) {
    auto rs = db_->OpenRecordset("SELECT id, Name FROM people WHERE id = 4");
    std::string out = "x=";
    rs->AppendFieldText(0, out);
    out += ';';
    rs->AppendFieldText(1, out);
    EXPECT_EQ(out, "x=4;Dario");
}

TEST_F(SqliteRecordsetTest, BadQueryFailsWithTheEngineMessage) {
    try {
        db_->OpenRecordset("SELECT nope FROM people");
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.kind(), ErrorKind::Database);
        EXPECT_EQ(error.number(), SQLITE_ERROR);
        EXPECT_EQ(error.description(), "no such column: nope");
    }
    EXPECT_THROW(db_->OpenRecordset("SELECT * FROM missing_table"), Error);
    EXPECT_THROW(db_->OpenRecordset(""), Error);
    EXPECT_THROW(db_->OpenRecordset("   -- only a comment"), Error);
}

TEST_F(SqliteRecordsetTest, FailuresWhileSteppingGiveTheEngineMessageAndMoveFirstStartsAgain) {
    // The first record fails to compute: the open reports it.
    try {
        db_->OpenRecordset("SELECT abs(-9223372036854775807 - 1)");
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.kind(), ErrorKind::Database);
        EXPECT_EQ(error.description(), "integer overflow");
    }
    // A later record fails: the move reports it, and the recordset can start again.
    auto rs = db_->OpenRecordset(
        "SELECT id, CASE WHEN id = 3 THEN abs(-9223372036854775807 - 1) ELSE id END FROM people ORDER BY id");
    rs->MoveNext();
    EXPECT_THROW(rs->MoveNext(), Error);
    rs->MoveFirst();
    EXPECT_EQ(rs->FieldValue(0), Value(int64_t{1}));
    rs->MoveNext();
    EXPECT_EQ(rs->FieldValue(0), Value(int64_t{2}));
}

TEST_F(SqliteRecordsetTest, TrailingSemicolonsBlanksAndCommentsAreAccepted) {
    for (const char* query : {"SELECT id FROM people ORDER BY id;", "SELECT id FROM people ORDER BY id ;; \n",
                              "SELECT id FROM people ORDER BY id -- the keys",
                              "SELECT id FROM people ORDER BY id; /* done */ ;"}) {
        auto rs = db_->OpenRecordset(query);
        rs->MoveLast();
        EXPECT_EQ(rs->RecordCount(), 5) << query;
        EXPECT_EQ(rs->FieldValue(0), Value(int64_t{5})) << query;
    }
}

TEST_F(SqliteRecordsetTest, OrderedAndLimitedQueriesCountExactly) {
    struct Case {
        const char* query;
        int32_t count;
        const char* last;
    };
    const Case cases[] = {
        {"SELECT id FROM big ORDER BY v DESC", 5000, "1"},
        {"SELECT id FROM big ORDER BY v DESC LIMIT 10", 10, "4991"},
        {"SELECT id FROM big ORDER BY v LIMIT 10 OFFSET 4995", 5, "5000"},
        {"SELECT id FROM big ORDER BY v LIMIT 3, 2", 2, "5"},
        {"SELECT id FROM (SELECT id, v FROM big ORDER BY v LIMIT 7) ORDER BY id DESC", 7, "1"},
        {"SELECT 'ORDER BY x LIMIT 1' AS t, id FROM people ORDER BY id DESC", 5, "ORDER BY x LIMIT 1"},
        {"SELECT id FROM people ORDER /* by what */ BY id DESC -- done", 5, "1"},
        {"SELECT id FROM people UNION ALL SELECT id FROM people ORDER BY 1", 10, "5"},
        {"SELECT count(*) OVER (ORDER BY id) AS n FROM people ORDER BY n", 5, "5"},
        {"SELECT city, count(*) FROM people GROUP BY city ORDER BY 2 DESC, 1", 5, "Siena"},
    };
    for (const Case& c : cases) {
        auto rs = db_->OpenRecordset(c.query);
        rs->MoveLast();
        EXPECT_EQ(rs->RecordCount(), c.count) << c.query;
        std::string last;
        rs->AppendFieldText(0, last);
        EXPECT_EQ(last, c.last) << c.query;
        rs->MoveFirst();
        int32_t read = 0;
        while (!rs->IsEOF()) {
            ++read;
            rs->MoveNext();
        }
        EXPECT_EQ(read, c.count) << c.query;
    }
}

TEST_F(SqliteRecordsetTest, QueriesThatCannotBeCountedAsSubqueriesStillCountExactly) {
    auto rs = db_->OpenRecordset("PRAGMA table_info(people)");
    rs->MoveLast();
    EXPECT_EQ(rs->RecordCount(), 3);
    EXPECT_EQ(rs->FieldValue(rs->FieldIndex("name")), Value("city"));
}

TEST_F(SqliteRecordsetTest, RecursiveQueriesAreReadable) {
    auto rs = db_->OpenRecordset(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 12) SELECT i FROM n");
    rs->MoveLast();
    EXPECT_EQ(rs->RecordCount(), 12);
    EXPECT_EQ(rs->FieldValue(0), Value(int64_t{12}));
}

TEST_F(SqliteRecordsetTest, ViewsOpenAsRecordsets) {
    WriteTestDatabase(
        "CREATE TABLE t (a INTEGER, b TEXT); INSERT INTO t VALUES (1, 'x'), (2, 'y');"
        "CREATE VIEW v AS SELECT a, upper(b) AS B FROM t;",
        "views.db");
    auto db = Open(dir_.File("views.db"));
    auto rs = db->OpenRecordset("SELECT * FROM v ORDER BY a DESC");
    EXPECT_EQ(rs->FieldValue(rs->FieldIndex("b")), Value("Y"));
}

TEST_F(SqliteRecordsetTest, ClosedRecordsetFailsAndReportsEof) {
    auto rs = db_->OpenRecordset("SELECT id FROM people");
    rs->Close();
    EXPECT_TRUE(rs->IsEOF());
    EXPECT_THROW(rs->FieldValue(0), Error);
    EXPECT_THROW(rs->MoveNext(), Error);
    EXPECT_THROW(rs->RecordCount(), Error);
    rs->Close();
}

TEST_F(SqliteRecordsetTest, SeveralRecordsetsOnOneDatabaseMoveIndependently) {
    auto a = db_->OpenRecordset("SELECT id FROM people ORDER BY id");
    auto b = db_->OpenRecordset("SELECT id FROM people ORDER BY id DESC");
    a->MoveNext();
    b->MoveLast();
    EXPECT_EQ(a->FieldValue(0), Value(int64_t{2}));
    EXPECT_EQ(b->FieldValue(0), Value(int64_t{1}));
    a->Close();
    b->MoveFirst();
    EXPECT_EQ(b->FieldValue(0), Value(int64_t{5}));
}

// The records are those of the moment the recordset opened, also across MoveLast and MoveFirst,
// while another connection writes the file.
TEST_F(SqliteRecordsetTest, SnapshotKeepsTheRecordsAsOpened) {
    std::string path = WriteTestDatabase(
        "PRAGMA journal_mode=WAL; CREATE TABLE t (a INTEGER); INSERT INTO t VALUES (1), (2), (3);", "wal.db");
    auto db = Open(path);
    auto rs = db->OpenRecordset("SELECT a FROM t ORDER BY a");

    sqlite3* writer = nullptr;
    ASSERT_EQ(sqlite3_open_v2(path.c_str(), &writer, SQLITE_OPEN_READWRITE, nullptr), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(writer, "INSERT INTO t VALUES (0), (4)", nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(writer);

    rs->MoveLast();
    EXPECT_EQ(rs->RecordCount(), 3);
    rs->MoveFirst();
    EXPECT_EQ(ReadColumn(*rs, 0), (std::vector<std::string>{"1", "2", "3"}));
    rs->Close();

    auto fresh = db->OpenRecordset("SELECT a FROM t ORDER BY a");
    fresh->MoveLast();
    EXPECT_EQ(fresh->RecordCount(), 5);
}

// Reading to the end and starting again still gives the records of the moment of opening.
TEST_F(SqliteRecordsetTest, SnapshotHoldsAcrossRewindAfterEof) {
    std::string path = WriteTestDatabase(
        "PRAGMA journal_mode=WAL; CREATE TABLE t (a INTEGER); INSERT INTO t VALUES (1), (2), (3);", "wal.db");
    auto db = Open(path);
    auto rs = db->OpenRecordset("SELECT a FROM t ORDER BY a");
    EXPECT_EQ(ReadColumn(*rs, 0), (std::vector<std::string>{"1", "2", "3"}));

    sqlite3* writer = nullptr;
    ASSERT_EQ(sqlite3_open_v2(path.c_str(), &writer, SQLITE_OPEN_READWRITE, nullptr), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(writer, "DELETE FROM t WHERE a = 2; INSERT INTO t VALUES (9)", nullptr, nullptr, nullptr),
              SQLITE_OK);
    sqlite3_close(writer);

    rs->MoveFirst();
    EXPECT_EQ(ReadColumn(*rs, 0), (std::vector<std::string>{"1", "2", "3"}));
    EXPECT_EQ(rs->RecordCount(), 3);
}

// In a rollback-journal file the open snapshot keeps writers from committing under it.
TEST_F(SqliteRecordsetTest, OpenSnapshotHoldsOffWritersOfARollbackJournalFile) {
    auto rs = db_->OpenRecordset("SELECT id FROM people ORDER BY id");
    while (!rs->IsEOF()) rs->MoveNext();
    sqlite3* writer = nullptr;
    ASSERT_EQ(sqlite3_open_v2(path_.c_str(), &writer, SQLITE_OPEN_READWRITE, nullptr), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(writer, "DELETE FROM people", nullptr, nullptr, nullptr), SQLITE_BUSY);
    rs->Close();
    EXPECT_EQ(sqlite3_exec(writer, "DELETE FROM people WHERE id = 5", nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(writer);
    auto fresh = db_->OpenRecordset("SELECT id FROM people");
    fresh->MoveLast();
    EXPECT_EQ(fresh->RecordCount(), 4);
}

TEST_F(SqliteRecordsetTest, CountFollowsTheRecordsReadWhenTheQueryDependsOnChance) {
    // random() makes the count of a second run differ; the recordset stays consistent with what
    // it reads.
    auto rs = db_->OpenRecordset("SELECT id FROM big WHERE random() % 2 = 0");
    rs->MoveLast();
    int32_t counted = rs->RecordCount();
    rs->MoveFirst();
    int32_t read = 0;
    while (!rs->IsEOF()) {
        ++read;
        rs->MoveNext();
    }
    EXPECT_EQ(read, rs->RecordCount());
    EXPECT_LE(read, counted);
}

}  // namespace
}  // namespace TabulonLib12::testing
