// The event layer over the cells: hit tests at the last mouse position, the tooltip for cut
// text and for condition columns, hyperlink cells and the hand, picture cells, the selection
// that clicks and drags make, and the host's events of the surface with their arguments.
#include <gtest/gtest.h>

#include "grid_fixture.h"

namespace TabulonLib12::testing {
namespace {

constexpr float kRow = 240;  // a row of the surface with the headless metrics
constexpr float kChar = 105;  // a character of the measuring label

// Records every event of the surface with its arguments, and lets a test change them.
struct MouseEvents : EventRecorder {
    void Click() override { names.push_back("Click"); }
    void DblClick() override { names.push_back("DblClick"); }
    void EnterCell() override { names.push_back("EnterCell"); }
    void LeaveCell() override { names.push_back("LeaveCell"); }
    void MouseDown(int16_t& b, int16_t&, float& x, float& y) override {
        names.push_back("MouseDown");
        lastButton = b, lastX = x, lastY = y;
    }
    void MouseUp(int16_t&, int16_t&, float&, float&) override { names.push_back("MouseUp"); }
    void MouseMove(int16_t&, int16_t&, float& x, float& y) override {
        names.push_back("MouseMove");
        lastX = x, lastY = y;
    }
    void CellClick(int32_t& r, int16_t& c) override { Cell("CellClick", r, c); }
    void CellDblClick(int32_t& r, int16_t& c) override { Cell("CellDblClick", r, c); }
    void CellRightClick(int32_t& r, int16_t& c) override { Cell("CellRightClick", r, c); }
    void CellMouseMove(int32_t& r, int16_t& c) override { Cell("CellMouseMove", r, c); }
    void IperTextClick(int32_t& r, int16_t& c, int32_t& id, std::string& text) override {
        Cell("IperTextClick", r, c);
        linkId = id;
        linkText = text;
        if (newId) id = *newId;
        if (newText) text = *newText;
    }
    void KeyDown(int16_t& k, int16_t&) override {
        names.push_back("KeyDown");
        lastKey = k;
    }
    void Cell(const std::string& name, int32_t r, int16_t c) {
        names.push_back(name);
        cells.push_back({name, r, c});
    }
    struct CellEvent {
        std::string name;
        int32_t row;
        int16_t column;
    };
    CellEvent Last(const std::string& name) const {
        for (auto it = cells.rbegin(); it != cells.rend(); ++it)
            if (it->name == name) return *it;
        return {"", -99, -99};
    }
    std::vector<CellEvent> cells;
    int16_t lastButton = 0, lastKey = 0;
    float lastX = 0, lastY = 0;
    int32_t linkId = 0;
    std::string linkText;
    std::optional<int32_t> newId;
    std::optional<std::string> newText;
};

class MouseTest : public GridTest {
protected:
    MouseTest() { control->setEvents(&mouse); }

    // Columns id (600 twips), name (1050: ten characters fit) and amount (900), unscaled, over
    // `n` numbered records.
    void Load(int n) {
        control->setAdattamentoColonneDisattivato(true);
        LoadNumbered(n);
        control->setColsWidth(0, 600);
        control->setColsWidth(1, 1050);
        control->setColsWidth(2, 900);
        control->Carica();
    }
    // The mouse at grid twips (x, y), with `buttons` held.
    void Move(float x, float y, int16_t buttons = 0) { S().surface.MouseMove(buttons, 0, FG1().Left() + x, FG1().Top() + y); }
    void ClickAt(float x, float y) {
        Move(x, y);
        S().surface.MouseDown(MouseButton::Left, 0, FG1().Left() + x, FG1().Top() + y);
        S().surface.MouseUp(MouseButton::Left, 0, FG1().Left() + x, FG1().Top() + y);
    }
    PictureBox& Tip() { return *S().elements.PictureTTT; }
    Label& TipLabel() { return *S().elements.LabelTTT; }

