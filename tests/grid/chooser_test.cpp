// The column chooser on real files: the panel of boxes for the optional columns, the choice
// written, replaced and removed, the file read back at every load whatever it holds, and the
// two checks that stop an apply.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <filesystem>
#include <fstream>

#include "grid_fixture.h"

namespace TabulonLib12::testing {
namespace {

constexpr const char* kPathMessage = "Percorso del file di salvataggio impostazioni colonne non valido.";
constexpr const char* kWidthMessage =
    "Le impostazioni correnti selezionano colonne che verrebbero nascoste completamente o in parte in quanto "
    "troppo larghe. Selezionare meno colonne.";

std::string Bytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

void Write(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

// Five columns of 1000 twips, unscaled, over a table of five fields: column 1, 3 and 4 are
// optional (ColonnaOpzionale 1), column 2 has the value 2, which the chooser does not count.
class ChooserTest : public GridTest {
protected:
    void SetUp() override {
        const std::string path = MakeDatabase(
            "CREATE TABLE t(id INTEGER, a TEXT, b TEXT, c TEXT, d TEXT);"
            "INSERT INTO t VALUES(1, 'a1', 'b1', 'c1', 'd1'), (2, 'a2', 'b2', 'c2', 'd2');");
        control->setAdattamentoColonneDisattivato(true);
        control->setCols(5);
        const char* fields[] = {"id", "a", "b", "c", "d"};
        const uint8_t optional[] = {0, 1, 2, 1, 1};
        for (int16_t c = 0; c < 5; ++c) {
            control->setCampoQuery(c, fields[c]);
            control->setFormato(c, "Nessuno");
            control->setIntestazione(c, std::string("Heading ") + fields[c]);
            control->setTestoScelta(c, std::string("Show ") + fields[c]);
            control->setBackColorCol(c, 0x101010u * static_cast<Colour>(c + 1));
            control->setColonnaOpzionale(c, optional[c]);
        }
        control->setConsentiSceltaColonne(true);
        control->setFileScelta(choiceFile);
        control->setDataBaseName(path);
        control->setQueryString("SELECT * FROM t");
        control->Carica();
        events.names.clear();
        changed.clear();
    }

    PictureBox& Button() { return *S().elements.ImageTools; }
    Frame& Panel() { return *S().elements.FrameSceltaColonne; }
    CheckBox& Box(int16_t k) { return FindElement<CheckBox>(S().surface, "CheckScelta", k); }
    int CountBoxes() {
        int n = 0;
        while (FindElementIn(S().surface, "CheckScelta", static_cast<int16_t>(n))) ++n;
        return n;
    }
    void Click() { Button().HandleClick(); }
    // A load that reads the file again; its events are forgotten.
    void Reload() {
        control->Carica();
        events.names.clear();
    }
    const std::string& Chosen() { return S().chooser.ColonneScelte(); }
    bool Hidden(int16_t c) { return FG1().ColWidth(c) == 0 && Menu(c).Caption().empty(); }

    const std::string choiceFile = dir.File("scelta.txt");
};

TEST_F(ChooserTest, TheButtonShowsWhileTheChooserIsAllowedAndTellsItsPurpose) {
    EXPECT_TRUE(Button().Visible());
    EXPECT_EQ(Button().ToolTipText(), "Scelta colonne da visualizzare");
    control->setConsentiSceltaColonne(false);
    EXPECT_FALSE(Button().Visible());
    EXPECT_FALSE(control->ConsentiSceltaColonne());
    EXPECT_EQ(changed, (std::vector<std::string>{"ConsentiSceltaColonne"}));
}

TEST_F(ChooserTest, TheButtonStandsLeftOfTheScrollBarInFrontOfEverything) {
    EXPECT_EQ(Button().Left(), S().VS1.Left() - 15);
    // The front of the windowed layer, which is drawn over every label, picture and shape.
    const auto& children = S().surface.Children();
    const auto front = std::find_if(children.rbegin(), children.rend(), [](Element* e) { return !e->IsGraphical(); });
    ASSERT_NE(front, children.rend());
    EXPECT_EQ(*front, &Button()) << (*front)->Name();
}

TEST_F(ChooserTest, AClickOpensThePanelWithABoxForEachOptionalColumn) {
    Click();
    ASSERT_TRUE(Panel().Visible());
    EXPECT_EQ(Panel().Left(), Button().Left() - 2955);
    EXPECT_EQ(Panel().Width(), 2955);
    EXPECT_EQ(Panel().Top(), 135);
    EXPECT_EQ(Panel().Height(), 3 * 225 + 15);
    ASSERT_EQ(CountBoxes(), 3);
    const int16_t columns[] = {1, 3, 4};
    const char* captions[] = {"Show a", "Show c", "Show d"};
    for (int16_t k = 0; k < 3; ++k) {
        CheckBox& box = Box(k);
        EXPECT_EQ(box.Tag(), std::to_string(columns[k]));
        EXPECT_EQ(box.Caption(), captions[k]);
        EXPECT_EQ(box.BackColor(), 0x101010u * static_cast<Colour>(columns[k] + 1));
        EXPECT_EQ(box.Value(), 1);
        EXPECT_TRUE(box.Visible());
        EXPECT_EQ(box.Left(), 15);
        EXPECT_EQ(box.Top(), k * 225 + 15);
        EXPECT_EQ(box.Width(), 2925);
        EXPECT_EQ(box.Height(), 210);
        EXPECT_EQ(box.Container(), &Panel());
    }
    EXPECT_TRUE(events.names.empty()) << "opening loads nothing";
}

TEST_F(ChooserTest, AHiddenColumnsBoxIsUnticked) {
    Write(choiceFile, "3\r\n");
    control->Carica();
    Click();
    EXPECT_EQ(Box(0).Value(), 1);
    EXPECT_EQ(Box(1).Value(), 0);
    EXPECT_EQ(Box(2).Value(), 1);
}

TEST_F(ChooserTest, UntickingEveryOptionalColumnWritesTheirIndicesAndHidesThem) {
    Click();
    for (int16_t k = 0; k < 3; ++k) Box(k).HandleClick();
    Click();
    EXPECT_FALSE(Panel().Visible());
    EXPECT_EQ(Bytes(choiceFile), "1,3,4\r\n");
    EXPECT_EQ(Chosen(), "1,3,4");
    for (int16_t c : {1, 3, 4}) {
        EXPECT_TRUE(Hidden(c)) << c;
        EXPECT_EQ(control->ColsWidth(c), 0) << "a hidden column reads 0";
    }
    EXPECT_FALSE(Hidden(2));
    EXPECT_EQ(FG1().ColWidth(2), 1000);
    EXPECT_EQ(Menu(2).Caption(), "Heading b");
    EXPECT_EQ(events.Count("Caricato"), 1) << "the list is loaded again";
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ChooserTest, TheFileListsTheHiddenColumnsInTheOrderOfTheBoxes) {
    Click();
    Box(2).HandleClick();
    Box(0).HandleClick();
    Click();
    const std::string expected{'1', ',', '4', '\x0D', '\x0A'};
    EXPECT_EQ(Bytes(choiceFile), expected);
}

TEST_F(ChooserTest, TickingEveryBoxRemovesTheFileAndWritesNone) {
    Write(choiceFile, "1,4\r\n");
    control->Carica();
    ASSERT_TRUE(Hidden(1));
    Click();
    Box(0).HandleClick();
    Box(2).HandleClick();
    Click();
    EXPECT_FALSE(std::filesystem::exists(choiceFile));
    EXPECT_EQ(Chosen(), "");
    EXPECT_FALSE(Hidden(1));
    EXPECT_FALSE(Hidden(4));
    EXPECT_EQ(FG1().ColWidth(4), 1000);
}

TEST_F(ChooserTest, ANewChoiceReplacesTheOldFileWhole) {
    Write(choiceFile, "1\r\n3\r\n4\r\n");
    control->Carica();
    Click();
    Box(0).HandleClick();  // 1 unticked too; 4 stays unticked and 3 ticked
    Click();
    EXPECT_EQ(Bytes(choiceFile), "1,4\r\n");
    EXPECT_FALSE(std::filesystem::exists(choiceFile + ".tmp"));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()), {}), 2) << "the database and the file";
}

