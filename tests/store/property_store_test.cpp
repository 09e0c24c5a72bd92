// InitProperties, ReadProperties and WriteProperties on the headless control: the new instance,
// the restored one, every key with its kind and defaults, the writing order, the asymmetries
// between reader and writer that the saved format keeps, the old alignment keys, and the
// failures that a read swallows and a write hands on.
#include <gtest/gtest.h>

#include <algorithm>

#include "store_fixture.h"
#include "tests/support/probe.h"

namespace TabulonLib12::testing {
namespace {

ImageElement& Tile0(Tabulon12& control) { return FindElement<ImageElement>(Tabulon12Probe::Of(control).surface, "Image1", 0); }

// ---- the new instance ----

TEST_F(StoreTest, ANewInstanceHasOneColumnOfTheNewInstanceValuesAndNoStructure) {
    auto control = NewInstance();
    EXPECT_EQ(control->Cols(), 1);
    EXPECT_EQ(control->Formato(0), "Nessuno");
    EXPECT_EQ(control->ColsWidthMemorizzata(0), 1000);
    EXPECT_EQ(S(*control).columns.TipoCampo[static_cast<size_t>(0)], 10);
    EXPECT_EQ(control->BackColorCol(0), 0xFFFFFFu);
    EXPECT_EQ(control->MinRows(), 10);
    EXPECT_EQ(control->Rows(), 0);
    EXPECT_EQ(control->ActiveCol(), 1);
    EXPECT_EQ(control->ForeColorOrd(), 0xFFu);
    EXPECT_EQ(control->BackColor2(), 0xFF8080u);
    EXPECT_EQ(control->BackColorSelected(), 0xFF8080u);
    EXPECT_EQ(control->IperTextColor(), 0xFF0000u);
    EXPECT_EQ(control->ColorGridHead(), 0xF5DDCDu);
    EXPECT_EQ(control->StileTesta(), StileTestaType::Ice);
    EXPECT_EQ(control->StileTestaOver(), StileTestaType::Sky);
    EXPECT_EQ(control->StileArrow(), ColorArrowType::Blue);
    EXPECT_EQ(control->ColonnaColore(), -1);
    EXPECT_EQ(control->BorderColor(), 0xCEAB8Eu);
    EXPECT_EQ(control->BackColorTopScheda(), 0xFFFFFFu);
    EXPECT_EQ(control->IndiceordinamentoAttivo(), -1);
    EXPECT_FALSE(control->WheelStatus());
    EXPECT_FALSE(control->ConsentiSceltaColonne());
    EXPECT_EQ(control->QueryString(), "");
    EXPECT_EQ(control->DataBaseName(), "");
    EXPECT_EQ(S(*control).structure.LarghezzaRiferimento(), 15600) << "the surface's designed width";
    EXPECT_EQ(window->ListenerCount(), 0);
    EXPECT_TRUE(changed.empty());
}

// BackColor, ForeColor, BackColorSel and ForeColorSel are not set by a new instance: its first
// save writes them as 0; ForeColorOrd's new-instance value 0xFF differs from both defaults and
// is written too.
TEST_F(StoreTest, TheFirstSaveOfANewInstanceWritesTheColoursItNeverSetAsZero) {
    auto control = NewInstance();
    MemoryPropertyBag store;
    control->WriteProperties(store);
    for (const char* key : {"BackColor", "ForeColor", "ForeColorsel", "BackColorSel"})
        EXPECT_TRUE(SameStoredValue(store.ReadProperty(key, std::string()), int32_t{0})) << key;
    EXPECT_TRUE(SameStoredValue(store.ReadProperty("ForeColorOrd", 0), int32_t{0xFF}));
    // What equals its writing default is left out.
    for (const char* key : {"Cols", "ActiveCol", "Formato0", "ColsWidth0", "TipoCampo0", "BackColorCol0", "MultiSel",
                            "BackStyle", "QueryString", "Password", "StileTestaOver", "ColonnaColore"})
        EXPECT_FALSE(store.Has(key)) << key;
    // The grid's designed font is not the form's, and Rows repeats MinRows 10 against its 29.
    EXPECT_TRUE(SameStoredValue(store.ReadProperty("Font", 0), Font{}));
    EXPECT_TRUE(SameStoredValue(store.ReadProperty("Rows", 0), int16_t{10}));
}

TEST_F(StoreTest, TheWriterKeepsItsOrderOfScalarsColumnsAndScalars) {
    auto control = NewInstance();
    control->setCols(2);
    RecordingStore store;
    control->WriteProperties(store);
    const std::vector<std::string> column0{"Intestazione0", "TestoScelta0", "ColsWidth0", "ColAlignment0",
                                           "Ordinamento0", "Formato0", "CampoQuery0", "ImmagineA0",
                                           "ImmagineB0", "ColonnaOpzionale0", "Condizione0", "OperatoreCondizionale0",
                                           "ToolTT0", "ToolTTvero0", "ToolTTfalso0", "IsIperText0",
                                           "IperTextIndex0", "ColonnaForeColor0", "ColonnaImmagine0", "KeyID0",
                                           "TipoCampo0", "BackColorCol0", "MostraBarraVert0", "MostraTotCol0"};
    std::vector<std::string> expected{"BackColor", "ForeColor", "ForeColorsel", "Font", "BackStyle", "QueryString",
                                      "DataBaseName"};
    for (const std::string& key : column0) expected.push_back(key);
    for (const std::string& key : column0) expected.push_back(key.substr(0, key.size() - 1) + "1");
    for (const char* key : {"Cols", "MinRows", "ImageLista", "BackColorSel", "BackColor2", "ForeColorOrd",
                            "BackColorSelected", "Rows", "ActiveCol", "MultiSel", "Password", "BottomHeight",
                            "BackColorSfondo", "IperTextColor", "GridColor", "VerticalGrid", "IperTextEnabled",
                            "VerticalGridColor", "ForeColorHead", "ColorGridHead", "StileTesta", "StileTestaOver",
                            "StileArrow", "BorderColor", "BackColorTopScheda", "WheelStatus",
                            "SelezioneMultiplaImmediata", "ColonnaColore", "ConsentiSceltaColonne", "FileScelta",
                            "TestoCount"})
        expected.push_back(key);
    EXPECT_EQ(store.Keys(), expected);
}

TEST_F(StoreTest, EachKeyIsWrittenWithItsKindAndItsWritingDefault) {
    auto control = NewInstance();
    RecordingStore store;
    control->WriteProperties(store);
    auto find = [&](const std::string& key) {
        auto it = std::find_if(store.writes.begin(), store.writes.end(), [&](auto& w) { return w.key == key; });
        EXPECT_NE(it, store.writes.end()) << key;
        return *it;
    };
    struct Expect {
        const char* key;
        PropertyKind value, byDefault;
    };
    for (Expect e : {Expect{"BackColor", PropertyKind::Long, PropertyKind::Long},
                     Expect{"BackStyle", PropertyKind::Integer, PropertyKind::Integer},
                     Expect{"Font", PropertyKind::Font, PropertyKind::Font},
                     Expect{"QueryString", PropertyKind::Text, PropertyKind::Text},
                     Expect{"ColsWidth0", PropertyKind::Integer, PropertyKind::Long},
                     Expect{"ColonnaOpzionale0", PropertyKind::Byte, PropertyKind::Integer},
                     Expect{"IsIperText0", PropertyKind::Byte, PropertyKind::Integer},
                     Expect{"MostraTotCol0", PropertyKind::Byte, PropertyKind::Integer},
                     Expect{"MostraBarraVert0", PropertyKind::Boolean, PropertyKind::Boolean},
                     Expect{"BackColorCol0", PropertyKind::Long, PropertyKind::Long},
                     Expect{"BottomHeight", PropertyKind::Long, PropertyKind::Integer},
                     Expect{"StileTesta", PropertyKind::Long, PropertyKind::Integer},
                     Expect{"StileTestaOver", PropertyKind::Long, PropertyKind::Integer},
                     Expect{"StileArrow", PropertyKind::Long, PropertyKind::Integer},
                     Expect{"MultiSel", PropertyKind::Boolean, PropertyKind::Boolean},
                     Expect{"ColonnaColore", PropertyKind::Integer, PropertyKind::Integer},
                     Expect{"Rows", PropertyKind::Integer, PropertyKind::Integer}}) {
        const auto w = find(e.key);
        EXPECT_EQ(KindOf(w.value), e.value) << e.key;
        EXPECT_EQ(KindOf(w.defaultValue), e.byDefault) << e.key;
    }
    EXPECT_TRUE(SameStoredValue(find("BackColor").defaultValue, int32_t{0x62E3C8}));
    EXPECT_TRUE(SameStoredValue(find("ForeColorsel").defaultValue, int32_t{0x404040}));
    EXPECT_TRUE(SameStoredValue(find("ColsWidth0").defaultValue, int32_t{1000}));
    EXPECT_TRUE(SameStoredValue(find("Rows").defaultValue, int16_t{29}));
    EXPECT_TRUE(SameStoredValue(find("BackColorSfondo").defaultValue, static_cast<int32_t>(0x8000000Fu)));
    EXPECT_TRUE(SameStoredValue(find("Font").defaultValue, host.ambientFont));
}

// ---- the restored instance ----

TEST_F(StoreTest, AnEmptyStoreGivesTheRestoredDefaults) {
    MemoryPropertyBag empty;
    auto control = Restored(empty);
    EXPECT_EQ(control->Cols(), 1);
    EXPECT_EQ(control->Rows(), 10) << "the row store sized by MinRows 10";
    EXPECT_EQ(control->ActiveCol(), 1);
    EXPECT_EQ(control->Formato(0), "Nessuno");
    EXPECT_EQ(S(*control).columns.TipoCampo[static_cast<size_t>(0)], 10);
    EXPECT_EQ(control->BackColorCol(0), 0xFFFFFFu);
    EXPECT_EQ(control->ColsWidthMemorizzata(0), 0);
    EXPECT_EQ(S(*control).BackColor, 0xFFFFFFu);
    EXPECT_EQ(control->ForeColorOrd(), 0xFF8080u);
    EXPECT_EQ(control->StileTestaOver(), StileTestaType::Sky);
    EXPECT_EQ(control->StileArrow(), ColorArrowType::Blue);
    // The second reads decide: the effective defaults are the writer's.
    EXPECT_EQ(control->BackColorSel(), 0x43BFFCu);
    EXPECT_EQ(control->GridColor(), 0xFFFFFFu);
    EXPECT_EQ(control->VerticalGridColor(), 0x808080u);
    EXPECT_EQ(control->BackColorSfondo(), 0x8000000Fu);
    EXPECT_EQ(control->GetFont(), host.ambientFont);
    EXPECT_EQ(control->ForeColor(), 0u);
    EXPECT_EQ(control->ColonnaColore(), -1);
    EXPECT_EQ(control->IndiceordinamentoAttivo(), -1);
    EXPECT_EQ(control->ParentForm(), form);
    // The structure is built, with the surface's rows, and the cells are empty.
    EXPECT_EQ(S(*control).FG1.Cols(), 1);
    EXPECT_EQ(control->MinRows(), S(*control).FG1.Rows());
    EXPECT_GT(S(*control).FG1.Rows(), 1);
    EXPECT_EQ(S(*control).FG1.TextMatrix(0, 0), "");
    EXPECT_TRUE(changed.empty()) << "no setter runs";
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(StoreTest, EveryScalarKeyReachesItsFieldOrElement) {
    MemoryPropertyBag store;
    store.Set("Cols", int16_t{3});
    store.Set("MinRows", int16_t{40});
    store.Set("BackColor", int32_t{0x010203});
    store.Set("ForeColorSel", int32_t{0x040506});
    store.Set("BackColorSel", int32_t{0x070809});
    store.Set("VerticalGrid", true);
    store.Set("VerticalGridColor", int32_t{0x0A0B0C});
    store.Set("Font", Font{"Liberation Serif", 11.5f, true, false, true});
    store.Set("QueryString", std::string("SELECT a, b, c FROM t"));
    store.Set("DataBaseName", std::string("/data/ordini.db"));
    store.Set("ImageLista", std::string("Figure"));
    store.Set("BackColor2", int32_t{0x0D0E0F});
    store.Set("IperTextColor", int32_t{0x101112});
    store.Set("BackColorSelected", int32_t{0x131415});
    store.Set("ForeColorOrd", int32_t{0x161718});
    store.Set("ColorGridHead", int32_t{0x191A1B});
    store.Set("StileTesta", int32_t{2});
    store.Set("StileTestaOver", int32_t{7});
    store.Set("StileArrow", int32_t{1});
    store.Set("ActiveCol", int16_t{2});
    store.Set("Password", std::string("pässwörd"));
    store.Set("MultiSel", true);
    store.Set("BottomHeight", int32_t{600});
    store.Set("BackColorSfondo", int32_t{0x1C1D1E});
    store.Set("GridColor", int32_t{0x1F2021});
    store.Set("ForeColorHead", int32_t{0x222324});
    store.Set("IperTextEnabled", true);
    store.Set("BorderColor", int32_t{0x252627});
    store.Set("BackColorTopScheda", int32_t{0x28292A});
    store.Set("SelezioneMultiplaImmediata", true);
    store.Set("ConsentiSceltaColonne", true);
    store.Set("ColonnaColore", int16_t{2});
    store.Set("FileScelta", std::string("/tmp/scelta.txt"));
    store.Set("TestoCount", std::string("Righe:"));
    auto control = Restored(store);
    auto& s = S(*control);
    EXPECT_EQ(control->Cols(), 3);
    EXPECT_EQ(control->Rows(), 40);
    EXPECT_EQ(s.BackColor, 0x010203u);
    EXPECT_EQ(control->ForeColorSel(), 0x040506u);
    EXPECT_EQ(control->BackColorSel(), 0x070809u);
    EXPECT_TRUE(control->VerticalGrid());
    EXPECT_EQ(control->VerticalGridColor(), 0x0A0B0Cu);
    EXPECT_EQ(control->GetFont(), (Font{"Liberation Serif", 11.5f, true, false, true}));
    EXPECT_EQ(s.QueryCaricamento, "SELECT a, b, c FROM t");
    EXPECT_EQ(control->DataBaseName(), "/data/ordini.db");
    EXPECT_EQ(control->ImageLista(), "Figure");
    EXPECT_EQ(control->BackColor2(), 0x0D0E0Fu);
    EXPECT_EQ(control->IperTextColor(), 0x101112u);
    EXPECT_EQ(control->BackColorSelected(), 0x131415u);
    EXPECT_EQ(control->ForeColorOrd(), 0x161718u);
    EXPECT_EQ(control->ColorGridHead(), 0x191A1Bu);
    EXPECT_EQ(control->StileTesta(), static_cast<StileTestaType>(2));
    EXPECT_EQ(control->StileTestaOver(), static_cast<StileTestaType>(7));
    EXPECT_EQ(control->StileArrow(), static_cast<ColorArrowType>(1));
    EXPECT_EQ(control->ActiveCol(), 2);
    EXPECT_EQ(s.Password, "pässwörd");
    EXPECT_TRUE(control->MultiSel());
    EXPECT_EQ(control->BottomHeight(), 600);
    EXPECT_EQ(control->BackColorSfondo(), 0x1C1D1Eu);
    EXPECT_EQ(control->GridColor(), 0x1F2021u);
    EXPECT_EQ(control->ForeColorHead(), 0x222324u);
    EXPECT_TRUE(control->IperTextEnabled());
    EXPECT_EQ(control->BorderColor(), 0x252627u);
    EXPECT_EQ(control->BackColorTopScheda(), 0x28292Au);
    EXPECT_TRUE(control->SelezioneMultiplaImmediata());
    EXPECT_TRUE(control->ConsentiSceltaColonne());
    EXPECT_TRUE(s.elements.ImageTools->Visible());
    EXPECT_EQ(control->ColonnaColore(), 2);
    EXPECT_EQ(control->FileScelta(), "/tmp/scelta.txt");
    EXPECT_EQ(control->TestoCount(), "Righe:");
    EXPECT_EQ(s.elements.LabelCount->Caption(), "Righe: 0");
    EXPECT_EQ(S(*control).FG1.Cols(), 3);
    EXPECT_TRUE(changed.empty());
}

TEST_F(StoreTest, EveryColumnKeyReachesItsArray) {
    MemoryPropertyBag store;
    store.Set("Cols", int16_t{2});
    store.Set("Intestazione1", std::string("Importo"));
    store.Set("TestoScelta1", std::string("Mostra l'importo"));
    store.Set("ColsWidth1", int16_t{1500});
    store.Set("ColAlignment1", int16_t{1});
    store.Set("Ordinamento1", std::string("amount"));
    store.Set("Formato1", std::string("Valuta"));
    store.Set("CampoQuery1", std::string("amount"));
    store.Set("ImmagineA1", int16_t{3});
    store.Set("ImmagineB1", int16_t{4});
    store.Set("ColonnaOpzionale1", uint8_t{1});
    store.Set("Condizione1", std::string("100"));
    store.Set("OperatoreCondizionale1", std::string(">"));
    store.Set("ToolTT1", std::string("tip"));
    store.Set("ToolTTvero1", std::string("alto"));
    store.Set("ToolTTfalso1", std::string("basso"));
    store.Set("IsIperText1", uint8_t{1});
    store.Set("IperTextIndex1", int16_t{5});
    store.Set("ColonnaForeColor1", int16_t{6});
    store.Set("ColonnaImmagine1", int16_t{7});
    store.Set("KeyID1", std::string("id"));
    store.Set("TipoCampo1", int16_t{5});
    store.Set("BackColorCol1", int32_t{0x00FFEE});
    store.Set("MostraBarraVert1", true);
    store.Set("MostraTotCol1", uint8_t{1});
    auto control = Restored(store);
    EXPECT_EQ(control->Intestazione(1), "Importo");
    EXPECT_EQ(control->TestoScelta(1), "Mostra l'importo");
    EXPECT_EQ(control->ColsWidthMemorizzata(1), 1500);
    EXPECT_EQ(control->ColAlignment(1), 1);
    EXPECT_EQ(control->Ordinamento(1), "amount");
    EXPECT_EQ(control->Formato(1), "Valuta");
    EXPECT_EQ(control->CampoQuery(1), "amount");
    EXPECT_EQ(control->ImmagineA(1), 3);
    EXPECT_EQ(control->ImmagineB(1), 4);
    EXPECT_EQ(control->ColonnaOpzionale(1), 1);
    EXPECT_EQ(control->Condizione(1), "100");
    EXPECT_EQ(control->OperatoreCondizionale(1), ">");
    EXPECT_EQ(control->ToolTT(1), "tip");
    EXPECT_EQ(control->ToolTTvero(1), "alto");
    EXPECT_EQ(control->ToolTTfalso(1), "basso");
    EXPECT_EQ(control->IsIperText(1), 1);
    EXPECT_EQ(control->IperTextIndex(1), 5);
    EXPECT_EQ(control->ColonnaForeColor(1), 6);
    EXPECT_EQ(control->ColonnaImmagine(1), 7);
    EXPECT_EQ(control->KeyID(1), "id");
    EXPECT_EQ(S(*control).columns.TipoCampo[static_cast<size_t>(1)], 5);
    EXPECT_EQ(control->BackColorCol(1), 0x00FFEEu);
    EXPECT_TRUE(control->MostraBarraVert(1));
    EXPECT_EQ(control->MostraTotCol(1), 1);
    // Column 0 took every default.
    EXPECT_EQ(control->Formato(0), "Nessuno");
    EXPECT_EQ(control->ColsWidthMemorizzata(0), 0);
}

TEST_F(StoreTest, ColsAboveTheSavedColumnsGivesTheNewColumnsEveryDefault) {
    auto saved = NewInstance();
    saved->setCols(2);
    saved->setFormato(1, "Data");
    saved->setColsWidth(0, 1200);
    saved->setColsWidth(1, 1300);
    MemoryPropertyBag store;
    saved->WriteProperties(store);
    store.Set("Cols", int16_t{5});
    auto control = Restored(store);
    ASSERT_EQ(control->Cols(), 5);
    EXPECT_EQ(control->Formato(1), "Data");
    EXPECT_EQ(control->ColsWidthMemorizzata(1), 1300);
    for (int16_t i = 2; i < 5; ++i) {
        EXPECT_EQ(control->Formato(i), "Nessuno") << i;
        EXPECT_EQ(S(*control).columns.TipoCampo[static_cast<size_t>(i)], 10) << i;
        EXPECT_EQ(control->BackColorCol(i), 0xFFFFFFu) << i;
        EXPECT_EQ(control->ColsWidthMemorizzata(i), 0) << i;
        EXPECT_EQ(control->Intestazione(i), "") << i;
    }
    EXPECT_EQ(S(*control).FG1.Cols(), 5);
}

// ---- the old alignment keys ----

TEST_F(StoreTest, OldAlignmentKeysAboveTwoAreConvertedAndTheNextSaveIsNewStyle) {
    MemoryPropertyBag store;
    store.Set("Cols", int16_t{3});
    store.Set("Allineamento0", int16_t{7});
    store.Set("Allineamento1", int16_t{1});
    store.Set("Allineamento2", int16_t{4});
    store.Set("ColAlignment0", int16_t{2});  // ignored: the store is old
    auto control = Restored(store);
    EXPECT_EQ(control->ColAlignment(0), 1);
    EXPECT_EQ(control->ColAlignment(1), 0);
    EXPECT_EQ(control->ColAlignment(2), 2);
    MemoryPropertyBag saved;
    control->WriteProperties(saved);
    EXPECT_TRUE(SameStoredValue(saved.ReadProperty("ColAlignment0", 0), int16_t{1}));
    EXPECT_FALSE(saved.Has("ColAlignment1"));
    EXPECT_TRUE(SameStoredValue(saved.ReadProperty("ColAlignment2", 0), int16_t{2}));
    for (const auto& entry : saved.Values()) EXPECT_EQ(entry.key.rfind("Allineamento", 0), std::string::npos) << entry.key;
}

TEST_F(StoreTest, AnOldNumberThatIsNoneOfTheThreeStaysAsRead) {
    MemoryPropertyBag store;
    store.Set("Cols", int16_t{2});
    store.Set("Allineamento0", int16_t{9});
    store.Set("Allineamento1", int16_t{2});
    auto control = Restored(store);
    EXPECT_EQ(S(*control).columns.ColAlignment[0], 9);
    EXPECT_EQ(S(*control).columns.ColAlignment[1], 2);
}

TEST_F(StoreTest, OldKeysOfOneAndTwoOnlyCountAsNewAndAreIgnored) {
    MemoryPropertyBag store;
    store.Set("Cols", int16_t{3});
    store.Set("Allineamento0", int16_t{2});
    store.Set("Allineamento1", int16_t{1});
    store.Set("ColAlignment2", int16_t{1});
    auto control = Restored(store);
    EXPECT_EQ(control->ColAlignment(0), 0);
    EXPECT_EQ(control->ColAlignment(1), 0);
    EXPECT_EQ(control->ColAlignment(2), 1);
}

TEST_F(StoreTest, AnOldKeyBeyondColsIsNotConsulted) {
    MemoryPropertyBag store;
    store.Set("Cols", int16_t{1});
    store.Set("Allineamento1", int16_t{7});
    store.Set("ColAlignment0", int16_t{2});
    auto control = Restored(store);
    EXPECT_EQ(control->ColAlignment(0), 2);
}

// ---- the styles ----

TEST_F(StoreTest, TheStylesGiveTheFirstTileAndTheHoverTileTheirTextures) {
    MemoryPropertyBag store;
    store.Set("StileTesta", int32_t{99});
    store.Set("StileTestaOver", int32_t{99});
    auto control = Restored(store);
    EXPECT_EQ(Tile0(*control).GetPicture(), S(*control).pictures.Style(99));
    EXPECT_EQ(S(*control).elements.ImageZ->GetPicture(), S(*control).pictures.Style(0)) << "Scheda hovers with texture 0";
    store.Set("StileTesta", int32_t{3});
    store.Set("StileTestaOver", int32_t{6});
    auto other = Restored(store);
    EXPECT_EQ(Tile0(*other).GetPicture(), S(*other).pictures.Style(3));
    EXPECT_EQ(S(*other).elements.ImageZ->GetPicture(), S(*other).pictures.Style(6));
}

TEST_F(StoreTest, AStyleWithoutATextureIsKeptAndTheTileKeepsItsPicture) {
    MemoryPropertyBag store;
    store.Set("StileTesta", int32_t{50});
    auto control = Restored(store);
    EXPECT_EQ(control->StileTesta(), static_cast<StileTestaType>(50));
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(control->Cols(), 1) << "the steps after it ran";
}

// ---- the wheel ----

TEST_F(StoreTest, WheelStatusTrueHooksTheWindowOfTheFormTheControlIsPlacedOn) {
    MemoryPropertyBag store;
    store.Set("WheelStatus", true);
    auto control = Restored(store);
    EXPECT_TRUE(control->WheelStatus());
    EXPECT_EQ(window->ListenerCount(), 1);
    control.reset();  // the end of the instance takes the hook away
    EXPECT_EQ(window->ListenerCount(), 0);
}

TEST_F(StoreTest, WheelStatusTrueOnAFormWithoutAWindowSkipsTheHookAndTheRestStands) {
    form->setWindow(nullptr);
    MemoryPropertyBag store;
    store.Set("WheelStatus", true);
    store.Set("Cols", int16_t{2});
    auto control = Restored(store);
    EXPECT_TRUE(control->WheelStatus());
    EXPECT_EQ(S(*control).FG1.Cols(), 2);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(StoreTest, WheelStatusTrueWithNoFormAtAllIsSkippedSilently) {
    host.parentForm = nullptr;
    MemoryPropertyBag store;
    store.Set("WheelStatus", true);
    auto control = Restored(store);
    EXPECT_TRUE(control->WheelStatus());
    EXPECT_EQ(control->ParentForm(), nullptr);
    EXPECT_EQ(window->ListenerCount(), 0);
}

// ---- the asymmetries of the format ----

TEST_F(StoreTest, ForeColorBackStyleAndRowsAreWrittenAndNeverRead) {
    auto saved = NewInstance();
    saved->setForeColor(0x336699);
    MemoryPropertyBag store;
    saved->WriteProperties(store);
    EXPECT_TRUE(SameStoredValue(store.ReadProperty("ForeColor", 0), int32_t{0x336699}));
    EXPECT_TRUE(SameStoredValue(store.ReadProperty("Rows", 0), int16_t{10}));
    store.Set("BackStyle", int16_t{1});
    auto control = Restored(store);
    EXPECT_EQ(control->ForeColor(), 0u);
    EXPECT_EQ(S(*control).BackStyle, 0);
}

TEST_F(StoreTest, TheSelectionForegroundIsWrittenAsForeColorselAndReadAsForeColorSel) {
    auto saved = NewInstance();
    saved->setForeColorSel(0x112233);
    MemoryPropertyBag store;
    saved->WriteProperties(store);
    EXPECT_EQ(std::find_if(store.Values().begin(), store.Values().end(),
                           [](auto& e) { return e.key == "ForeColorsel"; }) != store.Values().end(),
              true);
    EXPECT_EQ(Restored(store)->ForeColorSel(), 0x112233u) << "the store compares keys without regard to case";
    saved->setForeColorSel(0x404040);  // the writing default: left out, back as 0
    MemoryPropertyBag second;
    saved->WriteProperties(second);
    EXPECT_FALSE(second.Has("ForeColorSel"));
    EXPECT_EQ(Restored(second)->ForeColorSel(), 0u);
}

TEST_F(StoreTest, TheBackColorOfTheWritingDefaultComesBackWhite) {
    auto saved = NewInstance();
    saved->setBackColor(0x62E3C8);
    MemoryPropertyBag store;
    saved->WriteProperties(store);
    EXPECT_FALSE(store.Has("BackColor"));
    EXPECT_EQ(S(*Restored(store)).BackColor, 0xFFFFFFu);
}

TEST_F(StoreTest, RowsRepeatsMinRowsUnderItsOwnDefault) {
    auto saved = NewInstance();
    S(*saved).structure.setMinRows(29);
    MemoryPropertyBag store;
    saved->WriteProperties(store);
    EXPECT_FALSE(store.Has("Rows"));
    EXPECT_TRUE(SameStoredValue(store.ReadProperty("MinRows", 0), int16_t{29}));
}

TEST_F(StoreTest, AColumnOfWidth1000FromANewInstanceHasNoKeyAndComesBackAsZero) {
    auto saved = NewInstance();
    saved->setCols(2);
    saved->setColsWidth(1, 1000);
    MemoryPropertyBag store;
    saved->WriteProperties(store);
    EXPECT_FALSE(store.Has("ColsWidth0"));
    EXPECT_FALSE(store.Has("ColsWidth1"));
    auto restored = Restored(store);
    EXPECT_EQ(restored->ColsWidthMemorizzata(0), 0);
    EXPECT_EQ(restored->ColsWidthMemorizzata(1), 0);
    // A restored instance writes every width but 0, its default being 0.
    restored->setColsWidth(1, 1000);
    MemoryPropertyBag again;
    restored->WriteProperties(again);
    EXPECT_FALSE(again.Has("ColsWidth0"));
    EXPECT_TRUE(SameStoredValue(again.ReadProperty("ColsWidth1", 0), int16_t{1000}));
}

TEST_F(StoreTest, ReadingIntoANewInstanceEndsAsARestoredOne) {
    MemoryPropertyBag store;
    store.Set("Cols", int16_t{2});
    auto control = NewInstance();
    control->ReadProperties(store);
    EXPECT_EQ(control->ColsWidthMemorizzata(0), 0);
    EXPECT_EQ(control->ColsWidthMemorizzata(1), 0);
    EXPECT_EQ(S(*control).LarghezzaColonnaDefault, 0);
    EXPECT_EQ(control->ForeColorOrd(), 0xFF8080u);
}

TEST_F(StoreTest, ForeColorOrdOfANewInstanceIsAlwaysWrittenAndAMissingKeyMeans0xFF8080) {
    auto saved = NewInstance();
    MemoryPropertyBag store;
    saved->WriteProperties(store);
    EXPECT_TRUE(store.Has("ForeColorOrd"));
    store.Remove("ForeColorOrd");
    EXPECT_EQ(Restored(store)->ForeColorOrd(), 0xFF8080u);
}

TEST_F(StoreTest, QueryStringSavesTheTextTheLoadUsesNotTheGetters) {
    auto saved = NewInstance();
    saved->setQueryString("SELECT 1");
    S(*saved).QueryString.clear();  // as a load leaves the getter
    MemoryPropertyBag store;
    saved->WriteProperties(store);
    EXPECT_TRUE(SameStoredValue(store.ReadProperty("QueryString", std::string()), std::string("SELECT 1")));
    auto restored = Restored(store);
    EXPECT_EQ(S(*restored).QueryCaricamento, "SELECT 1");
}

TEST_F(StoreTest, ThePasswordComesBackByteForByteAndStandsReadableInTheStore) {
    const std::string password("s3gr3t\xC3\xA9 \"'\\\t\x01", 13);
    MemoryPropertyBag store;
    store.Set("Password", password);
    auto control = Restored(store);
    MemoryPropertyBag saved;
    control->WriteProperties(saved);
    EXPECT_TRUE(SameStoredValue(saved.ReadProperty("Password", std::string()), password));
}

// ---- failures ----

TEST_F(StoreTest, ValuesThatDoNotFitTheirFieldsAreSkippedAndTheRestIsRead) {
    MemoryPropertyBag store;
    store.Set("Cols", int32_t{70000});
    store.Set("MinRows", std::string("molte"));
    store.Set("ActiveCol", int16_t{3});
    store.Set("ColonnaOpzionale0", int16_t{300});
    store.Set("Intestazione0", int32_t{42});
    store.Set("VerticalGrid", std::string("forse"));
    store.Set("Font", int16_t{8});
    store.Set("TestoCount", std::string("N:"));
    auto control = Restored(store);
    EXPECT_EQ(control->Cols(), 1);
    EXPECT_EQ(control->Rows(), 10) << "the second read of MinRows fails alike: the field keeps its value";
    EXPECT_EQ(control->ActiveCol(), 3);
    EXPECT_EQ(control->ColonnaOpzionale(0), 0);
    EXPECT_EQ(control->Intestazione(0), "42") << "a number reads as its text";
    EXPECT_FALSE(control->VerticalGrid());
    EXPECT_EQ(control->GetFont(), Font{}) << "the surface's own font stays";
    EXPECT_EQ(control->TestoCount(), "N:");
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(StoreTest, AStoreWithNoColumnsKeepsTheArraysAndBuildsNothing) {
    MemoryPropertyBag store;
    store.Set("Cols", int16_t{0});
    auto control = Restored(store);
    EXPECT_EQ(control->Cols(), 0);
    EXPECT_TRUE(messages.shown.empty());
    MemoryPropertyBag saved;
    control->WriteProperties(saved);
    EXPECT_TRUE(SameStoredValue(saved.ReadProperty("Cols", 1), int16_t{0}));
    EXPECT_FALSE(saved.Has("Intestazione0"));
}

TEST_F(StoreTest, AFailingWriteStopsTheSaveAndReachesTheHostWithTheKeysWrittenSoFar) {
    auto control = NewInstance();
    RecordingStore store;
    store.failAt = 4;
    try {
        control->WriteProperties(store);
        FAIL() << "the store's failure did not reach the caller";
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), 61);
    }
    EXPECT_EQ(store.Keys(), (std::vector<std::string>{"BackColor", "ForeColor", "ForeColorsel"}));
}

}  // namespace
}  // namespace TabulonLib12::testing
