// Carica: the row store bounds, the scroll range, the window painted, the totals, the detected
// field types, the choice-file quirk and the failure table.
#include <gtest/gtest.h>

#include <fstream>

#include "grid_fixture.h"
#include "platform/runtime/settings.h"

namespace TabulonLib12::testing {
namespace {

using LoadTest = GridTest;

TEST_F(LoadTest, TheFixtureSurfaceHasTenRows) {
    EXPECT_EQ(control->MinRows(), 10);
    EXPECT_EQ(FG1().Rows(), 10);
}

TEST_F(LoadTest, AnEmptyQueryReturnsAtOnceWithoutCaricato) {
    const std::string path = MakeNumbered(3);
    control->setDataBaseName(path);
    control->Carica();
    EXPECT_EQ(events.Count("Caricato"), 0);
    EXPECT_EQ(control->RighePiene(), 0);
    EXPECT_TRUE(screen.history.empty());
    EXPECT_EQ(control->QueryEffettiva(), "");
}

TEST_F(LoadTest, AQueryWithNoRecordsGivesAnEmptyStoreOfMinRowsAndRaisesCaricato) {
    control->setTestoCount("Righe:");
    LoadNumbered(0);
    EXPECT_EQ(control->Rows(), 10);
    EXPECT_EQ(S().MatriceRighe.ColBound(), 3);
    EXPECT_EQ(control->RighePiene(), 0);
    EXPECT_FALSE(S().VS1.Enabled());
    EXPECT_EQ(events.Count("Caricato"), 1);
    EXPECT_EQ(S().elements.LabelCount->Caption(), "Righe: 0");
    EXPECT_TRUE(S().elements.LabelCount->Visible());
}

TEST_F(LoadTest, LabelCountIsHiddenWithoutTestoCount) {
    LoadNumbered(4);
    EXPECT_EQ(S().elements.LabelCount->Caption(), " 4");
    EXPECT_FALSE(S().elements.LabelCount->Visible());
}

TEST_F(LoadTest, ExactlyMinRowsRecordsEnableTheBarWithMaxZero) {
    LoadNumbered(10);
    EXPECT_EQ(control->RighePiene(), 10);
    EXPECT_EQ(control->Rows(), 10);
    EXPECT_TRUE(S().VS1.Enabled());
    EXPECT_EQ(S().VS1.Min(), 0);
    EXPECT_EQ(S().VS1.Max(), 0);
}

TEST_F(LoadTest, FewerRecordsThanMinRowsKeepAStoreOfMinRowsAndDisableTheBar) {
    LoadNumbered(4);
    EXPECT_EQ(control->Rows(), 10);
    EXPECT_EQ(control->RighePiene(), 4);
    EXPECT_FALSE(S().VS1.Enabled());
    EXPECT_EQ(FG1().TextMatrix(3, 1), "Name 4");
    EXPECT_EQ(FG1().TextMatrix(4, 1), "");
    EXPECT_TRUE(S().MatriceRighe.IsEmpty(4, 0));
}

TEST_F(LoadTest, MoreRecordsThanMinRowsGiveAStoreOfOneRowMore) {
    LoadNumbered(100);
    EXPECT_EQ(control->Rows(), 100);
    EXPECT_EQ(control->RighePiene(), 100);
    EXPECT_EQ(S().VS1.Max(), 90);
    EXPECT_EQ(S().MatriceRighe.Cell(99, 0), "100");
    EXPECT_TRUE(S().MatriceRighe.IsEmpty(100, 0));
    EXPECT_EQ(FG1().TextMatrix(0, 0), "1");
    EXPECT_EQ(FG1().TextMatrix(9, 1), "Name 10");
}

TEST_F(LoadTest, WithMinRowsPlusFiveRecordsAndValueFiveTheLastRowShowsRecordMinRowsPlusFour) {
    LoadNumbered(15);
    int32_t five = 5;
    S().VS1.setValue(five);
    control->Carica(true);
    EXPECT_EQ(S().VS1.Value(), 5);
    EXPECT_EQ(FG1().TextMatrix(9, 0), "15");  // record MinRows + 4, counted from 0
    EXPECT_EQ(FG1().TextMatrix(0, 0), "6");
}

TEST_F(LoadTest, SoloRefreshKeepsTheScrollPositionWhileRighePieneIsNotBelowRows) {
    LoadNumbered(40);
    int32_t seven = 7;
    S().VS1.setValue(seven);
    control->Carica(true);
    EXPECT_EQ(S().VS1.Value(), 7);
    EXPECT_EQ(FG1().TextMatrix(0, 0), "8");
}

TEST_F(LoadTest, SoloRefreshReturnsToTheTopWhenFewerRecordsThanRowsCome) {
    LoadNumbered(40);
    int32_t seven = 7;
    S().VS1.setValue(seven);
    control->setQueryString("SELECT id, name, amount FROM t WHERE id <= 5");
    control->Carica(true);
    EXPECT_EQ(S().VS1.Value(), 0);
    EXPECT_EQ(FG1().TextMatrix(0, 0), "1");
}

TEST_F(LoadTest, AChangedQueryWithoutSoloRefreshReturnsToTheTop) {
    LoadNumbered(40);
    int32_t seven = 7;
    S().VS1.setValue(seven);
    control->setQueryString("SELECT id, name, amount FROM t WHERE id > 2 ORDER BY id");
    control->Carica();
    EXPECT_EQ(S().VS1.Value(), 0);
    EXPECT_EQ(FG1().TextMatrix(0, 0), "3");
    EXPECT_EQ(S().UltimaQueryCaricata, "SELECT id, name, amount FROM t WHERE id > 2 ORDER BY id");
}

TEST_F(LoadTest, AnUnchangedQueryKeepsTheScrollValueButClearsTheSurface) {
    LoadNumbered(40);
    int32_t seven = 7;
    S().VS1.setValue(seven);
    FG1().setRow(0);
    FG1().setCol(0);
    FG1().setCellBackColor(0x00FF00);
    control->Carica();
    EXPECT_EQ(S().VS1.Value(), 7);
    EXPECT_EQ(FG1().TextMatrix(0, 0), "8");
    FG1().setRow(0);
    FG1().setCol(0);
    EXPECT_EQ(FG1().CellBackColor(), 0xFFFFFFu);  // recoloured from BackColorCol after the clear
}

TEST_F(LoadTest, SoloRefreshKeepsTheImageListAndTheLastFullQuery) {
    LoadNumbered(3);
    auto form = std::make_shared<HostForm>("Form1");
    auto list = std::make_shared<ImageList>("lista");
    form->Add(list);
    control->setFormContenitore(form);
    S().ImageLista = "lista";
    control->setQueryString("SELECT id, name, amount FROM t WHERE id = 1");
    control->Carica(true);
    EXPECT_FALSE(S().imageList.Object());
    EXPECT_EQ(S().UltimaQueryCaricata, "SELECT id, name, amount FROM t ORDER BY id");
    control->Carica();
    EXPECT_EQ(S().imageList.Object(), list);
    EXPECT_EQ(S().UltimaQueryCaricata, "SELECT id, name, amount FROM t WHERE id = 1");
}

TEST_F(LoadTest, ADatabaseOpenedByTheLoadIsClosedAtTheEndOfEachLoad) {
    const std::string path = MakeNumbered(3);
    DefineColumns();
    S().DataBaseName = path;  // named, not opened by the write
    control->setQueryString("SELECT * FROM t");
    control->Carica();
    EXPECT_EQ(engine.opens, 1);
    EXPECT_FALSE(S().BaseDati);
    EXPECT_TRUE(engine.last.expired() || !engine.last.lock()->IsOpen());
    control->Carica();
    EXPECT_EQ(engine.opens, 2);
    EXPECT_EQ(control->RighePiene(), 3);
}

TEST_F(LoadTest, PublicClearBlanksTheSurfaceWhileTheStoreStillAnswers) {
    LoadNumbered(20);
    control->Clear();
    EXPECT_EQ(FG1().TextMatrix(0, 0), "");
    EXPECT_EQ(FG1().TextMatrix(5, 1), "");
    EXPECT_EQ(control->Rows(), 20);
    EXPECT_EQ(control->RighePiene(), 20);
    EXPECT_EQ(S().MatriceRighe.Cell(5, 1), "Name 6");
    S().RiempiFinestraRighe(false);  // the next scroll repaints from the store
    EXPECT_EQ(FG1().TextMatrix(5, 1), "Name 6");
}

TEST_F(LoadTest, ThePointerShowsTheHourglassDuringTheLoad) {
    LoadNumbered(3);
    EXPECT_EQ(screen.history, (std::vector<int16_t>{11, 0}));
    EXPECT_TRUE(S().elements.Shape2->Enabled());
}

TEST_F(LoadTest, CaricatoComesAfterTheFlagIsDownSoTheHostMayLoadAgain) {
    const std::string path = MakeNumbered(12);
    DefineColumns();
    control->setDataBaseName(path);
    control->setQueryString("SELECT id, name, amount FROM t ORDER BY id");
    int calls = 0;
    events.onCaricato = [&] {
        EXPECT_FALSE(S().CaricamentoInCorso);
        if (++calls == 1) {
            control->setQueryString("SELECT id, name, amount FROM t WHERE id > 10");
            control->Carica();
        }
    };
    control->Carica();
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(control->RighePiene(), 2);
}

TEST_F(LoadTest, CaricamentoInCorsoHoldsDuringTheLoad) {
    const std::string path = MakeNumbered(30);
    DefineColumns();
    control->setDataBaseName(path);
    control->setQueryString("SELECT id, name, amount FROM t");
    bool seenLoading = false;
    FG1().onEnterCell = [&](CellGrid&) { seenLoading = seenLoading || S().CaricamentoInCorso; };
    control->Carica();
    EXPECT_TRUE(seenLoading);
    EXPECT_FALSE(S().CaricamentoInCorso);
}

TEST_F(LoadTest, TipoCampoRilevatoComesFromTheFirstRecordAndStaysWithoutRecords) {
    MakeDatabase(
        "CREATE TABLE t(id INTEGER, name VARCHAR(50), amount DOUBLE, d DATE, b BOOLEAN, m MEMO);"
        "INSERT INTO t VALUES(1, 'a', 1.5, '2024-02-29', 1, 'long');");
    control->setCols(6);
    const char* fields[] = {"id", "name", "amount", "d", "b", "m"};
    for (int16_t c = 0; c < 6; ++c) control->setCampoQuery(c, fields[c]);
    control->setDataBaseName(dir.File("test.db"));
    control->setQueryString("SELECT * FROM t");
    control->Carica();
    EXPECT_EQ(S().columns.TipoCampoRilevato, (std::vector<std::string>{"4", "10", "7", "8", "1", "12"}));
    control->setQueryString("SELECT * FROM t WHERE 0");
    control->Carica();
    EXPECT_EQ(S().columns.TipoCampoRilevato[0], "4");
}

TEST_F(LoadTest, TotalsSumEveryValueRoundedHalfToEvenOnlyForSummedFormats) {
    MakeDatabase(
        "CREATE TABLE t(a DOUBLE, b DOUBLE, c DOUBLE, d TEXT, e DOUBLE, f DOUBLE);"
        "INSERT INTO t VALUES(0.125, 0.00005, 1, '2,5', 3, 0.005);"
        "INSERT INTO t VALUES(0.375, 0.00015, 2, 'abc', 4, 0.015);");
    ScopedSettings italian(SystemSettings::Italian());
    control->setCols(6);
    const char* fields[] = {"a", "b", "c", "d", "e", "f"};
    const char* formats[] = {"Valuta", "Numeri_4_Dec", "Data", "Numerico", "", "Single"};
    for (int16_t c = 0; c < 6; ++c) {
        control->setCampoQuery(c, fields[c]);
        control->setFormato(c, formats[c]);
    }
    control->setDataBaseName(dir.File("test.db"));
    control->setQueryString("SELECT * FROM t");
    control->Carica();
    ASSERT_EQ(S().TotaliColonna.size(), 6u);
    EXPECT_FLOAT_EQ(S().TotaliColonna[0], 0.12f + 0.38f);     // 0.125 -> 0.12, 0.375 -> 0.38
    EXPECT_FLOAT_EQ(S().TotaliColonna[1], 0.0f + 0.0002f);    // 0.00005 -> 0.0000, 0.00015 -> 0.0002
    EXPECT_FLOAT_EQ(S().TotaliColonna[2], 0.0f);              // dates are not summed
    EXPECT_FLOAT_EQ(S().TotaliColonna[3], 2.5f);              // a numeric text counts, abc is 0
    EXPECT_FLOAT_EQ(S().TotaliColonna[4], 7.0f);              // an empty format is summed too
    EXPECT_FLOAT_EQ(S().TotaliColonna[5], 0.0f + 0.02f);      // 0.005 -> 0.00, 0.015 -> 0.02
}

TEST_F(LoadTest, CellsHoldTheEngineTextUnderTheSystemSettings) {
    ScopedSettings italian(SystemSettings::Italian());
    LoadNumbered(3);
    EXPECT_EQ(S().MatriceRighe.Cell(0, 2), "1,5");
    EXPECT_EQ(S().MatriceRighe.Cell(1, 2), "3");
    EXPECT_EQ(S().MatriceRighe.Cell(2, 1), "Name 3");
}

TEST_F(LoadTest, TheLoadLeavesTheMarkerColumnEmptyAndResetsTheSelection) {
    LoadNumbered(12);
    control->SelezionaRiga(4);
    ASSERT_EQ(control->IndiceSelezionato(), 5);
    S().MatriceRighe.SetCell(2, 3, "1");
    control->Carica();
    EXPECT_EQ(control->IndiceSelezionato(), -1);
    EXPECT_EQ(S().selection.IndiceRigaAttiva(), -1);
    EXPECT_TRUE(S().MatriceRighe.IsEmpty(2, 3));
}

TEST_F(LoadTest, TheRecordCounterBlanksTheHeadingOfTheSameNumberInTheChoiceList) {
    const std::string choice = dir.File("scelta.txt");
    std::ofstream(choice) << "first line\r\n3,5\r\n";
    control->setCols(2);
    control->setCampoQuery(0, "id");
    control->setFormato(0, "Nessuno");
    for (int16_t i : {int16_t{3}, int16_t{4}, int16_t{5}, int16_t{6}}) Tabulon12Probe::Captions(*control).Load(i).setCaption("H");
    control->setFileScelta(choice);
    control->setDataBaseName(MakeNumbered(4));
    control->setQueryString("SELECT id FROM t");
    control->Carica();
    EXPECT_EQ(S().chooser.ColonneScelte(), "3,5");
    EXPECT_EQ(Menu(3).Caption(), "");   // record 3 blanked heading 3
    EXPECT_EQ(Menu(4).Caption(), "H");
    EXPECT_EQ(Menu(5).Caption(), "H");  // only four records: no fifth
    EXPECT_EQ(control->RighePiene(), 4);
}

TEST_F(LoadTest, AHiddenColumnOfTheChoiceFileGetsWidthZeroAtTheLoad) {
    const std::string choice = dir.File("scelta.txt");
    std::ofstream(choice) << "1\n";
    control->setFileScelta(choice);
    LoadNumbered(3);
    EXPECT_EQ(FG1().ColWidth(1), 0);
    EXPECT_EQ(control->ColsWidth(1), 0);
    EXPECT_EQ(S().columns.ColsWidth[1], 1000);
    EXPECT_EQ(FG1().TextMatrix(0, 1), "");  // a hidden column shows no text
    EXPECT_EQ(S().MatriceRighe.Cell(0, 1), "Name 1");
}

// --- the failure table ---

TEST_F(LoadTest, NoDatabaseKeepsTheOldStoreAndStillCountsPointsAndRaisesCaricato) {
    LoadNumbered(12);
    S().BaseDati.reset();
    S().DataBaseName = dir.File("gone.db");
    control->setTestoCount("N:");
    screen.history.clear();
    messages.shown.clear();
    int32_t two = 2;
    S().VS1.setValue(two);
    control->Carica(true);
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].prompt, "Nessun DB disponibile");
    EXPECT_EQ(messages.shown[0].style, MsgBoxStyle::Critical);
    EXPECT_EQ(control->RighePiene(), 12);
    EXPECT_EQ(S().MatriceRighe.Cell(11, 1), "Name 12");
    EXPECT_EQ(S().VS1.Max(), 2);
    EXPECT_EQ(S().VS1.Value(), 2);
    EXPECT_EQ(S().elements.LabelCount->Caption(), "N: 12");
    EXPECT_EQ(screen.history, (std::vector<int16_t>{11, 0}));
    EXPECT_EQ(events.Count("Caricato"), 2);
}

