// The date readers and writers on arbitrary bytes. The first byte picks the settings, the rest
// is the text for ParseDate; the same bytes also make a serial and date parts. Besides crashes,
// sanitizer findings and hangs, it checks:
// - a date that ParseDate reads has a general text (DateToText) that reads back as the same date;
// - MakeDate and SplitDate are inverse on valid parts;
// - SplitDate and DateToText of any serial give a date or throw Error::Overflow(), nothing else.
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "fuzz/fuzz_common.h"
#include "platform/runtime/datetime.h"
#include "platform/runtime/error.h"

using namespace TabulonLib12;

namespace {

[[noreturn]] void Fail(const char* what) {
    std::fprintf(stderr, "fuzz_date: %s\n", what);
    std::abort();
}

bool SameParts(const DateParts& a, const DateParts& b) {
    return a.year == b.year && a.month == b.month && a.day == b.day && a.hour == b.hour && a.minute == b.minute &&
           a.second == b.second;
}

void CheckSerial(double serial, const SystemSettings& settings) {
    try {
        const DateParts parts = SplitDate(DateTime{serial});
        if (!MakeDate(parts)) {
            Fail("SplitDate gave parts that are no date");
        }
        const std::string text = DateToText(DateTime{serial}, settings);
        const auto back = ParseDate(text, settings);
        if (!back || !SameParts(SplitDate(*back), parts)) {
            Fail("the general text of a serial does not read back as the same date");
        }
    } catch (const Error& e) {
        if (e.kind() != ErrorKind::Overflow) {
            Fail("a serial threw something other than an overflow");
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) {
        return 0;
    }
    const SystemSettings& settings = Fuzz::SettingsFor(data[0]);
    std::string storage;
    const std::string_view text =
        Fuzz::Grown(std::string_view(reinterpret_cast<const char*>(data) + 1, size - 1), storage);

    if (const auto date = ParseDate(text, settings)) {
        std::string general;
        try {
            general = DateToText(*date, settings);
        } catch (const Error&) {
            Fail("a date that ParseDate read has no general text");
        }
        const auto back = ParseDate(general, settings);
        if (!back || back->serial != date->serial) {
            Fail("the general text of a date does not read back as the same date");
        }
    }

    // The first eight bytes after the selector as a serial, any double at all.
    if (size >= 9) {
        double serial = 0.0;
        std::memcpy(&serial, data + 1, sizeof serial);
        CheckSerial(serial, settings);
    }
    // Small numbers as date parts: whatever MakeDate accepts, SplitDate gives back.
    if (size >= 7) {
        DateParts parts;
        parts.year = 1 + (data[1] | (data[2] << 8)) % 10100;
        parts.month = data[3] % 14;
        parts.day = data[4] % 33;
        parts.hour = data[5] % 25;
        parts.minute = data[6] % 61;
        parts.second = size >= 8 ? data[7] % 61 : 0;
        if (const auto made = MakeDate(parts)) {
            if (!SameParts(SplitDate(*made), parts)) {
                Fail("SplitDate does not give back the parts of MakeDate");
            }
            CheckSerial(made->serial, settings);
        }
    }
    return 0;
}
