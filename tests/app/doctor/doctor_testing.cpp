#include "doctor_testing.hpp"

#include <algorithm>
#include <optional>

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

std::optional<doctor::Finding> findingIn(const std::vector<doctor::Check>& checks, const std::string& name)
{
    const auto found = std::find_if(checks.begin(), checks.end(),
                                    [&](const doctor::Check& check) { return check.name == name; });
    return found == checks.end() ? std::nullopt : std::optional(found->finding);
}

doctor::Finding requiredFinding(const std::vector<doctor::Check>& checks, const std::string& name)
{
    const std::optional<doctor::Finding> finding = findingIn(checks, name);
    EXPECT_TRUE(finding) << "there is no check " << name;
    return finding.value_or(doctor::Finding{});
}

}  // namespace

doctor::Subject subjectOf(const Person& person)
{
    return {.workspace = workspace::Workspace::in(
                person.directory(), [now = person.now] { return now; }, person.stateHome()),
            .stateHome = person.stateHome(),
            .origin = doctor::Origin::option,
            .now = person.now};
}

doctor::Finding findingOf(const std::string& check, const Person& person)
{
    return requiredFinding(doctor::examine(subjectOf(person)), check);
}

doctor::Finding findingOf(const std::string& check, const doctor::Examined& examined)
{
    return requiredFinding(doctor::checksOf(examined), check);
}

bool isMade(const std::string& check, const Person& person)
{
    return findingIn(doctor::examine(subjectOf(person)), check).has_value();
}

Person personWithPrivateFiles()
{
    Person person;
    person.has(stateIn(WorkflowState::idle));
    fs::permissions(person.directory(), fs::perms::owner_all);
    for (const std::string& name : person.names()) {
        fs::permissions(person.directory() / name, fs::perms::owner_read | fs::perms::owner_write);
    }
    return person;
}

testing::AssertionResult isFound(const doctor::Finding& finding, doctor::Verdict verdict,
                                 const std::string& text, const std::string& command)
{
    const bool isRight = finding.verdict == verdict && finding.text.find(text) != std::string::npos &&
                         finding.command.find(command) != std::string::npos &&
                         finding.remedy.empty() == (verdict == doctor::Verdict::good);
    return (isRight ? testing::AssertionSuccess() : testing::AssertionFailure())
           << doctor::wordOf(finding.verdict) << ": " << finding.text << " | " << finding.remedy << " | "
           << finding.command;
}

}  // namespace quillmere::test
