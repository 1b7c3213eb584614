// The terminal of this process in screen mode.
#pragma once

#include "screen/canvas/canvas.hpp"
#include "screen/keys/key_reader.hpp"
#include "screen/terminal/painter.hpp"

#include <memory>
#include <optional>
#include <string>
#include <vector>

struct screen;   // of curses
struct _win_st;  // of curses

namespace quillmere::screen {

/// Whether the terminal described by TERM can move its cursor.
bool canShowScreens();

/// Uses standard input and output during its lifetime and restores the terminal afterwards; CrashHandler
/// restores it after a crash. Only one may exist at a time.
class Terminal {
public:
    /// Throws Refusal when the terminal cannot show a screen.
    Terminal();
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;
    ~Terminal();

    Charset charset() const { return charset_; }
    Size size() const;

    /// Shows a picture of the terminal's size.
    void show(const Canvas& canvas);
    void ringBell();
    /// Sets the title of the window, which has its former title again whenever the terminal is restored.
    void setTitle(const std::string& title);

    /// The keys pressed since the last call, without waiting; a few hundred at most. Unknown keys are
    /// dropped.
    std::vector<Key> takeKeys();
    /// Whether more keys can be taken without waiting.
    bool hasMoreKeys() const { return hasMoreKeys_; }

    /// Adopts a new size of the window.
    void adaptToSize();

    /// Restores the terminal for a while; `takeBack` returns to screen mode and redraws everything.
    void giveBack();
    void takeBack();

private:
    void setInputModes();
    void askForItsBackground();
    void keepFormerTitle();

    struct Delete {
        void operator()(::screen* terminal) const;
    };

    std::unique_ptr<::screen, Delete> screen_;
    _win_st* input_ = nullptr;  ///< owned by `screen_`
    Charset charset_;
    KeyReader keyReader_;
    std::optional<Painter> painter_;
    std::vector<Key> earlyKeys_;  ///< pressed while the terminal was being asked
    bool hasMoreKeys_ = false;
    bool keepsTitle_ = false;  ///< the former title is kept by the terminal
    std::string title_;        ///< as it was set last; empty: not since the terminal was taken over
};

}  // namespace quillmere::screen
