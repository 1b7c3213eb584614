// The fields of a record as facts, under the labels of their table.
#pragma once

#include "work/fields/fields.hpp"
#include "work/recall/passage.hpp"

#include <quillmere/records/block.hpp>

#include <optional>
#include <vector>

namespace quillmere::work {

/// The field as a fact: a rating as "4 of 5", a served outcome by its title in `block`. Absent for an empty
/// text, for a list, and for a planned start. Instantiated for the records of the tables.
template <class Record>
std::optional<Fact> factOf(const Record& record, const RecordField<Record>& field, const Block& block);

/// The facts of all fields of the record's table. The outcome that a plan serves is left out where the
/// session has the same one.
std::vector<Fact> factsOf(const SessionPlan& plan, const Block& block);
std::vector<Fact> factsOf(const SessionReview& review, const Block& block);
std::vector<Fact> factsOf(const BlockReview& reflection, const Block& block);
/// The texts of the block, without its outcomes, lengths and times.
std::vector<Fact> factsOf(const Block& block);

/// The fact of one text of a record, if it is not empty.
template <class Record>
void addFact(std::vector<Fact>& facts, const Record& record, std::string Record::*text, const Block& block);

}  // namespace quillmere::work
