// The classic conversions of the pages, over the numeric test and half-to-even rounding of the
// runtime.
#include "pages/page_values.h"

#include <cmath>

#include "grid/values.h"
#include "platform/runtime/conversions.h"
#include "platform/runtime/error.h"
#include "platform/runtime/rounding.h"
#include "platform/runtime/settings.h"
#include "platform/runtime/text.h"

namespace TabulonLib12 {

namespace {

double NumberOf(std::string_view text) {
    const auto v = ParseNumber(text, CurrentSettings());
    if (!v) throw Error::TypeMismatch();
    return *v;
}

}  // namespace

double ValoreNumericoTesto(std::string_view text) { return ValoreNumerico(text); }

int16_t IntegerFromText(std::string_view text) { return ToInt16(NumberOf(text)); }

uint8_t ByteFromText(std::string_view text) { return ByteFromNumber(NumberOf(text)); }

uint8_t ByteFromNumber(double value) {
    const double whole = RoundHalfEven(value);
    if (!(whole >= 0.0 && whole <= 255.0)) throw Error::Overflow();
    return static_cast<uint8_t>(whole);
}

Colour ColourFromText(std::string_view text) {
    const double whole = RoundHalfEven(NumberOf(text));
    if (!(whole >= -2147483648.0 && whole <= 4294967295.0)) throw Error::Overflow();
    return static_cast<Colour>(static_cast<int64_t>(whole) & 0xFFFFFFFF);
}

bool BooleanFromText(std::string_view text) {
    if (EqualsInsensitive(text, "True")) return true;
    if (EqualsInsensitive(text, "False")) return false;
    return NumberOf(text) != 0.0;
}

std::string BooleanText(bool value) { return value ? "True" : "False"; }

std::string NumberText(double value) { return NumberToText(value, CurrentSettings()); }

std::string ColourText(Colour value) { return std::to_string(value); }

std::string NumeroInAllineamento(std::string_view text) {
    if (text == "1") return "Destra";
    if (text == "2") return "Centro";
    return "Sinistra";
}

int16_t AllineamentoInNumero(std::string_view text) {
    if (text == "Destra") return 1;
    if (text == "Centro") return 2;
    return 0;
}

}  // namespace TabulonLib12
