// Carica on equivalent data in SQLite and in PostgreSQL, through the one engine a host registers:
// the same record counts, store bounds, cells, totals and detected types from either engine, and
// the same rows of the failure table, with the engine's own words in the load's message box and
// never the password.
#include <cstdio>
#include <map>

#include "load_rig.h"
#include "platform/runtime/settings.h"

namespace TabulonLib12::testing {
namespace {

class LoadOnBothEngines : public ::testing::TestWithParam<Backend> {
protected:
    void SetUp() override { ASSERT_TRUE(rig_.Start()); }

    Tabulon12::Impl& S() { return rig_.S(); }
    CellGrid& FG1() { return rig_.FG1(); }
    Tabulon12& control() { return *rig_.control; }

    LoadRig rig_{GetParam()};
};

TEST_P(LoadOnBothEngines, AQueryWithNoRecordsGivesAnEmptyStoreOfMinRowsAndRaisesCaricato) {
    control().setTestoCount("Righe:");
    rig_.LoadNumbered(0);
    EXPECT_EQ(control().Rows(), 10);
    EXPECT_EQ(S().MatriceRighe.ColBound(), 3);
    EXPECT_EQ(control().RighePiene(), 0);
    EXPECT_FALSE(S().VS1.Enabled());
    EXPECT_EQ(rig_.events.Count("Caricato"), 1);
    EXPECT_EQ(S().elements.LabelCount->Caption(), "Righe: 0");
    EXPECT_TRUE(rig_.messages.shown.empty());
}

TEST_P(LoadOnBothEngines, FewerRecordsThanMinRowsKeepAStoreOfMinRowsAndDisableTheBar) {
    rig_.LoadNumbered(4);
    EXPECT_EQ(control().Rows(), 10);
    EXPECT_EQ(control().RighePiene(), 4);
    EXPECT_FALSE(S().VS1.Enabled());
    EXPECT_EQ(FG1().TextMatrix(3, 1), "Name 4");
    EXPECT_EQ(FG1().TextMatrix(4, 1), "");
    EXPECT_TRUE(S().MatriceRighe.IsEmpty(4, 0));
}

TEST_P(LoadOnBothEngines, ExactlyMinRowsRecordsEnableTheBarWithMaxZero) {
    rig_.LoadNumbered(10);
    EXPECT_EQ(control().RighePiene(), 10);
    EXPECT_EQ(control().Rows(), 10);
    EXPECT_TRUE(S().VS1.Enabled());
    EXPECT_EQ(S().VS1.Max(), 0);
}

TEST_P(LoadOnBothEngines, MoreRecordsThanMinRowsGiveAStoreOfOneRowMore) {
    rig_.LoadNumbered(100);
    EXPECT_EQ(control().Rows(), 100);
    EXPECT_EQ(control().RighePiene(), 100);
    EXPECT_EQ(S().VS1.Max(), 90);
    EXPECT_EQ(S().MatriceRighe.Cell(99, 0), "100");
    EXPECT_TRUE(S().MatriceRighe.IsEmpty(100, 0));
    EXPECT_EQ(FG1().TextMatrix(0, 0), "1");
    EXPECT_EQ(FG1().TextMatrix(9, 1), "Name 10");
}

TEST_P(LoadOnBothEngines, ALongListLoadsEveryRecordAcrossTheEnginesBatches) {
    ScopedSettings italian(SystemSettings::Italian());
    rig_.LoadNumbered(25000);
    EXPECT_EQ(control().RighePiene(), 25000);
    EXPECT_EQ(control().Rows(), 25000);
    EXPECT_EQ(S().MatriceRighe.Cell(24999, 0), "25000");
    EXPECT_EQ(S().MatriceRighe.Cell(24999, 1), "Name 25000");
    EXPECT_EQ(S().MatriceRighe.Cell(12344, 2), "18517,5");
    EXPECT_TRUE(rig_.messages.shown.empty());
}

TEST_P(LoadOnBothEngines, TipoCampoRilevatoComesFromTheFirstRecordAndStaysWithoutRecords) {
    const std::string name = rig_.MakeDatabase(
        "CREATE TABLE t(id INTEGER, name VARCHAR(50), amount DOUBLE PRECISION, d DATE, b BOOLEAN, m VARCHAR(1000));"
        "INSERT INTO t VALUES(1, 'a', 1.5, '2024-02-29', TRUE, 'long');");
    control().setCols(6);
    const char* fields[] = {"id", "name", "amount", "d", "b", "m"};
    for (int16_t c = 0; c < 6; ++c) control().setCampoQuery(c, fields[c]);
    control().setDataBaseName(name);
    control().setQueryString("SELECT * FROM t");
    control().Carica();
    EXPECT_EQ(S().columns.TipoCampoRilevato, (std::vector<std::string>{"4", "10", "7", "8", "1", "12"}));
    control().setQueryString("SELECT * FROM t WHERE 1 = 0");
    control().Carica();
    EXPECT_EQ(S().columns.TipoCampoRilevato[0], "4");
    EXPECT_EQ(control().RighePiene(), 0);
}

TEST_P(LoadOnBothEngines, TotalsSumEveryValueRoundedHalfToEvenOnlyForSummedFormats) {
    const std::string name = rig_.MakeDatabase(
        "CREATE TABLE t(a DOUBLE PRECISION, b DOUBLE PRECISION, c DOUBLE PRECISION, d TEXT, e DOUBLE PRECISION,"
        " f DOUBLE PRECISION);"
        "INSERT INTO t VALUES(0.125, 0.00005, 1, '2,5', 3, 0.005);"
        "INSERT INTO t VALUES(0.375, 0.00015, 2, 'abc', 4, 0.015);");
    ScopedSettings italian(SystemSettings::Italian());
    control().setCols(6);
    const char* fields[] = {"a", "b", "c", "d", "e", "f"};
    const char* formats[] = {"Valuta", "Numeri_4_Dec", "Data", "Numerico", "", "Single"};
    for (int16_t c = 0; c < 6; ++c) {
        control().setCampoQuery(c, fields[c]);
        control().setFormato(c, formats[c]);
    }
    control().setDataBaseName(name);
    control().setQueryString("SELECT * FROM t");
    control().Carica();
    ASSERT_EQ(S().TotaliColonna.size(), 6u);
    EXPECT_FLOAT_EQ(S().TotaliColonna[0], 0.12f + 0.38f);
    EXPECT_FLOAT_EQ(S().TotaliColonna[1], 0.0f + 0.0002f);
    EXPECT_FLOAT_EQ(S().TotaliColonna[2], 0.0f);
    EXPECT_FLOAT_EQ(S().TotaliColonna[3], 2.5f);
    EXPECT_FLOAT_EQ(S().TotaliColonna[4], 7.0f);
    EXPECT_FLOAT_EQ(S().TotaliColonna[5], 0.0f + 0.02f);
}

TEST_P(LoadOnBothEngines, CellsHoldTheEngineTextUnderTheSystemSettings) {
    ScopedSettings italian(SystemSettings::Italian());
    rig_.LoadNumbered(3);
    EXPECT_EQ(S().MatriceRighe.Cell(0, 2), "1,5");
    EXPECT_EQ(S().MatriceRighe.Cell(1, 2), "3");
    EXPECT_EQ(S().MatriceRighe.Cell(2, 1), "Name 3");
}

TEST_P(LoadOnBothEngines, AHeadingSortReloadsWithTheOrderExpression) {
    rig_.LoadNumbered(3);
    S().band.SetOrder("amount", true);
    control().setQueryString("SELECT id, name, amount FROM t");
    control().Carica(true);
    EXPECT_EQ(control().QueryEffettiva(), "SELECT id, name, amount FROM t ORDER BY amount DESC");
    EXPECT_EQ(S().MatriceRighe.Cell(0, 0), "3");
    EXPECT_EQ(S().MatriceRighe.Cell(2, 0), "1");
}

TEST_P(LoadOnBothEngines, ADatabaseOpenedByTheLoadIsClosedAtTheEndOfEachLoad) {
    const std::string name = rig_.MakeNumbered(3);
    rig_.DefineColumns();
    S().DataBaseName = name;
    control().setQueryString("SELECT * FROM t");
    control().Carica();
    EXPECT_EQ(rig_.engine.opens, 1);
    EXPECT_FALSE(S().BaseDati);
    EXPECT_TRUE(rig_.engine.last.expired() || !rig_.engine.last.lock()->IsOpen());
    control().Carica();
    EXPECT_EQ(rig_.engine.opens, 2);
    EXPECT_EQ(control().RighePiene(), 3);
    EXPECT_EQ(rig_.engine.connects.back(), "; pwd=" + rig_.Password());
}

// --- the failure table ---

TEST_P(LoadOnBothEngines, NoDatabaseKeepsTheOldStoreAndStillCountsPointsAndRaisesCaricato) {
    rig_.LoadNumbered(12);
    S().BaseDati.reset();
    S().DataBaseName = rig_.MissingDatabase();
    control().setTestoCount("N:");
    rig_.screen.history.clear();
    rig_.messages.shown.clear();
    control().Carica(true);
    ASSERT_EQ(rig_.messages.shown.size(), 1u);
    EXPECT_EQ(rig_.messages.shown[0].prompt, "Nessun DB disponibile");
    EXPECT_EQ(rig_.messages.shown[0].style, MsgBoxStyle::Critical);
    EXPECT_EQ(control().RighePiene(), 12);
    EXPECT_EQ(S().MatriceRighe.Cell(11, 1), "Name 12");
    EXPECT_EQ(S().elements.LabelCount->Caption(), "N: 12");
    EXPECT_EQ(rig_.screen.history, (std::vector<int16_t>{11, 0}));
    EXPECT_EQ(rig_.events.Count("Caricato"), 2);
}

TEST_P(LoadOnBothEngines, AWrongPasswordGivesNoDatabaseAndNoMessageShowsIt) {
    const std::string name = rig_.MakeNumbered(3);
    rig_.DefineColumns();
    S().Password = "Sbagliata-Parola-7";
    S().DataBaseName = name;
    control().setQueryString("SELECT * FROM t");
    control().Carica();
    if (GetParam() == Backend::Postgres) {
        ASSERT_EQ(rig_.messages.shown.size(), 1u);
        EXPECT_EQ(rig_.messages.shown[0].prompt, "Nessun DB disponibile");
        EXPECT_EQ(control().RighePiene(), 0);
    } else {
        EXPECT_TRUE(rig_.messages.shown.empty());  // a SQLite file has no password
        EXPECT_EQ(control().RighePiene(), 3);
    }
    for (const auto& shown : rig_.messages.shown) EXPECT_EQ(shown.prompt.find("Sbagliata"), std::string::npos);
}

// The password's one way in is the property store: a design saved with it and restored into a
// new control opens the server and loads; a wrong one is never shown.
TEST_P(LoadOnBothEngines, AControlRestoredWithItsStoredPasswordLoads) {
    const std::string name = rig_.MakeNumbered(4);
    rig_.DefineColumns();
    control().setDataBaseName(name);
    control().setQueryString("SELECT id, name, amount FROM t ORDER BY id");
    MemoryPropertyBag store;
    control().WriteProperties(store);
    ASSERT_TRUE(SameStoredValue(store.ReadProperty("Password", std::string()), rig_.Password()));
    Tabulon12 restored(rig_.host, rig_.metrics, rig_.timers, store);
    restored.Superficie().Resize(9000, kTenRowHeight);
    restored.Carica();
    EXPECT_EQ(restored.RighePiene(), 4);
    EXPECT_EQ(restored.TextMatrix(3, 1), "Name 4");

    store.Set("Password", std::string("Parola-Sbagliata-9"));
    Tabulon12 wrong(rig_.host, rig_.metrics, rig_.timers, store);
    rig_.messages.shown.clear();
    wrong.Carica();
    EXPECT_EQ(wrong.RighePiene(), GetParam() == Backend::Postgres ? 0 : 4);
    for (const auto& shown : rig_.messages.shown) EXPECT_EQ(shown.prompt.find("Sbagliata"), std::string::npos);
}

TEST_P(LoadOnBothEngines, AQueryThatFailsToOpenGivesAnEmptyListInSilence) {
    rig_.LoadNumbered(12);
    rig_.messages.shown.clear();
    control().setQueryString("SELECT nothing FROM nowhere");
    control().Carica();
    EXPECT_TRUE(rig_.messages.shown.empty());
    EXPECT_EQ(control().RighePiene(), 0);
    EXPECT_EQ(control().Rows(), 10);
    EXPECT_TRUE(S().MatriceRighe.IsEmpty(0, 0));
    EXPECT_EQ(rig_.events.Count("Caricato"), 2);
}

TEST_P(LoadOnBothEngines, AWritingQueryGivesAnEmptyListInSilence) {
    rig_.LoadNumbered(5);
    rig_.messages.shown.clear();
    control().setQueryString("SELECT id, name, amount FROM t; DELETE FROM t");
    control().Carica();
    EXPECT_TRUE(rig_.messages.shown.empty());
    EXPECT_EQ(control().RighePiene(), 0);
    control().setQueryString("SELECT id, name, amount FROM t ORDER BY id");
    control().Carica();
    EXPECT_EQ(control().RighePiene(), 5);
}

TEST_P(LoadOnBothEngines, AnUnknownFieldNameLeavesItsCellsEmptyAndTheOthersLoadInSilence) {
    ScopedSettings c(SystemSettings::C());
    rig_.LoadNumbered(3);
    control().setCampoQuery(1, "no_such_field");
    control().Carica();
    EXPECT_TRUE(rig_.messages.shown.empty());
    EXPECT_EQ(control().RighePiene(), 3);
    EXPECT_EQ(S().MatriceRighe.Cell(2, 0), "3");
    EXPECT_TRUE(S().MatriceRighe.IsEmpty(2, 1));
    EXPECT_EQ(S().MatriceRighe.Cell(2, 2), "4.5");
}

TEST_P(LoadOnBothEngines, AFailureWhileCountingReachesTheLoadsMessageInTheEnginesWords) {
    // Record 15000 overflows a 64-bit integer: the first records read, the count fails.
    rig_.LoadNumbered(0);
    rig_.MakeDatabase("INSERT INTO t SELECT i, 'Name ' || i, i * 1.5 FROM (WITH RECURSIVE k(i) AS (SELECT 1 UNION ALL"
                      " SELECT i + 1 FROM k WHERE i < 20000) SELECT i FROM k) AS numbers");
    rig_.messages.shown.clear();
    control().setQueryString(
        "SELECT id, name, amount FROM t WHERE abs(CASE WHEN id = 15000 THEN -9223372036854775807 - 1 ELSE id END) > 0");
    control().Carica();
    ASSERT_GE(rig_.messages.shown.size(), 1u);
    const std::string& prompt = rig_.messages.shown[0].prompt;
    const std::string expected = GetParam() == Backend::Sqlite ? "integer overflow" : "bigint out of range";
    EXPECT_EQ(prompt, "Errore nel caricamento dell'elenco\r\n" + expected);
    EXPECT_EQ(rig_.messages.shown[0].style, MsgBoxStyle::Critical);
    for (const auto& shown : rig_.messages.shown) EXPECT_EQ(shown.prompt.find(rig_.Password()), std::string::npos);
    // The loop still ran over the records that could be read.
    EXPECT_GT(control().RighePiene(), 0);
    EXPECT_LT(control().RighePiene(), 15000);
    EXPECT_EQ(S().MatriceRighe.Cell(0, 1), "Name 1");
}

INSTANTIATE_TEST_SUITE_P(Engines, LoadOnBothEngines, ::testing::Values(Backend::Sqlite, Backend::Postgres),
                         [](const ::testing::TestParamInfo<Backend>& info) {
                             return info.param == Backend::Sqlite ? "Sqlite" : "Postgres";
                         });

// The same mixed records in both engines give the same cells, totals and type codes.
const char* kMixedTable =
    "CREATE TABLE mixed(id INTEGER, code VARCHAR(10), city VARCHAR(20), day DATE, price DOUBLE PRECISION,"
    " rate REAL, qty INTEGER, paid BOOLEAN, note VARCHAR(60), amount NUMERIC(12, 2), big BIGINT, at TIMESTAMP,"
    " memo VARCHAR(400));";

std::string MixedRecords() {
    const char* cities[] = {"'Milano'", "'Città di Castello'", "NULL", "'Bari'"};
    std::string script = "INSERT INTO mixed VALUES ";
    for (int i = 1; i <= 300; ++i) {
        char row[512];
        std::snprintf(row, sizeof row,
                      "%s(%d, 'C%d', %s, '20%02d-%02d-%02d', %d.%02d, %d.%d, %d, %s, 'Consegna %d entro il mese',"
                      " %d.%02d, %lld, '2021-%02d-%02d %02d:%02d:%02d', %s)",
                      i > 1 ? ", " : "", i, i % 97, cities[i % 4], i % 30, 1 + i % 12, 1 + (i * 3) % 28, i * 7, i % 100,
                      i % 50, i % 8, i % 250, i % 3 == 0 ? "NULL" : (i % 2 ? "TRUE" : "FALSE"), i, i * 11, i % 100,
                      9007199254740000LL + i, 1 + i % 12, 1 + i % 28, i % 24, i % 60, (i * 7) % 60,
                      i % 5 == 0 ? "NULL" : "'una nota lunga quanto basta'");
        script += row;
    }
    return script + ";";
}

std::map<std::string, std::string> LoadMixed(Backend backend, const SystemSettings& settings) {
    LoadRig rig(backend);
    if (!rig.Start()) return {};
    ScopedSettings scoped(settings);
    const std::string name = rig.MakeDatabase(std::string(kMixedTable) + MixedRecords());
    const char* fields[] = {"id", "code", "city", "day", "price", "rate", "qty", "paid", "note", "amount", "big",
                            "at", "memo"};
    const char* formats[] = {"Nessuno", "Nessuno", "Nessuno", "Data", "Valuta", "Single", "Numerico", "Nessuno",
                             "Nessuno", "Numerico", "", "Nessuno", "Nessuno"};
    rig.control->setCols(13);
    for (int16_t c = 0; c < 13; ++c) {
        rig.control->setCampoQuery(c, fields[c]);
        rig.control->setFormato(c, formats[c]);
    }
    rig.control->setDataBaseName(name);
    rig.control->setQueryString("SELECT * FROM mixed ORDER BY id");
    rig.control->Carica();
    std::map<std::string, std::string> seen;
    auto& s = rig.S();
    seen["records"] = std::to_string(rig.control->RighePiene());
    seen["rows"] = std::to_string(s.MatriceRighe.RowBound());
    for (int32_t r = 0; r <= s.MatriceRighe.RowBound(); ++r) {
        for (int32_t c = 0; c <= s.MatriceRighe.ColBound(); ++c) {
            char key[32];
            std::snprintf(key, sizeof key, "cell %05d %02d", r, c);
            seen[key] = std::string(s.MatriceRighe.Cell(r, c));
        }
    }
    for (size_t c = 0; c < s.TotaliColonna.size(); ++c) {
        seen["total " + std::to_string(c)] = std::to_string(s.TotaliColonna[c]);
    }
    for (size_t c = 0; c < s.columns.TipoCampoRilevato.size(); ++c) {
        seen["type " + std::to_string(c)] = s.columns.TipoCampoRilevato[c];
    }
    seen["messages"] = std::to_string(rig.messages.shown.size());
    return seen;
}

TEST(SameCellsFromBothEngines, TheSameRecordsGiveTheSameCellsTotalsAndTypesFromEitherEngine) {
    for (const SystemSettings& settings : {SystemSettings::Italian(), SystemSettings::UsEnglish()}) {
        const auto fromFile = LoadMixed(Backend::Sqlite, settings);
        const auto fromServer = LoadMixed(Backend::Postgres, settings);
        ASSERT_FALSE(fromServer.empty());
        EXPECT_EQ(fromFile.at("records"), "300");
        EXPECT_EQ(fromFile.at("messages"), "0");
        const bool dayFirst = settings.dateOrder == DateOrder::DayMonthYear;
        EXPECT_EQ(fromFile.at("cell 00000 03"), dayFirst ? "04/02/2001" : "02/04/2001");
        ASSERT_EQ(fromFile.size(), fromServer.size());
        for (const auto& [key, value] : fromFile) EXPECT_EQ(fromServer.at(key), value) << key;
        // Every kind of value is there to compare.
        EXPECT_EQ(fromFile.at("type 3"), "8");
        EXPECT_EQ(fromFile.at("type 9"), "5");
        EXPECT_EQ(fromFile.at("type 12"), "12");
    }
}

}  // namespace
}  // namespace TabulonLib12::testing
