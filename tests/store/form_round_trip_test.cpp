// The control's design through a form file: a control of thirty columns with every property
// away from its default saved, restored into a new control and saved again gives the same store
// and the same bytes; the same design saves the same bytes in every locale; old and odd files
// load as the format says or are refused with a clear error.
#include <gtest/gtest.h>

#include <clocale>

#include "persistence/form_file.h"
#include "store_fixture.h"

namespace TabulonLib12::testing {
namespace {

constexpr const char* kControl = "Tabulon121";

// Every property of the design away from its default (ForeColor 0 is away from the writer's
// 0x404040, and is what a restored instance keeps; no width is 0 or 1000, the two defaults of
// ColsWidth).
void DesignEverything(Tabulon12& c) {
    c.setCols(30);
    for (int16_t i = 0; i < 30; ++i) {
        const std::string n = std::to_string(i);
        c.setIntestazione(i, "Colonna " + n + " – «città»");
        c.setTestoScelta(i, "Mostra " + n);
        c.setColsWidth(i, static_cast<int16_t>(300 + 7 * i));
        c.setColAlignment(i, static_cast<int16_t>(1 + i % 2));
        c.setOrdinamento(i, "campo" + n + " DESC");
        c.setFormato(i, i % 2 ? "Valuta" : "Data");
        c.setCampoQuery(i, "campo" + n);
        c.setImmagineA(i, static_cast<int16_t>(i + 1));
        c.setImmagineB(i, static_cast<int16_t>(i + 2));
        c.setColonnaOpzionale(i, 1);
        c.setCondizione(i, n);
        c.setOperatoreCondizionale(i, ">=");
        c.setToolTT(i, "tip " + n);
        c.setToolTTvero(i, "sì " + n);
        c.setToolTTfalso(i, "no " + n);
        c.setIsIperText(i, 1);
        c.setIperTextIndex(i, static_cast<int16_t>(29 - i));
        c.setColonnaForeColor(i, static_cast<int16_t>(i % 7 + 1));
        c.setColonnaImmagine(i, static_cast<int16_t>(i % 5 + 1));
        c.setKeyID(i, "id" + n);
        Tabulon12Probe::Of(c).columns.TipoCampo[static_cast<size_t>(i)] = static_cast<int16_t>(i % 12);
        c.setBackColorCol(i, 0x010101u * static_cast<Colour>(i + 1));
        c.setMostraBarraVert(i, true);
        c.setMostraTotCol(i, 1);
    }
    c.setBackColor(0x00A0B0);
    c.setForeColor(0);
    c.setForeColorSel(0x102030);
    c.setFont(Font{"Liberation Sans", 10.5f, true, true, false});
    c.setQueryString("SELECT * FROM ordini WHERE città = 'Forlì'");
    c.setDataBaseName("postgresql://tabulon@localhost/ordini");
    c.setImageLista("ImmaginiStato");
    c.setBackColorSel(0x405060);
    c.setBackColor2(0x708090);
    c.setForeColorOrd(0x00FF00);
    c.setBackColorSelected(0x90A0B0);
    c.setActiveCol(5);
    c.setMultiSel(true);
    Tabulon12Probe::Of(c).Password = "pw «segreta»";
    c.setBottomHeight(480);
    c.setBackColorSfondo(0xFAFAFA);
    c.setIperTextColor(0x0000AA);
    c.setGridColor(0xC0C0C0);
    c.setVerticalGrid(true);
    c.setIperTextEnabled(true);
    c.setVerticalGridColor(0x333333);
    c.setForeColorHead(0x202020);
    c.setColorGridHead(0xEEDDCC);
    c.setStileTesta(StileTestaType::Sea);
    c.setStileTestaOver(StileTestaType::Scheda);
    c.setStileArrow(ColorArrowType::Green);
    c.setBorderColor(0x123456);
    c.setBackColorTopScheda(0xABCDEF);
    c.setWheelStatus(true);
    c.setSelezioneMultiplaImmediata(true);
    c.setColonnaColore(3);
    c.setConsentiSceltaColonne(true);
    c.setFileScelta("/home/utente/.config/colonne ordini.txt");
    c.setTestoCount("Righe visualizzate:");
}

class FormRoundTripTest : public StoreTest {
protected:
    FormFile Saved(const Tabulon12& control) {
        FormFile file("Ordini");
        FormControl& entry = file.AddOrReplace(FormControl(kControl, "Tabulon12"));
        control.WriteProperties(entry.Properties());
        return file;
    }
    std::unique_ptr<Tabulon12> Designed() {
        auto control = NewInstance();
        control->setFormContenitore(form);
        DesignEverything(*control);
        return control;
    }
};

TEST_F(FormRoundTripTest, ThirtyColumnsWithEveryPropertySetComeBackAsTheyWereSaved) {
    auto first = Designed();
    const FormFile firstFile = Saved(*first);
    const std::string firstText = firstFile.ToText();
    ASSERT_GT(firstFile.Properties(kControl).Values().size(), 30u * 24u);

    const FormFile loaded = FormFile::FromText(firstText, "ordini.json");
    auto second = Restored(loaded.Properties(kControl));
    const FormFile secondFile = Saved(*second);
    EXPECT_TRUE(secondFile.Properties(kControl) == firstFile.Properties(kControl));
    EXPECT_EQ(secondFile.ToText(), firstText);

    // And what the restored control holds is what was designed.
    EXPECT_EQ(second->Cols(), 30);
    EXPECT_EQ(second->Intestazione(29), "Colonna 29 – «città»");
    EXPECT_EQ(second->ColsWidthMemorizzata(29), 300 + 7 * 29);
    EXPECT_EQ(second->GetFont(), (Font{"Liberation Sans", 10.5f, true, true, false}));
    EXPECT_EQ(second->StileTestaOver(), StileTestaType::Scheda);
    EXPECT_TRUE(second->WheelStatus());
    EXPECT_EQ(window->ListenerCount(), 1);
}

TEST_F(FormRoundTripTest, TheSameDesignSavesTheSameBytesInEveryLocale) {
    std::string expected;
    for (const char* name : {"C", "it_IT.UTF-8", "en_US.UTF-8", "de_DE.UTF-8"}) {
        SCOPED_TRACE(name);
        ASSERT_NE(std::setlocale(LC_ALL, name), nullptr) << "the locale is missing: scripts/setup.sh generates it";
        const std::string text = Saved(*Designed()).ToText();
        std::setlocale(LC_ALL, "C");
        if (expected.empty()) expected = text;
        EXPECT_EQ(text, expected);
    }
    EXPECT_NE(expected.find("\"size\": 10.5"), std::string::npos);
}

TEST_F(FormRoundTripTest, AHandWrittenFileInTheOldAlignmentFormLoads) {
    const FormFile file = FormFile::FromText(R"({
  "format": "tabulon12-form",
  "version": 1,
  "form": "Vecchio",
  "controls": [
    {"name": "Lista", "type": "Tabulon12", "properties": {
      "Cols": {"kind": "Integer", "value": 3},
      "Intestazione0": {"kind": "Text", "value": "Codice"},
      "Allineamento0": {"kind": "Integer", "value": 7},
      "Allineamento1": {"kind": "Integer", "value": 1},
      "Allineamento2": {"kind": "Integer", "value": 4},
      "ColsWidth1": {"kind": "Integer", "value": 2500}
    }}
  ]
})",
                                             "vecchio.json");
    auto control = Restored(file.Properties("lista"));
    EXPECT_EQ(control->ColAlignment(0), 1);
    EXPECT_EQ(control->ColAlignment(1), 0);
    EXPECT_EQ(control->ColAlignment(2), 2);
    EXPECT_EQ(control->Intestazione(0), "Codice");
    EXPECT_EQ(control->ColsWidthMemorizzata(1), 2500);
    EXPECT_EQ(control->ColsWidthMemorizzata(2), 0);
}

