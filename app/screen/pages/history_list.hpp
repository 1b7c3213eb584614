// The blocks of the page of the history, a row each.
#pragma once

#include "workspace/workspace.hpp"

#include <quillmere/records/quillmere_state.hpp>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace quillmere::screen {

struct HistoryRow {
    Identifier block;
    std::string day;    ///< of its end; of the block at hand that it is at hand
    std::string name;   ///< short (work::shortName)
    std::string signs;  ///< of its sessions
    std::string title;  ///< of its first outcome
};

class HistoryList {
public:
    /// Lists the block at hand and the finished blocks, the newest first, in which the word occurs. Does
    /// nothing when neither the state nor the word has changed.
    void update(const workspace::Situation& situation, const std::string& word);

    const std::vector<HistoryRow>& rows() const { return rows_; }

    /// The index of a block; absent when it is not listed.
    std::optional<std::size_t> indexOf(const Identifier& block) const;

private:
    /// The rows are the same while these are.
    struct Listed {
        Instant updatedAt;  ///< of the state
        std::size_t finished;
        bool hasCurrent;
        std::string word;

        friend bool operator==(const Listed&, const Listed&) = default;
    };

    std::vector<HistoryRow> rows_;
    std::optional<Listed> listed_;
};

}  // namespace quillmere::screen
