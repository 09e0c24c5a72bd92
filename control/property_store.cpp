// The control's design in the host's property store: a new instance (InitProperties), a saved
// one restored (ReadProperties) and the design saved (WriteProperties). Every key, kind and
// default here is a saved format that stores written earlier must keep loading with; where the
// reader's default differs from the writer's, the difference is the format and stays.
#include <cmath>
#include <string_view>
#include <type_traits>

#include "control/tabulon12_impl.h"
#include "platform/host/property_bag.h"
#include "platform/runtime/steps.h"

namespace TabulonLib12 {

namespace {

// Colours are kept as 32-bit Longs; a system colour (top bit set) is a negative Long.
int32_t AsLong(Colour c) { return static_cast<int32_t>(c); }
Colour AsColour(int32_t v) { return static_cast<Colour>(v); }

std::string ColumnKey(const char* base, int16_t column) { return base + std::to_string(column); }

// The store's kind and the element type of a column array.
template <class T>
PropertyValue StoredColumnValue(StoreKind kind, const T& value) {
    if constexpr (std::is_same_v<T, std::string>) {
        return value;
    } else {
        switch (kind) {
            case StoreKind::Byte: return static_cast<uint8_t>(value);
            case StoreKind::Int32: return static_cast<int32_t>(value);
            case StoreKind::Boolean: return value != 0;
            default: return static_cast<int16_t>(value);
        }
    }
}

// A byte is compared with a 16-bit default, as the store keeps it.
template <class T>
PropertyValue ColumnDefault(StoreKind kind, const T& value) {
    if constexpr (std::is_same_v<T, std::string>) {
        return value;
    } else {
        switch (kind) {
            case StoreKind::Int32: return static_cast<int32_t>(value);
            case StoreKind::Boolean: return value != 0;
            default: return static_cast<int16_t>(value);
        }
    }
}

template <class T>
void ReadColumnValue(const PropertyBag& store, const std::string& key, StoreKind kind, const T& defaultValue, T& into) {
    if constexpr (std::is_same_v<T, std::string>) {
        into = store.ReadText(key, defaultValue);
    } else {
        switch (kind) {
            case StoreKind::Byte: into = static_cast<T>(store.ReadByte(key, static_cast<uint8_t>(defaultValue))); break;
            case StoreKind::Int32:
                into = static_cast<T>(store.ReadInt32(key, static_cast<int32_t>(defaultValue)));
                break;
            case StoreKind::Boolean: into = store.ReadBool(key, defaultValue != 0) ? VbTrue : VbFalse; break;
            default: into = static_cast<T>(store.ReadInt16(key, static_cast<int16_t>(defaultValue))); break;
        }
    }
}

// The reading default of a column key: the table's new-instance value, but for ColsWidth the
// control's LarghezzaColonnaDefault, which is 1000 in a new instance and 0 in a restored one.
template <class T>
T DefaultOf(std::string_view name, T newInstance, int32_t larghezzaColonnaDefault) {
    if constexpr (std::is_arithmetic_v<T>)
        if (name == "ColsWidth") return static_cast<T>(larghezzaColonnaDefault);
    return newInstance;
}

// The old alignment numbers of the cell surface: 1 left, 7 right, 4 centred.
int16_t FromOldAlignment(int16_t old) {
    switch (old) {
        case 1: return 0;
        case 7: return 1;
        case 4: return 2;
        default: return old;
    }
}

}  // namespace

Tabulon12::Tabulon12(const HostServices& host, const TextMetrics& metrics, TimerService& timers, const PropertyBag& saved)
    : impl_(std::make_unique<Impl>(host, metrics, timers)) {
    ReadProperties(saved);
}

// A new instance: one column with the new-instance values of the column table, the single-cell
// store, the new-instance settings and the designed look. No structure, no hook.
void Tabulon12::InitProperties() {
    auto& s = *impl_;
    s.BackStyle = 0;
    s.QueryCaricamento.clear();
    s.DataBaseName.clear();
    s.columns.ResetToNewInstance();
    s.MatriceRighe = RowStore(0, 0);
    s.LarghezzaColonnaDefault = 1000;
    s.columns.ColsWidth[0] = static_cast<int16_t>(s.LarghezzaColonnaDefault);

    s.Cols = 1;
    s.structure.setMinRows(10);
    s.ImageLista.clear();
    s.BackColor2 = 0xFF8080;
    s.band.setForeColorOrd(0xFF);
    s.painter.setBackColorSelected(0xFF8080);
    s.ActiveCol = 1;
    s.selection.RestoreMultiSel(false);
    s.Password.clear();
    s.structure.setBottomHeight(0);
    s.painter.setIperTextColor(0xFF0000);
    s.bands.setVerticalGrid(false, 0);
    s.IperTextEnabled = false;
    s.band.RestoreForeColorHead(0);
    s.band.setColorGridHead(0xF5DDCD);
    s.band.RestoreStileTesta(StileTestaType::Ice);
    s.band.RestoreStileTestaOver(StileTestaType::Sky);
    s.band.setStileArrow(ColorArrowType::Blue);
    s.keys.setWheelStatus(false);
    s.selection.setSelezioneMultiplaImmediata(false);
    s.painter.setColonnaColore(-1);
    s.chooser.setConsentiSceltaColonne(false);
    s.chooser.setFileScelta("");
    s.totals.setTestoCount("");
    s.band.setIndiceordinamentoAttivo(-1);

    s.elements.Shape1->setBorderColor(0xCEAB8E);
    s.band.setBackColorTopScheda(0xFFFFFF);
    s.structure.setLarghezzaRiferimento(static_cast<int32_t>(std::nearbyint(s.surface.Width())));
}

// Whether the store holds alignments in the surface's old numbers: some "Allineamento" key above 2.
bool Tabulon12::Impl::AllineamentoVecchio(const PropertyBag& store) const {
    Steps steps;
    bool old = false;
    for (int16_t i = 0; i < Cols && !old; ++i)
        steps([&] { old = store.ReadInt16(ColumnKey("Allineamento", i), 0) > 2; });
    return old;
}

// A saved instance restored. Every value goes straight into its field or element, without the
// setters' side effects and notices; a step that fails (a value too wide for its field, a style
// without a texture, a window that cannot be hooked) is skipped and the next one runs.
void Tabulon12::ReadProperties(const PropertyBag& store) {
    auto& s = *impl_;
    Steps steps;
    // A restored instance never had the new instance's default width, whatever ran before.
    s.LarghezzaColonnaDefault = 0;
    const Font ambient = s.host.ambientFont;

    steps([&] { s.ParentForm = s.host.parentForm; });
    steps([&] { s.structure.setMinRows(store.ReadInt16("MinRows", 1)); });
    steps([&] { s.Cols = store.ReadInt16("Cols", 1); });
    steps([&] { s.FG1.setGridColor(AsColour(store.ReadInt32("GridColor", 0))); });
    steps([&] { s.BackColor = AsColour(store.ReadInt32("BackColor", 0xFFFFFF)); });
    steps([&] { s.ForeColorSel = AsColour(store.ReadInt32("ForeColorSel", 0)); });
    steps([&] { s.BackColorSel = AsColour(store.ReadInt32("BackColorSel", 0xFF0000)); });
    steps([&] { s.bands.setVerticalGrid(store.ReadBool("VerticalGrid", false), 0); });
    steps([&] { s.bands.setVerticalGridColor(AsColour(store.ReadInt32("VerticalGridColor", 0x808080)), 1); });
    steps([&] { s.FG1.setFont(store.ReadFont("Font", ambient)); });
    steps([&] { s.QueryCaricamento = store.ReadText("QueryString", ""); });
    steps([&] { s.DataBaseName = store.ReadText("DataBaseName", ""); });

    steps([&] {
        if (s.Cols < 1) throw Error::OutOfBounds();  // no array takes the bounds 0 to Cols - 1
        s.columns.ResizePlain(s.Cols);
    });
    const bool old = s.AllineamentoVecchio(store);
    for (int16_t i = 0; i < s.Cols && s.columns.Has(i); ++i) {
        const auto at = static_cast<size_t>(i);
        if (old) {
            s.LarghezzaColonnaDefault = 0;
            steps([&] { s.columns.ColAlignment[at] = store.ReadInt16(ColumnKey("Allineamento", i), 0); });
            s.columns.ColAlignment[at] = FromOldAlignment(s.columns.ColAlignment[at]);
        } else {
            steps([&] { s.columns.ColAlignment[at] = store.ReadInt16(ColumnKey("ColAlignment", i), 0); });
        }
#define TABULON_READ_COLUMN(Name, Type, NewInstance, Added, Kind, PageCell)                                    \
    if (std::string_view(#Name) != "ColAlignment") {                                                           \
        const Type byDefault = DefaultOf<Type>(#Name, Type(NewInstance), s.LarghezzaColonnaDefault);          \
        steps([&] { ReadColumnValue(store, ColumnKey(#Name, i), Kind, byDefault, s.columns.Name[at]); });      \
    }
        TABULON_COLUMN_PROPERTIES(TABULON_READ_COLUMN)
#undef TABULON_READ_COLUMN
    }
    s.selection.ResetAnchor();

    steps([&] { s.structure.setMinRows(store.ReadInt16("MinRows", 10)); });
    steps([&] { s.ImageLista = store.ReadText("ImageLista", ""); });
    steps([&] { s.BackColorSel = AsColour(store.ReadInt32("BackColorSel", 0x43BFFC)); });
    steps([&] { s.BackColor2 = AsColour(store.ReadInt32("BackColor2", 0xFF8080)); });
    steps([&] { s.painter.setIperTextColor(AsColour(store.ReadInt32("IperTextColor", 0xFF0000))); });
    steps([&] { s.painter.setBackColorSelected(AsColour(store.ReadInt32("BackColorSelected", 0xFF8080))); });
    steps([&] { s.band.setForeColorOrd(AsColour(store.ReadInt32("ForeColorOrd", 0xFF8080))); });
    steps([&] { s.band.setColorGridHead(AsColour(store.ReadInt32("ColorGridHead", 0xF5DDCD))); });
    // The textures of the first tile and of the hover tile come with the styles; a style
    // without a texture keeps the tile as it was.
    steps([&] { s.band.setStileTesta(static_cast<StileTestaType>(store.ReadInt32("StileTesta", 0))); });
    steps([&] { s.band.setStileTestaOver(static_cast<StileTestaType>(store.ReadInt32("StileTestaOver", 5))); });
    steps([&] { s.band.setStileArrow(static_cast<ColorArrowType>(store.ReadInt32("StileArrow", 3))); });

    s.LimiteRighe = s.structure.MinRows();
    steps([&] { s.MatriceRighe = RowStore(s.LimiteRighe, s.Cols); });

    steps([&] { s.ActiveCol = store.ReadInt16("ActiveCol", 1); });
    steps([&] { s.Password = store.ReadText("Password", ""); });
    steps([&] { s.selection.RestoreMultiSel(store.ReadBool("MultiSel", false)); });
    steps([&] { s.structure.setBottomHeight(store.ReadInt32("BottomHeight", 0)); });
    steps([&] { s.surface.setBackColor(AsColour(store.ReadInt32("BackColorSfondo", AsLong(SystemColour::ButtonFace)))); });
    steps([&] { s.FG1.setGridColor(AsColour(store.ReadInt32("GridColor", 0xFFFFFF))); });
    steps([&] { s.bands.setVerticalGridColor(AsColour(store.ReadInt32("VerticalGridColor", 0x808080)), 1); });
    steps([&] { s.band.RestoreForeColorHead(AsColour(store.ReadInt32("ForeColorHead", 0))); });
    steps([&] { s.bands.setVerticalGrid(store.ReadBool("VerticalGrid", false), 0); });
    steps([&] { s.IperTextEnabled = store.ReadBool("IperTextEnabled", false); });
    s.band.setIndiceordinamentoAttivo(-1);
    steps([&] { s.elements.Shape1->setBorderColor(AsColour(store.ReadInt32("BorderColor", 0xCEAB8E))); });
    steps([&] { s.band.setBackColorTopScheda(AsColour(store.ReadInt32("BackColorTopScheda", 0xFFFFFF))); });
    steps([&] { s.keys.setWheelStatus(store.ReadBool("WheelStatus", false)); });
    steps([&] { s.selection.setSelezioneMultiplaImmediata(store.ReadBool("SelezioneMultiplaImmediata", false)); });
    steps([&] { s.chooser.setConsentiSceltaColonne(store.ReadBool("ConsentiSceltaColonne", false)); });
    steps([&] { s.painter.setColonnaColore(store.ReadInt16("ColonnaColore", -1)); });
    steps([&] { s.chooser.setFileScelta(store.ReadText("FileScelta", "")); });
    steps([&] { s.totals.setTestoCount(store.ReadText("TestoCount", "")); });
    steps([&] { s.elements.LabelCount->setCaption(s.totals.TestoCount() + " 0"); });
    steps([&] { s.structure.setLarghezzaRiferimento(static_cast<int32_t>(std::nearbyint(s.surface.Width()))); });
    s.band.setTestaSorvolata(-1);

    steps([&] { s.CaricaStruttura(); });
    steps([&] { s.ColoraSfondoRighe(); });
    if (s.keys.WheelStatus())
        steps([&] {
            if (!s.ParentForm) throw Error::MissingObject();
            s.keys.AgganciaRotella(s.ParentForm->Window());
        });
}

// The design saved: the scalars up to DataBaseName, each column's keys, then the other scalars.
// Colours and fonts are asked of the elements that show them at this moment. A failure of the
// store stops here and reaches the host; keys written so far stay written.
void Tabulon12::WriteProperties(PropertyBag& store) const {
    const auto& s = *impl_;
    store.WriteProperty("BackColor", AsLong(s.BackColor), int32_t{0x62E3C8});
    store.WriteProperty("ForeColor", AsLong(s.painter.ForeColor()), int32_t{0x404040});
    store.WriteProperty("ForeColorsel", AsLong(s.ForeColorSel), int32_t{0x404040});
    store.WriteProperty("Font", s.FG1.GetFont(), s.host.ambientFont);
    store.WriteProperty("BackStyle", s.BackStyle, int16_t{0});
    store.WriteProperty("QueryString", s.QueryCaricamento, std::string());
    store.WriteProperty("DataBaseName", s.DataBaseName, std::string());
    for (int16_t i = 0; i < s.Cols && s.columns.Has(i); ++i) {
        const auto at = static_cast<size_t>(i);
#define TABULON_WRITE_COLUMN(Name, Type, NewInstance, Added, Kind, PageCell)                                   \
    store.WriteProperty(ColumnKey(#Name, i), StoredColumnValue(Kind, s.columns.Name[at]),                      \
                        std::string_view(#Name) == "ColsWidth" ? PropertyValue(s.LarghezzaColonnaDefault)       \
                                                               : ColumnDefault(Kind, Type(NewInstance)));
        TABULON_COLUMN_PROPERTIES(TABULON_WRITE_COLUMN)
#undef TABULON_WRITE_COLUMN
    }
    store.WriteProperty("Cols", s.Cols, int16_t{1});
    store.WriteProperty("MinRows", s.structure.MinRows(), int16_t{10});
    store.WriteProperty("ImageLista", s.ImageLista, std::string());
    store.WriteProperty("BackColorSel", AsLong(s.BackColorSel), int32_t{0x43BFFC});
    store.WriteProperty("BackColor2", AsLong(s.BackColor2), int32_t{0xFF8080});
    store.WriteProperty("ForeColorOrd", AsLong(s.band.ForeColorOrd()), int32_t{0xFF8080});
    store.WriteProperty("BackColorSelected", AsLong(s.painter.BackColorSelected()), int32_t{0xFF8080});
    store.WriteProperty("Rows", s.structure.MinRows(), int16_t{29});
    store.WriteProperty("ActiveCol", s.ActiveCol, int16_t{1});
    store.WriteProperty("MultiSel", s.selection.MultiSel(), false);
    store.WriteProperty("Password", s.Password, std::string());
    store.WriteProperty("BottomHeight", s.structure.BottomHeight(), int16_t{0});
    store.WriteProperty("BackColorSfondo", AsLong(s.surface.BackColor()), AsLong(SystemColour::ButtonFace));
    store.WriteProperty("IperTextColor", AsLong(s.painter.IperTextColor()), int32_t{0xFF0000});
    store.WriteProperty("GridColor", AsLong(s.FG1.GridColor()), int32_t{0xFFFFFF});
    store.WriteProperty("VerticalGrid", s.bands.VerticalGrid(), false);
    store.WriteProperty("IperTextEnabled", s.IperTextEnabled, false);
    store.WriteProperty("VerticalGridColor", AsLong(s.bands.VerticalGridColor()), int32_t{0x808080});
    store.WriteProperty("ForeColorHead", AsLong(s.band.ForeColorHead()), int32_t{0});
    store.WriteProperty("ColorGridHead", AsLong(s.band.ColorGridHead()), int32_t{0xF5DDCD});
    store.WriteProperty("StileTesta", static_cast<int32_t>(s.band.StileTesta()), int16_t{0});
    store.WriteProperty("StileTestaOver", static_cast<int32_t>(s.band.StileTestaOver()), int16_t{5});
    store.WriteProperty("StileArrow", static_cast<int32_t>(s.band.StileArrow()), int16_t{3});
    store.WriteProperty("BorderColor", AsLong(s.elements.Shape1->BorderColor()), int32_t{0xCEAB8E});
    store.WriteProperty("BackColorTopScheda", AsLong(s.band.BackColorTopScheda()), int32_t{0xFFFFFF});
    store.WriteProperty("WheelStatus", s.keys.WheelStatus(), false);
    store.WriteProperty("SelezioneMultiplaImmediata", s.selection.SelezioneMultiplaImmediata(), false);
    store.WriteProperty("ColonnaColore", s.painter.ColonnaColore(), int16_t{-1});
    store.WriteProperty("ConsentiSceltaColonne", s.chooser.ConsentiSceltaColonne(), false);
    store.WriteProperty("FileScelta", s.chooser.FileScelta(), std::string());
    store.WriteProperty("TestoCount", s.totals.TestoCount(), std::string());
}

}  // namespace TabulonLib12
