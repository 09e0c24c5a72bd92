// A form file as a host opens it: which list it shows, a database named beside the form, and a
// save that keeps the name relative while it names the same file.
#include <gtest/gtest.h>

#include <filesystem>

#include "gui_test_support.h"
#include "tests/db/sqlite_fixture.h"
#include "widgets/form_document.h"
#include "widgets/tabulon12_widget.h"

namespace TabulonLib12::GuiTest {
namespace {

namespace fs = std::filesystem;

std::string StoredDatabase(const FormFile& form, const std::string& control) {
    return std::get<std::string>(form.Properties(control).ReadProperty("DataBaseName", std::string()));
}

class FormDocumentTest : public ::testing::Test {
protected:
    void SetUp() override {
        fs::create_directories(dir.File("progetto"));
        database = dir.File("progetto/negozi.db");
        testing::WriteDatabase(database,
                               "CREATE TABLE n(id INTEGER, nome TEXT);"
                               "INSERT INTO n VALUES (1, 'Centro'), (2, 'Porto'), (3, 'Stazione'), (4, 'Fiera');");
        FormFile form("Negozi");
        form.AddOrReplace(FormControl("Barra", "Scorrix"));
        MemoryPropertyBag design;
        design.Set("Cols", int16_t{2});
        design.Set("Intestazione1", std::string("Negozio"));
        design.Set("CampoQuery0", std::string("id"));
        design.Set("CampoQuery1", std::string("nome"));
        design.Set("DataBaseName", std::string("negozi.db"));
        design.Set("QueryString", std::string("SELECT id, nome FROM n ORDER BY id"));
        form.AddOrReplace(FormControl("ListaNegozi", "Tabulon12", design));
        form.AddOrReplace(FormControl("ListaVuota", "Tabulon12"));
        path = dir.File("progetto/negozi.form.json");
        form.Save(path);
    }

    testing::TempDir dir;
    std::string database;
    std::string path;
};

TEST_F(FormDocumentTest, WithoutANameTheFirstListOfTheFormIsOpened) {
    const FormDocument document = FormDocument::Open(path);
    EXPECT_EQ(document.ControlName(), "ListaNegozi");
    EXPECT_TRUE(document.HasDesign());
    EXPECT_EQ(FormDocument::Open(path, "listavuota").ControlName(), "ListaVuota");
}

TEST_F(FormDocumentTest, AControlTheFormDoesNotHoldOrThatIsNoListIsRefusedByName) {
    for (const char* name : {"Ordini", "Barra"}) {
        try {
            FormDocument::Open(path, name);
            FAIL() << name << " was opened as a list";
        } catch (const Error& e) {
            EXPECT_EQ(e.number(), 380);
            EXPECT_NE(e.description().find(name), std::string::npos) << e.description();
            EXPECT_NE(e.description().find(path), std::string::npos) << e.description();
        }
    }
    FormFile noList("Vuoto");
    noList.Save(dir.File("vuoto.form.json"));
    EXPECT_THROW(FormDocument::Open(dir.File("vuoto.form.json")), Error);
}

TEST_F(FormDocumentTest, AMissingFormFileFailsWithTheLoadersError) {
    try {
        FormDocument::Open(dir.File("nessuno.form.json"));
        FAIL() << "a missing file was opened";
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), 53);
    }
}

TEST_F(FormDocumentTest, ARelativeDatabaseIsFoundBesideTheFormWhateverTheWorkingFolder) {
    const FormDocument document = FormDocument::Open(path);
    const MemoryPropertyBag design = document.DesignForHost();
    EXPECT_EQ(std::get<std::string>(design.ReadProperty("DataBaseName", std::string())), database);
    Tabulon12Widget::Services services;
    services.saved = &design;
    Tabulon12Widget list(services);
    list.resize(500, 300);
    list.Control().Carica();
    EXPECT_EQ(list.Control().RighePiene(), 4);
    EXPECT_EQ(list.Control().TextMatrix(3, 1), "Fiera");
}

