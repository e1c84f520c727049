#include "Projects/TabText/prepare/LabelPhrases.h"

#include "Projects/Fretline/text/Labels.h"
#include "Projects/TabText/Words.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>

namespace TabText {

namespace {

using std::string_view;

// A label does not reach over as many.
constexpr int kBlanksBetweenPhrases = 3;

bool IsLabelWord(const Word& word) {
    const string_view bare = WithoutPunctuation(word).Text;
    return std::any_of(Fretline::kLabelKeywords.begin(), Fretline::kLabelKeywords.end(),
                       [bare](string_view keyword) { return IsSameWord(bare, keyword); });
}

bool HasLabelWord(const std::vector<Word>& words) {
    return std::any_of(words.begin(), words.end(), IsLabelWord);
}

bool IsNumber(const Word& word) {
    const string_view bare = WithoutPunctuation(word).Text;
    return !bare.empty() && std::all_of(bare.begin(), bare.end(), Nvr::Ascii::IsDigit);
}

// The end of the label before what explains it: "Intro (clean, twice)", "[Verse 1] softly". What is left of a
// sentence is one too, and has nothing more after it.
std::size_t EndBeforeRemark(string_view phrase) {
    const bool isInBrackets = !phrase.empty() && (phrase.front() == '[' || phrase.front() == '(');
    const std::size_t end = phrase.find_first_of(isInBrackets ? "])" : "([:;,-=.");
    if (end == string_view::npos)
        return 0;
    const bool isPartOfLabel = isInBrackets || phrase[end] == ':';
    const string_view head = phrase.substr(0, isPartOfLabel ? end + 1 : end);
    return HasLabelWord(WordsOf(head)) ? head.size() : 0;
}

// "Verse 2 softly and with feeling".
std::size_t EndAfterNumber(string_view phrase) {
    const std::vector<Word> words = WordsOf(phrase);
    return words.size() > 1 && IsLabelWord(words[0]) && IsNumber(words[1])
               ? static_cast<std::size_t>(words[1].GetEndColumn())
               : 0;
}

} // namespace

LabelPhrases::LabelPhrases(std::string line) : m_Text(std::move(line)) {
    for (const Word& word : WordsOf(m_Text)) {
        if (m_Phrases.empty() || word.Column >= m_Phrases.back().End + kBlanksBetweenPhrases)
            m_Phrases.push_back({word.Column, word.GetEndColumn()});
        else
            m_Phrases.back().End = word.GetEndColumn();
    }
}

void LabelPhrases::Shorten(int column) {
    const auto after = std::upper_bound(m_Phrases.begin(), m_Phrases.end(), column,
                                        [](int place, const Phrase& phrase) { return place < phrase.Start; });
    if (after == m_Phrases.begin() || (after - 1)->IsShortened)
        return;
    Phrase& phrase = *(after - 1);
    phrase.IsShortened = true;
    const auto start = static_cast<std::size_t>(phrase.Start);
    const auto length = static_cast<std::size_t>(phrase.End) - start;
    const string_view text = string_view(m_Text).substr(start, length);
    const std::size_t kept = std::max(EndBeforeRemark(text), EndAfterNumber(text));
    if (IsLineOfChords(text.substr(kept)))
        return;
    m_Text.replace(start + kept, length - kept, length - kept, ' ');
}

} // namespace TabText