TEST_F(ChooserTest, AnotherOpeningRemovesTheBoxesOfTheLastOne) {
    Click();
    Click();
    control->setColonnaOpzionale(1, 0);
    control->setColonnaOpzionale(3, 0);
    Click();
    EXPECT_EQ(CountBoxes(), 1);
    EXPECT_EQ(Box(0).Tag(), "4");
    EXPECT_EQ(Panel().Height(), 240);
}

TEST_F(ChooserTest, WithNoOptionalColumnThePanelIsFifteenTwipsHighAndItemZeroKeepsItsLastText) {
    Click();
    Click();
    for (int16_t c : {1, 3, 4}) control->setColonnaOpzionale(c, 0);
    Click();
    EXPECT_EQ(Panel().Height(), 15);
    EXPECT_EQ(CountBoxes(), 1);
    EXPECT_EQ(Box(0).Caption(), "Show a");
    Click();
    EXPECT_FALSE(std::filesystem::exists(choiceFile));
}

TEST_F(ChooserTest, AnEmptyPathTellsThePathMessageAndLosesTheChoice) {
    control->setFileScelta("");
    Click();
    Box(0).HandleClick();
    Click();
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].prompt, kPathMessage);
    EXPECT_EQ(messages.shown[0].style, 16);
    EXPECT_EQ(messages.shown[0].title, "");
    EXPECT_FALSE(Panel().Visible());
    EXPECT_EQ(Chosen(), "");
    EXPECT_FALSE(Hidden(1));
    EXPECT_EQ(events.Count("Caricato"), 0);
}

