// The form as a host uses it: controls listed in order, found by name without regard to case,
// added or replaced in place, removed; a control's store read and written through PropertyBag,
// as the scroll bar does with its own keys.
#include "form_file_support.h"
#include "platform/ui/surface.h"
#include "platform/ui/text_metrics.h"
#include "scrollbar/scorrix.h"
#include "tests/support/test_doubles.h"

namespace TabulonLib12::testing {
namespace {

constexpr ErrorKind kValue = ErrorKind::InvalidValue;

TEST(FormFileModel, ANewFormHasItsNameAndNoControls) {
    FormFile form("Ordini");
    EXPECT_EQ(form.FormName(), "Ordini");
    EXPECT_TRUE(form.Controls().empty());
    EXPECT_TRUE(form.ControlNames().empty());
    form.setFormName("Fatture");
    EXPECT_EQ(form.FormName(), "Fatture");
}

TEST(FormFileModel, EmptyNamesAndTypesAreRefused) {
    ExpectFailure(kValue, 380, {"A form needs a name"}, [] { FormFile form(""); });
    FormFile form("F");
    ExpectFailure(kValue, 380, {"A form needs a name"}, [&] { form.setFormName(""); });
    EXPECT_EQ(form.FormName(), "F");
    ExpectFailure(kValue, 380, {"needs a name"}, [] { FormControl control("", "Tabulon12"); });
    ExpectFailure(kValue, 380, {"\"G\" needs a type"}, [] { FormControl control("G", ""); });
}

TEST(FormFileModel, ControlsAreListedInTheOrderTheyWereAdded) {
    FormFile form("F");
    form.AddOrReplace(FormControl("Tabulon121", "Tabulon12"));
    form.AddOrReplace(FormControl("VS1", "Scorrix"));
    form.AddOrReplace(FormControl("Alfa", "Scorrix"));
    EXPECT_EQ(form.ControlNames(), (std::vector<std::string>{"Tabulon121", "VS1", "Alfa"}));
    ASSERT_EQ(form.Controls().size(), 3u);
    EXPECT_EQ(form.Controls()[1].Type(), "Scorrix");
}

TEST(FormFileModel, ControlsAreFoundWithoutRegardToCase) {
    FormFile form("F");
    form.AddOrReplace(FormControl("Tabulon121", "Tabulon12"));
    ASSERT_NE(form.Find("TABULON121"), nullptr);
    EXPECT_EQ(form.Find("tabulon121")->Name(), "Tabulon121");
    EXPECT_EQ(form.Find("Tabulon12"), nullptr);
    const FormFile& constant = form;
    EXPECT_NE(constant.Find("tabulon121"), nullptr);
}

TEST(FormFileModel, AddingAControlOfAHeldNameReplacesItInItsPlace) {
    FormFile form("F");
    form.AddOrReplace(FormControl("A", "Scorrix"));
    form.AddOrReplace(FormControl("Grid", "Tabulon12"));
    form.AddOrReplace(FormControl("B", "Scorrix"));
    MemoryPropertyBag bag;
    bag.Set("Cols", int16_t{5});
    FormControl& replaced = form.AddOrReplace(FormControl("GRID", "Tabulon12", std::move(bag)));
    EXPECT_EQ(form.ControlNames(), (std::vector<std::string>{"A", "GRID", "B"}));
    EXPECT_EQ(&replaced, form.Find("grid"));
    EXPECT_EQ(replaced.Properties().ReadInt16("Cols", 0), 5);
}

TEST(FormFileModel, ReferencesToControlsStayValidWhileOthersAreAdded) {
    FormFile form("F");
    MemoryPropertyBag& first = form.AddOrReplace(FormControl("First", "Scorrix")).Properties();
    for (int i = 0; i < 100; ++i) form.AddOrReplace(FormControl("C" + std::to_string(i), "Scorrix"));
    first.Set("Max", int32_t{3});
    EXPECT_EQ(form.Properties("first").ReadInt32("Max", 0), 3);
}

TEST(FormFileModel, RemovingAControlKeepsTheOthersFindable) {
    FormFile form("F");
    for (const char* name : {"A", "B", "C", "D"}) form.AddOrReplace(FormControl(name, "Scorrix"));
    EXPECT_TRUE(form.Remove("b"));
    EXPECT_FALSE(form.Remove("B"));
    EXPECT_EQ(form.ControlNames(), (std::vector<std::string>{"A", "C", "D"}));
    EXPECT_EQ(form.Find("C")->Name(), "C");
    EXPECT_EQ(form.Find("D")->Name(), "D");
    form.AddOrReplace(FormControl("B", "Scorrix"));
    EXPECT_EQ(form.ControlNames(), (std::vector<std::string>{"A", "C", "D", "B"}));
}

TEST(FormFileModel, AControlsStoreIsReachedByItsName) {
    FormFile form("F");
    form.AddOrReplace(FormControl("Grid", "Tabulon12"));
    PropertyBag& bag = form.Properties("GRID");
    bag.WriteProperty("Cols", int16_t{4}, int16_t{2});
    EXPECT_EQ(form.Find("Grid")->Properties().ReadInt16("Cols", 0), 4);
    ExpectFailure(kValue, 380, {"The form \"F\" has no control named \"Other\""}, [&] { (void)form.Properties("Other"); });
    const FormFile& constant = form;
    ExpectFailure(kValue, 380, {"no control named \"Other\""}, [&] { (void)constant.Properties("Other"); });
}

TEST(FormFileModel, FormsCompareNamesAndControlsInOrder) {
    FormFile a("F");
    a.AddOrReplace(FormControl("A", "Scorrix"));
    a.AddOrReplace(FormControl("B", "Scorrix"));
    FormFile b("F");
    b.AddOrReplace(FormControl("A", "Scorrix"));
    b.AddOrReplace(FormControl("B", "Scorrix"));
    EXPECT_TRUE(a == b);
    b.Properties("B").Set("Max", int32_t{1});
    EXPECT_FALSE(a == b);
    FormFile c("F");
    c.AddOrReplace(FormControl("B", "Scorrix"));
    c.AddOrReplace(FormControl("A", "Scorrix"));
    EXPECT_FALSE(a == c);
    FormFile d("G");
    d.AddOrReplace(FormControl("A", "Scorrix"));
    d.AddOrReplace(FormControl("B", "Scorrix"));
    EXPECT_FALSE(a == d);
}

TEST(FormFileModel, TheScrollBarSavesAndRestoresItselfThroughAFormFile) {
    HeadlessTextMetrics metrics;
    ManualTimerService timers;
    Surface surface(metrics, timers);
    TemporaryFolder folder;

    Scorrix bar(surface, nullptr, "VS1");
    bar.setEnabled(false);
    bar.setMax(250);
    bar.setMin(-5);
    int32_t value = 17;
    bar.setValue(value);
    FormFile form("Clienti");
    bar.WriteProperties(form.AddOrReplace(FormControl("VS1", "Scorrix")).Properties());
    form.Save(folder / "clienti.json");

    const FormFile read = FormFile::Load(folder / "clienti.json");
    Scorrix other(surface, nullptr, "VS2");
    other.ReadProperties(read.Properties("vs1"));
    EXPECT_FALSE(other.Enabled());
    EXPECT_EQ(other.Max(), 250);
    EXPECT_EQ(other.Min(), -5);
    EXPECT_EQ(other.Value(), 17);
}

}  // namespace
}  // namespace TabulonLib12::testing
