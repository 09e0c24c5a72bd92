// Files that are not form files, or not good ones: each fails with an Error that names the file
// and says what is wrong, never crashes, and never gives a part of a form.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "form_file_support.h"

namespace TabulonLib12::testing {
namespace {

constexpr ErrorKind kFile = ErrorKind::File;
constexpr ErrorKind kValue = ErrorKind::InvalidValue;

// A form file of version 1 around the given members of one control named "G".
std::string WithControl(const std::string& members) {
    return R"({"format": "tabulon12-form", "version": 1, "form": "F", "controls": [{"name": "G", "type": "Tabulon12", )" +
           members + "}]}";
}

// A form file whose control "G" holds one property "P" written as `entry`.
std::string WithProperty(const std::string& entry) { return WithControl(R"("properties": {"P": )" + entry + "}"); }

class FormFileErrors : public ::testing::Test {
protected:
    // Writes `text` to a file of the folder and loads it, expecting the failure.
    std::string ExpectLoadFailure(const std::string& text, ErrorKind kind, int32_t number,
                                  std::initializer_list<std::string> fragments) {
        const std::string path = folder / "form.json";
        WriteBytes(path, text);
        std::string description = ExpectFailure(kind, number, fragments, [&] { (void)FormFile::Load(path); });
        EXPECT_NE(description.find("Form file \"" + path + "\""), std::string::npos) << description;
        return description;
    }

