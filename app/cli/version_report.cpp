#include "cli/version_report.hpp"

#include "base/refusal.hpp"
#include "base/text/local_time.hpp"
#include "base/text/sanitize.hpp"

#include <quillmere/records/json/coding_error.hpp>
#include <quillmere/widget/widget_snapshot.hpp>

#include <nlohmann/json.hpp>

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
           std::to_string(content->finishedBlocks) +
           (content->finishedBlocks == 1 ? " finished block" : " finished blocks") +
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

}  // namespace

std::optional<ListedVersion> listedVersion(const workspace::Version& version)
{
    try {
        const std::optional<QuillmereState> state = workspace::stateOf(version);
        if (!state) {
            return std::nullopt;
        }
        const WidgetSnapshot summary = WidgetSnapshot::make(*state, version.savedAt);
        return ListedVersion{.version = version,
                             .content = VersionContent{
                                 .phase = title(summary.phase),
                                 .isPaused = summary.countdown && summary.countdown->isPaused,
                                 .outcome = summary.intendedOutcome,
                                 .finishedBlocks = state->blockHistory.size(),
                             }};
    } catch (const CodingError&) {
    } catch (const base::Refusal&) {
    } catch (const std::system_error&) {
    }
    return ListedVersion{.version = version, .content = std::nullopt};
}

std::string versionText(const ListedVersion& listed)
{
    return base::sanitized(std::to_string(listed.version.number) + "  " +
                           base::localTextToTheSecond(listed.version.savedAt) + "  " +
                           contentText(listed.content));
}

base::Json versionJson(const ListedVersion& listed)
{
    return {{"number", listed.version.number},
            {"saved_at", base::instantJson(listed.version.savedAt)},
            {"content", contentJson(listed.content)}};
}

}  // namespace quillmere::cli
