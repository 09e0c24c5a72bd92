// The arrow keys at the key box, and the wheel of the host form's window: its steps by the time
// between notches, the bounds of the bar, and who holds the one hook of a thread.
#include <gtest/gtest.h>

#include <thread>

#include "grid_fixture.h"

namespace TabulonLib12::testing {
namespace {

constexpr int32_t kNotchAway = 120;     // the wheel turned away from the user: the list moves up
constexpr int32_t kNotchToward = -120;  // toward the user: the list moves down

struct KeyEvents : EventRecorder {
    void KeyDown(int16_t& k, int16_t& shift) override {
        names.push_back("KeyDown");
        keys.push_back(k);
        shifts.push_back(shift);
        k = 0;  // a change of the code reaches nothing
    }
    void KeyPress(int16_t& ascii) override {
        names.push_back("KeyPress");
        keys.push_back(ascii);
    }
    void KeyUp(int16_t& k, int16_t&) override {
        names.push_back("KeyUp");
        keys.push_back(k);
    }
    std::vector<int16_t> keys, shifts;
};

class KeysTest : public GridTest {
protected:
    KeysTest() { control->setEvents(&keyEvents); }
    // Ten grid rows over a hundred records: Max 90.
    void SetUp() override {
        LoadNumbered(100);
        keyEvents.names.clear();
        changed.clear();
    }

    TextBox& TextKey() { return *S().elements.TextKey; }
    Scorrix& VS1() { return S().VS1; }
    void Key(int16_t code, int16_t shift = 0) { TextKey().HandleKeyDown(code, shift); }
    // Counts the bar's Change events from now on; the control still handles each.
    int& CountChanges() {
        auto handled = VS1().onChange;
        VS1().onChange = [this, handled] {
            ++changes;
            handled();
        };
        return changes;
    }

