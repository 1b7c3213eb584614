#include "statefile/present.hpp"

#include "statefile/form.hpp"
#include "statefile/tokens.hpp"
#include "statefile/window.hpp"

#include <quillmere/records/json/coding_error.hpp>
#include <quillmere/store/state_store.hpp>

#include <algorithm>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace quillmere::statefile {
namespace {

constexpr std::size_t instantLength = 20;  // "2026-03-02T09:15:00Z"

constexpr FixedText quote = "\"";
constexpr FixedText comma = ",";
constexpr FixedText noElements = "]";

// What stands around the values of a question.
constexpr auto closedStart = elementStart + memberStart<3, &AgentQuestion::answer> + quote;
constexpr auto openStart = elementStart + memberStart<3, &AgentQuestion::createdAt> + quote;
constexpr auto beforeAnsweredAt = comma + memberStart<3, &AgentQuestion::answeredAt> + quote;
constexpr auto beforeCreatedAt = quote + comma + memberStart<3, &AgentQuestion::createdAt> + quote;
constexpr auto beforeId = quote + comma + memberStart<3, &AgentQuestion::id> + quote;
constexpr auto beforeText = quote + comma + memberStart<3, &AgentQuestion::question> + quote;

// And around the two lists.
constexpr auto questionsStart =
    FixedText("{") + memberStart<1, &QuillmereState::agentQuestions> + FixedText("[");
constexpr auto historyStart = comma + memberStart<1, &QuillmereState::blockHistory> + FixedText("[");
constexpr auto historyEnd = elementEnd + listEnd + comma;
constexpr auto lastLineOfBlock = memberStart<3, &Block::whyValue> + quote;

/// The file is not in the form that is known here.
class UnknownForm {};

/// From the value of `createdAt` to the end.
bool takeRestOfQuestion(Tokens& tokens)
{
    return tokens.skip(instantLength) && tokens.take(beforeId) && tokens.skip(Identifier::textLength) &&
           tokens.take(beforeText) && tokens.takeRestOfString() && tokens.take(elementEnd);
}

bool takeClosedQuestion(Tokens& tokens)
{
    return tokens.take(closedStart) && tokens.takeRestOfString() && tokens.take(beforeAnsweredAt) &&
           tokens.skip(instantLength) && tokens.take(beforeCreatedAt) && takeRestOfQuestion(tokens);
}

bool takeOpenQuestion(Tokens& tokens) { return tokens.take(openStart) && takeRestOfQuestion(tokens); }

class PresentReader {
public:
    PresentReader(const OpenFile& file, base::Reach reach, Instant now)
        : file_(file), window_(file), reach_(reach), now_(now)
    {
    }

    QuillmereState read()
    {
        require(questionsStart);
        readQuestions();
        require(historyStart);
        std::vector<Block> newest = readBlocks();
        QuillmereState state = readRest();
        state.blockHistory = std::move(newest);
        return state;
    }

private:
    /// Takes tokens from the text, which is extended as long as it ends before them. Returns whether they
    /// were there; if not, the text stays as it is.
    template <class Take>
    bool takeAll(const Take& take)
    {
        for (;;) {
            Tokens tokens(window_.text());
            if (take(tokens)) {
                window_.skip(tokens.taken());
                return true;
            }
            if (!tokens.isCutOff() || !window_.extend()) {
                return false;
            }
        }
    }

    template <std::size_t length>
    bool take(const FixedText<length>& expected)
    {
        return takeAll([&](Tokens& tokens) { return tokens.take(expected); });
    }

    template <std::size_t length>
    void require(const FixedText<length>& expected)
    {
        if (!take(expected)) {
            throw UnknownForm();
        }
    }

    /// The comma after an element, or the end of its list.
    bool takeComma()
    {
        if (take(comma)) {
            return true;
        }
        require(listEnd);
        return false;
    }

    void readQuestions()
    {
        if (take(noElements)) {
            return;
        }
        do {
            skipClosedQuestions();
            if (!takeAll(takeClosedQuestion)) {
                readOpenQuestion();
            }
        } while (takeComma());
    }

