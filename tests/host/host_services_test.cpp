#include "platform/host/host_services.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "platform/runtime/error.h"
#include "tests/support/test_doubles.h"

namespace TabulonLib12 {
namespace {

Picture OnePixel(uint32_t argb) { return std::make_shared<const Image>(1, 1, argb); }

TEST(HostControl, ListImagesOnAControlThatIsNoImageListFailsWith438) {
    HostControl button("Command1");
    try {
        button.ListImage(1);
        FAIL() << "no error";
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), 438);
        EXPECT_EQ(e.description(), "Object doesn't support this property or method");
    }
}

TEST(ImageList, ListImageCountsFromOne) {
    auto red = OnePixel(0xFFFF0000);
    auto blue = OnePixel(0xFF0000FF);
    ImageList list("ImageList1", {red, blue});
    EXPECT_EQ(list.Count(), 2);
    EXPECT_EQ(list.ListImage(1), red);
    EXPECT_EQ(list.ListImage(2), blue);
}

TEST(ImageList, IndexZeroAndPastTheEndFailWithIndexOutOfBounds) {
    ImageList list("ImageList1", {OnePixel(0xFF000000)});
    for (int32_t bad : {0, 2, -1, 100000}) {
        try {
            list.ListImage(bad);
            FAIL() << "index " << bad << " accepted";
        } catch (const Error& e) {
            EXPECT_EQ(e.number(), 35600);
            EXPECT_EQ(e.kind(), ErrorKind::OutOfBounds);
            EXPECT_EQ(e.description(), "Index out of bounds");
        }
    }
}

TEST(ImageList, AddAppendsAtTheEnd) {
    ImageList list("ImageList1");
    EXPECT_THROW(list.ListImage(1), Error);
    auto p = OnePixel(0xFF00FF00);
    list.Add(p);
    EXPECT_EQ(list.Count(), 1);
    EXPECT_EQ(list.ListImage(1), p);
}

TEST(ImageList, IsFoundThroughTheHostControlInterface) {
    auto p = OnePixel(0xFF123456);
    std::shared_ptr<HostControl> control = std::make_shared<ImageList>("Icons", std::vector<Picture>{p});
    EXPECT_EQ(control->ListImage(1), p);
}

TEST(HostForm, FindIgnoresCase) {
    HostForm form("Form1");
    auto list = std::make_shared<ImageList>("ImageList1");
    form.Add(std::make_shared<HostControl>("Command1"));
    form.Add(list);
    EXPECT_EQ(form.Find("imagelist1"), list);
    EXPECT_EQ(form.Find("IMAGELIST1"), list);
    EXPECT_EQ(form.Find("ImageList1"), list);
    EXPECT_EQ(form.Name(), "Form1");
    EXPECT_EQ(form.Controls().size(), 2u);
}

TEST(HostForm, FindAnswersNullForAMissingName) {
    HostForm form("Form1");
    form.Add(std::make_shared<HostControl>("Command1"));
    EXPECT_EQ(form.Find("Command"), nullptr);
    EXPECT_EQ(form.Find(""), nullptr);
    EXPECT_EQ(form.Find("Command12"), nullptr);
}

TEST(HostForm, FindAnswersTheFirstOfTwoEqualNames) {
    HostForm form("Form1");
    auto first = std::make_shared<HostControl>("Pics");
    auto second = std::make_shared<ImageList>("PICS");
    form.Add(first);
    form.Add(second);
    EXPECT_EQ(form.Find("pics"), first);
}

TEST(RecordingMessageBox, RecordsEveryBoxAndAnswersTheSetAnswer) {
    RecordingMessageBox box;
    EXPECT_EQ(box.MsgBox("Errore", MsgBoxStyle::Critical, "Titolo"), MsgBoxOk);
    box.answer = 2;
    EXPECT_EQ(box.MsgBox("Seconda", MsgBoxStyle::Plain, ""), 2);
    ASSERT_EQ(box.shown.size(), 2u);
    EXPECT_EQ(box.shown[0].prompt, "Errore");
    EXPECT_EQ(box.shown[0].style, 16);
    EXPECT_EQ(box.shown[0].title, "Titolo");
    EXPECT_EQ(box.shown[1].prompt, "Seconda");
    EXPECT_EQ(box.shown[1].style, 0);
    EXPECT_EQ(box.shown[1].title, "");
}

