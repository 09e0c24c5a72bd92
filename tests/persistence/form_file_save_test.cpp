// Saving: the file replaced at once or not at all. A failure (no room, a device or a folder as
// the target, a folder where nothing can be created, a value JSON cannot hold) leaves the old
// file byte for byte as it was, leaves no temporary file, and says why.
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cmath>
#include <limits>

#include "form_file_support.h"

namespace TabulonLib12::testing {
namespace {

constexpr ErrorKind kFile = ErrorKind::File;

FormFile SmallForm(int32_t max = 250) {
    FormFile form("Piccolo");
    MemoryPropertyBag bag;
    bag.WriteProperty("Max", max, int32_t{100});
    form.AddOrReplace(FormControl("VS1", "Scorrix", std::move(bag)));
    return form;
}

// A form whose text is larger than `bytes`.
FormFile FormLargerThan(size_t bytes) {
    FormFile form("Grande");
    MemoryPropertyBag bag;
    for (size_t i = 0; bag.Values().size() * 40 < bytes; ++i) bag.Set("Key" + std::to_string(i), std::string(20, 'x'));
    form.AddOrReplace(FormControl("G", "Tabulon12", std::move(bag)));
    return form;
}

mode_t ModeOf(const std::string& path) {
    struct stat st {};
    EXPECT_EQ(::stat(path.c_str(), &st), 0) << path;
    return st.st_mode & 07777;
}

// Names in /dev that a save to /dev/full could have left.
std::vector<std::string> LeftoversInDev() {
    std::vector<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator("/dev")) {
        const std::string name = entry.path().filename().string();
        if (name.rfind(".full.", 0) == 0) found.push_back(name);
    }
    return found;
}

class FormFileSave : public ::testing::Test {
protected:
    // An old file in place, whose bytes a failed save must leave.
    std::string OldFile() {
        const std::string path = folder / "form.json";
        SmallForm(7).Save(path);
        old = ReadBytes(path);
        EXPECT_FALSE(old.empty());
        return path;
    }

    TemporaryFolder folder;
    std::string old;
};

TEST_F(FormFileSave, ANewFileHoldsTheTextAndNothingElseIsLeft) {
    const FormFile form = SmallForm();
    form.Save(folder / "new.json");
    EXPECT_EQ(ReadBytes(folder / "new.json"), form.ToText());
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"new.json"});
    EXPECT_TRUE(FormFile::Load(folder / "new.json") == form);
}

TEST_F(FormFileSave, AnOldFileIsReplacedWhole) {
    const std::string path = OldFile();
    const FormFile form = FormLargerThan(100000);
    form.Save(path);
    EXPECT_EQ(ReadBytes(path), form.ToText());
    SmallForm(9).Save(path);  // a shorter text leaves nothing of the longer one
    EXPECT_EQ(ReadBytes(path), SmallForm(9).ToText());
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"form.json"});
}

TEST_F(FormFileSave, TheNewFileKeepsTheOldFilesPermissions) {
    const std::string path = OldFile();
    ASSERT_EQ(::chmod(path.c_str(), 0640), 0);
    SmallForm().Save(path);
    EXPECT_EQ(ModeOf(path), 0640u);
}

TEST_F(FormFileSave, ANewFileGetsTheUsualPermissionsLessTheUmask) {
    const mode_t previous = ::umask(027);
    SmallForm().Save(folder / "new.json");
    ::umask(previous);
    EXPECT_EQ(ModeOf(folder / "new.json"), 0640u);
}

TEST_F(FormFileSave, ALinkAsTheTargetIsFollowed) {
    const std::string path = OldFile();
    const std::string link = folder / "link.json";
    ASSERT_EQ(::symlink(path.c_str(), link.c_str()), 0);
    SmallForm(11).Save(link);
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_EQ(ReadBytes(path), SmallForm(11).ToText());
    EXPECT_EQ(folder.Names(), (std::vector<std::string>{"form.json", "link.json"}));
}

TEST_F(FormFileSave, DevFullAsTheTargetFailsCleanly) {
    const auto before = LeftoversInDev();
    ExpectFailure(kFile, 75, {"Form file \"/dev/full\" was not saved", "not a regular file"},
                  [&] { SmallForm().Save("/dev/full"); });
    struct stat st {};
    ASSERT_EQ(::stat("/dev/full", &st), 0);
    EXPECT_TRUE(S_ISCHR(st.st_mode));
    EXPECT_EQ(LeftoversInDev(), before);
}

