// Snapshot recordsets streamed from the server: counting, moving, EOF, fields by name and index,
// batches, the snapshot, repairs after a failure, and the query text's one statement.
#include "pg_fixture.h"
#include "platform/db/sql_text.h"
#include "platform/postgres/postgres_internal.h"

namespace TabulonLib12::testing {
namespace {

class PgRecordsetTest : public PgTest {
protected:
    void SetUp() override {
        PgTest::SetUp();
        if (HasFatalFailure()) return;
        Exec("CREATE TABLE people (id integer PRIMARY KEY, \"Name\" text, city text);"
             "INSERT INTO people VALUES (1, 'Anna', 'Pisa'), (2, 'Bruno', 'Lucca'), (3, 'Carla', 'Siena'),"
             " (4, 'Dario', 'Prato'), (5, 'Elena', 'Arezzo');"
             "CREATE TABLE empty_table (id integer);"
             "CREATE TABLE big (id integer PRIMARY KEY, v integer);"
             "INSERT INTO big SELECT i, i * 3 FROM generate_series(1, 25000) i");
        db_ = Open();
    }
    void TearDown() override {
        db_.reset();
        PgTest::TearDown();
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

    std::shared_ptr<Database> db_;
};

TEST_F(PgRecordsetTest, EmptyResultCountsZeroAndIsAtEof) {
    auto rs = db_->OpenRecordset("SELECT * FROM empty_table");
    EXPECT_EQ(rs->RecordCount(), 0);
    EXPECT_TRUE(rs->IsEOF());
    EXPECT_EQ(rs->FieldCount(), 1);
    EXPECT_EQ(rs->FieldType(0), FieldType::Long);
}

TEST_F(PgRecordsetTest, MovingOnAnEmptyResultFailsWithNoCurrentRecord) {
    auto rs = db_->OpenRecordset("SELECT * FROM empty_table");
    for (auto move : {&Recordset::MoveFirst, &Recordset::MoveLast, &Recordset::MoveNext}) {
        try {
            ((*rs).*move)();
            FAIL();
        } catch (const Error& error) {
            EXPECT_EQ(error.number(), 3021);
            EXPECT_EQ(error.description(), "No current record.");
        }
    }
    EXPECT_THROW(rs->FieldValue(0), Error);
}

TEST_F(PgRecordsetTest, RecordCountIsAtLeastOneBeforeMoveLastAndExactAfter) {
    auto rs = db_->OpenRecordset("SELECT * FROM big");
    EXPECT_GE(rs->RecordCount(), 1);
    EXPECT_LT(rs->RecordCount(), 25000);
    rs->MoveLast();
    EXPECT_EQ(rs->RecordCount(), 25000);
    rs->MoveFirst();
    EXPECT_EQ(rs->RecordCount(), 25000);
}

TEST_F(PgRecordsetTest, ReachingTheEndByMovingMakesTheCountExact) {
    auto rs = db_->OpenRecordset("SELECT * FROM big");
    int64_t n = 0;
    while (!rs->IsEOF()) {
        rs->MoveNext();
        ++n;
    }
    EXPECT_EQ(n, 25000);
    EXPECT_EQ(rs->RecordCount(), 25000);
    try {
        rs->MoveNext();
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), 3021);
    }
}

TEST_F(PgRecordsetTest, MoveLastStandsOnTheLastRecord) {
    auto rs = db_->OpenRecordset("SELECT id, \"Name\" FROM people ORDER BY id");
    rs->MoveLast();
    EXPECT_FALSE(rs->IsEOF());
    EXPECT_EQ(rs->FieldValue(1), Value("Elena"));
    rs->MoveNext();
    EXPECT_TRUE(rs->IsEOF());
}

TEST_F(PgRecordsetTest, MoveLastOnALongResultReadsTheLastRecordBeyondTheBatches) {
    auto rs = db_->OpenRecordset("SELECT id, v FROM big ORDER BY id");
    rs->MoveLast();
    EXPECT_EQ(rs->FieldValue(0), Value(int64_t{25000}));
    EXPECT_EQ(rs->FieldValue(1), Value(int64_t{75000}));
    rs->MoveFirst();
    EXPECT_EQ(rs->FieldValue(0), Value(int64_t{1}));
}

TEST_F(PgRecordsetTest, MoveLastThenMoveFirstReadsEveryRecordInOrder) {
    auto rs = db_->OpenRecordset("SELECT \"Name\" FROM people ORDER BY \"Name\" DESC");
    rs->MoveLast();
    rs->MoveFirst();
    EXPECT_EQ(ReadColumn(*rs, 0), (std::vector<std::string>{"Elena", "Dario", "Carla", "Bruno", "Anna"}));
}

TEST_F(PgRecordsetTest, TheLoadsWayReadsEveryRecordAcrossTheBatches) {
    auto rs = db_->OpenRecordset("SELECT id, v FROM big ORDER BY id");
    ASSERT_GE(rs->RecordCount(), 1);
    rs->MoveLast();
    rs->MoveFirst();
    ASSERT_EQ(rs->RecordCount(), 25000);
    int64_t n = 0;
    double sum = 0;
    std::string text;
    while (!rs->IsEOF()) {
        ASSERT_FALSE(rs->FieldIsNull(0));
        text.clear();
        rs->AppendFieldText(0, text);
        ASSERT_EQ(text, std::to_string(n + 1));
        sum += rs->FieldNumber(1);
        ++n;
        rs->MoveNext();
    }
    EXPECT_EQ(n, 25000);
    EXPECT_EQ(sum, 3.0 * 25000 * 25001 / 2);
}

TEST_F(PgRecordsetTest, MoveFirstAfterReadingOnReadsFromTheStartAgain) {
    auto rs = db_->OpenRecordset("SELECT id FROM big ORDER BY id");
    for (int i = 0; i < 12345; ++i) rs->MoveNext();
    EXPECT_EQ(rs->FieldValue(0), Value(int64_t{12346}));
    rs->MoveFirst();
    EXPECT_EQ(rs->FieldValue(0), Value(int64_t{1}));
    rs->MoveNext();
    EXPECT_EQ(rs->FieldValue(0), Value(int64_t{2}));
}

TEST_F(PgRecordsetTest, ResultsAreStreamedNotGatheredFirst) {
    // An endless query: a recordset that gathered its result before the first record would never
    // come back.
    auto rs = db_->OpenRecordset("WITH RECURSIVE k(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM k) SELECT i FROM k");
    EXPECT_FALSE(rs->IsEOF());
    for (int i = 0; i < 30000; ++i) rs->MoveNext();
    EXPECT_EQ(rs->FieldValue(0), Value(int64_t{30001}));
    EXPECT_GE(rs->RecordCount(), 30001);
    rs->MoveFirst();
    EXPECT_EQ(rs->FieldValue(0), Value(int64_t{1}));
    rs->Close();
}

TEST_F(PgRecordsetTest, TheSnapshotKeepsTheRecordsAsTheyWereAtTheOpening) {
    auto rs = db_->OpenRecordset("SELECT id FROM people ORDER BY id");
    Exec("INSERT INTO people VALUES (6, 'Fabio', 'Lucca'); DELETE FROM people WHERE id = 1");
    rs->MoveLast();
    EXPECT_EQ(rs->RecordCount(), 5);
    rs->MoveFirst();
    EXPECT_EQ(ReadColumn(*rs, 0), (std::vector<std::string>{"1", "2", "3", "4", "5"}));
    rs->Close();
    auto fresh = db_->OpenRecordset("SELECT id FROM people ORDER BY id");
    EXPECT_EQ(ReadColumn(*fresh, 0), (std::vector<std::string>{"2", "3", "4", "5", "6"}));
}

TEST_F(PgRecordsetTest, CountingLeavesOutAFinalOrderByButKeepsALimit) {
    auto ordered = db_->OpenRecordset("SELECT id FROM big ORDER BY v DESC");
    ordered->MoveLast();
    EXPECT_EQ(ordered->RecordCount(), 25000);
    EXPECT_EQ(ordered->FieldValue(0), Value(int64_t{1}));
    auto limited = db_->OpenRecordset("SELECT id FROM big ORDER BY v DESC LIMIT 7 -- the first seven");
    limited->MoveLast();
    EXPECT_EQ(limited->RecordCount(), 7);
    EXPECT_EQ(limited->FieldValue(0), Value(int64_t{24994}));
    auto offset = db_->OpenRecordset("SELECT id FROM big ORDER BY id OFFSET 24990");
    offset->MoveLast();
    EXPECT_EQ(offset->RecordCount(), 10);
    auto fetchFirst = db_->OpenRecordset("SELECT id FROM big ORDER BY id FETCH FIRST 3 ROWS ONLY");
    fetchFirst->MoveLast();
    EXPECT_EQ(fetchFirst->RecordCount(), 3);
}

TEST_F(PgRecordsetTest, AFailedCountReportsTheServersWordsAndLeavesTheCursorReadable) {
    // The division fails only at record 20000, far beyond the first batch.
    auto rs = db_->OpenRecordset("SELECT id FROM big WHERE 1 / (20000 - id) IS NOT NULL");
    try {
        rs->MoveLast();
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), SqlStateNumber("22012"));
        EXPECT_EQ(error.description(), "division by zero");
    }
    EXPECT_EQ(rs->FieldValue(0), Value(int64_t{1}));
    rs->MoveNext();
    EXPECT_EQ(rs->FieldValue(0), Value(int64_t{2}));
}

