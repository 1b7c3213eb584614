#include "work/deletion.hpp"

#include "base/reach.hpp"

#include "base/text/count.hpp"
#include "base/text/local_time.hpp"
#include "base/text/sanitize.hpp"
#include "work/done_text.hpp"
#include "work/naming.hpp"
#include "work/recall/block_account.hpp"
#include "workspace/retention.hpp"

#include <iterator>

namespace quillmere::work {

std::string blockInOneLine(const Block& block, base::Hours hours)
{
    const std::string title = block.outcomes.empty() ? "" : base::sanitized(block.outcomes.front().title);
    return "the block of " + base::localText(base::finishedAt(block), hours) + ", " +
           base::countText(std::ssize(block.sessions), "session") + (title.empty() ? "" : ": " + title);
}

std::string deletionQuestion(const Block& block, base::Hours hours)
{
    return "Delete " + blockInOneLine(block, hours) + "?";
}

std::string deletedText(const Block& block, const QuillmereState& state)
{
    return std::string(done::blockDeleted) +
           " Versions hold it for longer: " + std::string(workspace::retentionInWords) +
           ". quillmere delete " + shortName(block.id, state) + " --versions-too removes it there.";
}

}  // namespace quillmere::work
