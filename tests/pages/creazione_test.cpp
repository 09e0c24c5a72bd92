// The structure creation page on real SQLite files: the control read once, the sources listed
// (tables before views, the list cleared first, a missing file silent), the columns written
// from a table, a view or a query by the type table, the properties left alone, and the engine's
// own words in a critical box for every failure.
#include <gtest/gtest.h>

#include <algorithm>

#include "pages/creazione.h"
#include "platform/db/value.h"
#include "platform/host/sequential_file.h"
#include "tests/pages/pages_fixture.h"

namespace TabulonLib12::testing {
namespace {

class CreazioneTest : public PageTest {
protected:
    void SetUp() override {
        site.selected = {control.get()};
        page = std::make_unique<Creazione>(site, form.Fields(), engine, messages);
    }

    // A database with a table of one field of each kind of the type table, a second table and a
    // view.
    std::string MakeSources() {
        return MakeDatabase(
            "CREATE TABLE ordini(id INTEGER, cliente TEXT, data DATE, importo CURRENCY, pagato BOOLEAN,"
            " quantita SMALLINT, peso REAL, sconto DOUBLE, codice TINYINT, note MEMO, foto BLOB, chiave GUID);"
            "CREATE TABLE clienti(nome VARCHAR(40), citta VARCHAR(40));"
            "CREATE VIEW grandi AS SELECT id, importo FROM ordini WHERE importo > 100;"
            "INSERT INTO ordini(id, cliente, data, importo) VALUES (1, 'Rossi', '2024-01-31', 150.5);");
    }