    KeyEvents keyEvents;
    int changes = 0;
};

TEST_F(KeysTest, TheDownArrowSelectsTheNextGridRowThenTheHostSeesTheKey) {
    control->SelezionaRiga(2);
    Key(40, 3);
    EXPECT_EQ(FG1().Row(), 3);
    EXPECT_EQ(control->IndiceSelezionato(), 4);
    EXPECT_EQ(VS1().Value(), 0);
    ASSERT_EQ(keyEvents.names.back(), "KeyDown");
    EXPECT_EQ(keyEvents.keys.back(), 40);
    EXPECT_EQ(keyEvents.shifts.back(), 3);
}

TEST_F(KeysTest, TheHostSeesTheKeyAfterTheMove) {
    control->SelezionaRiga(5);
    int32_t rowAtKey = -1;
    struct Watch : KeyEvents {
        Tabulon12* control = nullptr;
        int32_t* seen = nullptr;
        void KeyDown(int16_t& k, int16_t& s) override {
            *seen = control->IndiceSelezionato();
            KeyEvents::KeyDown(k, s);
        }
    } watch;
    watch.control = control.get();
    watch.seen = &rowAtKey;
    control->setEvents(&watch);
    Key(38);
    EXPECT_EQ(rowAtKey, 5);  // record 5 is on grid row 4
    EXPECT_EQ(FG1().Row(), 4);
}

TEST_F(KeysTest, TheUpArrowSelectsTheRowAbove) {
    control->setTopRow(20);
    control->SelezionaRiga(6);
    Key(38);
    EXPECT_EQ(FG1().Row(), 5);
    EXPECT_EQ(control->IndiceSelezionato(), 26);
    EXPECT_EQ(VS1().Value(), 20);
}

TEST_F(KeysTest, DownOnTheLastGridRowScrollsOneRecordAndKeepsTheSelectionOnThatRow) {
    control->setTopRow(30);
    control->SelezionaRiga(9);
    ASSERT_EQ(FG1().Rows(), 10);
    EXPECT_EQ(control->IndiceSelezionato(), 40);
    Key(40);
    EXPECT_EQ(VS1().Value(), 31);
    EXPECT_EQ(FG1().Row(), 9);
    EXPECT_EQ(control->IndiceSelezionato(), 41);
    EXPECT_EQ(FG1().TextMatrix(9, 0), "41");
}

TEST_F(KeysTest, UpOnGridRowZeroScrollsOneRecordBack) {
    control->setTopRow(30);
    control->SelezionaRiga(0);
    Key(38);
    EXPECT_EQ(VS1().Value(), 29);
    EXPECT_EQ(FG1().Row(), 0);
    EXPECT_EQ(control->IndiceSelezionato(), 30);
}

TEST_F(KeysTest, DownOnTheLastRowAtMaxKeepsTheValueRaisesChangeAndSelectsTheRowAgain) {
    control->setTopRow(VS1().Max());
    ASSERT_EQ(VS1().Max(), 90);
    control->SelezionaRiga(9);
    int& count = CountChanges();
    Key(40);
    EXPECT_EQ(VS1().Value(), 90);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(FG1().Row(), 9);
    EXPECT_EQ(control->IndiceSelezionato(), 100);
    EXPECT_TRUE(FG1().View(9, 1).selected);
}

TEST_F(KeysTest, UpOnGridRowZeroAtTheTopSelectsRowZeroAgain) {
    control->SelezionaRiga(0);
    int& count = CountChanges();
    Key(38);
    EXPECT_EQ(VS1().Value(), 0);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(FG1().Row(), 0);
    EXPECT_EQ(control->IndiceSelezionato(), 1);
}

TEST_F(KeysTest, PagingKeysAndOtherKeysMoveNothingButReachTheHost) {
    control->setTopRow(10);
    control->SelezionaRiga(4);
    for (int16_t code : {33, 34, 35, 36, 37, 39, 13, 65}) Key(code);
    EXPECT_EQ(VS1().Value(), 10);
    EXPECT_EQ(FG1().Row(), 4);
    EXPECT_EQ(control->IndiceSelezionato(), 15);
    EXPECT_EQ(keyEvents.Count("KeyDown"), 8);
    EXPECT_EQ(keyEvents.keys, (std::vector<int16_t>{33, 34, 35, 36, 37, 39, 13, 65}));
}

TEST_F(KeysTest, KeyPressAndKeyUpOnlyReachTheHost) {
    control->SelezionaRiga(3);
    TextKey().HandleKeyPress(97);
    TextKey().HandleKeyUp(40, 1);
    EXPECT_EQ(keyEvents.names, (std::vector<std::string>{"KeyPress", "KeyUp"}));
    EXPECT_EQ(keyEvents.keys, (std::vector<int16_t>{97, 40}));
    EXPECT_EQ(FG1().Row(), 3);
}

TEST_F(KeysTest, TheDownArrowWalksIntoTheEmptyRowsOfAShortList) {
    control->setDataBaseName(MakeNumbered(3, "short.db"));
    control->Carica();
    control->SelezionaRiga(2);
    Key(40);
    EXPECT_EQ(FG1().Row(), 3);
    EXPECT_EQ(control->IndiceSelezionato(), 0);
}

TEST_F(KeysTest, AKeyAtTheKeyBoxNeverMovesTheSurfacesOwnSelection) {
    control->SelezionaRiga(4);
    Key(35);  // End would take a grid's selection to its last row
    Key(34);
    EXPECT_EQ(FG1().Row(), 4);
    EXPECT_EQ(FG1().RowSel(), 4);
}

// ---- the wheel ----

class WheelTest : public KeysTest {
protected:
    WheelTest() {
        form->setWindow(window);
        control->setFormContenitore(form);
    }
    void SetUp() override {
        KeysTest::SetUp();
        control->setTopRow(50);
        // Far from any earlier notch of this thread, whatever ran before.
        clock.now = Tabulon12Probe::LastWheelTick() + 1'000'000;
    }
    // A notch `ms` after the last one.
    void Notch(uint32_t ms, int32_t delta) {
        clock.now += ms;
        window->SendWheel(0, delta);
    }

