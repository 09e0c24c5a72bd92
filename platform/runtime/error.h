#pragma once
// The one exception type of the project. Its kind tells the role of the failure, its number is
// the classic runtime error number that the control's messages and tests speak of, and its
// description is the text a message box shows.
#include <cstdint>
#include <stdexcept>
#include <string>

namespace TabulonLib12 {

enum class ErrorKind {
    OutOfBounds,    // 9: subscript out of range
    Overflow,       // 6: a value does not fit the target type
    TypeMismatch,   // 13: text that does not convert
    MissingObject,  // 91: an object reference that is not set
    InvalidValue,   // 380: a property refused the value
    Database,       // the engine's own failure; number from the engine
    File,           // 53 and friends: sequential files
    OutOfMemory,    // 7: an allocation failed
};

class Error : public std::runtime_error {
public:
    Error(ErrorKind kind, int32_t number, const std::string& description)
        : std::runtime_error(description), kind_(kind), number_(number) {}

    ErrorKind kind() const noexcept { return kind_; }
    int32_t number() const noexcept { return number_; }
    std::string description() const { return what(); }

    static Error OutOfBounds() { return {ErrorKind::OutOfBounds, 9, "Subscript out of range"}; }
    static Error Overflow() { return {ErrorKind::Overflow, 6, "Overflow"}; }
    static Error TypeMismatch() { return {ErrorKind::TypeMismatch, 13, "Type mismatch"}; }
    static Error MissingObject() {
        return {ErrorKind::MissingObject, 91, "Object variable or With block variable not set"};
    }
    static Error InvalidValue() { return {ErrorKind::InvalidValue, 380, "Invalid property value"}; }
    static Error OutOfMemory() { return {ErrorKind::OutOfMemory, 7, "Out of memory"}; }

private:
    ErrorKind kind_;
    int32_t number_;
};

}  // namespace TabulonLib12
