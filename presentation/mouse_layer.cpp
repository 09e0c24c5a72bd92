#include "presentation/mouse_layer.h"

#include <cmath>

#include "grid/conditions.h"
#include "grid/row_window.h"
#include "platform/runtime/conversions.h"
#include "platform/runtime/rounding.h"
#include "platform/runtime/steps.h"

namespace TabulonLib12 {

namespace {

// The longest tip, in characters: far beyond any screen, and short enough to measure at once.
constexpr size_t kTipCharacters = 2000;

bool IsContinuationByte(unsigned char c) { return (c & 0xC0) == 0x80; }

// The code point that starts at `at` (a lead byte), or U+FFFD for a malformed one.
char32_t CodePointAt(const std::string& s, size_t at) {
    const auto b = [&](size_t k) { return static_cast<unsigned char>(s[k]); };
    const unsigned char lead = b(at);
    if (lead < 0x80) return lead;
    const int length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 0;
    if (length == 0 || at + static_cast<size_t>(length) > s.size()) return 0xFFFD;
    char32_t cp = lead & (0x7F >> length);
    for (int k = 1; k < length; ++k) cp = (cp << 6) | (b(at + static_cast<size_t>(k)) & 0x3F);
    return cp;
}

// Marks that belong to the character before them: a tip is never cut right before one.
bool JoinsThePrevious(char32_t cp) {
    return (cp >= 0x0300 && cp <= 0x036F) || (cp >= 0x1AB0 && cp <= 0x1AFF) || (cp >= 0x1DC0 && cp <= 0x1DFF) ||
           (cp >= 0x20D0 && cp <= 0x20FF) || (cp >= 0xFE00 && cp <= 0xFE0F) || (cp >= 0xFE20 && cp <= 0xFE2F) ||
           cp == 0x200D || (cp >= 0xE0100 && cp <= 0xE01EF) || (cp >= 0x1F3FB && cp <= 0x1F3FF);
}

}  // namespace

std::string TipText(const std::string& text) {
    size_t characters = 0, at = 0, cut = text.size();
    while (at < text.size()) {
        if (!IsContinuationByte(static_cast<unsigned char>(text[at]))) {
            if (characters == kTipCharacters) {
                cut = at;
                break;
            }
            ++characters;
        }
        ++at;
    }
    if (cut == text.size()) return text;
    // Back to a boundary that no joining mark follows, and no zero-width joiner precedes.
    while (cut > 0 && JoinsThePrevious(CodePointAt(text, cut))) {
        do --cut;
        while (cut > 0 && IsContinuationByte(static_cast<unsigned char>(text[cut])));
    }
    return text.substr(0, cut) + "\u2026";
}

MouseLayer::MouseLayer(PictureBox& pictureTTT, Label& labelTTT, Label& labelMisTxt, CellGrid& fg, Scorrix& bar,
                       RowStore& store, const ColumnDefinitions& columns, const ImageListRef& images,
                       HostEvents& events, Neighbours& neighbours)
    : pictureTTT_(pictureTTT),
      labelTTT_(labelTTT),
      labelMisTxt_(labelMisTxt),
      fg_(fg),
      bar_(bar),
      store_(store),
      columns_(columns),
      images_(images),
      events_(events),
      neighbours_(neighbours) {
    fg.onMouseMove = [this](Element&, int16_t& b, int16_t& s, float& x, float& y) { MouseMove(b, s, x, y); };
    fg.onMouseDown = [this](Element&, int16_t& b, int16_t& s, float& x, float& y) { MouseDown(b, s, x, y); };
    fg.onMouseUp = [this](Element&, int16_t& b, int16_t& s, float& x, float& y) {
        events_.Raise([&](Tabulon12Events& e) { e.MouseUp(b, s, x, y); });
    };
    fg.onClick = [this](Element&) { Click(); };
    fg.onDblClick = [this](Element&) { DblClick(); };
    fg.onSelChange = [this](CellGrid&) { SelChange(); };
    fg.onEnterCell = [this](CellGrid&) {
        if (!neighbours_.Loading()) events_.Raise([](Tabulon12Events& e) { e.EnterCell(); });
    };
    fg.onLeaveCell = [this](CellGrid&) {
        if (!neighbours_.Loading()) events_.Raise([](Tabulon12Events& e) { e.LeaveCell(); });
    };
    fg.onGotFocus = [this](Element&) { neighbours_.FocusKeys(); };
    fg.onKeyDown = [this](Element&, int16_t& key, int16_t& shift) {
        events_.Raise([&](Tabulon12Events& e) { e.KeyDown(key, shift); });
        neighbours_.FocusKeys();
    };
    fg.onKeyPress = [this](Element&, int16_t& ascii) { events_.Raise([&](Tabulon12Events& e) { e.KeyPress(ascii); }); };
    fg.onKeyUp = [this](Element&, int16_t& key, int16_t& shift) {
        events_.Raise([&](Tabulon12Events& e) { e.KeyUp(key, shift); });
    };
}

void MouseLayer::HideTip() { pictureTTT_.setVisible(false); }

int16_t MouseLayer::ColonnaSelezionata() const {
    for (int32_t c = 0; c < fg_.Cols(); ++c)
        if (fg_.ColPos(c) > ultimoMouseX_) return static_cast<int16_t>(c);
    return static_cast<int16_t>(fg_.Cols());
}

int16_t MouseLayer::RigaSorvolata() const {
    for (int32_t r = 0; r < fg_.Rows(); ++r)
        if (fg_.RowPos(r) > ultimoMouseY_) return static_cast<int16_t>(r);
    return static_cast<int16_t>(fg_.Rows() - 1);
}

int16_t MouseLayer::RigaCliccata() const {
    for (int32_t r = 0; r < fg_.Rows(); ++r)
        if (fg_.RowPos(r) > ultimoMouseY_) return static_cast<int16_t>(r - 1 == -1 ? 0 : r - 1);
    return 0;
}

bool MouseLayer::CellaConImmagine(int16_t riga, int16_t colonna) const {
    if (!store_.InBounds(riga, colonna)) return false;
    if (store_.IsEmpty(riga, 0)) return false;
    const int16_t a = ColumnValue(columns_.ImmagineA, colonna), b = ColumnValue(columns_.ImmagineB, colonna);
    if (!images_.Present()) return false;
    if (a + b >= 1) {
        bool holds = true;  // a value that does not convert counts as holding
        Steps steps;
        steps([&] {
            holds = ValutaCondizione(ColumnValue(columns_.OperatoreCondizionale, colonna),
                                     ColumnValue(columns_.Condizione, colonna), store_.Cell(riga, colonna),
                                     ColumnValue(columns_.TipoCampoRilevato, colonna));
        });
        return holds ? a > 0 : b > 0;
    }
    const int16_t pictureColumn = ColumnValue(columns_.ColonnaImmagine, colonna);
    return store_.InBounds(riga, pictureColumn) && !store_.IsEmpty(riga, pictureColumn);
}

void MouseLayer::MouseMove(int16_t button, int16_t shift, float x, float y) {
    Steps steps;  // every failing step is skipped; the host still gets its MouseMove
    neighbours_.GridTookTheHover();
    if (button == MouseButton::Left && y > fg_.Height()) steps([&] { bar_.SendDown(); });
    steps([&] {
        ultimoMouseX_ = ToInt32(x);
        ultimoMouseY_ = ToInt32(y);
    });
    const int16_t c1 = ColonnaSelezionata();
    const int32_t g = RigaSorvolata() - 1;
    if (button == MouseButton::Left && neighbours_.SelezioneMultiplaImmediata())
        steps([&] { neighbours_.SelezionaRigaMS(g, true); });
    steps([&] { Tooltip(g, c1, x, y); });
    steps([&] {
        const int16_t c = static_cast<int16_t>(c1 - 1);
        int16_t pointer = Pointer::Default;
        if (c1 != 0 && ColumnValue(columns_.IsIperText, c) == 1 && !fg_.TextMatrix(g, c).empty())
            pointer = Pointer::Custom;
        fg_.setMousePointer(pointer);
    });
    events_.Raise([&](Tabulon12Events& e) { e.MouseMove(button, shift, x, y); });
    int32_t row = RigaSorvolata();
    int16_t column = ColonnaSelezionata();
    events_.Raise([&](Tabulon12Events& e) { e.CellMouseMove(row, column); });
}

void MouseLayer::Tooltip(int32_t g, int16_t c1, float x, float y) {
    if (g < 0 || c1 < 1) {
        HideTip();
        return;
    }
    const int16_t c = static_cast<int16_t>(c1 - 1);
    const std::string condition = ColumnValue(columns_.Condizione, c);
    if (condition.empty()) {
        // The overflow tip: only for a text the column cuts off.
        const std::string text = TipText(fg_.TextMatrix(g, c));
        labelMisTxt_.setCaption(text);
        const int32_t width = fg_.ColWidth(c);
        if (!(labelMisTxt_.Width() > static_cast<float>(width) && width > 0)) {
            HideTip();
            return;
        }
        labelTTT_.setCaption(" " + text + " ");
        int32_t left = ToInt32(x);
        const int32_t top = ToInt32(y);
        // Only the right edge is kept: the tip may run past the bottom of the surface.
        if (fg_.Width() < labelTTT_.Width() + static_cast<float>(left)) left = ToInt32(fg_.Width() - labelTTT_.Width());
        pictureTTT_.Move(static_cast<float>(left), static_cast<float>(top), labelTTT_.Width() + 45,
                         static_cast<float>(fg_.RowHeight(0)));
        FinishTip();
        return;
    }
    // The condition tip tells the condition of the record at the grid row's number in the store,
    // without the scroll offset.
    if (store_.IsEmpty(g, 0)) {
        HideTip();
        return;
    }
    bool holds = true;  // a value that does not convert counts as holding
    Steps steps;
    steps([&] {
        holds = ValutaCondizione(ColumnValue(columns_.OperatoreCondizionale, c), condition, store_.Cell(g, c),
                                 ColumnValue(columns_.TipoCampoRilevato, c));
    });
    labelTTT_.setCaption(" " + (holds ? ColumnValue(columns_.ToolTTvero, c) : ColumnValue(columns_.ToolTTfalso, c)) + " ");
    pictureTTT_.Move(x, y, labelTTT_.Width() + 45, static_cast<float>(fg_.RowHeight(0)));
    FinishTip();
}

void MouseLayer::FinishTip() {
    labelTTT_.setHeight(pictureTTT_.Height());
    const std::string& caption = labelTTT_.Caption();
    if (caption.find_first_not_of(' ') == std::string::npos) {
        HideTip();
        return;
    }
    pictureTTT_.setVisible(true);
    pictureTTT_.ZOrder(0);
}

void MouseLayer::MouseDown(int16_t button, int16_t shift, float x, float y) {
    events_.Raise([&](Tabulon12Events& e) { e.MouseDown(button, shift, x, y); });
    if (button != MouseButton::Right) return;
    neighbours_.SelezionaRiga(RigaCliccata());
    int32_t record = IndiceDaRiga(bar_.Value(), fg_.Row());
    int16_t column = ColonnaSelezionata();
    events_.Raise([&](Tabulon12Events& e) { e.CellRightClick(record, column); });
}

void MouseLayer::Click() {
    const int32_t row = fg_.Row();
    const int32_t active = IndiceDaRiga(bar_.Value(), row);
    const int16_t c1 = ColonnaSelezionata();
    const int16_t c = static_cast<int16_t>(c1 - 1);
    // The per-column arrays are read at c: a click left of the first column fails here.
    if (!columns_.Has(c)) throw Error::OutOfBounds();
    neighbours_.SetCurrentRow(row, active, neighbours_.IndiceSelezionato());
    const double key = Val(store_.Cell(active, columns_.IperTextIndex[static_cast<size_t>(c)]));
    neighbours_.SetCurrentRow(row, active, ToInt32(key));
    neighbours_.FocusKeys();
    events_.Raise([](Tabulon12Events& e) { e.Click(); });
    int32_t clickRow = fg_.Row();
    int16_t clickColumn = c1;
    events_.Raise([&](Tabulon12Events& e) { e.CellClick(clickRow, clickColumn); });
    // A live hyperlink: an IsIperText column whose cell shows the hand, with no multiple
    // selection. The key and the cell's text go by reference: what the host writes into them
    // is the control's.
    if (columns_.IsIperText[static_cast<size_t>(c)] == 1 && fg_.MousePointer() == Pointer::Custom &&
        !neighbours_.MultiSel()) {
        int32_t record = IndiceDaRiga(bar_.Value(), fg_.Row());
        int16_t column = c1;
        int32_t id = neighbours_.IndiceSelezionato();
        const int32_t cellRow = neighbours_.IndiceRigaAttiva();
        std::string text(store_.Cell(cellRow, c));
        const std::string before = text;
        events_.Raise([&](Tabulon12Events& e) { e.IperTextClick(record, column, id, text); });
        if (id != neighbours_.IndiceSelezionato())
            neighbours_.SetCurrentRow(row, neighbours_.IndiceRigaAttiva(), id);
        if (text != before) store_.SetCell(cellRow, c, text);
    }
}

void MouseLayer::DblClick() {
    neighbours_.SelezionaRigaMS(fg_.Row(), false);
    events_.Raise([](Tabulon12Events& e) { e.DblClick(); });
    int32_t row = fg_.Row();
    int16_t column = ColonnaSelezionata();
    events_.Raise([&](Tabulon12Events& e) { e.CellDblClick(row, column); });
}

void MouseLayer::SelChange() {
    // Only the user's own moves: the paint and the selection move the current cell by code.
    if (!fg_.HandlingInput()) return;
    const int32_t row = fg_.Row();
    if (row < 0) return;
    const double key = Val(fg_.TextMatrix(row, 0));
    neighbours_.SetCurrentRow(row, IndiceDaRiga(bar_.Value(), row), ToInt32(key));
}

}  // namespace TabulonLib12