TEST(RecordingScreenPointer, KeepsTheValueAndEveryWrite) {
    RecordingScreenPointer pointer;
    EXPECT_EQ(pointer.MousePointer(), 0);
    pointer.setMousePointer(11);
    EXPECT_EQ(pointer.MousePointer(), 11);
    pointer.setMousePointer(0);
    pointer.setMousePointer(0);
    EXPECT_EQ(pointer.MousePointer(), 0);
    EXPECT_EQ(pointer.history, (std::vector<int16_t>{11, 0, 0}));
}

TEST(ManualClock, AnswersTheTimeItIsSetTo) {
    ManualClock clock;
    EXPECT_EQ(clock.TickCount(), 0u);
    clock.now = 0xFFFFFFFFu;
    EXPECT_EQ(clock.TickCount(), 0xFFFFFFFFu);
}

TEST(SteadyClock, AdvancesInMilliseconds) {
    SteadyClock clock;
    const uint32_t before = clock.TickCount();
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
    const uint32_t elapsed = clock.TickCount() - before;  // modular: right across a wrap too
    EXPECT_GE(elapsed, 30u);
    EXPECT_LT(elapsed, 5000u);
}

TEST(HostServices, StartsEmptyAndCarriesWhatTheHostGives) {
    HostServices services;
    EXPECT_EQ(services.messages, nullptr);
    EXPECT_EQ(services.screen, nullptr);
    EXPECT_EQ(services.clock, nullptr);
    EXPECT_EQ(services.engine, nullptr);
    EXPECT_EQ(services.parentControls, nullptr);
    EXPECT_FALSE(services.propertyChanged);

    RecordingMessageBox box;
    std::vector<std::string> changed;
    services.messages = &box;
    services.propertyChanged = [&](const std::string& name) { changed.push_back(name); };
    services.messages->MsgBox("x", MsgBoxStyle::Information, "t");
    services.propertyChanged("Cols");
    EXPECT_EQ(box.shown.size(), 1u);
    EXPECT_EQ(changed, std::vector<std::string>{"Cols"});
}

TEST(HeadlessWindow, EveryListenerSeesAWheelMessageBeforeTheWindowHandlesIt) {
    HeadlessWindow window;
    std::vector<std::string> seen;
    const int first = window.AddWheelListener([&](int32_t keys, int32_t delta) {
        seen.push_back("first " + std::to_string(keys) + " " + std::to_string(delta));
        EXPECT_EQ(window.WheelsHandled(), 0);
    });
    window.AddWheelListener([&](int32_t, int32_t delta) { seen.push_back("second " + std::to_string(delta)); });
    EXPECT_NE(first, 0);
    window.SendWheel(8, -120);
    EXPECT_EQ(seen, (std::vector<std::string>{"first 8 -120", "second -120"}));
    EXPECT_EQ(window.WheelsHandled(), 1);
    window.RemoveWheelListener(first);
    EXPECT_EQ(window.ListenerCount(), 1);
}

TEST(HeadlessWindow, AListenerThatRemovesItselfDoesNotStopTheOthers) {
    HeadlessWindow window;
    int id = 0, others = 0;
    id = window.AddWheelListener([&](int32_t, int32_t) { window.RemoveWheelListener(id); });
    window.AddWheelListener([&](int32_t, int32_t) { ++others; });
    window.SendWheel(0, 120);
    window.SendWheel(0, 120);
    EXPECT_EQ(others, 2);
    EXPECT_EQ(window.ListenerCount(), 1);
}

}  // namespace
}  // namespace TabulonLib12
