#include "platform/ui/surface.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "platform/runtime/error.h"
#include "platform/ui/cell_grid.h"

namespace TabulonLib12 {

Surface::DispatchScope::DispatchScope(Surface& surface) : surface_(surface) { ++surface_.dispatchDepth_; }

Surface::DispatchScope::~DispatchScope() {
    if (--surface_.dispatchDepth_ == 0 && !surface_.graveyard_.empty()) {
        // Freeing may run destructors that look at the surface: take the list out first.
        std::vector<std::unique_ptr<Element>> dead;
        dead.swap(surface_.graveyard_);
    }
}

Surface::Surface(const TextMetrics& metrics, TimerService& timers, std::string name)
    : Element(this, ElementKind::Surface, std::move(name)), metrics_(metrics), timers_(timers) {}

Surface::~Surface() {
    focus_ = capture_ = hovered_ = nullptr;
    graveyard_.clear();
    owned_.clear();  // timers stop while the timer service is still known
}

Element* Surface::CheckedContainer(Element* container) const {
    Element* target = container ? container : const_cast<Surface*>(this);
    if (&target->Owner() != this || !target->IsContainer()) throw Error::InvalidValue();
    if (target != this && !Contains(*target)) throw Error::MissingObject();  // a removed container
    return target;
}

bool Surface::Contains(const Element& element) const {
    for (const Element* e = &element; e; e = e->Container())
        if (e == this) return true;
    return false;
}

template <class T>
T& Surface::Adopt(std::unique_ptr<T> element, Element* container) {
    Element* target = CheckedContainer(container);
    T& ref = *element;
    owned_.push_back(std::move(element));
    try {
        target->children_.push_back(&ref);  // in front of its layer
    } catch (...) {
        owned_.pop_back();
        throw;
    }
    ref.container_ = target;
    ref.Invalidate();
    return ref;
}

Label& Surface::CreateLabel(const std::string& name, Element* container) {
    return Adopt(std::unique_ptr<Label>(new Label(this, name)), container);
}

ImageElement& Surface::CreateImage(const std::string& name, Element* container) {
    return Adopt(std::unique_ptr<ImageElement>(new ImageElement(this, name)), container);
}

Frame& Surface::CreateFrame(const std::string& name, Element* container) {
    return Adopt(std::unique_ptr<Frame>(new Frame(this, name)), container);
}

Shape& Surface::CreateShape(const std::string& name, Element* container) {
    return Adopt(std::unique_ptr<Shape>(new Shape(this, name)), container);
}

PictureBox& Surface::CreatePictureBox(const std::string& name, Element* container) {
    return Adopt(std::unique_ptr<PictureBox>(new PictureBox(this, name)), container);
}

TextBox& Surface::CreateTextBox(const std::string& name, Element* container) {
    return Adopt(std::unique_ptr<TextBox>(new TextBox(this, name)), container);
}

CheckBox& Surface::CreateCheckBox(const std::string& name, Element* container) {
    return Adopt(std::unique_ptr<CheckBox>(new CheckBox(this, name)), container);
}

Timer& Surface::CreateTimer(const std::string& name, Element* container) {
    return Adopt(std::unique_ptr<Timer>(new Timer(this, name)), container);
}

CellGrid& Surface::CreateCellGrid(const std::string& name, Element* container) {
    return Adopt(std::unique_ptr<CellGrid>(new CellGrid(this, name)), container);
}

std::unique_ptr<Element> Surface::MakeElement(ElementKind kind, const std::string& name) {
    switch (kind) {
        case ElementKind::Label: return std::unique_ptr<Element>(new Label(this, name));
        case ElementKind::Image: return std::unique_ptr<Element>(new ImageElement(this, name));
        case ElementKind::Frame: return std::unique_ptr<Element>(new Frame(this, name));
        case ElementKind::Shape: return std::unique_ptr<Element>(new Shape(this, name));
        case ElementKind::PictureBox: return std::unique_ptr<Element>(new PictureBox(this, name));
        case ElementKind::TextBox: return std::unique_ptr<Element>(new TextBox(this, name));
        case ElementKind::CheckBox: return std::unique_ptr<Element>(new CheckBox(this, name));
        case ElementKind::Timer: return std::unique_ptr<Element>(new Timer(this, name));
        case ElementKind::CellGrid: return std::unique_ptr<Element>(new CellGrid(this, name));
        case ElementKind::Surface: break;
    }
    throw Error::InvalidValue();
}

Element& Surface::CreateCopy(const Element& model, int16_t index) {
    if (&model.Owner() != this || model.Kind() == ElementKind::Surface) throw Error::InvalidValue();
    if (!Contains(model)) throw Error::MissingObject();
    if (index < 0) throw Error::OutOfBounds();
    std::unique_ptr<Element> copy = MakeElement(model.Kind(), model.Name());
    copy->CopyFrom(model);
    copy->index_ = index;
    copy->visible_ = false;
    Element& ref = Adopt(std::move(copy), model.container_);
    // A copied timer runs as its model does, now that it stands on the surface.
    if (ref.Kind() == ElementKind::Timer) static_cast<Timer&>(ref).Restart();
    return ref;
}

void Surface::SetArrayIndex(Element& element, int16_t index) {
    if (&element.Owner() != this || &element == this) throw Error::InvalidValue();
    if (index < 0) throw Error::OutOfBounds();
    element.index_ = index;
}

void Surface::Unlink(Element& element) {
    auto& siblings = element.container_->children_;
    siblings.erase(std::find(siblings.begin(), siblings.end(), &element));
    element.container_ = nullptr;
}

void Surface::Destroy(Element& element) {
    if (&element == this || &element.Owner() != this) throw Error::InvalidValue();
    if (!Contains(element)) throw Error::MissingObject();  // removed already

    std::vector<Element*> doomed{&element};
    for (size_t i = 0; i < doomed.size(); ++i)
        doomed.insert(doomed.end(), doomed[i]->children_.begin(), doomed[i]->children_.end());

    const bool wasShown = element.IsShown();
    Unlink(element);
    for (Element* e : doomed) {
        if (focus_ == e) focus_ = nullptr;
        if (capture_ == e) {
            capture_ = nullptr;
            captureButtons_ = 0;
            captureLeftClick_ = false;
        }
        if (hovered_ == e) hovered_ = nullptr;
        if (e->kind_ == ElementKind::Timer) {
            auto* timer = static_cast<Timer*>(e);
            if (timer->timerId_ != 0) timers_.Stop(timer->timerId_);
            timer->timerId_ = 0;
        }
    }

    const std::unordered_set<const Element*> doomedSet(doomed.begin(), doomed.end());
    auto firstDoomed = std::stable_partition(owned_.begin(), owned_.end(),
                                             [&](const auto& p) { return !doomedSet.count(p.get()); });
    std::vector<std::unique_ptr<Element>> removed(std::make_move_iterator(firstDoomed),
                                                  std::make_move_iterator(owned_.end()));
    owned_.erase(firstDoomed, owned_.end());
    if (dispatchDepth_ > 0) {
        // A handler is running, perhaps one of these elements': free them when it returns.
        for (auto& p : removed) graveyard_.push_back(std::move(p));
    }
    if (wasShown) RequestPaint();
}

namespace {

void CollectPaintOrder(Element* container, std::vector<Element*>& out) {
    out.push_back(container);
    for (Element* child : container->Children())
        if (child->IsGraphical() && child->Visible()) out.push_back(child);
    for (Element* child : container->Children()) {
        if (child->IsGraphical() || child->Kind() == ElementKind::Timer || !child->Visible()) continue;
        if (child->IsContainer())
            CollectPaintOrder(child, out);
        else
            out.push_back(child);
    }
}

// Whether a shown, enabled child takes the mouse at a point of its container.
bool TakesMouseAt(const Element& e, float x, float y) {
    return e.Visible() && e.Enabled() && e.Kind() != ElementKind::Shape && e.Kind() != ElementKind::Timer &&
           x >= e.Left() && x < e.Left() + e.Width() && y >= e.Top() && y < e.Top() + e.Height();
}

}  // namespace

std::vector<Element*> Surface::PaintOrder() const {
    std::vector<Element*> out;
    if (Visible()) CollectPaintOrder(const_cast<Surface*>(this), out);
    return out;
}

Element* Surface::ElementAt(float x, float y) {
    Element* container = this;
    for (;;) {
        Element* hit = nullptr;
        const auto& children = container->children_;
        // Windowed elements stand in front of graphical ones; each layer front to back.
        for (auto it = children.rbegin(); it != children.rend() && !hit; ++it)
            if (!(*it)->IsGraphical() && TakesMouseAt(**it, x, y)) hit = *it;
        for (auto it = children.rbegin(); it != children.rend() && !hit; ++it)
            if ((*it)->IsGraphical() && TakesMouseAt(**it, x, y)) hit = *it;
        if (!hit) return container;
        if (!hit->IsContainer()) return hit;
        x -= hit->Left();
        y -= hit->Top();
        container = hit;
    }
}

void Surface::MouseDown(int16_t button, int16_t shift, float x, float y) {
    DispatchScope scope(*this);
    Element* under = ElementAt(x, y);
    hovered_ = under;
    Element* target = capture_;
    if (!target) {
        target = under;
        capture_ = target;
        captureButtons_ = 0;
        captureLeftClick_ = false;
        if (target != this && target->CanFocus()) setFocus(target);
    }
    if (capture_ == target) {
        captureButtons_ = static_cast<int16_t>(captureButtons_ | button);
        if (button & MouseButton::Left) captureLeftClick_ = true;
    }
    // A GotFocus handler may have removed the element: removed ones get no more input.
    if (Contains(*target)) target->HandleMouseDown(button, shift, x - target->SurfaceLeft(), y - target->SurfaceTop());
}

void Surface::MouseMove(int16_t buttons, int16_t shift, float x, float y) {
    DispatchScope scope(*this);
    Element* under = ElementAt(x, y);
    hovered_ = under;
    Element* target = capture_ ? capture_ : under;
    target->HandleMouseMove(buttons, shift, x - target->SurfaceLeft(), y - target->SurfaceTop());
}

void Surface::MouseUp(int16_t button, int16_t shift, float x, float y) {
    DispatchScope scope(*this);
    Element* under = ElementAt(x, y);
    hovered_ = under;
    Element* target = capture_ ? capture_ : under;
    bool click = false;
    if (capture_) {
        click = (button & MouseButton::Left) && captureLeftClick_ && under == capture_;
        if (button & MouseButton::Left) captureLeftClick_ = false;
        captureButtons_ = static_cast<int16_t>(captureButtons_ & ~button);
        if (captureButtons_ == 0) {
            capture_ = nullptr;
            captureLeftClick_ = false;
        }
    }
    target->HandleMouseUp(button, shift, x - target->SurfaceLeft(), y - target->SurfaceTop());
    if (click && Contains(*target)) target->HandleClick();
}

void Surface::DoubleClick(int16_t button, int16_t shift, float x, float y) {
    if (!(button & MouseButton::Left)) {
        MouseDown(button, shift, x, y);
        return;
    }
    DispatchScope scope(*this);
    Element* under = ElementAt(x, y);
    hovered_ = under;
    Element* target = capture_ ? capture_ : under;
    target->HandleDblClick();
}

void Surface::KeyDown(int16_t keyCode, int16_t shift) {
    DispatchScope scope(*this);
    (focus_ ? focus_ : this)->HandleKeyDown(keyCode, shift);
}

void Surface::KeyPress(int16_t keyAscii) {
    DispatchScope scope(*this);
    (focus_ ? focus_ : this)->HandleKeyPress(keyAscii);
}

void Surface::KeyUp(int16_t keyCode, int16_t shift) {
    DispatchScope scope(*this);
    (focus_ ? focus_ : this)->HandleKeyUp(keyCode, shift);
}

void Surface::Wheel(int32_t delta, int16_t shift, float x, float y) {
    RaiseEvent(*this, onWheel, *this, delta, shift, x, y);
}

void Surface::setFocus(Element* element) {
    if (element == focus_) return;
    if (element && (&element->Owner() != this || !element->CanFocus() || !Contains(*element) ||
                    !element->IsShown() || !element->IsActive()))
        throw Error::InvalidValue();
    DispatchScope scope(*this);
    Element* old = focus_;
    focus_ = element;
    RequestPaint();  // the focus may show (caret, highlight with focus)
    if (old && Contains(*old)) RaiseEvent(*old, old->onLostFocus, *old);
    // A LostFocus handler may have moved the focus on already.
    if (element && focus_ == element) RaiseEvent(*element, element->onGotFocus, *element);
}

void Surface::CheckInputTargets() {
    if (capture_ && !(capture_->IsShown() && capture_->IsActive())) {
        capture_ = nullptr;
        captureButtons_ = 0;
        captureLeftClick_ = false;
    }
    if (hovered_ && !hovered_->IsShown()) hovered_ = nullptr;
    if (focus_ && !(focus_->IsShown() && focus_->IsActive())) setFocus(nullptr);
}

void Surface::setWidth(float v) { Element::setWidth(v); }

void Surface::setHeight(float v) { Element::setHeight(v); }

void Surface::Resize(float width, float height) { Move(Left(), Top(), width, height); }

void Surface::SizeChanged() { RaiseEvent(*this, onResize, *this); }

void Surface::setScreenPointer(int16_t p) {
    if (!((p >= 0 && p <= 15) || p == Pointer::Custom)) throw Error::InvalidValue();
    screenPointer_ = p;
    RaiseEvent(*this, onScreenPointer, p);
}

void Surface::RequestPaint() const {
    if (painting_ || !onInvalidate) return;
    // A paint request made from inside the realisation's own handler is already covered.
    struct Reset {
        bool& flag;
        ~Reset() { flag = false; }
    } reset{painting_};
    painting_ = true;
    auto call = onInvalidate;
    call();
}

}  // namespace TabulonLib12