TEST_F(FormFileSave, AFullDiskLeavesTheOldFileAndNoTemporaryFile) {
    const std::string path = OldFile();
    // No room past 4 KB for this process's files: the write of a larger text fails part way,
    // as it does on a full disk. The signal that limit sends is ignored, so write answers.
    struct rlimit saved {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &saved), 0);
    struct sigaction ignore {}, previous {};
    ignore.sa_handler = SIG_IGN;
    ASSERT_EQ(::sigaction(SIGXFSZ, &ignore, &previous), 0);
    struct rlimit small = saved;
    small.rlim_cur = 4096;
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    std::string description;
    int32_t number = 0;
    try {
        FormLargerThan(100000).Save(path);
    } catch (const Error& e) {
        description = e.description();
        number = e.number();
    }
    ::setrlimit(RLIMIT_FSIZE, &saved);
    ::sigaction(SIGXFSZ, &previous, nullptr);

    EXPECT_EQ(number, 61) << description;
    EXPECT_NE(description.find("Form file \"" + path + "\" was not saved (the file on disk is as it was)"), std::string::npos)
        << description;
    EXPECT_EQ(ReadBytes(path), old);
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"form.json"});
}

TEST_F(FormFileSave, AFolderWhereNothingCanBeCreatedFailsAndLeavesNothing) {
    // Nobody, not even the superuser, creates files in /proc.
    const std::string path = "/proc/tabulon-form-test.json";
    ExpectFailure(kFile, 76, {"Form file \"" + path + "\" was not saved", "cannot create a temporary file in \"/proc\""},
                  [&] { SmallForm().Save(path); });
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(FormFileSave, AFolderAsTheTargetFails) {
    const std::string path = folder / "sub";
    std::filesystem::create_directory(path);
    ExpectFailure(kFile, 75, {"it is a folder"}, [&] { SmallForm().Save(path); });
    EXPECT_TRUE(std::filesystem::is_directory(path));
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"sub"});
}

TEST_F(FormFileSave, AMissingFolderFails) {
    ExpectFailure(kFile, 76, {"cannot create a temporary file"}, [&] { SmallForm().Save(folder / "none/form.json"); });
    WriteBytes(folder / "plain", "x");
    ExpectFailure(kFile, 76, {"plain/form.json"}, [&] { SmallForm().Save(folder / "plain/form.json"); });
    ExpectFailure(kFile, 75, {"the path is empty"}, [&] { SmallForm().Save(""); });
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"plain"});
}

TEST_F(FormFileSave, AValueAFormFileCannotHoldFailsBeforeAnythingIsWritten) {
    const std::string path = OldFile();
    for (const PropertyValue& value : {PropertyValue(std::numeric_limits<double>::quiet_NaN()),
                                       PropertyValue(std::numeric_limits<float>::infinity()),
                                       PropertyValue(Font{"Arial", std::numeric_limits<float>::quiet_NaN()}),
                                       PropertyValue(std::string("not UTF-8 \xC0\xAF"))}) {
        FormFile form = SmallForm();
        form.Properties("VS1").Set("Bad", value);
        ExpectFailure(ErrorKind::InvalidValue, 380, {"Form file \"" + path + "\" was not saved", "control \"VS1\", property \"Bad\""},
                      [&] { form.Save(path); });
        EXPECT_EQ(ReadBytes(path), old);
        EXPECT_EQ(folder.Names(), std::vector<std::string>{"form.json"});
    }
    FormFile badName = SmallForm();
    badName.AddOrReplace(FormControl("\xFF", "Scorrix"));
    ExpectFailure(ErrorKind::InvalidValue, 380, {"a control's name is not valid UTF-8"}, [&] { badName.Save(path); });
    EXPECT_EQ(ReadBytes(path), old);
}

TEST_F(FormFileSave, AControlWithMoreKeysThanAFormFileHoldsIsNotSaved) {
    const std::string path = OldFile();
    FormFile form("F");
    MemoryPropertyBag bag;
    for (int i = 0; i <= 10000; ++i) bag.Set("k" + std::to_string(i), int16_t{1});
    form.AddOrReplace(FormControl("G", "T", std::move(bag)));
    ExpectFailure(ErrorKind::InvalidValue, 380, {"control \"G\" has 10001 keys, more than the 10000"}, [&] { form.Save(path); });
    EXPECT_EQ(ReadBytes(path), old);
}

}  // namespace
}  // namespace TabulonLib12::testing
