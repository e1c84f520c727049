#include "Projects/Score/Beams.h"

#include <algorithm>

namespace Score {

namespace {

constexpr int kQuaver = kUnitsPerCrotchet / 2;
constexpr int kHalfBar = 2 * kUnitsPerCrotchet;
constexpr std::size_t kMostBeams = 4;

// As many as the note has flags alone.
std::size_t CountBeams(const WrittenPiece& piece) {
    std::size_t count = 0;
    for (int value = kQuaver; piece.Notes != nullptr && value >= piece.Value && count < kMostBeams;
         value /= 2)
        ++count;
    return count;
}

// Which beat a position lies in.
class Beats {
public:
    explicit Beats(const ModelTimeSignature& metre) {
        const int unit = kUnitsPerWholeNote / metre.Denominator;
        m_Beat = CompoundBeat(metre);
        if (unit >= kUnitsPerCrotchet)
            m_Beat = kUnitsPerCrotchet;
        else if (m_Beat == 0)
            m_Beat = 2 * unit;
        // Of five quavers the first three belong together.
        const bool isOdd = unit < kUnitsPerCrotchet && CompoundBeat(metre) == 0 && metre.Numerator % 2 != 0;
        m_First = isOdd ? m_Beat + unit : m_Beat;
    }

    int At(int position) const { return position < m_First ? 0 : 1 + (position - m_First) / m_Beat; }

private:
    int m_Beat;
    int m_First;
};

bool HasHalves(const ModelTimeSignature& metre) {
    return WrittenBar::LengthOf(metre) == kUnitsPerWholeNote && metre.Denominator <= 4;
}

// Pieces from First to before End have beams in common.
struct Group {
    std::size_t First;
    std::size_t End;
};

// Groups the beamed pieces of which each neighbour is in the same part of the bar.
template <typename PartAt>
std::vector<Group> GroupsOf(const std::vector<WrittenPiece>& pieces, PartAt partAt) {
    std::vector<Group> groups;
    for (std::size_t piece = 0; piece < pieces.size(); ++piece) {
        if (CountBeams(pieces[piece]) == 0)
            continue;
        const bool joins = !groups.empty() && groups.back().End == piece &&
                           partAt(pieces[piece].Position) == partAt(pieces[piece - 1].Position);
        if (joins)
            ++groups.back().End;
        else
            groups.push_back({piece, piece + 1});
    }
    return groups;
}

// Writes the beams of one bar.
class Beamer {
public:
    explicit Beamer(const WrittenBar& bar) : m_Bar(bar), m_Beats(bar.Metre), m_Beams(bar.Pieces.size()) {}

    std::vector<std::vector<Beam>> Beams() {
        for (const Group& group : Groups())
            if (group.End - group.First > 1)
                for (std::size_t level = 1; level <= kMostBeams; ++level)
                    AddLevel(group, level);
        return std::move(m_Beams);
    }

private:
    std::vector<Group> Groups() const {
        const int offset = m_Bar.GetOffset();
        std::vector<Group> beats =
            GroupsOf(m_Bar.Pieces, [&](int position) { return m_Beats.At(position + offset); });
        if (!HasHalves(m_Bar.Metre))
            return beats;
        std::vector<Group> groups;
        for (const Group& group : beats) {
            if (!groups.empty() && MakeAHalf(groups.back(), group))
                groups.back().End = group.End;
            else
                groups.push_back(group);
        }
        return groups;
    }

    bool MakeAHalf(const Group& a, const Group& b) const {
        const int offset = m_Bar.GetOffset();
        const auto first = m_Bar.Pieces.begin() + static_cast<std::ptrdiff_t>(a.First);
        const auto end = m_Bar.Pieces.begin() + static_cast<std::ptrdiff_t>(b.End);
        return a.End == b.First && std::all_of(first, end, [&](const WrittenPiece& piece) {
                   return piece.Value == kQuaver && piece.Dots == 0 &&
                          (piece.Position + offset) / kHalfBar == (first->Position + offset) / kHalfBar;
               });
    }

    void AddLevel(const Group& group, std::size_t level) {
        for (std::size_t first = group.First; first < group.End; ++first) {
            std::size_t end = first;
            while (end < group.End && CountBeams(m_Bar.Pieces[end]) >= level)
                ++end;
            if (end == first)
                continue;
            if (end == first + 1)
                m_Beams[first].push_back(Hook(group, first, level));
            else
                AddBeam(first, end);
            first = end - 1;
        }
    }

    void AddBeam(std::size_t first, std::size_t end) {
        m_Beams[first].push_back(Beam::Begin);
        for (std::size_t piece = first + 1; piece + 1 < end; ++piece)
            m_Beams[piece].push_back(Beam::Continue);
        m_Beams[end - 1].push_back(Beam::End);
    }

    // A note that ends a longer value points back to what that began with.
    Beam Hook(const Group& group, std::size_t piece, std::size_t level) const {
        if (piece == group.First)
            return Beam::ForwardHook;
        const int value = kUnitsPerCrotchet >> level;
        const bool endsValue = (m_Bar.Pieces[piece].Position + m_Bar.GetOffset()) % (2 * value) != 0;
        return endsValue || piece + 1 == group.End ? Beam::BackwardHook : Beam::ForwardHook;
    }

    const WrittenBar& m_Bar;
    Beats m_Beats;
    std::vector<std::vector<Beam>> m_Beams;
};

} // namespace

std::vector<std::vector<Beam>> BeamsOf(const WrittenBar& bar) {
    return Beamer(bar).Beams();
}

} // namespace Score
