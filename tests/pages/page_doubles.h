#pragma once
// Plain realisations of the design pages' field interfaces for the tests: each holds its value
// as written and counts what the page did to it. The scroll bar runs its change handler inside
// a write that changes the value, as the toolkit's does; the colour dialog answers with the
// colour the test chose, or as cancelled.
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "pages/campi.h"
#include "pages/creazione.h"
#include "pages/page_fields.h"
#include "platform/runtime/error.h"

namespace TabulonLib12::testing {

class PlainText : public TextField {
public:
    std::string Text() const override { return text; }
    void setText(const std::string& t) override { text = t; }
    void SetFocus() override { ++focused; }
    std::string text;
    int focused = 0;
};

class PlainSwatch final : public SwatchField {
public:
    std::string Text() const override { return text; }
    void setText(const std::string& t) override { text = t; }
    Colour BackColor() const override { return back; }
    void setBackColor(Colour c) override { back = c; }
    std::string text;
    Colour back = 0xFFFFFF;
};

class PlainCombo final : public ComboField {
public:
    std::string Text() const override { return text; }
    void setText(const std::string& t) override { text = t; }
    void Clear() override {
        items.clear();
        text.clear();
        ++clears;
    }
    void AddItem(const std::string& item) override { items.push_back(item); }
    int ListCount() const override { return static_cast<int>(items.size()); }
    std::string List(int index) const override {
        if (index < 0 || index >= ListCount()) throw Error::OutOfBounds();
        return items[static_cast<size_t>(index)];
    }
    std::string text;
    std::vector<std::string> items;
    int clears = 0;
};

class PlainCheck final : public CheckField {
public:
    int16_t Value() const override { return value; }
    void setValue(int16_t v) override {
        if (v < 0 || v > 2) throw Error::InvalidValue();
        value = v;
    }
    int16_t value = 0;
};

class PlainScroll final : public ScrollField {
public:
    int16_t Max() const override { return max; }
    void setMax(int16_t m) override {
        if (m < 0) throw Error::InvalidValue();
        max = m;
        if (value > max) Move(max);
    }
    int16_t Value() const override { return value; }
    void setValue(int16_t v) override {
        if (v < 0 || v > max) throw Error::InvalidValue();
        Move(v);
    }
    int16_t max = 0;
    int16_t value = 0;
    int changes = 0;  // change events raised
    std::function<void()> onChange;

private:
    void Move(int16_t v) {
        if (v == value) return;
        value = v;
        ++changes;
        if (onChange) onChange();
    }
};

class PlainCaption final : public CaptionField {
public:
    std::string Caption() const override { return caption; }
    void setCaption(const std::string& c) override { caption = c; }
    std::string caption;
};

class ScriptedColourDialog final : public ColourDialog {
public:
    Colour Color() const override { return colour; }
    void setColor(Colour c) override { colour = c; }
    void ShowColor() override {
        ++shown;
        openedWith = colour;
        if (answer) colour = *answer;
    }
    Colour colour = 0;
    std::optional<Colour> answer;  // none: the user cancels
    std::optional<Colour> openedWith;
    int shown = 0;
};

// The whole form of the column editor, wired to a page: the scroll bar's change runs the page's
// navigator.
struct CampiForm {
    PlainText Text1, Text2, Text4, Text8, Text3, Text5, Text9, Text10, TextTTT, Text6, Text7, TextTTTvero, TextTTTfalso,
        Text11, Text12, TextScelta;
    PlainCombo Combo1, Combo3, Combo4;
    PlainCheck CheckIT, Check1, CheckScelta, CheckMostraTotCol;
    PlainSwatch LabelColor;
    PlainScroll HScroll1;
    PlainCaption Label11;
    ScriptedColourDialog CD1;

    CampiFields Fields() {
        return CampiFields{.Text1 = Text1,
                           .Text2 = Text2,
                           .Text4 = Text4,
                           .Text8 = Text8,
                           .Combo1 = Combo1,
                           .Text3 = Text3,
                           .Text5 = Text5,
                           .Text9 = Text9,
                           .Text10 = Text10,
                           .Combo3 = Combo3,
                           .Combo4 = Combo4,
                           .TextTTT = TextTTT,
                           .Text6 = Text6,
                           .CheckIT = CheckIT,
                           .Text7 = Text7,
                           .TextTTTvero = TextTTTvero,
                           .TextTTTfalso = TextTTTfalso,
                           .LabelColor = LabelColor,
                           .Check1 = Check1,
                           .CheckScelta = CheckScelta,
                           .Text11 = Text11,
                           .CheckMostraTotCol = CheckMostraTotCol,
                           .Text12 = Text12,
                           .TextScelta = TextScelta,
                           .HScroll1 = HScroll1,
                           .Label11 = Label11,
                           .CD1 = CD1};
    }
};

struct CreazioneForm {
    PlainText TextDB;
    PlainCombo ComboTabella;
    CreazioneFields Fields() { return CreazioneFields{.TextDB = TextDB, .ComboTabella = ComboTabella}; }
};

}  // namespace TabulonLib12::testing
