#include "cli/line_editor.hpp"

#include "base/system/held_signals.hpp"
#include "base/system/wait.hpp"
#include "cli/edited_keys.hpp"
#include "cli/kept_modes.hpp"
#include "cli/libedit.hpp"
#include "cli/libedit_handles.hpp"
#include "cli/utf8_locale.hpp"
#include "screen/keys/key_reader.hpp"
#include "screen/terminal/restore_terminal.hpp"

#include <histedit.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <system_error>

namespace quillmere::cli {
namespace {

/// A line that is edited by libedit. It gets its characters from here, one by one: keys that the terminal
/// sends as sequences arrive there as single control characters, and no others that could get into the line.
class EditedLine {
public:
    explicit EditedLine(const LineRequest& request)
        : request_(request), prompt_(wideText(request.prompt)), history_(historyOf(request.earlier))
    {
        libedit().set(line_.get(), EL_CLIENTDATA, this);
        libedit().set(line_.get(), EL_PROMPT, prompt);
        libedit().set(line_.get(), EL_GETCFN, nextCharacter);
        libedit().set(line_.get(), EL_HIST, libedit().history, history_.get());
        // The keys of signals too: a paste that has one must not end the program.
        libedit().set(line_.get(), EL_SETTY, L"-d", L"-isig", nullptr);
        bindKeys(line_.get());
    }

    std::optional<std::string> read()
    {
        print(screen::markPastes);
        int count = 0;
        const wchar_t* const text = libedit().takeLine(line_.get(), &count);
        print(screen::markNoPastes);
        return text ? std::optional(withoutLineEnd(utf8Text(text))) : std::nullopt;
    }

    /// The signal that ended the editing; 0 for none.
    int ending() const { return ending_; }

private:
    static EditedLine& of(EditLine* line)
    {
        void* self = nullptr;
        libedit().get(line, EL_CLIENTDATA, &self);
        return *static_cast<EditedLine*>(self);
    }
    static wchar_t* prompt(EditLine* line) { return of(line).prompt_.data(); }
    static int nextCharacter(EditLine* line, wchar_t* character) noexcept
    {
        EditedLine& edited = of(line);
        try {
            while (edited.characters_.empty()) {
                if (!edited.receive()) {
                    return 0;
                }
            }
        } catch (const std::system_error&) {
            return -1;  // as when the terminal is gone
        }
        *character = edited.characters_.front();
        edited.characters_.erase(0, 1);
        return 1;
    }

    static std::string withoutLineEnd(std::string text)
    {
        if (text.ends_with('\n')) {
            text.pop_back();
        }
        return text;
    }

    void print(std::string_view sequence)
    {
        std::fwrite(sequence.data(), 1, sequence.size(), output_.get());
        std::fflush(output_.get());
    }

    /// Waits for a byte or a signal. Returns whether there may be more.
    bool receive()
    {
        // A sequence follows its escape byte at once; the Escape key sends nothing more.
        constexpr std::chrono::milliseconds pauseOfEscape{50};
        std::array<base::PollSource, 2> sources{{{request_.input}, {signals_.descriptor()}}};
        const bool isReady = base::waitFor(
            sources, isAfterEscape_ ? std::optional<std::chrono::nanoseconds>(pauseOfEscape) : std::nullopt);
        takeSignals();
        if (ending_ != 0) {
            return false;
        }
        if (!isReady && isAfterEscape_) {
            isAfterEscape_ = false;
            reader_.pause();
        }
        const bool isOpen = !sources[0].isReady() || readByte();
        while (const std::optional<screen::Key> key = reader_.key()) {
            if (const int signal = modes_.signalOf(*key)) {
                ::kill(0, signal);  // as the terminal does, to the whole job
            }
            characters_ += charactersOf(*key, request_.takesLines);
        }
        return isOpen;
    }

    /// One byte only: what follows the line is for the next prompt.
    bool readByte()
    {
        unsigned char byte = 0;
        const ssize_t count = ::read(request_.input, &byte, 1);
        if (count == 1) {
            isAfterEscape_ = byte == 0x1B;
            reader_.take(byte);
        }
        return count == 1 || (count == -1 && errno == EINTR);
    }

    void takeSignals()
    {
        for (const int signal : signals_.take()) {
            if (signal == SIGWINCH) {
                libedit().resize(line_.get());
                characters_ += redraw;
            } else if (signal == SIGTSTP) {
                stop();
            } else if (signal == SIGCONT) {
                takeTerminalBack();
                characters_ += redraw;
            } else {
                ending_ = signal;
            }
        }
    }

    void stop()
    {
        libedit().set(line_.get(), EL_PREP_TERM, 0);
        print(screen::markNoPastes);
        print("\n");
        base::haveUsualEffect(SIGTSTP);
        signals_.take();  // SIGCONT
        takeTerminalBack();
        // The cursor stands at the beginning of another row.
        libedit().set(line_.get(), EL_REFRESH);
    }

    /// After a stop, in which the shell has changed the modes of the terminal. libedit sets them only where
    /// it believes that they are different.
    void takeTerminalBack()
    {
        libedit().set(line_.get(), EL_PREP_TERM, 0);
        libedit().set(line_.get(), EL_PREP_TERM, 1);
        print(screen::markPastes);
        libedit().resize(line_.get());
    }

    const LineRequest& request_;
    const Utf8Locale locale_;  // before all that converts texts or measures them
    std::wstring prompt_;
    EarlierLines history_;
    Stream input_ = streamOn(request_.input, "r");
    Stream output_ = streamOn(request_.output, "w");
    // libedit reports unknown types of terminals to it.
    Stream nothing_{std::fopen("/dev/null", "we"), std::fclose};
    const base::HeldSignals signals_{SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGTSTP, SIGCONT, SIGWINCH};
    const KeptModes modes_{request_.input};
    EditorHandle line_ = lineOn(input_.get(), output_.get(), nothing_.get());
    screen::KeyReader reader_{screen::Charset::unicode};
    std::wstring characters_;  ///< decoded and not yet read
    bool isAfterEscape_ = false;
    int ending_ = 0;
};

}  // namespace

bool canEditLines(int input, int output)
{
    const char* const type = std::getenv("TERM");
    return type && *type && type != std::string_view("dumb") && ::isatty(input) == 1 &&
           ::isatty(output) == 1 && Utf8Locale::isAvailable();
}

std::optional<std::string> editLine(const LineRequest& request)
{
    int ending = 0;
    std::optional<std::string> text;
    {
        EditedLine line(request);
        text = line.read();
        ending = line.ending();
    }
    if (ending != 0) {
        // Only now: the terminal has its modes back.
        base::haveUsualEffect(ending);
    }
    return text;
}

}  // namespace quillmere::cli
