#include "program_testing.hpp"

#include <sys/stat.h>
#include <time.h>

#include <cmath>
#include <nlohmann/json.hpp>
#include <ostream>
#include <sstream>

namespace quillmere::cli {

void PrintTo(ExitCode code, std::ostream* stream) { *stream << "exit " << static_cast<int>(code); }

}  // namespace quillmere::cli

namespace quillmere::test {

namespace fs = std::filesystem;

Ending Person::runs(const Words& arguments) const
{
    std::istringstream in(answers);
    std::ostringstream out;
    std::ostringstream err;
    base::Environment environment{
        .in = in,
        .out = out,
        .err = err,
        .clock = [this] { return now; },
        .inputIsTerminal = isAsked,
        .outputIsTerminal = seesColour,
        .stateHome = stateHome(),
        .configDirectory = configDirectory,
    };
    const ExitCode code = cli::run(arguments, environment);
    return {.code = code, .out = out.str(), .err = err.str()};
}

Ending Person::types(const Words& arguments) const
{
    Words all = {"--directory", directory().string()};
    all.insert(all.end(), arguments.begin(), arguments.end());
    return runs(all);
}

Ending Person::typesLater(double seconds, const Words& arguments)
{
    now = now + seconds;
    return types(arguments);
}

void Person::has(const QuillmereState& state) const
{
    store().save(state);
    WidgetSnapshotStore(directory()).save(WidgetSnapshot::make(state, state.updatedAt));
}

StateStore Person::store() const { return {directory(), StateStore::renameReplacing}; }

QuillmereState Person::state() const { return store().load(); }

AgentSnapshot Person::agentSummary() const
{
    return StateStore::decoder().decode<AgentSnapshot>(
        FileManager::standard().contents(store().agentStateURL()));
}

WidgetSnapshot Person::widgetSummary() const { return WidgetSnapshotStore(directory()).load(); }

testing::AssertionResult filesAgree(const Person& person)
{
    const QuillmereState state = person.state();
    if (person.agentSummary() != person.store().agentSnapshot(state, std::nullopt)) {
        return testing::AssertionFailure() << "the agent reads " << textOf(person.store().agentStateURL());
    }
    const Instant wholeSecond{std::floor(person.now.secondsSince1970())};
    if (person.widgetSummary() != WidgetSnapshot::make(state, wholeSecond)) {
        return testing::AssertionFailure()
               << "the widget reads " << textOf(person.directory() / WidgetSnapshotStore::fileName);
    }
    return testing::AssertionSuccess();
}

namespace {

std::string pictureOfEntry(const fs::path& path)
{
    struct stat status {};
    EXPECT_EQ(::lstat(path.c_str(), &status), 0) << path;
    std::string picture =
        "inode " + std::to_string(status.st_ino) + ", mode " + std::to_string(status.st_mode) + ", changed " +
        std::to_string(status.st_mtim.tv_sec) + "." + std::to_string(status.st_mtim.tv_nsec);
    return S_ISREG(status.st_mode) ? picture + "\n" + textOf(path) : picture;
}

}  // namespace

std::map<std::string, std::string> pictureOf(const fs::path& directory)
{
    std::map<std::string, std::string> pictures = {{".", pictureOfEntry(directory)}};
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(directory)) {
        pictures[entry.path().lexically_relative(directory).string()] = pictureOfEntry(entry.path());
    }
    return pictures;
}

std::string jsonAt(const std::string& pointer, const std::string& json)
{
    const auto document = nlohmann::json::parse(json, nullptr, false);
    const nlohmann::json::json_pointer place(pointer);
    if (document.is_discarded() || !document.contains(place)) {
        ADD_FAILURE() << "nothing at " << pointer << " of " << json;
        return {};
    }
    return document.at(place).dump();
}

std::vector<std::string> keysOf(const std::string& json)
{
    const auto document = nlohmann::ordered_json::parse(json, nullptr, false);
    EXPECT_TRUE(document.is_object()) << json;
    std::vector<std::string> keys;
    for (const auto& item : document.items()) {
        keys.push_back(item.key());
    }
    return keys;
}

std::string replaced(std::string text, const std::string& part, const std::string& replacement)
{
    const std::size_t place = text.find(part);
    if (place == std::string::npos || text.find(part, place + 1) != std::string::npos) {
        ADD_FAILURE() << part << " stands not just once in " << text;
        return text;
    }
    return text.replace(place, part.size(), replacement);
}

TimeZone::TimeZone(const char* name) : variable_("TZ", name) { ::tzset(); }

TimeZone::Notice::~Notice() { ::tzset(); }

}  // namespace quillmere::test