    TemporaryFolder folder;
};

TEST_F(FormFileErrors, AMissingFileIsNotFound) {
    const std::string path = folder / "absent.json";
    ExpectFailure(kFile, 53, {"Form file \"" + path + "\" cannot be read"}, [&] { (void)FormFile::Load(path); });
    ExpectFailure(kFile, 53, {"the path is empty"}, [&] { (void)FormFile::Load(""); });
    WriteBytes(folder / "plain.json", "{}");
    ExpectFailure(kFile, 76, {"plain.json/below.json"}, [&] { (void)FormFile::Load(folder / "plain.json/below.json"); });
}

TEST_F(FormFileErrors, AFolderIsNotAFormFile) {
    ExpectFailure(kFile, 75, {"it is a folder"}, [&] { (void)FormFile::Load(folder.path().string()); });
}

TEST_F(FormFileErrors, APipeIsRefusedWithoutWaitingForAWriter) {
    const std::string path = folder / "pipe";
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    ExpectFailure(kFile, 75, {"it is not a regular file"}, [&] { (void)FormFile::Load(path); });
}

TEST_F(FormFileErrors, AFileThatFailsToReadIsADeviceError) {
    // The process's memory as a file: a regular file whose first page cannot be read.
    ExpectFailure(kFile, 57, {"Form file \"/proc/self/mem\" cannot be read"}, [&] { (void)FormFile::Load("/proc/self/mem"); });
}

TEST_F(FormFileErrors, AFileLargerThanAnyFormIsRefusedUnread) {
    const std::string path = folder / "huge.json";
    const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT, 0600);
    ASSERT_GE(fd, 0);
    ASSERT_EQ(::ftruncate(fd, static_cast<off_t>(FormFile::kMaxFileBytes) + 1), 0);  // sparse: no disk used
    ::close(fd);
    ExpectFailure(kFile, 321, {"larger than 64 MiB"}, [&] { (void)FormFile::Load(path); });
}

TEST_F(FormFileErrors, TextThatIsNotJsonGivesTheLineAndColumn) {
    ExpectLoadFailure("{\n  \"format\": \"tabulon12-form\",\n  \"version\": 1,\n  \"form\": tru\n}\n", kFile, 321,
                      {"not valid JSON at line 4, column", "invalid literal"});
    ExpectLoadFailure("{\"format\": \"tabulon12-form\",, }", kFile, 321, {"not valid JSON at line 1, column 29"});
    ExpectLoadFailure("", kFile, 321, {"not valid JSON at line 1, column 1"});
    ExpectLoadFailure("{} trailing", kFile, 321, {"not valid JSON at line 1, column 6", "expected end of input"});
    ExpectLoadFailure("{\"a\": \"\xC0\xAF\"}", kFile, 321, {"not valid JSON at line 1"});  // not UTF-8
    ExpectLoadFailure("[1e400]", kFile, 321, {"not valid JSON", "1e400"});
}

TEST_F(FormFileErrors, AnotherFormatIsNotAFormFile) {
    ExpectLoadFailure(R"({"format": "other-form", "version": 1})", kFile, 321,
                      {"it is not a form file", "\"other-form\"", "\"tabulon12-form\""});
    ExpectLoadFailure(R"({"version": 1})", kFile, 321, {"it is not a form file: it has no \"format\""});
    ExpectLoadFailure(R"({"format": 1})", kFile, 321, {"it is not a form file: its format is 1"});
    ExpectLoadFailure(R"([1, 2])", kFile, 321, {"it is not a form file: it holds a list"});
    ExpectLoadFailure("42", kFile, 321, {"it is not a form file: it holds 42"});
}

TEST_F(FormFileErrors, ALaterVersionSaysWhichVersionItIsAndWhichThisProgramReads) {
    const std::string description =
        ExpectLoadFailure(R"({"format": "tabulon12-form", "version": 3, "form": "F", "controls": [], "new": true})",
                          kFile, 321, {});
    EXPECT_NE(description.find(": it is a form file of version 3; this program reads version 1"), std::string::npos)
        << description;
}

TEST_F(FormFileErrors, AVersionThatIsNoVersionNumberIsRefused) {
    ExpectLoadFailure(R"({"format": "tabulon12-form", "form": "F", "controls": []})", kFile, 321, {"it has no \"version\""});
    ExpectLoadFailure(R"({"format": "tabulon12-form", "version": 0, "form": "F", "controls": []})", kFile, 321,
                      {"version 0, which does not exist; this program reads version 1"});
    ExpectLoadFailure(R"({"format": "tabulon12-form", "version": -1, "form": "F", "controls": []})", kFile, 321,
                      {"its version -1 is not a version number"});
    ExpectLoadFailure(R"({"format": "tabulon12-form", "version": "1", "form": "F", "controls": []})", kFile, 321,
                      {"its version a text is not a version number"});
    ExpectLoadFailure(R"({"format": "tabulon12-form", "version": 1.5, "form": "F", "controls": []})", kFile, 321,
                      {"its version 1.5 is not a version number"});
}

TEST_F(FormFileErrors, AMemberThisVersionDoesNotKnowIsRefused) {
    ExpectLoadFailure(R"({"format": "tabulon12-form", "version": 1, "form": "F", "controls": [], "extra": 1})", kFile,
                      321, {"the form has a member \"extra\" that a form file of version 1 does not have"});
    ExpectLoadFailure(WithControl(R"("properties": {}, "Visible": true)"), kFile, 321,
                      {"control \"G\" has a member \"Visible\""});
    ExpectLoadFailure(WithProperty(R"({"kind": "Integer", "value": 1, "default": 0})"), kFile, 321,
                      {"control \"G\", property \"P\" has a member \"default\""});
}

TEST_F(FormFileErrors, TheFormNeedsANameAndAListOfControls) {
    ExpectLoadFailure(R"({"format": "tabulon12-form", "version": 1, "controls": []})", kFile, 321, {"it has no form name (\"form\" must be a text that is not empty)"});
    ExpectLoadFailure(R"({"format": "tabulon12-form", "version": 1, "form": "", "controls": []})", kFile, 321,
                      {"it has no form name (\"form\" must be a text that is not empty)"});
    ExpectLoadFailure(R"({"format": "tabulon12-form", "version": 1, "form": "F"})", kFile, 321,
                      {"it has no list of \"controls\""});
    ExpectLoadFailure(R"({"format": "tabulon12-form", "version": 1, "form": "F", "controls": {}})", kFile, 321,
                      {"it has no list of \"controls\""});
}

TEST_F(FormFileErrors, AControlWithoutANameIsRefused) {
    const std::string head = R"({"format": "tabulon12-form", "version": 1, "form": "F", "controls": [)";
    const std::string good = R"({"name": "A", "type": "Scorrix", "properties": {}})";
    ExpectLoadFailure(head + good + R"(, {"type": "Scorrix", "properties": {}}]})", kFile, 321,
                      {"control 2 (counting from 1) has no name"});
    ExpectLoadFailure(head + R"({"name": "", "type": "Scorrix", "properties": {}}]})", kFile, 321,
                      {"control 1 (counting from 1) has no name"});
    ExpectLoadFailure(head + R"({"name": 7, "type": "Scorrix", "properties": {}}]})", kFile, 321,
                      {"control 1 (counting from 1) has no name"});
    ExpectLoadFailure(head + R"("G"]})", kFile, 321, {"control 1 (counting from 1) is a text, not an object"});
}

TEST_F(FormFileErrors, AControlWithoutATypeOrPropertiesIsRefused) {
    const std::string head = R"({"format": "tabulon12-form", "version": 1, "form": "F", "controls": [)";
    ExpectLoadFailure(head + R"({"name": "G", "properties": {}}]})", kFile, 321, {"control \"G\" has no type"});
    ExpectLoadFailure(head + R"({"name": "G", "type": "T"}]})", kFile, 321, {"control \"G\" has no \"properties\" object"});
    ExpectLoadFailure(head + R"({"name": "G", "type": "T", "properties": []}]})", kFile, 321,
                      {"control \"G\" has no \"properties\" object"});
}

TEST_F(FormFileErrors, TwoControlsOfOneNameAreRefused) {
    ExpectLoadFailure(R"({"format": "tabulon12-form", "version": 1, "form": "F", "controls": [
        {"name": "Grid", "type": "T", "properties": {}}, {"name": "GRID", "type": "T", "properties": {}}]})",
                      kFile, 321, {"two controls are named alike: \"Grid\" and \"GRID\""});
}

