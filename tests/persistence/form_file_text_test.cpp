// The form file's text: the one layout it is written in, every kind through a save and a load,
// the store's rules (defaults left out, order of first writes, keys without regard to case)
// kept across the file, and the same bytes whatever the process locale.
#include <clocale>
#include <cmath>
#include <limits>

#include "form_file_support.h"

namespace TabulonLib12::testing {
namespace {

constexpr int32_t kSystemWindowColour = static_cast<int32_t>(0x80000005u);

// The form of docs/form-file.md.
FormFile DocumentedForm() {
    FormFile form("Clienti");
    MemoryPropertyBag grid;
    grid.WriteProperty("Cols", int16_t{4}, int16_t{2});
    grid.WriteProperty("BackColor", kSystemWindowColour, int32_t{0x00FFFFFF});
    grid.WriteProperty("MultiSel", true, false);
    grid.WriteProperty("Caption", std::string("Clienti attivi — città"), std::string(""));
    grid.WriteProperty("RowHeightMin", float{0.1f}, float{0});
    grid.WriteProperty("Font", Font{"Liberation Sans", 9.75f, true, false, false}, Font{});
    form.AddOrReplace(FormControl("Tabulon121", "Tabulon12", std::move(grid)));
    MemoryPropertyBag bar;
    bar.WriteProperty("Max", int32_t{250}, int32_t{100});
    form.AddOrReplace(FormControl("VS1", "Scorrix", std::move(bar)));
    form.AddOrReplace(FormControl("Vuoto", "Scorrix"));
    return form;
}

const char* const kDocumentedText = R"({
  "format": "tabulon12-form",
  "version": 1,
  "form": "Clienti",
  "controls": [
    {
      "name": "Tabulon121",
      "type": "Tabulon12",
      "properties": {
        "Cols": {"kind": "Integer", "value": 4},
        "BackColor": {"kind": "Long", "value": -2147483643},
        "MultiSel": {"kind": "Boolean", "value": true},
        "Caption": {"kind": "Text", "value": "Clienti attivi — città"},
        "RowHeightMin": {"kind": "Single", "value": 0.1},
        "Font": {"kind": "Font", "value": {"name": "Liberation Sans", "size": 9.75, "bold": true, "italic": false, "underline": false}}
      }
    },
    {
      "name": "VS1",
      "type": "Scorrix",
      "properties": {
        "Max": {"kind": "Long", "value": 250}
      }
    },
    {
      "name": "Vuoto",
      "type": "Scorrix",
      "properties": {}
    }
  ]
}
)";

// A control that holds every kind, with the ends of their ranges and texts that JSON escapes.
FormFile EveryKindForm() {
    MemoryPropertyBag bag;
    bag.Set("ByteLow", uint8_t{0});
    bag.Set("ByteHigh", uint8_t{255});
    bag.Set("IntegerLow", int16_t{-32768});
    bag.Set("IntegerHigh", int16_t{32767});
    bag.Set("LongLow", std::numeric_limits<int32_t>::min());
    bag.Set("LongHigh", std::numeric_limits<int32_t>::max());
    bag.Set("SystemColour", kSystemWindowColour);
    bag.Set("Yes", true);
    bag.Set("No", false);
    bag.Set("SingleTenth", float{0.1f});
    bag.Set("SingleWhole", float{-8.0f});
    bag.Set("SingleLargest", std::numeric_limits<float>::max());
    bag.Set("SingleSmallest", std::numeric_limits<float>::denorm_min());
    bag.Set("SingleNegativeZero", float{-0.0f});
    bag.Set("SingleBig", float{1e10f});
    bag.Set("DoubleThird", double{1.0 / 3.0});
    bag.Set("DoubleLargest", std::numeric_limits<double>::max());
    bag.Set("DoubleSmallest", std::numeric_limits<double>::denorm_min());
    bag.Set("DoubleTiny", double{-2.5e-300});
    bag.Set("DoubleWhole", double{1234567.0});
    bag.Set("TextEmpty", std::string());
    bag.Set("TextAccents", std::string("città € \xF0\x9F\x98\x80"));
    bag.Set("TextEscapes", std::string("quote \" backslash \\ tab\t line\r\n nul") + '\0' + "\x01\x7F");
    bag.Set("FontPlain", Font{});
    bag.Set("FontAll", Font{"DejaVu Serif Condensed", 13.5f, true, true, true});
    bag.Set("", std::string("an empty key is a key too"));
    FormFile form("Tutti i tipi");
    form.AddOrReplace(FormControl("Ogni tipo", "Tabulon12", std::move(bag)));
    return form;
}