TEST_F(PgRecordsetTest, AFailedFetchIsRepairedByMoveFirstInTheSameSnapshot) {
    auto rs = db_->OpenRecordset("SELECT id FROM big WHERE 1 / (20000 - id) IS NOT NULL");
    Exec("DELETE FROM big WHERE id = 3");
    bool failed = false;
    try {
        while (!rs->IsEOF()) rs->MoveNext();
    } catch (const Error& error) {
        failed = true;
        EXPECT_EQ(error.description(), "division by zero");
    }
    EXPECT_TRUE(failed);
    rs->MoveFirst();
    std::vector<std::string> firstFour;
    for (int i = 0; i < 4; ++i, rs->MoveNext()) {
        std::string text;
        rs->AppendFieldText(0, text);
        firstFour.push_back(text);
    }
    EXPECT_EQ(firstFour, (std::vector<std::string>{"1", "2", "3", "4"}));  // record 3 still there
}

TEST_F(PgRecordsetTest, AFetchThatFailsAheadOfTheReaderIsToldOnlyWhenItsRecordsAreReached) {
    // Batches are asked for ahead of the reader; the one holding record 20000 fails while the
    // reader is still far before it, and every record before that batch reads in order.
    auto rs = db_->OpenRecordset("SELECT id FROM big WHERE 1 / (20000 - id) IS NOT NULL ORDER BY id");
    int64_t read = 0;
    try {
        while (!rs->IsEOF()) {
            ASSERT_EQ(rs->FieldValue(0), Value(read + 1));
            ++read;
            rs->MoveNext();
        }
        FAIL() << "no failure after " << read << " records";
    } catch (const Error& error) {
        EXPECT_EQ(error.description(), "division by zero");
    }
    EXPECT_GT(read, 18000);
    EXPECT_LT(read, 20000);
}

