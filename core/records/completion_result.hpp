// Whether a focus session achieved its intended outcome.
#pragma once

#include <quillmere/records/base/enumeration.hpp>

namespace quillmere {

enum class CompletionResult { yes, half, no };

/// These texts are capitalised, unlike those of the other enumerations.
template <>
struct EnumerationTable<CompletionResult> {
    static constexpr auto rows = std::to_array<RawText<CompletionResult>>({
        {CompletionResult::yes, "Yes"},
        {CompletionResult::half, "Half"},
        {CompletionResult::no, "No"},
    });
};

}  // namespace quillmere
