// Error: the one exception type. Number, source and description are what a host sees in its error object.
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>
#include <utility>

namespace qor {

/// The source of errors that the library itself raises.
inline constexpr std::string_view kLibraryName = "QORArApRpt";

class Error : public std::exception {
 public:
    Error(std::int32_t number, std::string source, std::string description)
        : number_(number), source_(std::move(source)), description_(std::move(description)) {}

    std::int32_t number() const noexcept { return number_; }
    const std::string& source() const noexcept { return source_; }
    const std::string& description() const noexcept { return description_; }
    const char* what() const noexcept override { return description_.c_str(); }

 private:
    std::int32_t number_;
    std::string source_;
    std::string description_;
};

/// The standard automation errors that the library raises, by their numbers.
enum class Automation : std::int32_t {
    InvalidCall = 5,             // a value outside what the routine takes
    Overflow = 6,                // a number that the target type cannot hold
    SubscriptOutOfRange = 9,     // an index outside a list
    TypeMismatch = 13,           // a value that cannot become the type
    ObjectNotSet = 91,           // a member of no object
    InvalidUseOfNull = 94,       // Null where a value is needed
    InvalidPropertyValue = 380,  // a control does not take the value
    AlreadyShown = 400,          // the form is on the screen already
    ObjectRequired = 424,        // a member of something that is no object
    CannotCreate = 429,          // no component of that name
    NoSuchMember = 438,          // the object has no such member
    ArgumentNotOptional = 449,   // an argument is missing
    WrongArguments = 450,        // too many arguments
    KeyAlreadyThere = 457,       // the key stands in the collection already
    NoCurrentRecord = 3021,      // the record set stands on no row
    NoSuchField = 3265,          // the record set has no such field
};

/// The standard description of an automation error, in the system's language.
std::string_view Describe(Automation error);

[[noreturn]] void Raise(Automation error);

/// Runs a step whose failure is to be skipped, as the system does by design at the call site.
/// Answers whether the step ran to its end.
template <class Step>
bool IgnoringErrors(Step&& step) {
    try {
        std::forward<Step>(step)();
        return true;
    } catch (const Error&) {
        return false;
    }
}

}  // namespace qor