TEST_F(PgRecordsetTest, CountingWhileBatchesAreOnTheirWayKeepsEveryRecord) {
    auto rs = db_->OpenRecordset("SELECT id FROM big ORDER BY id");
    for (int i = 0; i < 3000; ++i) rs->MoveNext();
    EXPECT_EQ(rs->FieldValue(0), Value(int64_t{3001}));
    rs->MoveLast();
    EXPECT_EQ(rs->RecordCount(), 25000);
    EXPECT_EQ(rs->FieldValue(0), Value(int64_t{25000}));
    rs->MoveFirst();
    std::vector<std::string> ids = ReadColumn(*rs, 0);
    ASSERT_EQ(ids.size(), 25000u);
    for (size_t i = 0; i < ids.size(); ++i) ASSERT_EQ(ids[i], std::to_string(i + 1));
}

TEST_F(PgRecordsetTest, ClosingWithBatchesOnTheirWayLeavesTheSessionReady) {
    for (const char* query : {"SELECT id FROM big ORDER BY id",
                              "SELECT id FROM big WHERE 1 / (20000 - id) IS NOT NULL ORDER BY id"}) {
        auto rs = db_->OpenRecordset(query);
        for (int i = 0; i < 1500; ++i) rs->MoveNext();
        EXPECT_EQ(rs->FieldValue(0), Value(int64_t{1501})) << query;
        rs->Close();
        EXPECT_TRUE(rs->IsEOF());
        // The same session serves the next questions, as after a recordset read to its end.
        EXPECT_FALSE(db_->TableNames().empty()) << query;
        auto next = db_->OpenRecordset("SELECT count(*) FROM big");
        EXPECT_EQ(next->FieldValue(0), Value(int64_t{25000})) << query;
    }
}

