// Geometry, containment, visibility, z-order, painting order and paint requests.
#include <cmath>
#include <limits>

#include "ui_fixture.h"

namespace TabulonLib12::testing {
namespace {

using ElementModel = UiTest;

TEST_F(ElementModel, GeometryIsStoredExactlyAsWritten) {
    Label& l = surface.CreateLabel("LabelCount");
    l.setLeft(165.5f);
    l.setTop(7590.25f);
    l.setWidth(0.1f);
    l.setHeight(194.999f);
    EXPECT_EQ(l.Left(), 165.5f);
    EXPECT_EQ(l.Top(), 7590.25f);
    EXPECT_EQ(l.Width(), 0.1f);
    EXPECT_EQ(l.Height(), 194.999f);
}

TEST_F(ElementModel, NegativePositionIsAllowed) {
    Frame& f = surface.CreateFrame("Shape2");
    f.setLeft(-300);
    f.setTop(-15);
    EXPECT_EQ(f.Left(), -300.0f);
    EXPECT_EQ(f.Top(), -15.0f);
}

TEST_F(ElementModel, NegativeWidthIsRefusedAndKeepsTheOldValue) {
    Label& l = surface.CreateLabel("L");
    l.setWidth(480);
    EXPECT_UI_ERROR(l.setWidth(-1), ErrorKind::InvalidValue, 380);
    EXPECT_EQ(l.Width(), 480.0f);
}

TEST_F(ElementModel, NegativeHeightIsRefusedAndKeepsTheOldValue) {
    Label& l = surface.CreateLabel("L");
    l.setHeight(195);
    EXPECT_UI_ERROR(l.setHeight(-0.5f), ErrorKind::InvalidValue, 380);
    EXPECT_EQ(l.Height(), 195.0f);
}

TEST_F(ElementModel, ValuesThatAreNotNumbersAreRefused) {
    Label& l = surface.CreateLabel("L");
    l.setLeft(10);
    EXPECT_UI_ERROR(l.setLeft(std::numeric_limits<float>::quiet_NaN()), ErrorKind::InvalidValue, 380);
    EXPECT_UI_ERROR(l.setWidth(std::numeric_limits<float>::infinity()), ErrorKind::InvalidValue, 380);
    EXPECT_EQ(l.Left(), 10.0f);
}

TEST_F(ElementModel, MoveWithTwoArgumentsKeepsTheSize) {
    Frame& f = surface.CreateFrame("F");
    f.Move(1, 2, 300, 400);
    f.Move(10, 20);
    EXPECT_EQ(f.Left(), 10.0f);
    EXPECT_EQ(f.Top(), 20.0f);
    EXPECT_EQ(f.Width(), 300.0f);
    EXPECT_EQ(f.Height(), 400.0f);
}

TEST_F(ElementModel, MoveWithThreeArgumentsKeepsTheHeight) {
    Frame& f = surface.CreateFrame("F");
    f.Move(1, 2, 300, 400);
    f.Move(5, 6, 700);
    EXPECT_EQ(f.Width(), 700.0f);
    EXPECT_EQ(f.Height(), 400.0f);
}

TEST_F(ElementModel, MoveWithARefusedSizeChangesNothing) {
    Frame& f = surface.CreateFrame("F");
    f.Move(1, 2, 300, 400);
    EXPECT_UI_ERROR(f.Move(50, 60, 10, -1), ErrorKind::InvalidValue, 380);
    EXPECT_EQ(f.Left(), 1.0f);
    EXPECT_EQ(f.Top(), 2.0f);
    EXPECT_EQ(f.Width(), 300.0f);
}

TEST_F(ElementModel, MoveRequestsOnePaint) {
    Frame& f = surface.CreateFrame("F");
    paints = 0;
    f.Move(1, 2, 300, 400);
    EXPECT_EQ(paints, 1);
}

TEST_F(ElementModel, SurfacePositionSumsTheContainers) {
    Frame& frame = surface.CreateFrame("Shape2");
    frame.Move(100, 200, 5000, 5000);
    PictureBox& box = surface.CreatePictureBox("P", &frame);
    box.Move(10, 20, 1000, 1000);
    Label& label = surface.CreateLabel("LabelTTT", &box);
    label.Move(1.5f, 2, 100, 100);
    EXPECT_EQ(label.SurfaceLeft(), 111.5f);
    EXPECT_EQ(label.SurfaceTop(), 222.0f);
    EXPECT_EQ(frame.SurfaceLeft(), 100.0f);
    EXPECT_EQ(surface.SurfaceLeft(), 0.0f);
}

TEST_F(ElementModel, NewElementsStandOnTheSurfaceByDefault) {
    Label& l = surface.CreateLabel("L");
    EXPECT_EQ(l.Container(), &surface);
    EXPECT_EQ(surface.Container(), nullptr);
    EXPECT_EQ(&l.Owner(), &surface);
    EXPECT_EQ(l.Name(), "L");
    EXPECT_EQ(l.Index(), -1);
    EXPECT_TRUE(surface.Contains(l));
}

TEST_F(ElementModel, OnlySurfaceFrameAndPictureBoxAreContainers) {
    EXPECT_TRUE(surface.IsContainer());
    EXPECT_TRUE(surface.CreateFrame("F").IsContainer());
    EXPECT_TRUE(surface.CreatePictureBox("P").IsContainer());
    EXPECT_FALSE(surface.CreateLabel("L").IsContainer());
    EXPECT_FALSE(surface.CreateTextBox("T").IsContainer());
    EXPECT_FALSE(surface.CreateCellGrid("G").IsContainer());
}

TEST_F(ElementModel, LabelImageAndShapeAreGraphical) {
    EXPECT_TRUE(surface.CreateLabel("L").IsGraphical());
    EXPECT_TRUE(surface.CreateImage("I").IsGraphical());
    EXPECT_TRUE(surface.CreateShape("S").IsGraphical());
    EXPECT_FALSE(surface.CreateFrame("F").IsGraphical());
    EXPECT_FALSE(surface.CreateCheckBox("C").IsGraphical());
    EXPECT_FALSE(surface.CreateCellGrid("G").IsGraphical());
}

TEST_F(ElementModel, CreatingInsideANonContainerIsRefused) {
    Label& l = surface.CreateLabel("L");
    EXPECT_UI_ERROR(surface.CreateLabel("Inner", &l), ErrorKind::InvalidValue, 380);
    EXPECT_EQ(surface.Children().size(), 1u);
}

TEST_F(ElementModel, ChildrenStandInCreationOrderBackToFront) {
    Frame& frame = surface.CreateFrame("Shape2");
    Label& a = surface.CreateLabel("A", &frame);
    Label& b = surface.CreateLabel("B", &frame);
    EXPECT_EQ(frame.Children(), (std::vector<Element*>{&a, &b}));
}

TEST_F(ElementModel, SetContainerMovesTheElementToTheFrontOfItsNewContainer) {
    Frame& frame = surface.CreateFrame("F");
    Label& old = surface.CreateLabel("Old", &frame);
    Label& l = surface.CreateLabel("L");
    l.setContainer(&frame);
    EXPECT_EQ(l.Container(), &frame);
    EXPECT_EQ(frame.Children(), (std::vector<Element*>{&old, &l}));
    EXPECT_EQ(surface.Children(), (std::vector<Element*>{&frame}));
}

TEST_F(ElementModel, SetContainerNullMeansTheSurface) {
    Frame& frame = surface.CreateFrame("F");
    Label& l = surface.CreateLabel("L", &frame);
    l.setContainer(nullptr);
    EXPECT_EQ(l.Container(), &surface);
    EXPECT_TRUE(frame.Children().empty());
}

TEST_F(ElementModel, SetContainerToANonContainerIsRefused) {
    Label& target = surface.CreateLabel("T");
    Label& l = surface.CreateLabel("L");
    EXPECT_UI_ERROR(l.setContainer(&target), ErrorKind::InvalidValue, 380);
    EXPECT_EQ(l.Container(), &surface);
}

TEST_F(ElementModel, AContainerCannotMoveIntoItself) {
    Frame& outer = surface.CreateFrame("Outer");
    Frame& inner = surface.CreateFrame("Inner", &outer);
    EXPECT_UI_ERROR(outer.setContainer(&inner), ErrorKind::InvalidValue, 380);
    EXPECT_UI_ERROR(outer.setContainer(&outer), ErrorKind::InvalidValue, 380);
    EXPECT_EQ(outer.Container(), &surface);
}

TEST_F(ElementModel, ElementsOfAnotherSurfaceAreNoContainers) {
    Surface other(metrics, timers);
    Frame& foreign = other.CreateFrame("F");
    Label& l = surface.CreateLabel("L");
    EXPECT_UI_ERROR(l.setContainer(&foreign), ErrorKind::InvalidValue, 380);
    EXPECT_UI_ERROR(surface.CreateLabel("X", &foreign), ErrorKind::InvalidValue, 380);
}

TEST_F(ElementModel, TheSurfaceHasNoContainerToChange) {
    Frame& f = surface.CreateFrame("F");
    EXPECT_UI_ERROR(surface.setContainer(&f), ErrorKind::InvalidValue, 380);
}

TEST_F(ElementModel, IsShownNeedsEveryContainerVisible) {
    Frame& frame = surface.CreateFrame("FrameSceltaColonne");
    CheckBox& box = surface.CreateCheckBox("CheckScelta", &frame);
    EXPECT_TRUE(box.IsShown());
    frame.setVisible(false);
    EXPECT_TRUE(box.Visible());
    EXPECT_FALSE(box.IsShown());
    frame.setVisible(true);
    box.setVisible(false);
    EXPECT_FALSE(box.IsShown());
}

TEST_F(ElementModel, IsActiveNeedsEveryContainerEnabled) {
    Frame& frame = surface.CreateFrame("F");
    TextBox& text = surface.CreateTextBox("T", &frame);
    EXPECT_TRUE(text.IsActive());
    frame.setEnabled(false);
    EXPECT_TRUE(text.Enabled());
    EXPECT_FALSE(text.IsActive());
}

TEST_F(ElementModel, ZOrderZeroBringsToTheFront) {
    Label& a = surface.CreateLabel("A");
    Label& b = surface.CreateLabel("B");
    Label& c = surface.CreateLabel("C");
    a.ZOrder(0);
    EXPECT_EQ(surface.Children(), (std::vector<Element*>{&b, &c, &a}));
    a.ZOrder();  // already in front
    EXPECT_EQ(surface.Children(), (std::vector<Element*>{&b, &c, &a}));
}

TEST_F(ElementModel, ZOrderOneSendsToTheBack) {
    Label& a = surface.CreateLabel("A");
    Label& b = surface.CreateLabel("B");
    Label& c = surface.CreateLabel("C");
    c.ZOrder(1);
    EXPECT_EQ(surface.Children(), (std::vector<Element*>{&c, &a, &b}));
}

TEST_F(ElementModel, ZOrderRefusesOtherPositions) {
    Label& a = surface.CreateLabel("A");
    EXPECT_UI_ERROR(a.ZOrder(2), ErrorKind::InvalidValue, 380);
}

TEST_F(ElementModel, GraphicalElementsPaintBeneathWindowedOnesWhateverTheirOrder) {
    Frame& frame = surface.CreateFrame("F");
    Label& label = surface.CreateLabel("L");
    label.ZOrder(0);
    frame.ZOrder(1);
    EXPECT_EQ(surface.PaintOrder(), (std::vector<Element*>{&surface, &label, &frame}));
}

TEST_F(ElementModel, PaintOrderPaintsEachContainerBeforeItsChildren) {
    Label& a = surface.CreateLabel("A");
    Frame& frame = surface.CreateFrame("F");
    Label& b = surface.CreateLabel("B", &frame);
    TextBox& t = surface.CreateTextBox("T", &frame);
    Label& b2 = surface.CreateLabel("B2", &frame);
    Shape& s = surface.CreateShape("S");
    PictureBox& p = surface.CreatePictureBox("P");
    ImageElement& i = surface.CreateImage("I", &p);
    CellGrid& g = surface.CreateCellGrid("FG1");
    EXPECT_EQ(surface.PaintOrder(), (std::vector<Element*>{&surface, &a, &s, &frame, &b, &b2, &t, &p, &i, &g}));
}

TEST_F(ElementModel, WindowedZOrderDecidesWhichContainerPaintsLast) {
    Frame& first = surface.CreateFrame("First");
    Frame& second = surface.CreateFrame("Second");
    Label& inFirst = surface.CreateLabel("L", &first);
    first.ZOrder(0);
    EXPECT_EQ(surface.PaintOrder(), (std::vector<Element*>{&surface, &second, &first, &inFirst}));
}

TEST_F(ElementModel, PaintOrderLeavesOutHiddenElementsAndTimers) {
    Frame& hidden = surface.CreateFrame("Hidden");
    surface.CreateLabel("Inside", &hidden);
    hidden.setVisible(false);
    Label& shown = surface.CreateLabel("Shown");
    Label& off = surface.CreateLabel("Off");
    off.setVisible(false);
    surface.CreateTimer("TimerUP");
    EXPECT_EQ(surface.PaintOrder(), (std::vector<Element*>{&surface, &shown}));
}

TEST_F(ElementModel, HiddenSurfacePaintsNothing) {
    surface.CreateLabel("L");
    surface.setVisible(false);
    EXPECT_TRUE(surface.PaintOrder().empty());
}

TEST_F(ElementModel, ChangesOfAShownElementRequestAPaint) {
    Label& l = surface.CreateLabel("L");
    paints = 0;
    l.setLeft(15);
    l.setBackColor(0xFF0000);
    l.setCaption("x");
    EXPECT_EQ(paints, 3);
}

TEST_F(ElementModel, WritingTheSameValueRequestsNoPaint) {
    Label& l = surface.CreateLabel("L");
    l.setLeft(15);
    l.setForeColor(0x123456);
    paints = 0;
    l.setLeft(15);
    l.setForeColor(0x123456);
    l.Move(15, 0);
    EXPECT_EQ(paints, 0);
}

TEST_F(ElementModel, ChangesOfHiddenElementsRequestNoPaint) {
    Frame& frame = surface.CreateFrame("FrameImmagini");
    frame.setVisible(false);
    Label& inside = surface.CreateLabel("L", &frame);
    paints = 0;
    inside.setLeft(100);
    inside.setVisible(false);
    inside.setVisible(true);
    frame.setBackColor(0xFF);
    EXPECT_EQ(paints, 0);
}

TEST_F(ElementModel, ShowingAndHidingRequestAPaint) {
    Label& l = surface.CreateLabel("L");
    paints = 0;
    l.setVisible(false);
    EXPECT_EQ(paints, 1);
    l.setVisible(true);
    EXPECT_EQ(paints, 2);
}

TEST_F(ElementModel, ToolTipAndTagChangesDoNotRepaint) {
    ImageElement& i = surface.CreateImage("ImageTools");
    paints = 0;
    i.setToolTipText("Scelta colonne da visualizzare");
    i.setTag("7");
    EXPECT_EQ(i.ToolTipText(), "Scelta colonne da visualizzare");
    EXPECT_EQ(i.Tag(), "7");
    EXPECT_EQ(paints, 0);
}

TEST_F(ElementModel, PaintRequestsMadeWhilePaintingAreDropped) {
    Label& l = surface.CreateLabel("L");
    int nested = 0;
    surface.onInvalidate = [&] {
        ++nested;
        l.setLeft(l.Left() + 1);  // a realisation that touches the tree while it paints
    };
    l.setTop(5);
    EXPECT_EQ(nested, 1);
    EXPECT_EQ(l.Left(), 1.0f);
    l.setTop(6);
    EXPECT_EQ(nested, 2);
}

TEST_F(ElementModel, MousePointerTakesStandardCodesAndCustom) {
    CellGrid& g = surface.CreateCellGrid("FG1");
    g.setMousePointer(Pointer::Custom);
    EXPECT_EQ(g.MousePointer(), 99);
    g.setMousePointer(Pointer::Hourglass);
    EXPECT_EQ(g.MousePointer(), 11);
    EXPECT_UI_ERROR(g.setMousePointer(16), ErrorKind::InvalidValue, 380);
    EXPECT_UI_ERROR(g.setMousePointer(-1), ErrorKind::InvalidValue, 380);
    EXPECT_EQ(g.MousePointer(), 11);
}

TEST_F(ElementModel, MouseIconIsKept) {
    CellGrid& g = surface.CreateCellGrid("FG1");
    Picture hand = MakePicture(32, 32);
    g.setMouseIcon(hand);
    EXPECT_EQ(g.MouseIcon(), hand);
}

TEST_F(ElementModel, FontIsStoredWhole) {
    Label& l = surface.CreateLabel("LabelTOT");
    Font f;
    f.name = "Arial";
    f.size = 10.0f;
    f.italic = true;
    l.setFont(f);
    EXPECT_EQ(l.GetFont(), f);
}

TEST_F(ElementModel, DefaultColoursAreTheButtonColours) {
    Label& l = surface.CreateLabel("L");
    EXPECT_EQ(l.BackColor(), SystemColour::ButtonFace);
    EXPECT_EQ(l.ForeColor(), SystemColour::ButtonText);
    TextBox& t = surface.CreateTextBox("T");
    EXPECT_EQ(t.BackColor(), SystemColour::WindowBackground);
    EXPECT_EQ(t.ForeColor(), SystemColour::WindowText);
}

TEST_F(ElementModel, DestroyRemovesTheElementAndAllItHolds) {
    Frame& frame = surface.CreateFrame("F");
    EXPECT_TRUE(surface.Contains(surface.CreateLabel("L", &frame)));
    Label& other = surface.CreateLabel("Other");
    paints = 0;
    surface.Destroy(frame);
    EXPECT_EQ(surface.Children(), (std::vector<Element*>{&other}));
    EXPECT_EQ(surface.PaintOrder(), (std::vector<Element*>{&surface, &other}));
    EXPECT_EQ(paints, 1);
}

TEST_F(ElementModel, TheSurfaceCannotBeDestroyed) {
    EXPECT_UI_ERROR(surface.Destroy(surface), ErrorKind::InvalidValue, 380);
}

TEST_F(ElementModel, ResizeRaisesOnResizeOncePerChange) {
    int resizes = 0;
    surface.onResize = [&](Surface&) { ++resizes; };
    surface.Resize(15600, 9600);  // the size it has
    EXPECT_EQ(resizes, 0);
    surface.Resize(8000, 4000);
    EXPECT_EQ(resizes, 1);
    surface.setWidth(9000);
    surface.setHeight(5000);
    surface.Move(0, 0, 9000, 6000);
    EXPECT_EQ(resizes, 4);
    surface.Move(10, 10);
    EXPECT_EQ(resizes, 4);
    EXPECT_EQ(surface.Width(), 9000.0f);
    EXPECT_EQ(surface.Height(), 6000.0f);
}

TEST_F(ElementModel, SurfaceRefusesANegativeSize) {
    EXPECT_UI_ERROR(surface.Resize(-1, 100), ErrorKind::InvalidValue, 380);
    EXPECT_EQ(surface.Width(), 15600.0f);
}

TEST_F(ElementModel, ExtenderPositionAndParentAreKept) {
    surface.setExtenderPosition(120, 240);
    surface.setParent("Form1");
    EXPECT_EQ(surface.ExtenderLeft(), 120.0f);
    EXPECT_EQ(surface.ExtenderTop(), 240.0f);
    EXPECT_EQ(surface.Parent(), "Form1");
}

TEST_F(ElementModel, ScreenPointerIsHandedToTheRealisation) {
    std::vector<int16_t> seen;
    surface.onScreenPointer = [&](int16_t p) { seen.push_back(p); };
    surface.setScreenPointer(Pointer::Hourglass);
    surface.setScreenPointer(Pointer::Default);
    EXPECT_EQ(seen, (std::vector<int16_t>{11, 0}));
    EXPECT_EQ(surface.ScreenPointer(), 0);
    EXPECT_UI_ERROR(surface.setScreenPointer(50), ErrorKind::InvalidValue, 380);
}

}  // namespace
}  // namespace TabulonLib12::testing
