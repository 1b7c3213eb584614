#include "work/fields/earlier_values.hpp"

#include "work/fields/answers.hpp"

#include <set>
#include <type_traits>
#include <utility>
#include <variant>

namespace quillmere::work {
namespace {

/// Calls `visit` with each record of the type, the newest first.
template <class Record, class Visit>
void forEachRecord(const Block& block, Visit visit)
{
    if constexpr (std::is_same_v<Record, Block>) {
        visit(block);
    } else if constexpr (std::is_same_v<Record, BlockReview>) {
        if (block.reflection) {
            visit(*block.reflection);
        }
    } else {
        for (auto session = block.sessions.rbegin(); session != block.sessions.rend(); ++session) {
            if constexpr (std::is_same_v<Record, SessionPlan>) {
                visit(session->plan);
            } else if (session->review) {
                visit(*session->review);
            }
        }
    }
}

template <class Record, class Visit>
void forEachRecord(const QuillmereState& state, Visit visit)
{
    if constexpr (std::is_same_v<Record, SessionPlan>) {
        if (state.plannedNextSession) {
            visit(*state.plannedNextSession);
        }
    }
    if (state.currentBlock) {
        forEachRecord<Record>(*state.currentBlock, visit);
    }
    for (const Block& block : state.blockHistory) {
        forEachRecord<Record>(block, visit);
    }
}

}  // namespace

/// Texts in the order in which they come, each once, as many as are wanted.
class DistinctTexts {
public:
    void add(const std::string& text)
    {
        if (!text.empty() && texts_.size() < mostEarlierValues && seen_.insert(text).second) {
            texts_.push_back(text);
        }
    }
    void add(const std::vector<ListItem>& items)
    {
        for (const ListItem& item : items) {
            add(item.text);
        }
    }
    std::vector<std::string> take() { return std::move(texts_); }

private:
    std::set<std::string> seen_;
    std::vector<std::string> texts_;
};

template <class Record>
std::vector<std::string> earlierValues(const QuillmereState& state, const RecordField<Record>& field)
{
    DistinctTexts values;
    forEachRecord<Record>(state, [&](const Record& record) {
        std::visit([&](const auto& value) { values.add(value); }, valueIn(record, field));
    });
    return values.take();
}

template std::vector<std::string> earlierValues(const QuillmereState&, const RecordField<Block>&);
template std::vector<std::string> earlierValues(const QuillmereState&, const RecordField<SessionPlan>&);
template std::vector<std::string> earlierValues(const QuillmereState&, const RecordField<SessionReview>&);
template std::vector<std::string> earlierValues(const QuillmereState&, const RecordField<BlockReview>&);

}  // namespace quillmere::work
