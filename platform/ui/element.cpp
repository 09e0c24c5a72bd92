#include "platform/ui/element.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/runtime/error.h"
#include "platform/ui/surface.h"

namespace TabulonLib12 {

namespace {

void RequireFinite(float v) {
    if (!std::isfinite(v)) throw Error::InvalidValue();
}

void RequireSize(float v) {
    if (!std::isfinite(v) || v < 0.0f) throw Error::InvalidValue();
}

}  // namespace

Element::Element(Surface* surface, ElementKind kind, std::string name)
    : surface_(surface), kind_(kind), name_(std::move(name)) {}

Element::~Element() = default;

bool Element::IsContainer() const {
    return kind_ == ElementKind::Surface || kind_ == ElementKind::Frame || kind_ == ElementKind::PictureBox;
}

bool Element::IsGraphical() const {
    return kind_ == ElementKind::Label || kind_ == ElementKind::Image || kind_ == ElementKind::Shape;
}

void Element::setContainer(Element* container) {
    if (kind_ == ElementKind::Surface) throw Error::InvalidValue();
    // A removed element is out of the tree for good.
    if (!container_) throw Error::MissingObject();
    Element* target = surface_->CheckedContainer(container);
    for (const Element* e = target; e; e = e->container_)
        if (e == this) throw Error::InvalidValue();  // it would hold itself
    if (target == container_) return;

    const bool wasShown = IsShown();
    auto& siblings = container_->children_;
    siblings.erase(std::find(siblings.begin(), siblings.end(), this));
    target->children_.push_back(this);  // in front of its layer in the new container
    container_ = target;
    if ((wasShown || IsShown()) && kind_ != ElementKind::Timer) surface_->RequestPaint();
    surface_->CheckInputTargets();
}

void Element::setLeft(float v) {
    RequireFinite(v);
    if (v == left_) return;
    left_ = v;
    Invalidate();
}

void Element::setTop(float v) {
    RequireFinite(v);
    if (v == top_) return;
    top_ = v;
    Invalidate();
}

void Element::setWidth(float v) {
    RequireSize(v);
    if (v == width_) return;
    width_ = v;
    Invalidate();
    SizeChanged();
}

void Element::setHeight(float v) {
    RequireSize(v);
    if (v == height_) return;
    height_ = v;
    Invalidate();
    SizeChanged();
}

void Element::Move(float left, float top) { Move(left, top, width_, height_); }

void Element::Move(float left, float top, float width) { Move(left, top, width, height_); }

void Element::Move(float left, float top, float width, float height) {
    RequireFinite(left);
    RequireFinite(top);
    RequireSize(width);
    RequireSize(height);
    const bool moved = left != left_ || top != top_;
    const bool resized = width != width_ || height != height_;
    if (!moved && !resized) return;
    left_ = left;
    top_ = top;
    width_ = width;
    height_ = height;
    Invalidate();
    if (resized) SizeChanged();
}

float Element::SurfaceLeft() const {
    float x = 0.0f;
    for (const Element* e = this; e && e->kind_ != ElementKind::Surface; e = e->container_) x += e->left_;
    return x;
}

float Element::SurfaceTop() const {
    float y = 0.0f;
    for (const Element* e = this; e && e->kind_ != ElementKind::Surface; e = e->container_) y += e->top_;
    return y;
}

void Element::setVisible(bool v) {
    if (v == visible_) return;
    // Showing or hiding changes the screen whenever the containers are shown.
    const bool chainShown = kind_ == ElementKind::Surface || (container_ && container_->IsShown());
    visible_ = v;
    if (chainShown && kind_ != ElementKind::Timer) surface_->RequestPaint();
    if (!v) surface_->CheckInputTargets();
}

bool Element::IsShown() const {
    if (!visible_) return false;
    if (kind_ == ElementKind::Surface) return true;
    return container_ && container_->IsShown();
}

void Element::setEnabled(bool v) {
    if (v == enabled_) return;
    enabled_ = v;
    Invalidate();  // a disabled element may look different
    if (!v) surface_->CheckInputTargets();
}

bool Element::IsActive() const {
    if (!enabled_) return false;
    if (kind_ == ElementKind::Surface) return true;
    return container_ && container_->IsActive();
}

void Element::setBackColor(Colour c) {
    if (c == backColor_) return;
    backColor_ = c;
    Invalidate();
}

void Element::setForeColor(Colour c) {
    if (c == foreColor_) return;
    foreColor_ = c;
    Invalidate();
}

void Element::setFont(const Font& f) {
    if (f == font_) return;
    font_ = f;
    Invalidate();
}

void Element::setToolTipText(const std::string& t) { toolTip_ = t; }

void Element::setMousePointer(int16_t p) {
    if (!((p >= 0 && p <= 15) || p == Pointer::Custom)) throw Error::InvalidValue();
    mousePointer_ = p;
}

void Element::ZOrder(int position) {
    if (position != 0 && position != 1) throw Error::InvalidValue();
    if (!container_) return;  // the surface, or a removed element
    auto& siblings = container_->children_;
    auto it = std::find(siblings.begin(), siblings.end(), this);
    // The layers are told apart by kind, so the front of the whole list is the front of the
    // element's layer, and its start the back.
    if (position == 0) {
        if (it + 1 == siblings.end()) return;
        std::rotate(it, it + 1, siblings.end());
    } else {
        if (it == siblings.begin()) return;
        std::rotate(siblings.begin(), it, it + 1);
    }
    Invalidate();
}

void Element::SetFocus() { surface_->setFocus(this); }

bool Element::HasFocus() const { return surface_->Focused() == this; }

void Element::HandleMouseDown(int16_t button, int16_t shift, float x, float y) {
    Surface::RaiseEvent(*this, onMouseDown, *this, button, shift, x, y);
}

void Element::HandleMouseMove(int16_t button, int16_t shift, float x, float y) {
    Surface::RaiseEvent(*this, onMouseMove, *this, button, shift, x, y);
}

void Element::HandleMouseUp(int16_t button, int16_t shift, float x, float y) {
    Surface::RaiseEvent(*this, onMouseUp, *this, button, shift, x, y);
}

void Element::HandleClick() { Surface::RaiseEvent(*this, onClick, *this); }

void Element::HandleDblClick() { Surface::RaiseEvent(*this, onDblClick, *this); }

void Element::HandleKeyDown(int16_t keyCode, int16_t shift) {
    Surface::RaiseEvent(*this, onKeyDown, *this, keyCode, shift);
}

void Element::HandleKeyPress(int16_t keyAscii) { RaiseKeyPress(keyAscii); }

void Element::HandleKeyUp(int16_t keyCode, int16_t shift) {
    Surface::RaiseEvent(*this, onKeyUp, *this, keyCode, shift);
}

int16_t Element::RaiseKeyPress(int16_t keyAscii) {
    Surface::RaiseEvent(*this, onKeyPress, *this, keyAscii);
    return keyAscii;
}

void Element::CopyFrom(const Element& other) {
    left_ = other.left_;
    top_ = other.top_;
    width_ = other.width_;
    height_ = other.height_;
    visible_ = other.visible_;
    enabled_ = other.enabled_;
    backColor_ = other.backColor_;
    foreColor_ = other.foreColor_;
    font_ = other.font_;
    toolTip_ = other.toolTip_;
    tag_ = other.tag_;
    mousePointer_ = other.mousePointer_;
    mouseIcon_ = other.mouseIcon_;
    onClick = other.onClick;
    onDblClick = other.onDblClick;
    onGotFocus = other.onGotFocus;
    onLostFocus = other.onLostFocus;
    onMouseDown = other.onMouseDown;
    onMouseMove = other.onMouseMove;
    onMouseUp = other.onMouseUp;
    onKeyDown = other.onKeyDown;
    onKeyUp = other.onKeyUp;
    onKeyPress = other.onKeyPress;
}

void Element::Invalidate() const {
    if (kind_ == ElementKind::Timer || PaintSuspended() || !IsShown()) return;
    surface_->RequestPaint();
}

}  // namespace TabulonLib12