TEST_F(FormDocumentTest, SavingKeepsTheRelativeNameWhileTheControlNamesThatFile) {
    FormDocument document = FormDocument::Open(path);
    const MemoryPropertyBag design = document.DesignForHost();
    Tabulon12Widget::Services services;
    services.saved = &design;
    Tabulon12Widget list(services);
    list.Control().setIntestazione(1, "Punto vendita");
    document.Save(list);
    const FormFile saved = FormFile::Load(path);
    EXPECT_EQ(StoredDatabase(saved, "ListaNegozi"), "negozi.db");
    EXPECT_EQ(std::get<std::string>(saved.Properties("ListaNegozi").ReadProperty("Intestazione1", std::string())),
              "Punto vendita");
    EXPECT_EQ(saved.ControlNames(), (std::vector<std::string>{"Barra", "ListaNegozi", "ListaVuota"}));
    EXPECT_TRUE(saved == document.Form());

    // Named another file, the control's name is saved as it is.
    const std::string other = dir.File("altro.db");
    testing::WriteDatabase(other, "CREATE TABLE n(id INTEGER, nome TEXT);");
    list.Control().setDataBaseName(other);
    document.Save(list);
    EXPECT_EQ(StoredDatabase(FormFile::Load(path), "ListaNegozi"), other);
}

TEST_F(FormDocumentTest, SavedIntoAnotherFolderTheDatabaseIsNamedInFull) {
    FormDocument document = FormDocument::Open(path);
    const MemoryPropertyBag design = document.DesignForHost();
    Tabulon12Widget::Services services;
    services.saved = &design;
    Tabulon12Widget list(services);
    const std::string elsewhere = dir.File("copia.form.json");
    document.Save(list, elsewhere);
    EXPECT_EQ(document.Path(), elsewhere);
    EXPECT_EQ(StoredDatabase(FormFile::Load(elsewhere), "ListaNegozi"), database);
    EXPECT_EQ(StoredDatabase(FormFile::Load(path), "ListaNegozi"), "negozi.db");  // the first file untouched
}

TEST_F(FormDocumentTest, AServerNameIsKeptAsItIs) {
    FormFile form = FormFile::Load(path);
    form.Properties("ListaNegozi").Set("DataBaseName", std::string("postgresql://negozi@127.0.0.1:1/negozi"));
    form.Save(path);
    const FormDocument document = FormDocument::Open(path);
    EXPECT_EQ(std::get<std::string>(document.DesignForHost().ReadProperty("DataBaseName", std::string())),
              "postgresql://negozi@127.0.0.1:1/negozi");
}

TEST_F(FormDocumentTest, AFailedSaveLeavesTheFileAndTheDocumentAsTheyWere) {
    FormDocument document = FormDocument::Open(path);
    const std::string before = ReadAll(path);
    const FormFile formBefore = document.Form();
    Tabulon12Widget list;
    list.Control().setCols(5);
    EXPECT_THROW(document.Save(list, "/dev/full"), Error);
    EXPECT_THROW(document.Save(list, dir.File("manca/negozi.form.json")), Error);
    EXPECT_EQ(document.Path(), path);
    EXPECT_TRUE(document.Form() == formBefore);
    EXPECT_EQ(ReadAll(path), before);
}

TEST_F(FormDocumentTest, ANewFormHasNoDesignUntilItsFirstSave) {
    FormDocument document(dir.File("nuovo.form.json"), "Nuovo", "Lista1");
    EXPECT_FALSE(document.HasDesign());
    EXPECT_TRUE(document.DesignForHost().Values().empty());
    Tabulon12Widget list;
    list.Control().setCols(3);
    document.Save(list);
    EXPECT_TRUE(document.HasDesign());
    const FormFile saved = FormFile::Load(dir.File("nuovo.form.json"));
    EXPECT_EQ(saved.FormName(), "Nuovo");
    EXPECT_EQ(std::get<int16_t>(saved.Properties("Lista1").ReadProperty("Cols", int16_t{1})), 3);
}

}  // namespace
}  // namespace TabulonLib12::GuiTest
