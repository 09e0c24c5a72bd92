#include "style_sheet.h"

#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "widgets/tabulon12_widget.h"

namespace TabulonLib12::Demo {

namespace {

struct StyleSample {
    StileTestaType style;
    const char* name;
    Colour captions;  // light captions on the dark bands
};

constexpr StyleSample kStyles[] = {
    {StileTestaType::Ice, "Ice", 0x000000},       {StileTestaType::Black, "Black", 0xFFFFFF},
    {StileTestaType::Sea, "Sea", 0xFFFFFF},       {StileTestaType::Orange, "Orange", 0x000000},
    {StileTestaType::Violet, "Violet", 0x000000}, {StileTestaType::Sky, "Sky", 0x000000},
    {StileTestaType::Green, "Green", 0x000000},   {StileTestaType::White, "White", 0x000000},
    {StileTestaType::Scheda, "Scheda", 0x000000}, {StileTestaType::Custom, "Custom", 0x000000},
};

struct ColumnSample {
    const char* heading;
    const char* field;
    const char* format;
    int16_t width;
    int16_t alignment;
};

// Widths for the list's own width: the sheet turns the scaling off.
constexpr ColumnSample kColumns[] = {
    {"N.", "id", "Nessuno", 700, 1},
    {"Cliente", "customer", "Nessuno", 3100, 0},
    {"Città", "city", "Nessuno", 1800, 0},
    {"Importo", "amount", "Valuta", 1500, 1},
};

// One small list in a style, loaded from the sample's first orders.
Tabulon12Widget* StyledList(const std::string& databasePath, const StyleSample& sample, QWidget* parent) {
    auto* list = new Tabulon12Widget(parent);
    list->setFixedSize(500, 138);
    Tabulon12& c = list->Control();
    c.setAdattamentoColonneDisattivato(true);
    const auto count = static_cast<int16_t>(std::size(kColumns));
    c.setCols(count);
    for (int16_t i = 0; i < count; ++i) {
        c.setIntestazione(i, kColumns[i].heading);
        c.setCampoQuery(i, kColumns[i].field);
        c.setFormato(i, kColumns[i].format);
        c.setColsWidth(i, kColumns[i].width);
        c.setColAlignment(i, kColumns[i].alignment);
    }
    c.setStileTesta(sample.style);
    c.setStileTestaOver(sample.style);
    c.setForeColorHead(sample.captions);
    c.setDataBaseName(databasePath);
    c.setQueryString("SELECT id, customer, city, amount FROM v_orders WHERE id <= 20");
    c.Carica();
    return list;
}

}  // namespace

StyleSheet::StyleSheet(const std::string& databasePath, QWidget* parent) : QWidget(parent) {
    setWindowTitle(QStringLiteral("Tabulon12: heading styles"));
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(10, 10, 10, 10);
    grid->setHorizontalSpacing(14);
    grid->setVerticalSpacing(8);
    int n = 0;
    for (const StyleSample& sample : kStyles) {
        auto* cell = new QWidget(this);
        auto* column = new QVBoxLayout(cell);
        column->setContentsMargins(0, 0, 0, 0);
        column->setSpacing(2);
        column->addWidget(new QLabel(QStringLiteral("StileTesta %1 (%2)").arg(sample.name).arg(static_cast<int>(sample.style)), cell));
        column->addWidget(StyledList(databasePath, sample, cell));
        grid->addWidget(cell, n / 2, n % 2);
        ++n;
    }
}

}  // namespace TabulonLib12::Demo
