// The Qt realisations of the services: timers, metrics, message boxes, conversions, screenshots.
#include <gtest/gtest.h>
#include <unistd.h>

#include <QAbstractButton>
#include <QElapsedTimer>
#include <QFile>
#include <QFontInfo>
#include <QMessageBox>
#include <QTimer>
#include <cmath>
#include <filesystem>

#include "gui_test_support.h"
#include "platform/qt/qt_graphics.h"
#include "platform/qt/qt_input.h"
#include "platform/qt/qt_message_box.h"
#include "platform/qt/qt_text_metrics.h"
#include "platform/qt/qt_timer_service.h"
#include "platform/qt/screenshot.h"
#include "platform/runtime/error.h"

namespace TabulonLib12::GuiTest {
namespace {

// Runs the event loop until `done` holds or `ms` pass.
bool WaitFor(const std::function<bool()>& done, int ms = 3000) {
    QElapsedTimer clock;
    clock.start();
    while (!done() && clock.elapsed() < ms) QTest::qWait(5);
    return done();
}

TEST(QtTimerService, TimerElementTicksOnTheEventLoop) {
    QtTextMetrics metrics;
    QtTimerService timers;
    Surface surface(metrics, timers);
    Timer& timer = surface.CreateTimer("Timer1");
    int ticks = 0;
    timer.onTimer = [&](Timer&) { ++ticks; };
    timer.setInterval(10);
    EXPECT_TRUE(timer.Running());
    EXPECT_TRUE(WaitFor([&] { return ticks >= 3; }));
    timer.setEnabled(false);
    EXPECT_EQ(timers.ActiveCount(), 0);
    const int stopped = ticks;
    QTest::qWait(60);
    EXPECT_EQ(ticks, stopped);
}

TEST(QtTimerService, ATickMayStopItsOwnTimer) {
    QtTimerService timers;
    int ticks = 0;
    int id = 0;
    id = timers.Start(5, [&] {
        ++ticks;
        timers.Stop(id);
    });
    EXPECT_TRUE(WaitFor([&] { return ticks >= 1; }));
    QTest::qWait(40);
    EXPECT_EQ(ticks, 1);
    EXPECT_EQ(timers.ActiveCount(), 0);
    timers.Stop(id);     // a second stop is ignored
    timers.Stop(12345);  // and so is an unknown id
}

TEST(QtTimerService, TimersRunIndependently) {
    QtTimerService timers;
    int fast = 0, slow = 0;
    timers.Start(5, [&] { ++fast; });
    const int slowId = timers.Start(1000, [&] { ++slow; });
    EXPECT_EQ(timers.ActiveCount(), 2);
    EXPECT_TRUE(WaitFor([&] { return fast >= 4; }));
    EXPECT_EQ(slow, 0);
    timers.Stop(slowId);
    EXPECT_EQ(timers.ActiveCount(), 1);
}

TEST(QtTextMetrics, MeasuresRealFontsInTwips) {
    QtTextMetrics metrics;
    const Font arial;  // Arial 8.25
    const QFontMetrics fm(ToQFont(arial));
    const QFontMetricsF exact(ToQFont(arial));
    // Whole pixels rounded up, so a caption measured here always fits.
    EXPECT_EQ(metrics.TextWidth(arial, "WWW"), static_cast<int>(std::ceil(exact.horizontalAdvance("WWW"))) * 15);
    EXPECT_GE(metrics.TextWidth(arial, "WWW"), fm.horizontalAdvance("WWW") * 15);
    EXPECT_EQ(metrics.TextHeight(arial), fm.height() * 15);
    EXPECT_GT(metrics.TextWidth(arial, "WWW"), metrics.TextWidth(arial, "iii"));
    EXPECT_EQ(metrics.TextWidth(arial, ""), 0);
    Font big = arial;
    big.size = 16;
    EXPECT_GT(metrics.TextHeight(big), metrics.TextHeight(arial));
    Font bold = arial;
    bold.bold = true;
    EXPECT_GE(metrics.TextWidth(bold, "Righe visualizzate:"), metrics.TextWidth(arial, "Righe visualizzate:"));
}

TEST(QtTextMetrics, AutoSizedLabelTakesTheMeasuredSize) {
    QtTextMetrics metrics;
    QtTimerService timers;
    Surface surface(metrics, timers);
    Label& label = surface.CreateLabel("LabelCount");
    label.setAutoSize(true);
    label.setCaption("Righe visualizzate:");
    EXPECT_FLOAT_EQ(label.Width(), static_cast<float>(metrics.TextWidth(label.GetFont(), "Righe visualizzate:")));
    EXPECT_GT(label.Height(), 0.0f);
}

TEST(QtGraphics, ColoursResolveSystemColoursAndSwapTheByteOrder) {
    EXPECT_EQ(ToQColor(Rgb(1, 2, 3)), QColor(1, 2, 3));
    EXPECT_EQ(ToQColor(0xF5DDCD), QColor(0xCD, 0xDD, 0xF5));
    const Colour face = ResolveColour(SystemColour::ButtonFace);
    EXPECT_EQ(ToQColor(SystemColour::ButtonFace), QColor(face & 0xFF, (face >> 8) & 0xFF, (face >> 16) & 0xFF));
}

TEST(QtGraphics, PictureAndQImageConvertBothWays) {
    Image image(2, 2);
    image.at(0, 0) = 0xFF112233u;
    image.at(1, 0) = 0x80FF0000u;
    image.at(0, 1) = 0x00000000u;
    image.at(1, 1) = 0xFFFFFFFFu;
    const QImage q = ToQImage(image);
    ASSERT_EQ(q.format(), QImage::Format_ARGB32);
    EXPECT_EQ(q.pixel(0, 0), 0xFF112233u);
    EXPECT_EQ(q.pixel(1, 0), 0x80FF0000u);
    EXPECT_EQ(q.pixel(1, 1), 0xFFFFFFFFu);
    const Picture back = FromQImage(q);
    EXPECT_EQ(back->width, 2);
    EXPECT_EQ(back->height, 2);
    EXPECT_EQ(back->argb, image.argb);
}

TEST(QtGraphics, MalformedOrEmptyPicturesGiveNullImages) {
    Image bad;
    bad.width = 3;
    bad.height = 3;
    bad.argb.resize(4);
    EXPECT_TRUE(ToQImage(bad).isNull());
    EXPECT_TRUE(ToQImage(Image()).isNull());
    const Picture none = FromQImage(QImage());
    EXPECT_EQ(none->width, 0);
    EXPECT_TRUE(none->argb.empty());
}

TEST(QtGraphics, FontsKeepSizeAndStyleAndDialogFontIsSansSerif) {
    Font f{"MS Sans Serif", 8.25f, true, true, true};
    const QFont q = ToQFont(f);
    EXPECT_DOUBLE_EQ(q.pointSizeF(), 8.25);
    EXPECT_TRUE(q.bold());
    EXPECT_TRUE(q.italic());
    EXPECT_TRUE(q.underline());
    EXPECT_EQ(q.styleHint(), QFont::SansSerif);
    EXPECT_FALSE(QFontInfo(q).family().contains("Serif") && !QFontInfo(q).family().contains("Sans"));
    const QFont arial = ToQFont(Font{});
    EXPECT_EQ(arial.family(), QString("Arial"));
    EXPECT_DOUBLE_EQ(arial.pointSizeF(), 8.25);
}

TEST(QtGraphics, TwipsRoundToWholePixels) {
    EXPECT_EQ(TwipsToPixels(0), 0);
    EXPECT_EQ(TwipsToPixels(15), 1);
    EXPECT_EQ(TwipsToPixels(22), 1);
    EXPECT_EQ(TwipsToPixels(23), 2);
    EXPECT_EQ(TwipsToPixels(-30), -2);
    EXPECT_EQ(TwipsToPixels(1e30), 10000000);
    EXPECT_EQ(TwipsToPixels(std::nan("")), 0);
}

TEST(QtInput, KeysMapToClassicVirtualKeyCodes) {
    const Qt::KeyboardModifiers none = Qt::NoModifier;
    EXPECT_EQ(VirtualKeyCode(Qt::Key_A, none), 65);
    EXPECT_EQ(VirtualKeyCode(Qt::Key_Z, none), 90);
    EXPECT_EQ(VirtualKeyCode(Qt::Key_0, none), 48);
    EXPECT_EQ(VirtualKeyCode(Qt::Key_9, none), 57);
    EXPECT_EQ(VirtualKeyCode(Qt::Key_Left, none), 37);
    EXPECT_EQ(VirtualKeyCode(Qt::Key_Up, none), 38);
    EXPECT_EQ(VirtualKeyCode(Qt::Key_Right, none), 39);
    EXPECT_EQ(VirtualKeyCode(Qt::Key_Down, none), 40);
    EXPECT_EQ(VirtualKeyCode(Qt::Key_Home, none), 36);
    EXPECT_EQ(VirtualKeyCode(Qt::Key_End, none), 35);
    EXPECT_EQ(VirtualKeyCode(Qt::Key_PageUp, none), 33);
    EXPECT_EQ(VirtualKeyCode(Qt::Key_PageDown, none), 34);
    EXPECT_EQ(VirtualKeyCode(Qt::Key_Return, none), 13);
    EXPECT_EQ(VirtualKeyCode(Qt::Key_Enter, Qt::KeypadModifier), 13);
    EXPECT_EQ(VirtualKeyCode(Qt::Key_Escape, none), 27);
    EXPECT_EQ(VirtualKeyCode(Qt::Key_Tab, none), 9);
    EXPECT_EQ(VirtualKeyCode(Qt::Key_Backspace, none), 8);
    EXPECT_EQ(VirtualKeyCode(Qt::Key_Delete, none), 46);
    EXPECT_EQ(VirtualKeyCode(Qt::Key_Space, none), 32);
    EXPECT_EQ(VirtualKeyCode(Qt::Key_F1, none), 112);
    EXPECT_EQ(VirtualKeyCode(Qt::Key_F12, none), 123);
    EXPECT_EQ(VirtualKeyCode(Qt::Key_5, Qt::KeypadModifier), 101);
    EXPECT_EQ(VirtualKeyCode(Qt::Key_unknown, none), 0);
}

TEST(QtInput, KeyPressCodesArePrintableLatin1AndThreeControls) {
    EXPECT_EQ(KeyAsciiCode(Qt::Key_A, "a"), 'a');
    EXPECT_EQ(KeyAsciiCode(Qt::Key_A, "A"), 'A');
    EXPECT_EQ(KeyAsciiCode(Qt::Key_Space, " "), 32);
    EXPECT_EQ(KeyAsciiCode(Qt::Key_Egrave, QString(QChar(0xE8))), 0xE8);
    EXPECT_EQ(KeyAsciiCode(Qt::Key_Backspace, "\b"), 8);
    EXPECT_EQ(KeyAsciiCode(Qt::Key_Return, "\r"), 13);
    EXPECT_EQ(KeyAsciiCode(Qt::Key_Escape, QString(QChar(27))), 27);
    EXPECT_EQ(KeyAsciiCode(Qt::Key_Down, ""), 0);
    EXPECT_EQ(KeyAsciiCode(Qt::Key_Delete, QString(QChar(127))), 0);
    EXPECT_EQ(KeyAsciiCode(Qt::Key_unknown, QString(QChar(0x20AC))), 0);  // the euro is not Latin-1
    EXPECT_EQ(KeyAsciiCode(Qt::Key_C, QString(QChar(3))), 0);              // Ctrl+C types nothing
}

TEST(QtInput, ButtonsAndModifiersMapToTheirCodes) {
    EXPECT_EQ(ButtonCode(Qt::LeftButton), 1);
    EXPECT_EQ(ButtonCode(Qt::RightButton), 2);
    EXPECT_EQ(ButtonCode(Qt::MiddleButton), 4);
    EXPECT_EQ(ButtonCode(Qt::BackButton), 0);
    EXPECT_EQ(ButtonsCode(Qt::LeftButton | Qt::MiddleButton), 5);
    EXPECT_EQ(ShiftCode(Qt::ShiftModifier), 1);
    EXPECT_EQ(ShiftCode(Qt::ControlModifier), 2);
    EXPECT_EQ(ShiftCode(Qt::AltModifier), 4);
    EXPECT_EQ(ShiftCode(Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier | Qt::KeypadModifier), 7);
}

struct SeenBox {
    bool found = false;
    QString text, title;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    int buttons = 0;
};

// Watches for the modal box, records what it shows and presses `press`.
void CloseBoxWhenShown(SeenBox& seen, QMessageBox::StandardButton press) {
    auto* poll = new QTimer;
    auto* clock = new QElapsedTimer;
    clock->start();
    QObject::connect(poll, &QTimer::timeout, [poll, clock, &seen, press] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box && box->isVisible()) {
            seen.found = true;
            seen.text = box->text();
            seen.title = box->windowTitle();
            seen.icon = box->icon();
            seen.buttons = static_cast<int>(box->buttons().size());
            if (QAbstractButton* b = box->button(press)) b->click();
            else box->close();
        } else if (clock->elapsed() < 5000) {
            return;
        }
        poll->stop();
        poll->deleteLater();
        delete clock;
    });
    poll->start(10);
}

