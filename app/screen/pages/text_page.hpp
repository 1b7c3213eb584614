// A page that is a text.
#pragma once

#include "screen/pages/page.hpp"
#include "screen/pages/scrolled_text.hpp"

namespace quillmere::screen {

class TextPage : public Page {
public:
    std::vector<KeyHint> keys(bool scrolls) const override;
    bool scrolls(const Room& room) const override;
    void draw(Canvas& canvas, const Area& area, Look heading) const override;

protected:
    PageStep take(const Key& key, const Room& room) override;

    /// The text at full height.
    virtual Canvas text(std::size_t columns, Charset charset, Look heading) const = 0;
    /// The keys of the page beside those that scroll, leave and quit.
    virtual std::vector<KeyHint> ownKeys() const { return {}; }

    void toTop() { scrolled_.toTop(); }

private:
    std::size_t rowsIn(const Area& area) const;

    ScrolledText scrolled_;
};

}  // namespace quillmere::screen
