#include "lookback/json_parts.hpp"

#include "lookback/day_text.hpp"
#include "lookback/words.hpp"

#include <nlohmann/json.hpp>
#include <quillmere/records/base/checked_arithmetic.hpp>

namespace quillmere::lookback {

base::Json dayJson(const std::optional<figures::Day>& day)
{
    return day ? base::Json(labelOf(figures::Unit::day, *day)) : base::Json(nullptr);
}

base::Json meanJson(const figures::Ratings& ratings)
{
    const std::optional<double> mean = ratings.mean();
    return mean ? base::Json(*mean) : base::Json(nullptr);
}

base::Json completionsJson(const figures::Completions& completions)
{
    base::Json json;
    for (const CompletionResult result : allCases<CompletionResult>()) {
        json[completionText(result)] = completions[static_cast<std::size_t>(result)];
    }
    return json;
}

base::Json secondsJson(const std::optional<double>& seconds)
{
    return seconds ? base::Json(wholeSeconds(*seconds)) : base::Json(nullptr);
}

}  // namespace quillmere::lookback
