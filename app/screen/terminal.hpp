// The person's terminal, taken over and given back.
#pragma once

#include "screen/canvas.hpp"
#include "screen/key_reader.hpp"

#include <memory>
#include <vector>

struct screen;  // of curses

namespace quillmere::screen {

/// Whether the terminal of this process, as TERM describes it, can place its cursor.
bool canShowScreens();

/// Takes over standard input and output for as long as it lives; the terminal is then as it was before (and
/// breakdown.hpp sees to it where nothing lives on). One at a time.
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

    /// What was pressed since the last call, without waiting; some hundred keys at most. Keys that mean
    /// nothing here are left out.
    std::vector<Key> takeKeys();
    /// Whether the last call has left some that need not be waited for.
    bool hasMoreKeys() const { return hasMoreKeys_; }

    /// Takes over a new size of the window.
    void adaptToSize();

    /// Gives the terminal back for a while; `takeBack` draws everything anew.
    void giveBack();
    void takeBack();

private:
    void setInputModes();

    struct Delete {
        void operator()(::screen* terminal) const;
    };

    std::unique_ptr<::screen, Delete> screen_;
    Charset charset_;
    KeyReader keyReader_;
    bool hasMoreKeys_ = false;
    bool coloured_ = false;
};

}  // namespace quillmere::screen
