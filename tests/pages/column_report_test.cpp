// The column report: its exact bytes for the working table, appended report after report, with
// empty cells and left-out cells, written from the table and not from the fields, and silent
// where the folder cannot take it.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "pages/column_report.h"
#include "pages/page_cells.h"
#include "platform/host/sequential_file.h"
#include "tests/pages/pages_fixture.h"

namespace TabulonLib12::testing {
namespace {

std::string FileText(const std::string& path) {
    const auto bytes = ReadBytes(path);
    return std::string(bytes.begin(), bytes.end());
}

// The 23 lines of a column and nothing after them, each with CR LF.
std::string ColumnBlock(int i, const std::vector<std::string>& v) {
    const char* literals[] = {" Intestazione: ",  " colswidth: ",  " Ordinamento: ",    " Formato: ",
                              " CampoQuery: ",    " Condizione: ", " ImmagineA: ",      " ImmagineB: ",
                              " Operatore Condizionale: ", " Allineamento: ", " Tool Tip text: ", " Key ID: ",
                              " Ipertext: ",      " Index iperText: ", " TTT true: ",   " TTT false: ",
                              " Scelta Opzionale: ", " Colonna Forecolor: ", " Mostra Totale: ",
                              " Colonna Immagine: ", " Testo scelta: "};
    std::string text = "****** Colonna N\xC2\xB0 " + std::to_string(i) + " ********************\r\n";
    for (size_t k = 0; k < std::size(literals); ++k) text += std::string(literals[k]) + v[k] + "\r\n";
    return text + "\r\n";
}
const char* kEnd = "****** FINE ********************\r\n";

class ColumnReportTest : public CampiTest {
protected:
    std::string ReportPath() const { return PercorsoRapporto(dir.path().string()); }
};

TEST_F(ColumnReportTest, ATableOfOneColumnGives23LinesAndTheClosingLine) {
    control->setIntestazione(0, "Codice");
    control->setColsWidth(0, 1500);
    control->setColAlignment(0, 2);
    control->setKeyID(0, "id");
    page->SelectionChanged();
    page->StampaBtn_Click();

    const std::string expected =
        ColumnBlock(0, {"Codice", "1500", "", "Nessuno", "", "", "0", "0", "", "Centro", "", "id", "0", "0", "", "", "0",
                        "0", "0", "0", ""}) +
        kEnd;
    EXPECT_EQ(FileText(ReportPath()), expected);
    const auto lines = ReadLines(ReportPath());
    EXPECT_EQ(lines.size(), 24u);
}

TEST_F(ColumnReportTest, TheReportFileIsNamedTabulon09LogInTheFolder) {
    page->SelectionChanged();
    page->StampaBtn_Click();
    EXPECT_EQ(dir.Entries(), (std::vector<std::string>{"Tabulon09.log"}));
}

TEST_F(ColumnReportTest, TwoReportsInARowLeaveBothInTheFile) {
    DefineColumns(2);
    page->SelectionChanged();
    page->StampaBtn_Click();
    const std::string first = FileText(ReportPath());
    page->StampaBtn_Click();
    EXPECT_EQ(FileText(ReportPath()), first + first);
    const auto lines = ReadLines(ReportPath());
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "****** FINE ********************"), 2);
    EXPECT_EQ(lines.back(), "****** FINE ********************");
    EXPECT_EQ(lines[2 * 23], "****** FINE ********************");
}

TEST_F(ColumnReportTest, AReportAppendsToWhatTheFileHeld) {
    WriteLines(ReportPath(), {"an earlier line"});
    page->SelectionChanged();
    page->StampaBtn_Click();
    const std::string text = FileText(ReportPath());
    EXPECT_EQ(text.rfind("an earlier line\r\n****** Colonna N\xC2\xB0 0 ", 0), 0u);
}

TEST_F(ColumnReportTest, AnEmptyCellGivesTheLiteralAloneWithItsTrailingBlank) {
    page->SelectionChanged();
    page->StampaBtn_Click();
    const auto lines = ReadLines(ReportPath());
    EXPECT_EQ(lines[1], " Intestazione: ");
    EXPECT_EQ(lines[3], " Ordinamento: ");
    EXPECT_EQ(lines[21], " Testo scelta: ");
}

TEST_F(ColumnReportTest, EachColumnIsNumberedAndTheAlignmentIsItsWord) {
    DefineColumns(3);
    control->setColAlignment(1, 1);
    page->SelectionChanged();
    page->StampaBtn_Click();
    const auto lines = ReadLines(ReportPath());
    ASSERT_EQ(lines.size(), 3u * 23u + 1u);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(lines[static_cast<size_t>(23 * i)], "****** Colonna N\xC2\xB0 " + std::to_string(i) + " ********************");
        EXPECT_EQ(lines[static_cast<size_t>(23 * i + 1)], " Intestazione: H" + std::to_string(i));
        EXPECT_EQ(lines[static_cast<size_t>(23 * i + 22)], "");
    }
    EXPECT_EQ(lines[23 + 10], " Allineamento: Destra");
    EXPECT_EQ(lines[10], " Allineamento: Sinistra");
}

