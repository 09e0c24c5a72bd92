#pragma once
// The editing widgets of the design pages, as the pages' logic sees them: small interfaces that
// a toolkit realises (widgets/page_adapters.h realises them with Qt) and that tests realise with
// plain objects. The logic reads and writes them and is told of their events by the page's
// event methods (Campi::HScroll1_Change, Campi::Change, ...); an interface never calls back into
// the logic except the scroll bar, whose Value write runs the page's navigator synchronously,
// inside the write, as a scroll bar's change event does.
//
// Values follow the classic controls: a check box holds 0 (unchecked), 1 (checked) or 2
// (grayed), and refuses anything else with Error::InvalidValue(); a scroll bar refuses a Value
// outside 0..Max the same way; colours are 0x00BBGGRR (system colours with the high bit).
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/runtime/colour.h"

namespace TabulonLib12 {

class Tabulon12;

// A one-line text box.
class TextField {
public:
    virtual ~TextField() = default;
    virtual std::string Text() const = 0;
    virtual void setText(const std::string& text) = 0;
    // Moves the keyboard focus into the field. Empty by default on purpose: a field without a
    // toolkit behind it (the tests' plain fields) has no focus to move; the Qt field overrides it.
    virtual void SetFocus() {}
};

// A text box that also shows a colour as its back: the swatch of a column's back colour.
class SwatchField : public TextField {
public:
    virtual Colour BackColor() const = 0;
    virtual void setBackColor(Colour colour) = 0;
};

// A combo box whose text may be typed or picked from its list.
class ComboField {
public:
    virtual ~ComboField() = default;
    virtual std::string Text() const = 0;
    virtual void setText(const std::string& text) = 0;
    // Empties the list and the text.
    virtual void Clear() = 0;
    // Adds an item at the end of the list; the text stays as it is.
    virtual void AddItem(const std::string& item) = 0;
    virtual int ListCount() const = 0;
    // Item `index` of the list (0-based); a bad index fails with Error::OutOfBounds().
    virtual std::string List(int index) const = 0;
};

// A check box: Value 0, 1 or 2.
class CheckField {
public:
    virtual ~CheckField() = default;
    virtual int16_t Value() const = 0;
    virtual void setValue(int16_t value) = 0;
};

// A horizontal scroll bar from 0 to Max. A write of Value that changes it runs the change event
// before it returns; a write of Max below Value brings Value down to Max, with its change event.
class ScrollField {
public:
    virtual ~ScrollField() = default;
    virtual int16_t Max() const = 0;
    virtual void setMax(int16_t max) = 0;
    virtual int16_t Value() const = 0;
    virtual void setValue(int16_t value) = 0;
};

// A label's caption.
class CaptionField {
public:
    virtual ~CaptionField() = default;
    virtual std::string Caption() const = 0;
    virtual void setCaption(const std::string& caption) = 0;
};

// The colour dialog: Color is the colour it opens with and, after ShowColor, the colour chosen.
// A cancelled dialog leaves Color as it was.
class ColourDialog {
public:
    virtual ~ColourDialog() = default;
    virtual Colour Color() const = 0;
    virtual void setColor(Colour colour) = 0;
    virtual void ShowColor() = 0;
};

// The frame that holds a property page: the controls it edits and the page's Changed flag,
// which tells the frame that there are changes to apply.
class PropertyPageSite {
public:
    virtual ~PropertyPageSite() = default;
    // The controls selected in the designer; the pages edit element 0.
    virtual std::vector<Tabulon12*> SelectedControls() const = 0;
    virtual bool Changed() const = 0;
    virtual void setChanged(bool changed) = 0;
};

// A frame of plain members: the host fills `selected`, reads `Changed`, and may be told of
// every write of the flag through `onChanged`.
class BasicPageSite final : public PropertyPageSite {
public:
    std::vector<Tabulon12*> SelectedControls() const override { return selected; }
    bool Changed() const override { return changed_; }
    void setChanged(bool changed) override {
        changed_ = changed;
        if (onChanged) onChanged(changed);
    }

    std::vector<Tabulon12*> selected;
    std::function<void(bool)> onChanged;

private:
    bool changed_ = false;
};

}  // namespace TabulonLib12
