#include "notices/outbox.hpp"

#include "notices/notice.hpp"

#include <algorithm>

namespace quillmere::app {

void Outbox::add(const std::vector<StandingEvent>& events)
{
    events_.insert(events_.end(), events.begin(), events.end());
}

void Outbox::keepOnly(const std::vector<StandingEvent>& standing)
{
    std::erase_if(events_, [&](const StandingEvent& event) {
        return std::none_of(standing.begin(), standing.end(),
                            [&](const StandingEvent& other) { return other.key == event.key; });
    });
}

std::vector<StandingEvent> Outbox::takeNext(const QuillmereState& state)
{
    const auto mayGo = [&](const StandingEvent& event) { return mayBeTold(event, state); };
    const auto isWork = [](const StandingEvent& event) {
        return subjectOf(event.kind) == NoticeSubject::work;
    };
    std::vector<StandingEvent> next;
    const auto work = std::find_if(events_.begin(), events_.end(), isWork);
    if (work != events_.end()) {
        next.push_back(*work);
        events_.erase(work);
        return next;
    }
    std::copy_if(events_.begin(), events_.end(), std::back_inserter(next), mayGo);
    std::erase_if(events_, mayGo);
    return next;
}

bool Outbox::hasNext(const QuillmereState& state) const
{
    return std::any_of(events_.begin(), events_.end(),
                       [&](const StandingEvent& event) { return mayBeTold(event, state); });
}

}  // namespace quillmere::app
