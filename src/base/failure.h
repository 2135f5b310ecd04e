#pragma once

#include <exception>

#include "base/text.h"

namespace rulemesh {

/// The kinds of failure that come out of the control, with the numbers that a host sees.
enum class FailureCode : int {
    InvalidProcedureCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    TypeMismatch = 13,
    FileNotFound = 53,
    PathFileAccess = 75,
    PathNotFound = 76,
    ObjectVariableNotSet = 91,
    InvalidPropertyValue = 380,
    InvalidPropertyArrayIndex = 381,
    IndexOutOfBounds = 35600,
};

/// The one exception type of the control: a number for the host's program and a description for a person, which says
/// what was meant, where, and which value stood in the way.
class Failure : public std::exception {
public:
    explicit Failure(FailureCode code);
    Failure(FailureCode code, Text description);

    [[nodiscard]] FailureCode Code() const noexcept { return code_; }
    [[nodiscard]] int Number() const noexcept { return static_cast<int>(code_); }
    [[nodiscard]] const Text& Description() const noexcept { return description_; }

    /// The description as UTF-8.
    [[nodiscard]] const char* what() const noexcept override { return what_.c_str(); }

private:
    FailureCode code_;
    Text description_;
    std::string what_;
};

/// Runs an action whose failure would not say by itself what was meant: it comes out with `what()` and a colon in front
/// of its description.
template <typename What, typename Action> auto Telling(What what, Action action)
{
    try {
        return action();
    } catch (const Failure& failure) {
        throw Failure(failure.Code(), Text(what()) + u": " + failure.Description());
    }
}

/// A value in a description: between quotes, a long one cut short.
[[nodiscard]] Text Quoted(TextView value);

} // namespace rulemesh
