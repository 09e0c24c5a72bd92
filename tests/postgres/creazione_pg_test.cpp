// The structure creation page on the PostgreSQL server of the tests: the sources of a server
// database listed (tables before views), columns written from a table, a view or a query by the
// server's types, and a server that cannot be reached or refuses the password told in its own
// words, without the password.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "control/tabulon12.h"
#include "pages/creazione.h"
#include "platform/ui/text_metrics.h"
#include "tests/pages/page_doubles.h"
#include "tests/postgres/pg_fixture.h"
#include "tests/support/probe.h"
#include "tests/support/test_doubles.h"

namespace TabulonLib12::testing {
namespace {

class CreazionePgTest : public PgTest {
protected:
    void SetUp() override {
        PgTest::SetUp();
        host.messages = &messages;
        host.engine = &engine_;
        host.propertyChanged = [this](const std::string& name) { notices.push_back(name); };
        control = std::make_unique<Tabulon12>(host, metrics, timers);
        control->Superficie().Resize(9000, 3225);
        control->CaricaStruttura();
        site.selected = {control.get()};
        page = std::make_unique<Creazione>(site, form.Fields(), engine_, messages);
        page->setPassword(ServerPassword());
        page->SelectionChanged();
        notices.clear();
    }
    void TearDown() override {
        page.reset();
        control.reset();
        PgTest::TearDown();
    }

    // The names of the list that stand in the search path (names of other schemas come with
    // their schema, and other tests may have some).
    std::vector<std::string> VisibleItems() const {
        std::vector<std::string> visible;
        for (const auto& item : form.ComboTabella.items)
            if (item.find('.') == std::string::npos) visible.push_back(item);
        return visible;
    }

    HeadlessTextMetrics metrics;
    ManualTimerService timers;
    RecordingMessageBox messages;
    HostServices host;
    std::vector<std::string> notices;
    std::unique_ptr<Tabulon12> control;
    CreazioneForm form;
    BasicPageSite site;
    std::unique_ptr<Creazione> page;
};

TEST_F(CreazionePgTest, OkListsTheTablesThenTheViewsOfAServerDatabase) {
    Exec("CREATE TABLE ordini(id integer, cliente text); CREATE TABLE clienti(nome text);"
         " CREATE VIEW grandi AS SELECT id FROM ordini");
    form.TextDB.text = schema_->Uri();
    form.ComboTabella.items = {"old"};
    page->DBok_Click();
    EXPECT_TRUE(messages.shown.empty()) << messages.shown[0].prompt;
    EXPECT_EQ(VisibleItems(), (std::vector<std::string>{"clienti", "ordini", "grandi"}));
    EXPECT_EQ(std::count(form.ComboTabella.items.begin(), form.ComboTabella.items.end(), "old"), 0);
}

TEST_F(CreazionePgTest, TheColumnsOfAServerTableFollowTheTypeTable) {
    Exec("CREATE TABLE t(id integer, nome text, data date, prezzo numeric(10,2), pagato boolean, n smallint,"
         " r real, d double precision, foto bytea, chiave uuid, extra jsonb)");
    page->CreaColonne(schema_->Uri(), "t");
    ASSERT_TRUE(messages.shown.empty()) << messages.shown[0].prompt;
    ASSERT_EQ(control->Cols(), 11);
    struct Expected {
        const char* field;
        int16_t width, alignment;
    };
    const Expected expected[] = {{"id", 0, 1},       {"nome", 2000, 0}, {"data", 900, 2},  {"prezzo", 1200, 1},
                                 {"pagato", 700, 0}, {"n", 700, 1},     {"r", 1200, 1},    {"d", 1200, 1},
                                 {"foto", 0, 1},     {"chiave", 0, 0},  {"extra", 2000, 0}};
    for (int16_t i = 0; i < 11; ++i) {
        EXPECT_EQ(control->CampoQuery(i), expected[i].field);
        EXPECT_EQ(control->Intestazione(i), i == 0 ? "" : expected[i].field);
        EXPECT_EQ(control->ColsWidthMemorizzata(i), expected[i].width) << expected[i].field;
        EXPECT_EQ(control->ColAlignment(i), expected[i].alignment) << expected[i].field;
    }
    EXPECT_EQ(notices.front(), "Cols");
}

TEST_F(CreazionePgTest, TheColumnsOfAViewAndOfAQueryTextOnTheServer) {
    Exec("CREATE TABLE t(id integer, nome text, data date); CREATE VIEW v AS SELECT nome, data FROM t");
    page->CreaColonne(schema_->Uri(), "v");
    EXPECT_EQ(control->Cols(), 2);
    EXPECT_EQ(control->Intestazione(1), "data");
    EXPECT_EQ(control->ColsWidthMemorizzata(1), 900);
    page->CreaColonne(schema_->Uri(), "SELECT id, nome, 1.5::float8 AS quota FROM t");
    EXPECT_EQ(control->Cols(), 3);
    EXPECT_EQ(control->Intestazione(2), "quota");
    EXPECT_EQ(control->ColsWidthMemorizzata(2), 1200);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(CreazionePgTest, ATableNameThatNeedsQuotesIsListedAndReadWhole) {
    Exec("CREATE TABLE \"Dettagli Ordine\"(riga integer, \"Articolo\" text)");
    form.TextDB.text = schema_->Uri();
    page->DBok_Click();
    ASSERT_EQ(VisibleItems(), std::vector<std::string>{"\"Dettagli Ordine\""});
    page->CreaColonne(schema_->Uri(), VisibleItems()[0]);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(control->Cols(), 2);
    EXPECT_EQ(control->Intestazione(1), "Articolo");
}

TEST_F(CreazionePgTest, AServerThatCannotBeReachedIsToldInACriticalBoxAndTheListStays) {
    // Port 1 on loopback: nothing listens there, the connection is refused at once.
    form.TextDB.text = "postgresql://tabulon@127.0.0.1:1/tabulon";
    form.ComboTabella.items = {"kept"};
    page->DBok_Click();
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].style, MsgBoxStyle::Critical);
    EXPECT_FALSE(messages.shown[0].prompt.empty());
    EXPECT_EQ(form.ComboTabella.items, std::vector<std::string>{"kept"});

