// A person at the live screen, without a terminal.
#pragma once

#include "program_testing.hpp"
#include "screen/screen.hpp"
#include "screen/screen_testing.hpp"

#include <memory>
#include <string>

namespace quillmere::test {

/// Has a clock of its own.
class ScreenOfAPerson : public testing::Test {
protected:
    const TimeZone utc{"UTC"};
    Person person;
    std::unique_ptr<screen::Screen> ui;
    config::Configuration configuration;

    void opens(std::optional<WidgetRoute> route = std::nullopt)
    {
        ui = std::make_unique<screen::Screen>(
            workspace::Workspace::in(person.directory(), [this] { return person.now; }),
            work::Drafts(person.stateHome()), route, configuration);
    }
    void opens(const QuillmereState& state)
    {
        person.has(state);
        opens();
    }
    void presses(const std::string& keys)
    {
        type([this](const Key& key) { ui->press(key); }, keys);
        ui->keepDraft();
    }
    void presses(const Key& key)
    {
        ui->press(key);
        ui->keepDraft();
    }
    void waits(double seconds)
    {
        person.now = person.now + seconds;
        ui->refresh();
    }
    testing::AssertionResult shows(const std::string& text) const
    {
        const std::string picture = ui->picture(screen::Charset::unicode).text();
        return picture.find(text) != std::string::npos
                   ? testing::AssertionSuccess() << "shows " << text << " in\n"
                                                 << picture
                   : testing::AssertionFailure() << "does not show " << text << " in\n"
                                                 << picture;
    }
};

inline const Key save = screen::withControl('s');
inline const Key escape{Key::Kind::escape};
inline const Key enter{Key::Kind::enter};

}  // namespace quillmere::test