TEST_F(FormRoundTripTest, ValuesOfTheWrongKindInAFileAreSkippedOneByOne) {
    const FormFile file = FormFile::FromText(R"({"format": "tabulon12-form", "version": 1, "form": "F", "controls": [
      {"name": "L", "type": "Tabulon12", "properties": {
        "Cols": {"kind": "Text", "value": "due"},
        "ActiveCol": {"kind": "Double", "value": 2.0},
        "MultiSel": {"kind": "Text", "value": "True"},
        "BackColor2": {"kind": "Double", "value": 1e12},
        "StileArrow": {"kind": "Boolean", "value": true}}}]})",
                                             "wrong.json");
    auto control = Restored(file.Properties("L"));
    EXPECT_EQ(control->Cols(), 1);
    EXPECT_EQ(control->ActiveCol(), 2);
    EXPECT_TRUE(control->MultiSel());
    EXPECT_EQ(control->BackColor2(), 0xFF8080u) << "too large for a colour: the default stays";
    EXPECT_EQ(control->StileArrow(), static_cast<ColorArrowType>(-1)) << "True reads as -1";
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(FormRoundTripTest, AFileOfALaterVersionIsRefusedWithAClearError) {
    try {
        FormFile::FromText(R"({"format": "tabulon12-form", "version": 2, "form": "F", "controls": []})", "nuovo.json");
        FAIL() << "a later version was read";
    } catch (const Error& e) {
        EXPECT_NE(e.description().find("nuovo.json"), std::string::npos) << e.description();
        EXPECT_NE(e.description().find("2"), std::string::npos) << e.description();
    }
}

TEST_F(FormRoundTripTest, ThePasswordIsNeverInTheTextOfAFailure) {
    // A form whose control holds a password and a value JSON cannot carry: the save is refused,
    // and its message names the key, never the password.
    auto control = Designed();
    FormFile file = Saved(*control);
    file.Properties(kControl).Set("Rotto", std::string("\xFF\xFE"));
    try {
        file.ToText();
        FAIL() << "a text that is not UTF-8 was written";
    } catch (const Error& e) {
        EXPECT_EQ(std::string(e.what()).find("segreta"), std::string::npos) << e.what();
        EXPECT_EQ(e.description().find("segreta"), std::string::npos) << e.description();
    }
}

}  // namespace
}  // namespace TabulonLib12::testing
