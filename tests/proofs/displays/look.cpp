#include "proofs/displays/look.hpp"

#include "work/short_view.hpp"
#include "workspace/catching_up.hpp"

#include <quillmere/records/json/json_decoder.hpp>
#include <quillmere/records/json/json_encoder.hpp>
#include <quillmere/store/state_store.hpp>

#include <algorithm>
#include <utility>

namespace quillmere::test {
namespace {

template <class Record>
Record asInFile(const Record& record)
{
    return JsonDecoder().decode<Record>(JsonEncoder(JsonLayout::compact).encode(record));
}

}  // namespace

workspace::Situation Look::situation() const
{
    workspace::Situation situation{.state = saved, .events = {}, .now = now};
    situation.events = workspace::catchUp(situation.state, now);
    return situation;
}

WidgetSnapshot Look::widget() const { return asInFile(WidgetSnapshot::make(saved, savedAt)); }

AgentSnapshot Look::agent() const
{
    return asInFile(StateStore({}, StateStore::renameReplacing).agentSnapshot(saved, std::nullopt));
}

Look RandomLooks::next()
{
    person_.act();
    Look look{.saved = person_.state(), .savedAt = person_.now(), .now = person_.now()};
    if (oneIn(3)) {
        addFractions(look.saved);
    }
    if (oneIn(4)) {
        look.savedAt = look.savedAt + below(300);
    }
    look.savedAt = std::max(look.savedAt, look.saved.updatedAt);
    workspace::catchUp(look.saved, look.savedAt);  // as every save does first
    look.now = anyTime(look);
    return look;
}

void RandomLooks::addFractions(QuillmereState& state)
{
    constexpr double quarter = 0.25;
    state.breakExtensionSeconds += quarter * below(9);
    if (state.currentBlock) {
        state.currentBlock->breakDurationSeconds += quarter * below(9);
        for (WorkSession& session : state.currentBlock->sessions) {
            session.plannedDurationSeconds += quarter * below(9);
            session.accumulatedPausedSeconds += quarter * below(9);
        }
    }
}

Instant RandomLooks::anyTime(const Look& look)
{
    constexpr double day = 86'400;
    const work::ShortView view = work::ShortView::of({look.saved, {}, look.savedAt});
    switch (below(8)) {
        case 0: return look.savedAt;
        case 1:
        case 2: return look.savedAt + below(3'000);
        case 3: return look.savedAt - below(3'000);
        case 4: return look.savedAt + day * below(10'000) + below(60);
        case 5: return look.savedAt - day * below(10'000) - below(60);
        case 6: return view.schedule ? view.schedule->start + below(3) - 1 : look.savedAt + 1;
        default: return view.timer ? view.timer->end + below(3) - 1 : look.savedAt - 1;
    }
}

}  // namespace quillmere::test
