// Whether a focus session reached what it was meant to.
#pragma once

#include <quillmere/records/base/enumeration.hpp>

namespace quillmere {

enum class CompletionResult { yes, half, no };

/// The stored texts are capitalised, unlike those of the other enumerations.
template <>
struct EnumerationTable<CompletionResult> {
    static constexpr auto rows = std::to_array<RawText<CompletionResult>>({
        {CompletionResult::yes, "Yes"},
        {CompletionResult::half, "Half"},
        {CompletionResult::no, "No"},
    });
};

}  // namespace quillmere
