// The form file reader on arbitrary bytes. Besides crashes, sanitizer findings and hangs, it
// checks that:
// - a text that is refused is refused with an Error of the file kinds (File, InvalidValue, or
//   OutOfMemory), whose description names the text it came from; no other exception leaves
//   FromText;
// - a text that is read is a form that can be saved: ToText does not fail;
// - the saved text reads back as the same form, and saves again as the same bytes.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "persistence/form_file.h"
#include "platform/runtime/error.h"

using namespace TabulonLib12;

namespace {

[[noreturn]] void Fail(const char* what, std::string_view detail) {
    std::fprintf(stderr, "fuzz_form_file: %s: %.*s\n", what, static_cast<int>(std::min<size_t>(detail.size(), 400)),
                 detail.data());
    std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    FormFile form("unread");
    try {
        form = FormFile::FromText(text, "fuzz");
    } catch (const Error& e) {
        if (e.kind() != ErrorKind::File && e.kind() != ErrorKind::InvalidValue && e.kind() != ErrorKind::OutOfMemory) {
            Fail("a refusal of another kind", e.what());
        }
        if (e.description().rfind("Form file \"fuzz\"", 0) != 0) Fail("a refusal that does not name the text", e.what());
        return 0;
    }

    std::string saved;
    try {
        saved = form.ToText();
    } catch (const Error& e) {
        Fail("a form that was read cannot be saved", e.what());
    }
    FormFile again("unread");
    try {
        again = FormFile::FromText(saved, "saved");
    } catch (const Error& e) {
        Fail("a saved form does not read back", e.what());
    }
    if (!(again == form)) Fail("a saved form reads back as another form", saved);
    if (again.ToText() != saved) Fail("a saved form saves again as other bytes", saved);
    return 0;
}
