#pragma once
// The demo's main window: the control over the sample database's orders, and a log pane where
// every event the control raises is written.
#include <QMainWindow>
#include <QPlainTextEdit>
#include <memory>
#include <string>

#include "grid/tabulon12.h"
#include "platform/qt/qt_message_box.h"
#include "platform/qt/qt_pointer.h"
#include "platform/qt/qt_text_metrics.h"
#include "platform/qt/qt_timer_service.h"
#include "platform/qt/surface_widget.h"

namespace TabulonLib12::Demo {

class DemoWindow final : public QMainWindow, private Tabulon12Events {
public:
    DemoWindow(DatabaseEngine& engine, const std::string& databasePath);
    ~DemoWindow() override;
    // Defines the columns and loads the orders.
    void Load();
    void Log(const QString& line);
    Tabulon12& Control() { return *control_; }

private:
    // The control's events, written to the log.
    void KeyDown(int16_t& KeyCode, int16_t& Shift) override;
    void KeyPress(int16_t& KeyAscii) override;
    void KeyUp(int16_t& KeyCode, int16_t& Shift) override;
    void MouseMove(int16_t& Button, int16_t& Shift, float& x, float& y) override;
    void GoDown() override;
    void GoUp() override;
    void Caricato() override;
    void Click() override;
    void DblClick() override;
    void MouseDown(int16_t& Button, int16_t& Shift, float& x, float& y) override;
    void MouseUp(int16_t& Button, int16_t& Shift, float& x, float& y) override;
    void EnterCell() override;
    void LeaveCell() override;
    void CellClick(int32_t& RigaClick, int16_t& ColonnaClick) override;
    void CellDblClick(int32_t& RigaClick, int16_t& ColonnaClick) override;
    void CellRightClick(int32_t& RigaClick, int16_t& ColonnaClick) override;
    void CellMouseMove(int32_t& RigaClick, int16_t& ColonnaClick) override;
    void IperTextClick(int32_t& RigaClick, int16_t& ColonnaClick, int32_t& IdAssociato,
                       std::string& TestoIperTxt) override;
    void Resize() override;

    std::string databasePath_;
    QtTextMetrics metrics_;
    QtTimerService timers_;
    std::unique_ptr<QtMessageBox> messages_;
    QtScreenPointer screen_;
    SteadyClock clock_;
    std::shared_ptr<HostForm> form_;
    std::unique_ptr<Tabulon12> control_;
    SurfaceWidget* list_ = nullptr;  // owned by the window
    QPlainTextEdit* log_ = nullptr;
};

}  // namespace TabulonLib12::Demo