TEST_F(ColumnReportTest, TheBackColourAndTheVerticalLineAreLeftOut) {
    control->setBackColorCol(0, 0x654321);
    control->setMostraBarraVert(0, true);
    page->SelectionChanged();
    page->StampaBtn_Click();
    const std::string text = FileText(ReportPath());
    EXPECT_EQ(text.find(std::to_string(0x654321)), std::string::npos);
    EXPECT_EQ(text.find("True"), std::string::npos);
    EXPECT_EQ(text.find("Back"), std::string::npos);
}

TEST_F(ColumnReportTest, WhatIsTypedInTheColumnOnShowIsNotInTheReportUntilItIsLeft) {
    DefineColumns(2);
    page->SelectionChanged();
    form.Text2.text = "typed";
    page->StampaBtn_Click();
    EXPECT_EQ(ReadLines(ReportPath())[1], " Intestazione: H0");
    Navigate(1);
    page->StampaBtn_Click();
    EXPECT_EQ(ReadLines(ReportPath())[47 + 1], " Intestazione: typed");
}

TEST_F(ColumnReportTest, AFolderThatIsMissingTakesNoReportAndSaysNothing) {
    const std::string missing = dir.File("no-such-folder");
    page->setCartellaRapporto(missing);
    page->SelectionChanged();
    EXPECT_NO_THROW(page->StampaBtn_Click());
    EXPECT_FALSE(Exists(missing));
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ColumnReportTest, AFolderThatIsAFileTakesNoReportAndSaysNothing) {
    const std::string file = dir.File("plain.txt");
    WriteLines(file, {"x"});
    page->setCartellaRapporto(file);
    page->SelectionChanged();
    EXPECT_NO_THROW(page->StampaBtn_Click());
    EXPECT_EQ(FileText(file), "x\r\n");
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ColumnReportTest, AFolderWithoutWritePermissionTakesNoReportAndSaysNothing) {
    // /proc takes no new file whoever asks, root included.
    page->setCartellaRapporto("/proc");
    page->SelectionChanged();
    EXPECT_NO_THROW(page->StampaBtn_Click());
    EXPECT_FALSE(Exists("/proc/Tabulon09.log"));
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(page->FG().Rows(), 1);
}

TEST_F(ColumnReportTest, AReadOnlyFolderTakesNoReportForAnOrdinaryUser) {
    const std::filesystem::path locked = dir.path() / "locked";
    std::filesystem::create_directory(locked);
    std::filesystem::permissions(locked, std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    page->setCartellaRapporto(locked.string());
    page->SelectionChanged();
    EXPECT_NO_THROW(page->StampaBtn_Click());
    // The superuser writes anywhere; anyone else gets no file.
    EXPECT_EQ(Exists((locked / "Tabulon09.log").string()), geteuid() == 0);
    EXPECT_TRUE(messages.shown.empty());
    std::filesystem::permissions(locked, std::filesystem::perms::owner_all);
}

TEST_F(ColumnReportTest, TheLinesOfTheTableAreThoseWritten) {
    DefineColumns(2);
    page->SelectionChanged();
    page->StampaBtn_Click();
    EXPECT_EQ(ReadLines(ReportPath()), RigheRapporto(page->FG()));
}

TEST(ColumnReportFolder, TheDefaultIsTheHomeFolderOrTheWorkingFolder) {
    const char* saved = std::getenv("HOME");
    const std::string home = saved != nullptr ? saved : "";
    setenv("HOME", "/some/home", 1);
    EXPECT_EQ(CartellaRapportoPredefinita(), "/some/home");
    EXPECT_EQ(PercorsoRapporto(CartellaRapportoPredefinita()), "/some/home/Tabulon09.log");
    unsetenv("HOME");
    EXPECT_EQ(CartellaRapportoPredefinita(), "");
    EXPECT_EQ(PercorsoRapporto(""), "Tabulon09.log");
    if (saved != nullptr) setenv("HOME", home.c_str(), 1);
}

TEST_F(CampiTest, ANewPageReportsIntoTheHomeFolderByDefault) {
    BasicPageSite other;
    CampiForm otherForm;
    Campi fresh(other, otherForm.Fields());
    EXPECT_EQ(fresh.CartellaRapporto(), CartellaRapportoPredefinita());
}

}  // namespace
}  // namespace TabulonLib12::testing
