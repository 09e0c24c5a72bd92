// The demo host: a window with a list of orders from the bundled sample database.
//   tabulon_demo                     shows the window (or, without a display, writes a screenshot)
//   tabulon_demo --screenshot FILE   writes the window as a PNG file and exits
//   tabulon_demo --database NAME     reads the orders from another database with the sample's
//                                    schema: a SQLite file or a postgresql:// URI
#include <QApplication>
#include <QFileInfo>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "demo_window.h"
#include "platform/qt/qt_message_box.h"
#include "platform/qt/screenshot.h"
#include "platform/runtime/error.h"
#include "platform/db/composite_engine.h"
#include "platform/postgres/postgres_engine.h"
#include "platform/sqlite/sqlite_engine.h"

namespace {

constexpr const char* kDefaultScreenshot = "tabulon_demo.png";

bool HasDisplay() {
    const char* platform = std::getenv("QT_QPA_PLATFORM");
    if (platform && std::strncmp(platform, "offscreen", 9) == 0) return false;
    if (platform && *platform) return true;  // the caller chose a platform
    auto set = [](const char* name) {
        const char* v = std::getenv(name);
        return v && *v;
    };
    return set("DISPLAY") || set("WAYLAND_DISPLAY");
}

int Usage() {
    std::fprintf(stderr, "usage: tabulon_demo [--screenshot FILE] [--database NAME]\n");
    return 2;
}

}  // namespace

int main(int argc, char** argv) {
    std::setlocale(LC_ALL, "");
    std::string screenshot;
    std::string database = TABULON_SAMPLE_DB;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--screenshot") == 0 && i + 1 < argc) screenshot = argv[++i];
        else if (std::strcmp(argv[i], "--database") == 0 && i + 1 < argc) database = argv[++i];
        else return Usage();
    }
    if (!HasDisplay()) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        if (screenshot.empty()) screenshot = kDefaultScreenshot;
    }

    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Tabulon12 demo"));
    // One engine for every name: server URIs go to PostgreSQL, file paths to SQLite.
    TabulonLib12::SqliteEngine files;
    TabulonLib12::PostgresEngine servers;
    TabulonLib12::CompositeEngine engine(servers, files);
    TabulonLib12::Demo::DemoWindow window(engine, database);
    if (!screenshot.empty()) {
        window.resize(1000, 700);
        window.show();
        QApplication::processEvents();
    }
    try {
        window.Load();
    } catch (const TabulonLib12::Error& e) {
        const std::string message = "The sample database could not be read: " + e.description();
        if (!screenshot.empty()) {
            std::fprintf(stderr, "%s\n", message.c_str());
            return 1;
        }
        TabulonLib12::QtMessageBox(&window).MsgBox(message, TabulonLib12::MsgBoxStyle::Critical, "");
        return 1;
    }

    if (!screenshot.empty()) {
        QApplication::processEvents();
        try {
            TabulonLib12::SaveWidgetPng(window, screenshot);
        } catch (const TabulonLib12::Error& e) {
            std::fprintf(stderr, "Screenshot not written to %s: %s\n", screenshot.c_str(), e.description().c_str());
            return 1;
        }
        const QString where = QFileInfo(QString::fromStdString(screenshot)).absoluteFilePath();
        std::printf("Screenshot written to %s\n", where.toLocal8Bit().constData());
        return 0;
    }
    window.show();
    return QApplication::exec();
}