TEST_F(FormFileErrors, AKeyTwiceInOneControlIsRefused) {
    ExpectLoadFailure(WithControl(R"("properties": {"Cols": {"kind": "Integer", "value": 1}, "COLS": {"kind": "Integer", "value": 2}})"),
                      kFile, 321, {"control \"G\" has the key \"COLS\" twice (also as \"Cols\")"});
    // Spelled alike: JSON parsers would keep one of them silently.
    ExpectLoadFailure(WithControl(R"("properties": {"Cols": {"kind": "Integer", "value": 1}, "Cols": {"kind": "Integer", "value": 2}})"),
                      kFile, 321, {"the member \"Cols\" appears twice in one object"});
}

TEST_F(FormFileErrors, APropertyOfAnUnknownKindIsRefused) {
    ExpectLoadFailure(WithProperty(R"({"kind": "Currency", "value": 1})"), kValue, 380,
                      {"control \"G\", property \"P\" is of the unknown kind \"Currency\""});
    ExpectLoadFailure(WithProperty(R"({"kind": "integer", "value": 1})"), kValue, 380, {"unknown kind \"integer\""});
    ExpectLoadFailure(WithProperty(R"({"value": 1})"), kFile, 321, {"property \"P\" has no \"kind\" text"});
    ExpectLoadFailure(WithProperty(R"({"kind": "Integer"})"), kFile, 321, {"property \"P\" has no \"value\""});
    ExpectLoadFailure(WithProperty(R"(4)"), kFile, 321, {"property \"P\" is 4, not an object"});
}

TEST_F(FormFileErrors, AValueOfTheWrongJsonTypeForItsKindIsRefused) {
    ExpectLoadFailure(WithProperty(R"({"kind": "Integer", "value": "4"})"), kValue, 380,
                      {"property \"P\": an Integer must be a whole number from -32768 to 32767, not a text"});
    ExpectLoadFailure(WithProperty(R"({"kind": "Byte", "value": true})"), kValue, 380, {"a Byte must be a whole number", "not true"});
    ExpectLoadFailure(WithProperty(R"({"kind": "Long", "value": null})"), kValue, 380, {"a Long must be", "not null"});
    ExpectLoadFailure(WithProperty(R"({"kind": "Boolean", "value": -1})"), kValue, 380,
                      {"a Boolean must be true or false, not -1"});
    ExpectLoadFailure(WithProperty(R"({"kind": "Single", "value": "0.5"})"), kValue, 380, {"a Single must be a number, not a text"});
    ExpectLoadFailure(WithProperty(R"({"kind": "Double", "value": [1]})"), kValue, 380, {"a Double must be a number, not a list"});
    ExpectLoadFailure(WithProperty(R"({"kind": "Text", "value": 5})"), kValue, 380, {"a Text must be a text, not 5"});
    ExpectLoadFailure(WithProperty(R"({"kind": "Font", "value": "Arial"})"), kValue, 380, {"a Font must be an object, not a text"});
    ExpectLoadFailure(WithProperty(R"({"kind": "Font", "value": {"name": "Arial", "size": 9, "bold": false, "italic": false}})"),
                      kValue, 380, {"a Font needs \"underline\", true or false"});
    ExpectLoadFailure(WithProperty(R"({"kind": "Font", "value": {"name": "Arial", "size": "9", "bold": false, "italic": false, "underline": false}})"),
                      kValue, 380, {"a Font's size must be a number, not a text"});
    ExpectLoadFailure(WithProperty(R"({"kind": "Font", "value": {"size": 9, "bold": false, "italic": false, "underline": false}})"),
                      kValue, 380, {"a Font needs a \"name\" text"});
    ExpectLoadFailure(WithProperty(R"({"kind": "Font", "value": {"name": "A", "size": 9, "bold": 0, "italic": false, "underline": false}})"),
                      kValue, 380, {"a Font needs \"bold\", true or false"});
    ExpectLoadFailure(WithProperty(R"({"kind": "Font", "value": {"name": "A", "size": 9, "bold": false, "italic": false, "underline": false, "strike": true}})"),
                      kFile, 321, {"property \"P\"'s font has a member \"strike\""});
}

