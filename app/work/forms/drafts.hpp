// Drafts: forms that are filled in but not saved, kept in files.
#pragma once

#include "work/forms/form.hpp"

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace quillmere::work {

/// One small JSON file for each form, replaced as a whole with every change, so that nothing typed is lost
/// when the program ends. The directory is made with the first draft, readable by its owner only. Without a
/// directory nothing is kept.
class Drafts {
public:
    explicit Drafts(std::filesystem::path directory) : directory_(std::move(directory)) {}

    bool areKept() const { return !directory_.empty(); }

    /// Writes the changes of a form; removes its draft when there are none. Throws `std::system_error`.
    void keep(const Form& form) const;

    /// Sets the fields of the form's draft. A file that cannot be read counts as no draft.
    BroughtBack fillIn(Form& form) const;

    /// Removes the drafts that were last written more than thirty days ago, except those of `current`
    /// subjects. A file that cannot be removed stays.
    void removeOld(const std::vector<FormSubject>& current) const;

    /// Removes the draft of a form, if there is one. Throws `std::system_error`.
    void forget(const FormSubject& subject) const;

private:
    static std::string nameOf(const FormSubject& subject);
    std::filesystem::path fileOf(const FormSubject& subject) const { return directory_ / nameOf(subject); }

    std::filesystem::path directory_;
};

}  // namespace quillmere::work