    /// Those that are in memory; not the last of the list.
    void skipClosedQuestions()
    {
        Tokens tokens(window_.text());
        std::size_t length = 0;
        while (takeClosedQuestion(tokens) && tokens.take(comma)) {
            length = tokens.taken();
        }
        window_.skip(length);
    }

    void readOpenQuestion()
    {
        std::string text;
        const bool isThere = takeAll([&](Tokens& tokens) {
            const bool isOpen = takeOpenQuestion(tokens);
            text = window_.text().substr(0, tokens.taken());
            return isOpen;
        });
        if (!isThere) {
            throw UnknownForm();
        }
        openQuestions_ += (openQuestions_.empty() ? "" : ",") + text;
    }

    std::vector<Block> readBlocks()
    {
        std::vector<Block> newest;
        isAtListEnd_ = take(noElements);
        while (!isAtListEnd_ && !base::areAllWithin(reach_, newest, now_)) {
            newest.push_back(readBlock());
            isAtListEnd_ = !takeComma();
        }
        return newest;
    }

    Block readBlock()
    {
        std::size_t end = window_.text().find(elementEnd.view());
        while (end == std::string_view::npos) {
            if (!window_.extend()) {
                throw UnknownForm();
            }
            end = window_.text().find(elementEnd.view());
        }
        const std::size_t length = end + elementEnd.view().size();
        Block block = StateStore::decoder().decode<Block>(Bytes(window_.text().substr(0, length)));
        window_.skip(length);
        return block;
    }

    /// The state without closed questions and history. Its text must be what is written for it: a key in
    /// another spelling, or given twice, could mean another state.
    QuillmereState readRest() const
    {
        std::string text(questionsStart.view());
        text.append(openQuestions_).append(openQuestions_.empty() ? noElements.view() : listEnd.view());
        text.append(historyStart.view()).append(noElements.view());
        text.append(isAtListEnd_ ? file_.textFrom(window_.offset()) : textAfterHistory());
        QuillmereState state = StateStore::decoder().decode<QuillmereState>(Bytes(text));
        if (StateStore::encoder().encode(state).view() != text) {
            throw UnknownForm();
        }
        return state;
    }

    /// Begins with the comma after the history, which is the last list of a state.
    std::string textAfterHistory() const
    {
        constexpr std::size_t usualLength = 1 << 14;
        for (std::size_t length = usualLength;; length *= 4) {
            const std::size_t begin =
                std::max(window_.offset(), file_.size() - std::min(length, file_.size()));
            const std::string text = file_.textFrom(begin);
            const std::size_t end = text.rfind(historyEnd.view());
            const std::size_t lastLine =
                end == text.npos ? end : text.rfind('\n', end - std::min<std::size_t>(end, 1));
            if (lastLine != text.npos) {
                return textAfter(text, lastLine, end);
            }
            if (begin == window_.offset()) {
                throw UnknownForm();
            }
        }
    }

    static std::string textAfter(std::string_view text, std::size_t lastLine, std::size_t end)
    {
        if (!text.substr(lastLine).starts_with(lastLineOfBlock.view())) {
            throw UnknownForm();
        }
        return std::string(text.substr(end + historyEnd.view().size() - comma.view().size()));
    }

    const OpenFile& file_;
    Window window_;
    base::Reach reach_;
    Instant now_;
    std::string openQuestions_;  ///< as in the list
    bool isAtListEnd_ = false;   ///< of the blocks, all of which were read
};

}  // namespace

std::optional<QuillmereState> readPresent(const std::filesystem::path& file, base::Reach reach, Instant now)
{
    try {
        const OpenFile opened(file);
        return PresentReader(opened, reach, now).read();
    } catch (const UnknownForm&) {
    } catch (const DecodingError&) {
    } catch (const std::system_error&) {
    }
    return std::nullopt;
}

}  // namespace quillmere::statefile