// The locale of the process for one scope, back to "C" at its end.
class ScopedLocale {
public:
    explicit ScopedLocale(const char* name) { ok_ = std::setlocale(LC_ALL, name) != nullptr; }
    ~ScopedLocale() { std::setlocale(LC_ALL, "C"); }
    bool ok() const { return ok_; }

private:
    bool ok_;
};

TEST(FormFileText, TheDocumentedFormIsWrittenInTheOneLayout) {
    EXPECT_EQ(DocumentedForm().ToText(), kDocumentedText);
}

TEST(FormFileText, TheDocumentedTextReadsAsTheDocumentedForm) {
    const FormFile form = FormFile::FromText(kDocumentedText, "example");
    EXPECT_TRUE(form == DocumentedForm());
    EXPECT_EQ(form.FormName(), "Clienti");
    EXPECT_EQ(form.ControlNames(), (std::vector<std::string>{"Tabulon121", "VS1", "Vuoto"}));
    EXPECT_EQ(form.Find("Tabulon121")->Type(), "Tabulon12");
    EXPECT_EQ(form.Properties("Tabulon121").ReadProperty("BackColor", 0), PropertyValue(kSystemWindowColour));
}

TEST(FormFileText, EveryKindComesBackWithItsKindAndValue) {
    TemporaryFolder folder;
    const FormFile written = EveryKindForm();
    written.Save(folder / "every.json");
    const FormFile read = FormFile::Load(folder / "every.json");
    ASSERT_TRUE(read == written);
    const auto& before = written.Controls()[0].Properties().Values();
    const auto& after = read.Controls()[0].Properties().Values();
    ASSERT_EQ(after.size(), before.size());
    for (size_t i = 0; i < before.size(); ++i) {
        EXPECT_EQ(after[i].key, before[i].key);
        EXPECT_EQ(KindOf(after[i].value), KindOf(before[i].value)) << before[i].key;
        EXPECT_TRUE(SameStoredValue(after[i].value, before[i].value)) << before[i].key;
    }
    EXPECT_TRUE(std::signbit(std::get<float>(read.Properties("Ogni tipo").ReadProperty("SingleNegativeZero", 0))));
    EXPECT_EQ(ReadBytes(folder / "every.json"), written.ToText());
    EXPECT_EQ(read.ToText(), written.ToText());
}

TEST(FormFileText, ASingleIsWrittenWithItsShortestDigits) {
    const std::string text = EveryKindForm().ToText();
    EXPECT_NE(text.find(R"("SingleTenth": {"kind": "Single", "value": 0.1})"), std::string::npos) << text;
    EXPECT_NE(text.find(R"("SingleLargest": {"kind": "Single", "value": 3.4028235e+38})"), std::string::npos) << text;
    EXPECT_NE(text.find(R"("SingleWhole": {"kind": "Single", "value": -8.0})"), std::string::npos) << text;
    EXPECT_NE(text.find(R"("FontAll": {"kind": "Font", "value": {"name": "DejaVu Serif Condensed", "size": 13.5, "bold": true, "italic": true, "underline": true}})"),
              std::string::npos)
        << text;
}

TEST(FormFileText, TextsAreWrittenAsUtf8WithOnlyTheEscapesJsonNeeds) {
    const std::string text = EveryKindForm().ToText();
    EXPECT_NE(text.find("\"città € \xF0\x9F\x98\x80\""), std::string::npos) << text;
    EXPECT_NE(text.find(R"("quote \" backslash \\ tab\t line\r\n nul\u0000\u0001)" "\x7F\""), std::string::npos)
        << text;
}

TEST(FormFileText, AValueEqualToTheWriteDefaultIsNotInTheFile) {
    FormFile form("F");
    MemoryPropertyBag bag;
    bag.WriteProperty("Cols", int16_t{2}, int16_t{2});
    bag.WriteProperty("Rows", int16_t{7}, int16_t{2});
    form.AddOrReplace(FormControl("G", "Tabulon12", std::move(bag)));
    const std::string text = form.ToText();
    EXPECT_EQ(text.find("\"Cols\""), std::string::npos) << text;
    EXPECT_NE(text.find("\"Rows\""), std::string::npos) << text;
    // Read back with another default, the left-out key answers the reader's default.
    const FormFile read = FormFile::FromText(text, "F");
    EXPECT_EQ(read.Properties("G").ReadInt16("Cols", 5), 5);
    EXPECT_EQ(read.Properties("G").ReadInt16("Rows", 5), 7);
}