// The widths of what stays shown against the control's width less 260 twips: the control is
// 9000 wide, so 8740 passes and 8741 fails.
TEST_F(ChooserTest, ChosenColumnsExactlyAsWideAsTheRoomPass) {
    control->setColsWidth(0, 8740 - 3 * 1000);
    Click();
    Box(1).HandleClick();  // column 3 hidden: 0, 1, 2 and 4 stay, with 2 counted though not optional
    Click();
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(Chosen(), "3");
}

TEST_F(ChooserTest, ChosenColumnsOneTwipTooWideAreRefusedAndNothingIsSaved) {
    Write(choiceFile, "4\r\n");
    Reload();
    control->setColsWidth(0, 8741 - 3 * 1000);
    Click();
    Box(1).HandleClick();  // hides 3
    Box(2).HandleClick();  // shows 4
    Click();
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].prompt, kWidthMessage);
    EXPECT_EQ(messages.shown[0].style, 16);
    EXPECT_EQ(messages.shown[0].title, "Errore");
    EXPECT_FALSE(Panel().Visible());
    EXPECT_EQ(Bytes(choiceFile), "4\r\n");
    EXPECT_EQ(Chosen(), "4");
    EXPECT_EQ(events.Count("Caricato"), 0);
    Click();  // the saved state again
    EXPECT_EQ(Box(1).Value(), 1);
    EXPECT_EQ(Box(2).Value(), 0);
}

TEST_F(ChooserTest, TheCheckCountsTheDesignedWidthsNotTheScaledOnes) {
    control->setAdattamentoColonneDisattivato(false);
    control->Superficie().Resize(4500, kTenRowHeight);  // half the width: every column at 500
    Click();
    Click();  // the designed 5000 passes 9000 - 260 but not 4500 - 260
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].prompt, kWidthMessage);
}

// ---- what the file holds at a load ----

struct FileCase {
    const char* name;
    std::string bytes;
    std::string chosen;
};

class ChooserFileTest : public ChooserTest, public ::testing::WithParamInterface<FileCase> {};

TEST_P(ChooserFileTest, TheLastLineReadIsTheChoice) {
    Write(choiceFile, GetParam().bytes);
    control->Carica();
    EXPECT_EQ(Chosen(), GetParam().chosen);
    for (int16_t c = 1; c < 5; ++c)
        EXPECT_EQ(Hidden(c), ListHolds(GetParam().chosen, std::to_string(c))) << "column " << c;
}

