#include "cli/doctor_report.hpp"

#include "base/text/columns.hpp"
#include "base/text/count.hpp"
#include "base/text/sanitize.hpp"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <ostream>
#include <string>

namespace quillmere::cli {
namespace {

using doctor::Check;
using doctor::Finding;
using doctor::Verdict;

// The columns of the page: margin, verdict, title, text.
constexpr std::size_t usualWidth = 80;
constexpr std::size_t verdictColumns = 7;
constexpr std::size_t titleColumns = 13;
constexpr std::size_t mostTextColumns = 72;
constexpr std::size_t leastTextColumns = 20;

/// A text or a command that there may not be.
base::Json textOrNull(const std::string& text) { return text.empty() ? base::Json() : base::Json(text); }

std::string counted(const std::vector<Check>& checks, Verdict verdict)
{
    const auto count = std::count_if(checks.begin(), checks.end(), [verdict](const Check& check) {
        return check.finding.verdict == verdict;
    });
    return base::countText(count, "thing");
}

std::string summary(const std::vector<Check>& checks)
{
    switch (doctor::worstOf(checks)) {
        case Verdict::good: return "Everything is good.";
        case Verdict::look: return "Nothing is wrong; " + counted(checks, Verdict::look) + " to look at.";
        case Verdict::wrong: break;
    }
    const auto wrong = counted(checks, Verdict::wrong);
    return wrong + (wrong == "1 thing" ? " is" : " are") + " wrong.";
}

std::string styled(std::string_view text, Verdict verdict, const base::Style& style)
{
    switch (verdict) {
        case Verdict::good: return style.dimmed(text);
        case Verdict::look: return style.accented(text, QuillmereDesign::Accent::plan);
        case Verdict::wrong: break;
    }
    return style.accented(text, QuillmereDesign::Accent::focus);
}

std::string spaces(std::size_t count) { return std::string(count, ' '); }

std::string filledUp(std::string_view text, std::size_t columns)
{
    return std::string(text) + spaces(columns - text.size());
}

/// The lines of a finding: its text, its remedy, its command.
std::vector<std::string> linesOf(const Finding& finding, std::size_t columns)
{
    std::vector<std::string> lines = base::wrapped(base::sanitized(finding.text), columns);
    if (!finding.remedy.empty()) {
        for (std::string& line : base::wrapped(base::sanitized(finding.remedy), columns)) {
            lines.push_back(std::move(line));
        }
    }
    if (!finding.command.empty()) {
        lines.push_back("$ " + base::sanitized(finding.command));
    }
    return lines;
}

}  // namespace

base::Json doctorJson(const std::vector<Check>& checks)
{
    base::Json list = base::Json::array();
    for (const Check& check : checks) {
        list.push_back({{"check", check.name},
                        {"verdict", doctor::wordOf(check.finding.verdict)},
                        {"finding", check.finding.text},
                        {"remedy", textOrNull(check.finding.remedy)},
                        {"command", textOrNull(check.finding.command)}});
    }
    return {{"verdict", doctor::wordOf(doctor::worstOf(checks))}, {"checks", list}};
}

void printDoctor(std::ostream& out, const std::vector<Check>& checks, std::size_t width,
                 const base::Style& style)
{
    const std::size_t margin = width < usualWidth ? 2 : 4;
    const std::size_t indent = margin + verdictColumns + titleColumns;
    const std::size_t columns =
        std::clamp(width > indent ? width - indent : 0, leastTextColumns, mostTextColumns);
    out << spaces(margin) << styled(summary(checks), doctor::worstOf(checks), style) << "\n\n";
    for (const Check& check : checks) {
        const Verdict verdict = check.finding.verdict;
        out << spaces(margin) << styled(filledUp(doctor::wordOf(verdict), verdictColumns), verdict, style)
            << filledUp(check.title, titleColumns);
        bool isFirst = true;
        for (const std::string& line : linesOf(check.finding, columns)) {
            out << (isFirst ? "" : spaces(indent)) << line << '\n';
            isFirst = false;
        }
    }
}

}  // namespace quillmere::cli