TEST_F(FormFileErrors, ANumberOutOfItsKindsRangeIsRefused) {
    ExpectLoadFailure(WithProperty(R"({"kind": "Byte", "value": 256})"), kValue, 380,
                      {"a Byte must be a whole number from 0 to 255, not 256"});
    ExpectLoadFailure(WithProperty(R"({"kind": "Byte", "value": -1})"), kValue, 380, {"from 0 to 255, not -1"});
    ExpectLoadFailure(WithProperty(R"({"kind": "Integer", "value": 70000})"), kValue, 380,
                      {"an Integer must be a whole number from -32768 to 32767, not 70000"});
    ExpectLoadFailure(WithProperty(R"({"kind": "Integer", "value": -32769})"), kValue, 380, {"not -32769"});
    ExpectLoadFailure(WithProperty(R"({"kind": "Integer", "value": 4.5})"), kValue, 380, {"not 4.5"});
    ExpectLoadFailure(WithProperty(R"({"kind": "Long", "value": 2147483648})"), kValue, 380,
                      {"a Long must be a whole number from -2147483648 to 2147483647, not 2147483648"});
    ExpectLoadFailure(WithProperty(R"({"kind": "Long", "value": -2147483649})"), kValue, 380, {"not -2147483649"});
    ExpectLoadFailure(WithProperty(R"({"kind": "Long", "value": 18446744073709551615})"), kValue, 380,
                      {"not 18446744073709551615"});
    ExpectLoadFailure(WithProperty(R"({"kind": "Long", "value": 1e300})"), kValue, 380, {"a Long must be"});
    ExpectLoadFailure(WithProperty(R"({"kind": "Single", "value": 1e39})"), kValue, 380,
                      {"a Single must be a number within the Single's range"});
    ExpectLoadFailure(WithProperty(R"({"kind": "Font", "value": {"name": "A", "size": -4e38, "bold": false, "italic": false, "underline": false}})"),
                      kValue, 380, {"a Font's size must be a number within the Single's range"});
}

TEST_F(FormFileErrors, HostileShapesAreRefusedQuickly) {
    ExpectLoadFailure(std::string(100, '[') + std::string(100, ']'), kFile, 321, {"nests deeper than 64 levels"});
    ExpectLoadFailure(std::string(200000, '['), kFile, 321, {"nests deeper than 64 levels"});
    std::string wide = "{";
    for (int i = 0; i <= 10000; ++i) wide += (i ? ", \"k" : "\"k") + std::to_string(i) + "\": 0";
    ExpectLoadFailure(wide + "}", kFile, 321, {"an object has more than 10000 members"});
}

TEST_F(FormFileErrors, AFailedLoadGivesNoPartOfAForm) {
    FormFile form("Kept");
    form.AddOrReplace(FormControl("Grid", "Tabulon12"));
    const std::string path = folder / "half.json";
    WriteBytes(path, R"({"format": "tabulon12-form", "version": 1, "form": "Other", "controls": [
        {"name": "A", "type": "Scorrix", "properties": {"Max": {"kind": "Long", "value": 5}}},
        {"name": "B", "type": "Scorrix", "properties": {"Max": {"kind": "Long", "value": "five"}}}]})");
    EXPECT_THROW(form = FormFile::Load(path), Error);
    EXPECT_EQ(form.FormName(), "Kept");
    EXPECT_EQ(form.ControlNames(), std::vector<std::string>{"Grid"});
}

}  // namespace
}  // namespace TabulonLib12::testing
