// Which database a load uses and who closes it, the query text, the image list, and how field
// values become numbers and texts.
#include <gtest/gtest.h>

#include <fstream>

#include "grid_fixture.h"
#include "platform/runtime/settings.h"

namespace TabulonLib12::testing {
namespace {

using DataSourceTest = GridTest;

TEST_F(DataSourceTest, WithBaseDatiFromTheHostCaricaIgnoresNameAndPasswordAndLeavesItOpen) {
    const std::string path = MakeNumbered(3);
    auto hostDb = engine.real.OpenDatabase(path, OpenOptions{});
    DefineColumns();
    S().Password = "segreto";
    control->setDataBaseName(dir.File("missing.db"));
    control->setBaseDati(hostDb);
    control->setQueryString("SELECT * FROM t");
    control->Carica();
    EXPECT_EQ(engine.opens, 0);
    EXPECT_TRUE(hostDb->IsOpen());
    EXPECT_EQ(control->RighePiene(), 3);
    control->Carica();
    EXPECT_TRUE(hostDb->IsOpen());
    EXPECT_EQ(S().BaseDati, hostDb);
}

TEST_F(DataSourceTest, DataBaseNameOfAnExistingFileOpensItAndTwoLoadsReuseIt) {
    const std::string path = MakeNumbered(4);
    DefineColumns();
    control->setDataBaseName(path);
    ASSERT_EQ(engine.opens, 1);
    auto opened = S().BaseDati;
    ASSERT_TRUE(opened);
    control->setQueryString("SELECT * FROM t");
    control->Carica();
    control->Carica();
    EXPECT_EQ(engine.opens, 1);
    EXPECT_EQ(S().BaseDati, opened);
    EXPECT_TRUE(opened->IsOpen());
    EXPECT_EQ(control->RighePiene(), 4);
    EXPECT_EQ(changed, (std::vector<std::string>{"DataBaseName", "QueryString"}));
}

TEST_F(DataSourceTest, DataBaseNameOfAMissingFileOpensNothingAndShowsNothing) {
    control->setDataBaseName(dir.File("none.db"));
    EXPECT_EQ(engine.opens, 0);
    EXPECT_FALSE(S().BaseDati);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(control->DataBaseName(), dir.File("none.db"));
    EXPECT_EQ(changed, std::vector<std::string>{"DataBaseName"});
}

TEST_F(DataSourceTest, DataBaseNameWriteNeverPassesThePasswordWhileCaricaDoes) {
    const std::string path = MakeNumbered(2);
    DefineColumns();
    S().Password = "pw";
    control->setDataBaseName(path);
    ASSERT_EQ(engine.connects.size(), 1u);
    EXPECT_EQ(engine.connects[0], "");
    S().BaseDati.reset();
    control->setQueryString("SELECT * FROM t");
    control->Carica();
    ASSERT_EQ(engine.connects.size(), 2u);
    EXPECT_EQ(engine.connects[1], "; pwd=pw");
    EXPECT_TRUE(engine.readOnly[0] && engine.readOnly[1]);
}

TEST_F(DataSourceTest, DataBaseNameWriteShowsAFailedOpenInAPlainBox) {
    const std::string path = dir.File("locked.db");
    std::ofstream(path) << "exists";
    engine.failWith = "file is encrypted or is not a database";
    control->setDataBaseName(path);
    EXPECT_FALSE(S().BaseDati);
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].style, MsgBoxStyle::Plain);
    EXPECT_EQ(messages.shown[0].prompt, "file is encrypted or is not a database");
    EXPECT_EQ(changed, std::vector<std::string>{"DataBaseName"});
}

TEST_F(DataSourceTest, EmptyDataBaseNameAndNoBaseDatiShowsNessunDbDisponibile) {
    DefineColumns();
    control->setQueryString("SELECT * FROM t");
    control->Carica();
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].prompt, "Nessun DB disponibile");
    EXPECT_EQ(messages.shown[0].style, MsgBoxStyle::Critical);
    EXPECT_EQ(engine.opens, 1);  // the engine was asked and failed
    EXPECT_EQ(events.Count("Caricato"), 1);
}

TEST_F(DataSourceTest, ImageListaFoundByTheLowerCaseFormOfItsName) {
    auto form = std::make_shared<HostForm>("Form1");
    form->Add(std::make_shared<HostControl>("Command1"));
    auto list = std::make_shared<ImageList>("ImgStati");
    form->Add(list);
    control->setFormContenitore(form);
    control->setImageLista("imgstati");
    EXPECT_EQ(S().imageList.Object(), list);
    EXPECT_EQ(control->ImageLista(), "imgstati");
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(changed, std::vector<std::string>{"ImageLista"});
}

