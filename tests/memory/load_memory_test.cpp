// A load too big for the memory the process is given: the load fails as a failed sizing of its
// store does, with its message and an empty list, puts back everything it set for its duration,
// and the control goes on working. The scenario runs in a child process whose memory is
// limited: by an address-space limit in a normal build, by the sanitizer's allocation limit
// (set by the test's registration) in an AddressSanitizer build, where an address-space limit
// would leave the sanitizer no room for its own bookkeeping.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>

#include "control/tabulon12.h"
#include "platform/sqlite/sqlite_engine.h"
#include "platform/ui/text_metrics.h"
#include "tests/db/sqlite_fixture.h"
#include "tests/support/test_doubles.h"

#if defined(__SANITIZE_ADDRESS__)
#define TABULON_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TABULON_ADDRESS_SANITIZER 1
#endif
#endif

namespace TabulonLib12::testing {
namespace {

// Records whose store of four columns (and the marker) needs about 150 MB of cells: more than
// the limit leaves free, yet quick for SQLite to count.
constexpr int kBigRecords = 3'800'000;
constexpr int kSmallRecords = 830;
constexpr const char* kBigQuery =
    "WITH RECURSIVE k(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM k WHERE i < 3800000) "
    "SELECT i AS id, i * 2 AS twice, 'x' AS mark, i AS again FROM k";

// The process's address space in bytes, as the kernel counts it against RLIMIT_AS.
size_t AddressSpaceBytes() {
    std::ifstream statm("/proc/self/statm");
    size_t pages = 0;
    statm >> pages;
    return pages * static_cast<size_t>(sysconf(_SC_PAGESIZE));
}

[[noreturn]] void Fail(const std::string& why) {
    std::fprintf(stderr, "scenario failed: %s\n", why.c_str());
    std::exit(1);
}

// Runs in the child: loads the big query under the limit, checks what the user sees, then loads
// a small list. Ends the process: 0 and "scenario passed" when every check held.
[[noreturn]] void RunScenario(const std::string& databasePath) {
    HeadlessTextMetrics metrics;
    ManualTimerService timers;
    RecordingMessageBox messages;
    RecordingScreenPointer screen;
    SqliteEngine engine;
    HostServices host;
    host.messages = &messages;
    host.screen = &screen;
    host.engine = &engine;
    auto control = std::make_unique<Tabulon12>(host, metrics, timers);
    control->Superficie().Resize(9000, 4000);
    control->setCols(4);
    const char* fields[] = {"id", "twice", "mark", "again"};
    for (int16_t c = 0; c < 4; ++c) {
        control->setCampoQuery(c, fields[c]);
        control->setFormato(c, "Numerico");
    }
    control->setDataBaseName(databasePath);

#ifndef TABULON_ADDRESS_SANITIZER
    // Room for SQLite's counting and the small list, not for the big store.
    const rlim_t limit = AddressSpaceBytes() + 96u * 1024 * 1024;
    const rlimit rl{limit, limit};
    if (setrlimit(RLIMIT_AS, &rl) != 0) Fail("the address-space limit could not be set");
#else
    const char* options = std::getenv("ASAN_OPTIONS");
    if (options == nullptr || std::string(options).find("max_allocation_size_mb") == std::string::npos)
        Fail("run through CTest, which gives the sanitizer its allocation limit");
#endif

    control->setQueryString(kBigQuery);
    control->Carica();
    if (messages.shown.size() != 1) Fail("expected one message, got " + std::to_string(messages.shown.size()));
    if (messages.shown[0].prompt != "Errore nel caricamento dell'elenco\r\nOut of memory")
        Fail("unexpected message: " + messages.shown[0].prompt);
    if (messages.shown[0].style != MsgBoxStyle::Critical) Fail("the message lacks the critical icon");
    if (screen.MousePointer() != Pointer::Default) Fail("the pointer stayed " + std::to_string(screen.MousePointer()));
    if (control->RighePiene() != 0) Fail("the list is not empty: " + std::to_string(control->RighePiene()));

    control->setQueryString("SELECT id, twice, mark, again FROM small");
    control->Carica();
    if (control->RighePiene() != kSmallRecords) Fail("the next load read " + std::to_string(control->RighePiene()));
    if (control->TextMatrix(kSmallRecords - 1, 1) != std::to_string(2 * kSmallRecords)) Fail("the next load's text");
    if (messages.shown.size() != 1) Fail("the next load showed a message: " + messages.shown.back().prompt);
    if (screen.MousePointer() != Pointer::Default) Fail("the pointer after the next load");
    control.reset();
    std::fprintf(stderr, "scenario passed\n");
    std::exit(0);
}

TEST(LoadMemory, ALoadTooBigForTheMemoryShowsTheLoadsMessageAndTheNextLoadWorks) {
    TempDir dir;
    const std::string path = dir.File("small.db");
    WriteDatabase(path,
                  "CREATE TABLE small(id INTEGER, twice INTEGER, mark TEXT, again INTEGER);"
                  "WITH RECURSIVE k(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM k WHERE i < " +
                      std::to_string(kSmallRecords) + ") INSERT INTO small SELECT i, i * 2, 'x', i FROM k;");
    ::testing::FLAGS_gtest_death_test_style = "fast";
    EXPECT_EXIT(RunScenario(path), ::testing::ExitedWithCode(0), "scenario passed");
}

}  // namespace
}  // namespace TabulonLib12::testing