    page->CreaColonne(form.TextDB.text, "t");
    EXPECT_EQ(messages.shown.size(), 2u);
    EXPECT_EQ(control->Cols(), 1);
}

TEST_F(CreazionePgTest, AWrongPasswordIsToldInTheServersWordsWithoutThePassword) {
    page->setPassword("not-the-password-xyzzy");
    form.TextDB.text = schema_->Uri();
    page->DBok_Click();
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].style, MsgBoxStyle::Critical);
    EXPECT_EQ(messages.shown[0].prompt.find("not-the-password-xyzzy"), std::string::npos);
    EXPECT_NE(messages.shown[0].prompt.find("password"), std::string::npos);
}

TEST_F(CreazionePgTest, TheServerDatabaseIsUnchangedByTheRoutines) {
    Exec("CREATE TABLE t(id integer); INSERT INTO t VALUES (1), (2)");
    form.TextDB.text = schema_->Uri();
    page->DBok_Click();
    page->CreaColonne(schema_->Uri(), "t");
    EXPECT_EQ(Admin().Scalar("SELECT count(*) FROM " + schema_->name() + ".t"), "2");
    EXPECT_EQ(control->Cols(), 1);
    EXPECT_EQ(control->CampoQuery(0), "id");
}

TEST_F(CreazionePgTest, ColumnsFromAServerTableForAHostAnswerTheQueryThatReadsIt) {
    Exec("CREATE TABLE ordini_aperti(id integer, cliente text, importo numeric(10,2))");
    const std::string query = ColumnsFromSource(*control, engine_, schema_->Uri(), "ORDINI_APERTI", ServerPassword());
    ASSERT_EQ(control->Cols(), 3);
    EXPECT_EQ(control->ColsWidthMemorizzata(2), 1200);
    EXPECT_EQ(control->ColAlignment(2), 1);
    // The query runs as it is on the same server.
    control->setDataBaseName(schema_->Uri());
    Tabulon12Probe::Of(*control).Password = ServerPassword();  // as a restored design holds it
    control->setQueryString(query);
    control->Carica();
    EXPECT_EQ(control->RighePiene(), 0);
    EXPECT_TRUE(messages.shown.empty()) << messages.shown[0].prompt;
}

TEST_F(CreazionePgTest, ColumnsFromAServerQueryWithoutFieldsAreRefusedAndTheColumnsKept) {
    Exec("CREATE TABLE t(id integer)");
    control->setCols(3);
    EXPECT_THROW(ColumnsFromSource(*control, engine_, schema_->Uri(), "SELECT FROM t", ServerPassword()), Error);
    EXPECT_EQ(control->Cols(), 3);
}

}  // namespace
}  // namespace TabulonLib12::testing
