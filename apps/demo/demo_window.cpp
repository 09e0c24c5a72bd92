#include "demo_window.h"

#include <QLabel>
#include <QVBoxLayout>

namespace TabulonLib12::Demo {

namespace {
constexpr int32_t kRowsShown = 30;
}

DemoWindow::DemoWindow() {
    setWindowTitle(QStringLiteral("Tabulon12 demo"));
    auto* central = new QWidget(this);
    auto* layout = new QVBoxLayout(central);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->setSpacing(6);

    list_ = new TabulonWidget(central);
    list_->setMinimumSize(400, 300);
    orders_ = std::make_unique<OrderList>(list_->GetSurface());
    orders_->onCellClick = [this](int32_t row, int32_t col) {
        Log(QStringLiteral("Click row %1 col %2").arg(row).arg(col));
    };
    layout->addWidget(list_, 1);

    layout->addWidget(new QLabel(QStringLiteral("Log"), central));
    log_ = new QPlainTextEdit(central);
    log_->setReadOnly(true);
    log_->setFixedHeight(130);
    layout->addWidget(log_);

    setCentralWidget(central);
    resize(1000, 700);
}

void DemoWindow::Load(DatabaseEngine& engine, const std::string& databasePath) {
    orders_->Load(engine, databasePath, kRowsShown);
    Log(QStringLiteral("Loaded %1 orders from %2")
            .arg(orders_->Grid().Rows())
            .arg(QString::fromStdString(databasePath)));
}

void DemoWindow::Log(const QString& line) { log_->appendPlainText(line); }

}  // namespace TabulonLib12::Demo
