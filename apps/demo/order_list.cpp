#include "order_list.h"

#include <algorithm>
#include <charconv>
#include <memory>

#include "platform/runtime/error.h"

namespace TabulonLib12::Demo {

namespace {

constexpr Colour kBandColour = 0xF5DDCD;     // light blue heading band
constexpr Colour kBandText = Rgb(31, 45, 84);
constexpr Colour kOutline = 0xCEAB8E;
constexpr Colour kCellText = Rgb(32, 32, 32);
constexpr Colour kGridLines = Rgb(222, 226, 232);
constexpr Colour kBackground = 0xE6E6E6;

constexpr float kMargin = 120;        // twips around the list
constexpr float kBandHeight = 330;    // the heading band
constexpr float kCountHeight = 300;   // the count line under the grid
constexpr int32_t kCellPadding = 240; // twips added to the widest text of a column

Font ListFont(bool bold = false) {
    Font f;  // Arial 8.25
    f.bold = bold;
    return f;
}

}  // namespace

bool ColourFromText(const std::string& text, Colour& colour) {
    int parts[3] = {0, 0, 0};
    const char* p = text.data();
    const char* end = text.data() + text.size();
    for (int i = 0; i < 3; ++i) {
        while (p < end && *p == ' ') ++p;
        auto [next, ec] = std::from_chars(p, end, parts[i]);
        if (ec != std::errc() || parts[i] < 0 || parts[i] > 255) return false;
        p = next;
        while (p < end && *p == ' ') ++p;
        if (i < 2) {
            if (p == end || *p != ',') return false;
            ++p;
        }
    }
    if (p != end) return false;
    colour = Rgb(parts[0], parts[1], parts[2]);
    return true;
}

OrderList::OrderList(Surface& surface) : surface_(surface) {
    columns_ = {{"N.", "id", CellAlign::RightCentre},
                {"Cliente", "customer", CellAlign::LeftCentre},
                {"Città", "city", CellAlign::LeftCentre},
                {"Data", "order_date", CellAlign::CentreCentre},
                {"Quantità", "quantity", CellAlign::RightCentre},
                {"Importo", "amount", CellAlign::RightCentre}};
    surface_.setBackColor(Rgb(255, 255, 255));

    outline_ = &surface_.CreateShape("Shape1");
    outline_->setBorderColor(kOutline);

    band_ = &surface_.CreateFrame("Shape2");
    band_->setBorderStyle(0);
    band_->setBackColor(kBandColour);
    for (size_t i = 0; i < columns_.size(); ++i) {
        Label& heading = surface_.CreateLabel("LabelMenu", band_);
        heading.setBackStyle(0);
        heading.setForeColor(kBandText);
        heading.setFont(ListFont(true));
        heading.setCaption(columns_[i].caption);
        headings_.push_back(&heading);
        if (i > 0) {
            Frame& line = surface_.CreateFrame("FrameLine", band_);
            line.setBorderStyle(0);
            line.setBackColor(kOutline);
            separators_.push_back(&line);
        }
    }

    grid_ = &surface_.CreateCellGrid("FG1");
    grid_->setFixedRows(0);
    grid_->setFixedCols(0);
    grid_->setCols(static_cast<int32_t>(columns_.size()));
    grid_->setFont(ListFont());
    grid_->setBackColor(Rgb(255, 255, 255));
    grid_->setForeColor(kCellText);
    grid_->setBackColorBkg(kBackground);
    grid_->setGridColor(kGridLines);
    grid_->setGridLines(1);
    grid_->setBackColorSel(SystemColour::Highlight);
    grid_->setForeColorSel(Rgb(255, 255, 255));
    grid_->setSelectionMode(1);  // a click selects the whole row
    for (size_t c = 0; c < columns_.size(); ++c)
        grid_->setColAlignment(static_cast<int32_t>(c), columns_[c].alignment);
    grid_->onClick = [this](Element&) {
        if (onCellClick) onCellClick(grid_->Row(), grid_->Col());
    };

    count_ = &surface_.CreateLabel("LabelCount");
    count_->setBackStyle(0);
    count_->setFont(ListFont(true));
    count_->setForeColor(kCellText);
    count_->setAutoSize(true);
    count_->setCaption("Righe visualizzate: 0");

    surface_.onResize = [this](Surface&) { Layout(); };
    SizeColumns();
    Layout();
}

void OrderList::Load(DatabaseEngine& engine, const std::string& databasePath, int32_t rows) {
    auto database = engine.OpenDatabase(databasePath, OpenOptions{});
    auto records = database->OpenRecordset(
        "SELECT id, customer, city, order_date, quantity, amount, colour FROM v_orders ORDER BY id");
    std::vector<int> fields;
    for (const auto& column : columns_) {
        const int index = records->FieldIndex(column.field);
        if (index < 0) throw Error(ErrorKind::Database, 3265, "Item not found in this collection.");
        fields.push_back(index);
    }
    const int colourField = records->FieldIndex("colour");

    grid_->setRedraw(false);
    grid_->Clear();
    grid_->setRows(std::max<int32_t>(rows, 1));
    int32_t loaded = 0;
    std::string text;
    for (; loaded < rows && !records->IsEOF(); ++loaded, records->MoveNext()) {
        for (size_t c = 0; c < fields.size(); ++c) {
            text.clear();
            records->AppendFieldText(fields[c], text);
            grid_->setTextMatrix(loaded, static_cast<int32_t>(c), text);
        }
        text.clear();
        if (colourField >= 0) records->AppendFieldText(colourField, text);
        Colour back = 0;
        if (ColourFromText(text, back)) {
            grid_->setRow(loaded);
            for (int32_t c = 0; c < grid_->Cols(); ++c) {
                grid_->setCol(c);
                grid_->setCellBackColor(back);
            }
        }
    }
    records->Close();
    database->Close();
    grid_->setRow(0);
    grid_->setCol(0);
    count_->setCaption("Righe visualizzate: " + std::to_string(loaded));
    SizeColumns();
    Layout();
    grid_->setRedraw(true);
}

void OrderList::SizeColumns() {
    const TextMetrics& metrics = surface_.Metrics();
    for (size_t c = 0; c < columns_.size(); ++c) {
        int32_t widest = metrics.TextWidth(ListFont(true), columns_[c].caption);
        for (int32_t r = 0; r < grid_->Rows(); ++r)
            widest = std::max(widest, metrics.TextWidth(ListFont(), grid_->TextMatrix(r, static_cast<int32_t>(c))));
        columns_[c].naturalWidth = widest + kCellPadding;
    }
}

void OrderList::Layout() {
    const float width = std::max(0.0f, surface_.Width() - 2 * kMargin);
    const float gridTop = kMargin + kBandHeight;
    // The grid ends under its last row when the rows fit; otherwise it takes the room there is.
    const float room = std::max(0.0f, surface_.Height() - gridTop - kCountHeight - kMargin);
    const int32_t last = grid_->Rows() - 1;
    const float rowsHeight = static_cast<float>(grid_->RowPos(last) + grid_->RowHeight(last));
    const float gridHeight = std::min(room, rowsHeight);

    // The columns share out the width beyond their natural sizes in proportion to them; the
    // last one takes what rounding leaves.
    int64_t natural = 0;
    for (const auto& column : columns_) natural += column.naturalWidth;
    const double factor = natural > 0 ? std::max(1.0, static_cast<double>(width) / static_cast<double>(natural)) : 1.0;
    int32_t used = 0;
    for (size_t c = 0; c < columns_.size(); ++c) {
        int32_t w = static_cast<int32_t>(columns_[c].naturalWidth * factor) / 15 * 15;
        if (c + 1 == columns_.size() && factor > 1.0) w = std::max<int32_t>(static_cast<int32_t>(width) - used, 0);
        grid_->setColWidth(static_cast<int32_t>(c), w);
        used += w;
    }

    band_->Move(kMargin, kMargin, width, kBandHeight);
    grid_->Move(kMargin, gridTop, width, gridHeight);
    outline_->Move(kMargin - 15, kMargin - 15, width + 30, kBandHeight + gridHeight + 30);
    count_->Move(kMargin, gridTop + gridHeight + 90);
    PlaceHeadings();
}

void OrderList::PlaceHeadings() {
    const float textHeight = static_cast<float>(surface_.Metrics().TextHeight(ListFont(true)));
    const float top = std::max(0.0f, (kBandHeight - textHeight) / 2);
    for (size_t c = 0; c < headings_.size(); ++c) {
        const auto col = static_cast<int32_t>(c);
        Label& heading = *headings_[c];
        // The caption's box matches the text area of the cells below: 2 pixels of padding on
        // each side and the grid line on the right.
        heading.Move(static_cast<float>(grid_->ColPos(col) + 30), top,
                     static_cast<float>(std::max<int32_t>(grid_->ColWidth(col) - 75, 0)), textHeight);
        // Captions stand over their cells: numbers right, dates centred, texts left.
        const int16_t h = columns_[c].alignment / 3;
        heading.setAlignment(h == 0 ? Alignment::Left : h == 1 ? Alignment::Centre : Alignment::Right);
        if (c > 0) separators_[c - 1]->Move(static_cast<float>(grid_->ColPos(col) - 15), 60, 15, kBandHeight - 120);
    }
}

}  // namespace TabulonLib12::Demo
