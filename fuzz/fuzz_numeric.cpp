// The numeric readers on arbitrary bytes: IsNumeric, ParseNumber and Val. The first byte picks
// the settings, the rest is the text. Besides crashes, sanitizer findings and hangs, it checks:
// - IsNumeric agrees with ParseNumber, whose value is finite and never negative zero;
// - the general text of a parsed number reads back and gives the same general text again;
// - Val gives a number or throws Error::Overflow(), nothing else.
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "fuzz/fuzz_common.h"
#include "platform/runtime/conversions.h"
#include "platform/runtime/error.h"

using namespace TabulonLib12;

namespace {

[[noreturn]] void Fail(const char* what) {
    std::fprintf(stderr, "fuzz_numeric: %s\n", what);
    std::abort();
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

    const auto number = ParseNumber(text, settings);
    if (IsNumeric(text, settings) != number.has_value()) {
        Fail("IsNumeric and ParseNumber disagree");
    }
    if (number) {
        if (!std::isfinite(*number)) {
            Fail("ParseNumber gave a value that is not finite");
        }
        if (*number == 0.0 && std::signbit(*number)) {
            Fail("ParseNumber gave negative zero");
        }
        const std::string general = NumberToText(*number, settings);
        const auto again = ParseNumber(general, settings);
        if (!again) {
            Fail("the general text of a number does not read back");
        }
        if (NumberToText(*again, settings) != general) {
            Fail("the general text changes when read back");
        }
    }

    try {
        const double value = Val(text);
        if (std::isnan(value)) {
            Fail("Val gave NaN");
        }
    } catch (const Error& e) {
        if (e.kind() != ErrorKind::Overflow) {
            Fail("Val threw something other than an overflow");
        }
    }
    return 0;
}
