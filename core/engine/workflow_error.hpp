// The error with which the engine refuses an operation.
#pragma once

#include <exception>
#include <functional>
#include <string>
#include <string_view>

namespace quillmere {

/// Thrown by the operations of WorkflowEngine, always before the state is changed. Two errors are equal when
/// their cases are.
class WorkflowError : public std::exception {
public:
    enum class Case {
        invalidTransition,
        missingBlock,  ///< for programs; no operation throws it
        missingSessionPlan,
        nextSessionPlanRequired,
        ratingOutOfRange,
        invalidDuration,
    };
    using enum Case;

    // NOLINTNEXTLINE(google-explicit-constructor): a case converts to its error, also in comparisons.
    WorkflowError(Case reason) noexcept : reason_(reason) {}

    Case reason() const noexcept { return reason_; }

    /// The name of the case as in the code, for output that programs read.
    std::string_view caseName() const noexcept;

    /// One sentence for the person.
    std::string errorDescription() const;
    const char* what() const noexcept override;

    friend bool operator==(const WorkflowError& left, const WorkflowError& right) noexcept
    {
        return left.reason_ == right.reason_;
    }

private:
    Case reason_;
};

}  // namespace quillmere

template <>
struct std::hash<quillmere::WorkflowError> {
    std::size_t operator()(const quillmere::WorkflowError& error) const noexcept
    {
        return std::hash<quillmere::WorkflowError::Case>()(error.reason());
    }
};
