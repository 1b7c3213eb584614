#include "config/preferences.hpp"

#include "base/refusal.hpp"
#include "base/system/private_directory.hpp"
#include "base/system/private_umask.hpp"
#include "base/system/replace_file.hpp"
#include "config/key_names.hpp"
#include "config/keys.hpp"
#include "config/setting.hpp"
#include "config/toml_text.hpp"

#include <quillmere/store/file_manager.hpp>

#include <algorithm>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>
#include <variant>
#include <vector>

namespace quillmere::config {
namespace {

namespace fs = std::filesystem;
using Kind = base::Refusal::Kind;

constexpr std::string_view firstLines =
    "# Written by programs, which keep the values and not the comments. Your own file is config.toml; its\n"
    "# values win.\n\n";

/// The parts of a key's name, which are bare keys of TOML.
std::vector<std::string> partsOf(std::string_view name)
{
    const std::size_t end = name.find('.');
    std::vector<std::string> parts = {std::string(name.substr(0, end))};
    if (end != std::string_view::npos) {
        const std::vector<std::string> rest = partsOf(name.substr(end + 1));
        parts.insert(parts.end(), rest.begin(), rest.end());
    }
    return parts;
}

/// Templates are whole tables, and no program adds to the commands that the watch runs.
bool isForThePersonAlone(const std::string& name)
{
    const Key<Values>* const key = keyNamed(name);
    return partsOf(name).front() == templateTable || (key && key->member == Member<Values>(&Values::hooks));
}

const Key<Values>& settableKey(const std::string& name)
{
    if (isForThePersonAlone(name)) {
        throw base::Refusal(Kind::invalidRequest,
                            name + " is set in your own file only; edit it with quillmere config --edit.");
    }
    const Key<Values>* const key = keyNamed(name);
    if (!key) {
        throw base::Refusal(Kind::invalidRequest, unknownKeyText(name, partsOf(name).front()));
    }
    return *key;
}

/// The text as it is, then as TOML: the values that it can stand for.
std::vector<TomlValue> readings(const std::string& typed)
{
    std::vector<TomlValue> values = {typed};
    const TomlReading reading = readToml("value = " + typed);
    const auto* const entries = std::get_if<std::vector<TomlEntry>>(&reading);
    if (entries && entries->size() == 1) {
        values.push_back(entries->front().value);
    }
    return values;
}

/// Not for a path that is no UTF-8.
bool isToml(const std::string& value)
{
    return value.empty() || std::holds_alternative<std::vector<TomlEntry>>(readToml("value = " + value));
}

/// The value as it is written in a file; empty for an empty value.
std::string valueFor(const Key<Values>& key, const std::string& typed)
{
    Values values;
    for (const TomlValue& value : readings(typed)) {
        if (set(values, key, value) && isToml(written(values, key))) {
            return written(values, key);
        }
    }
    throw base::Refusal(Kind::invalidRequest, std::string(key.name) + " must be " + accepted(key) + ".");
}

/// A missing file is empty.
std::string contentOf(const fs::path& file)
{
    try {
        return std::string(FileManager::standard().contents(file).view());
    } catch (const std::system_error& error) {
        if (error.code() != std::errc::no_such_file_or_directory) {
            throw;
        }
        return "";
    }
}

[[noreturn]] void refuseFile(const fs::path& file, std::optional<TextPlace> place,
                             const std::string& sentence)
{
    throw base::Refusal(
        Kind::unusableData,
        problemText({.file = file,
                     .place = place,
                     .sentence = sentence + " Nothing was written; mend the file, or remove it."}));
}

/// Throws when the reader would leave the file out.
std::vector<TomlEntry> entriesIn(const fs::path& file, std::string_view text)
{
    if (text.size() > mostFileBytes) {
        refuseFile(file, std::nullopt, "It is larger than 64 KiB, or would become so.");
    }
    TomlReading reading = readToml(text);
    if (const auto* const error = std::get_if<TomlError>(&reading)) {
        refuseFile(file, error->place, "This is no TOML: " + error->description + ".");
    }
    if (!canBeRewritten(text)) {
        refuseFile(file, std::nullopt, "It holds the number -9223372036854775808, which cannot be kept.");
    }
    return std::get<std::vector<TomlEntry>>(std::move(reading));
}

/// Throws when a value stands where the key needs a table: it is somebody's, and would be lost.
void requireRoom(const fs::path& file, const std::vector<TomlEntry>& entries,
                 const std::vector<std::string>& key)
{
    for (const TomlEntry& entry : entries) {
        const bool isAbove =
            entry.path.size() < key.size() && std::equal(entry.path.begin(), entry.path.end(), key.begin());
        if (isAbove && !std::holds_alternative<EmptyTable>(entry.value)) {
            refuseFile(file, entry.keyPlace, entry.path.back() + " must be a table.");
        }
    }
}

bool isSet(const std::vector<TomlEntry>& entries, const std::vector<std::string>& key)
{
    return std::any_of(entries.begin(), entries.end(), [&](const TomlEntry& entry) {
        return entry.path.size() >= key.size() && std::equal(key.begin(), key.end(), entry.path.begin());
    });
}

void replace(const fs::path& file, const std::string& values)
{
    const std::string text = std::string(firstLines) + values;
    // Texts of several lines become one line, which may have more full stops than the reader takes.
    entriesIn(file, text);
    const base::PrivateUmask ownersOnly;
    base::createOwnersDirectory(file.parent_path());
    base::replaceOwnFile(file, text);
}

}  // namespace

void setPreference(const fs::path& directory, const std::string& name, const std::string& typed)
{
    const fs::path file = fileIn(directory, preferencesFileName);
    const std::string value = valueFor(settableKey(name), typed);
    if (value.empty()) {
        unsetPreference(directory, name);
        return;
    }
    const std::string text = contentOf(file);
    const std::vector<std::string> path = partsOf(name);
    requireRoom(file, entriesIn(file, text), path);
    replace(file, withValue(text, path, value));
}

bool unsetPreference(const fs::path& directory, const std::string& name)
{
    const fs::path file = fileIn(directory, preferencesFileName);
    const std::vector<std::string> path = partsOf(settableKey(name).name);
    const std::string text = contentOf(file);
    if (!isSet(entriesIn(file, text), path)) {
        return false;
    }
    replace(file, withoutValue(text, path));
    return true;
}

std::string settingText(const Configuration& configuration, const std::string& name)
{
    const std::string value = written(configuration.values, settableKey(name));
    const auto origin = configuration.origins.find(name);
    const std::string is = value.empty() ? " is not set" : " is " + value;
    if (origin == configuration.origins.end()) {
        return name + is + (value.empty() ? "." : ", the default.");
    }
    if (origin->second.file.filename() != ownFileName) {
        return name + is + ".";
    }
    return std::string(ownFileName) + " says in line " + std::to_string(origin->second.place.line) +
           " that " + name + is + ", and wins; edit it with quillmere config --edit.";
}

}  // namespace quillmere::config
