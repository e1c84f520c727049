#pragma once

#include "Projects/Fretline/shell/FretlineOptions.h"
#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabAnalysis.h"
#include "Projects/Fretline/text/TabFile.h"
#include "Projects/Fretline/text/TabStave.h"
#include "Projects/Fretline/text/TabTimeSignature.h"
#include "Shared/Utils/NvrString.h"
#include "tests/support/TabText.h"

#include <memory>
#include <string>
#include <vector>

namespace Fretline {

/// A text made of lines, analysed as a file with that text would be.
class BarText {
public:
    explicit BarText(const std::vector<std::string>& lines, int rhythmLevel = kRhythmsWhenIndicated);

    TabFile& File() { return m_Text.File; }
    TabAnalysis& Analysis() { return m_Analysis; }
    /// A bar of the stave that stands at these lines, whether or not the analysis takes them for one.
    TabBar& BarAt(int firstLine, int lineCount, std::size_t index = 0);
    /// The same, and read.
    TabBar& ReadAt(int firstLine, int lineCount);

private:
    Nvr::String m_NoPath;
    FretlineOptions m_Options;
    TestSupport::TabText m_Text;
    TabAnalysis m_Analysis;
    std::unique_ptr<TabStave> m_Stave;
};

/// What reading has made of a bar, as short text.
///
/// A column: its bar-relative column, "w" and its width when that is not 1, "<" when it reaches to the left.
std::string ColumnsOf(const TabBar& bar);
/// A column: position "+" duration.
std::string TimesOf(const TabBar& bar);
/// A score bar: "|". An item: position "+" duration, its notes as string ":" fret, "~" when tied, its chord.
/// A rest is "r".
std::string ItemsOf(const TabBar& bar);
/// The chords read, in text order.
std::string ChordsOf(const TabBar& bar);

/// Appends a word, after a blank unless the text is empty.
void AppendWord(std::string& text, const std::string& word);

TabTimeSignature MakeTimeSignature(int numerator, int denominator);

} // namespace Fretline