TEST(FormFileText, KeysKeepTheOrderOfTheirFirstWriteAndTheirSpelling) {
    FormFile form("F");
    MemoryPropertyBag bag;
    for (const char* key : {"Zeta", "alpha", "MID"}) bag.WriteProperty(key, int16_t{1}, int16_t{0});
    bag.WriteProperty("ALPHA", int16_t{2}, int16_t{0});
    form.AddOrReplace(FormControl("G", "Tabulon12", std::move(bag)));
    const std::string text = form.ToText();
    const size_t zeta = text.find("\"Zeta\"");
    const size_t alpha = text.find("\"alpha\"");
    const size_t mid = text.find("\"MID\"");
    ASSERT_NE(zeta, std::string::npos);
    EXPECT_LT(zeta, alpha);
    EXPECT_LT(alpha, mid);
    EXPECT_EQ(text.find("ALPHA"), std::string::npos);

    const FormFile read = FormFile::FromText(text, "F");
    std::vector<std::string> keys;
    for (const auto& entry : read.Properties("g").Values()) keys.push_back(entry.key);
    EXPECT_EQ(keys, (std::vector<std::string>{"Zeta", "alpha", "MID"}));
    EXPECT_EQ(read.Properties("G").ReadInt16("Alpha", 0), 2);
    EXPECT_EQ(read.Properties("G").ReadInt16("zeta", 0), 1);
}

TEST(FormFileText, AnyLayoutIsReadAndWrittenBackInTheOneLayout) {
    const std::string compact =
        "\xEF\xBB\xBF"  // a byte order mark is taken
        R"({"controls":[{"properties":{"Max":{"value":250,"kind":"Long"}},"type":"Scorrix","name":"VS1"},)"
        R"({"name":"Vuoto","type":"Scorrix","properties":{}}],"form":"Clienti","version":1,"format":"tabulon12-form"})";
    const FormFile form = FormFile::FromText(compact, "compact");
    FormFile expected = DocumentedForm();
    expected.Remove("Tabulon121");
    EXPECT_TRUE(form == expected);
    EXPECT_EQ(form.ToText(), expected.ToText());
}

TEST(FormFileText, AWholeNumberWrittenWithAFractionOrAnExponentCounts) {
    const FormFile form = FormFile::FromText(
        R"({"format": "tabulon12-form", "version": 1, "form": "F", "controls": [{"name": "G", "type": "T",
            "properties": {"a": {"kind": "Integer", "value": 4.0}, "b": {"kind": "Long", "value": -1e3},
                           "c": {"kind": "Single", "value": 2}, "d": {"kind": "Double", "value": 18446744073709551615}}}]})",
        "whole");
    const MemoryPropertyBag& bag = form.Properties("G");
    EXPECT_EQ(bag.ReadProperty("a", 0), PropertyValue(int16_t{4}));
    EXPECT_EQ(bag.ReadProperty("b", 0), PropertyValue(int32_t{-1000}));
    EXPECT_EQ(bag.ReadProperty("c", 0), PropertyValue(float{2.0f}));
    EXPECT_EQ(bag.ReadProperty("d", 0), PropertyValue(double{18446744073709551615.0}));
}

