// Control arrays: item 0 designed, further items loaded as hidden copies.
#include "ui_fixture.h"

namespace TabulonLib12::testing {
namespace {

using ControlArrayTest = UiTest;

TEST_F(ControlArrayTest, ItemZeroIsTheDesignedElement) {
    Label& l = surface.CreateLabel("LabelMenu");
    ControlArray<Label> arr(l);
    EXPECT_EQ(&arr(0), &l);
    EXPECT_EQ(l.Index(), 0);
    EXPECT_EQ(arr.Count(), 1);
    EXPECT_EQ(arr.LBound(), 0);
    EXPECT_EQ(arr.UBound(), 0);
}

TEST_F(ControlArrayTest, LoadCreatesAHiddenCopyOfItemZero) {
    Frame& shape2 = surface.CreateFrame("Shape2");
    Label& l = surface.CreateLabel("LabelMenu", &shape2);
    l.Move(330, 60, 120, 195);
    l.setCaption("N");
    l.setAlignment(Alignment::Centre);
    l.setBackStyle(0);
    l.setForeColor(0xFFFFFF);
    l.setTag("t");
    l.setToolTipText("tip");
    Font f;
    f.size = 10;
    l.setFont(f);
    ControlArray<Label> arr(l);
    Label& item = arr.Load(3);
    EXPECT_EQ(&arr(3), &item);
    EXPECT_NE(&item, &l);
    EXPECT_EQ(item.Index(), 3);
    EXPECT_EQ(item.Name(), "LabelMenu");
    EXPECT_EQ(item.Container(), &shape2);
    EXPECT_FALSE(item.Visible());
    EXPECT_EQ(item.Left(), 330.0f);
    EXPECT_EQ(item.Width(), 120.0f);
    EXPECT_EQ(item.Caption(), "N");
    EXPECT_EQ(item.Alignment(), 2);
    EXPECT_EQ(item.BackStyle(), 0);
    EXPECT_EQ(item.ForeColor(), 0xFFFFFFu);
    EXPECT_EQ(item.Tag(), "t");
    EXPECT_EQ(item.ToolTipText(), "tip");
    EXPECT_EQ(item.GetFont(), f);
    EXPECT_EQ(arr.UBound(), 3);
    EXPECT_EQ(arr.Count(), 2);
}

TEST_F(ControlArrayTest, LoadedItemsStandInFrontOfTheirLayer) {
    Frame& shape2 = surface.CreateFrame("Shape2");
    ImageElement& tile = surface.CreateImage("Image1", &shape2);
    Label& other = surface.CreateLabel("Other", &shape2);
    ControlArray<ImageElement> arr(tile);
    ImageElement& item = arr.Load(1);
    EXPECT_EQ(shape2.Children(), (std::vector<Element*>{&tile, &other, &item}));
}

TEST_F(ControlArrayTest, HandlersAreCopiedAndTellTheItemByIndex) {
    Label& l = surface.CreateLabel("LabelMenu");
    std::vector<int> clicked;
    l.onClick = [&](Element& e) { clicked.push_back(e.Index()); };
    ControlArray<Label> arr(l);
    Label& item = arr.Load(2);
    item.Move(0, 0, 100, 100);
    item.setVisible(true);
    surface.MouseDown(MouseButton::Left, 0, 10, 10);
    surface.MouseUp(MouseButton::Left, 0, 10, 10);
    EXPECT_EQ(clicked, (std::vector<int>{2}));
}

TEST_F(ControlArrayTest, LoadingAnExistingIndexFailsWith360) {
    CheckBox& c = surface.CreateCheckBox("CheckScelta");
    ControlArray<CheckBox> arr(c);
    arr.Load(1);
    EXPECT_UI_ERROR(arr.Load(1), ErrorKind::InvalidValue, 360);
    EXPECT_UI_ERROR(arr.Load(0), ErrorKind::InvalidValue, 360);
    EXPECT_EQ(arr.Count(), 2);
}

TEST_F(ControlArrayTest, LoadingANegativeIndexIsOutOfRange) {
    CheckBox& c = surface.CreateCheckBox("CheckScelta");
    ControlArray<CheckBox> arr(c);
    EXPECT_UI_ERROR(arr.Load(-1), ErrorKind::OutOfBounds, 9);
}

TEST_F(ControlArrayTest, AMissingIndexFailsWith340) {
    Label& l = surface.CreateLabel("LabelTOT");
    ControlArray<Label> arr(l);
    EXPECT_UI_ERROR(arr(1), ErrorKind::OutOfBounds, 340);
    EXPECT_FALSE(arr.Exists(1));
    try {
        arr(7);
        ADD_FAILURE() << "item 7 was found";
    } catch (const Error& e) {
        EXPECT_EQ(e.description(), "Control array element '7' doesn't exist");
    }
}

TEST_F(ControlArrayTest, ItemZeroCannotBeUnloaded) {
    Label& l = surface.CreateLabel("LabelTOT");
    ControlArray<Label> arr(l);
    EXPECT_UI_ERROR(arr.Unload(0), ErrorKind::InvalidValue, 362);
    EXPECT_TRUE(surface.Contains(l));
}

TEST_F(ControlArrayTest, UnloadingAMissingIndexFailsWith340) {
    Label& l = surface.CreateLabel("LabelTOT");
    ControlArray<Label> arr(l);
    EXPECT_UI_ERROR(arr.Unload(4), ErrorKind::OutOfBounds, 340);
}

TEST_F(ControlArrayTest, UnloadRemovesTheItemFromTheSurface) {
    Frame& panel = surface.CreateFrame("FrameSceltaColonne");
    CheckBox& c = surface.CreateCheckBox("CheckScelta", &panel);
    ControlArray<CheckBox> arr(c);
    arr.Load(1);
    arr.Load(2);
    arr.Unload(1);
    EXPECT_FALSE(arr.Exists(1));
    EXPECT_EQ(panel.Children().size(), 2u);
    EXPECT_EQ(arr.UBound(), 2);
    arr.Load(1);  // the index is free again
    EXPECT_EQ(arr.Count(), 3);
}

TEST_F(ControlArrayTest, UnloadingEveryItemButZeroLeavesTheDesign) {
    Frame& panel = surface.CreateFrame("FrameSceltaColonne");
    CheckBox& c = surface.CreateCheckBox("CheckScelta", &panel);
    ControlArray<CheckBox> arr(c);
    for (int16_t i = 1; i <= 5; ++i) arr.Load(i).setTag(std::to_string(i));
    while (arr.UBound() > 0) arr.Unload(arr.UBound());
    EXPECT_EQ(panel.Children(), (std::vector<Element*>{&c}));
}

TEST_F(ControlArrayTest, CopiesTakeTheModelsStateAtLoadTime) {
    CheckBox& c = surface.CreateCheckBox("CheckScelta");
    c.setCaption("Check1");
    c.setValue(1);
    ControlArray<CheckBox> arr(c);
    CheckBox& item = arr.Load(1);
    c.setCaption("Changed");
    EXPECT_EQ(item.Caption(), "Check1");
    EXPECT_EQ(item.Value(), 1);
}

TEST_F(ControlArrayTest, ACopiedFrameHoldsNoChildren) {
    Frame& line = surface.CreateFrame("FrameLine");
    surface.CreateLabel("Inside", &line);
    line.setBackColor(0x0000FF);
    ControlArray<Frame> arr(line);
    Frame& item = arr.Load(1);
    EXPECT_TRUE(item.Children().empty());
    EXPECT_EQ(item.BackColor(), 0x0000FFu);
}

TEST_F(ControlArrayTest, ACopiedAutoSizeLabelKeepsFitting) {
    Label& tot = surface.CreateLabel("LabelTOT");
    tot.setAutoSize(true);
    tot.setCaption("0");
    ControlArray<Label> arr(tot);
    Label& item = arr.Load(1);
    EXPECT_TRUE(item.AutoSize());
    item.setCaption("1234");
    EXPECT_EQ(item.Width(), 4 * 105.0f);
}

TEST_F(ControlArrayTest, ACopiedTimerRunsAsItsModel) {
    Timer& t = surface.CreateTimer("T");
    int ticks = 0;
    t.onTimer = [&](Timer&) { ++ticks; };
    t.setInterval(100);
    ControlArray<Timer> arr(t);
    Timer& copy = arr.Load(1);
    EXPECT_TRUE(copy.Running());
    timers.Advance(100);
    EXPECT_EQ(ticks, 2);
}

TEST_F(ControlArrayTest, ACopiedCellGridKeepsItsCells) {
    CellGrid& g = surface.CreateCellGrid("FG");
    g.setTextMatrix(1, 1, "x");
    g.setColWidth(0, 500);
    ControlArray<CellGrid> arr(g);
    CellGrid& copy = arr.Load(1);
    EXPECT_EQ(copy.TextMatrix(1, 1), "x");
    EXPECT_EQ(copy.ColWidth(0), 500);
    copy.setTextMatrix(1, 1, "y");
    EXPECT_EQ(g.TextMatrix(1, 1), "x");
}

TEST_F(ControlArrayTest, SetArrayIndexRefusesTheSurfaceAndNegativeIndices) {
    Label& l = surface.CreateLabel("L");
    EXPECT_UI_ERROR(surface.SetArrayIndex(surface, 0), ErrorKind::InvalidValue, 380);
    EXPECT_UI_ERROR(surface.SetArrayIndex(l, -1), ErrorKind::OutOfBounds, 9);
    EXPECT_UI_ERROR(surface.CreateCopy(surface, 1), ErrorKind::InvalidValue, 380);
}

}  // namespace
}  // namespace TabulonLib12::testing
