#include "widgets/tabulon12_widget.h"

#include <QEvent>
#include <QMoveEvent>
#include <QScrollBar>
#include <QVBoxLayout>
#include <cmath>

#include "platform/db/composite_engine.h"
#include "platform/postgres/postgres_engine.h"
#include "platform/qt/qt_host_window.h"
#include "platform/qt/qt_message_box.h"
#include "platform/qt/qt_pointer.h"
#include "platform/qt/qt_text_metrics.h"
#include "platform/qt/qt_timer_service.h"
#include "platform/sqlite/sqlite_engine.h"
#include "platform/ui/graphics.h"

namespace TabulonLib12 {

// The default services. Each is created only where the host gave none, and the struct is
// destroyed after the control, so every service outlives every use the control makes of it.
struct Tabulon12Widget::Defaults {
    std::unique_ptr<QtTextMetrics> metrics;
    std::unique_ptr<QtTimerService> timers;
    std::unique_ptr<QtMessageBox> messages;
    std::unique_ptr<QtScreenPointer> screen;
    std::unique_ptr<SteadyClock> clock;
    // The composite engine refers to the two below it; declared after them, it goes first.
    std::unique_ptr<SqliteEngine> files;
    std::unique_ptr<PostgresEngine> servers;
    std::unique_ptr<CompositeEngine> engine;
};

// The widget's child widgets other than the painter, in their order, as the control's contained
// controls. The painter fills the widget, so a child's top in the widget is its top on the
// control's surface.
class Tabulon12Widget::HostChildren final : public ContainedControls {
public:
    explicit HostChildren(Tabulon12Widget& owner) : owner_(owner) {}

    std::vector<ContainedControl*> Items() override {
        items_.clear();
        std::vector<ContainedControl*> items;
        for (QObject* object : owner_.children()) {
            auto* widget = qobject_cast<QWidget*>(object);
            if (widget == nullptr || widget == owner_.painter_) continue;
            items_.push_back(std::make_unique<Child>(*widget));
            items.push_back(items_.back().get());
        }
        return items;
    }

private:
    class Child final : public ContainedControl {
    public:
        explicit Child(QWidget& widget) : widget_(widget) {}
        float Top() const override { return static_cast<float>(widget_.y() * TwipsPerPixel); }
        void setTop(float top) override {
            widget_.move(widget_.x(), static_cast<int>(std::lround(top / TwipsPerPixel)));
        }
        bool IsVerticalScrollBar() const override {
            const auto* bar = qobject_cast<const QScrollBar*>(&widget_);
            return bar != nullptr && bar->orientation() == Qt::Vertical;
        }

    private:
        QWidget& widget_;
    };

    Tabulon12Widget& owner_;
    std::vector<std::unique_ptr<Child>> items_;
};

// Every event of the control: first the host's handler, then the signal, with the same
// arguments, so that what one changes the other sees.
class Tabulon12Widget::EventRelay final : public Tabulon12Events {
public:
    explicit EventRelay(Tabulon12Widget& w) : w_(w) {}

    void KeyDown(int16_t& k, int16_t& s) override { Relay(&Tabulon12Events::KeyDown, &Tabulon12Widget::KeyDown, k, s); }
    void KeyPress(int16_t& k) override { Relay(&Tabulon12Events::KeyPress, &Tabulon12Widget::KeyPress, k); }
    void KeyUp(int16_t& k, int16_t& s) override { Relay(&Tabulon12Events::KeyUp, &Tabulon12Widget::KeyUp, k, s); }
    void MouseMove(int16_t& b, int16_t& s, float& x, float& y) override {
        Relay(&Tabulon12Events::MouseMove, &Tabulon12Widget::MouseMove, b, s, x, y);
    }
    void GoDown() override { Relay(&Tabulon12Events::GoDown, &Tabulon12Widget::GoDown); }
    void GoUp() override { Relay(&Tabulon12Events::GoUp, &Tabulon12Widget::GoUp); }
    void Caricato() override { Relay(&Tabulon12Events::Caricato, &Tabulon12Widget::Caricato); }
    void Click() override { Relay(&Tabulon12Events::Click, &Tabulon12Widget::Click); }
    void DblClick() override { Relay(&Tabulon12Events::DblClick, &Tabulon12Widget::DblClick); }
    void MouseDown(int16_t& b, int16_t& s, float& x, float& y) override {
        Relay(&Tabulon12Events::MouseDown, &Tabulon12Widget::MouseDown, b, s, x, y);
    }
    void MouseUp(int16_t& b, int16_t& s, float& x, float& y) override {
        Relay(&Tabulon12Events::MouseUp, &Tabulon12Widget::MouseUp, b, s, x, y);
    }
    void EnterCell() override { Relay(&Tabulon12Events::EnterCell, &Tabulon12Widget::EnterCell); }
    void LeaveCell() override { Relay(&Tabulon12Events::LeaveCell, &Tabulon12Widget::LeaveCell); }
    void CellClick(int32_t& r, int16_t& c) override { Relay(&Tabulon12Events::CellClick, &Tabulon12Widget::CellClick, r, c); }
    void CellDblClick(int32_t& r, int16_t& c) override {
        Relay(&Tabulon12Events::CellDblClick, &Tabulon12Widget::CellDblClick, r, c);
    }
    void CellRightClick(int32_t& r, int16_t& c) override {
        Relay(&Tabulon12Events::CellRightClick, &Tabulon12Widget::CellRightClick, r, c);
    }
    void CellMouseMove(int32_t& r, int16_t& c) override {
        Relay(&Tabulon12Events::CellMouseMove, &Tabulon12Widget::CellMouseMove, r, c);
    }
    void IperTextClick(int32_t& r, int16_t& c, int32_t& id, std::string& text) override {
        Relay(&Tabulon12Events::IperTextClick, &Tabulon12Widget::IperTextClick, r, c, id, text);
    }
    void Resize() override { Relay(&Tabulon12Events::Resize, &Tabulon12Widget::Resize); }

private:
    template <class... Args>
    void Relay(void (Tabulon12Events::*handler)(Args&...), void (Tabulon12Widget::*signal)(Args&...), Args&... args) {
        if (w_.hostEvents_) (w_.hostEvents_->*handler)(args...);
        emit(w_.*signal)(args...);
    }

