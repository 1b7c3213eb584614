#include "ui/drafts.hpp"

#include "system/owners_directory.hpp"

#include <quillmere/store/atomic_write.hpp>
#include <quillmere/store/state_store.hpp>

namespace quillmere::app::ui {

std::filesystem::path Drafts::fileOf(const FormSubject& subject) const
{
    return directory_ / ("draft-" + std::string(rawValue(subject.kind)) + "-" + subject.name + ".json");
}

void Drafts::keep(const Form& form) const
{
    if (directory_.empty()) {
        return;
    }
    createOwnersDirectory(directory_);
    // What is no text, which only a foreign terminal could have typed, must not cost the rest.
    const std::string text = form.values().dump(2, ' ', false, nlohmann::json::error_handler_t::replace);
    writeAtomically([&](const ByteSink& sink) { sink(text); }, fileOf(form.subject()),
                    StateStore::renameReplacing);
}

bool Drafts::fillIn(Form& form) const
{
    if (directory_.empty()) {
        return false;
    }
    try {
        const Bytes text = FileManager::standard().contents(fileOf(form.subject()));
        const auto values = nlohmann::json::parse(text.view(), nullptr, false);
        if (!values.is_object()) {
            return false;
        }
        form.setValues(values);
        return true;
    } catch (const std::system_error&) {
        return false;
    }
}

void Drafts::forget(const FormSubject& subject) const
{
    if (!directory_.empty() && FileManager::standard().fileExists(fileOf(subject))) {
        FileManager::standard().removeFile(fileOf(subject));
    }
}

}  // namespace quillmere::app::ui
