#include "statefile/present.hpp"

#include "statefile/form.hpp"
#include "statefile/tokens.hpp"
#include "statefile/window.hpp"
#include "statefile/written_record.hpp"

#include <quillmere/records/json/coding_error.hpp>
#include <quillmere/records/json/date_text.hpp>
#include <quillmere/store/state_store.hpp>

#include <algorithm>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace quillmere::statefile {
namespace {

constexpr FixedText quote = "\"";
constexpr FixedText comma = ",";

// What stands around the values of a question.
constexpr auto closedStart = elementStart + memberStart<3, &AgentQuestion::answer> + quote;
constexpr auto openStart = elementStart + memberStart<3, &AgentQuestion::createdAt> + quote;
constexpr auto beforeAnsweredAt = comma + memberStart<3, &AgentQuestion::answeredAt> + quote;
constexpr auto beforeCreatedAt = quote + comma + memberStart<3, &AgentQuestion::createdAt> + quote;
constexpr auto beforeId = quote + comma + memberStart<3, &AgentQuestion::id> + quote;
constexpr auto beforeText = quote + comma + memberStart<3, &AgentQuestion::question> + quote;

constexpr auto historyEnd = elementEnd + listEnd + comma;
constexpr auto lastLineOfBlock = memberStart<3, &Block::whyValue> + quote;

/// The file is not in the form that is known here.
class UnknownForm {};

/// From the value of `createdAt` to the end.
bool takeRestOfQuestion(Tokens& tokens)
{
    return tokens.skip(json::dateTextLength) && tokens.take(beforeId) &&
           tokens.skip(Identifier::textLength) && tokens.take(beforeText) && tokens.takeRestOfString() &&
           tokens.take(elementEnd);
}

bool takeOpenQuestion(Tokens& tokens) { return tokens.take(openStart) && takeRestOfQuestion(tokens); }

/// Instants of one length are in the order of their texts.
bool isBefore(std::string_view instant, const Tokens& tokens)
{
    return tokens.rest().substr(0, json::dateTextLength) < instant;
}

/// A question that was asked and answered before an instant.
bool takeClosedQuestion(Tokens& tokens, std::string_view before)
{
    return tokens.take(closedStart) && tokens.takeRestOfString() && tokens.take(beforeAnsweredAt) &&
           isBefore(before, tokens) && tokens.skip(json::dateTextLength) && tokens.take(beforeCreatedAt) &&
           isBefore(before, tokens) && takeRestOfQuestion(tokens);
}
bool takeClosedQuestion(Tokens& tokens) { return takeClosedQuestion(tokens, "A"); }

template <class Record>
bool takeWrittenElement(Tokens& tokens)
{
    constexpr std::size_t depth = 2;
    return tokens.take(indentation<depth>) && takeWrittenRecord<Record, depth>(tokens);
}

/// Whether blocks and questions beyond reach are looked at.
enum class Care { readsThePresent, checksAll };

class PresentReader {
public:
    PresentReader(const OpenFile& file, Care care, base::Reach reach, Instant now)
        : file_(file), window_(file), care_(care), reach_(reach), now_(now)
    {
        const Instant since = base::recentQuestionsSince(now);
        recentSince_ = json::hasDateText(since) ? json::dateText(since) : std::string();
    }

    QuillmereState read()
    {
        require(questionsStart);
        readQuestions();
        require(historyStart);
        std::vector<Block> newest = readBlocks();
        if (care_ == Care::checksAll) {
            checkEarlierBlocks();
        }
        QuillmereState state = readRest();
        state.blockHistory = std::move(newest);
        return state;
    }

    KeptPart keptPart(OpenFile file, const QuillmereState& state) const
    {
        return {std::move(file), closedQuestions_, earlierBlocks_, state};
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
            if (care_ == Care::readsThePresent) {
                skipClosedQuestions();
            }
            readQuestion();
        } while (takeComma());
    }

    /// Those that are in memory; not the last of the list.
    void skipClosedQuestions()
    {
        Tokens tokens(window_.text());
        std::size_t length = 0;
        while (takeClosedQuestion(tokens, recentSince_) && tokens.take(comma)) {
            length = tokens.taken();
        }
        window_.skip(length);
    }

    void readQuestion()
    {
        const std::size_t begin = window_.offset();
        if (takeAll([&](Tokens& tokens) { return takeClosedQuestionWithCare(tokens); })) {
            extend(closedQuestions_.back(), begin);
            return;
        }
        std::string text;
        const bool isThere = takeAll([&](Tokens& tokens) {
            const bool isQuestion = takeOpenQuestion(tokens) || takeClosedQuestion(tokens);
            text = window_.text().substr(0, tokens.taken());
            return isQuestion;
        });
        if (!isThere) {
            throw UnknownForm();
        }
        questions_ += (questions_.empty() ? "" : ",") + text;
        closedQuestions_.push_back({});
    }

    bool takeClosedQuestionWithCare(Tokens& tokens) const
    {
        Tokens checked = tokens;
        return takeClosedQuestion(tokens, recentSince_) &&
               (care_ == Care::readsThePresent || takeWrittenElement<AgentQuestion>(checked));
    }

    /// By an element that begins at an offset and has just been taken.
    void extend(Run& run, std::size_t begin) const
    {
        run = {.begin = run.isEmpty() ? begin : run.begin, .end = window_.offset()};
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

    void checkEarlierBlocks()
    {
        while (!isAtListEnd_) {
            const std::size_t begin = window_.offset();
            if (!takeAll(takeWrittenElement<Block>)) {
                throw UnknownForm();
            }
            extend(earlierBlocks_, begin);
            isAtListEnd_ = !takeComma();
        }
    }

    /// The state without history, and without the questions beyond reach. Its text must be what is written
    /// for it: a key in another spelling, or given twice, could mean another state.
    QuillmereState readRest() const
    {
        std::string text(questionsStart.view());
        text.append(questions_).append(questions_.empty() ? noElements.view() : listEnd.view());
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
    Care care_;
    base::Reach reach_;
    Instant now_;
    std::string recentSince_;
    std::string questions_;  ///< within reach, as in the list
    std::vector<Run> closedQuestions_ = std::vector<Run>(1);
    Run earlierBlocks_;
    bool isAtListEnd_ = false;  ///< of the blocks
};

template <class Read>
auto ifFormIsKnown(const Read& read) -> std::optional<decltype(read())>
{
    try {
        return read();
    } catch (const UnknownForm&) {
    } catch (const DecodingError&) {
    } catch (const std::system_error&) {
    }
    return std::nullopt;
}

}  // namespace

std::optional<QuillmereState> readPresent(const std::filesystem::path& file, base::Reach reach, Instant now)
{
    return ifFormIsKnown([&] {
        const OpenFile opened(file);
        return PresentReader(opened, Care::readsThePresent, reach, now).read();
    });
}

std::optional<Changeable> readChangeable(const std::filesystem::path& file, base::Reach reach, Instant now)
{
    return ifFormIsKnown([&] {
        OpenFile opened(file);
        PresentReader reader(opened, Care::checksAll, reach, now);
        QuillmereState state = reader.read();
        KeptPart kept = reader.keptPart(std::move(opened), state);
        return Changeable{std::move(state), std::move(kept)};
    });
}

}  // namespace quillmere::statefile