    CreazioneForm form;
    BasicPageSite site;
    std::unique_ptr<Creazione> page;
};

// --- Reading the control ---

TEST_F(CreazioneTest, TheFirstSelectionChangeReadsTheDatabaseAndQueryOfTheControl) {
    const std::string path = MakeSources();
    control->setDataBaseName(path);
    control->setQueryString("SELECT nome FROM clienti");
    page->SelectionChanged();
    EXPECT_TRUE(page->PaginaCaricata());
    EXPECT_EQ(page->ControlloSelezionato(), control.get());
    EXPECT_EQ(form.TextDB.text, path);
    EXPECT_EQ(form.ComboTabella.text, "SELECT nome FROM clienti");

    page->SelectionChanged();
    form.TextDB.text = "typed";
    page->LeggiControllo();
    EXPECT_EQ(form.TextDB.text, "typed");
}

TEST_F(CreazioneTest, ReadingWithNoSelectedControlFailsToTheHost) {
    site.selected.clear();
    EXPECT_THROW(page->SelectionChanged(), Error);
}

// --- Listing the sources ---

TEST_F(CreazioneTest, OkListsTheTablesThenTheViews) {
    form.TextDB.text = MakeSources();
    page->DBok_Click();
    EXPECT_EQ(form.ComboTabella.items, (std::vector<std::string>{"clienti", "ordini", "grandi"}));
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(engine.readOnly, std::vector<bool>{true});
    EXPECT_EQ(page->ControlloSelezionato(), control.get());  // taken again at the end
}

TEST_F(CreazioneTest, ASecondPressOfOkClearsTheListBeforeFillingIt) {
    form.TextDB.text = MakeSources();
    page->DBok_Click();
    page->DBok_Click();
    EXPECT_EQ(form.ComboTabella.clears, 2);
    EXPECT_EQ(form.ComboTabella.items, (std::vector<std::string>{"clienti", "ordini", "grandi"}));
}

TEST_F(CreazioneTest, OkOnAFileThatDoesNotExistLeavesTheListAsItWasAndSaysNothing) {
    form.ComboTabella.items = {"kept"};
    form.ComboTabella.text = "kept";
    form.TextDB.text = dir.File("missing.db");
    page->DBok_Click();
    EXPECT_EQ(form.ComboTabella.items, std::vector<std::string>{"kept"});
    EXPECT_EQ(form.ComboTabella.text, "kept");
    EXPECT_EQ(form.ComboTabella.clears, 0);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_TRUE(engine.names.empty());
    EXPECT_EQ(page->ControlloSelezionato(), nullptr);  // it left before taking the control
}

TEST_F(CreazioneTest, OkOnAFolderIsTakenAsAMissingFile) {
    form.ComboTabella.items = {"kept"};
    form.TextDB.text = dir.path().string();
    page->DBok_Click();
    EXPECT_EQ(form.ComboTabella.items, std::vector<std::string>{"kept"});
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(CreazioneTest, OkWithNoDatabaseOnlyTakesTheControl) {
    form.ComboTabella.items = {"kept"};
    page->DBok_Click();
    EXPECT_EQ(form.ComboTabella.items, std::vector<std::string>{"kept"});
    EXPECT_TRUE(engine.names.empty());
    EXPECT_EQ(page->ControlloSelezionato(), control.get());
}

TEST_F(CreazioneTest, OkOnAFileThatIsNoDatabaseShowsTheEnginesWordsInACriticalBox) {
    const std::string path = dir.File("notes.txt");
    WriteLines(path, {"this is no database at all, only some text that goes on for a while"});
    form.ComboTabella.items = {"kept"};
    form.TextDB.text = path;
    page->DBok_Click();
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].prompt, "file is not a database");
    EXPECT_EQ(messages.shown[0].style, MsgBoxStyle::Critical);
    EXPECT_EQ(messages.shown[0].title, "");
}

TEST_F(CreazioneTest, ThePasswordGoesToTheEngineAsItsConnectText) {
    form.TextDB.text = MakeSources();
    page->setPassword("s3cret");
    page->DBok_Click();
    page->CreaColonne(form.TextDB.text, "clienti");
    EXPECT_EQ(engine.connects, (std::vector<std::string>{"; pwd=s3cret", "; pwd=s3cret"}));
}

// --- Creating the columns ---

TEST_F(CreazioneTest, CreaWithAnEmptySourceOrAnEmptyDatabaseDoesNothing) {
    const std::string path = MakeSources();
    form.TextDB.text = path;
    form.ComboTabella.text = "";
    page->CreaBtn_Click();
    form.TextDB.text = "";
    form.ComboTabella.text = "ordini";
    page->CreaBtn_Click();
    EXPECT_TRUE(engine.names.empty());
    EXPECT_TRUE(notices.empty());
    EXPECT_EQ(control->Cols(), 1);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(CreazioneTest, ASourceOfThreeFieldsGivesThreeColumnsWithColumn0HiddenAndUnheadedWhateverItsType) {
    page->SelectionChanged();
    form.TextDB.text = MakeDatabase("CREATE TABLE t(nome TEXT, data DATE, prezzo CURRENCY);");
    control->setIntestazione(0, "old heading");
    form.TextDB.text = dir.File("test.db");
    form.ComboTabella.text = "t";
    page->CreaBtn_Click();
    EXPECT_EQ(control->Cols(), 3);
    EXPECT_EQ(control->Intestazione(0), "");
    EXPECT_EQ(control->ColsWidthMemorizzata(0), 0);
    EXPECT_EQ(control->ColAlignment(0), 0);  // Text: left, as the type says
    EXPECT_EQ(control->CampoQuery(0), "nome");
    EXPECT_EQ(control->Intestazione(1), "data");
    EXPECT_EQ(control->Intestazione(2), "prezzo");
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(CreazioneTest, DateGives900CentredTextGives2000LeftCurrencyGives1200Right) {
    page->SelectionChanged();
    form.TextDB.text = MakeDatabase("CREATE TABLE t(id INTEGER, data DATE, nome TEXT, prezzo CURRENCY);");
    page->CreaColonne(form.TextDB.text, "t");
    EXPECT_EQ(control->ColsWidthMemorizzata(1), 900);
    EXPECT_EQ(control->ColAlignment(1), 2);
    EXPECT_EQ(control->ColsWidthMemorizzata(2), 2000);
    EXPECT_EQ(control->ColAlignment(2), 0);
    EXPECT_EQ(control->ColsWidthMemorizzata(3), 1200);
    EXPECT_EQ(control->ColAlignment(3), 1);
}

TEST_F(CreazioneTest, EveryTypeOfTheTableGivesItsWidthAndAlignment) {
    page->SelectionChanged();
    form.TextDB.text = MakeSources();
    page->CreaColonne(form.TextDB.text, "ordini");
    ASSERT_EQ(control->Cols(), 12);
    struct Expected {
        const char* field;
        int16_t width, alignment;
    };
    const Expected expected[] = {{"id", 0, 1},         {"cliente", 2000, 0}, {"data", 900, 2},   {"importo", 1200, 1},
                                 {"pagato", 700, 0},   {"quantita", 700, 1}, {"peso", 1200, 1},  {"sconto", 1200, 1},
                                 {"codice", 0, 0},     {"note", 2000, 0},    {"foto", 0, 1},     {"chiave", 0, 0}};
    for (int16_t i = 0; i < 12; ++i) {
        const Expected& e = expected[i];
        EXPECT_EQ(control->CampoQuery(i), e.field);
        EXPECT_EQ(control->Ordinamento(i), e.field);
        EXPECT_EQ(control->Intestazione(i), i == 0 ? "" : e.field);
        EXPECT_EQ(control->ColsWidthMemorizzata(i), e.width) << e.field;
        EXPECT_EQ(control->ColAlignment(i), e.alignment) << e.field;
    }
}

TEST_F(CreazioneTest, TheColumnsOfAViewAndOfAQueryTextAlike) {
    page->SelectionChanged();
    form.TextDB.text = MakeSources();
    page->CreaColonne(form.TextDB.text, "GRANDI");  // names without regard to case
    EXPECT_EQ(control->Cols(), 2);
    EXPECT_EQ(control->CampoQuery(1), "importo");
    page->CreaColonne(form.TextDB.text, "SELECT nome, citta, 1 AS uno FROM clienti");
    EXPECT_EQ(control->Cols(), 3);
    EXPECT_EQ(control->Intestazione(2), "uno");
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(CreazioneTest, ATableWhoseNameNeedsQuotesIsReadWhole) {
    page->SelectionChanged();
    const std::string path = MakeDatabase("CREATE TABLE \"Dettagli \"\"ordine\"\"\"(riga INTEGER, articolo TEXT);");
    form.TextDB.text = path;
    page->DBok_Click();
    ASSERT_EQ(form.ComboTabella.items, std::vector<std::string>{"Dettagli \"ordine\""});
    page->CreaColonne(path, form.ComboTabella.items[0]);
    EXPECT_EQ(control->Cols(), 2);
    EXPECT_EQ(control->Intestazione(1), "articolo");
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(CreazioneTest, TheSettersRunInTheirOrderForEachField) {
    page->SelectionChanged();
    form.TextDB.text = MakeDatabase("CREATE TABLE t(a TEXT, b INTEGER);");
    notices.clear();
    page->CreaColonne(form.TextDB.text, "t");
    std::vector<std::string> expected = {"Cols"};
    for (int i = 0; i < 2; ++i) {
        for (const char* name : {"Intestazione", "ColsWidth", "Ordinamento", "CampoQuery", "ImmagineA", "ImmagineB",
                                 "OperatoreCondizionale", "ColAlignment", "ToolTT", "IsIperText", "IperTextIndex",
                                 "ColonnaOpzionale", "MostraTotCol", "MostraBarraVert"})
            expected.emplace_back(name);
    }
    EXPECT_EQ(notices, expected);
}

TEST_F(CreazioneTest, TheWrittenPropertiesAreResetAndTheOthersKeptForAColumnThatExisted) {
    control->setCols(2);
    control->setFormato(1, "Valuta");
    control->setCondizione(1, "5");
    control->setKeyID(1, "k");
    control->setToolTTvero(1, "v");
    control->setToolTTfalso(1, "f");
    control->setTestoScelta(1, "scelta");
    control->setBackColorCol(1, 0x0000FF);
    control->setColonnaForeColor(1, 3);
    control->setColonnaImmagine(1, 4);
    control->setImmagineA(1, 7);
    control->setImmagineB(1, 8);
    control->setOperatoreCondizionale(1, "<");
    control->setToolTT(1, "tip");
    control->setIsIperText(1, 1);
    control->setIperTextIndex(1, 2);
    control->setColonnaOpzionale(1, 1);
    control->setMostraTotCol(1, 1);
    control->setMostraBarraVert(1, true);
    control->setDataBaseName("elsewhere.db");
    control->setQueryString("SELECT 1");
    page->SelectionChanged();
    form.TextDB.text = MakeDatabase("CREATE TABLE t(a TEXT, b INTEGER, c TEXT);");
    form.TextDB.text = dir.File("test.db");
    notices.clear();
    page->CreaColonne(form.TextDB.text, "t");

    EXPECT_EQ(control->Formato(1), "Valuta");
    EXPECT_EQ(control->Condizione(1), "5");
    EXPECT_EQ(control->KeyID(1), "k");
    EXPECT_EQ(control->ToolTTvero(1), "v");
    EXPECT_EQ(control->ToolTTfalso(1), "f");
    EXPECT_EQ(control->TestoScelta(1), "scelta");
    EXPECT_EQ(control->BackColorCol(1), 0x0000FFu);
    EXPECT_EQ(control->ColonnaForeColor(1), 3);
    EXPECT_EQ(control->ColonnaImmagine(1), 4);
    EXPECT_EQ(control->ImmagineA(1), 0);
    EXPECT_EQ(control->ImmagineB(1), 0);
    EXPECT_EQ(control->OperatoreCondizionale(1), "");
    EXPECT_EQ(control->ToolTT(1), "");
    EXPECT_EQ(control->IsIperText(1), 0);
    EXPECT_EQ(control->IperTextIndex(1), 0);
    EXPECT_EQ(control->ColonnaOpzionale(1), 0);
    EXPECT_EQ(control->MostraTotCol(1), 0);
    EXPECT_FALSE(control->MostraBarraVert(1));
    // The new column takes what a write of Cols gives it: no format yet.
    EXPECT_EQ(control->Formato(2), "");
    EXPECT_EQ(control->DataBaseName(), "elsewhere.db");
    EXPECT_EQ(control->QueryString(), "SELECT 1");
    EXPECT_EQ(std::count(notices.begin(), notices.end(), "DataBaseName"), 0);
    EXPECT_EQ(std::count(notices.begin(), notices.end(), "QueryString"), 0);
    EXPECT_EQ(std::count(notices.begin(), notices.end(), "Formato"), 0);
    EXPECT_FALSE(site.Changed());
}

TEST_F(CreazioneTest, AFailedOpenShowsOneMessageInTheEnginesWordsAndKeepsTheColumns) {
    control->setCols(4);
    page->SelectionChanged();
    notices.clear();
    page->CreaColonne(dir.File("missing.db"), "t");
    EXPECT_EQ(control->Cols(), 4);
    EXPECT_TRUE(notices.empty());
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].prompt, "unable to open database file");
    EXPECT_EQ(messages.shown[0].style, MsgBoxStyle::Critical);
}

TEST_F(CreazioneTest, ASourceThatDoesNotExistIsToldInTheEnginesWords) {
    page->SelectionChanged();
    form.TextDB.text = MakeSources();
    page->CreaColonne(form.TextDB.text, "nessuna");
    EXPECT_EQ(control->Cols(), 1);
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_NE(messages.shown[0].prompt.find("nessuna"), std::string::npos);
    EXPECT_EQ(messages.shown[0].style, MsgBoxStyle::Critical);
}

TEST_F(CreazioneTest, CreatingWithNoControlTellsTheMissingObjectOnce) {
    form.TextDB.text = MakeSources();
    page->CreaColonne(form.TextDB.text, "clienti");
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].prompt, Error::MissingObject().description());
}

TEST_F(CreazioneTest, TheDatabaseIsClosedAtTheEndOfEachRoutine) {
    page->SelectionChanged();
    form.TextDB.text = MakeSources();
    page->DBok_Click();
    page->CreaColonne(form.TextDB.text, "ordini");
    // With no handle left, the file can be replaced at once.
    std::filesystem::remove(form.TextDB.text);
    EXPECT_FALSE(Exists(form.TextDB.text));
    EXPECT_EQ(engine.names.size(), 2u);
}

TEST_F(CreazioneTest, TheNewStructureShowsAtTheNextStructureBuild) {
    page->SelectionChanged();
    form.TextDB.text = MakeSources();
    page->CreaColonne(form.TextDB.text, "clienti");
    control->CaricaStruttura();
    EXPECT_EQ(control->ColsWidth(1), 2000);
    EXPECT_EQ(control->ColsWidth(0), 0);
}

// --- The type table ---

TEST(TypeTable, WidthsAndAlignmentsByTypeAndZeroForTheFirstField) {
    EXPECT_EQ(LarghezzaPerTipo(1, FieldType::Boolean), 700);
    EXPECT_EQ(LarghezzaPerTipo(1, FieldType::Byte), 0);
    EXPECT_EQ(LarghezzaPerTipo(1, FieldType::Integer), 700);
    EXPECT_EQ(LarghezzaPerTipo(1, FieldType::Long), 1200);
    EXPECT_EQ(LarghezzaPerTipo(1, FieldType::Currency), 1200);
    EXPECT_EQ(LarghezzaPerTipo(1, FieldType::Single), 1200);
    EXPECT_EQ(LarghezzaPerTipo(1, FieldType::Double), 1200);
    EXPECT_EQ(LarghezzaPerTipo(1, FieldType::Date), 900);
    EXPECT_EQ(LarghezzaPerTipo(1, FieldType::Text), 2000);
    EXPECT_EQ(LarghezzaPerTipo(1, FieldType::LongBinary), 0);
    EXPECT_EQ(LarghezzaPerTipo(1, FieldType::Memo), 2000);
    EXPECT_EQ(LarghezzaPerTipo(1, FieldType::Guid), 0);
    EXPECT_EQ(LarghezzaPerTipo(1, 9), 0);
    EXPECT_EQ(LarghezzaPerTipo(1, -1), 0);
    for (int16_t type : {FieldType::Text, FieldType::Date, FieldType::Currency, int16_t{99}})
        EXPECT_EQ(LarghezzaPerTipo(0, type), 0);

    EXPECT_EQ(AllineamentoPerTipo(FieldType::Boolean), 0);
    EXPECT_EQ(AllineamentoPerTipo(FieldType::Byte), 0);
    EXPECT_EQ(AllineamentoPerTipo(FieldType::Integer), 1);
    EXPECT_EQ(AllineamentoPerTipo(FieldType::Long), 1);
    EXPECT_EQ(AllineamentoPerTipo(FieldType::Currency), 1);
    EXPECT_EQ(AllineamentoPerTipo(FieldType::Single), 1);
    EXPECT_EQ(AllineamentoPerTipo(FieldType::Double), 1);
    EXPECT_EQ(AllineamentoPerTipo(FieldType::Date), 2);
    EXPECT_EQ(AllineamentoPerTipo(FieldType::Text), 0);
    EXPECT_EQ(AllineamentoPerTipo(FieldType::LongBinary), 1);
    EXPECT_EQ(AllineamentoPerTipo(FieldType::Memo), 0);
    EXPECT_EQ(AllineamentoPerTipo(FieldType::Guid), 0);
    EXPECT_EQ(AllineamentoPerTipo(13), 0);
}

TEST_F(CreazioneTest, FileEsisteAnswersForFilesOnly) {
    const std::string path = MakeSources();
    EXPECT_TRUE(FileEsiste(path));
    EXPECT_FALSE(FileEsiste(dir.File("missing.db")));
    EXPECT_FALSE(FileEsiste(dir.path().string()));
    EXPECT_FALSE(FileEsiste(""));
}

// --- The host's way: ColumnsFromSource ---

TEST_F(CreazioneTest, ColumnsFromATableNameWriteWhatCreaWritesAndAnswerTheQueryThatReadsIt) {
    const std::string path = MakeSources();
    control->setCols(2);
    control->setFormato(1, "Valuta");
    const std::string query = ColumnsFromSource(*control, engine, path, "CLIENTI");
    EXPECT_EQ(query, "SELECT * FROM \"clienti\"");
    ASSERT_EQ(control->Cols(), 2);
    EXPECT_EQ(control->Intestazione(0), "");
    EXPECT_EQ(control->ColsWidthMemorizzata(0), 0);
    EXPECT_EQ(control->Intestazione(1), "citta");
    EXPECT_EQ(control->CampoQuery(1), "citta");
    EXPECT_EQ(control->Ordinamento(1), "citta");
    EXPECT_EQ(control->ColsWidthMemorizzata(1), 2000);
    EXPECT_EQ(control->ColAlignment(1), 0);
    EXPECT_EQ(control->Formato(1), "Valuta");  // kept, as the page keeps it
    EXPECT_EQ(control->DataBaseName(), "");      // the host's to set
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(CreazioneTest, TheQueryOfASourceReadsATableOrViewWholeAndTakesAnyOtherTextAsItIs) {
    const std::string path = MakeSources();
    EXPECT_EQ(SourceQuery(engine, path, "Grandi"), "SELECT * FROM \"grandi\"");
    EXPECT_EQ(SourceQuery(engine, path, "SELECT nome FROM clienti"), "SELECT nome FROM clienti");
    EXPECT_EQ(control->Cols(), 1);
    EXPECT_THROW(SourceQuery(engine, "/etc/passwd", "t"), Error);
    // The database is closed again: the file can go at once.
    std::filesystem::remove(path);
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(CreazioneTest, ColumnsFromAQueryTextRunTheTextAsItIs) {
    const std::string path = MakeSources();
    const std::string text = "SELECT cliente, importo, data FROM ordini ORDER BY data";
    EXPECT_EQ(ColumnsFromSource(*control, engine, path, text), text);
    ASSERT_EQ(control->Cols(), 3);
    EXPECT_EQ(control->ColsWidthMemorizzata(1), 1200);
    EXPECT_EQ(control->ColAlignment(1), 1);
    EXPECT_EQ(control->ColsWidthMemorizzata(2), 900);
    EXPECT_EQ(control->ColAlignment(2), 2);
}

TEST_F(CreazioneTest, ColumnsFromASourceGiveNewColumnsAFormatByTheirFieldsType) {
    const std::string path = MakeSources();
    control->setCols(2);
    control->setFormato(1, "Numerico");
    ColumnsFromSource(*control, engine, path, "SELECT id, cliente, data, importo, quantita FROM ordini");
    EXPECT_EQ(control->Formato(0), "Nessuno");   // a new instance's column 0
    EXPECT_EQ(control->Formato(1), "Numerico");  // a column's own format is kept
    EXPECT_EQ(control->Formato(2), "Data");
    EXPECT_EQ(control->Formato(3), "Valuta");
    EXPECT_EQ(control->Formato(4), "Nessuno");
}

TEST_F(CreazioneTest, ColumnsFromABadQueryThrowTheEnginesWordsAndLeaveTheColumns) {
    const std::string path = MakeSources();
    control->setCols(4);
    control->setIntestazione(2, "kept");
    try {
        ColumnsFromSource(*control, engine, path, "SELECT nessuno FROM ordini");
        FAIL() << "a query over a missing field made columns";
    } catch (const Error& e) {
        EXPECT_EQ(e.kind(), ErrorKind::Database);
        EXPECT_NE(e.description().find("nessuno"), std::string::npos) << e.description();
    }
    EXPECT_EQ(control->Cols(), 4);
    EXPECT_EQ(control->Intestazione(2), "kept");
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(CreazioneTest, ColumnsFromAFileThatIsNoDatabaseThrowAndShowNothing) {
    EXPECT_THROW(ColumnsFromSource(*control, engine, "/etc/passwd", "t"), Error);
    EXPECT_EQ(control->Cols(), 1);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(CreazioneTest, ColumnsFromAStatementThatReadsNothingAreRefusedAndTheColumnsKept) {
    const std::string path = MakeSources();
    control->setCols(3);
    EXPECT_THROW(ColumnsFromSource(*control, engine, path, "UPDATE clienti SET nome = nome"), Error);
    EXPECT_EQ(control->Cols(), 3);
}

}  // namespace
}  // namespace TabulonLib12::testing
