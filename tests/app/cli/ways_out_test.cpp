// From every state that can be loaded, few commands lead to `idle`, and no word is lost. docs/ways-out.md has
// the rows.
#include <algorithm>
#include <iterator>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>

#include "loadable_states.hpp"
#include "program_testing.hpp"
#include "workspace/catching_up.hpp"
#include "workspace/workspace.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

/// A row of the table in the docs.
struct WayOut {
    std::string situation;
    std::vector<Words> commands;
    std::string blockWords;    ///< the place where they are found: "draft"
    std::string sessionWords;  ///< the same
};

std::string trimmed(const std::string& text)
{
    const std::size_t first = text.find_first_not_of(' ');
    return first == text.npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// "`end`, `review --finish`": the texts between backticks, as words.
std::vector<Words> commandsIn(const std::string& cell)
{
    std::vector<Words> commands;
    std::istringstream parts(cell);
    std::string between;
    for (std::string command; std::getline(parts, between, '`') && std::getline(parts, command, '`');) {
        std::istringstream words(command);
        commands.emplace_back(std::istream_iterator<std::string>(words),
                              std::istream_iterator<std::string>());
    }
    return commands;
}

std::vector<WayOut> tableOfDocs()
{
    std::vector<WayOut> table;
    std::istringstream page(textOf(fs::path(QUILLMERE_DOCS_DIRECTORY) / "ways-out.md"));
    for (std::string line; std::getline(page, line);) {
        if (!line.starts_with("| `")) {
            continue;
        }
        std::istringstream rest(line.substr(1));
        Words cells;
        for (std::string cell; std::getline(rest, cell, '|');) {
            cells.push_back(trimmed(cell));
        }
        EXPECT_EQ(cells.size(), 4u) << line;
        table.push_back({cells.at(0), commandsIn(cells.at(1)), cells.at(2), cells.at(3)});
    }
    return table;
}

/// Throws when the table has no way for the state.
const WayOut& wayFrom(const LoadableState& loadable, const std::vector<WayOut>& table)
{
    QuillmereState state = loadable.state;
    workspace::catchUp(state, moment);
    const std::string situation = situationOf(state);
    const auto found = std::find_if(table.begin(), table.end(),
                                    [&](const WayOut& way) { return way.situation == situation; });
    if (found == table.end()) {
        throw std::runtime_error("the docs have no row \"" + situation + "\"");
    }
    return *found;
}

template <class Record>
std::string jsonOf(const Record& record)
{
    return std::string(StateStore::encoder().encode(record).view());
}

bool areAllIn(const std::string& text, const Words& markers)
{
    return std::all_of(markers.begin(), markers.end(),
                       [&](const std::string& marker) { return text.find(marker) != text.npos; });
}

/// The history, the drafts and the versions of a person, as text.
struct Kept {
    std::string history;
    std::string drafts;
    std::vector<std::string> versions;

    explicit Kept(const Person& person)
    {
        const auto workspace = workspace::Workspace::in(
            person.directory(), [&] { return person.now; }, person.stateHome());
        for (const Block& block : person.state().blockHistory) {
            history += jsonOf(block);
        }
        for (const std::string& name : namesIn(workspace.stateDirectory())) {
            drafts += name.starts_with("draft-") ? textOf(workspace.stateDirectory() / name) : "";
        }
        for (const workspace::Version& version : workspace.versions().list()) {
            versions.push_back(jsonOf(workspace::stateOf(version).value()));
        }
    }

    /// "none" without words.
    std::string placeOf(const Words& markers) const
    {
        return markers.empty()              ? "none"
               : areAllIn(history, markers) ? "history"
               : areAllIn(drafts, markers)  ? "draft"
               : areInAVersion(markers)     ? "version"
                                            : "lost";
    }

    bool areInAVersion(const Words& markers) const
    {
        return std::any_of(versions.begin(), versions.end(),
                           [&](const std::string& version) { return areAllIn(version, markers); });
    }
};

void expectHome(const Person& person, const LoadableState& loadable, const WayOut& way)
{
    const QuillmereState state = person.state();
    EXPECT_EQ(state.workflowState, WorkflowState::idle);
    EXPECT_FALSE(state.currentBlock);
    EXPECT_EQ(state.agentQuestions, loadable.state.agentQuestions);
    ASSERT_FALSE(state.blockHistory.empty());
    EXPECT_EQ(state.blockHistory.back(), loadable.state.blockHistory.back());
    const Kept kept(person);
    EXPECT_EQ(kept.placeOf(loadable.blockWords), way.blockWords);
    EXPECT_EQ(kept.placeOf(loadable.sessionWords), way.sessionWords);
    EXPECT_EQ(kept.drafts.empty(), way.blockWords != "draft");
    EXPECT_TRUE(way.commands.empty() || kept.areInAVersion(loadable.earlyWords));
}

TEST(WaysOut, leadFromEveryStateToIdleInThreeCommandsAndLoseNoWord)
{
    const std::vector<WayOut> table = tableOfDocs();
    std::map<std::string, int> used;
    for (const LoadableState& loadable : loadableStates()) {
        const WayOut& way = wayFrom(loadable, table);
        SCOPED_TRACE(way.situation + ": " + loadable.name);
        ++used[way.situation];
        EXPECT_LE(way.commands.size(), 3u);
        const Person person;
        person.has(loadable.state);
        for (const Words& command : way.commands) {
            const Ending ending = person.types(command);
            EXPECT_EQ(ending.code, ExitCode::done) << testing::PrintToString(command) << ending.err;
        }
        expectHome(person, loadable, way);
    }
    // Otherwise a row would promise what nothing has shown.
    for (const WayOut& way : table) {
        EXPECT_EQ(std::count_if(table.begin(), table.end(),
                                [&](const WayOut& other) { return other.situation == way.situation; }),
                  1)
            << way.situation;
        EXPECT_GT(used[way.situation], 0) << way.situation;
    }
}

}  // namespace
}  // namespace quillmere::test
