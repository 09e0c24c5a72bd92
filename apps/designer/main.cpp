// The designer host: a form file's list, live on its database, with the column editor and the
// structure page beside it.
//   tabulon_designer [FORM]            opens FORM (the sample's form by default) and shows its
//                                      first list, or the one named by --control NAME; a FORM
//                                      that does not exist yet is a new form with the list
//                                      "Lista1", saved there by "Salva"
//   --database NAME --query TEXT       the list's database and query in place of the design's;
//                                      for a new form, the query's fields become the columns
//                                      (the structure page's type table)
//   --screenshot FILE                  writes the window as a PNG file and exits (the default,
//                                      to tabulon_designer.png, without a display)
// A form that cannot be opened, or a new form whose query does not run, ends the program with a
// message on standard error (in a window, after a message box) and exit code 1; a bad argument
// ends it with code 2.
#include <QApplication>
#include <clocale>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <optional>
#include <string>

#include "apps/shared/display.h"
#include "designer_window.h"
#include "platform/qt/qt_message_box.h"
#include "platform/runtime/error.h"

namespace {

using namespace TabulonLib12;

constexpr const char* kDefaultScreenshot = "tabulon_designer.png";

int Usage() {
    std::fprintf(stderr,
                 "usage: tabulon_designer [FORM] [--control NAME] [--database NAME] [--query TEXT] [--screenshot FILE]\n");
    return 2;
}

int Failed(bool windowed, const std::string& message) {
    if (windowed) QtMessageBox().MsgBox(message, MsgBoxStyle::Critical, "");
    std::fprintf(stderr, "tabulon_designer: %s\n", message.c_str());
    return 1;
}

// The form at `path`, or a new one there when no file is: its name from the file's ("clienti"
// of clienti.form.json), its list "Lista1".
FormDocument OpenOrNew(const std::string& path, const std::string& control) {
    if (std::filesystem::exists(path)) return FormDocument::Open(path, control);
    std::string name = std::filesystem::path(path).filename().string();
    name = name.substr(0, name.find('.'));
    return FormDocument(path, name.empty() ? "Form1" : name, control.empty() ? "Lista1" : control);
}

}  // namespace

int main(int argc, char** argv) {
    std::setlocale(LC_ALL, "");
    std::string formPath, control, database, query, screenshot;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--control") == 0 && i + 1 < argc) control = argv[++i];
        else if (std::strcmp(argv[i], "--database") == 0 && i + 1 < argc) database = argv[++i];
        else if (std::strcmp(argv[i], "--query") == 0 && i + 1 < argc) query = argv[++i];
        else if (std::strcmp(argv[i], "--screenshot") == 0 && i + 1 < argc) screenshot = argv[++i];
        else if (argv[i][0] != '-' && formPath.empty()) formPath = argv[i];
        else return Usage();
    }
    if (formPath.empty()) formPath = TABULON_SAMPLE_FORM;
    if (!Apps::HasDisplay()) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        if (screenshot.empty()) screenshot = kDefaultScreenshot;
    }
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Tabulon12 designer"));
    if (QtMessageBox::Headless() && screenshot.empty()) screenshot = kDefaultScreenshot;
    const bool windowed = screenshot.empty();

    std::optional<FormDocument> document;
    try {
        document = OpenOrNew(formPath, control);
    } catch (const Error& e) {
        return Failed(windowed, "the form cannot be opened: " + e.description());
    }
    // A new form starts on the sample's database unless told another.
    if (!document->HasDesign() && database.empty()) database = TABULON_SAMPLE_DB;
    std::optional<Designer::DesignerWindow> window;
    try {
        window.emplace(std::move(*document), database, query);
    } catch (const Error& e) {
        return Failed(windowed, "the list cannot be made from " + database + ": " + e.description());
    }

    window->show();
    QApplication::processEvents();
    window->LoadList();
    if (windowed) return QApplication::exec();

    QApplication::processEvents();
    return Apps::WritePng(*window, screenshot, "Screenshot");
}
