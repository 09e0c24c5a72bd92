// Whole-file reads through one descriptor (never blocking on a pipe), and the atomic
// replacement: a temporary file beside the target, fsync, rename, fsync of the folder. A guard
// removes the temporary file on every path that does not reach the rename.
#include "platform/host/file_access.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <system_error>

#include "platform/runtime/error.h"

namespace TabulonLib12 {

namespace {

std::string SystemMessage(int err) { return std::error_code(err, std::generic_category()).message(); }

// The classic file error number for a system error: no room, no permission, no such path, a bad
// name, or a device failure for anything else.
int FileErrorNumber(int err, bool reading) {
    switch (err) {
        case ENOSPC:
        case EDQUOT:
        case EFBIG: return 61;  // Disk full
        case EACCES:
        case EPERM:
        case EROFS:
        case EISDIR:
        case ETXTBSY:
        case ELOOP: return 75;  // Path/File access error
        case ENOENT: return reading ? 53 : 76;  // File not found / Path not found
        case ENOTDIR: return 76;
        case ENAMETOOLONG: return 52;  // Bad file name or number
        default: return 57;  // Device I/O error
    }
}

class Descriptor {
public:
    explicit Descriptor(int fd) : fd_(fd) {}
    ~Descriptor() {
        if (fd_ >= 0) ::close(fd_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int get() const { return fd_; }
    // Closes now and answers the error of close, or 0.
    int Close() {
        const int fd = fd_;
        fd_ = -1;
        return ::close(fd) == 0 ? 0 : errno;
    }

private:
    int fd_;
};

// --- reading ---

[[noreturn]] void ReadFailure(const std::string& subject, int number, const std::string& why) {
    throw Error(ErrorKind::File, number, subject + " cannot be read: " + why);
}

// --- saving ---

// A save that failed: the target was not touched.
[[noreturn]] void SaveFailure(const std::string& subject, int number, const std::string& why) {
    throw Error(ErrorKind::File, number, subject + " was not saved (the file on disk is as it was): " + why);
}

[[noreturn]] void SaveFailure(const std::string& subject, const std::string& doing, int err) {
    SaveFailure(subject, FileErrorNumber(err, false), doing + ": " + SystemMessage(err));
}

// The temporary file: removed when the save does not reach its rename.
class TemporaryFile {
public:
    TemporaryFile(std::string path, int fd) : path_(std::move(path)), descriptor_(fd) {}
    ~TemporaryFile() {
        if (!kept_) ::unlink(path_.c_str());
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    const std::string& path() const { return path_; }
    Descriptor& descriptor() { return descriptor_; }
    void Keep() { kept_ = true; }

private:
    std::string path_;
    Descriptor descriptor_;
    bool kept_ = false;
};

std::unique_ptr<TemporaryFile> CreateTemporaryBeside(const std::filesystem::path& target, const std::string& subject) {
    static std::atomic<unsigned> counter{0};
    const std::filesystem::path folder = target.has_parent_path() ? target.parent_path() : std::filesystem::path(".");
    // A hidden name beside the target, short enough for the folder's name limit.
    std::string stem = target.filename().string().substr(0, 160);
    for (int attempt = 0; attempt < 100; ++attempt) {
        const std::string name = "." + stem + "." + std::to_string(::getpid()) + "-" +
                                 std::to_string(counter.fetch_add(1)) + ".tmp";
        const std::string path = (folder / name).string();
        const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0666);
        if (fd >= 0) return std::make_unique<TemporaryFile>(path, fd);
        const int err = errno;
        if (err != EEXIST) SaveFailure(subject, "cannot create a temporary file in \"" + folder.string() + "\"", err);
    }
    SaveFailure(subject, 75, "no free name for a temporary file in \"" + folder.string() + "\"");
}

}  // namespace

std::string ReadWholeFile(const std::string& path, size_t maxBytes, const std::string& subject) {
    if (path.empty()) ReadFailure(subject, 53, "the path is empty");
    // O_NONBLOCK: opening a pipe would otherwise wait for a writer; a pipe is refused below.
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
    if (fd < 0) {
        const int err = errno;
        ReadFailure(subject, FileErrorNumber(err, true), SystemMessage(err));
    }
    Descriptor descriptor(fd);
    struct stat st {};
    if (::fstat(fd, &st) != 0) {
        const int err = errno;
        ReadFailure(subject, FileErrorNumber(err, true), SystemMessage(err));
    }
    if (S_ISDIR(st.st_mode)) ReadFailure(subject, 75, "it is a folder");
    if (!S_ISREG(st.st_mode)) ReadFailure(subject, 75, "it is not a regular file");
    const auto tooLarge = [&] {
        ReadFailure(subject, 321,
                    "it is larger than " + std::to_string(maxBytes >> 20) + " MiB, more than any form file");
    };
    if (static_cast<unsigned long long>(st.st_size) > maxBytes) tooLarge();

    std::string bytes;
    bytes.resize(static_cast<size_t>(st.st_size) + 1);  // one more: a file that grew shows it
    size_t used = 0;
    while (true) {
        if (used == bytes.size()) {
            if (bytes.size() > maxBytes) tooLarge();
            bytes.resize(std::min(bytes.size() * 2 + 4096, maxBytes + 1));
        }
        const ssize_t n = ::read(fd, bytes.data() + used, bytes.size() - used);
        if (n < 0) {
            const int err = errno;
            if (err == EINTR) continue;
            ReadFailure(subject, FileErrorNumber(err, true), SystemMessage(err));
        }
        if (n == 0) break;
        used += static_cast<size_t>(n);
        if (used > maxBytes) tooLarge();
    }
    bytes.resize(used);
    return bytes;
}

void ReplaceFileAtomically(const std::string& path, std::string_view bytes, const std::string& subject) {
    if (path.empty()) SaveFailure(subject, 75, "the path is empty");

    // The file to replace: the target, or the file a link as the target names.
    std::string target = path;
    bool existing = false;
    struct stat st {};
    if (::lstat(path.c_str(), &st) == 0) {
        if (S_ISLNK(st.st_mode)) {
            std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.c_str(), nullptr), &std::free);
            if (!real) {
                const int err = errno;
                SaveFailure(subject, "cannot follow the link", err);
            }
            target = real.get();
            if (::stat(target.c_str(), &st) != 0) {
                const int err = errno;
                SaveFailure(subject, "cannot follow the link", err);
            }
        }
        if (S_ISDIR(st.st_mode)) SaveFailure(subject, 75, "it is a folder");
        if (!S_ISREG(st.st_mode)) {
            SaveFailure(subject, 75, "it is not a regular file (a device, a pipe or a socket); a form is saved only as a regular file");
        }
        existing = true;
    } else if (const int err = errno; err != ENOENT) {
        SaveFailure(subject, "cannot reach it", err);
    }

