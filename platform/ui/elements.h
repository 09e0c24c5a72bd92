#pragma once
// The elementary kinds: label, image, frame, shape, picture box, text box, check box, timer.
#include <cstdint>
#include <functional>
#include <string>

#include "element.h"

namespace TabulonLib12 {

namespace Alignment {
inline constexpr int16_t Left = 0;
inline constexpr int16_t Right = 1;
inline constexpr int16_t Centre = 2;
}  // namespace Alignment

// A caption. With AutoSize it takes the width and height of its caption in its font whenever
// the caption (any write), the font or AutoSize changes: the widest line by the number of lines
// (an empty caption: width 0, one line high). With WordWrap as well, a label that has a width
// keeps it and grows in height to the words wrapped at that width. BackStyle 0 is transparent,
// 1 opaque.
class Label final : public Element {
public:
    const std::string& Caption() const { return caption_; }
    void setCaption(const std::string& c);
    int16_t Alignment() const { return alignment_; }
    void setAlignment(int16_t a);  // 0, 1, 2; others refused
    int16_t BackStyle() const { return backStyle_; }
    void setBackStyle(int16_t s);  // 0, 1; others refused
    bool AutoSize() const { return autoSize_; }
    void setAutoSize(bool v);
    bool WordWrap() const { return wordWrap_; }
    void setWordWrap(bool v);
    void setFont(const Font& f) override;

private:
    friend class Surface;
    Label(Surface* s, std::string name);
    void CopyFrom(const Element& other) override;
    void FitToCaption();
    std::string caption_;
    int16_t alignment_ = Alignment::Left, backStyle_ = 1;
    bool autoSize_ = false, wordWrap_ = false;
};

// A picture. Without Stretch the element takes the picture's size (15 twips to the pixel) when
// a picture is set or Stretch is turned off; a null picture leaves the size. With Stretch the
// picture fills the element.
class ImageElement final : public Element {
public:
    const Picture& GetPicture() const { return picture_; }
    void setPicture(Picture p);
    bool Stretch() const { return stretch_; }
    void setStretch(bool v);

private:
    friend class Surface;
    ImageElement(Surface* s, std::string name);
    void CopyFrom(const Element& other) override;
    Picture picture_;
    bool stretch_ = false;
};

// A container with a back colour and an optional border and caption.
class Frame final : public Element {
public:
    const std::string& Caption() const { return caption_; }
    void setCaption(const std::string& c);
    int16_t BorderStyle() const { return borderStyle_; }
    void setBorderStyle(int16_t s);  // 0 none, 1 single; others refused

private:
    friend class Surface;
    Frame(Surface* s, std::string name);
    void CopyFrom(const Element& other) override;
    std::string caption_;
    int16_t borderStyle_ = 1;
};

// An outline rectangle. BackStyle 0 (transparent) leaves the inside unpainted.
class Shape final : public Element {
public:
    Colour BorderColor() const { return borderColor_; }
    void setBorderColor(Colour c);
    int16_t BorderWidth() const { return borderWidth_; }
    void setBorderWidth(int16_t w);  // pixels, 1 to 8192
    int16_t BackStyle() const { return backStyle_; }
    void setBackStyle(int16_t s);  // 0 transparent, 1 opaque; others refused

private:
    friend class Surface;
    Shape(Surface* s, std::string name);
    void CopyFrom(const Element& other) override;
    Colour borderColor_ = SystemColour::WindowText;
    int16_t borderWidth_ = 1, backStyle_ = 0;
};

// A container that shows a back colour and optionally a picture at its top-left corner.
class PictureBox final : public Element {
public:
    const Picture& GetPicture() const { return picture_; }
    void setPicture(Picture p);
    int16_t BorderStyle() const { return borderStyle_; }
    void setBorderStyle(int16_t s);  // 0 none, 1 single; others refused
    bool CanFocus() const override { return true; }

private:
    friend class Surface;
    PictureBox(Surface* s, std::string name);
    void CopyFrom(const Element& other) override;
    Picture picture_;
    int16_t borderStyle_ = 1;
};

// A one-line text field that can hold the keyboard focus. Typed characters (codes from 32, not
// 127, taken as Unicode code points and stored as UTF-8) are added to Text and backspace (8)
// removes the last character, unless a KeyPress handler sets the key to 0. onChange follows
// every change of Text.
class TextBox final : public Element {
public:
    const std::string& Text() const { return text_; }
    void setText(const std::string& t);
    bool CanFocus() const override { return true; }
    void HandleKeyPress(int16_t keyAscii) override;
    std::function<void(Element&)> onChange;

private:
    friend class Surface;
    TextBox(Surface* s, std::string name);
    void CopyFrom(const Element& other) override;
    std::string text_;
};

// A check box: Value 0 unchecked, 1 checked, 2 grey. A click toggles between 0 and 1 and
// raises Click; a Value write that changes the value raises Click too.
class CheckBox final : public Element {
public:
    const std::string& Caption() const { return caption_; }
    void setCaption(const std::string& c);
    int16_t Value() const { return value_; }
    void setValue(int16_t v);  // 0, 1, 2; others refused
    bool CanFocus() const override { return true; }
    void HandleClick() override;

private:
    friend class Surface;
    CheckBox(Surface* s, std::string name);
    void CopyFrom(const Element& other) override;
    std::string caption_;
    int16_t value_ = 0;
};

// A timer: while Enabled with an Interval above 0 it raises onTimer every Interval ms through
// the surface's timer service. A write of Interval starts the countdown afresh, as does
// enabling a disabled timer; disabling or removing it stops it. It is never drawn and takes
// no input; its container's Enabled does not stop it.
class Timer final : public Element {
public:
    ~Timer() override;
    int32_t Interval() const { return interval_; }
    void setInterval(int32_t ms);  // 0 to 65535; others refused
    void setEnabled(bool v) override;  // a timer is enabled from its creation
    bool Running() const { return timerId_ != 0; }
    std::function<void(Timer&)> onTimer;

private:
    friend class Surface;
    Timer(Surface* s, std::string name);
    void CopyFrom(const Element& other) override;
    void Restart();
    int32_t interval_ = 0;
    int timerId_ = 0;
};

}  // namespace TabulonLib12
