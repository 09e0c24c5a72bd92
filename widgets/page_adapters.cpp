#include "widgets/page_adapters.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPalette>
#include <cstdio>

#include "platform/qt/qt_graphics.h"
#include "platform/qt/qt_message_box.h"
#include "platform/runtime/error.h"

namespace TabulonLib12 {

namespace {
std::string FromQString(const QString& text) { return text.toUtf8().toStdString(); }
}  // namespace

// --- LineEditField ---

std::string LineEditField::Text() const { return FromQString(edit_.text()); }
void LineEditField::setText(const std::string& text) { edit_.setText(ToQString(text)); }
void LineEditField::SetFocus() { edit_.setFocus(Qt::OtherFocusReason); }

// --- The swatch ---

void SwatchLineEdit::mouseDoubleClickEvent(QMouseEvent* e) {
    QLineEdit::mouseDoubleClickEvent(e);
    emit doubleClicked();
}

void SwatchLineEdit::keyReleaseEvent(QKeyEvent* e) {
    QLineEdit::keyReleaseEvent(e);
    if (!e->isAutoRepeat()) emit keyReleased(e->key(), e->modifiers());
}

SwatchEditField::SwatchEditField(SwatchLineEdit& edit) : edit_(edit) { setBackColor(colour_); }

std::string SwatchEditField::Text() const { return FromQString(edit_.text()); }
void SwatchEditField::setText(const std::string& text) { edit_.setText(ToQString(text)); }
void SwatchEditField::SetFocus() { edit_.setFocus(Qt::OtherFocusReason); }

void SwatchEditField::setBackColor(Colour colour) {
    colour_ = colour;
    const QColor back = ToQColor(colour);
    QPalette palette = edit_.palette();
    palette.setColor(QPalette::Base, back);
    // The text stays readable on a dark swatch.
    palette.setColor(QPalette::Text, back.lightness() < 128 ? QColor(Qt::white) : QColor(Qt::black));
    edit_.setPalette(palette);
}

// --- ComboBoxField ---

ComboBoxField::ComboBoxField(QComboBox& combo) : combo_(combo) {
    combo_.setEditable(true);
    // Typed texts stay texts: they never become items of the list.
    combo_.setInsertPolicy(QComboBox::NoInsert);
}

std::string ComboBoxField::Text() const { return FromQString(combo_.currentText()); }

void ComboBoxField::setText(const std::string& text) {
    const QString t = ToQString(text);
    const int index = combo_.findText(t, Qt::MatchExactly | Qt::MatchCaseSensitive);
    combo_.setCurrentIndex(index);
    combo_.setEditText(t);
}

void ComboBoxField::Clear() {
    combo_.clear();
    combo_.setEditText(QString());
}

void ComboBoxField::AddItem(const std::string& item) {
    const QString text = combo_.currentText();
    const int index = combo_.currentIndex();
    combo_.addItem(ToQString(item));
    if (combo_.currentIndex() != index || combo_.currentText() != text) {
        combo_.setCurrentIndex(index);
        combo_.setEditText(text);
    }
}

int ComboBoxField::ListCount() const { return combo_.count(); }

std::string ComboBoxField::List(int index) const {
    if (index < 0 || index >= combo_.count()) throw Error::OutOfBounds();
    return FromQString(combo_.itemText(index));
}

// --- CheckBoxField ---

int16_t CheckBoxField::Value() const {
    switch (box_.checkState()) {
        case Qt::Checked: return 1;
        case Qt::PartiallyChecked: return 2;
        default: return 0;
    }
}

void CheckBoxField::setValue(int16_t value) {
    switch (value) {
        case 0: box_.setCheckState(Qt::Unchecked); break;
        case 1: box_.setCheckState(Qt::Checked); break;
        case 2:
            box_.setTristate(true);
            box_.setCheckState(Qt::PartiallyChecked);
            break;
        default: throw Error::InvalidValue();
    }
}

// --- ScrollBarField ---

ScrollBarField::ScrollBarField(QScrollBar& bar) : bar_(bar) {
    bar_.setOrientation(Qt::Horizontal);
    bar_.setMinimum(0);
    bar_.setSingleStep(1);
    bar_.setPageStep(1);
    // A drag changes the value when the thumb is let go, as a classic scroll bar's change.
    bar_.setTracking(false);
}

int16_t ScrollBarField::Max() const { return static_cast<int16_t>(bar_.maximum()); }

void ScrollBarField::setMax(int16_t max) {
    if (max < 0) throw Error::InvalidValue();
    bar_.setMaximum(max);
}

int16_t ScrollBarField::Value() const { return static_cast<int16_t>(bar_.value()); }

void ScrollBarField::setValue(int16_t value) {
    if (value < 0 || value > bar_.maximum()) throw Error::InvalidValue();
    bar_.setValue(value);
}

// --- LabelField ---

std::string LabelField::Caption() const { return FromQString(label_.text()); }
void LabelField::setCaption(const std::string& caption) { label_.setText(ToQString(caption)); }

// --- QtColourDialog ---

void QtColourDialog::ShowColor() {
    if (presentation_ == Presentation::Automatic && QtMessageBox::Headless()) {
        const std::string line =
            QApplication::applicationName().toStdString() + ": the colour dialog needs a display; the colour stays as it was\n";
        std::fwrite(line.data(), 1, line.size(), stderr);
        std::fflush(stderr);
        return;
    }
    QColorDialog dialog(ToQColor(colour_), parent_.data());
    if (dialog.exec() == QDialog::Accepted) {
        const QColor chosen = dialog.selectedColor();
        if (chosen.isValid()) colour_ = Rgb(chosen.red(), chosen.green(), chosen.blue());
    }
}

}  // namespace TabulonLib12
