#include "cli/candidates.hpp"

#include "base/text/columns.hpp"
#include "base/text/local_time.hpp"
#include "base/text/sanitize.hpp"
#include "cli/program.hpp"
#include "cli/record_candidates.hpp"
#include "cli/span_option.hpp"
#include "config/keys.hpp"
#include "figures/local_day.hpp"
#include "figures/span.hpp"
#include "lookback/words.hpp"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <utility>

namespace quillmere::cli {
namespace {

/// Beside a value, most terminals have room for it.
constexpr std::size_t mostDescriptionColumns = 60;

Candidates blocks(const CLI::App&, Program& program)
{
    return blockCandidates(program.workspace().look().state, program.hours());
}

Candidates records(const CLI::App&, Program& program)
{
    return sessionAndBlockCandidates(program.workspace().look().state, program.hours());
}

Candidates questions(const CLI::App&, Program& program)
{
    return questionCandidates(program.workspace().look().state);
}

/// Their times alone: reading every version takes too long while somebody types.
Candidates versions(const CLI::App&, Program& program)
{
    Candidates all;
    for (const workspace::Version& version : program.workspace().versions().list()) {
        all.push_back(
            {std::to_string(version.number), base::localTextToTheSecond(version.savedAt, program.hours())});
    }
    return all;
}

/// The models of `plan --like`.
Candidates models(const CLI::App& line, Program& program)
{
    const Candidates finished = blocks(line, program);
    Candidates all;
    if (!finished.empty()) {
        all.push_back({std::string(config::lastBlockName), finished.front().description});
    }
    for (const config::Template& fields : program.configuration().values.templates) {
        all.push_back({fields.name, "a template of the configuration"});
    }
    all.insert(all.end(), finished.begin(), finished.end());
    return all;
}

Candidates spans(const CLI::App&, Program& program)
{
    const figures::LocalCalendar calendar(static_cast<int>(program.configuration().values.dayBeginsAtHour));
    const workspace::Situation situation = program.workspace().look();
    const figures::Day today = calendar.dayOf(situation.now);
    Candidates all;
    for (const std::string& name : figures::namedSpans()) {
        all.push_back({name, ""});
    }
    const Candidates months = monthCandidates(situation.state);
    all.insert(all.end(), months.begin(), months.end());
    for (Candidate& each : all) {
        each.description = lookback::rangeText(spanOf({each.value}, today), today);
    }
    return all;
}

/// What `history` takes: a record to show, or days to list.
Candidates recordsAndSpans(const CLI::App& line, Program& program)
{
    Candidates all = records(line, program);
    for (Candidate& span : spans(line, program)) {
        all.push_back(std::move(span));
    }
    return all;
}

void addCommandsBelow(Candidates& all, const CLI::App& group, const std::string& above)
{
    for (const CLI::App* const command :
         group.get_subcommands([](const CLI::App* each) { return !each->get_group().empty(); })) {
        all.push_back({above + command->get_name(), command->get_description()});
        addCommandsBelow(all, *command, all.back().value + " ");
    }
}

Candidates commands(const CLI::App& line, Program&)
{
    Candidates all;
    addCommandsBelow(all, line, "");
    return all;
}

Candidates keys(const CLI::App&, Program&)
{
    Candidates all;
    for (const auto& key : config::keys) {
        all.push_back({std::string(key.name), std::string(key.help)});
    }
    return all;
}

struct CandidateKind {
    std::string_view typeName;
    Candidates (*candidates)(const CLI::App& line, Program& program);
};

constexpr auto kinds = std::to_array<CandidateKind>({
    {"BLOCK", blocks},
    {"RECORD", records},
    {"QUESTION", questions},
    {"VERSION", versions},
    {"MODEL", models},
    {"SPAN", spans},
    {"HISTORY", recordsAndSpans},
    {"COMMAND", commands},
    {"KEY", keys},
});

const CandidateKind* kindNamed(std::string_view typeName)
{
    const auto found = std::find_if(kinds.begin(), kinds.end(),
                                    [&](const CandidateKind& kind) { return kind.typeName == typeName; });
    return found == kinds.end() ? nullptr : &*found;
}

}  // namespace

bool isCandidateKind(std::string_view typeName) { return kindNamed(typeName) != nullptr; }

Candidates candidatesOf(std::string_view typeName, const CLI::App& line, Program& program)
{
    const CandidateKind* const kind = kindNamed(typeName);
    Candidates all = kind ? kind->candidates(line, program) : Candidates();
    // A value that must be sanitized could not be typed from what is shown.
    std::erase_if(all, [](const Candidate& each) { return base::sanitized(each.value) != each.value; });
    for (Candidate& each : all) {
        each.description = base::cutToColumns(base::sanitized(each.description), mostDescriptionColumns);
    }
    return all;
}

Candidates nextWords(const Candidates& candidates, const std::vector<std::string>& typed)
{
    std::string before;
    for (const std::string& word : typed) {
        before += word + " ";
    }
    Candidates next;
    for (const Candidate& each : candidates) {
        if (!each.value.starts_with(before)) {
            continue;
        }
        const std::string rest = each.value.substr(before.size());
        const std::string word = rest.substr(0, rest.find(' '));
        if (std::none_of(next.begin(), next.end(), [&](const Candidate& one) { return one.value == word; })) {
            next.push_back({word, word == rest ? each.description : ""});
        }
    }
    return next;
}

}  // namespace quillmere::cli