TEST(QtMessageBox, ShowsAModalBoxWithTextTitleAndIconAndAnswersOk) {
    QtMessageBox messages(nullptr, QtMessageBox::Presentation::Modal);
    SeenBox seen;
    CloseBoxWhenShown(seen, QMessageBox::Ok);
    const int16_t answer = messages.MsgBox("Errore nel caricamento", MsgBoxStyle::Critical, "Tabulon12");
    EXPECT_EQ(answer, MsgBoxOk);
    ASSERT_TRUE(seen.found);
    EXPECT_EQ(seen.text, QString("Errore nel caricamento"));
    EXPECT_EQ(seen.title, QString("Tabulon12"));
    EXPECT_EQ(seen.icon, QMessageBox::Critical);
    EXPECT_EQ(seen.buttons, 1);
    QTest::qWait(20);  // lets the watcher go
}

TEST(QtMessageBox, EmptyTitleShowsTheApplicationNameAndStylesChooseTheIcon) {
    QtMessageBox messages(nullptr, QtMessageBox::Presentation::Modal);
    const std::pair<int16_t, QMessageBox::Icon> styles[] = {{MsgBoxStyle::Plain, QMessageBox::NoIcon},
                                                            {MsgBoxStyle::Exclamation, QMessageBox::Warning},
                                                            {MsgBoxStyle::Information, QMessageBox::Information},
                                                            {MsgBoxStyle::Question, QMessageBox::Question}};
    for (const auto& [style, icon] : styles) {
        SeenBox seen;
        CloseBoxWhenShown(seen, QMessageBox::Ok);
        EXPECT_EQ(messages.MsgBox("Testo <b>non</b> formattato", style, ""), MsgBoxOk);
        ASSERT_TRUE(seen.found);
        EXPECT_EQ(seen.title, QCoreApplication::applicationName());
        EXPECT_EQ(seen.icon, icon) << style;
        EXPECT_EQ(seen.text, QString("Testo <b>non</b> formattato"));
    }
    QTest::qWait(20);
}

