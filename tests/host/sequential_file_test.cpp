#include "platform/host/sequential_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <fstream>
#include <iterator>

#include "platform/runtime/error.h"

namespace TabulonLib12 {
namespace {

namespace fs = std::filesystem;

// Each test works in a directory of its own under the system's temporary folder.
class SequentialFile : public ::testing::Test {
protected:
    void SetUp() override {
        const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
        dir_ = fs::temp_directory_path() /
               ("tabulon_seqfile_" + std::to_string(::getpid()) + "_" + info->name());
        fs::remove_all(dir_);
        fs::create_directories(dir_);
    }
    void TearDown() override { fs::remove_all(dir_); }

    std::string PathOf(const std::string& name) const { return (dir_ / name).string(); }
    void WriteBytes(const std::string& name, const std::string& bytes) const {
        std::ofstream out(PathOf(name), std::ios::binary);
        out << bytes;
    }
    std::string ReadBytes(const std::string& name) const {
        std::ifstream in(PathOf(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }

    fs::path dir_;
};

void ExpectFileError(const std::function<void()>& action, int32_t number, const std::string& text) {
    try {
        action();
        FAIL() << "no error";
    } catch (const Error& e) {
        EXPECT_EQ(e.kind(), ErrorKind::File);
        EXPECT_EQ(e.number(), number);
        EXPECT_EQ(e.description(), text);
    }
}

TEST_F(SequentialFile, WriteLinesEndsEveryLineWithCrLf) {
    WriteLines(PathOf("a.txt"), {"1", "2,3", ""});
    EXPECT_EQ(ReadBytes("a.txt"), "1\r\n2,3\r\n\r\n");
}

TEST_F(SequentialFile, WriteLinesReplacesTheFormerContent) {
    WriteBytes("a.txt", "old content that is longer\r\n");
    WriteLines(PathOf("a.txt"), {"new"});
    EXPECT_EQ(ReadBytes("a.txt"), "new\r\n");
}

TEST_F(SequentialFile, WriteNoLinesLeavesAnEmptyFile) {
    WriteLines(PathOf("empty.txt"), {});
    EXPECT_TRUE(fs::exists(PathOf("empty.txt")));
    EXPECT_EQ(fs::file_size(PathOf("empty.txt")), 0u);
    EXPECT_TRUE(ReadLines(PathOf("empty.txt")).empty());
}

TEST_F(SequentialFile, AppendLinesAddsAtTheEndAndCreatesTheFile) {
    AppendLines(PathOf("log.txt"), {"first"});
    AppendLines(PathOf("log.txt"), {"second", "third"});
    EXPECT_EQ(ReadBytes("log.txt"), "first\r\nsecond\r\nthird\r\n");
}

TEST_F(SequentialFile, ReadLinesTakesCrLfLfAndLoneCrAsLineEnds) {
    WriteBytes("mixed.txt", "a\r\nb\nc\rd");
    EXPECT_EQ(ReadLines(PathOf("mixed.txt")), (std::vector<std::string>{"a", "b", "c", "d"}));
}

TEST_F(SequentialFile, ReadLinesKeepsEmptyLinesButAddsNoneAfterTheLastLineEnd) {
    WriteBytes("blank.txt", "1\r\n\r\n2,3\r\n");
    EXPECT_EQ(ReadLines(PathOf("blank.txt")), (std::vector<std::string>{"1", "", "2,3"}));
    WriteBytes("lf.txt", "\n\n");
    EXPECT_EQ(ReadLines(PathOf("lf.txt")), (std::vector<std::string>{"", ""}));
    WriteBytes("crcr.txt", "x\r\r\n");
    EXPECT_EQ(ReadLines(PathOf("crcr.txt")), (std::vector<std::string>{"x", ""}));
}

TEST_F(SequentialFile, ReadLinesKeepsBytesAsTheyStand) {
    const std::string bytes = std::string("caf\xC3\xA9\t\x01", 7) + std::string(1, '\0') + "z";
    WriteLines(PathOf("bytes.txt"), {bytes});
    EXPECT_EQ(ReadLines(PathOf("bytes.txt")), std::vector<std::string>{bytes});
}

TEST_F(SequentialFile, ReadLinesOfAMissingFileFailsWithFileNotFound) {
    ExpectFileError([&] { ReadLines(PathOf("missing.txt")); }, 53, "File not found");
    ExpectFileError([&] { ReadLines(""); }, 53, "File not found");
}

TEST_F(SequentialFile, ReadLinesOfADirectoryFailsWithAccessError) {
    ExpectFileError([&] { ReadLines(dir_.string()); }, 75, "Path/File access error");
}

TEST_F(SequentialFile, WritingIntoAMissingFolderFailsWithPathNotFound) {
    ExpectFileError([&] { WriteLines(PathOf("no/such/dir.txt"), {"x"}); }, 76, "Path not found");
    ExpectFileError([&] { AppendLines(PathOf("no/such/dir.txt"), {"x"}); }, 76, "Path not found");
    EXPECT_FALSE(fs::exists(PathOf("no")));
}

TEST_F(SequentialFile, WritingOverADirectoryFailsWithAccessError) {
    fs::create_directories(PathOf("sub"));
    ExpectFileError([&] { WriteLines(PathOf("sub"), {"x"}); }, 75, "Path/File access error");
}

TEST_F(SequentialFile, FileCanOpenIsTrueOnlyForAnExistingReadableFile) {
    EXPECT_FALSE(FileCanOpen(PathOf("missing.txt")));
    EXPECT_FALSE(FileCanOpen(""));
    EXPECT_FALSE(FileCanOpen(dir_.string()));
    WriteBytes("there.txt", "");
    EXPECT_TRUE(FileCanOpen(PathOf("there.txt")));
}

TEST_F(SequentialFile, APipeOrADeviceIsNoFileToReadAndNeverKeepsTheReaderWaiting) {
    ASSERT_EQ(mkfifo(PathOf("pipe").c_str(), 0600), 0);
    EXPECT_FALSE(FileCanOpen(PathOf("pipe")));
    ExpectFileError([&] { ReadLines(PathOf("pipe")); }, 75, "Path/File access error");
    EXPECT_FALSE(FileCanOpen("/dev/zero"));
}

TEST_F(SequentialFile, AnUnreadableFileCannotBeOpened) {
    if (::geteuid() == 0) GTEST_SKIP() << "the superuser reads every file";
    WriteBytes("secret.txt", "1,2\r\n");
    fs::permissions(PathOf("secret.txt"), fs::perms::none);
    EXPECT_FALSE(FileCanOpen(PathOf("secret.txt")));
}

TEST_F(SequentialFile, SplitLinesTakesEveryKindOfLineEnd) {
    EXPECT_EQ(SplitLines("a\r\nb\nc\rd"), (std::vector<std::string>{"a", "b", "c", "d"}));
    EXPECT_EQ(SplitLines("a\r\n"), (std::vector<std::string>{"a"}));
    EXPECT_EQ(SplitLines("\r\n\r\n"), (std::vector<std::string>{"", ""}));
    EXPECT_EQ(SplitLines("\n\r"), (std::vector<std::string>{"", ""}));  // LF then a lone CR: two ends
    EXPECT_TRUE(SplitLines("").empty());
}

TEST_F(SequentialFile, WrittenLinesReadBackTheSame) {
    const std::vector<std::string> lines{"Colonna 1", "", "  spaced  ", "2,3,5"};
    WriteLines(PathOf("round.txt"), lines);
    EXPECT_EQ(ReadLines(PathOf("round.txt")), lines);
}

}  // namespace
}  // namespace TabulonLib12
