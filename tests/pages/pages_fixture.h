#pragma once
// A control on the headless elements, with recorders for its host's message boxes and
// property-change notices, for the design pages to edit; real SQLite files in a folder of the
// test's own. CampiTest adds the column editor on a plain form and checks the page's invariants
// after each test.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "control/tabulon12.h"
#include "pages/campi.h"
#include "pages/page_cells.h"
#include "platform/sqlite/sqlite_engine.h"
#include "platform/ui/text_metrics.h"
#include "tests/db/sqlite_fixture.h"
#include "tests/pages/page_doubles.h"
#include "tests/support/test_doubles.h"

namespace TabulonLib12::testing {

// An engine that hands out real SQLite databases and remembers what it was asked.
class RecordingEngine final : public DatabaseEngine {
public:
    std::shared_ptr<Database> OpenDatabase(const std::string& name, const OpenOptions& options) override {
        names.push_back(name);
        connects.push_back(options.connect);
        readOnly.push_back(options.readOnly);
        return real.OpenDatabase(name, options);
    }
    SqliteEngine real;
    std::vector<std::string> names, connects;
    std::vector<bool> readOnly;
};

// The control's height that gives it a few rows with the headless metrics.
inline constexpr float kControlHeight = 345 + 12 * 240;
inline constexpr float kControlWidth = 9000;

class PageTest : public ::testing::Test {
protected:
    PageTest() {
        host.messages = &messages;
        host.screen = &screen;
        host.clock = &clock;
        host.engine = &engine;
        host.propertyChanged = [this](const std::string& name) { notices.push_back(name); };
        control = std::make_unique<Tabulon12>(host, metrics, timers);
        control->Superficie().Resize(kControlWidth, kControlHeight);
        control->CaricaStruttura();
        notices.clear();
    }

    std::string MakeDatabase(const std::string& script, const std::string& name = "test.db") {
        const std::string path = dir.File(name);
        WriteDatabase(path, script);
        return path;
    }

    TempDir dir;
    HeadlessTextMetrics metrics;
    ManualTimerService timers;
    RecordingMessageBox messages;
    RecordingScreenPointer screen;
    ManualClock clock;
    RecordingEngine engine;
    HostServices host;
    std::vector<std::string> notices;
    std::unique_ptr<Tabulon12> control;
};

class CampiTest : public PageTest {
protected:
    void SetUp() override {
        site.selected = {control.get()};
        page = std::make_unique<Campi>(site, form.Fields());
        form.HScroll1.onChange = [this] {
            ++navigations;
            page->HScroll1_Change();
        };
        page->setCartellaRapporto(dir.path().string());
    }

    void TearDown() override {
        // The page's invariants after whatever the test did.
        EXPECT_EQ(page->FG().Cols(), kPageCellCount);
        EXPECT_GE(form.HScroll1.value, 0);
        EXPECT_LE(form.HScroll1.value, form.HScroll1.max);
        EXPECT_FALSE(page->EliminazioneInCorso());
    }

    // `n` columns, each with values of its own in every property of the page: column c has the
    // heading "H<c>", the width 1000 + 100 c, the key "K<c>" and so on.
    void DefineColumns(int16_t n) {
        control->setCols(n);
        for (int16_t c = 0; c < n; ++c) {
            const std::string s = std::to_string(c);
            control->setIntestazione(c, "H" + s);
            control->setColsWidth(c, static_cast<int16_t>(1000 + 100 * c));
            control->setOrdinamento(c, "O" + s);
            control->setFormato(c, "Nessuno");
            control->setCampoQuery(c, "f" + s);
            control->setCondizione(c, "C" + s);
            control->setKeyID(c, "K" + s);
            control->setTestoScelta(c, "S" + s);
        }
        notices.clear();
    }

    std::vector<std::string> Row(int r) const {
        std::vector<std::string> cells;
        for (int c = 0; c < page->FG().Cols(); ++c) cells.push_back(page->FG().TextMatrix(r, c));
        return cells;
    }

    // Moves the navigator as the user does.
    void Navigate(int16_t to) { form.HScroll1.setValue(to); }

    CampiForm form;
    BasicPageSite site;
    std::unique_ptr<Campi> page;
    int navigations = 0;
};

}  // namespace TabulonLib12::testing
