#include "screen/pages/recall_page.hpp"

#include "screen/pages/recall_text.hpp"

namespace quillmere::screen {

Canvas RecallPage::text(std::size_t columns, Charset charset, Look heading) const
{
    return textOf(presenter_.recall(), columns, charset, heading).canvas;
}

}  // namespace quillmere::screen