TEST(QtMessageBox, YesNoBoxAnswersTheButtonPressed) {
    QtMessageBox messages(nullptr, QtMessageBox::Presentation::Modal);
    SeenBox seen;
    CloseBoxWhenShown(seen, QMessageBox::No);
    EXPECT_EQ(messages.MsgBox("Continuare?", static_cast<int16_t>(4 + MsgBoxStyle::Question), "Domanda"), 7);
    EXPECT_EQ(seen.buttons, 2);
    SeenBox again;
    CloseBoxWhenShown(again, QMessageBox::Cancel);
    EXPECT_EQ(messages.MsgBox("Riprovare?", 5, "Domanda"), 2);
    QTest::qWait(20);
}

// The GUI tests run on the offscreen plugin: no box could be pressed there.
TEST(QtMessageBox, WithoutADisplayWritesOneLineToStandardErrorAndAnswersOk) {
    if (!QtMessageBox::Headless()) GTEST_SKIP() << "a display: the box is shown";
    QtMessageBox messages;
    testing::internal::CaptureStderr();
    const int16_t answer = messages.MsgBox("Nessun DB disponibile", MsgBoxStyle::Critical, "Tabulon12");
    const std::string written = testing::internal::GetCapturedStderr();
    EXPECT_EQ(answer, MsgBoxOk);
    EXPECT_EQ(written, "Tabulon12: Nessun DB disponibile\n");
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST(QtMessageBox, WithoutADisplayAnEmptyTitleWritesTheApplicationNameAndLinesAreKept) {
    if (!QtMessageBox::Headless()) GTEST_SKIP() << "a display: the box is shown";
    QtMessageBox messages;
    testing::internal::CaptureStderr();
    const int16_t answer = messages.MsgBox("Prima riga\nseconda riga: è così", static_cast<int16_t>(4 + MsgBoxStyle::Question), "");
    const std::string written = testing::internal::GetCapturedStderr();
    EXPECT_EQ(answer, MsgBoxOk);
    EXPECT_EQ(written, QCoreApplication::applicationName().toStdString() + ": Prima riga\nseconda riga: è così\n");
}

TEST(Screenshot, WritesTheWidgetAsAPngFile) {
    SurfaceWidget widget;
    widget.resize(120, 80);
    widget.GetSurface().setBackColor(Rgb(10, 20, 30));
    const std::string path =
        (std::filesystem::temp_directory_path() / ("tabulon_gui_shot_" + std::to_string(::getpid()) + ".png")).string();
    SaveWidgetPng(widget, path);
    QImage saved(QString::fromStdString(path));
    std::filesystem::remove(path);
    ASSERT_FALSE(saved.isNull());
    EXPECT_EQ(saved.size(), QSize(120, 80));
    EXPECT_EQ(saved.pixelColor(60, 40), QColor(10, 20, 30));
}

TEST(Screenshot, UnwritablePathFailsWithAccessError) {
    SurfaceWidget widget;
    widget.resize(10, 10);
    try {
        SaveWidgetPng(widget, "/nonexistent-folder/x/shot.png");
        FAIL() << "no error";
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), 75);
    }
}

}  // namespace
}  // namespace TabulonLib12::GuiTest
