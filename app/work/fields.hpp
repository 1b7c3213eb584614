// The texts that a person fills in: one table a record, from which options, prompts and forms follow.
#pragma once

#include <quillmere/records/block.hpp>

#include <array>
#include <string>

namespace quillmere::work {

/// One text of a record.
template <class Record>
struct RecordText {
    const char* option;  ///< without the dashes
    std::string Record::*member;
    const char* question;  ///< what a person is asked, and the option's help
};

inline constexpr auto blockFields = std::to_array<RecordText<Block>>({
    {"why", &Block::whyValue, "Why does it matter?"},
    {"done-test", &Block::doneTest, "How will you know that it is done?"},
    {"hazards", &Block::hazards, "What could get in the way?"},
    {"check", &Block::measurableCheck, "What can be measured at the end?"},
    {"notes", &Block::contextNotes, "What else should be at hand?"},
});

inline constexpr auto planFields = std::to_array<RecordText<SessionPlan>>({
    {"outcome", &SessionPlan::intendedOutcome, "What should this session bring about?"},
    {"first-action", &SessionPlan::firstAction, "What is the first action?"},
    {"hazards", &SessionPlan::hazardsMitigation, "What could get in the way, and what then?"},
    {"framing", &SessionPlan::nicuFraming, "How will you look at it?"},
});

inline constexpr auto reviewFields = std::to_array<RecordText<SessionReview>>({
    {"result", &SessionReview::noteworthyResult, "What came out of it?"},
    {"distractions", &SessionReview::distractions, "What distracted you?"},
    {"improvement", &SessionReview::improvement, "What would you do better?"},
});

inline constexpr auto reflectionFields = std::to_array<RecordText<BlockReview>>({
    {"output", &BlockReview::outputProduced, "What was produced?"},
    {"comparison", &BlockReview::normalComparison, "How does it compare with the usual?"},
    {"bogged-down", &BlockReview::boggedDown, "Where did it bog down?"},
    {"went-well", &BlockReview::wentWell, "What went well?"},
    {"lessons", &BlockReview::lessons, "What is to be learnt from it?"},
});

}  // namespace quillmere::work
