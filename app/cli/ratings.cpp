#include "cli/ratings.hpp"

#include <string>
#include <variant>

namespace quillmere::cli {

bool isRating(const work::RecordField<SessionPlan>& field)
{
    return std::holds_alternative<std::int64_t SessionPlan::*>(field.member);
}

void requireRatings(const RecordOptions<SessionPlan>& options)
{
    std::string missing;
    for (const work::RecordField<SessionPlan>& field : work::planFields) {
        if (isRating(field) && !options.wasAsked() && !options.given(field.prompt.name)) {
            missing += (missing.empty() ? "" : " and ") + options.optionName(field.prompt.name);
        }
    }
    if (!missing.empty()) {
        throw ProgramError(ExitCode::usage,
                           "The session needs your own rating: say " + missing + ", 1 to 5.");
    }
}

}  // namespace quillmere::cli
