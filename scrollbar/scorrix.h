#pragma once
// Scorrix, the control's vertical scroll bar. It is built from elements inside one picture box
// of the host surface: an up and a down arrow button, a thumb over a track and two repeat timers
// of 100 ms. It knows nothing of rows: it holds a value between two bounds and tells when the
// value moves. All lengths are twips; the buttons are squares with the side of the bar's width.
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "platform/host/property_bag.h"
#include "platform/ui/surface.h"

namespace TabulonLib12 {

class Scorrix {
public:
    // Creates the bar's body, a picture box named `name`, inside `container` of `surface`
    // (the surface itself when null), with its children, the defaults and a first layout. The
    // surface must outlive the bar; the bar removes its elements from the surface when it goes.
    Scorrix(Surface& surface, Element* container, const std::string& name);
    ~Scorrix();
    Scorrix(const Scorrix&) = delete;
    Scorrix& operator=(const Scorrix&) = delete;

    // The body that holds the bar's elements; its size is the bar's size.
    PictureBox& Corpo();
    const PictureBox& Corpo() const;

    // Current position. The write clamps the argument to Max, then to Min, and leaves the stored
    // value in it; then it places the thumb (Change, also when the value stayed), raises GoDown
    // or GoUp when the value rose or fell, and ends with PropertyChanged "Value".
    int32_t Value() const;
    void setValue(int32_t& New_Value);
    // Upper bound. A write below Min takes Min; a write below Value moves Value down first
    // (GoUp, then Change) while the old bound still holds, then stores the bound.
    int32_t Max() const;
    void setMax(int32_t New_Max);
    // Lower bound, not tested against Max. A write above Value moves Value up first (GoDown,
    // then Change), then stores the bound.
    int32_t Min() const;
    void setMin(int32_t New_Min);
    // Stored, set on the body (which then takes no input) and tested by the repeat timers.
    bool Enabled() const;
    void setEnabled(bool New_Enabled);

    // One step down or up, as a click on the down or up button does.
    void SendDown();
    void SendUp();

    // The body's geometry, as the host placed it.
    float Left() const;
    float Top() const;
    float Width() const;
    float Height() const;
    // Places the body; when its size changed the bar lays out its elements again (Resize).
    void Move(float left, float top, float width, float height);
    // Lays out the buttons, the track and the thumb on the body's size; the thumb goes back to
    // the top of its travel until the next placement.
    void Resize();

    // The property store: defaults for a new bar; reading assigns the stored values as they are
    // (no clamping, no thumb placement, no PropertyChanged); writing saves Enabled, Max, Min and
    // Value in that order, each left out when it holds its default.
    void InitProperties();
    void ReadProperties(const PropertyBag& bag);
    void WriteProperties(PropertyBag& bag) const;

    // Events, raised synchronously; a handler may write Value again. The bar must not be
    // destroyed from within one of its own events.
    std::function<void()> onChange;  // the thumb was placed, moved or not
    std::function<void()> onGoDown;  // Value rose
    std::function<void()> onGoUp;    // Value fell
    // The host's notice that a persistent property was written, with its name.
    std::function<void(const std::string&)> propertyChanged;

    struct Impl;  // the bar's elements and run-time fields (scrollbar/scorrix_impl.h)

private:
    friend struct ScorrixProbe;  // the tests' window on the private state
    std::unique_ptr<Impl> impl_;
};

}  // namespace TabulonLib12