TEST_F(PgRecordsetTest, FieldsByNameIgnoreCaseAndByIndex) {
    auto rs = db_->OpenRecordset("SELECT id, \"Name\", city AS \"Città\" FROM people ORDER BY id");
    EXPECT_EQ(rs->FieldCount(), 3);
    EXPECT_EQ(rs->FieldName(1), "Name");
    EXPECT_EQ(rs->FieldIndex("NAME"), 1);
    EXPECT_EQ(rs->FieldIndex("name"), 1);
    EXPECT_EQ(rs->FieldIndex("Città"), 2);
    EXPECT_EQ(rs->FieldIndex("nothing"), -1);
    EXPECT_EQ(rs->FieldIndex("city"), -1);  // renamed by the query
    EXPECT_EQ(rs->FieldValue(2), Value("Pisa"));
}

TEST_F(PgRecordsetTest, ABadFieldIndexIsOutOfBounds) {
    auto rs = db_->OpenRecordset("SELECT id FROM people");
    for (int index : {-1, 1, 1000}) {
        try {
            rs->FieldValue(index);
            FAIL();
        } catch (const Error& error) {
            EXPECT_EQ(error.kind(), ErrorKind::OutOfBounds);
        }
        EXPECT_THROW(rs->FieldName(index), Error);
        EXPECT_THROW(rs->FieldType(index), Error);
    }
}

TEST_F(PgRecordsetTest, AClosedRecordsetIsAtEofAndRefusesEverything) {
    auto rs = db_->OpenRecordset("SELECT id FROM people");
    rs->Close();
    EXPECT_TRUE(rs->IsEOF());
    EXPECT_THROW(rs->MoveFirst(), Error);
    EXPECT_THROW(rs->RecordCount(), Error);
    EXPECT_THROW(rs->FieldValue(0), Error);
    rs->Close();  // a second close does nothing
    // The session is free for the next recordset.
    auto next = db_->OpenRecordset("SELECT count(*) FROM people");
    EXPECT_EQ(next->FieldValue(0), Value(int64_t{5}));
}

TEST_F(PgRecordsetTest, AQueryThatFailsToOpenGivesTheServersMessage) {
    try {
        db_->OpenRecordset("SELECT nothing FROM nowhere");
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.kind(), ErrorKind::Database);
        EXPECT_EQ(error.number(), SqlStateNumber("42P01"));
        EXPECT_EQ(error.description(), "relation \"nowhere\" does not exist");
    }
    // The failure ended its transaction: the next query runs.
    auto rs = db_->OpenRecordset("SELECT count(*) FROM people");
    EXPECT_EQ(rs->FieldValue(0), Value(int64_t{5}));
}

TEST_F(PgRecordsetTest, TrailingSemicolonsAndCommentsAreNoSecondStatement) {
    for (const char* query : {"SELECT count(*) FROM people;", "SELECT count(*) FROM people ; ;  ",
                              "SELECT count(*) FROM people -- all of them", "SELECT count(*) FROM people; -- done",
                              "SELECT count(*) FROM people /* a; b */ ;", "/* first */ SELECT count(*) FROM people"}) {
        auto rs = db_->OpenRecordset(query);
        rs->MoveLast();
        EXPECT_EQ(rs->FieldValue(0), Value(int64_t{5})) << query;
    }
}

TEST_F(PgRecordsetTest, SemicolonsInsideStringsNamesAndDollarQuotesAreText) {
    auto rs = db_->OpenRecordset(
        "SELECT 'a;b' AS \"x;y\", E'c\\';d' AS e, $$e;f$$ AS f, $tag$ $$;$$ $tag$ AS g, 'h''; i' AS h");
    EXPECT_EQ(rs->FieldValue(0), Value("a;b"));
    EXPECT_EQ(rs->FieldName(0), "x;y");
    EXPECT_EQ(rs->FieldValue(1), Value("c';d"));
    EXPECT_EQ(rs->FieldValue(2), Value("e;f"));
    EXPECT_EQ(rs->FieldValue(3), Value(" $$;$$ "));
    EXPECT_EQ(rs->FieldValue(4), Value("h'; i"));
}

