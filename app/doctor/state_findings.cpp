#include "doctor/state_findings.hpp"

#include "agent/asking.hpp"
#include "base/text/count.hpp"
#include "base/text/local_time.hpp"
#include "doctor/files.hpp"
#include "doctor/words.hpp"
#include "workspace/summaries.hpp"

#include <quillmere/records/json/date_text.hpp>
#include <quillmere/store/state_store.hpp>

#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace quillmere::doctor {
namespace {

struct DatedRecord {
    Instant at;
    std::string name;
};

void keepNewer(std::optional<DatedRecord>& newest, Instant at, const char* name)
{
    if (!newest || at > newest->at) {
        newest = DatedRecord{.at = at, .name = name};
    }
}

/// The newest of all records; absent when there is none.
std::optional<DatedRecord> newestRecord(const Examined& examined)
{
    std::optional<DatedRecord> newest;
    if (const std::optional<QuillmereState>& state = examined.reading.state) {
        keepNewer(newest, state->updatedAt, "The last change");
        for (const AgentQuestion& question : state->agentQuestions) {
            keepNewer(newest, question.createdAt, "A question");
            keepNewer(newest, question.answeredAt.value_or(question.createdAt), "An answer");
        }
    }
    for (const workspace::Version& version : examined.subject.workspace.versions().list()) {
        keepNewer(newest, version.savedAt, "A version");
    }
    return newest;
}

}  // namespace

std::optional<Finding> stateFinding(const Examined& examined)
{
    if (!examined.probe) {
        return std::nullopt;
    }
    const Subject& subject = examined.subject;
    const StateReading& reading = examined.reading;
    const std::string file = stateFile(subject).string();
    if (reading.failure) {
        return reading.isSpoilt ? wrong(sentence(*reading.failure), "Bring an earlier version back.",
                                        commandLine(subject, "restore"))
                                : wrong(sentence("The state cannot be read: " + *reading.failure),
                                        "Let yourself read the file, or move away what lies in its place.");
    }
    if (!reading.exists) {
        return look("There is no state yet: " + file + " does not exist.", "The first change makes it.",
                    commandLine(subject, "plan"));
    }
    return good(
        "It can be read: " + base::countText(std::ssize(reading.state->blockHistory), "finished block") +
        ", " + sizeText(reading.size) + ".");
}

std::optional<Finding> summariesFinding(const Examined& examined)
{
    const Subject& subject = examined.subject;
    if (!examined.reading.state) {
        return std::nullopt;
    }
    const StateStore store(subject.directory(), StateStore::renameReplacing);
    const workspace::WidgetPlace place(subject.workspace.widgetPlace());
    if (workspace::summariesAgree(store, place, *examined.reading.state)) {
        return good("Both say what follows from the state.");
    }
    std::string files;
    for (const std::filesystem::path& file : summaryFiles(subject)) {
        files += (files.empty() ? "" : " or ") + file.string();
    }
    return look(files + " does not say what follows from the state.", "Have them written again.",
                commandLine(subject, "tick"));
}

std::optional<Finding> clockFinding(const Examined& examined)
{
    const Instant now = examined.subject.now;
    if (!json::hasDateText(now)) {
        return wrong(
            "The clock is outside the years 0000 to 9999, which the files can hold. Changes are refused.",
            "Set the clock.", "timedatectl");
    }
    const base::Hours hours = examined.subject.hours;
    const std::optional<DatedRecord> newest = newestRecord(examined);
    const std::string reading = "The clock shows " + base::localTextToTheSecond(now, hours);
    if (newest && newest->at > now) {
        return look(reading + ". " + newest->name +
                        " is dated after that: " + base::localTextToTheSecond(newest->at, hours) + ".",
                    "If the clock is wrong, set it. If it is right, go on: it was wrong when that was "
                    "recorded, and times in between look odd.",
                    "timedatectl");
    }
    return good(reading + (newest ? ", after everything that is recorded." : "."));
}

std::optional<Finding> agentFinding(const Examined& examined)
{
    if (examined.reading.failure) {
        return look("Agents cannot look or ask while the state cannot be used.", "Mend the state first.");
    }
    if (!examined.reading.state) {
        return good("An agent may ask: no question waits.");
    }
    const QuillmereState& state = *examined.reading.state;
    const std::size_t open = state.openQuestions().size();
    const std::string waiting =
        std::to_string(open) + " of at most " + std::to_string(agent::mostOpen) + " questions wait for you";
    try {
        agent::requireRoom(state, examined.subject.now);
    } catch (const agent::ToolRefusal&) {
        if (open >= agent::mostOpen) {
            return look("Agents cannot ask: " + waiting + ".", "Answer some of them.",
                        commandLine(examined.subject, "questions"));
        }
        return look("Agents cannot ask now: " + std::to_string(agent::mostAMinute) +
                        " questions were asked within a minute. " + waiting + ".",
                    "Wait a minute.");
    }
    return good("An agent may ask: " + waiting + ".");
}

}  // namespace quillmere::doctor
