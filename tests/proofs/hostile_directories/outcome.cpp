#include "outcome.hpp"

#include "listing.hpp"
#include "ordinary_user.hpp"
#include "proofs/support/figures.hpp"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <iomanip>
#include <sstream>
#include <utility>

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

/// Far longer than any call takes, even on a busy machine.
unsigned longestCall() { return static_cast<unsigned>(amount(30, 120)); }

void setProcess(const Scene& scene)
{
    ::umask(scene.mask);
    for (const auto& [name, value] : scene.variables) {
        if (value) {
            ::setenv(name.c_str(), value->c_str(), 1);
        } else {
            ::unsetenv(name.c_str());
        }
    }
    fs::current_path(scene.root);
}

ChildResult resultOf(const Operation& operation, const Scene& scene)
{
    return resultOfChild(
        [&] {
            setProcess(scene);
            return operation.act(scene);
        },
        longestCall());
}

constexpr const char* theDirectory = "the directory";
constexpr const char* itsParents = "its parents";

bool isInside(const fs::path& path, const fs::path& place)
{
    const fs::path relative = path.lexically_relative(place);
    return !relative.empty() && *relative.begin() != "..";
}

/// The name of a path in the table.
std::string nameIn(const Scene& scene, const std::string& path)
{
    const fs::path whole = (scene.root / path).lexically_normal();
    for (const fs::path& place : {scene.place, scene.widgetPlace}) {
        if (whole == place) {
            return theDirectory;
        }
        if (isInside(whole, place)) {
            return whole.lexically_relative(place).string();
        }
    }
    const bool isAbove = isInside(scene.place, whole) || isInside(scene.widgetPlace, whole);
    return isAbove ? itsParents : whole.lexically_relative(scene.place).string();
}

bool hasUsualMode(const Operation& operation, const Change& change, const std::string& name)
{
    constexpr mode_t ofDirectory = 0700;
    return change.mode == (name == theDirectory ? ofDirectory
                           : name == itsParents ? operation.ofParents
                                                : operation.ofFiles);
}

std::string octal(mode_t mode)
{
    std::ostringstream text;
    text << std::oct << std::setfill('0') << std::setw(4) << mode;
    return text.str();
}

/// The name, with "gone" or an unusual mode.
std::string describe(const Operation& operation, const Change& change, const std::string& name)
{
    if (change.isGone) {
        return name + " gone";
    }
    return hasUsualMode(operation, change, name) ? name : name + ' ' + octal(change.mode);
}

/// The unexpected changes, and the expected changes that are missing.
std::string differences(const Operation& operation, const Scene& scene, const std::vector<Change>& changes,
                        std::vector<std::string> expected)
{
    std::vector<std::string> others;
    for (const Change& change : changes) {
        const std::string name = nameIn(scene, change.path);
        const std::string description = describe(operation, change, name);
        const bool isExpected = !change.isGone && std::erase(expected, name) > 0;
        const bool isListed = std::find(others.begin(), others.end(), description) != others.end();
        if ((!isExpected || description != name) && !isListed) {
            others.push_back(description);
        }
    }
    std::string text;
    for (const std::string& other : others) {
        text += (text.empty() ? " + " : ", ") + other;
    }
    for (const std::string& name : expected) {
        text += " - " + name;
    }
    return text;
}

/// Whether a message is safe to print on a terminal: empty, or one line without control characters.
bool isSafeLine(const std::string& text)
{
    const auto isControl = [](char character) {
        return static_cast<unsigned char>(character) < ' ' || character == '\x7f';
    };
    return text.empty() ||
           (text.back() == '\n' && std::none_of(text.begin(), std::prev(text.end()), isControl));
}

}  // namespace

Outcome outcomeOf(const Operation& operation, void (*make)(Scene&), const fs::path& directory)
{
    constexpr mode_t usualMask = 022;
    ::umask(usualMask);
    const fs::path root = directory / "scene";
    Scene scene = makeScene(root);
    make(scene);
    if (scene.betweenCalls) {
        resultOf(operation, scene);
        scene.betweenCalls();
    }
    const Listing before = listingOf(root);
    ChildResult ended = resultOf(operation, scene);
    const std::vector<Change> changes = changesBetween(before, listingOf(root));
    removeTree(root);

    const bool succeeded = ended.result == "done" || ended.result == "exit 0";
    std::string words = ended.result + differences(operation, scene, changes,
                                                   succeeded ? operation.writes : std::vector<std::string>{});
    const bool shouldSpeak = !succeeded && (ended.result.starts_with("exit ") || ended.result == "SIGABRT");
    if (!isSafeLine(ended.errors) || ended.errors.empty() == shouldSpeak) {
        words += ended.errors.empty() ? ", without a word" : ", with strange words";
    }
    return {.words = std::move(words), .errors = std::move(ended.errors), .memory = ended.memory};
}

}  // namespace quillmere::test