    auto temporary = CreateTemporaryBeside(std::filesystem::path(target), subject);
    const int fd = temporary->descriptor().get();
    if (existing) {
        if (::fchmod(fd, st.st_mode & 07777) != 0) {
            const int err = errno;
            SaveFailure(subject, "cannot give the new file the old one's permissions", err);
        }
        // The old owner where the process may give it (a saving superuser); elsewhere the new
        // file is the saver's, as any new file is.
        if (st.st_uid != ::geteuid() || st.st_gid != ::getegid()) {
            [[maybe_unused]] const int ignored = ::fchown(fd, st.st_uid, st.st_gid);
        }
    }

    const char* p = bytes.data();
    size_t left = bytes.size();
    while (left > 0) {
        const ssize_t n = ::write(fd, p, left);
        if (n < 0) {
            const int err = errno;
            if (err == EINTR) continue;
            SaveFailure(subject, "cannot write \"" + temporary->path() + "\"", err);
        }
        if (n == 0) SaveFailure(subject, "cannot write \"" + temporary->path() + "\"", EIO);
        p += n;
        left -= static_cast<size_t>(n);
    }
    if (::fsync(fd) != 0) {
        const int err = errno;
        SaveFailure(subject, "cannot flush \"" + temporary->path() + "\" to the disk", err);
    }
    if (const int err = temporary->descriptor().Close(); err != 0) {
        SaveFailure(subject, "cannot close \"" + temporary->path() + "\"", err);
    }
    if (::rename(temporary->path().c_str(), target.c_str()) != 0) {
        const int err = errno;
        SaveFailure(subject, "cannot rename \"" + temporary->path() + "\" over it", err);
    }
    temporary->Keep();

    // The rename is durable once the folder is flushed. The new file is in place whatever this
    // answers, so a failure here is not the save's.
    const std::filesystem::path folder = std::filesystem::path(target).has_parent_path()
                                             ? std::filesystem::path(target).parent_path()
                                             : std::filesystem::path(".");
    const int dir = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (dir >= 0) {
        ::fsync(dir);
        ::close(dir);
    }
}

}  // namespace TabulonLib12
