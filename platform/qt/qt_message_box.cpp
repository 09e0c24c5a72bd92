#include "platform/qt/qt_message_box.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <cstdio>
#include <vector>

#include "platform/qt/qt_graphics.h"

namespace TabulonLib12 {

namespace {

QMessageBox::Icon IconOf(int16_t style) {
    switch (style & 0x70) {
        case MsgBoxStyle::Critical: return QMessageBox::Critical;
        case MsgBoxStyle::Question: return QMessageBox::Question;
        case MsgBoxStyle::Exclamation: return QMessageBox::Warning;
        case MsgBoxStyle::Information: return QMessageBox::Information;
        default: return QMessageBox::NoIcon;
    }
}

std::vector<QMessageBox::StandardButton> ButtonsOf(int16_t style) {
    switch (style & 0x7) {
        case 1: return {QMessageBox::Ok, QMessageBox::Cancel};
        case 2: return {QMessageBox::Abort, QMessageBox::Retry, QMessageBox::Ignore};
        case 3: return {QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel};
        case 4: return {QMessageBox::Yes, QMessageBox::No};
        case 5: return {QMessageBox::Retry, QMessageBox::Cancel};
        default: return {QMessageBox::Ok};
    }
}

int16_t AnswerOf(QMessageBox::StandardButton button) {
    switch (button) {
        case QMessageBox::Ok: return 1;
        case QMessageBox::Cancel: return 2;
        case QMessageBox::Abort: return 3;
        case QMessageBox::Retry: return 4;
        case QMessageBox::Ignore: return 5;
        case QMessageBox::Yes: return 6;
        case QMessageBox::No: return 7;
        default: return 0;
    }
}

QString TitleOf(const std::string& title) {
    return title.empty() ? QApplication::applicationName() : ToQString(title);
}

}  // namespace

bool QtMessageBox::Headless() {
    const QString platform = QGuiApplication::platformName();
    return platform == QLatin1String("offscreen") || platform == QLatin1String("minimal");
}

int16_t QtMessageBox::MsgBox(const std::string& prompt, int16_t style, const std::string& title) {
    if (presentation_ == Presentation::Automatic && Headless()) {
        // One write, flushed at once: the line is whole even when the program ends right after.
        const std::string line = TitleOf(title).toStdString() + ": " + prompt + "\n";
        std::fwrite(line.data(), 1, line.size(), stderr);
        std::fflush(stderr);
        return MsgBoxOk;
    }

    QMessageBox box(parent_.data());
    box.setWindowTitle(TitleOf(title));
    box.setTextFormat(Qt::PlainText);
    box.setText(ToQString(prompt));
    box.setIcon(IconOf(style));
    const auto buttons = ButtonsOf(style);
    for (auto b : buttons) box.addButton(b);
    const size_t defaultIndex = static_cast<size_t>((style >> 8) & 0x3);
    box.setDefaultButton(buttons[defaultIndex < buttons.size() ? defaultIndex : 0]);
    box.exec();

    if (QAbstractButton* clicked = box.clickedButton()) {
        const int16_t answer = AnswerOf(box.standardButton(clicked));
        if (answer != 0) return answer;
    }
    // Closed without a button: the answer of Cancel where there is one, else of the first button.
    for (auto b : buttons) {
        if (b == QMessageBox::Cancel) return AnswerOf(b);
    }
    return AnswerOf(buttons.front());
}

}  // namespace TabulonLib12