TEST_F(LoadTest, AQueryThatFailsToOpenGivesAnEmptyListInSilence) {
    LoadNumbered(12);
    messages.shown.clear();
    control->setQueryString("SELECT nothing FROM nowhere");
    control->Carica();
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(control->RighePiene(), 0);
    EXPECT_EQ(control->Rows(), 10);
    EXPECT_TRUE(S().MatriceRighe.IsEmpty(0, 0));
    EXPECT_EQ(FG1().TextMatrix(0, 0), "");
    EXPECT_EQ(events.Count("Caricato"), 2);
}

TEST_F(LoadTest, AnUnknownFieldNameLeavesItsCellsEmptyAndTheOthersLoadInSilence) {
    ScopedSettings c(SystemSettings::C());
    LoadNumbered(0);
    control->setCampoQuery(1, "no_such_field");
    MakeNumbered(3, "other.db");
    control->setDataBaseName(dir.File("other.db"));
    control->Carica();
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(control->RighePiene(), 3);
    EXPECT_EQ(S().MatriceRighe.Cell(2, 0), "3");
    EXPECT_TRUE(S().MatriceRighe.IsEmpty(2, 1));
    EXPECT_EQ(S().MatriceRighe.Cell(2, 2), "4.5");
}

// A database whose recordsets fail to count, for the message of the load.
class BrokenCountDatabase : public Database {
public:
    explicit BrokenCountDatabase(std::shared_ptr<Database> real) : real_(std::move(real)) {}
    std::unique_ptr<Recordset> OpenRecordset(const std::string& query) override {
        class Rs : public Recordset {
        public:
            explicit Rs(std::unique_ptr<Recordset> r) : r_(std::move(r)) {}
            int32_t RecordCount() override { return r_->RecordCount(); }
            void MoveFirst() override { r_->MoveFirst(); }
            void MoveLast() override { throw Error(ErrorKind::Database, 3021, "Impossibile contare i record"); }
            void MoveNext() override { r_->MoveNext(); }
            bool IsEOF() const override { return r_->IsEOF(); }
            int FieldCount() const override { return r_->FieldCount(); }
            std::string FieldName(int i) const override { return r_->FieldName(i); }
            int FieldIndex(std::string_view n) const override { return r_->FieldIndex(n); }
            int16_t FieldType(int i) const override { return r_->FieldType(i); }
            Value FieldValue(int i) const override { return r_->FieldValue(i); }
            void AppendFieldText(int i, std::string& out) const override { r_->AppendFieldText(i, out); }
            bool FieldIsNull(int i) const override { return r_->FieldIsNull(i); }
            void Close() override { r_->Close(); }

        private:
            std::unique_ptr<Recordset> r_;
        };
        return std::make_unique<Rs>(real_->OpenRecordset(query));
    }
    std::vector<std::string> TableNames() override { return real_->TableNames(); }
    std::vector<std::string> QueryNames() override { return real_->QueryNames(); }
    std::string Name() const override { return real_->Name(); }
    void Close() override { real_->Close(); }
    bool IsOpen() const override { return real_->IsOpen(); }

private:
    std::shared_ptr<Database> real_;
};

