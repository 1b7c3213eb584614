#include "work/event_text.hpp"

#include "base/text/local_time.hpp"

namespace quillmere::work {

std::string eventText(const workspace::Event& event, Instant now)
{
    const std::string time = base::localTextSeenFrom(now, event.at);
    switch (event.kind) {
        case workspace::Event::Kind::blockStarted: return "The scheduled block started at " + time + ".";
        case workspace::Event::Kind::focusEnded: return "The focus session ended at " + time + ".";
        case workspace::Event::Kind::breakEnded: break;
    }
    return "The break was over at " + time + ".";
}

}  // namespace quillmere::work
