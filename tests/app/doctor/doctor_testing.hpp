// A person's files under examination.
#pragma once

#include "doctor/examine.hpp"

#include <ostream>
#include <string>

#include "program_testing.hpp"

namespace quillmere::doctor {

/// Lets a failed test name the verdict.
inline void PrintTo(Verdict verdict, std::ostream* stream) { *stream << wordOf(verdict); }

}  // namespace quillmere::doctor

namespace quillmere::test {

doctor::Subject subjectOf(const Person& person);

/// The finding of one check of the person's files; fails the test when there is no such check.
doctor::Finding findingOf(const std::string& check, const Person& person);

/// The same of finished measurements.
doctor::Finding findingOf(const std::string& check, const doctor::Examined& examined);

/// Whether the check is made.
bool isMade(const std::string& check, const Person& person);

/// A person with a state and both summaries, all of them private.
Person personWithPrivateFiles();

/// Passes when the finding has the verdict, contains both pieces of text, and a remedy exactly when there is
/// something to do.
testing::AssertionResult isFound(const doctor::Finding& finding, doctor::Verdict verdict,
                                 const std::string& text, const std::string& command = {});

}  // namespace quillmere::test
