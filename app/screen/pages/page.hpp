// A page that covers the work until the person leaves it.
#pragma once

#include "base/reach.hpp"
#include "screen/canvas/canvas.hpp"
#include "screen/keys/key.hpp"

#include <memory>
#include <string>
#include <vector>

namespace quillmere::screen {

/// A key and what it does.
struct KeyHint {
    std::string key;
    std::string label;
};

/// The room of a page: its area in a window.
struct Room {
    Size window;
    Area area;
};

class Page;

/// The effect of a key on the pages.
struct PageStep {
    enum class Kind {
        stays,
        leaves,
        quits,
        isForTheWork,  ///< the page has no use for the key, and gives it to the work that it covers
    };

    Kind kind = Kind::stays;
    std::unique_ptr<Page> opened = {};  ///< covers the page from now on; null: none
};

class Page {
public:
    /// How far back the state goes while the page and those that it opens are in view.
    static constexpr base::Reach reach = base::Reach::prompts;

    Page() = default;
    Page(const Page&) = delete;
    Page& operator=(const Page&) = delete;
    virtual ~Page() = default;

    /// Takes a key: Esc leaves and q quits, unless characters are text.
    PageStep press(const Key& key, const Room& room);

    /// Whether characters and pasted text are text now, not commands.
    virtual bool takesText() const { return false; }

    /// The keys of the page; with those that scroll, if there is something to scroll.
    virtual std::vector<KeyHint> keys(bool scrolls) const = 0;

    /// Whether a part of the page is out of view, and keys scroll to it.
    virtual bool scrolls(const Room& room) const = 0;

    /// Draws into its area of the canvas, which has the size of the window.
    virtual void draw(Canvas& canvas, const Area& area, Look heading) const = 0;

    /// Adopts the state. Returns false when it has nothing to show any more.
    virtual bool follow() { return true; }

protected:
    /// Goes a step back within the page. Returns false when there is none, so that Esc leaves the page.
    virtual bool goesBack() { return false; }
    virtual PageStep take(const Key& key, const Room& room) = 0;
};

/// Whether the key types this character.
bool types(const Key& key, std::string_view character);

}  // namespace quillmere::screen
