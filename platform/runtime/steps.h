#pragma once
// Steps: the resume-next mode of one routine. Each statement that may fail runs as a step; a
// failing step is skipped, the routine goes on with the next one, and the routine's first
// failure stays pending until the routine itself tests or clears it. A runner is a local of the
// routine that owns it, so a failure never leaks from one routine into another.
//
// A failed allocation counts as a failing step (error 7, "Out of memory"): a routine that runs
// step by step meets an exhausted memory as any other failure of a statement.
#include <new>
#include <optional>
#include <string>

#include "platform/runtime/error.h"

namespace TabulonLib12 {

class Steps {
public:
    // Runs `step`; answers whether it succeeded. An Error or an allocation failure is kept when
    // no earlier one is pending; any other exception passes.
    template <class F>
    bool operator()(F&& step) {
        try {
            step();
            return true;
        } catch (const Error& e) {
            Keep(e);
        } catch (const std::bad_alloc&) {
            outOfMemory_ = true;
            Keep(Error::OutOfMemory());
        }
        return false;
    }

    // Whether a step ran out of memory, whatever failure is pending.
    bool RanOutOfMemory() const { return outOfMemory_; }

    // Whether a failure with a number of at least 1 is pending.
    bool Pending() const { return first_.has_value() && first_->number() >= 1; }
    const std::optional<Error>& Failure() const { return first_; }
    std::string Description() const { return first_ ? first_->description() : std::string(); }
    void Clear() { first_.reset(); }
    // Keeps `e` as the pending failure unless one is pending already.
    void Keep(const Error& e) {
        if (!first_) first_ = e;
    }

private:
    std::optional<Error> first_;
    bool outOfMemory_ = false;
};

}  // namespace TabulonLib12
