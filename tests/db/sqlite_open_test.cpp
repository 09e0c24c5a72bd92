// Opening SQLite files: read-only only, never creating one, the password kept out of messages,
// and the names of tables and views.
#include <sys/stat.h>

#include <filesystem>

#include "sqlite_fixture.h"

namespace TabulonLib12::testing {
namespace {

constexpr const char* kSmallSchema =
    "CREATE TABLE customers (id INTEGER PRIMARY KEY, name TEXT);"
    "INSERT INTO customers VALUES (1, 'Rossi'), (2, 'Bianchi');"
    "CREATE TABLE Articles (id INTEGER PRIMARY KEY AUTOINCREMENT, code TEXT);"
    "INSERT INTO Articles (code) VALUES ('A1');"
    "CREATE INDEX customers_name ON customers (name);"
    "CREATE VIEW v_customers AS SELECT name FROM customers;"
    "CREATE VIEW a_first AS SELECT 1 AS one;";

using SqliteOpen = SqliteFileTest;

TEST_F(SqliteOpen, MissingPathFailsWithTheEngineMessageAndCreatesNoFile) {
    std::string path = dir_.File("missing.db");
    try {
        Open(path);
        FAIL() << "a missing file opened";
    } catch (const Error& error) {
        EXPECT_EQ(error.kind(), ErrorKind::Database);
        EXPECT_EQ(error.number() & 0xFF, SQLITE_CANTOPEN);
        EXPECT_EQ(error.description(), "unable to open database file");
    }
    EXPECT_FALSE(Exists(path));
    EXPECT_TRUE(dir_.Entries().empty());
}

TEST_F(SqliteOpen, EmptyNameAndMemoryNameAreRefused) {
    EXPECT_THROW(Open(""), Error);
    EXPECT_THROW(Open(":memory:"), Error);
}

TEST_F(SqliteOpen, OpeningForWritingIsRefused) {
    std::string path = WriteTestDatabase(kSmallSchema);
    std::vector<char> before = ReadBytes(path);
    OpenOptions options;
    options.readOnly = false;
    try {
        Open(path, options);
        FAIL() << "opened for writing";
    } catch (const Error& error) {
        EXPECT_EQ(error.kind(), ErrorKind::Database);
        EXPECT_FALSE(error.description().empty());
    }
    EXPECT_EQ(ReadBytes(path), before);
}

TEST_F(SqliteOpen, AFileThatIsNoDatabaseFailsAtOpen) {
    std::string path = dir_.File("notes.db");
    {
        std::ofstream out(path, std::ios::binary);
        out << "This is a plain text file, long enough to have a header of sorts. " << std::string(200, 'x');
    }
    try {
        Open(path);
        FAIL() << "a text file opened as a database";
    } catch (const Error& error) {
        EXPECT_EQ(error.kind(), ErrorKind::Database);
        EXPECT_EQ(error.number(), SQLITE_NOTADB);
        EXPECT_EQ(error.description(), "file is not a database");
    }
}

TEST_F(SqliteOpen, ConnectTextWithPasswordIsAcceptedAndIgnored) {
    std::string path = WriteTestDatabase(kSmallSchema);
    OpenOptions options;
    options.connect = "; pwd=secret";
    auto db = Open(path, options);
    ASSERT_TRUE(db->IsOpen());
    auto rs = db->OpenRecordset("SELECT count(*) FROM customers");
    EXPECT_EQ(rs->FieldValue(0), Value(int64_t{2}));
}

TEST_F(SqliteOpen, PasswordNeverAppearsInAnyMessage) {
    std::string path = WriteTestDatabase(kSmallSchema);
    OpenOptions options;
    options.connect = "; pwd=secret";
    std::vector<std::string> messages;
    try {
        Open(dir_.File("missing.db"), options);
    } catch (const Error& error) {
        messages.push_back(error.description());
    }
    OpenOptions writing = options;
    writing.readOnly = false;
    try {
        Open(path, writing);
    } catch (const Error& error) {
        messages.push_back(error.description());
    }
    auto db = Open(path, options);
    for (const char* query : {"SELECT nothing FROM nowhere", "DELETE FROM customers", "SELECT 1; SELECT 2"}) {
        try {
            db->OpenRecordset(query);
        } catch (const Error& error) {
            messages.push_back(error.description());
        }
    }
    ASSERT_EQ(messages.size(), 5u);
    for (const std::string& message : messages) {
        EXPECT_FALSE(message.empty());
        EXPECT_EQ(message.find("secret"), std::string::npos) << message;
        EXPECT_EQ(message.find("pwd"), std::string::npos) << message;
    }
}

TEST_F(SqliteOpen, NameIsTheNameGiven) {
    std::string path = WriteTestDatabase(kSmallSchema);
    auto db = Open(path);
    EXPECT_EQ(db->Name(), path);
}

TEST_F(SqliteOpen, TableNamesListUserTablesWithoutInternalOnes) {
    std::string path = WriteTestDatabase(kSmallSchema);
    auto db = Open(path);
    // AUTOINCREMENT makes the engine keep its own sqlite_sequence table: not listed.
    EXPECT_EQ(db->TableNames(), (std::vector<std::string>{"Articles", "customers"}));
}

TEST_F(SqliteOpen, QueryNamesListViews) {
    std::string path = WriteTestDatabase(kSmallSchema);
    auto db = Open(path);
    EXPECT_EQ(db->QueryNames(), (std::vector<std::string>{"a_first", "v_customers"}));
}

TEST_F(SqliteOpen, EmptyDatabaseHasNoTablesOrViews) {
    std::string path = WriteTestDatabase("PRAGMA user_version = 1;");
    auto db = Open(path);
    EXPECT_TRUE(db->TableNames().empty());
    EXPECT_TRUE(db->QueryNames().empty());
}

TEST_F(SqliteOpen, CloseEndsTheDatabaseButNotItsRecordsets) {
    std::string path = WriteTestDatabase(kSmallSchema);
    auto db = Open(path);
    auto rs = db->OpenRecordset("SELECT name FROM customers ORDER BY id");
    db->Close();
    EXPECT_FALSE(db->IsOpen());
    EXPECT_THROW(db->OpenRecordset("SELECT 1"), Error);
    EXPECT_THROW(db->TableNames(), Error);
    EXPECT_EQ(rs->FieldValue(0), Value("Rossi"));
    rs->MoveNext();
    EXPECT_EQ(rs->FieldValue(0), Value("Bianchi"));
    rs->MoveLast();
    EXPECT_EQ(rs->RecordCount(), 2);
    db.reset();
    rs->MoveFirst();
    EXPECT_EQ(rs->FieldValue(0), Value("Rossi"));
    rs->Close();
}

TEST_F(SqliteOpen, ClosingTwiceIsHarmless) {
    std::string path = WriteTestDatabase(kSmallSchema);
    auto db = Open(path);
    db->Close();
    db->Close();
    EXPECT_FALSE(db->IsOpen());
}

TEST_F(SqliteOpen, ReadOnlyFileInReadOnlyFolderOpensAndReads) {
    std::string path = WriteTestDatabase(kSmallSchema);
    std::vector<char> before = ReadBytes(path);
    ASSERT_EQ(chmod(path.c_str(), 0444), 0);
    ASSERT_EQ(chmod(dir_.path().c_str(), 0555), 0);
    {
        auto db = Open(path);
        auto rs = db->OpenRecordset("SELECT name FROM customers ORDER BY id");
        rs->MoveLast();
        EXPECT_EQ(rs->RecordCount(), 2);
        EXPECT_EQ(rs->FieldValue(0), Value("Bianchi"));
        EXPECT_EQ(db->TableNames().size(), 2u);
    }
    ASSERT_EQ(chmod(dir_.path().c_str(), 0755), 0);
    EXPECT_EQ(dir_.Entries(), std::vector<std::string>{"test.db"});
    EXPECT_EQ(ReadBytes(path), before);
}

TEST_F(SqliteOpen, ReadingLeavesNoJournalBehind) {
    std::string path = WriteTestDatabase(kSmallSchema);
    std::vector<char> before = ReadBytes(path);
    {
        auto db = Open(path);
        auto rs = db->OpenRecordset("SELECT * FROM customers");
        rs->MoveLast();
        rs->MoveFirst();
        while (!rs->IsEOF()) rs->MoveNext();
        EXPECT_EQ(dir_.Entries(), std::vector<std::string>{"test.db"});
    }
    EXPECT_EQ(dir_.Entries(), std::vector<std::string>{"test.db"});
    EXPECT_EQ(ReadBytes(path), before);
}

// A WAL database needs its WAL and shared-memory files; where they cannot be made, as in a
// read-only folder, the file is read as it stands. Folders in their place stop even a
// privileged process from making them.
TEST_F(SqliteOpen, WalDatabaseWhoseSideFilesCannotBeMadeStillReads) {
    std::string path = WriteTestDatabase(std::string("PRAGMA journal_mode=WAL;") + kSmallSchema);
    ASSERT_FALSE(Exists(path + "-wal"));
    std::filesystem::create_directory(path + "-wal");
    std::filesystem::create_directory(path + "-shm");
    std::vector<char> before = ReadBytes(path);
    auto db = Open(path);
    auto rs = db->OpenRecordset("SELECT name FROM customers ORDER BY id");
    EXPECT_EQ(rs->FieldValue(0), Value("Rossi"));
    rs->MoveLast();
    EXPECT_EQ(rs->RecordCount(), 2);
    EXPECT_EQ(db->TableNames().size(), 2u);
    EXPECT_THROW(db->OpenRecordset("DELETE FROM customers"), Error);
    EXPECT_EQ(ReadBytes(path), before);
}

TEST_F(SqliteOpen, WalDatabaseReadsThroughItsSideFilesWhenTheyCanBeMade) {
    std::string path = WriteTestDatabase(std::string("PRAGMA journal_mode=WAL;") + kSmallSchema);
    std::vector<char> before = ReadBytes(path);
    {
        auto db = Open(path);
        auto rs = db->OpenRecordset("SELECT count(*) FROM customers");
        EXPECT_EQ(rs->FieldValue(0), Value(int64_t{2}));
    }
    EXPECT_EQ(ReadBytes(path), before);
    // A reader of a WAL database takes part in its shared-memory protocol, so the side files
    // may appear, but a reader never writes a frame into the WAL.
    EXPECT_TRUE(!Exists(path + "-wal") || std::filesystem::file_size(path + "-wal") == 0);
}

TEST_F(SqliteOpen, NamesWithBlanksAndSignsArePlainPaths) {
    std::string path = WriteTestDatabase(kSmallSchema, "dati clienti #1 ?mode=rwc 100%.db");
    auto db = Open(path);
    EXPECT_EQ(db->TableNames().size(), 2u);
    EXPECT_EQ(dir_.Entries(), std::vector<std::string>{"dati clienti #1 ?mode=rwc 100%.db"});
}

TEST_F(SqliteOpen, AFolderIsNoDatabase) {
    try {
        Open(dir_.path().string());
        FAIL() << "a folder opened";
    } catch (const Error& error) {
        EXPECT_EQ(error.kind(), ErrorKind::Database);
        EXPECT_FALSE(error.description().empty());
    }
    EXPECT_TRUE(dir_.Entries().empty());
}

TEST_F(SqliteOpen, FileUriOpensReadOnlyToo) {
    std::string path = WriteTestDatabase(kSmallSchema);
    auto db = Open("file:" + path + "?mode=ro");
    auto rs = db->OpenRecordset("SELECT count(*) FROM customers");
    EXPECT_EQ(rs->FieldValue(0), Value(int64_t{2}));
    EXPECT_THROW(Open("file:" + path + "?mode=rwc"), Error);
}

}  // namespace
}  // namespace TabulonLib12::testing
