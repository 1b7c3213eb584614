// The program's command line: one run in a directory with the files of one situation.
//
// The first byte of the first line chooses the situation, the second byte how late it is. Each further line
// is an argument. The text after a zero byte is standard input, which is then a terminal. Arguments that lead
// to files elsewhere are ignored: "tour", and every one that contains "--directory".
#include "cli/run.hpp"

#include <quillmere/store/state_store.hpp>
#include <quillmere/widget/widget_snapshot_store.hpp>

#include <stdlib.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "fuzz/fuzz_target.hpp"
#include "fuzz/situations.hpp"
#include "proofs/values/utf8_check.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;
using Files = std::map<std::string, std::string>;

/// A temporary directory, removed at the end of the process.
class Directory {
public:
    Directory()
    {
        std::string name = (fs::temp_directory_path() / "quillmere-fuzz-XXXXXX").string();
        if (!::mkdtemp(name.data())) {
            throw std::runtime_error("no temporary directory");
        }
        path_ = name;
        // Makes local time independent of the machine.
        ::setenv("TZ", "UTC", 1);
    }
    Directory(const Directory&) = delete;
    Directory& operator=(const Directory&) = delete;
    ~Directory()
    {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }

    const fs::path& path() const { return path_; }

    /// Makes these files the only ones in the directory.
    void fill(const Files& files) const
    {
        for (const fs::directory_entry& entry : fs::directory_iterator(path_)) {
            fs::remove_all(entry.path());
        }
        for (const auto& [name, text] : files) {
            std::ofstream(path_ / name, std::ios::binary) << text;
        }
    }

    Files files() const
    {
        Files files;
        for (const fs::directory_entry& entry : fs::directory_iterator(path_)) {
            std::ifstream stream(entry.path(), std::ios::binary);
            files[entry.path().filename()] = {std::istreambuf_iterator<char>(stream), {}};
        }
        return files;
    }

private:
    fs::path path_;
};

struct Input {
    std::size_t situation;  ///< situationCount: no saved files
    Instant now;
    Words words;
    std::string answers;
    bool isAsked;
};

Input input(std::string_view text)
{
    static constexpr auto lateness = std::to_array<double>({0, 1, 299, 300, 1500, 3600, 86'400, 1e9});
    const auto byteAt = [&](std::size_t index) {
        return index < text.size() ? static_cast<unsigned char>(text[index]) : 0U;
    };
    // Between whole seconds, like a real clock.
    Input input{.situation = byteAt(0) % (situationCount + 1),
                .now = moment + 0.75 + lateness.at(byteAt(1) % lateness.size()),
                .words = {},
                .answers = {},
                .isAsked = false};
    text.remove_prefix(std::min(text.find('\n'), text.size()));
    if (const std::size_t end = text.find('\0'); end != text.npos) {
        input.isAsked = true;
        input.answers = text.substr(end + 1);
        text = text.substr(0, end);
    }
    while (!text.empty()) {
        text.remove_prefix(1);
        const std::string word(text.substr(0, text.find('\n')));
        text.remove_prefix(word.size());
        const bool isLast = text.empty() && word.empty();
        if (!isLast && word != "tour" && word.find("--directory") == word.npos) {
            input.words.push_back(word);
        }
    }
    return input;
}

/// The three files of a situation.
Files filesOf(std::size_t which)
{
    if (which == situationCount) {
        return {};
    }
    const QuillmereState state = situation(which);
    const AgentSnapshot agent =
        StateStore({}, StateStore::renameReplacing).agentSnapshot(state, std::nullopt);
    const JsonEncoder encoder = StateStore::encoder();
    const auto text = [](const Bytes& bytes) { return std::string(bytes.view()); };
    return {{"state.json", text(encoder.encode(state))},
            {"agent-state.json", text(encoder.encode(agent))},
            {"widget-snapshot.json", text(encoder.encode(WidgetSnapshot::make(state, state.updatedAt)))}};
}

bool isPlain(std::string_view text)
{
    return std::none_of(text.begin(), text.end(), [](char character) {
        return (static_cast<unsigned char>(character) < ' ' && character != '\n') || character == 0x7F;
    });
}

void requireUsable(const Directory& directory, Instant now, const Files& files)
{
    const StateStore store(
        directory.path(), [now] { return now; }, StateStore::renameReplacing);
    store.load();
    for (const auto& [name, text] : files) {
        const bool isOurs =
            name == "state.json" || name == "agent-state.json" || name == "widget-snapshot.json";
        require(isOurs, "nothing but the three files is left behind");
        require(isUtf8(text), "the files are texts");
    }
    if (!files.empty()) {
        WidgetSnapshotStore(directory.path()).load();
    }
}

cli::ExitCode codeOf(const Words& arguments, const Input& input)
{
    std::istringstream in(input.answers);
    std::ostringstream out;
    std::ostringstream err;
    base::Environment environment{
        .in = in,
        .out = out,
        .err = err,
        .clock = [&input] { return input.now; },
        .inputIsTerminal = input.isAsked,
        .outputIsTerminal = false,
    };
    const cli::ExitCode code = cli::run(arguments, environment);
    const bool isExpected = code == cli::ExitCode::done || code == cli::ExitCode::refused ||
                            code == cli::ExitCode::usage || code == cli::ExitCode::unusableData;
    require(isExpected, "a run is done or says what is wrong with its arguments");
    require(code == cli::ExitCode::done || !err.str().empty(), "a run that fails says why");
    require(isPlain(out.str()) && isPlain(err.str()), "nothing that a terminal obeys is printed");
    return code;
}

void run(const Directory& directory, const Input& input)
{
    static const std::vector<Files> situations = [] {
        std::vector<Files> all;
        for (std::size_t which = 0; which <= situationCount; ++which) {
            all.push_back(filesOf(which));
        }
        return all;
    }();
    const Files& before = situations.at(input.situation);
    directory.fill(before);
    Words arguments = {"--directory", directory.path().string()};
    arguments.insert(arguments.end(), input.words.begin(), input.words.end());
    const cli::ExitCode code = codeOf(arguments, input);
    const Files after = directory.files();
    if (code != cli::ExitCode::done && after != before) {
        // The run has saved the effects of the passed time. A second run has no such effects, so it shows
        // those of the command.
        require(codeOf(arguments, input) == code, "a failure is the same the second time");
        require(directory.files() == after, "a run that fails changes nothing");
    }
    if (after != before) {
        requireUsable(directory, input.now, after);
    }
}

}  // namespace
}  // namespace quillmere::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const quillmere::test::Directory directory;
    quillmere::test::run(directory, quillmere::test::input(quillmere::test::textOf(data, size)));
    return 0;
}
