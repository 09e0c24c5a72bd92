#pragma once
// Qt's editing widgets behind the design pages' field interfaces (pages/page_fields.h). Each
// adapter refers to a widget it does not own; the page that holds both keeps the widget alive
// as long as the adapter. The adapters only translate: which user action becomes which page
// event is wired by the pages (widgets/campi_page.cpp, widgets/creazione_page.cpp).
//
//   LineEditField    QLineEdit          Text is the line's text; SetFocus gives it the focus
//   SwatchLineEdit   a QLineEdit that also reports double clicks and key releases, and shows a
//                    colour as its base (SwatchEditField holds the colour as written, system
//                    colours included, and shows it resolved)
//   ComboBoxField    an editable QComboBox: Text is the edit text; AddItem keeps the text as it
//                    was (a first item does not become the text); setText picks the item that
//                    matches exactly, and otherwise shows the text with no item picked
//   CheckBoxField    QCheckBox: 0 unchecked, 1 checked, 2 partially checked (grayed)
//   ScrollBarField   a horizontal QScrollBar from 0 to Max; a write of Value outside 0..Max fails
//                    with Error::InvalidValue(), as the classic scroll bar refuses it
//   LabelField       QLabel's text
//   QtColourDialog   QColorDialog, modal. Without a display (the offscreen or minimal plugin)
//                    nobody could close it, so in the automatic presentation it shows nothing,
//                    writes one line to standard error and leaves the colour as it was
#include <QColorDialog>
#include <QComboBox>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QScrollBar>

#include "pages/page_fields.h"

namespace TabulonLib12 {

class LineEditField final : public TextField {
public:
    explicit LineEditField(QLineEdit& edit) : edit_(edit) {}
    std::string Text() const override;
    void setText(const std::string& text) override;
    void SetFocus() override;

private:
    QLineEdit& edit_;
};

class SwatchLineEdit final : public QLineEdit {
    Q_OBJECT

public:
    explicit SwatchLineEdit(QWidget* parent = nullptr) : QLineEdit(parent) {}

signals:
    void doubleClicked();
    void keyReleased(int key, Qt::KeyboardModifiers modifiers);

protected:
    void mouseDoubleClickEvent(QMouseEvent* e) override;
    void keyReleaseEvent(QKeyEvent* e) override;
};

class SwatchEditField final : public SwatchField {
public:
    explicit SwatchEditField(SwatchLineEdit& edit);
    std::string Text() const override;
    void setText(const std::string& text) override;
    void SetFocus() override;
    Colour BackColor() const override { return colour_; }
    void setBackColor(Colour colour) override;

private:
    SwatchLineEdit& edit_;
    Colour colour_ = 0xFFFFFF;
};

class ComboBoxField final : public ComboField {
public:
    explicit ComboBoxField(QComboBox& combo);
    std::string Text() const override;
    void setText(const std::string& text) override;
    void Clear() override;
    void AddItem(const std::string& item) override;
    int ListCount() const override;
    std::string List(int index) const override;

private:
    QComboBox& combo_;
};

class CheckBoxField final : public CheckField {
public:
    explicit CheckBoxField(QCheckBox& box) : box_(box) {}
    int16_t Value() const override;
    void setValue(int16_t value) override;

private:
    QCheckBox& box_;
};

class ScrollBarField final : public ScrollField {
public:
    explicit ScrollBarField(QScrollBar& bar);
    int16_t Max() const override;
    void setMax(int16_t max) override;
    int16_t Value() const override;
    void setValue(int16_t value) override;

private:
    QScrollBar& bar_;
};

class LabelField final : public CaptionField {
public:
    explicit LabelField(QLabel& label) : label_(label) {}
    std::string Caption() const override;
    void setCaption(const std::string& caption) override;

private:
    QLabel& label_;
};

class QtColourDialog final : public ColourDialog {
public:
    // Automatic: the dialog on a display, a line on standard error without one. Modal: always the
    // dialog (a test closes it from a timer on the offscreen plugin).
    enum class Presentation { Automatic, Modal };

    explicit QtColourDialog(QWidget* parent = nullptr) : parent_(parent) {}
    Colour Color() const override { return colour_; }
    void setColor(Colour colour) override { colour_ = colour; }
    void ShowColor() override;

    void setPresentation(Presentation presentation) { presentation_ = presentation; }

private:
    QPointer<QWidget> parent_;
    Presentation presentation_ = Presentation::Automatic;
    Colour colour_ = 0;
};

}  // namespace TabulonLib12