// 30 columns of 24 keys each, of every kind, as a grid of many columns saves them.
FormFile LargeForm() {
    FormFile form("Grande");
    MemoryPropertyBag bag;
    bag.Set("Cols", int16_t{30});
    for (int c = 1; c <= 30; ++c) {
        const std::string n = std::to_string(c);
        bag.Set("Caption" + n, std::string("Colonna n° ") + n);
        bag.Set("Field" + n, std::string("campo_") + n);
        bag.Set("Width" + n, int32_t{1000 + 15 * c});
        bag.Set("Alignment" + n, int16_t(c % 3));
        bag.Set("Format" + n, std::string(c % 2 ? "#,##0.00" : "dd/mm/yyyy"));
        bag.Set("Visible" + n, c % 4 != 0);
        bag.Set("BackColor" + n, int32_t{0x00102030 * c});
        bag.Set("ForeColor" + n, static_cast<int32_t>(0x80000000u + static_cast<uint32_t>(c)));
        bag.Set("Sortable" + n, c % 2 == 0);
        bag.Set("Total" + n, uint8_t(c % 5));
        bag.Set("Decimals" + n, uint8_t(c % 7));
        bag.Set("MinWidth" + n, float(c) * 0.3f);
        bag.Set("Ratio" + n, 1.0 / c);
        bag.Set("Font" + n, Font{"Liberation Sans", 8.25f + c * 0.25f, c % 2 == 1, c % 3 == 0, c % 5 == 0});
        bag.Set("Condition" + n, std::string("[Importo] > ") + std::to_string(c * 100));
        bag.Set("Picture" + n, std::string("stato_") + n + ".png");
        bag.Set("ToolTip" + n, std::string("Suggerimento \"") + n + "\"\tcon\ttabulazioni");
        bag.Set("Locked" + n, c % 6 == 0);
        bag.Set("Order" + n, int16_t(31 - c));
        bag.Set("HeaderColor" + n, int32_t{0x00FFEECC - c});
        bag.Set("Key" + n, std::string("K") + n);
        bag.Set("Scale" + n, double(c) * 1e-7);
        bag.Set("Resizable" + n, true);
        bag.Set("Tag" + n, std::string());
    }
    form.AddOrReplace(FormControl("Tabulon121", "Tabulon12", std::move(bag)));
    return form;
}

TEST(FormFileText, ALargeFormRoundTripsByteForByte) {
    TemporaryFolder folder;
    const FormFile form = LargeForm();
    ASSERT_EQ(form.Properties("Tabulon121").Values().size(), 1u + 30u * 24u);
    form.Save(folder / "large.json");
    const std::string first = ReadBytes(folder / "large.json");
    const FormFile read = FormFile::Load(folder / "large.json");
    EXPECT_TRUE(read == form);
    read.Save(folder / "again.json");
    EXPECT_EQ(ReadBytes(folder / "again.json"), first);
    EXPECT_EQ(std::count(first.begin(), first.end(), '\n'), 1 + 30 * 24 + 13);  // one line a key, 13 around them
}

TEST(FormFileText, TheBytesAreTheSameInEveryLocale) {
    TemporaryFolder folder;
    const FormFile form = EveryKindForm();
    const FormFile large = LargeForm();
    const std::string expected = form.ToText();
    const std::string expectedLarge = large.ToText();
    ASSERT_NE(expected.find("0.1"), std::string::npos);
    for (const char* name : {"C", "it_IT.UTF-8", "en_US.UTF-8", "de_DE.UTF-8"}) {
        SCOPED_TRACE(name);
        ScopedLocale locale(name);
        ASSERT_TRUE(locale.ok()) << "the locale " << name << " is missing: scripts/setup.sh generates it";
        EXPECT_EQ(form.ToText(), expected);
        EXPECT_EQ(large.ToText(), expectedLarge);
        const std::string path = folder / (std::string("form-") + name + ".json");
        form.Save(path);
        EXPECT_EQ(ReadBytes(path), expected);
        // A file written under any locale reads the same under this one.
        EXPECT_TRUE(FormFile::FromText(expected, "every") == form);
        EXPECT_TRUE(FormFile::FromText(expectedLarge, "large") == large);
    }
}

TEST(FormFileText, ADecimalCommaLocaleStillReadsDecimalPoints) {
    ScopedLocale german("de_DE.UTF-8");
    ASSERT_TRUE(german.ok()) << "scripts/setup.sh generates de_DE.UTF-8";
    const FormFile form = FormFile::FromText(
        R"({"format": "tabulon12-form", "version": 1, "form": "F", "controls": [{"name": "G", "type": "T",
            "properties": {"a": {"kind": "Double", "value": 1234.5}, "b": {"kind": "Single", "value": 2.5e-3}}}]})",
        "decimals");
    EXPECT_EQ(form.Properties("G").ReadProperty("a", 0), PropertyValue(double{1234.5}));
    EXPECT_EQ(form.Properties("G").ReadProperty("b", 0), PropertyValue(float{2.5e-3f}));
}

}  // namespace
}  // namespace TabulonLib12::testing
