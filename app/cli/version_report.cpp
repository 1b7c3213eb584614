#include "cli/version_report.hpp"

#include "base/refusal.hpp"
#include "base/text/count.hpp"
#include "base/text/local_time.hpp"
#include "base/text/sanitize.hpp"

#include <quillmere/records/json/coding_error.hpp>
#include <quillmere/widget/widget_snapshot.hpp>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <system_error>

namespace quillmere::cli {
namespace {

std::string contentText(const std::optional<VersionContent>& content)
{
    if (!content) {
        return "cannot be read";
    }
    // The outcome stands last, since only the outcome may be long.
    return std::string(content->phase) + (content->isPaused ? " (paused), " : ", ") +
           base::countText(content->finishedBlocks, "finished block") +
           (content->outcome.empty() ? "" : ": " + content->outcome);
}

base::Json contentJson(const std::optional<VersionContent>& content)
{
    if (!content) {
        return nullptr;
    }
    return {{"phase", content->phase},
            {"paused", content->isPaused},
            {"outcome", content->outcome},
            {"finished_blocks", content->finishedBlocks}};
}

VersionContent contentOf(const QuillmereState& state, Instant savedAt)
{
    const WidgetSnapshot summary = WidgetSnapshot::make(state, savedAt);
    return {.phase = title(summary.phase),
            .isPaused = summary.countdown && summary.countdown->isPaused,
            .outcome = summary.intendedOutcome,
            .finishedBlocks = std::ssize(state.blockHistory)};
}

/// Calls a function that reads a state; absent when the file cannot be used.
template <class Read>
auto ifUsable(const Read& read) -> std::optional<decltype(read())>
{
    try {
        return read();
    } catch (const CodingError&) {
    } catch (const base::Refusal&) {
    } catch (const std::system_error&) {
    }
    return std::nullopt;
}

std::string linesText(std::string_view heading, const std::vector<std::string>& sentences)
{
    std::string text = std::string(heading) + '\n';
    for (const std::string& sentence : sentences) {
        text += "  " + sentence + '\n';
    }
    return sentences.empty() ? "" : text;
}

}  // namespace

VersionWalk::VersionWalk(const workspace::Workspace& workspace)
    : newer_(ifUsable([&] { return workspace.look().state; }))
{
}

std::optional<ListedVersion> VersionWalk::next(const workspace::Version& version)
{
    auto read = ifUsable([&] { return workspace::stateOf(version); });
    if (read && !*read) {
        return std::nullopt;
    }
    ListedVersion listed{.version = version, .content = std::nullopt, .replacedBy = std::nullopt};
    std::optional<QuillmereState> state = std::move(read).value_or(std::nullopt);
    if (state) {
        listed.content = contentOf(*state, version.savedAt);
    }
    if (state && newer_) {
        listed.replacedBy = work::describe(*state, *newer_);
    }
    newer_ = std::move(state);
    return listed;
}

std::string versionText(const ListedVersion& listed, base::Hours hours)
{
    return base::sanitized(std::to_string(listed.version.number) + "  " +
                           base::localTextToTheSecond(listed.version.savedAt, hours) + "  " +
                           contentText(listed.content));
}

std::string replacementText(const ListedVersion& listed)
{
    // A version of an earlier day may be followed by a day's work.
    constexpr std::size_t mostSentences = 3;
    if (!listed.replacedBy || listed.replacedBy->empty()) {
        return {};
    }
    const std::vector<std::string>& all = *listed.replacedBy;
    const std::size_t shown = std::min(all.size(), mostSentences);
    std::string text = "    then: " + all.front();
    for (std::size_t index = 1; index < shown; ++index) {
        text += "; " + all[index];
    }
    const std::size_t rest = all.size() - shown;
    return rest == 0 ? text : text + "; and " + std::to_string(rest) + " more";
}

base::Json versionJson(const ListedVersion& listed)
{
    return {{"number", listed.version.number},
            {"saved_at", base::instantJson(listed.version.savedAt)},
            {"content", contentJson(listed.content)},
            {"replaced_by", listed.replacedBy ? base::Json(*listed.replacedBy) : base::Json(nullptr)}};
}

std::string wayBackText(const workspace::Version& version, const work::WayBack& way)
{
    const std::string text =
        linesText("Would go:", way.wouldGo) + linesText("Would come back:", way.wouldComeBack);
    return text.empty() ? "Version " + std::to_string(version.number) + " is the same as the present state.\n"
                        : text;
}

base::Json wayBackJson(const workspace::Version& version, const work::WayBack& way)
{
    return {{"number", version.number},
            {"saved_at", base::instantJson(version.savedAt)},
            {"would_go", way.wouldGo},
            {"would_come_back", way.wouldComeBack}};
}

}  // namespace quillmere::cli