TEST_F(LoadTest, ACountingFailureShowsTheLoadMessageAndTheLoopStillRuns) {
    const std::string path = MakeNumbered(4);
    DefineColumns();
    control->setBaseDati(std::make_shared<BrokenCountDatabase>(engine.real.OpenDatabase(path, OpenOptions{})));
    control->setQueryString("SELECT id, name, amount FROM t ORDER BY id");
    control->Carica();
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].prompt, "Errore nel caricamento dell'elenco\r\nImpossibile contare i record");
    EXPECT_EQ(messages.shown[0].style, MsgBoxStyle::Critical);
    EXPECT_EQ(control->RighePiene(), 4);
    EXPECT_EQ(S().MatriceRighe.Cell(3, 1), "Name 4");
}

TEST_F(LoadTest, AnErrorLeftAtTheVeryEndIsShownInAPlainBox) {
    const std::string path = MakeNumbered(2);
    DefineColumns();
    control->setDataBaseName(path);
    control->setQueryString("SELECT * FROM t");
    events.onCaricato = [] { throw Error(ErrorKind::InvalidValue, 5, "Chiamata di routine non valida"); };
    control->Carica();
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].prompt, "Chiamata di routine non valida");
    EXPECT_EQ(messages.shown[0].style, MsgBoxStyle::Plain);
}

}  // namespace
}  // namespace TabulonLib12::testing
