#pragma once
// Tabulon12Widget: the control as a Qt widget that a Qt application places on a form.
//
// The widget owns one control (Tabulon12) and shows the control's surface through a child
// SurfaceWidget (its painter) that fills it with no margin. A host sets the control up through
// Control() (columns, database name, query, events) and calls Control().Carica().
//
// Services. The control asks its host for text metrics, timers, message boxes, the screen's
// pointer, a clock and a database engine. The widget gives it Qt's by default:
//   metrics   QtTextMetrics (real fonts)          timers  QtTimerService (QTimer)
//   messages  QtMessageBox parented to the widget (a line on standard error without a display)
//   screen    QtScreenPointer (the override cursor)
//   clock     SteadyClock
//   engine    one engine for every database name: PostgreSQL for server names (postgresql://
//             URIs and key=value connection strings), SQLite for file paths
// A host that wants its own passes Services: every non-null entry replaces the default, which is
// then not created at all; parentControls and propertyChanged go to the control as given. What a
// host passes stays the host's and must outlive the widget.
//
// Its design: a widget is either a new instance (the control runs InitProperties) or one
// restored from its saved design (ReadProperties, and never InitProperties): from a property
// store the host keeps (Services::saved) or from a control of a form file. A restored control
// takes the widget's window as its form (FormContenitore, and the window hooked for the wheel
// when its design says so) unless the host names another. The ambient font is the host's
// (HostServices::ambientFont), not the machine's Qt font, so that a design saves the same bytes
// on every machine. SaveTo writes the design back into a form file, which the host then saves.
//
// Events: the widget keeps the control's event handler for itself and offers every host event
// twice: to a handler the host registers with setEvents (a Tabulon12Events), then as a Qt signal
// of the same name with the same arguments by reference, so that a slot connected directly may
// change them as a handler may. A host that calls Control().setEvents itself takes the events
// away from the widget and its signals.
//
// Host controls inside the control: a host may make its own widgets children of this widget and
// place them in the strip below the grid; when the control's height changes they follow the
// grid's bottom edge (vertical scroll bars excepted), as the control moves contained controls.
//
// Focus: the widget hands its focus to the painter (focus proxy), so keys reach the surface
// whether the host focuses the widget or the user clicks or tabs into it.
//
// Size: the surface always has the painter's size, which is the widget's own; a resize of the
// widget resizes the surface, and the control lays itself out again. The control's position on
// its parent (the surface's extender position) is the widget's position.
//
// Destruction, in this order: the painter (it holds callbacks into the surface), then the control
// (its elements and timers use the services), then the services the widget created.
#include <QSize>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>

#include "control/tabulon12.h"
#include "persistence/form_file.h"
#include "platform/host/host_services.h"
#include "platform/qt/surface_widget.h"
#include "platform/ui/text_metrics.h"
#include "platform/ui/timer_service.h"

namespace TabulonLib12 {

class Tabulon12Widget : public QWidget {
    Q_OBJECT

public:
    // What a host may give instead of the defaults; null entries take the defaults.
    struct Services {
        // messages, screen, clock, engine: the host's where not null. parentControls and
        // propertyChanged are handed to the control unchanged.
        HostServices host;
        const TextMetrics* metrics = nullptr;
        TimerService* timers = nullptr;
        // The saved design to restore the control from; a new instance when null. The store is
        // read while the widget is made and not kept.
        const PropertyBag* saved = nullptr;
    };

    // A control with all of Qt's default services.
    explicit Tabulon12Widget(QWidget* parent = nullptr);
    // A control with the host's services where it gives them, the defaults elsewhere.
    explicit Tabulon12Widget(const Services& services, QWidget* parent = nullptr);
    // The control `controlName` of the form file, restored (see above). A form without that
    // control fails with InvalidValue (380), naming it, before anything is made.
    Tabulon12Widget(const FormFile& form, const std::string& controlName, QWidget* parent = nullptr);
    Tabulon12Widget(const FormFile& form, const std::string& controlName, const Services& services,
                    QWidget* parent = nullptr);
    ~Tabulon12Widget() override;

    // The control's design into `form` as the control `controlName` of type "Tabulon12": a
    // control of that name (without regard to case) is replaced in its place, whatever it held;
    // otherwise the control goes at the end. The caller saves the form.
    void SaveTo(FormFile& form, const std::string& controlName) const;
    Tabulon12Widget(const Tabulon12Widget&) = delete;
    Tabulon12Widget& operator=(const Tabulon12Widget&) = delete;

    // The control this widget owns.
    Tabulon12& Control() { return *control_; }
    const Tabulon12& Control() const { return *control_; }
    // The child widget that paints the control's surface and feeds it input.
    SurfaceWidget& Painter() { return *painter_; }
    const SurfaceWidget& Painter() const { return *painter_; }
    // The engine the control opens its databases with (the host's, or the default one): a host
    // may use it to check a database name before a load.
    DatabaseEngine& Engine() { return *engine_; }

    // The painter's hint: the surface's size (the control's design size).
    QSize sizeHint() const override;

    // A host form for the window that holds this widget, to give the control as its
    // FormContenitore: named after the window's object name, with the window's wheel (a
    // QtHostWindow). The same form every time, so controls a host adds to it stay.
    std::shared_ptr<HostForm> WindowForm();

    // The host's handler of the control's events (may be null); the widget does not own it.
    void setEvents(Tabulon12Events* events) { hostEvents_ = events; }

signals:
    // The control's events, in their numbered order, after the host's handler has seen them.
    void KeyDown(int16_t& KeyCode, int16_t& Shift);
    void KeyPress(int16_t& KeyAscii);
    void KeyUp(int16_t& KeyCode, int16_t& Shift);
    void MouseMove(int16_t& Button, int16_t& Shift, float& x, float& y);
    void GoDown();
    void GoUp();
    void Caricato();
    void Click();
    void DblClick();
    void MouseDown(int16_t& Button, int16_t& Shift, float& x, float& y);
    void MouseUp(int16_t& Button, int16_t& Shift, float& x, float& y);
    void EnterCell();
    void LeaveCell();
    void CellClick(int32_t& RigaClick, int16_t& ColonnaClick);
    void CellDblClick(int32_t& RigaClick, int16_t& ColonnaClick);
    void CellRightClick(int32_t& RigaClick, int16_t& ColonnaClick);
    void CellMouseMove(int32_t& RigaClick, int16_t& ColonnaClick);
    void IperTextClick(int32_t& RigaClick, int16_t& ColonnaClick, int32_t& IdAssociato, std::string& TestoIperTxt);
    void Resize();

protected:
    void moveEvent(QMoveEvent* e) override;
    bool eventFilter(QObject* watched, QEvent* e) override;

private:
    struct Defaults;  // the services this widget created, each only where the host gave none
    class HostChildren;  // the host's child widgets as the control's contained controls
    class EventRelay;    // the control's events to the host's handler, then to the signals

    // Members are destroyed in reverse order: the control before the services it uses.
    std::unique_ptr<Defaults> defaults_;
    std::unique_ptr<HostChildren> children_;
    std::unique_ptr<EventRelay> relay_;
    Tabulon12Events* hostEvents_ = nullptr;
    DatabaseEngine* engine_ = nullptr;
    std::shared_ptr<HostForm> windowForm_;
    std::unique_ptr<Tabulon12> control_;
    SurfaceWidget* painter_ = nullptr;  // a child widget; deleted first, in the destructor
};

}  // namespace TabulonLib12
