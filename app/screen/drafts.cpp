#include "screen/drafts.hpp"

#include "base/system/private_directory.hpp"

#include <nlohmann/json.hpp>
#include <quillmere/store/atomic_write.hpp>
#include <quillmere/store/state_store.hpp>

#include <algorithm>
#include <chrono>

namespace quillmere::screen {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view namesBegin = "draft-";
constexpr auto longestKept = std::chrono::hours(30 * 24);

}  // namespace

std::string Drafts::nameOf(const FormSubject& subject)
{
    return std::string(namesBegin) + std::string(rawValue(subject.kind)) + "-" + subject.name + ".json";
}

void Drafts::keep(const Form& form) const
{
    if (directory_.empty()) {
        return;
    }
    const nlohmann::json changes = form.changes();
    if (changes.empty()) {
        forget(form.subject());
        return;
    }
    base::createOwnersDirectory(directory_);
    // What is no text, which only a foreign terminal could have typed, must not cost the rest.
    const std::string text = changes.dump(2, ' ', false, nlohmann::json::error_handler_t::replace);
    writeAtomically([&](const ByteSink& sink) { sink(text); }, fileOf(form.subject()),
                    StateStore::renameReplacing);
}

BroughtBack Drafts::fillIn(Form& form) const
{
    if (directory_.empty()) {
        return BroughtBack::nothing;
    }
    try {
        const Bytes text = FileManager::standard().contents(fileOf(form.subject()));
        const auto changes = nlohmann::json::parse(text.view(), nullptr, false);
        return changes.is_object() ? form.bringBack(changes) : BroughtBack::nothing;
    } catch (const std::system_error&) {
        return BroughtBack::nothing;
    }
}

void Drafts::removeOld(const std::vector<FormSubject>& current) const
{
    std::error_code ignored;
    const auto isOfNow = [&](const std::string& name) {
        return std::any_of(current.begin(), current.end(),
                           [&](const FormSubject& subject) { return nameOf(subject) == name; });
    };
    const auto oldest = fs::file_time_type::clock::now() - longestKept;
    for (auto entry = fs::directory_iterator(directory_, ignored); entry != fs::directory_iterator();
         entry.increment(ignored)) {
        const std::string name = entry->path().filename().string();
        const auto writtenAt = entry->last_write_time(ignored);
        if (!ignored && name.starts_with(namesBegin) && writtenAt < oldest && !isOfNow(name)) {
            fs::remove(entry->path(), ignored);
        }
    }
}

void Drafts::forget(const FormSubject& subject) const
{
    if (!directory_.empty() && FileManager::standard().fileExists(fileOf(subject))) {
        FileManager::standard().removeFile(fileOf(subject));
    }
}

}  // namespace quillmere::screen
