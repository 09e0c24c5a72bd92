// The format engine on arbitrary bytes. The first byte picks the settings (and, in the long-input
// mode of fuzz_common.h, with bit 0x10 grows the pattern and with 0x20 the value to a megabyte);
// the rest is the pattern, then a NUL byte, then the value (no NUL: all pattern, empty value).
// Besides crashes, sanitizer findings, hangs and exceptions (none may leave FormatText or
// FormatByKey), it checks:
// - text that is neither a number nor a date passes FormatText unchanged;
// - the format keys: "" gives "", "Nessuno" the value, "Numerico" a number, an unknown key "";
// - FormatNumber throws only an overflow, and only for a serial beyond the dates;
// - valid UTF-8 in gives valid UTF-8 out;
// - the text is never longer than the value plus a few bytes per pattern byte.
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "fuzz/fuzz_common.h"
#include "platform/runtime/conversions.h"
#include "platform/runtime/datetime.h"
#include "platform/runtime/error.h"
#include "platform/runtime/format.h"

using namespace TabulonLib12;

namespace {

[[noreturn]] void Fail(const char* what, std::string_view pattern, std::string_view value) {
    std::fprintf(stderr, "fuzz_format: %s (pattern of %zu bytes, value of %zu bytes)\n", what, pattern.size(),
                 value.size());
    std::abort();
}

bool IsValidUtf8(std::string_view text) {
    size_t i = 0;
    while (i < text.size()) {
        const auto byte = [&](size_t k) { return static_cast<unsigned char>(text[k]); };
        const unsigned char lead = byte(i);
        size_t length = 1;
        unsigned char low = 0x80;
        unsigned char high = 0xBF;
        if (lead < 0x80) {
            ++i;
            continue;
        }
        if (lead >= 0xC2 && lead <= 0xDF) {
            length = 2;
        } else if (lead >= 0xE0 && lead <= 0xEF) {
            length = 3;
            low = lead == 0xE0 ? 0xA0 : 0x80;
            high = lead == 0xED ? 0x9F : 0xBF;
        } else if (lead >= 0xF0 && lead <= 0xF4) {
            length = 4;
            low = lead == 0xF0 ? 0x90 : 0x80;
            high = lead == 0xF4 ? 0x8F : 0xBF;
        } else {
            return false;
        }
        if (text.size() - i < length || byte(i + 1) < low || byte(i + 1) > high) {
            return false;
        }
        for (size_t k = 2; k < length; ++k) {
            if (byte(i + k) < 0x80 || byte(i + k) > 0xBF) {
                return false;
            }
        }
        i += length;
    }
    return true;
}

// Per pattern byte at most: a digit, a thousands separator (three bytes at most here) and a
// percent sign's two digits; plus the value itself and the digits of the largest double.
void CheckSize(const std::string& out, std::string_view pattern, std::string_view value) {
    if (out.size() > value.size() + 8 * pattern.size() + 1024) {
        Fail("the text is longer than its bound", pattern, value);
    }
}

void CheckUtf8(const std::string& out, std::string_view pattern, std::string_view value) {
    if (IsValidUtf8(pattern) && IsValidUtf8(value) && !IsValidUtf8(out)) {
        Fail("valid UTF-8 in gave invalid UTF-8 out", pattern, value);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) {
        return 0;
    }
    const SystemSettings& settings = Fuzz::SettingsFor(data[0]);
    const std::string_view rest(reinterpret_cast<const char*>(data) + 1, size - 1);
    const size_t nul = rest.find('\0');
    // In the long-input mode the settings byte also says which of the two grows to a megabyte.
    std::string patternStorage;
    std::string valueStorage;
    std::string_view pattern = rest.substr(0, nul);
    std::string_view value = nul == std::string_view::npos ? std::string_view() : rest.substr(nul + 1);
    if ((data[0] & 0x10) != 0) {
        pattern = Fuzz::Grown(pattern, patternStorage);
    }
    if ((data[0] & 0x20) != 0) {
        value = Fuzz::Grown(value, valueStorage);
    }

    const std::string formatted = FormatText(value, pattern, settings);
    CheckSize(formatted, pattern, value);
    CheckUtf8(formatted, pattern, value);
    const auto number = ParseNumber(value, settings);
    if (!number && !ParseDate(value, settings) && formatted != value) {
        Fail("text that is neither number nor date was changed", pattern, value);
    }

    // The keys, with the pattern bytes as a key too (almost always an unknown one).
    for (std::string_view key : {std::string_view("Nessuno"), std::string_view("Data"), std::string_view("Ora"),
                                 std::string_view("Valuta"), std::string_view("Single"),
                                 std::string_view("Data Breve"), std::string_view("Numeri_4_Dec"),
                                 std::string_view("Numerico"), pattern}) {
        const std::string shown = FormatByKey(value, key, settings);
        CheckSize(shown, "Data Breve", value);
        CheckUtf8(shown, "", value);
        if (value.empty() && !shown.empty()) {
            Fail("an empty value gave text", key, value);
        }
        if (key == "Nessuno" && shown != value) {
            Fail("Nessuno changed the value", key, value);
        }
        if (key == "Numerico" && !value.empty() && !ParseNumber(shown, settings)) {
            Fail("Numerico gave no number", key, value);
        }
    }
    if (!value.empty() && pattern != "Nessuno" && pattern != "Data" && pattern != "Ora" && pattern != "Valuta" &&
        pattern != "Single" && pattern != "Data Breve" && pattern != "Numeri_4_Dec" && pattern != "Numerico" &&
        !FormatByKey(value, pattern, settings).empty()) {
        Fail("an unknown key gave text", pattern, value);
    }

    // The pattern on a number: the value's, or eight bytes of the value as any double at all.
    double x = number.value_or(0.0);
    if (!number && value.size() >= sizeof x) {
        std::memcpy(&x, value.data(), sizeof x);
    }
    for (double v : {x, -x}) {
        try {
            const std::string out = FormatNumber(v, pattern, settings);
            CheckSize(out, pattern, "");
            CheckUtf8(out, pattern, "");
        } catch (const Error& e) {
            if (e.kind() != ErrorKind::Overflow) {
                Fail("FormatNumber threw something other than an overflow", pattern, value);
            }
            // Only a serial beyond the dates can overflow.
            bool outsideDates = false;
            try {
                FormatNumber(v, "yyyy", settings);
            } catch (const Error&) {
                outsideDates = true;
            }
            if (!outsideDates) {
                Fail("FormatNumber overflowed on a number inside the dates", pattern, value);
            }
        }
    }
    return 0;
}
