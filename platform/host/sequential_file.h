#pragma once
// Sequential text files: the column-choice file and the column report. Lines are written with
// CR LF; reading takes CR LF, LF or a lone CR as a line end. Texts are bytes as they stand.
#include <string>
#include <string_view>
#include <vector>

namespace TabulonLib12 {

// True when the path names a regular file that can be opened for reading (a pipe or a device is
// no file to read: it could keep a reader waiting).
bool FileCanOpen(const std::string& path);
// All lines of the file; a missing or unreadable file fails with Error (53 "File not found",
// 75 "Path/File access error", which a pipe, a device or a folder also gives).
std::vector<std::string> ReadLines(const std::string& path);
// The lines of a text: CR LF, LF and a lone CR each end a line; a last line without its end
// counts, a final line end adds no empty line.
std::vector<std::string> SplitLines(std::string_view bytes);
// Writes the lines anew (output mode) or adds them at the end (append mode), creating the file.
void WriteLines(const std::string& path, const std::vector<std::string>& lines);
void AppendLines(const std::string& path, const std::vector<std::string>& lines);

}  // namespace TabulonLib12