    std::shared_ptr<HostForm> form = std::make_shared<HostForm>("Form1");
    std::shared_ptr<HeadlessWindow> window = std::make_shared<HeadlessWindow>();
};

TEST_F(WheelTest, WheelStatusTrueHooksTheFormsWindowAndTellsTheHost) {
    control->setWheelStatus(true);
    EXPECT_TRUE(control->WheelStatus());
    EXPECT_EQ(window->ListenerCount(), 1);
    EXPECT_EQ(changed, (std::vector<std::string>{"WheelStatus"}));
    control->setWheelStatus(false);
    EXPECT_EQ(window->ListenerCount(), 0);
    EXPECT_EQ(changed, (std::vector<std::string>{"WheelStatus", "WheelStatus"}));
}

TEST_F(WheelTest, WithoutAFormTheWriteFailsAfterStoringTheValueAndHooksNothing) {
    control->setFormContenitore(nullptr);
    EXPECT_THROW(control->setWheelStatus(true), Error);
    EXPECT_TRUE(control->WheelStatus());
    EXPECT_TRUE(changed.empty());
    EXPECT_EQ(window->ListenerCount(), 0);
}

TEST_F(WheelTest, AFormWithoutAWindowHooksNothingAndTheWriteSucceeds) {
    form->setWindow(nullptr);
    control->setWheelStatus(true);
    EXPECT_EQ(window->ListenerCount(), 0);
    EXPECT_EQ(changed, (std::vector<std::string>{"WheelStatus"}));
}

TEST_F(WheelTest, TheFirstNotchAfterAStartMovesOne) {
    // A fresh thread has a fresh hook module, whose last tick is 0: the tick since the machine
    // started is then far over 500 ms.
    int32_t valueAfter = -1;
    uint32_t lastTick = 1;
    const std::string path = control->DataBaseName();
    std::thread fresh([&] {
        ManualClock upSince;
        upSince.now = 3'600'000;
        HostServices services = host;
        services.clock = &upSince;
        Tabulon12 list(services, metrics, timers);
        list.Superficie().Resize(9000, kTenRowHeight);
        list.setCols(1);
        list.setCampoQuery(0, "id");
        list.setFormato(0, "Nessuno");
        list.setDataBaseName(path);
        list.setQueryString("SELECT id FROM t ORDER BY id");
        list.Carica();
        auto ownForm = std::make_shared<HostForm>("Form2");
        auto ownWindow = std::make_shared<HeadlessWindow>();
        ownForm->setWindow(ownWindow);
        list.setFormContenitore(ownForm);
        list.setWheelStatus(true);
        lastTick = Tabulon12Probe::LastWheelTick();
        ownWindow->SendWheel(0, kNotchToward);
        valueAfter = list.TopRow();
    });
    fresh.join();
    EXPECT_EQ(lastTick, 0u);
    EXPECT_EQ(valueAfter, 1);
}

TEST_F(WheelTest, EachIntervalGivesTheStepOfTheTable) {
    control->setWheelStatus(true);
    struct Case {
        uint32_t ms;
        int32_t up, down;
    };
    for (Case c : {Case{150, 0, 0}, Case{151, 5, 3}, Case{300, 5, 3}, Case{301, 3, 3}, Case{500, 3, 3},
                   Case{501, 1, 1}, Case{60'000, 1, 1}}) {
        Notch(1000, kNotchAway);  // the notch the interval counts from
        control->setTopRow(50);
        Notch(c.ms, kNotchAway);
        EXPECT_EQ(VS1().Value(), 50 - c.up) << c.ms << " ms up";
        Notch(1000, kNotchAway);
        control->setTopRow(50);
        Notch(c.ms, kNotchToward);
        EXPECT_EQ(VS1().Value(), 50 + c.down) << c.ms << " ms down";
    }
}

TEST_F(WheelTest, ANotchTooSoonMovesNothingAndTheNextIntervalCountsFromIt) {
    control->setWheelStatus(true);
    Notch(1000, kNotchAway);
    EXPECT_EQ(VS1().Value(), 49);
    Notch(100, kNotchAway);
    EXPECT_EQ(VS1().Value(), 49);
    Notch(200, kNotchAway);  // 300 ms after the first notch, but 200 after the one too soon
    EXPECT_EQ(VS1().Value(), 44);
}

TEST_F(WheelTest, ASteadyFastSpinMovesNothing) {
    control->setWheelStatus(true);
    Notch(1000, kNotchToward);
    for (int i = 0; i < 50; ++i) Notch(120, kNotchToward);
    EXPECT_EQ(VS1().Value(), 51);
}

TEST_F(WheelTest, UpNearTheTopStopsAtMinAndDownNearTheEndStopsAtMax) {
    control->setWheelStatus(true);
    Notch(1000, kNotchAway);
    control->setTopRow(2);
    Notch(200, kNotchAway);
    EXPECT_EQ(VS1().Value(), 0);
    control->setTopRow(VS1().Max() - 1);
    Notch(200, kNotchToward);
    EXPECT_EQ(VS1().Value(), VS1().Max());
}

TEST_F(WheelTest, UpAtTheTopStillWritesTheValueSoTheSurfaceRepaints) {
    control->setWheelStatus(true);
    control->setTopRow(0);
    int& count = CountChanges();
    Notch(1000, kNotchAway);
    EXPECT_EQ(VS1().Value(), 0);
    EXPECT_EQ(count, 1);
}

TEST_F(WheelTest, ADeltaOfZeroCountsAsDownward) {
    control->setWheelStatus(true);
    Notch(1000, 0);
    EXPECT_EQ(VS1().Value(), 51);
}

TEST_F(WheelTest, TheKeyStateIsNotUsedAndTheWindowStillHandlesEveryMessage) {
    control->setWheelStatus(true);
    clock.now += 1000;
    window->SendWheel(0x0008 /* control key */, kNotchToward);
    EXPECT_EQ(VS1().Value(), 51);
    Notch(10, kNotchToward);
    EXPECT_EQ(window->WheelsHandled(), 2);
}

TEST_F(WheelTest, TheWheelMovesNeitherTheSelectionNorADisabledBarsCheck) {
    control->setWheelStatus(true);
    control->SelezionaRiga(3);
    const int32_t selected = control->IndiceSelezionato();
    VS1().setEnabled(false);
    Notch(1000, kNotchToward);
    EXPECT_EQ(VS1().Value(), 51);
    EXPECT_EQ(control->IndiceSelezionato(), selected);
}

TEST_F(WheelTest, WritingTrueTwiceHooksTheWindowOnceAndANotchMovesOnce) {
    control->setWheelStatus(true);
    control->setWheelStatus(true);
    EXPECT_EQ(window->ListenerCount(), 1);
    Notch(1000, kNotchToward);
    EXPECT_EQ(VS1().Value(), 51);
    EXPECT_EQ(window->WheelsHandled(), 1);
}

class TwoListsWheelTest : public WheelTest {
protected:
    TwoListsWheelTest() {
        second = std::make_unique<Tabulon12>(host, metrics, timers);
        second->Superficie().Resize(9000, kTenRowHeight);
        second->setFormContenitore(secondForm);
        secondForm->setWindow(secondWindow);
    }
    void SetUp() override {
        WheelTest::SetUp();
        DefineColumnsOf(*second);
        second->setDataBaseName(control->DataBaseName());
        second->setQueryString(control->QueryString());
        second->Carica();
        second->setTopRow(50);
    }
    static void DefineColumnsOf(Tabulon12& list) {
        list.setCols(3);
        const char* fields[] = {"id", "name", "amount"};
        for (int16_t c = 0; c < 3; ++c) {
            list.setCampoQuery(c, fields[c]);
            list.setFormato(c, "Nessuno");
        }
    }
    std::shared_ptr<HostForm> secondForm = std::make_shared<HostForm>("Form2");
    std::shared_ptr<HeadlessWindow> secondWindow = std::make_shared<HeadlessWindow>();
    std::unique_ptr<Tabulon12> second;
};

TEST_F(TwoListsWheelTest, TheListThatHooksLastHasTheWheelFromEveryHookedWindow) {
    control->setWheelStatus(true);
    second->setWheelStatus(true);
    Notch(1000, kNotchToward);  // the first list's window
    EXPECT_EQ(control->TopRow(), 50);
    EXPECT_EQ(second->TopRow(), 51);
    clock.now += 1000;
    secondWindow->SendWheel(0, kNotchToward);
    EXPECT_EQ(second->TopRow(), 52);
}

TEST_F(TwoListsWheelTest, AnyListThatLetsGoTakesTheHookOfTheWindowHookedLast) {
    control->setWheelStatus(true);
    second->setWheelStatus(true);
    control->setWheelStatus(false);  // it never hooked the second window, but unhooks it
    EXPECT_EQ(secondWindow->ListenerCount(), 0);
    clock.now += 1000;
    secondWindow->SendWheel(0, kNotchToward);
    EXPECT_EQ(second->TopRow(), 50);
    EXPECT_EQ(secondWindow->WheelsHandled(), 1);
}

TEST_F(TwoListsWheelTest, TerminateUnhooksWhateverWheelStatusSays) {
    second->setWheelStatus(true);
    control->Terminate();
    EXPECT_EQ(secondWindow->ListenerCount(), 0);
    EXPECT_TRUE(second->WheelStatus());
}

TEST_F(TwoListsWheelTest, AListThatIsGoneIsNeverCalledAndLeavesNoListenerBehind) {
    control->setWheelStatus(true);
    second->setWheelStatus(true);
    second.reset();  // unhooks its own window; the first window's listener stays for the first list
    EXPECT_EQ(secondWindow->ListenerCount(), 0);
    EXPECT_EQ(window->ListenerCount(), 1);
    Notch(1000, kNotchToward);  // the wheel belonged to the list that is gone: nothing moves
    EXPECT_EQ(control->TopRow(), 50);
    EXPECT_EQ(window->WheelsHandled(), 1);
    control.reset();
    EXPECT_EQ(window->ListenerCount(), 0);
}

TEST_F(TwoListsWheelTest, AWindowThatIsGoneBeforeTheUnhookIsLeftAlone) {
    second->setWheelStatus(true);
    secondForm->setWindow(nullptr);
    secondWindow.reset();
    second->setWheelStatus(false);
    second.reset();
    control->setWheelStatus(true);
    Notch(1000, kNotchToward);
    EXPECT_EQ(control->TopRow(), 51);
}

}  // namespace
}  // namespace TabulonLib12::testing
