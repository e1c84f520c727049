#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace TabText {

/// A line with section labels, as phrases between which there are three blanks or more. Costs in proportion
/// to the line.
class LabelPhrases {
public:
    explicit LabelPhrases(std::string line);

    /// Leaves of the phrase at the column what names the section, such as "Verse 2" of "Verse 2: softly, with
    /// some feeling", and blanks in place of the rest; of a sentence nothing is left. Names of chords after
    /// the label stay.
    void Shorten(int column);

    /// As long as the line was.
    const std::string& GetText() const { return m_Text; }

private:
    struct Phrase {
        int Start = 0;
        int End = 0;
        bool IsShortened = false;
    };

    std::string m_Text;
    std::vector<Phrase> m_Phrases;
};

} // namespace TabText
