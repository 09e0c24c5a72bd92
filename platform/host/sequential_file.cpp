// Sequential text files: whole-file reads split on any of the three line ends, and writes that
// end every line with CR LF.
#include "platform/host/sequential_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "platform/runtime/error.h"

namespace TabulonLib12 {

namespace {

Error FileNotFound() { return Error(ErrorKind::File, 53, "File not found"); }
Error AccessError() { return Error(ErrorKind::File, 75, "Path/File access error"); }
Error PathNotFound() { return Error(ErrorKind::File, 76, "Path not found"); }

bool IsExistingDirectory(const std::string& path) {
    std::error_code ec;
    return std::filesystem::is_directory(path, ec);
}

void Write(const std::string& path, const std::vector<std::string>& lines, std::ios::openmode mode) {
    if (path.empty() || IsExistingDirectory(path)) throw AccessError();
    const std::filesystem::path parent = std::filesystem::path(path).parent_path();
    std::error_code ec;
    if (!parent.empty() && !std::filesystem::is_directory(parent, ec)) throw PathNotFound();

    std::ofstream out(path, mode | std::ios::binary);
    if (!out) throw AccessError();
    for (const auto& line : lines) {
        out.write(line.data(), static_cast<std::streamsize>(line.size()));
        out.write("\r\n", 2);
    }
    out.close();
    if (out.fail()) throw AccessError();
}

// Only a regular file (a link to one included) is a file to read: a pipe or a device could keep
// a reader waiting forever, and a folder has no lines.
bool IsRegularFile(const std::string& path) {
    struct stat info {};
    return ::stat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode);
}

}  // namespace

bool FileCanOpen(const std::string& path) {
    if (path.empty() || !IsRegularFile(path)) return false;
    const int fd = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) return false;
    ::close(fd);
    return true;
}

std::vector<std::string> ReadLines(const std::string& path) {
    std::error_code ec;
    if (path.empty() || !std::filesystem::exists(path, ec)) throw FileNotFound();
    if (!IsRegularFile(path)) throw AccessError();
    std::ifstream in(path, std::ios::binary);
    if (!in) throw AccessError();
    const std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    if (in.bad()) throw AccessError();
    return SplitLines(bytes);
}

std::vector<std::string> SplitLines(std::string_view bytes) {
    std::vector<std::string> lines;
    size_t start = 0;
    size_t i = 0;
    while (i < bytes.size()) {
        const char c = bytes[i];
        if (c == '\r' || c == '\n') {
            lines.emplace_back(bytes.substr(start, i - start));
            // CR LF is one line end; a lone CR or a lone LF is one too.
            i += (c == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n') ? 2 : 1;
            start = i;
        } else {
            ++i;
        }
    }
    // A last line without its line end still counts; a final line end adds no empty line.
    if (start < bytes.size()) lines.emplace_back(bytes.substr(start));
    return lines;
}

void WriteLines(const std::string& path, const std::vector<std::string>& lines) {
    Write(path, lines, std::ios::out | std::ios::trunc);
}

void AppendLines(const std::string& path, const std::vector<std::string>& lines) {
    Write(path, lines, std::ios::out | std::ios::app);
}

}  // namespace TabulonLib12
