#pragma once
// The host's modal message box as a QMessageBox, or, where the application has no display, as a
// line on standard error.
#include <QPointer>
#include <QWidget>

#include "platform/host/host_services.h"

namespace TabulonLib12 {

// Style: the low bits choose the buttons (0 OK, 1 OK Cancel, 2 Abort Retry Ignore, 3 Yes No
// Cancel, 4 Yes No, 5 Retry Cancel), 16/32/48/64 the icon (critical, question, warning,
// information), 256/512 make the second/third button the default. The answer is the button
// pressed: OK 1, Cancel 2, Abort 3, Retry 4, Ignore 5, Yes 6, No 7. An empty title shows the
// application's name.
//
// Without a display nobody could press a button, and a modal box would wait forever. So when
// the application runs on the "offscreen" or "minimal" platform plugin (QGuiApplication::
// platformName()), MsgBox shows no box: it writes "<title>: <prompt>" to standard error (the
// application's name when the title is empty; the prompt's own line breaks are kept, one
// newline ends it) and answers OK (1) at once, whatever the style's buttons.
class QtMessageBox final : public MessageBoxService {
public:
    // Automatic: the box on a display, the line on standard error without one. Modal: always
    // the box (a test that presses its buttons from a timer asks for it on the offscreen plugin).
    enum class Presentation { Automatic, Modal };

    explicit QtMessageBox(QWidget* parent = nullptr, Presentation presentation = Presentation::Automatic)
        : parent_(parent), presentation_(presentation) {}
    int16_t MsgBox(const std::string& prompt, int16_t style, const std::string& title) override;

    // True when the application has no display to show a box on: the offscreen or minimal plugin.
    static bool Headless();

private:
    QPointer<QWidget> parent_;
    Presentation presentation_;
};

}  // namespace TabulonLib12
