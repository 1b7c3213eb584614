// Forms half filled in, kept until they are saved.
#pragma once

#include "ui/form.hpp"

#include <filesystem>

namespace quillmere::app::ui {

/// One small file a form, replaced whole with every change, so that nothing typed is lost with the program.
/// The directory is made with the first draft, for its owner only. Without a directory nothing is kept.
class Drafts {
public:
    explicit Drafts(std::filesystem::path directory) : directory_(std::move(directory)) {}

    /// Throws `std::system_error`.
    void keep(const Form& form) const;

    /// Fills in what was kept of this form; whether there was anything. What cannot be read is no draft.
    bool fillIn(Form& form) const;

    /// Forgets the draft of a form, if there is one. Throws `std::system_error`.
    void forget(const FormSubject& subject) const;

private:
    std::filesystem::path fileOf(const FormSubject& subject) const;

    std::filesystem::path directory_;
};

}  // namespace quillmere::app::ui
