// Documents with random damage. Another parser decides whether they are still JSON.
#include <quillmere/engine/timer_snapshot.hpp>
#include <quillmere/records/json/json_decoder.hpp>
#include <quillmere/records/quillmere_state.hpp>
#include <quillmere/store/agent_snapshot.hpp>
#include <quillmere/widget/widget_snapshot.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <random>

#include "records/coding_helpers.hpp"
#include "records/complete_records.hpp"
#include "records/json/malformed_texts.hpp"
#include "support/sample_states.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere {
namespace {

namespace fs = std::filesystem;

enum class Verdict { wellFormed, malformed, undecided };

/// A handler that only records how the other parser ends.
struct Judge : nlohmann::json_sax<nlohmann::json> {
    bool isOutOfRange = false;

    bool null() override { return true; }
    bool boolean(bool) override { return true; }
    bool number_integer(number_integer_t) override { return true; }
    bool number_unsigned(number_unsigned_t) override { return true; }
    bool number_float(number_float_t, const string_t&) override { return true; }
    bool string(string_t&) override { return true; }
    bool binary(binary_t&) override { return true; }
    bool start_object(std::size_t) override { return true; }
    bool key(string_t&) override { return true; }
    bool end_object() override { return true; }
    bool start_array(std::size_t) override { return true; }
    bool end_array() override { return true; }
    bool parse_error(std::size_t, const std::string&, const nlohmann::json::exception& error) override
    {
        isOutOfRange = error.id == 406;
        return false;
    }
};

Verdict verdictOf(const std::string& text)
{
    // The other parser accepts both of these, but they are not JSON.
    if (text.find('\0') != std::string::npos || text.substr(0, 3) == "\xEF\xBB\xBF") {
        return Verdict::malformed;
    }
    Judge judge;
    if (nlohmann::json::sax_parse(text, &judge)) {
        return Verdict::wellFormed;
    }
    // The other parser refuses numbers beyond the range of doubles, but they are JSON.
    return judge.isOutOfRange ? Verdict::undecided : Verdict::malformed;
}

/// Damages a text in one to three places.
std::string mutated(std::string text, std::mt19937_64& random)
{
    constexpr std::string_view telling = "{}[]\",:\\/ \n\t0123456789-+.eEtfnuaD\x01\x7F\x80\xC3\xA9\xED\xF0";
    const auto below = [&](std::size_t bound) {
        return static_cast<std::size_t>(random() % std::max<std::size_t>(bound, 1));
    };
    for (std::size_t left = below(3) + 1; left > 0 && !text.empty(); --left) {
        const std::size_t place = below(text.size());
        const std::size_t length = std::min(below(12) + 1, text.size() - place);
        switch (random() % 7) {
            case 0: text[place] = static_cast<char>(text[place] ^ (1 << below(8))); break;
            case 1: text.insert(place, 1, telling[below(telling.size())]); break;
            case 2: text.erase(place, length); break;
            case 3: text.insert(place, text.substr(place, length)); break;
            case 4: text[place] = telling[below(telling.size())]; break;
            case 5: std::swap(text[place], text[below(text.size())]); break;
            default: text.insert(below(text.size()), text.substr(place, length)); break;
        }
    }
    return text;
}

/// Reads a text: it must be refused if the other parser refuses it. If it is accepted, it must be possible to
/// write it and read it back.
template <class Root>
void expectAgreement(const std::string& text, std::size_t& accepted)
{
    const Verdict verdict = verdictOf(text);
    try {
        const Root root = test::decoded<Root>(text);
        ASSERT_NE(verdict, Verdict::malformed) << "accepted: " << testing::PrintToString(text);
        ++accepted;
        const std::string again = test::compactText(root);
        ASSERT_EQ(test::compactText(test::decoded<Root>(again)), again);
    } catch (const DecodingError& error) {
        const bool isMalformed = error.expected() == "well-formed JSON";
        if (verdict != Verdict::undecided) {
            ASSERT_EQ(isMalformed, verdict == Verdict::malformed)
                << error.what() << ": " << testing::PrintToString(text);
        }
    }
}

template <class Root>
void expectAgreementAfterDamage(const std::string& text, std::uint64_t seed, int rounds)
{
    std::mt19937_64 random(seed);
    std::size_t accepted = 0;
    for (int round = 0; round < rounds; ++round) {
        SCOPED_TRACE(testing::Message() << "seed " << seed << ", round " << round);
        ASSERT_NO_FATAL_FAILURE(expectAgreement<Root>(mutated(text, random), accepted));
    }
    // Damage inside texts and numbers leaves a document well-formed, so both results must have occurred.
    EXPECT_GT(accepted, 0U);
    EXPECT_LT(accepted, static_cast<std::size_t>(rounds));
}

QuillmereState smallState()
{
    QuillmereState state = test::stateIn(WorkflowState::focusing);
    state.agentQuestions = test::fullState().agentQuestions;
    return state;
}

TEST(DamagedDocument, isJudgedAsByAnotherParser)
{
    const QuillmereState state = smallState();
    expectAgreementAfterDamage<QuillmereState>(test::compactText(state), 1, 4000);
    expectAgreementAfterDamage<QuillmereState>(test::prettyText(state), 2, 3000);
    expectAgreementAfterDamage<WidgetSnapshot>(
        test::compactText(WidgetSnapshot::make(state, state.updatedAt)), 3, 4000);
    expectAgreementAfterDamage<Outcome>(test::compactText(state.currentBlock->outcomes[0]), 4, 6000);
    expectAgreementAfterDamage<WorkflowState>("\"blockPlanning\"", 5, 6000);
}

TEST(DamagedDocument, isJudgedAsByAnotherParserInIgnoredKeys)
{
    std::string odd = "{\"zzz\":[";
    for (const std::string& value : test::oddValues()) {
        if (value.size() < 100) {
            odd += value + ",";
        }
    }
    odd += "null]," + test::compactText(test::fullState().agentQuestions[0]).substr(1);
    expectAgreementAfterDamage<AgentQuestion>(odd, 6, 6000);
}

TEST(Corpus, isJudgedAsByAnotherParser)
{
    // Each file once broke the reader, or is an example of a text that could.
    std::size_t files = 0;
    for (const fs::directory_entry& entry : fs::directory_iterator(QUILLMERE_CORPUS_DIRECTORY)) {
        SCOPED_TRACE(entry.path().filename());
        const std::string text = test::textOf(entry.path());
        std::size_t accepted = 0;
        expectAgreement<QuillmereState>(text, accepted);
        expectAgreement<WidgetSnapshot>(text, accepted);
        expectAgreement<AgentSnapshot>(text, accepted);
        expectAgreement<TimerSnapshot>(text, accepted);
        expectAgreement<WorkSession>(text, accepted);
        expectAgreement<CompletionResult>(text, accepted);
        ++files;
    }
    EXPECT_GT(files, 0U);
}

}  // namespace
}  // namespace quillmere
