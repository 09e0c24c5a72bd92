#pragma once
// The host's modal message box as a QMessageBox.
#include <QPointer>
#include <QWidget>

#include "platform/host/host_services.h"

namespace TabulonLib12 {

// Style: the low bits choose the buttons (0 OK, 1 OK Cancel, 2 Abort Retry Ignore, 3 Yes No
// Cancel, 4 Yes No, 5 Retry Cancel), 16/32/48/64 the icon (critical, question, warning,
// information), 256/512 make the second/third button the default. The answer is the button
// pressed: OK 1, Cancel 2, Abort 3, Retry 4, Ignore 5, Yes 6, No 7. An empty title shows the
// application's name.
class QtMessageBox final : public MessageBoxService {
public:
    explicit QtMessageBox(QWidget* parent = nullptr) : parent_(parent) {}
    int16_t MsgBox(const std::string& prompt, int16_t style, const std::string& title) override;

private:
    QPointer<QWidget> parent_;
};

}  // namespace TabulonLib12
