#include "Projects/Fretline/text/TimeSignatures.h"

#include "Projects/Fretline/score/ScoreTime.h"
#include "Projects/Fretline/text/TabFile.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <bit>
#include <limits>

namespace Fretline {

namespace {

// How far a signature reaches from its slash on either side: two digits.
constexpr int kMostDigits = 2;

bool IsDigitAt(const TabFile& file, int line, int column) {
    return column >= 0 && Nvr::Ascii::IsDigit(file.GetChar(line, column));
}

int DigitAt(const TabFile& file, int line, int column) {
    return file.GetChar(line, column) - '0';
}

// The number of one or two digits between the columns, both included.
int NumberAt(const TabFile& file, int line, int first, int last) {
    const int units = DigitAt(file, line, last);
    return first == last ? units : DigitAt(file, line, first) * 10 + units;
}

bool IsNoteValue(int denominator) {
    return denominator == 2 || denominator == 4 || denominator == 8 || denominator == 16;
}

TabTimeSignature ReadAround(const TabFile& file, int line, int slash) {
    const int start = IsDigitAt(file, line, slash - 2) ? slash - 2 : slash - 1;
    const int end = IsDigitAt(file, line, slash + 2) ? slash + 2 : slash + 1;
    return {line,
            slash,
            start,
            end,
            NumberAt(file, line, start, slash - 1),
            NumberAt(file, line, slash + 1, end)};
}

// True when the signature stands in front of the place, in text order.
bool IsBefore(const TabTimeSignature& signature, int line, int column) {
    return signature.m_Line != line ? signature.m_Line < line : signature.m_Column < column;
}

TimeSignatureList::const_iterator FirstFrom(const TimeSignatureList& list, int line, int column) {
    return std::partition_point(list.begin(), list.end(),
                                [line, column](const std::unique_ptr<TabTimeSignature>& signature) {
                                    return IsBefore(*signature, line, column);
                                });
}

} // namespace

int TabTimeSignature::GetLogUnitLength() const {
    return kLogWholeNote - std::countr_zero(static_cast<unsigned>(m_Denominator));
}

int TabTimeSignature::GetLength() const {
    return m_Numerator << GetLogUnitLength();
}

bool TabTimeSignature::IsSameAs(const TabTimeSignature& other) const {
    return m_Numerator == other.m_Numerator && m_Denominator == other.m_Denominator;
}

void FindTimeSignaturesIn(const TabFile& file, int line, TimeSignatureList& found) {
    const int lastColumn = file.GetMaxLineLength() - 1;
    for (int slash = file.FindChar(line, 0, '/'); slash > 0 && slash < lastColumn;
         slash = file.FindChar(line, slash + 1, '/')) {
        if (!IsDigitAt(file, line, slash - 1) || !IsDigitAt(file, line, slash + 1))
            continue;
        const TabTimeSignature signature = ReadAround(file, line, slash);
        if (signature.m_Numerator > 0 && IsNoteValue(signature.m_Denominator))
            found.push_back(std::make_unique<TabTimeSignature>(signature));
    }
}

const TabTimeSignature* FindTimeSignatureAt(const TimeSignatureList& list, int line, int column) {
    for (auto at = FirstFrom(list, line, column - kMostDigits); at != list.end(); ++at) {
        const TabTimeSignature& signature = **at;
        if (signature.m_Line != line || signature.m_Column > column + kMostDigits)
            return nullptr;
        if (signature.m_StartColumn <= column && column <= signature.m_EndColumn)
            return &signature;
    }
    return nullptr;
}

SignaturesAboveStave::SignaturesAboveStave(const TimeSignatureList& list, int topLine, int endLine)
    : m_List(list) {
    const auto last = FirstFrom(list, endLine, 0);
    for (auto at = FirstFrom(list, topLine, 0); at < last; ++at)
        m_ByColumn.emplace_back((*at)->m_Column, static_cast<std::size_t>(at - list.begin()));
    std::sort(m_ByColumn.begin(), m_ByColumn.end());
}

const TabTimeSignature* SignaturesAboveStave::FirstWithin(int left, int right) const {
    // The bars of a stave lie side by side, so that all their walks together pass each signature twice at
    // most.
    constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();
    std::size_t first = kNone;
    for (auto at = std::lower_bound(m_ByColumn.begin(), m_ByColumn.end(), std::pair(left, std::size_t{0}));
         at != m_ByColumn.end() && at->first < right; ++at)
        first = std::min(first, at->second);
    return first == kNone ? nullptr : m_List[first].get();
}

} // namespace Fretline
