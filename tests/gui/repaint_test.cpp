// Repainting: changes made within one turn of the event loop paint once.
#include <gtest/gtest.h>

#include "gui_test_support.h"

namespace TabulonLib12::GuiTest {
namespace {

using Repaint = WidgetTest;

TEST_F(Repaint, ManyCellWritesInOneTurnPaintOnce) {
    CellGrid& grid = surface().CreateCellGrid("FG1");
    grid.Move(0, 0, Px(280), Px(180));
    grid.setRows(30);
    grid.setCols(6);
    ShowAndWait();
    QTest::qWait(30);
    const int before = widget.PaintCount();
    for (int r = 0; r < 30; ++r)
        for (int c = 0; c < 6; ++c) grid.setTextMatrix(r, c, std::to_string(r * c));
    EXPECT_EQ(widget.PaintCount(), before);  // nothing is painted synchronously
    QTest::qWait(50);
    EXPECT_EQ(widget.PaintCount(), before + 1);
    EXPECT_EQ(grid.TextMatrix(29, 5), "145");
}

TEST_F(Repaint, AChangeAfterAPaintPaintsAgain) {
    Label& label = surface().CreateLabel("L");
    ShowAndWait();
    QTest::qWait(30);
    const int before = widget.PaintCount();
    label.setCaption("uno");
    QTest::qWait(30);
    label.setCaption("due");
    QTest::qWait(30);
    EXPECT_EQ(widget.PaintCount(), before + 2);
}

TEST(RepaintLifetime, ASurfaceOutlivingItsWidgetNoLongerCallsIt) {
    auto widget = std::make_unique<SurfaceWidget>();
    Surface& surface = widget->GetSurface();
    EXPECT_TRUE(static_cast<bool>(surface.onInvalidate));
    QtTextMetrics metrics;
    QtTimerService timers;
    Surface own(metrics, timers);
    {
        SurfaceWidget view(own);
        EXPECT_TRUE(static_cast<bool>(own.onInvalidate));
    }
    EXPECT_FALSE(static_cast<bool>(own.onInvalidate));
    EXPECT_FALSE(static_cast<bool>(own.onScreenPointer));
    own.CreateLabel("L").setCaption("no widget to call");
}

TEST(RepaintLifetime, WidgetOnAGivenSurfaceTakesTheSurfacesSize) {
    QtTextMetrics metrics;
    QtTimerService timers;
    Surface surface(metrics, timers);
    surface.Resize(Px(320), Px(240));
    SurfaceWidget view(surface);
    EXPECT_EQ(view.size(), QSize(320, 240));
    EXPECT_EQ(view.sizeHint(), QSize(320, 240));
}

}  // namespace
}  // namespace TabulonLib12::GuiTest
