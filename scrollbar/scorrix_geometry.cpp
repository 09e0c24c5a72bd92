// Scorrix: the thumb's size and place, the layout of the bar, and the writes of Value and its
// bounds, which end in placing the thumb.
#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "platform/runtime/error.h"
#include "platform/runtime/rounding.h"
#include "scrollbar/scorrix_impl.h"

namespace TabulonLib12 {

namespace {

constexpr int32_t kThumbMinimum = 200;  // twips

// The whole number nearest to `v` (ties to even) when it fits 32 bits.
std::optional<int32_t> TryRounded(double v) {
    const double r = RoundHalfEven(v);
    if (!(r >= std::numeric_limits<int32_t>::min() && r <= std::numeric_limits<int32_t>::max())) return std::nullopt;
    return static_cast<int32_t>(r);
}

}  // namespace

int32_t CheckedI32(int64_t v) {
    if (v < std::numeric_limits<int32_t>::min() || v > std::numeric_limits<int32_t>::max()) throw Error::Overflow();
    return static_cast<int32_t>(v);
}

int32_t RoundedI32(double v) {
    if (auto r = TryRounded(v)) return *r;
    throw Error::Overflow();
}

int32_t Scorrix::Impl::AltezzaCursore() const {
    // Every step that fails (a range or a height beyond 32 bits) is dropped and the next runs.
    const double senzaPulsanti = static_cast<double>(H()) - 2.0 * W() - 30.0;
    int32_t h = 0;
    if (Max != Min) {
        const int64_t range = static_cast<int64_t>(Max) - Min;
        if (range >= std::numeric_limits<int32_t>::min() && range <= std::numeric_limits<int32_t>::max()) {
            const double free = static_cast<double>(H()) - ImageDWN->Height() - ImageUP->Height() - 30.0;
            if (auto r = TryRounded(free / static_cast<double>(range))) h = *r;
        }
        if (h < kThumbMinimum) h = kThumbMinimum;
    } else {
        if (auto r = TryRounded(senzaPulsanti)) h = *r;
    }
    if (senzaPulsanti < h) return 0;  // no room for a thumb
    return h;
}

int32_t Scorrix::Impl::CorsaCursore() const {
    const int32_t c = RoundedI32(static_cast<double>(H()) - ImageDWN->Height() - ImageUP->Height() -
                                 static_cast<double>(AltezzaCursore()) - 30.0);
    return c < 0 ? 0 : c;
}

int32_t Scorrix::Impl::PassoCursore() const {
    if (Max == Min) return 1;
    const int32_t range = CheckedI32(static_cast<int64_t>(Max) - Min);
    const int32_t p = RoundedI32(static_cast<double>(CorsaCursore()) / range);
    return p < 1 ? 1 : p;
}

void Scorrix::Impl::AggiornaCursore() {
    const double top = ImageScr->Top();
    const double altezza = ImageScr->Height();
    // A track press above the thumb repeats until the thumb's top is one to two thumb heights
    // below the press; a press below the thumb has no such stop.
    if (YTraccia > 0 && top - YTraccia > altezza && top - altezza - YTraccia < altezza) {
        YTraccia = 0;
        TimerUP->setEnabled(false);
        TimerDWN->setEnabled(false);
    }
    const int32_t scostamento = CheckedI32(static_cast<int64_t>(CheckedI32(static_cast<int64_t>(Value) - Min)) *
                                           PassoCursore());
    double nuovo = static_cast<double>(W()) + 15.0 + scostamento;
    const double fondo = static_cast<double>(H()) - W() - 30.0 - altezza;
    if (fondo < nuovo) nuovo = fondo;
    ImageScr->setTop(static_cast<float>(nuovo));
    RaiseChange();
}

void Scorrix::Impl::ImpostaAltezzaCursore() {
    ImageScr->setHeight(static_cast<float>(std::max(0, AltezzaCursore())));
}

void Scorrix::Impl::Resize() {
    const float w = W(), h = H();
    ImageUP->Move(0, 0, w, w);
    ImageDWN->Move(0, h - w, w, w);
    Shape1->Move(0, 0, w, h);
    // The thumb's height follows the buttons just placed. An element has no negative size: a bar
    // narrower than 30 twips has a thumb of width 0.
    ImageScr->Move(15, w + 15, std::max(0.0f, w - 30), static_cast<float>(std::max(0, AltezzaCursore())));
}

// --- writes ---

void Scorrix::Impl::ScriviValue(int32_t& v) {
    int32_t nuovo = v;
    if (nuovo > Max) nuovo = Max;
    if (nuovo < Min) nuovo = Min;
    ValorePrecedente = Value;
    v = nuovo;  // the caller's variable carries the stored value back
    Value = nuovo;
    ImpostaAltezzaCursore();
    AggiornaCursore();
    RaiseDirection();
    RaisePropertyChanged("Value");
}

void Scorrix::Impl::ScriviMax(int32_t v) {
    if (v < Min) v = Min;
    if (v < Value) {
        // Value follows first, while the old bound still holds for the handlers and the thumb.
        ValorePrecedente = Value;
        Value = v;
        RaiseDirection();
        AggiornaCursore();
    }
    Max = v;
    ImpostaAltezzaCursore();
    RaisePropertyChanged("Max");
}

void Scorrix::Impl::ScriviMin(int32_t v) {
    if (v > Value) {
        ValorePrecedente = Value;
        Value = v;
        RaiseDirection();
        AggiornaCursore();
    }
    Min = v;
    ImpostaAltezzaCursore();
    RaisePropertyChanged("Min");
}

void Scorrix::Impl::ScriviEnabled(bool v) {
    Enabled = v;
    Corpo->setEnabled(v);
    RaisePropertyChanged("Enabled");
}

// --- events ---

void Scorrix::Impl::RaiseChange() {
    // A copy, so that the handler may replace itself.
    if (auto handler = owner.onChange) handler();
}

void Scorrix::Impl::RaiseDirection() {
    if (ValorePrecedente < Value) {
        if (auto handler = owner.onGoDown) handler();
    } else if (ValorePrecedente > Value) {
        if (auto handler = owner.onGoUp) handler();
    }
}

void Scorrix::Impl::RaisePropertyChanged(const std::string& name) {
    if (auto handler = owner.propertyChanged) handler(name);
}

}  // namespace TabulonLib12
