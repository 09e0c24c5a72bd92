// Whole-file reads and the atomic replacement of a file, on real files in a temporary folder.
#include "platform/host/file_access.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "platform/runtime/error.h"

namespace TabulonLib12 {
namespace {

namespace fs = std::filesystem;

class FileAccess : public ::testing::Test {
protected:
    void SetUp() override {
        const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
        dir_ = fs::temp_directory_path() / ("tabulon_files_" + std::to_string(::getpid()) + "_" + info->name());
        fs::remove_all(dir_);
        fs::create_directories(dir_);
    }
    void TearDown() override { fs::remove_all(dir_); }

    std::string PathOf(const std::string& name) const { return (dir_ / name).string(); }
    std::string Bytes(const std::string& name) const {
        std::ifstream in(PathOf(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }
    // The error number of `action`, 0 when it does not fail; the description must name the subject.
    static int32_t ErrorOf(const std::function<void()>& action) {
        try {
            action();
            return 0;
        } catch (const Error& e) {
            EXPECT_EQ(e.description().rfind("Choice", 0), 0u) << e.description();
            return e.number();
        }
    }

    fs::path dir_;
};

TEST_F(FileAccess, AReplacementHoldsTheNewBytesAndLeavesNothingBeside) {
    std::ofstream(PathOf("c.txt"), std::ios::binary) << "old choice\r\n";
    ReplaceFileAtomically(PathOf("c.txt"), "1,4\r\n", "Choice");
    EXPECT_EQ(Bytes("c.txt"), "1,4\r\n");
    EXPECT_EQ(std::distance(fs::directory_iterator(dir_), {}), 1);
}

TEST_F(FileAccess, AReplacementKeepsThePermissionsOfTheFileItReplaces) {
    std::ofstream(PathOf("c.txt")) << "x";
    fs::permissions(PathOf("c.txt"), fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    ReplaceFileAtomically(PathOf("c.txt"), "y", "Choice");
    EXPECT_EQ(fs::status(PathOf("c.txt")).permissions() & fs::perms::all,
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
}

TEST_F(FileAccess, AReplacementThatCannotBeMadeLeavesTheTargetAsItWas) {
    EXPECT_EQ(ErrorOf([&] { ReplaceFileAtomically(PathOf("no/such/c.txt"), "1", "Choice"); }), 76);
    EXPECT_FALSE(fs::exists(PathOf("no")));
    fs::create_directory(PathOf("folder"));
    EXPECT_EQ(ErrorOf([&] { ReplaceFileAtomically(PathOf("folder"), "1", "Choice"); }), 75);
    EXPECT_TRUE(fs::is_directory(PathOf("folder")));
    EXPECT_EQ(ErrorOf([&] { ReplaceFileAtomically("/dev/full", "1", "Choice"); }), 75);
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
    EXPECT_EQ(std::distance(fs::directory_iterator(dir_), {}), 1) << "no temporary file stays";
}

TEST_F(FileAccess, AWholeReadRefusesWhatIsNoRegularFileOrTooLarge) {
    EXPECT_EQ(ErrorOf([&] { ReadWholeFile(PathOf("missing"), 100, "Choice"); }), 53);
    EXPECT_EQ(ErrorOf([&] { ReadWholeFile(dir_.string(), 100, "Choice"); }), 75);
    ASSERT_EQ(mkfifo(PathOf("pipe").c_str(), 0600), 0);
    EXPECT_EQ(ErrorOf([&] { ReadWholeFile(PathOf("pipe"), 100, "Choice"); }), 75);
    std::ofstream(PathOf("big"), std::ios::binary) << std::string(101, 'x');
    EXPECT_EQ(ErrorOf([&] { ReadWholeFile(PathOf("big"), 100, "Choice"); }), 321);
    EXPECT_EQ(ReadWholeFile(PathOf("big"), 101, "Choice"), std::string(101, 'x'));
}

}  // namespace
}  // namespace TabulonLib12
