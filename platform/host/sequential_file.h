#pragma once
// Sequential text files: the column-choice file and the column report. Lines are written with
// CR LF; reading takes CR LF, LF or a lone CR as a line end. Texts are bytes as they stand.
#include <string>
#include <vector>

namespace TabulonLib12 {

// True when the file exists and can be opened for reading.
bool FileCanOpen(const std::string& path);
// All lines of the file; a missing or unreadable file fails with Error (53 "File not found",
// 75 "Path/File access error").
std::vector<std::string> ReadLines(const std::string& path);
// Writes the lines anew (output mode) or adds them at the end (append mode), creating the file.
void WriteLines(const std::string& path, const std::vector<std::string>& lines);
void AppendLines(const std::string& path, const std::vector<std::string>& lines);

}  // namespace TabulonLib12
