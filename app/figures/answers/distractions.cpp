#include "figures/answers/distractions.hpp"

#include "base/text/case_folding.hpp"

#include <algorithm>
#include <array>
#include <iterator>
#include <map>
#include <set>
#include <string>

namespace quillmere::figures {
namespace {

/// Words that say nothing by themselves, in order. Phrases keep them.
constexpr auto fillers = std::to_array<std::string_view>({
    "a",   "about", "after", "again", "all",  "also", "am",    "an",    "and",  "as",    "at",   "be",
    "but", "by",    "for",   "from",  "had",  "has",  "have",  "he",    "i",    "in",    "is",   "it",
    "its", "me",    "my",    "no",    "none", "not",  "of",    "off",   "on",   "or",    "our",  "s",
    "she", "so",    "some",  "than",  "that", "the",  "their", "them",  "then", "there", "they", "this",
    "to",  "too",   "up",    "was",   "we",   "were", "when",  "which", "with", "you",
});

bool isFiller(const std::string& word) { return std::binary_search(fillers.begin(), fillers.end(), word); }

bool isPartOfWord(char character)
{
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           (character >= '0' && character <= '9') || static_cast<unsigned char>(character) >= 0x80;
}

/// Words joined by single spaces, with one around them, so that a search finds only whole words.
std::string joined(const std::vector<std::string>& words)
{
    std::string text = " ";
    for (const std::string& word : words) {
        text.append(word).append(" ");
    }
    return text;
}

/// The parts between the characters that end a phrase.
std::vector<std::string_view> phrasesIn(std::string_view text)
{
    std::vector<std::string_view> phrases;
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find_first_of(",;.:!?\n\r()", begin), text.size());
        phrases.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return phrases;
}

using Counts = std::map<std::string, Distraction>;

void count(Counts& counts, const std::set<std::string>& texts, const std::string& hazards)
{
    for (const std::string& text : texts) {
        Distraction& distraction = counts[text];
        ++distraction.sessions;
        distraction.foreseen += hazards.find(" " + text + " ") != std::string::npos ? 1 : 0;
    }
}

std::vector<Distraction> mostFrequentFirst(const Counts& counts)
{
    std::vector<Distraction> list;
    for (const auto& [text, distraction] : counts) {
        list.push_back(distraction);
        list.back().text = text;
    }
    std::stable_sort(list.begin(), list.end(), [](const Distraction& left, const Distraction& right) {
        return left.sessions > right.sessions;
    });
    return list;
}

}  // namespace

std::vector<std::string> wordsIn(std::string_view text)
{
    const std::string folded = base::caseFolded(text);
    std::vector<std::string> words;
    bool isInWord = false;
    for (std::size_t index = 0; index < folded.size(); ++index) {
        const bool isApostrophe =
            folded[index] == '\'' && isInWord && index + 1 < folded.size() && isPartOfWord(folded[index + 1]);
        const bool belongs = isPartOfWord(folded[index]) || isApostrophe;
        if (belongs && !isInWord) {
            words.emplace_back();
        }
        if (belongs) {
            words.back() += folded[index];
        }
        isInWord = belongs;
    }
    return words;
}

Distractions distractionsOf(const LookBack& look)
{
    Distractions distractions;
    Counts words;
    Counts phrases;
    for (const EndedSession& ended : look.sessions) {
        const auto& review = ended.session->review;
        if (!review) {
            continue;
        }
        ++distractions.reviewedSessions;
        std::set<std::string> ownWords;
        std::set<std::string> ownPhrases;
        for (const std::string_view phrase : phrasesIn(review->distractions)) {
            const std::vector<std::string> ofPhrase = wordsIn(phrase);
            std::copy_if(ofPhrase.begin(), ofPhrase.end(), std::inserter(ownWords, ownWords.end()),
                         [](const std::string& word) { return !isFiller(word); });
            if (ofPhrase.size() > 1) {
                const std::string text = joined(ofPhrase);
                ownPhrases.insert(text.substr(1, text.size() - 2));
            }
        }
        distractions.disturbedSessions += ownWords.empty() ? 0 : 1;
        const std::string hazards =
            joined(wordsIn(ended.block->hazards)) + joined(wordsIn(ended.session->plan.hazardsMitigation));
        count(words, ownWords, hazards);
        count(phrases, ownPhrases, hazards);
    }
    distractions.words = mostFrequentFirst(words);
    distractions.phrases = mostFrequentFirst(phrases);
    return distractions;
}

}  // namespace quillmere::figures
