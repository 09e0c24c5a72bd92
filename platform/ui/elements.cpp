#include "platform/ui/elements.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/runtime/error.h"
#include "platform/ui/surface.h"

namespace TabulonLib12 {

namespace {

void RequireRange(int32_t v, int32_t lo, int32_t hi) {
    if (v < lo || v > hi) throw Error::InvalidValue();
}

// The lines of a caption; "\r\n" and "\n" both end a line.
std::vector<std::string_view> SplitLines(std::string_view text) {
    std::vector<std::string_view> lines;
    for (;;) {
        const size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        lines.push_back(line);
        if (end == std::string_view::npos) return lines;
        text.remove_prefix(end + 1);
    }
}

// How many lines a paragraph takes when its words are wrapped at `width`; a word wider than
// the width stands alone on its line.
int64_t WrappedLines(const TextMetrics& metrics, const Font& font, std::string_view paragraph, float width) {
    int64_t lines = 1;
    std::string current;
    size_t pos = 0;
    while (pos <= paragraph.size()) {
        size_t end = paragraph.find(' ', pos);
        if (end == std::string_view::npos) end = paragraph.size();
        const std::string_view word = paragraph.substr(pos, end - pos);
        pos = end + 1;
        if (word.empty()) continue;
        std::string candidate = current.empty() ? std::string(word) : current + " " + std::string(word);
        if (current.empty() || metrics.TextWidth(font, candidate) <= width) {
            current = std::move(candidate);
        } else {
            ++lines;
            current = std::string(word);
        }
    }
    return lines;
}

void AppendUtf8(std::string& s, uint32_t code) {
    if (code < 0x80) {
        s += static_cast<char>(code);
    } else if (code < 0x800) {
        s += static_cast<char>(0xC0 | (code >> 6));
        s += static_cast<char>(0x80 | (code & 0x3F));
    } else {
        s += static_cast<char>(0xE0 | (code >> 12));
        s += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        s += static_cast<char>(0x80 | (code & 0x3F));
    }
}

void RemoveLastUtf8(std::string& s) {
    while (!s.empty() && (static_cast<unsigned char>(s.back()) & 0xC0) == 0x80) s.pop_back();
    if (!s.empty()) s.pop_back();
}

}  // namespace

// ---- Label

Label::Label(Surface* s, std::string name) : Element(s, ElementKind::Label, std::move(name)) {}

void Label::setCaption(const std::string& c) {
    const bool changed = c != caption_;
    caption_ = c;
    if (autoSize_) FitToCaption();  // every write, so that a measuring label is always exact
    if (changed) Invalidate();
}

void Label::setAlignment(int16_t a) {
    RequireRange(a, Alignment::Left, Alignment::Centre);
    if (a == alignment_) return;
    alignment_ = a;
    Invalidate();
}

void Label::setBackStyle(int16_t s) {
    RequireRange(s, 0, 1);
    if (s == backStyle_) return;
    backStyle_ = s;
    Invalidate();
}

void Label::setAutoSize(bool v) {
    autoSize_ = v;
    if (v) FitToCaption();
}

void Label::setWordWrap(bool v) {
    if (v == wordWrap_) return;
    wordWrap_ = v;
    if (autoSize_) FitToCaption();
    Invalidate();
}

void Label::setFont(const Font& f) {
    Element::setFont(f);
    if (autoSize_) FitToCaption();
}

void Label::FitToCaption() {
    const TextMetrics& metrics = Owner().Metrics();
    const Font& font = GetFont();
    const double lineHeight = metrics.TextHeight(font);
    const std::vector<std::string_view> lines = SplitLines(caption_);
    if (wordWrap_ && Width() > 0.0f) {
        int64_t count = 0;
        for (std::string_view line : lines) count += WrappedLines(metrics, font, line, Width());
        Move(Left(), Top(), Width(), static_cast<float>(static_cast<double>(count) * lineHeight));
        return;
    }
    int32_t widest = 0;
    for (std::string_view line : lines) widest = std::max(widest, metrics.TextWidth(font, line));
    Move(Left(), Top(), static_cast<float>(widest), static_cast<float>(static_cast<double>(lines.size()) * lineHeight));
}

void Label::CopyFrom(const Element& other) {
    Element::CopyFrom(other);
    const auto& o = static_cast<const Label&>(other);
    caption_ = o.caption_;
    alignment_ = o.alignment_;
    backStyle_ = o.backStyle_;
    autoSize_ = o.autoSize_;
    wordWrap_ = o.wordWrap_;
}

// ---- ImageElement

ImageElement::ImageElement(Surface* s, std::string name) : Element(s, ElementKind::Image, std::move(name)) {}

namespace {

void FitToPicture(Element& e, const Picture& p) {
    const double w = std::max(0, p->width), h = std::max(0, p->height);
    e.Move(e.Left(), e.Top(), static_cast<float>(w * TwipsPerPixel), static_cast<float>(h * TwipsPerPixel));
}

}  // namespace

void ImageElement::setPicture(Picture p) {
    const bool changed = p != picture_;
    picture_ = std::move(p);
    if (picture_ && !stretch_) FitToPicture(*this, picture_);
    if (changed) Invalidate();
}

void ImageElement::setStretch(bool v) {
    if (v == stretch_) return;
    stretch_ = v;
    if (!v && picture_) FitToPicture(*this, picture_);
    Invalidate();
}

void ImageElement::CopyFrom(const Element& other) {
    Element::CopyFrom(other);
    const auto& o = static_cast<const ImageElement&>(other);
    picture_ = o.picture_;
    stretch_ = o.stretch_;
}

// ---- Frame

Frame::Frame(Surface* s, std::string name) : Element(s, ElementKind::Frame, std::move(name)) {}

void Frame::setCaption(const std::string& c) {
    if (c == caption_) return;
    caption_ = c;
    Invalidate();
}

void Frame::setBorderStyle(int16_t s) {
    RequireRange(s, 0, 1);
    if (s == borderStyle_) return;
    borderStyle_ = s;
    Invalidate();
}

void Frame::CopyFrom(const Element& other) {
    Element::CopyFrom(other);
    const auto& o = static_cast<const Frame&>(other);
    caption_ = o.caption_;
    borderStyle_ = o.borderStyle_;
}

// ---- Shape

Shape::Shape(Surface* s, std::string name) : Element(s, ElementKind::Shape, std::move(name)) {
    setBackColor(SystemColour::WindowBackground);
}

void Shape::setBorderColor(Colour c) {
    if (c == borderColor_) return;
    borderColor_ = c;
    Invalidate();
}

void Shape::setBorderWidth(int16_t w) {
    RequireRange(w, 1, 8192);
    if (w == borderWidth_) return;
    borderWidth_ = w;
    Invalidate();
}

void Shape::setBackStyle(int16_t s) {
    RequireRange(s, 0, 1);
    if (s == backStyle_) return;
    backStyle_ = s;
    Invalidate();
}

void Shape::CopyFrom(const Element& other) {
    Element::CopyFrom(other);
    const auto& o = static_cast<const Shape&>(other);
    borderColor_ = o.borderColor_;
    borderWidth_ = o.borderWidth_;
    backStyle_ = o.backStyle_;
}

// ---- PictureBox

PictureBox::PictureBox(Surface* s, std::string name) : Element(s, ElementKind::PictureBox, std::move(name)) {}

void PictureBox::setPicture(Picture p) {
    if (p == picture_) return;
    picture_ = std::move(p);
    Invalidate();
}

void PictureBox::setBorderStyle(int16_t s) {
    RequireRange(s, 0, 1);
    if (s == borderStyle_) return;
    borderStyle_ = s;
    Invalidate();
}

void PictureBox::CopyFrom(const Element& other) {
    Element::CopyFrom(other);
    const auto& o = static_cast<const PictureBox&>(other);
    picture_ = o.picture_;
    borderStyle_ = o.borderStyle_;
}

// ---- TextBox

TextBox::TextBox(Surface* s, std::string name) : Element(s, ElementKind::TextBox, std::move(name)) {
    setBackColor(SystemColour::WindowBackground);
    setForeColor(SystemColour::WindowText);
}

void TextBox::setText(const std::string& t) {
    if (t == text_) return;
    text_ = t;
    Invalidate();
    Surface::RaiseEvent(*this, onChange, *this);
}

void TextBox::HandleKeyPress(int16_t keyAscii) {
    Surface::DispatchScope scope(Owner());  // the handler may remove this box
    const int16_t key = RaiseKeyPress(keyAscii);
    if (key == 8) {
        if (text_.empty()) return;
        std::string t = text_;
        RemoveLastUtf8(t);
        setText(t);
    } else if (key >= 32 && key != 127) {  // an i16 code stays below the surrogate range
        std::string t = text_;
        AppendUtf8(t, static_cast<uint32_t>(key));
        setText(t);
    }
}

void TextBox::CopyFrom(const Element& other) {
    Element::CopyFrom(other);
    const auto& o = static_cast<const TextBox&>(other);
    text_ = o.text_;
    onChange = o.onChange;
}

// ---- CheckBox

CheckBox::CheckBox(Surface* s, std::string name) : Element(s, ElementKind::CheckBox, std::move(name)) {}

void CheckBox::setCaption(const std::string& c) {
    if (c == caption_) return;
    caption_ = c;
    Invalidate();
}

void CheckBox::setValue(int16_t v) {
    RequireRange(v, 0, 2);
    if (v == value_) return;
    value_ = v;
    Invalidate();
    Surface::RaiseEvent(*this, onClick, *this);
}

void CheckBox::HandleClick() { setValue(value_ == 0 ? 1 : 0); }  // grey (2) goes to unchecked

void CheckBox::CopyFrom(const Element& other) {
    Element::CopyFrom(other);
    const auto& o = static_cast<const CheckBox&>(other);
    caption_ = o.caption_;
    value_ = o.value_;
}

// ---- Timer

Timer::Timer(Surface* s, std::string name) : Element(s, ElementKind::Timer, std::move(name)) {}

Timer::~Timer() {
    if (timerId_ != 0) Owner().Timers().Stop(timerId_);
}

void Timer::setInterval(int32_t ms) {
    RequireRange(ms, 0, 65535);
    interval_ = ms;
    Restart();
}

void Timer::setEnabled(bool v) {
    const bool changed = v != Enabled();
    Element::setEnabled(v);
    if (changed) Restart();
}

void Timer::Restart() {
    if (timerId_ != 0) {
        Owner().Timers().Stop(timerId_);
        timerId_ = 0;
    }
    // A timer runs only while it stands on the surface (not during its copy, not once removed).
    if (Enabled() && interval_ > 0 && Owner().Contains(*this))
        timerId_ = Owner().Timers().Start(interval_, [this] { Surface::RaiseEvent(*this, onTimer, *this); });
}

void Timer::CopyFrom(const Element& other) {
    Element::CopyFrom(other);
    const auto& o = static_cast<const Timer&>(other);
    interval_ = o.interval_;
    onTimer = o.onTimer;
}

}  // namespace TabulonLib12
