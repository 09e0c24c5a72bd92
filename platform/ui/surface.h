#pragma once
// The control's surface: the root container of the element tree. It owns every element, keeps
// the keyboard focus and the mouse capture, and routes input to the element that should get
// it. The host's extender geometry (Left, Top, Width, Height, Parent) is that of the surface.
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "element.h"
#include "elements.h"
#include "text_metrics.h"
#include "timer_service.h"

namespace TabulonLib12 {

class CellGrid;

class Surface final : public Element {
public:
    Surface(const TextMetrics& metrics, TimerService& timers, std::string name = "UserControl");
    ~Surface() override;

    const TextMetrics& Metrics() const { return metrics_; }
    TimerService& Timers() const { return timers_; }

    // Creates an element inside `container` (the surface when null), in front of its layer.
    Label& CreateLabel(const std::string& name, Element* container = nullptr);
    ImageElement& CreateImage(const std::string& name, Element* container = nullptr);
    Frame& CreateFrame(const std::string& name, Element* container = nullptr);
    Shape& CreateShape(const std::string& name, Element* container = nullptr);
    PictureBox& CreatePictureBox(const std::string& name, Element* container = nullptr);
    TextBox& CreateTextBox(const std::string& name, Element* container = nullptr);
    CheckBox& CreateCheckBox(const std::string& name, Element* container = nullptr);
    Timer& CreateTimer(const std::string& name, Element* container = nullptr);
    CellGrid& CreateCellGrid(const std::string& name, Element* container = nullptr);

    // A copy of `model` with the same name and kind, placed in the same container in front of
    // its layer, hidden, with index `index` (the control-array load). Used by ControlArray.
    Element& CreateCopy(const Element& model, int16_t index);
    // Marks a designed element as item `index` of a control array.
    void SetArrayIndex(Element& element, int16_t index);
    // Whether the element stands on this surface: created here and not removed.
    bool Contains(const Element& element) const;
    // Removes an element and all it contains. Removing the surface itself is refused. Focus,
    // capture and hover on a removed element are cleared without events; its timers stop. While
    // an event handler runs, the removed objects are kept (unlinked) until the outermost
    // handler returns, so that a handler may remove the element that raised it.
    void Destroy(Element& element);

    // Every shown element in painting order: containers before their children, graphical
    // elements of a container before its windowed ones, each layer back to front. Hidden
    // elements (and everything inside them) and timers, which are never drawn, are left out.
    std::vector<Element*> PaintOrder() const;

    // The element that takes the mouse at a surface point: the front-most shown, active,
    // non-shape element whose rectangle holds the point, the deepest container first. The
    // surface itself when no child does.
    Element* ElementAt(float x, float y);

    // Input from the realisation (or a test), in surface twips. A press captures the mouse for
    // the pressed element until the last button is released; moves and the release go to it.
    // A first press on an element that can hold the focus gives it the focus (GotFocus comes
    // before MouseDown). A left release over the captured element raises Click. DoubleClick is
    // the second press of a double click: a left one raises DblClick (and neither MouseDown nor,
    // at its release, Click); another button counts as a plain press.
    void MouseDown(int16_t button, int16_t shift, float x, float y);
    void MouseMove(int16_t buttons, int16_t shift, float x, float y);
    void MouseUp(int16_t button, int16_t shift, float x, float y);
    void DoubleClick(int16_t button, int16_t shift, float x, float y);
    // Keys go to the element with the focus, or to the surface when none has it.
    void KeyDown(int16_t keyCode, int16_t shift);
    void KeyPress(int16_t keyAscii);
    void KeyUp(int16_t keyCode, int16_t shift);
    // The wheel: handed to onWheel with the delta in eighths of a degree (120 a notch).
    void Wheel(int32_t delta, int16_t shift, float x, float y);

    Element* Focused() const { return focus_; }
    Element* Captured() const { return capture_; }
    // The element last under the pointer (for tooltips and the pointer shape).
    Element* Hovered() const { return hovered_; }
    // Used by Element::SetFocus; null takes the focus away (LostFocus on the element that had it).
    void setFocus(Element* element);

    // Host extender: where the host placed the control, and the host's container name.
    float ExtenderLeft() const { return extLeft_; }
    float ExtenderTop() const { return extTop_; }
    void setExtenderPosition(float left, float top) { extLeft_ = left; extTop_ = top; }
    const std::string& Parent() const { return parent_; }
    void setParent(const std::string& p) { parent_ = p; }
    // Width and height of the surface are the extender's; a change raises onResize.
    void setWidth(float v) override;
    void setHeight(float v) override;
    void Resize(float width, float height);

    std::function<void(Surface&)> onResize;
    std::function<void(Surface&, int32_t& delta, int16_t& shift, float& x, float& y)> onWheel;
    // Set by the realisation: called when something visible changed.
    std::function<void()> onInvalidate;
    // Set by the realisation: the hourglass or default pointer over the whole screen.
    int16_t ScreenPointer() const { return screenPointer_; }
    void setScreenPointer(int16_t p);
    std::function<void(int16_t)> onScreenPointer;

    // Calls onInvalidate; a request made while onInvalidate runs is dropped.
    void RequestPaint() const;

    // Held while an element's event handler runs (see Destroy).
    class DispatchScope {
    public:
        explicit DispatchScope(Surface& surface);
        ~DispatchScope();
        DispatchScope(const DispatchScope&) = delete;
        DispatchScope& operator=(const DispatchScope&) = delete;

    private:
        Surface& surface_;
    };
    // Runs an event handler of `source` within a DispatchScope, on a copy of the handler, so
    // that the handler may replace itself or remove its element.
    template <class Handler, class... Args>
    static void RaiseEvent(const Element& source, const Handler& handler, Args&&... args) {
        if (!handler) return;
        DispatchScope scope(source.Owner());
        Handler call = handler;
        call(std::forward<Args>(args)...);
    }

protected:
    void SizeChanged() override;

private:
    friend class Element;
    template <class T>
    T& Adopt(std::unique_ptr<T> element, Element* container);
    Element* CheckedContainer(Element* container) const;
    std::unique_ptr<Element> MakeElement(ElementKind kind, const std::string& name);
    void Unlink(Element& element);
    // Drops focus, capture and hover from elements that can no longer take input.
    void CheckInputTargets();

    const TextMetrics& metrics_;
    TimerService& timers_;
    std::vector<std::unique_ptr<Element>> owned_;
    Element* focus_ = nullptr;
    Element* capture_ = nullptr;
    Element* hovered_ = nullptr;
    int16_t captureButtons_ = 0;
    float extLeft_ = 0, extTop_ = 0;
    std::string parent_;
    int16_t screenPointer_ = 0;
    bool captureLeftClick_ = false;  // the captured press included the left button
    mutable bool painting_ = false;
    int dispatchDepth_ = 0;
    std::vector<std::unique_ptr<Element>> graveyard_;  // removed during a handler
};

}  // namespace TabulonLib12