    MouseEvents mouse;
};

TEST_F(MouseTest, TheHitTestsCountColumnsAndRowsFromOne) {
    Load(30);
    Move(100, 5);
    EXPECT_EQ(control->ColonnaSelezionata(), 1);
    EXPECT_EQ(control->RigaSorvolata(), 1);
    EXPECT_EQ(control->RigaCliccata(), 0);
    Move(600 + 1050 + 10, 3 * kRow + 10);
    EXPECT_EQ(control->ColonnaSelezionata(), 3);  // past every ColPos: Cols
    EXPECT_EQ(control->RigaSorvolata(), 4);
    EXPECT_EQ(control->RigaCliccata(), 3);
    Move(700, 0);
    EXPECT_EQ(control->ColonnaSelezionata(), 2);
}

TEST_F(MouseTest, OverTheLastGridRowRigaSorvolataRepeatsTheRowAboveAndRigaCliccataGivesZero) {
    Load(30);
    const float last = (FG1().Rows() - 1) * kRow + 10;
    Move(100, last);
    EXPECT_EQ(control->RigaSorvolata(), FG1().Rows() - 1);  // as for the row above
    EXPECT_EQ(control->RigaCliccata(), 0);
    Move(100, last - kRow);
    EXPECT_EQ(control->RigaSorvolata(), FG1().Rows() - 1);
    EXPECT_EQ(control->RigaCliccata(), FG1().Rows() - 2);
}

TEST_F(MouseTest, ACellWhoseTextFitsShowsNoTipAndOneCharacterMoreShowsItAtThePointer) {
    Load(3);
    control->setTextMatrix(0, 1, "0123456789");  // ten characters: 1050 twips, no more than the column
    S().LimiteRighe = 100;
    control->setTextMatrix(0, 1, "0123456789");
    Move(700, 100);
    EXPECT_FALSE(Tip().Visible());
    control->setTextMatrix(0, 1, "0123456789A");
    Move(700, 100);
    ASSERT_TRUE(Tip().Visible());
    EXPECT_EQ(TipLabel().Caption(), " 0123456789A ");
    EXPECT_EQ(Tip().Left(), 700);
    EXPECT_EQ(Tip().Top(), 100);
    EXPECT_EQ(Tip().Width(), TipLabel().Width() + 45);
    EXPECT_EQ(Tip().Height(), FG1().RowHeight(0));
    EXPECT_EQ(TipLabel().Height(), Tip().Height());
    Move(100, 100);  // the next move that finds no reason hides it
    EXPECT_FALSE(Tip().Visible());
}

TEST_F(MouseTest, NearTheRightEdgeTheTipEndsInsideTheSurface) {
    Load(3);
    S().LimiteRighe = 100;
    control->setColsWidth(2, 5000);
    control->setTextMatrix(1, 2, std::string(60, 'x'));
    const float x = FG1().Width() - 300;
    Move(x, kRow + 20);
    ASSERT_TRUE(Tip().Visible());
    EXPECT_EQ(Tip().Left(), FG1().Width() - TipLabel().Width());
    EXPECT_EQ(Tip().Top(), kRow + 20);
}

TEST_F(MouseTest, AColumnOfWidthZeroNeverHasAnOverflowTip) {
    Load(3);
    control->setColsWidth(1, 0);
    Move(601, 10);
    EXPECT_FALSE(Tip().Visible());
}

TEST_F(MouseTest, AConditionColumnTellsItsConditionInTheTip) {
    Load(12);
    control->setCondizione(2, "10");
    control->setOperatoreCondizionale(2, ">");
    control->setToolTTvero(2, "grande");
    control->setToolTTfalso(2, "piccolo");
    control->Carica();
    Move(1700, 2 * kRow + 5);  // record 3: 4.5
    ASSERT_TRUE(Tip().Visible());
    EXPECT_EQ(TipLabel().Caption(), " piccolo ");
    Move(1700.5f, 9 * kRow + 5.25f);  // record 10: 15
    EXPECT_EQ(TipLabel().Caption(), " grande ");
    EXPECT_EQ(Tip().Left(), 1700.5f);  // placed unrounded, with no edge correction
    EXPECT_EQ(Tip().Top(), 9 * kRow + 5.25f);
}

TEST_F(MouseTest, AnEmptyTooltipOfAHoldingConditionShowsNoTip) {
    Load(12);
    control->setCondizione(2, "0");
    control->setOperatoreCondizionale(2, ">");
    control->setToolTTfalso(2, "mai");
    control->Carica();
    Move(1700, 5);
    EXPECT_FALSE(Tip().Visible());
}

TEST_F(MouseTest, AfterAScrollTheConditionTipStaysWithTheUnscrolledRowAndTheOverflowTipWithTheVisibleOne) {
    Load(30);
    S().LimiteRighe = 100;
    control->setCondizione(2, "10");
    control->setOperatoreCondizionale(2, ">");
    control->setToolTTvero(2, "grande");
    control->setToolTTfalso(2, "piccolo");
    control->Carica();
    control->setTopRow(15);  // grid row 0 shows record 16 (24): the tip still tells record 1's
    Move(1700, 5);
    EXPECT_EQ(TipLabel().Caption(), " piccolo ");
    control->setTextMatrix(15, 1, "un testo troppo lungo");
    Move(700, 5);
    EXPECT_EQ(TipLabel().Caption(), " un testo troppo lungo ");
}

TEST_F(MouseTest, AScrollEndsTheTip) {
    Load(30);
    S().LimiteRighe = 100;
    control->setTextMatrix(0, 1, "un testo troppo lungo");
    Move(700, 5);
    ASSERT_TRUE(Tip().Visible());
    control->setTopRow(1);
    EXPECT_FALSE(Tip().Visible());
}

TEST_F(MouseTest, AVeryLongOrMixedTextGivesATipCutBetweenCharacters) {
    Load(3);
    S().LimiteRighe = 100;
    std::string megabyte;
    while (megabyte.size() < 1024 * 1024) megabyte += "a\xCC\x81\xE4\xB8\xAD\xF0\x9F\x91\x8D\xF0\x9F\x8F\xBD";
    control->setTextMatrix(0, 1, megabyte);
    Move(700, 5);
    ASSERT_TRUE(Tip().Visible());
    const std::string& caption = TipLabel().Caption();
    EXPECT_LT(caption.size(), megabyte.size());
    EXPECT_TRUE(IsValidUtf8(caption));
    EXPECT_EQ(caption.substr(caption.size() - 4), "\xE2\x80\xA6 ");  // an ellipsis and the blank
    // The cut never leaves a combining mark or a skin tone without what it belongs to.
    const std::string body = caption.substr(1, caption.size() - 5);
    EXPECT_EQ(megabyte.compare(0, body.size(), body), 0);
    const std::string next = megabyte.substr(body.size(), 4);
    EXPECT_NE(next.substr(0, 2), "\xCC\x81");
    EXPECT_NE(next, "\xF0\x9F\x8F\xBD");
}

TEST_F(MouseTest, TipTextKeepsShortTextsWhole) {
    EXPECT_EQ(TipText(""), "");
    EXPECT_EQ(TipText("caff\xC3\xA8 \xE6\x97\xA5\xE6\x9C\xAC"), "caff\xC3\xA8 \xE6\x97\xA5\xE6\x9C\xAC");
    const std::string exactly(2000, 'x');
    EXPECT_EQ(TipText(exactly), exactly);
    EXPECT_EQ(TipText(exactly + "y"), exactly + "\xE2\x80\xA6");
}

TEST_F(MouseTest, AHyperlinkCellShowsTheHandAndAnEmptyOneKeepsTheArrow) {
    Load(5);
    S().LimiteRighe = 100;
    control->setIsIperText(1, 1);
    Move(700, 5);
    EXPECT_EQ(FG1().MousePointer(), Pointer::Custom);
    control->setTextMatrix(2, 1, "");
    Move(700, 2 * kRow + 5);
    EXPECT_EQ(FG1().MousePointer(), Pointer::Default);
    Move(100, 5);
    EXPECT_EQ(FG1().MousePointer(), Pointer::Default);
    EXPECT_TRUE(FG1().MouseIcon());  // the drawn hand the surface shows for 99
}

TEST_F(MouseTest, AClickOnALinkRaisesIperTextClickWithTheKeyAndTheText) {
    Load(5);
    control->setIsIperText(1, 1);
    ClickAt(700, 3 * kRow + 5);
    EXPECT_EQ(mouse.Count("Click"), 1);
    EXPECT_EQ(mouse.Last("CellClick").row, 3);
    EXPECT_EQ(mouse.Last("CellClick").column, 2);
    const auto link = mouse.Last("IperTextClick");
    EXPECT_EQ(link.row, 3);
    EXPECT_EQ(link.column, 2);
    EXPECT_EQ(mouse.linkId, 4);
    EXPECT_EQ(mouse.linkText, "Name 4");
    EXPECT_EQ(control->IndiceSelezionato(), 4);
}

TEST_F(MouseTest, TheLinksKeyAndTextGoByReference) {
    Load(5);
    control->setIsIperText(1, 1);
    mouse.newId = 77;
    mouse.newText = "Nuovo";
    ClickAt(700, kRow + 5);
    EXPECT_EQ(control->IndiceSelezionato(), 77);
    EXPECT_EQ(control->TextMatrix(1, 1), "Nuovo");
}

TEST_F(MouseTest, AClickTakesTheKeyFromTheColumnIperTextIndexNames) {
    Load(5);
    control->setIperTextIndex(1, 2);  // the amount column
    ClickAt(700, kRow + 5);
    EXPECT_EQ(control->IndiceSelezionato(), 3);  // 3 of amount 3
    ClickAt(100, kRow + 5);
    EXPECT_EQ(control->IndiceSelezionato(), 2);  // column 0's own key
    EXPECT_EQ(mouse.Count("IperTextClick"), 0);
}

TEST_F(MouseTest, WithMultiSelALinkShowsTheHandAndItsClickRaisesCellClickOnly) {
    Load(5);
    control->setIsIperText(1, 1);
    control->setMultiSel(true);
    ClickAt(700, 5);
    EXPECT_EQ(FG1().MousePointer(), Pointer::Custom);
    EXPECT_EQ(mouse.Count("CellClick"), 1);
    EXPECT_EQ(mouse.Count("IperTextClick"), 0);
}

TEST_F(MouseTest, AClickLeftOfTheFirstColumnFailsOnTheColumnArrays) {
    Load(5);
    FG1().HandleMouseMove(0, 0, -20, 5);  // as a drag held by the surface passes it on
    EXPECT_EQ(control->ColonnaSelezionata(), 0);
    EXPECT_THROW(FG1().HandleClick(), Error);
}

TEST_F(MouseTest, ARightClickSelectsTheRowUnderTheLastMoveAndTellsTheRecord) {
    Load(30);
    control->setTopRow(4);
    Move(700, 2 * kRow + 5);
    S().surface.MouseDown(MouseButton::Right, 0, FG1().Left() + 700, FG1().Top() + 2 * kRow + 5);
    EXPECT_EQ(mouse.lastButton, MouseButton::Right);
    EXPECT_EQ(FG1().Row(), 2);
    EXPECT_EQ(mouse.Last("CellRightClick").row, 6);  // the store index
    EXPECT_EQ(mouse.Last("CellRightClick").column, 2);
    EXPECT_EQ(control->IndiceSelezionato(), 7);
}

TEST_F(MouseTest, ARightClickOnTheLastGridRowSelectsGridRowZero) {
    Load(30);
    const float last = (FG1().Rows() - 1) * kRow + 10;
    Move(100, last);
    S().surface.MouseDown(MouseButton::Right, 0, FG1().Left() + 100, FG1().Top() + last);
    EXPECT_EQ(FG1().Row(), 0);
    EXPECT_EQ(mouse.Last("CellRightClick").row, 0);
}

TEST_F(MouseTest, ARightClickWithNoMoveBeforeTestsThePositionZeroZero) {
    Load(30);
    FG1().HandleMouseDown(MouseButton::Right, 0, 800, 5 * kRow);
    EXPECT_EQ(FG1().Row(), 0);
    EXPECT_EQ(mouse.Last("CellRightClick").column, 1);
}

TEST_F(MouseTest, ADoubleClickTogglesThePickOfItsRow) {
    Load(5);
    control->setMultiSel(true);
    Move(700, kRow + 5);
    S().surface.MouseDown(MouseButton::Left, 0, FG1().Left() + 700, FG1().Top() + kRow + 5);
    S().surface.MouseUp(MouseButton::Left, 0, FG1().Left() + 700, FG1().Top() + kRow + 5);
    S().surface.DoubleClick(MouseButton::Left, 0, FG1().Left() + 700, FG1().Top() + kRow + 5);
    EXPECT_EQ(control->ListaIndiciSel(), "2");
    EXPECT_EQ(mouse.Count("DblClick"), 1);
    EXPECT_EQ(mouse.Last("CellDblClick").row, 1);
    EXPECT_EQ(mouse.Last("CellDblClick").column, 2);
}

TEST_F(MouseTest, DraggingWithSelezioneMultiplaImmediataPicksEveryRowAndNeverReleases) {
    Load(8);
    control->setMultiSel(true);
    control->setSelezioneMultiplaImmediata(true);
    for (int r : {1, 2, 3, 2}) Move(100, r * kRow + 5, MouseButton::Left);
    EXPECT_EQ(control->ListaIndiciSel(), "2,3,4");
}

TEST_F(MouseTest, DraggingBelowTheSurfaceScrollsOneRowAMove) {
    Load(40);
    const float below = FG1().Height() + 30;
    // A press on the surface holds the mouse: the moves below it still reach the surface.
    S().surface.MouseDown(MouseButton::Left, 0, FG1().Left() + 100, FG1().Top() + 5);
    Move(100, below, MouseButton::Left);
    Move(100, below + 1, MouseButton::Left);
    EXPECT_EQ(control->TopRow(), 2);
    Move(100, -30, MouseButton::Left);  // nothing above the surface
    EXPECT_EQ(control->TopRow(), 2);
}

TEST_F(MouseTest, TheHostGetsItsMouseMoveEvenWhenAStepFails) {
    Load(3);
    control->setCondizione(1, "x");
    control->setOperatoreCondizionale(1, "=");
    Move(700, 5);
    EXPECT_EQ(mouse.Count("MouseMove"), 1);
    EXPECT_EQ(mouse.Last("CellMouseMove").row, 1);
    EXPECT_EQ(mouse.Last("CellMouseMove").column, 2);
}

TEST_F(MouseTest, DuringALoadEnterCellAndLeaveCellAreHeldBack) {
    Load(5);
    mouse.names.clear();
    control->Carica();
    EXPECT_EQ(mouse.Count("EnterCell"), 0);
    EXPECT_EQ(mouse.Count("LeaveCell"), 0);
    FG1().setRow(3);  // outside a load they pass
    EXPECT_EQ(mouse.Count("EnterCell"), 1);
    EXPECT_EQ(mouse.Count("LeaveCell"), 1);
    ClickAt(100, 5);
    EXPECT_EQ(mouse.Count("Click"), 1);
}

TEST_F(MouseTest, TheSurfaceHandsItsFocusToTheKeyBoxAndPassesItsKeysOn) {
    Load(5);
    ClickAt(100, kRow + 5);
    EXPECT_TRUE(S().elements.TextKey->HasFocus());
    FG1().HandleKeyDown(65, 0);
    EXPECT_EQ(mouse.lastKey, 65);
    EXPECT_TRUE(S().elements.TextKey->HasFocus());
}

TEST_F(MouseTest, TheUsersOwnMoveOfTheCurrentRowSelectsItsRecord) {
    Load(20);
    control->setTopRow(3);
    ClickAt(100, 2 * kRow + 5);
    EXPECT_EQ(control->Row(), 5);
    EXPECT_EQ(control->IndiceSelezionato(), 6);
    EXPECT_EQ(S().selection.IndiceRigaAttiva(), 5);
}

TEST_F(MouseTest, CellaConImmagineTellsTheCellsThatShowAPicture) {
    Load(6);
    EXPECT_FALSE(control->CellaConImmagine(0, 2));  // no image list
    auto form = std::make_shared<HostForm>("F");
    form->Add(std::make_shared<ImageList>("L", std::vector<Picture>{std::make_shared<Image>(2, 2)}));
    control->setFormContenitore(form);
    control->setImageLista("L");
    control->setCondizione(2, "4");
    control->setOperatoreCondizionale(2, "<");
    control->setImmagineA(2, 1);
    control->Carica();
    EXPECT_TRUE(control->CellaConImmagine(1, 2));   // 3 < 4: ImmagineA
    EXPECT_FALSE(control->CellaConImmagine(4, 2));  // 7.5: the condition fails and ImmagineB is 0
    control->setImmagineB(2, 1);
    EXPECT_TRUE(control->CellaConImmagine(4, 2));
    EXPECT_FALSE(control->CellaConImmagine(9, 2));  // the first column is empty
    EXPECT_FALSE(control->CellaConImmagine(90, 2));  // beyond the store
    // Without a condition, a picture comes from the column ColonnaImmagine names.
    EXPECT_TRUE(control->CellaConImmagine(1, 1));  // ColonnaImmagine 0: column 0 has text
    control->setColonnaImmagine(1, 2);
    EXPECT_TRUE(control->CellaConImmagine(1, 1));
}

}  // namespace
}  // namespace TabulonLib12::testing
