// Scorrix: construction of the bar's elements, its public members and its property store.
#include "scrollbar/scorrix.h"

#include <functional>
#include <memory>

#include "scrollbar/scorrix_impl.h"
#include "scrollbar/scorrix_pictures.h"

namespace TabulonLib12 {

namespace {

constexpr bool kDefaultEnabled = true;
constexpr int32_t kDefaultMax = 100;
constexpr int32_t kDefaultMin = 0;
constexpr int32_t kDefaultValue = 0;
constexpr int32_t kRepeatMs = 100;

// Whether `target` still stands in the tree under `root`. Only live elements are looked at,
// so a pointer to an element that somebody else removed is never followed.
bool Holds(const Element& root, const Element* target) {
    for (const Element* child : root.Children())
        if (child == target || Holds(*child, target)) return true;
    return false;
}

}  // namespace

Scorrix::Impl::Impl(Scorrix& o, Surface& s, Element* container, const std::string& name) : owner(o), surface(s) {
    Corpo = &s.CreatePictureBox(name, container);
    try {
        Corpo->setBorderStyle(0);
        Corpo->setBackColor(ColoreTraccia);
        // Created back to front: the background first, so the buttons and the thumb stand on it.
        Shape1 = &s.CreateShape("Shape1", Corpo);
        Shape1->setBackStyle(1);
        Shape1->setBackColor(ColoreTraccia);
        Shape1->setBorderColor(ColoreBordoTraccia);
        ImageUP = &s.CreateImage("ImageUP", Corpo);
        ImageDWN = &s.CreateImage("ImageDWN", Corpo);
        ImageScr = &s.CreateImage("ImageScr", Corpo);
        // The pictures fill their elements, whose size the layout decides.
        for (ImageElement* image : {ImageUP, ImageDWN, ImageScr}) image->setStretch(true);
        ImageUP->setPicture(FrecciaSu());
        ImageDWN->setPicture(FrecciaGiu());
        ImageScr->setPicture(Cursore());
        TimerUP = &s.CreateTimer("TimerUP", Corpo);
        TimerDWN = &s.CreateTimer("TimerDWN", Corpo);
        for (Timer* timer : {TimerUP, TimerDWN}) {
            timer->setEnabled(false);
            timer->setInterval(kRepeatMs);
        }
        Wire();
        Resize();
    } catch (...) {
        Unwire();
        s.Destroy(*Corpo);
        throw;
    }
}

Scorrix::Impl::~Impl() {
    if (corpoVivo.expired()) return;  // freed with a container that somebody else removed
    Unwire();
    // Removing the body takes its children along and stops the timers; a body already unlinked
    // (removed during an event, freed when the event ends) is left to the surface. A failure
    // here (out of memory while unlinking) must not escape a destructor: the disarmed elements
    // then just stay.
    if (!Holds(surface, Corpo)) return;
    try {
        surface.Destroy(*Corpo);
    } catch (...) {
    }
}

void Scorrix::Impl::Wire() {
    using Mouse = std::function<void(Element&, int16_t&, int16_t&, float&, float&)>;
    // Every handler holds the token, so it expires only when the elements (or all the handlers)
    // are gone.
    auto token = std::make_shared<const char>('\0');
    corpoVivo = token;
    ImageUP->onMouseDown = Mouse([this, token](Element&, int16_t&, int16_t&, float&, float&) { PremutoUP(); });
    ImageUP->onMouseUp = Mouse([this, token](Element&, int16_t&, int16_t&, float&, float&) { RilasciatoUP(); });
    ImageUP->onClick = [this, token](Element&) { SaliDiUno(false); };
    ImageDWN->onMouseDown = Mouse([this, token](Element&, int16_t&, int16_t&, float&, float&) { PremutoDWN(); });
    ImageDWN->onMouseUp = Mouse([this, token](Element&, int16_t&, int16_t&, float&, float&) { RilasciatoDWN(); });
    ImageDWN->onClick = [this, token](Element&) { ScendiDiUno(false); };
    // A press on the body itself is a press on the track: the background shape takes no input.
    Corpo->onMouseDown =
        Mouse([this, token](Element&, int16_t&, int16_t&, float&, float& y) { PremutoTraccia(y); });
    Corpo->onMouseUp = Mouse([this, token](Element&, int16_t&, int16_t&, float&, float&) { RilasciatoTraccia(); });
    ImageScr->onMouseDown =
        Mouse([this, token](Element&, int16_t& button, int16_t&, float&, float& y) { PremutoCursore(button, y); });
    ImageScr->onMouseMove =
        Mouse([this, token](Element&, int16_t& button, int16_t&, float&, float& y) { TrascinaCursore(button, y); });
    TimerUP->onTimer = [this, token](Timer&) { TickUP(); };
    TimerDWN->onTimer = [this, token](Timer&) { TickDWN(); };
}

void Scorrix::Impl::Unwire() {
    for (Element* e : {static_cast<Element*>(Corpo), static_cast<Element*>(ImageUP), static_cast<Element*>(ImageDWN),
                       static_cast<Element*>(ImageScr)}) {
        if (!e) continue;
        e->onMouseDown = nullptr;
        e->onMouseMove = nullptr;
        e->onMouseUp = nullptr;
        e->onClick = nullptr;
    }
    for (Timer* timer : {TimerUP, TimerDWN}) {
        if (!timer) continue;
        timer->onTimer = nullptr;
        timer->setEnabled(false);
    }
}

// --- public members ---

Scorrix::Scorrix(Surface& surface, Element* container, const std::string& name)
    : impl_(std::make_unique<Impl>(*this, surface, container, name)) {}

Scorrix::~Scorrix() = default;

PictureBox& Scorrix::Corpo() { return *impl_->Corpo; }
const PictureBox& Scorrix::Corpo() const { return *impl_->Corpo; }

int32_t Scorrix::Value() const { return impl_->Value; }
void Scorrix::setValue(int32_t& New_Value) { impl_->ScriviValue(New_Value); }
int32_t Scorrix::Max() const { return impl_->Max; }
void Scorrix::setMax(int32_t New_Max) { impl_->ScriviMax(New_Max); }
int32_t Scorrix::Min() const { return impl_->Min; }
void Scorrix::setMin(int32_t New_Min) { impl_->ScriviMin(New_Min); }
bool Scorrix::Enabled() const { return impl_->Enabled; }
void Scorrix::setEnabled(bool New_Enabled) { impl_->ScriviEnabled(New_Enabled); }

void Scorrix::SendDown() { impl_->ScendiDiUno(false); }
void Scorrix::SendUp() { impl_->SaliDiUno(false); }

float Scorrix::Left() const { return impl_->Corpo->Left(); }
float Scorrix::Top() const { return impl_->Corpo->Top(); }
float Scorrix::Width() const { return impl_->Corpo->Width(); }
float Scorrix::Height() const { return impl_->Corpo->Height(); }

void Scorrix::Move(float left, float top, float width, float height) {
    PictureBox& body = *impl_->Corpo;
    const bool resized = width != body.Width() || height != body.Height();
    body.Move(left, top, width, height);
    if (resized) impl_->Resize();
}

void Scorrix::Resize() { impl_->Resize(); }

// --- property store ---

void Scorrix::InitProperties() {
    Impl& s = *impl_;
    s.Enabled = kDefaultEnabled;
    s.Corpo->setEnabled(s.Enabled);
    s.Max = kDefaultMax;
    s.Min = kDefaultMin;
    s.Value = kDefaultValue;
}

void Scorrix::ReadProperties(const PropertyBag& bag) {
    Impl& s = *impl_;
    s.Enabled = bag.ReadBool("Enabled", kDefaultEnabled);
    s.Corpo->setEnabled(s.Enabled);
    s.Max = bag.ReadInt32("Max", kDefaultMax);
    s.Min = bag.ReadInt32("Min", kDefaultMin);
    s.Value = bag.ReadInt32("Value", kDefaultValue);
}

void Scorrix::WriteProperties(PropertyBag& bag) const {
    const Impl& s = *impl_;
    bag.WriteProperty("Enabled", PropertyValue(s.Enabled), PropertyValue(kDefaultEnabled));
    bag.WriteProperty("Max", PropertyValue(s.Max), PropertyValue(kDefaultMax));
    bag.WriteProperty("Min", PropertyValue(s.Min), PropertyValue(kDefaultMin));
    bag.WriteProperty("Value", PropertyValue(s.Value), PropertyValue(kDefaultValue));
}

}  // namespace TabulonLib12
