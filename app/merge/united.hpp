// Two lists of records with identifiers as one.
#pragma once

#include <quillmere/records/identifier.hpp>

#include <algorithm>
#include <cstddef>
#include <unordered_map>
#include <utility>
#include <vector>

namespace quillmere::merge {

template <class Record>
std::vector<const Record*> pointersTo(const std::vector<Record>& records)
{
    std::vector<const Record*> pointers;
    pointers.reserve(records.size());
    for (const Record& record : records) {
        pointers.push_back(&record);
    }
    return pointers;
}

/// Records of several lists, each identifier once.
template <class Record>
class Union {
public:
    /// Adds a list; of an identifier that is there already, `join(former, added)` becomes the record. Returns
    /// the places of the list's records, in its order.
    template <class Join>
    std::vector<std::size_t> add(const std::vector<const Record*>& list, const Join& join)
    {
        ++listCount_;
        records_.reserve(list.size());
        places_.reserve(list.size());
        std::vector<std::size_t> order;
        order.reserve(list.size());
        for (const Record* record : list) {
            const std::size_t place = places_.try_emplace(record->id, records_.size()).first->second;
            if (place == records_.size()) {
                records_.push_back(*record);
                seenIn_.push_back(0);
            } else if (records_[place] != *record) {
                records_[place] = join(records_[place], *record);
            }
            if (std::exchange(seenIn_[place], listCount_) != listCount_) {
                order.push_back(place);
            }
        }
        return order;
    }

    std::size_t size() const { return records_.size(); }
    const Record& at(std::size_t place) const { return records_[place]; }

    /// Takes the records out, in an order.
    std::vector<Record> inOrder(const std::vector<std::size_t>& order) &&
    {
        std::vector<Record> result;
        result.reserve(order.size());
        for (const std::size_t place : order) {
            result.push_back(std::move(records_[place]));
        }
        return result;
    }

private:
    std::vector<Record> records_;
    std::vector<int> seenIn_;  ///< the number of the last list that has the record
    int listCount_ = 0;
    std::unordered_map<Identifier, std::size_t> places_;
};

/// The order of a union. A list that has all identifiers keeps its order, so that a merge changes nothing
/// where one side came of the other. When both have all of them, in different orders, the order is that of
/// the list whose identifiers come first; when neither has, the records are sorted by `before`.
template <class Record, class Before>
std::vector<std::size_t> orderOf(const Union<Record>& all, std::vector<std::size_t> a,
                                 std::vector<std::size_t> b, const Before& before)
{
    const bool hasAll = a.size() == all.size();
    const bool otherHasAll = b.size() == all.size();
    if (hasAll && otherHasAll) {
        const bool comesFirst = std::lexicographical_compare(
            a.begin(), a.end(), b.begin(), b.end(),
            [&](auto one, auto other) { return all.at(one).id < all.at(other).id; });
        return comesFirst ? a : b;
    }
    if (hasAll || otherHasAll) {
        return hasAll ? a : b;
    }
    a.resize(all.size());
    for (std::size_t place = 0; place < a.size(); ++place) {
        a[place] = place;
    }
    std::sort(a.begin(), a.end(), [&](auto one, auto other) { return before(all.at(one), all.at(other)); });
    return a;
}

/// The records of both lists, each identifier once. `join` gets two different records of one identifier, and
/// must give the same in either order; `before` must be a strict order of records with different identifiers.
template <class Record, class Join, class Before>
std::vector<Record> united(const std::vector<const Record*>& a, const std::vector<const Record*>& b,
                           const Join& join, const Before& before)
{
    Union<Record> all;
    std::vector<std::size_t> orderOfA = all.add(a, join);
    std::vector<std::size_t> orderOfB = all.add(b, join);
    const std::vector<std::size_t> order = orderOf(all, std::move(orderOfA), std::move(orderOfB), before);
    return std::move(all).inOrder(order);
}

}  // namespace quillmere::merge
