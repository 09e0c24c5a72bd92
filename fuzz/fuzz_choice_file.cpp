// The column-choice file's reading on arbitrary bytes: its lines, the choice they give (the last
// line) and the test of a column index against that choice. Besides crashes, sanitizer findings
// and hangs, it checks that:
// - no line holds a CR or an LF, and the lines are the bytes with their line ends taken out;
// - there are as many lines as line ends (CR LF counting once), and one more when the bytes end
//   without one;
// - an index is in the choice exactly when one of its comma-separated pieces is that index's
//   decimal text;
// - the choice written as the chooser writes it (the list and CR LF, replacing the file whole)
//   reads back from the file as the same choice.
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/host/file_access.h"
#include "platform/host/sequential_file.h"
#include "platform/runtime/error.h"
#include "platform/runtime/text.h"

using namespace TabulonLib12;

namespace {

[[noreturn]] void Fail(const char* what, std::string_view detail) {
    std::fprintf(stderr, "fuzz_choice_file: %s: %.*s\n", what, static_cast<int>(std::min<size_t>(detail.size(), 400)),
                 detail.data());
    std::abort();
}

std::string choiceFile;

size_t LineEnds(std::string_view bytes) {
    size_t ends = 0;
    for (size_t i = 0; i < bytes.size(); ++i) {
        if (bytes[i] == '\n') ++ends;
        if (bytes[i] == '\r') {
            ++ends;
            if (i + 1 < bytes.size() && bytes[i + 1] == '\n') ++i;
        }
    }
    return ends;
}

std::vector<std::string_view> Pieces(std::string_view list) {
    std::vector<std::string_view> pieces;
    size_t start = 0;
    for (size_t comma; (comma = list.find(',', start)) != std::string_view::npos; start = comma + 1)
        pieces.push_back(list.substr(start, comma - start));
    pieces.push_back(list.substr(start));
    return pieces;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    char pattern[] = "/tmp/fuzz_choice_XXXXXX";
    if (mkdtemp(pattern) == nullptr) Fail("no temporary folder", "");
    choiceFile = std::string(pattern) + "/scelta.txt";
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::vector<std::string> lines = SplitLines(bytes);

    std::string joined, stripped;
    for (const std::string& line : lines) {
        if (line.find_first_of("\r\n") != std::string::npos) Fail("a line holds a line end", line);
        joined += line;
    }
    for (char c : bytes)
        if (c != '\r' && c != '\n') stripped += c;
    if (joined != stripped) Fail("the lines are not the bytes without their line ends", bytes);
    const bool openEnd = !bytes.empty() && bytes.back() != '\r' && bytes.back() != '\n';
    if (lines.size() != LineEnds(bytes) + (openEnd ? 1 : 0)) Fail("the lines do not match the line ends", bytes);

    const std::string choice = lines.empty() ? std::string() : lines.back();
    const std::vector<std::string_view> pieces = Pieces(choice);
    for (int column = 0; column < 64; ++column) {
        const std::string text = std::to_string(column);
        bool expected = false;
        for (std::string_view piece : pieces) expected = expected || piece == text;
        if (ListHolds(choice, text) != expected) Fail("the choice's test of an index is wrong", choice);
    }

    if (choice.empty()) return 0;
    try {
        ReplaceFileAtomically(choiceFile, choice + "\r\n", "Column choice file");
        const std::vector<std::string> back = SplitLines(ReadWholeFile(choiceFile, 1u << 24, "Column choice file"));
        if (back.size() != 1 || back[0] != choice) Fail("the written choice reads back as another", choice);
    } catch (const Error& e) {
        Fail("the choice cannot be written and read back", e.what());
    }
    return 0;
}
