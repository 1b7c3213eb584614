// Forms half filled in, kept until they are saved.
#pragma once

#include "screen/form.hpp"

#include <filesystem>
#include <string>
#include <vector>

namespace quillmere::screen {

/// One small file a form, replaced whole with every change, so that nothing typed is lost with the program.
/// The directory is made with the first draft, for its owner only. Without a directory nothing is kept.
class Drafts {
public:
    explicit Drafts(std::filesystem::path directory) : directory_(std::move(directory)) {}

    bool areKept() const { return !directory_.empty(); }

    /// Keeps what was filled in, in the fields that it has changed. Throws `std::system_error`.
    void keep(const Form& form) const;

    /// Fills in what was kept of this form. What cannot be read is no draft.
    BroughtBack fillIn(Form& form) const;

    /// Removes drafts that were not written for thirty days, but for those of the subjects that there still
    /// are. What cannot be removed stays.
    void removeOld(const std::vector<FormSubject>& current) const;

    /// Forgets the draft of a form, if there is one. Throws `std::system_error`.
    void forget(const FormSubject& subject) const;

private:
    static std::string nameOf(const FormSubject& subject);
    std::filesystem::path fileOf(const FormSubject& subject) const { return directory_ / nameOf(subject); }

    std::filesystem::path directory_;
};

}  // namespace quillmere::screen
