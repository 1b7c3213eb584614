#include "config/configuration.hpp"

#include "base/refusal.hpp"
#include "base/system/user_directory.hpp"
#include "base/text/failure.hpp"
#include "base/text/quotes.hpp"
#include "config/key_names.hpp"
#include "config/keys.hpp"
#include "config/setting.hpp"

#include <quillmere/store/file_manager.hpp>

#include <algorithm>
#include <system_error>
#include <utility>

namespace quillmere::config {
namespace {

namespace fs = std::filesystem;

/// The path as it is written in a file: "block.focus".
std::string nameOf(const std::vector<std::string>& path)
{
    std::string name;
    for (const std::string& part : path) {
        name += (name.empty() ? "" : ".") + tomlKey(part);
    }
    return name;
}

/// Adds the entries of one file.
class Reader {
public:
    Reader(Configuration& configuration, const fs::path& file) : configuration_(configuration), file_(file) {}

    void take(const std::vector<TomlEntry>& entries)
    {
        for (const TomlEntry& entry : entries) {
            if (entry.path.front() == templateTable) {
                takeTemplate(entry);
            } else {
                takeValue(entry);
            }
        }
        for (Template& named : templates_) {
            replace(std::move(named));
        }
    }

private:
    void takeValue(const TomlEntry& entry)
    {
        const std::string name = nameOf(entry.path);
        if (const Key<Values>* const key = keyNamed(name)) {
            store(configuration_.values, *key, name, entry);
        } else if (!std::holds_alternative<EmptyTable>(entry.value) || !isTable(name)) {
            complain(entry.keyPlace, unknownKeyText(name, entry.path.front()));
        }
    }

    /// `entry` is below [template]: {"template", NAME, field}, or shorter where a value stands for a table.
    void takeTemplate(const TomlEntry& entry)
    {
        const bool isEmpty = std::holds_alternative<EmptyTable>(entry.value);
        if (entry.path.size() > 1 && entry.path[1] == lastBlockName) {
            refuseName(entry);
        } else if (entry.path.size() > 2) {
            takeField(entry);
        } else if (!isEmpty) {
            complain(entry.keyPlace,
                     nameOf(entry.path) + " must be a table of its own, such as [template.report].");
        } else if (entry.path.size() == 2) {
            templateOf(entry);
        }
    }

    /// Complains once, however many fields the template has.
    void refuseName(const TomlEntry& entry)
    {
        if (!std::exchange(hasRefusedName_, true)) {
            complain(entry.keyPlace,
                     "template.last cannot be chosen, because plan --like last means the last "
                     "block; give the template another name.");
        }
    }

    void takeField(const TomlEntry& entry)
    {
        const std::string field = nameOf({entry.path.begin() + 2, entry.path.end()});
        Template& named = templateOf(entry);
        if (const Key<Template>* const key = templateKeyNamed(field)) {
            store(named, *key, nameOf(entry.path), entry);
        } else {
            complain(entry.keyPlace, unknownTemplateKeyText(nameOf(entry.path)));
        }
    }

    /// The template of this file that the entry belongs to.
    Template& templateOf(const TomlEntry& entry)
    {
        const std::string& name = entry.path[1];
        const auto known = std::find_if(templates_.begin(), templates_.end(),
                                        [&](const Template& each) { return each.name == name; });
        if (known != templates_.end()) {
            return *known;
        }
        return templates_.emplace_back(Template{.name = name});
    }

    /// A template of an earlier file gives way as a whole.
    void replace(Template named)
    {
        std::vector<Template>& all = configuration_.values.templates;
        const auto earlier = std::find_if(all.begin(), all.end(),
                                          [&](const Template& each) { return each.name == named.name; });
        if (earlier == all.end()) {
            all.push_back(std::move(named));
        } else {
            *earlier = std::move(named);
        }
    }

    template <class Record>
    void store(Record& record, const Key<Record>& key, const std::string& name, const TomlEntry& entry)
    {
        if (set(record, key, entry.value)) {
            configuration_.origins[name] = {.file = file_, .place = entry.keyPlace};
        } else {
            complain(entry.valuePlace, name + " must be " + accepted(key) + "; it is left out.");
        }
    }

    void complain(TextPlace place, std::string sentence)
    {
        configuration_.problems.push_back({.file = file_, .place = place, .sentence = std::move(sentence)});
    }

    Configuration& configuration_;
    const fs::path& file_;
    std::vector<Template> templates_;
    bool hasRefusedName_ = false;
};

/// A missing file is empty.
void readFile(Configuration& configuration, const fs::path& file)
{
    try {
        add(configuration, FileManager::standard().contents(file).view(), file);
    } catch (const std::system_error& error) {
        if (error.code() != std::errc::no_such_file_or_directory &&
            error.code() != std::errc::not_a_directory) {
            configuration.problems.push_back(
                {.file = file,
                 .place = std::nullopt,
                 .sentence = error.code().message() + ". The file is left out."});
        }
    }
}

}  // namespace

fs::path directoryOfThisUser()
{
    const fs::path home = base::userDirectory("XDG_CONFIG_HOME", ".config");
    return home.empty() ? home : home / "quillmere";
}

fs::path fileIn(const fs::path& directory, std::string_view name)
{
    if (directory.empty()) {
        throw base::Refusal(base::Refusal::Kind::fileError,
                            "Neither XDG_CONFIG_HOME nor HOME names a directory for the configuration.");
    }
    return directory / name;
}

Configuration read(const fs::path& directory)
{
    Configuration configuration;
    if (!directory.empty()) {
        readFile(configuration, directory / preferencesFileName);
        readFile(configuration, directory / ownFileName);
    }
    return configuration;
}

void add(Configuration& configuration, std::string_view text, const fs::path& file)
{
    if (text.size() > mostFileBytes) {
        configuration.problems.push_back({.file = file,
                                          .place = std::nullopt,
                                          .sentence = "It is larger than 64 KiB. The file is left out."});
        return;
    }
    const TomlReading reading = readToml(text);
    if (const auto* const error = std::get_if<TomlError>(&reading)) {
        configuration.problems.push_back(
            {.file = file,
             .place = error->place,
             .sentence = "This is no TOML: " + error->description + ". The whole file is left out."});
        return;
    }
    Reader(configuration, file).take(std::get<std::vector<TomlEntry>>(reading));
}

std::string problemText(const Problem& problem)
{
    const std::string place = problem.place ? std::to_string(problem.place->line) + ":" +
                                                  std::to_string(problem.place->column) + ":"
                                            : "";
    return problem.file.string() + ":" + place + " " + problem.sentence;
}

fs::path expanded(const fs::path& path)
{
    if (!path.string().starts_with("~/")) {
        return path;
    }
    const fs::path home = base::absolutePathIn("HOME");
    if (home.empty()) {
        throw base::Refusal(
            base::Refusal::Kind::invalidRequest,
            "The configured directory, " + path.string() + ", cannot be found: HOME is no absolute path.");
    }
    return home / path.string().substr(2);
}

}  // namespace quillmere::config