INSTANTIATE_TEST_SUITE_P(
    Files, ChooserFileTest,
    ::testing::Values(FileCase{"TwoLines", "1\r\n2,3\r\n", "2,3"}, FileCase{"LineFeedsOnly", "1\n3,4\n", "3,4"},
                      FileCase{"NoLineEndAtTheEnd", "4\r\n1,3", "1,3"}, FileCase{"OneLine", "2\r\n", "2"},
                      FileCase{"Empty", "", ""}, FileCase{"BlankLast", "1,3\r\n\r\n", ""},
                      FileCase{"NotUtf8", std::string("\xFF\xFE" "1,3\r\n", 7), "\xFF\xFE" "1,3"},
                      FileCase{"NulInside", std::string("4\r\n1\0,3\r\n", 9), std::string("1\0,3", 4)}),
    [](const ::testing::TestParamInfo<FileCase>& info) { return info.param.name; });

TEST_F(ChooserTest, ANonOptionalColumnNamedInTheFileIsHiddenAndHasNoBox) {
    Write(choiceFile, "2\r\n");
    control->Carica();
    EXPECT_TRUE(Hidden(2));
    Click();
    for (int16_t k = 0; k < CountBoxes(); ++k) EXPECT_NE(Box(k).Tag(), "2");
}

TEST_F(ChooserTest, AMegabyteOfLinesEndsWithTheLastOne) {
    std::string bytes;
    while (bytes.size() < 1'000'000) bytes += "1,2,3\r\n";
    bytes += "4\r\n";
    Write(choiceFile, bytes);
    control->Carica();
    EXPECT_EQ(Chosen(), "4");
    EXPECT_TRUE(Hidden(4));
    EXPECT_FALSE(Hidden(1));
}

TEST_F(ChooserTest, AMissingFileOrAFolderOrAPipeHidesNothingAndShowsNothing) {
    control->setFileScelta(dir.File("missing.txt"));
    control->Carica();
    EXPECT_EQ(Chosen(), "");
    std::filesystem::create_directory(dir.File("folder"));
    control->setFileScelta(dir.File("folder"));
    control->Carica();
    EXPECT_EQ(Chosen(), "");
    ASSERT_EQ(mkfifo(dir.File("pipe").c_str(), 0600), 0);
    control->setFileScelta(dir.File("pipe"));
    control->Carica();  // never waits for a writer
    EXPECT_EQ(Chosen(), "");
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ChooserTest, AChoiceThatCannotBeWrittenKeepsTheOldOneAndSaysWhy) {
    Write(choiceFile, "4\r\n");
    Reload();
    for (const std::string target : {dir.File("no/such/folder/scelta.txt"), std::string("/dev/full"),
                                     std::string("/proc/tabulon_scelta.txt")}) {
        messages.shown.clear();
        control->setFileScelta(target);
        Click();
        Box(0).HandleClick();
        Click();
        ASSERT_EQ(messages.shown.size(), 1u) << target;
        EXPECT_NE(messages.shown[0].prompt.find(target), std::string::npos) << messages.shown[0].prompt;
        EXPECT_EQ(messages.shown[0].style, 16);
        EXPECT_EQ(Chosen(), "4") << "the choice of the last load stays";
        EXPECT_TRUE(Hidden(4));
        EXPECT_FALSE(Hidden(1));
    }
    EXPECT_FALSE(std::filesystem::exists(dir.File("no")));
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
    EXPECT_EQ(events.Count("Caricato"), 0);
}

TEST_F(ChooserTest, RemovingAFolderInPlaceOfTheFileIsNeverTried) {
    std::filesystem::create_directory(dir.File("folder"));
    control->setFileScelta(dir.File("folder"));
    Click();
    Click();  // every box ticked: no file is wanted
    EXPECT_TRUE(std::filesystem::is_directory(dir.File("folder")));
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ChooserTest, TheChoiceOutlivesTheListThatMadeIt) {
    Click();
    Box(2).HandleClick();
    Click();
    control.reset();
    Tabulon12 next(host, metrics, timers);
    next.Superficie().Resize(9000, kTenRowHeight);
    next.setCols(5);
    for (int16_t c = 0; c < 5; ++c) next.setFormato(c, "Nessuno");
    next.setFileScelta(choiceFile);
    next.setDataBaseName(dir.File("test.db"));
    next.setQueryString("SELECT * FROM t");
    next.Carica();
    EXPECT_EQ(next.ColsWidth(4), 0);
    EXPECT_EQ(next.ColsWidth(3), 1000);
}

}  // namespace
}  // namespace TabulonLib12::testing
