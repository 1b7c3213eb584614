#include "ui/drafts.hpp"

#include <quillmere/store/state_store.hpp>

namespace quillmere::app::ui {
namespace {

/// Removes a file when it goes, if the file is still there.
class Leftover {
public:
    explicit Leftover(std::filesystem::path file) : file_(std::move(file)) {}
    Leftover(const Leftover&) = delete;
    Leftover& operator=(const Leftover&) = delete;
    ~Leftover()
    {
        std::error_code ignored;
        std::filesystem::remove(file_, ignored);
    }

private:
    std::filesystem::path file_;
};

}  // namespace

std::filesystem::path Drafts::fileOf(const FormSubject& subject) const
{
    return directory_ / ("draft-" + std::string(rawValue(subject.kind)) + "-" + subject.name + ".json");
}

void Drafts::keep(const Form& form) const
{
    if (directory_.empty()) {
        return;
    }
    constexpr mode_t ownerOnly = 0700;
    const FileManager& files = FileManager::standard();
    files.createDirectory(directory_, ownerOnly);
    const std::filesystem::path temporary = directory_ / (".draft." + Identifier::random().text() + ".tmp");
    const Leftover leftover(temporary);
    // What is no text, which only a foreign terminal could have typed, must not cost the rest.
    const std::string text = form.values().dump(2, ' ', false, nlohmann::json::error_handler_t::replace);
    files.writeWithoutOverwriting(temporary, [&](const ByteSink& sink) { sink(text); });
    StateStore::renameReplacing(temporary, fileOf(form.subject()));
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
