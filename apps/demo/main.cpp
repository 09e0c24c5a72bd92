// The demo host: a window with a list of orders from the bundled sample database, whose design
// is the sample's form file (sample/demo.form.json).
//   tabulon_demo                     shows the window (or, without a display, writes a screenshot)
//   tabulon_demo --screenshot FILE   writes the window as a PNG file and exits
//   tabulon_demo --database NAME     reads the list from another database: a SQLite file or a
//                                    postgresql:// URI (with the sample's form, one with the
//                                    sample's schema)
//   tabulon_demo --query TEXT        shows a new list of TEXT, a table or view of the database or
//                                    a query, with one column per field made by the structure
//                                    page's type table
//   tabulon_demo --form FILE         shows the list designed in a form file (its first list, or
//                                    the one named by --control NAME); --database and --query
//                                    then take the place of the design's
//   tabulon_demo --styles FILE       writes a sheet of the ten heading styles, one small list
//                                    each, as a PNG file and exits
//   tabulon_demo --choices FILE      keeps the choice of columns made with the column chooser in
//                                    FILE (in a window the default is colonne.txt in the user's
//                                    configuration folder; a screenshot keeps none unless told)
// A database whose orders cannot be read ends the program with a message on standard error
// (in a window, after a message box) and exit code 1; a bad argument ends it with code 2.
#include <QApplication>
#include <QDir>
#include <QStandardPaths>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>

#include "apps/shared/display.h"
#include "demo_window.h"
#include "style_sheet.h"
#include "platform/qt/qt_message_box.h"
#include "platform/runtime/error.h"

namespace {

constexpr const char* kDefaultScreenshot = "tabulon_demo.png";

int Usage() {
    std::fprintf(stderr,
                 "usage: tabulon_demo [--screenshot FILE] [--database NAME] [--query TEXT] [--form FILE [--control NAME]]\n"
                 "                    [--styles FILE] [--choices FILE]\n");
    return 2;
}

// The orders cannot be read: a box says so first when the demo runs in a window; standard error
// always does. Answers the exit code.
// The form file cannot be opened: said as CannotRead says it.
int CannotOpen(bool windowed, const std::string& problem) {
    const std::string message = "the form cannot be opened: " + problem;
    if (windowed) TabulonLib12::QtMessageBox().MsgBox(message, TabulonLib12::MsgBoxStyle::Critical, "");
    std::fprintf(stderr, "tabulon_demo: %s\n", message.c_str());
    return 1;
}

int CannotRead(QWidget& window, bool windowed, const std::string& database, const std::string& problem) {
    const std::string message = "the list cannot be read from " + database + ": " + problem;
    if (windowed) TabulonLib12::QtMessageBox(&window).MsgBox(message, TabulonLib12::MsgBoxStyle::Critical, "");
    std::fprintf(stderr, "tabulon_demo: %s\n", message.c_str());
    return 1;
}

// Writes the sheet of heading styles to `path`; answers the exit code.
int WriteStyleSheet(const std::string& database, const std::string& path) {
    TabulonLib12::Demo::StyleSheet sheet(database);
    sheet.adjustSize();
    sheet.show();
    QApplication::processEvents();
    return TabulonLib12::Apps::WritePng(sheet, path, "Style sheet");
}

// colonne.txt in the user's configuration folder for the demo, which is made if missing; none
// when there is no such folder.
std::string DefaultChoiceFile() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
    if (folder.isEmpty() || !QDir().mkpath(folder)) return {};
    return QDir(folder).filePath(QStringLiteral("colonne.txt")).toStdString();
}

}  // namespace

int main(int argc, char** argv) {
    std::setlocale(LC_ALL, "");
    std::string screenshot;
    std::string styles;
    std::string choices;
    std::string database;
    std::string query;
    std::string formPath;
    std::string controlName;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--screenshot") == 0 && i + 1 < argc) screenshot = argv[++i];
        else if (std::strcmp(argv[i], "--database") == 0 && i + 1 < argc) database = argv[++i];
        else if (std::strcmp(argv[i], "--query") == 0 && i + 1 < argc) query = argv[++i];
        else if (std::strcmp(argv[i], "--form") == 0 && i + 1 < argc) formPath = argv[++i];
        else if (std::strcmp(argv[i], "--control") == 0 && i + 1 < argc) controlName = argv[++i];
        else if (std::strcmp(argv[i], "--styles") == 0 && i + 1 < argc) styles = argv[++i];
        else if (std::strcmp(argv[i], "--choices") == 0 && i + 1 < argc) choices = argv[++i];
        else return Usage();
    }
    if (!controlName.empty() && formPath.empty()) return Usage();
    // A query alone makes a new list; otherwise the list is a form's, the sample's by default.
    if (formPath.empty() && query.empty()) formPath = TABULON_SAMPLE_FORM;
    if (!TabulonLib12::Apps::HasDisplay()) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        if (screenshot.empty() && styles.empty()) screenshot = kDefaultScreenshot;
    }

    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Tabulon12 demo"));
    // A platform chosen by the caller may have no display either: nobody could close the window.
    if (TabulonLib12::QtMessageBox::Headless() && screenshot.empty()) screenshot = kDefaultScreenshot;

    if (!styles.empty()) return WriteStyleSheet(database.empty() ? TABULON_SAMPLE_DB : database, styles);

    const bool windowed = screenshot.empty();
    TabulonLib12::Demo::DemoSetup setup;
    std::optional<TabulonLib12::FormDocument> document;
    if (!formPath.empty()) {
        try {
            document = TabulonLib12::FormDocument::Open(formPath, controlName);
        } catch (const TabulonLib12::Error& e) {
            return CannotOpen(windowed, e.description());
        }
        setup.document = &*document;
    }
    setup.database = database.empty() && !document ? TABULON_SAMPLE_DB : database;
    setup.query = query;
    setup.choices = choices;
    if (windowed) setup.defaultChoices = DefaultChoiceFile();
    TabulonLib12::Demo::DemoWindow window(setup);
    if (const auto problem = window.Prepare())
        return CannotRead(window, windowed, window.Control().DataBaseName(), *problem);
    if (!windowed) {
        window.resize(1000, 700);
        window.show();
        QApplication::processEvents();
    }
    try {
        window.Load();
    } catch (const TabulonLib12::Error& e) {
        return CannotRead(window, windowed, window.Control().DataBaseName(), e.description());
    }

    if (!screenshot.empty()) {
        QApplication::processEvents();
        return TabulonLib12::Apps::WritePng(window, screenshot, "Screenshot");
    }
    window.show();
    return QApplication::exec();
}
