#pragma once
// What the control asks of its host: message boxes, the screen's pointer, a millisecond clock,
// the host's forms and controls (where image lists are found by name), the property-change
// notice and the database engine. Production realisations live in platform/qt; the tests have
// recorders of their own (tests/support).
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/db/database.h"
#include "platform/ui/graphics.h"

namespace TabulonLib12 {

// Message box styles and answers used by the control.
namespace MsgBoxStyle {
inline constexpr int16_t Plain = 0;      // OK only, no icon
inline constexpr int16_t Critical = 16;  // the critical icon
inline constexpr int16_t Question = 32;
inline constexpr int16_t Exclamation = 48;
inline constexpr int16_t Information = 64;
}  // namespace MsgBoxStyle
inline constexpr int16_t MsgBoxOk = 1;

class MessageBoxService {
public:
    virtual ~MessageBoxService() = default;
    // Shows a modal box and answers the button pressed (1 for OK).
    virtual int16_t MsgBox(const std::string& prompt, int16_t style, const std::string& title) = 0;
};

class ScreenPointer {
public:
    virtual ~ScreenPointer() = default;
    virtual int16_t MousePointer() const = 0;
    virtual void setMousePointer(int16_t pointer) = 0;  // 0 default, 11 hourglass
};

class Clock {
public:
    virtual ~Clock() = default;
    virtual uint32_t TickCount() const = 0;  // milliseconds since some start, wraps at 2^32
};

// A control on a host form, found by name. Only an image list answers ListImages.
class HostControl {
public:
    explicit HostControl(std::string name) : name_(std::move(name)) {}
    virtual ~HostControl() = default;
    const std::string& Name() const { return name_; }
    // The picture of item `index` (1-based). A control that is no image list fails with
    // "Object doesn't support this property or method" (438); a bad index with 35600 "Index out
    // of bounds".
    virtual Picture ListImage(int32_t index) const;

private:
    std::string name_;
};

class ImageList final : public HostControl {
public:
    explicit ImageList(std::string name, std::vector<Picture> images = {})
        : HostControl(std::move(name)), images_(std::move(images)) {}
    Picture ListImage(int32_t index) const override;
    int32_t Count() const { return static_cast<int32_t>(images_.size()); }
    void Add(Picture p) { images_.push_back(std::move(p)); }

private:
    std::vector<Picture> images_;
};

// The window of a host form, as far as the wheel goes: every wheel message of the window (its
// own or one of a widget inside it) reaches each listener before the window handles it, with the
// state of the buttons and shift keys and its signed delta, 120 a notch, positive when the wheel
// turns away from the user. A listener sees the message and never eats it.
class HostWindow {
public:
    using WheelListener = std::function<void(int32_t keys, int32_t delta)>;
    virtual ~HostWindow() = default;
    // Answers the listener's id, never 0.
    virtual int AddWheelListener(WheelListener listener) = 0;
    virtual void RemoveWheelListener(int id) = 0;
};

// The window of a form without a display: a test or a headless host sends it wheel messages.
class HeadlessWindow final : public HostWindow {
public:
    int AddWheelListener(WheelListener listener) override;
    void RemoveWheelListener(int id) override;
    // A wheel message: every listener sees it, then the window handles it.
    void SendWheel(int32_t keys, int32_t delta);
    int WheelsHandled() const { return handled_; }
    int ListenerCount() const { return static_cast<int>(listeners_.size()); }

private:
    std::vector<std::pair<int, WheelListener>> listeners_;
    int nextId_ = 1;
    int handled_ = 0;
};

// A host form: its name, its controls in their order, and its window (none for a form that has
// no window).
class HostForm {
public:
    explicit HostForm(std::string name) : name_(std::move(name)) {}
    const std::string& Name() const { return name_; }
    const std::vector<std::shared_ptr<HostControl>>& Controls() const { return controls_; }
    void Add(std::shared_ptr<HostControl> control) { controls_.push_back(std::move(control)); }
    // The first control whose name equals `name` without regard to case, or null.
    std::shared_ptr<HostControl> Find(const std::string& name) const;
    const std::shared_ptr<HostWindow>& Window() const { return window_; }
    void setWindow(std::shared_ptr<HostWindow> window) { window_ = std::move(window); }

private:
    std::string name_;
    std::vector<std::shared_ptr<HostControl>> controls_;
    std::shared_ptr<HostWindow> window_;
};

// A control that the host placed inside the control's own surface, in the strip below the
// grid: the control moves it with the grid's bottom edge. Its top is in twips from the top of
// the control's surface.
class ContainedControl {
public:
    virtual ~ContainedControl() = default;
    virtual float Top() const = 0;
    virtual void setTop(float top) = 0;
    // Vertical scroll bars stay where the host put them.
    virtual bool IsVerticalScrollBar() const = 0;
};

// The host's controls inside the control, in the host's order.
class ContainedControls {
public:
    virtual ~ContainedControls() = default;
    virtual std::vector<ContainedControl*> Items() = 0;
};

// Everything a control instance needs from its host, handed over at creation.
struct HostServices {
    MessageBoxService* messages = nullptr;
    ScreenPointer* screen = nullptr;
    Clock* clock = nullptr;
    DatabaseEngine* engine = nullptr;
    // The controls around the control on its container (ParentControls), searched after the form.
    std::shared_ptr<HostForm> parentControls;
    // The form the control is placed on (its extender's Parent): a restored instance takes it as
    // its FormContenitore. None for a host without forms.
    std::shared_ptr<HostForm> parentForm;
    // The font of the form around the control: the font of an instance whose saved design names
    // none, and the one a save leaves out.
    Font ambientFont;
    // Called with the member's name after every write of a persistent property.
    std::function<void(const std::string&)> propertyChanged;
    // The host's own controls inside the control; none when null.
    ContainedControls* containedControls = nullptr;
};

// The process's monotonic clock in milliseconds.
class SteadyClock final : public Clock {
public:
    uint32_t TickCount() const override;
};

}  // namespace TabulonLib12