TEST_F(PgRecordsetTest, ASecondStatementIsRefusedBeforeAnythingIsSent) {
    for (const char* query : {"SELECT 1; SELECT 2", "SELECT 1;DELETE FROM people", "SELECT ';' ; SELECT 2",
                              "SELECT $$;$$; DELETE FROM people", "SELECT 1 /* ; */ ; DROP TABLE people --"}) {
        try {
            db_->OpenRecordset(query);
            FAIL() << query;
        } catch (const Error& error) {
            EXPECT_EQ(error.number(), SqlStateNumber("42601")) << query;
            EXPECT_EQ(error.description(), "only one statement may be run: the query goes on after ';'") << query;
        }
    }
    EXPECT_EQ(Admin().Scalar("SELECT count(*) FROM " + schema_->name() + ".people"), "5");
}

TEST_F(PgRecordsetTest, AnEmptyTextOrAStatementWithoutColumnsIsNoQuery) {
    for (const char* query : {"", "   ", "-- nothing", ";", "/* only */ ;"}) {
        try {
            db_->OpenRecordset(query);
            FAIL() << query;
        } catch (const Error& error) {
            EXPECT_EQ(error.description(), "the query holds no statement") << query;
        }
    }
    EXPECT_THROW(db_->OpenRecordset("SELECT FROM people"), Error);
    const char withNul[] = "SELECT 1\0; DELETE FROM people";
    EXPECT_THROW(db_->OpenRecordset(std::string(withNul, sizeof withNul - 1)), Error);
}

TEST(PgQueryText, TheFinalOrderByIsFoundByTheLexer) {
    auto WithoutFinalOrderBy = [](std::string_view sql) { return TabulonLib12::WithoutFinalOrderBy(sql, SqlDialect::Postgres()); };
    EXPECT_EQ(WithoutFinalOrderBy("SELECT a FROM t ORDER BY a"), "SELECT a FROM t ");
    EXPECT_EQ(WithoutFinalOrderBy("SELECT a FROM t order  by a DESC, b"), "SELECT a FROM t ");
    EXPECT_EQ(WithoutFinalOrderBy("SELECT a FROM t ORDER /* c */ BY a"), "SELECT a FROM t ");
    EXPECT_EQ(WithoutFinalOrderBy("SELECT a FROM t ORDER BY a LIMIT 3"), "SELECT a FROM t ORDER BY a LIMIT 3");
    EXPECT_EQ(WithoutFinalOrderBy("SELECT a FROM t ORDER BY a OFFSET 3"), "SELECT a FROM t ORDER BY a OFFSET 3");
    EXPECT_EQ(WithoutFinalOrderBy("SELECT a FROM t ORDER BY a FOR SHARE"), "SELECT a FROM t ORDER BY a FOR SHARE");
    EXPECT_EQ(WithoutFinalOrderBy("SELECT row_number() OVER (ORDER BY a) FROM t"),
              "SELECT row_number() OVER (ORDER BY a) FROM t");
    EXPECT_EQ(WithoutFinalOrderBy("SELECT 'ORDER BY' FROM t"), "SELECT 'ORDER BY' FROM t");
    EXPECT_EQ(WithoutFinalOrderBy("SELECT $q$ ORDER BY $q$ FROM t"), "SELECT $q$ ORDER BY $q$ FROM t");
    EXPECT_EQ(WithoutFinalOrderBy("SELECT \"order\" FROM t ORDER BY 1"), "SELECT \"order\" FROM t ");
    EXPECT_EQ(WithoutFinalOrderBy("SELECT a FROM (SELECT a FROM t ORDER BY a) s"),
              "SELECT a FROM (SELECT a FROM t ORDER BY a) s");
}

TEST(PgQueryText, TheOneStatementEndsBeforeItsSemicolons) {
    using pg::SingleStatement;
    EXPECT_EQ(SingleStatement("SELECT 1;"), "SELECT 1");
    EXPECT_EQ(SingleStatement("  SELECT 1 -- note\n ; ; "), "  SELECT 1");
    EXPECT_EQ(SingleStatement("SELECT '--;' /* /* nested */ ; */"), "SELECT '--;'");
    EXPECT_EQ(SingleStatement("SELECT a$b FROM t"), "SELECT a$b FROM t");
    EXPECT_THROW(SingleStatement("SELECT $1; SELECT 2"), Error);
    EXPECT_THROW(SingleStatement("SELECT E'\\\\'; SELECT 2"), Error);
    EXPECT_THROW(SingleStatement("SELECT e'\\''; DELETE FROM t"), Error);
}

}  // namespace
}  // namespace TabulonLib12::testing
