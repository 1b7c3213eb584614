// The live screen on the terminal of this process.
#pragma once

#include "program.hpp"

#include <quillmere/widget/widget_route.hpp>

namespace quillmere::app::ui {

/// Whether somebody sits before a terminal that can show it, and is not a program.
bool hasScreen(Program& program);

/// Shows the screen until the person leaves it; where `route` leads elsewhere than the work is, it says so.
/// The terminal is then as it was before. Throws ProgramError when there is no terminal for it. A signal that
/// asks the program to end does end it, after that.
void showScreen(Program& program, std::optional<WidgetRoute> route);

}  // namespace quillmere::app::ui