TEST_F(DataSourceTest, ImageListaLooksAtTheFormFirstThenAtTheControlsAround) {
    auto around = std::make_shared<HostForm>("container");
    auto outer = std::make_shared<ImageList>("Lista");
    around->Add(outer);
    host.parentControls = around;
    control = std::make_unique<Tabulon12>(host, metrics, timers);
    control->setImageLista("LISTA");
    EXPECT_EQ(S().imageList.Object(), outer);
    auto form = std::make_shared<HostForm>("Form1");
    auto inner = std::make_shared<ImageList>("lista");
    form->Add(inner);
    control->setFormContenitore(form);
    control->setImageLista("Lista");
    EXPECT_EQ(S().imageList.Object(), inner);
}

TEST_F(DataSourceTest, ImageListaAcceptsAnyControlOfThatName) {
    auto form = std::make_shared<HostForm>("Form1");
    auto button = std::make_shared<HostControl>("Pulsante");
    form->Add(button);
    control->setFormContenitore(form);
    control->setImageLista("pulsante");
    EXPECT_EQ(S().imageList.Object(), button);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(DataSourceTest, ImageListaNotFoundShowsTheMessageKeepsTheNameAndDoesNotNotify) {
    control->setFormContenitore(std::make_shared<HostForm>("Form1"));
    control->setImageLista("Nessuna");
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].prompt, "Nessuna ImageList valida è stata trovata!");
    EXPECT_EQ(messages.shown[0].style, MsgBoxStyle::Critical);
    EXPECT_EQ(control->ImageLista(), "Nessuna");
    EXPECT_TRUE(changed.empty());
}

TEST_F(DataSourceTest, EmptyImageListaNotifiesWithoutSearching) {
    control->setImageLista("");
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(changed, std::vector<std::string>{"ImageLista"});
}

TEST_F(DataSourceTest, QueryEffettivaAfterAHeadingSortEndsInOrderByAndDesc) {
    LoadNumbered(3);
    EXPECT_EQ(control->QueryEffettiva(), "SELECT id, name, amount FROM t ORDER BY id");
    S().band.SetOrder("amount", false);
    control->Carica(true);
    EXPECT_EQ(control->QueryEffettiva(), "SELECT id, name, amount FROM t ORDER BY id ORDER BY amount");
    EXPECT_EQ(control->RighePiene(), 0);  // the engine refuses the second ORDER BY: an empty list
    control->setQueryString("SELECT id, name, amount FROM t");
    S().band.SetOrder("amount", true);
    control->Carica(true);
    EXPECT_EQ(control->QueryEffettiva(), "SELECT id, name, amount FROM t ORDER BY amount DESC");
    EXPECT_EQ(control->QueryString(), "SELECT id, name, amount FROM t");
    EXPECT_EQ(S().MatriceRighe.Cell(0, 0), "3");
}

TEST_F(DataSourceTest, DescendingWithoutAnOrderExpressionAddsNothing) {
    EXPECT_EQ(AssembleQuery("SELECT 1", "", true), "SELECT 1");
}

TEST_F(DataSourceTest, ValoreNumericoAndValoreTesto) {
    ScopedSettings italian(SystemSettings::Italian());
    EXPECT_EQ(ValoreNumerico(Value("abc")), 0.0);
    EXPECT_EQ(ValoreNumerico(Value("12")), 12.0);
    EXPECT_EQ(ValoreNumerico(Value("")), 0.0);
    EXPECT_EQ(ValoreNumerico(Value()), 0.0);
    EXPECT_EQ(ValoreNumerico(Value("1.234,5")), 1234.5);
    EXPECT_EQ(ValoreNumerico(Value(int64_t{7})), 7.0);
    EXPECT_EQ(ValoreNumerico(Value(true)), -1.0);
    EXPECT_EQ(ValoreTesto(Value()), "");
    EXPECT_EQ(ValoreTesto(Value("")), "");
    EXPECT_EQ(ValoreTesto(Value(2.5)), "2,5");
    EXPECT_EQ(ValoreTesto(Value(int64_t{42})), "42");
}

TEST_F(DataSourceTest, PrimoValoreQueryOpensAndClosesTheDatabaseItOpened) {
    const std::string path = MakeNumbered(5);
    S().DataBaseName = path;
    EXPECT_EQ(S().PrimoValoreQuery("SELECT name FROM t WHERE id = 4"), "Name 4");
    EXPECT_FALSE(S().BaseDati);
    EXPECT_TRUE(engine.last.expired() || !engine.last.lock()->IsOpen());
    EXPECT_EQ(S().PrimoValoreQuery("SELECT name FROM t WHERE id = 99"), "");
    EXPECT_EQ(S().PrimoValoreQuery("SELECT nonsense FROM"), "");
}

TEST_F(DataSourceTest, PrimoValoreQueryWithoutADatabaseShowsNessunDb) {
    EXPECT_EQ(S().PrimoValoreQuery("SELECT 1"), "");
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].prompt, "Nessun DB disponibile");
}

}  // namespace
}  // namespace TabulonLib12::testing
