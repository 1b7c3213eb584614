#include "doctor/check.hpp"

#include <algorithm>
#include <utility>

namespace quillmere::doctor {

std::string_view wordOf(Verdict verdict)
{
    switch (verdict) {
        case Verdict::good: return "good";
        case Verdict::look: return "look";
        case Verdict::wrong: break;
    }
    return "wrong";
}

Finding good(std::string text) { return {.verdict = Verdict::good, .text = std::move(text)}; }

Finding look(std::string text, std::string remedy, std::string command)
{
    return {.verdict = Verdict::look,
            .text = std::move(text),
            .remedy = std::move(remedy),
            .command = std::move(command)};
}

Finding wrong(std::string text, std::string remedy, std::string command)
{
    return {.verdict = Verdict::wrong,
            .text = std::move(text),
            .remedy = std::move(remedy),
            .command = std::move(command)};
}

Verdict worstOf(const std::vector<Check>& checks)
{
    Verdict worst = Verdict::good;
    for (const Check& check : checks) {
        worst = std::max(worst, check.finding.verdict);
    }
    return worst;
}

}  // namespace quillmere::doctor
