#include "doctor/examine.hpp"

#include "base/refusal.hpp"
#include "base/text/failure.hpp"
#include "doctor/file_system_findings.hpp"
#include "doctor/files.hpp"
#include "doctor/keeping_findings.hpp"
#include "doctor/mode_findings.hpp"
#include "doctor/place_findings.hpp"
#include "doctor/state_findings.hpp"

#include <array>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

namespace quillmere::doctor {
namespace {

namespace fs = std::filesystem;

struct Examination {
    std::string_view name;
    std::string_view title;
    /// Absent where the examination does not apply.
    std::optional<Finding> (*find)(const Examined&);
};

// In the order of the page.
// clang-format off
constexpr auto examinations = std::to_array<Examination>({
    {"directory",  "Directory",  directoryFinding},
    {"owner",      "Owner",      ownerFinding},
    {"modes",      "Modes",      modesFinding},
    {"links",      "Links",      linksFinding},
    {"state",      "State",      stateFinding},
    {"summaries",  "Summaries",  summariesFinding},
    {"lock",       "Lock",       lockFinding},
    {"sync",       "Sync",       syncFinding},
    {"replace",    "Replace",    replaceFinding},
    {"hard_links", "Hard links", hardLinkFinding},
    {"room",       "Room",       roomFinding},
    {"versions",   "Versions",   versionsFinding},
    {"inotify",    "inotify",    inotifyFinding},
    {"clock",      "Clock",      clockFinding},
    {"watch",      "Watch",      watchFinding},
    {"agent",      "Agent",      agentFinding},
});
// clang-format on

std::optional<Finding> found(const Examination& examination, const Examined& examined)
{
    const char* const remedy = "Mend that, and examine again.";
    try {
        return examination.find(examined);
    } catch (const std::system_error& error) {
        return wrong("This cannot be examined: " + base::failureText(error) + ".", remedy);
    } catch (const base::Refusal& refusal) {
        return wrong(std::string("This cannot be examined: ") + refusal.what(), remedy);
    }
}

}  // namespace

std::vector<Check> examine(const Subject& subject)
{
    Examined examined{.subject = subject, .reading = readState(subject.workspace)};
    std::error_code isMissing;
    if (fs::is_directory(subject.directory(), isMissing)) {
        const fs::path& kept = subject.workspace.stateDirectory();
        examined.probe = probe(stateFile(subject), kept.empty() ? kept : kept / "versions");
    }
    return checksOf(examined);
}

std::vector<Check> checksOf(const Examined& examined)
{
    std::vector<Check> checks;
    for (const Examination& examination : examinations) {
        if (std::optional<Finding> finding = found(examination, examined)) {
            checks.push_back({examination.name, examination.title, *std::move(finding)});
        }
    }
    return checks;
}

}  // namespace quillmere::doctor