    Tabulon12Widget& w_;
};

Tabulon12Widget::Tabulon12Widget(QWidget* parent) : Tabulon12Widget(Services{}, parent) {}

Tabulon12Widget::Tabulon12Widget(const Services& services, QWidget* parent)
    : QWidget(parent), defaults_(std::make_unique<Defaults>()) {
    Defaults& d = *defaults_;
    HostServices host = services.host;
    if (!host.messages) host.messages = (d.messages = std::make_unique<QtMessageBox>(this)).get();
    if (!host.screen) host.screen = (d.screen = std::make_unique<QtScreenPointer>()).get();
    if (!host.clock) host.clock = (d.clock = std::make_unique<SteadyClock>()).get();
    if (!host.engine) {
        d.files = std::make_unique<SqliteEngine>();
        d.servers = std::make_unique<PostgresEngine>();
        d.engine = std::make_unique<CompositeEngine>(*d.servers, *d.files);
        host.engine = d.engine.get();
    }
    engine_ = host.engine;
    if (!host.containedControls) host.containedControls = (children_ = std::make_unique<HostChildren>(*this)).get();
    const TextMetrics* metrics = services.metrics;
    if (!metrics) metrics = (d.metrics = std::make_unique<QtTextMetrics>()).get();
    TimerService* timers = services.timers;
    if (!timers) timers = (d.timers = std::make_unique<QtTimerService>()).get();

    if (services.saved) {
        // A restored control sits on the widget's window unless the host names another form.
        if (!host.parentForm) host.parentForm = WindowForm();
        control_ = std::make_unique<Tabulon12>(host, *metrics, *timers, *services.saved);
    } else {
        control_ = std::make_unique<Tabulon12>(host, *metrics, *timers);
    }
    relay_ = std::make_unique<EventRelay>(*this);
    control_->setEvents(relay_.get());

    painter_ = new SurfaceWidget(control_->Superficie(), this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(painter_);
    // Focus given to this widget goes to the painter, which passes the keys to the surface.
    setFocusPolicy(painter_->focusPolicy());
    setFocusProxy(painter_);
    // The painter sits at (0, 0) of this widget: its moves say nothing of where the host placed
    // the control, so they are kept from it (see eventFilter) and this widget's own are used.
    painter_->installEventFilter(this);
    resize(painter_->sizeHint());
}

namespace {

Tabulon12Widget::Services RestoredFrom(const FormFile& form, const std::string& controlName,
                                       Tabulon12Widget::Services services) {
    services.saved = &form.Properties(controlName);
    return services;
}

}  // namespace

Tabulon12Widget::Tabulon12Widget(const FormFile& form, const std::string& controlName, QWidget* parent)
    : Tabulon12Widget(form, controlName, Services{}, parent) {}

Tabulon12Widget::Tabulon12Widget(const FormFile& form, const std::string& controlName, const Services& services,
                                 QWidget* parent)
    : Tabulon12Widget(RestoredFrom(form, controlName, services), parent) {}

void Tabulon12Widget::SaveTo(FormFile& form, const std::string& controlName) const {
    MemoryPropertyBag design;
    control_->WriteProperties(design);
    form.AddOrReplace(FormControl(controlName, "Tabulon12", std::move(design)));
}

Tabulon12Widget::~Tabulon12Widget() {
    // The painter first: it holds callbacks into the control's surface. Then the control, while
    // the services it uses still exist; the defaults go last, with the members.
    delete painter_;
    painter_ = nullptr;
    control_->setEvents(nullptr);
    control_.reset();
}

std::shared_ptr<HostForm> Tabulon12Widget::WindowForm() {
    if (!windowForm_) {
        windowForm_ = std::make_shared<HostForm>(window()->objectName().toStdString());
        windowForm_->setWindow(std::make_shared<QtHostWindow>(this));
    }
    return windowForm_;
}

QSize Tabulon12Widget::sizeHint() const {
    return painter_ ? painter_->sizeHint() : QWidget::sizeHint();  // no painter only while going
}

void Tabulon12Widget::moveEvent(QMoveEvent* e) {
    QWidget::moveEvent(e);
    control_->Superficie().setExtenderPosition(static_cast<float>(x() * TwipsPerPixel),
                                               static_cast<float>(y() * TwipsPerPixel));
}

bool Tabulon12Widget::eventFilter(QObject* watched, QEvent* e) {
    if (watched == painter_ && e->type() == QEvent::Move) return true;
    return QWidget::eventFilter(watched, e);
}

}  // namespace TabulonLib12
