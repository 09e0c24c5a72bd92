#pragma once
// Whole-file reads and atomic whole-file replacement: the form file and the column choice. Failures are
// Errors whose description starts with `subject` (for instance `Form file "/x/y.json"`) and says
// what went wrong in the system's words.
#include <cstddef>
#include <string>
#include <string_view>

namespace TabulonLib12 {

// The bytes of the regular file at `path`. A missing file fails with 53, a folder, a device, a
// pipe or a file that cannot be opened with 75, a read failure with 57, a file of more than
// `maxBytes` with 321. Opening never waits for a writer (a pipe is refused, not opened).
std::string ReadWholeFile(const std::string& path, size_t maxBytes, const std::string& subject);

// Replaces the file at `path` by `bytes`: a temporary file in the same folder is written,
// flushed to the disk (fsync) and renamed over the target, and the folder is flushed after.
// A target that exists must be a regular file (a link to one is followed); the new file takes
// its permissions, a new file gets 0666 less the process's umask. On failure the target is
// as it was and the temporary file is gone: no room 61, no permission or a target that is not a
// regular file 75, a missing folder 76, anything else 57.
void ReplaceFileAtomically(const std::string& path, std::string_view bytes, const std::string& subject);

}  // namespace TabulonLib12
