// The live screen on the terminal of this process.
#pragma once

#include "base/environment.hpp"
#include "config/configuration.hpp"
#include "workspace/workspace.hpp"

#include <quillmere/widget/widget_route.hpp>

namespace quillmere::screen {

/// Whether input and output are a terminal that can show the screen.
bool hasScreen(const base::Environment& environment);

/// Shows the screen until the person quits, then restores the terminal. Says so when the work is not at
/// `route`. Throws Refusal without a terminal. An ending signal ends the process after the terminal is
/// restored.
void showScreen(const workspace::Workspace& workspace, const base::Environment& environment,
                std::optional<WidgetRoute> route, const config::Configuration& configuration);

}  // namespace quillmere::screen
