// The live screen on the terminal of this process.
#pragma once

#include "base/environment.hpp"
#include "workspace/workspace.hpp"

#include <quillmere/widget/widget_route.hpp>

namespace quillmere::screen {

/// Whether input and output are a terminal that can show the screen.
bool hasScreen(const base::Environment& environment);

/// Shows the screen until the person leaves it; where `route` leads elsewhere than the work is, it says so.
/// The terminal is then as it was before. Throws Refusal when there is no terminal for it. A signal that
/// asks the program to end does end it, after that.
void showScreen(const workspace::Workspace& workspace, const base::Environment& environment,
                std::optional<WidgetRoute> route);

}  // namespace quillmere::screen
