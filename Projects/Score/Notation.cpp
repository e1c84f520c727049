#include "Projects/Score/Notation.h"

#include <algorithm>
#include <limits>

namespace Score {

namespace {

constexpr int kLongestValue = 4 * kUnitsPerWholeNote;

// What sounds from some position on, before it is cut into values.
struct Stretch {
    int Position = 0;
    int Length = 0;
    // Null for a rest. A stretch of tied events ends with another one than it begins with.
    const ModelEvent* First = nullptr;
    const ModelEvent* Last = nullptr;
    bool IsStruck = true;
};

bool IsSameNote(const ModelNote& a, const ModelNote& b) {
    return a.String == b.String && a.Midi == b.Midi;
}

const ModelNote* FindSame(const std::vector<ModelNote>& notes, const ModelNote& note) {
    const auto found = std::find_if(notes.begin(), notes.end(),
                                    [&](const ModelNote& other) { return IsSameNote(note, other); });
    return found == notes.end() ? nullptr : &*found;
}

bool GoesOnFrom(const ModelNote& note, const ModelEvent& before) {
    const ModelNote* same = FindSame(before.Notes, note);
    return same != nullptr && same->TiedToNext;
}

bool IsAllTied(const ModelEvent& event) {
    return std::all_of(event.Notes.begin(), event.Notes.end(),
                       [](const ModelNote& note) { return note.TiedToNext; });
}

bool HasSameNotes(const ModelEvent& a, const ModelEvent& b) {
    return std::equal(a.Notes.begin(), a.Notes.end(), b.Notes.begin(), b.Notes.end(), IsSameNote);
}

// Values as one metre allows them.
class Metre {
public:
    explicit Metre(const WrittenBar& bar) : m_Beat(CompoundBeat(bar.Metre)), m_Offset(bar.GetOffset()) {}

    // The longest value that fits at the position and into the length.
    WrittenPiece LongestPiece(int position, int length) const {
        WrittenPiece piece;
        piece.Position = position;
        for (int value = kLongestValue; value > 0; value /= 2) {
            for (const int dots : {1, 0}) {
                piece.Value = value;
                piece.Dots = dots;
                if (piece.GetDuration() <= length && (value > 1 || dots == 0) && Fits(piece))
                    return piece;
            }
        }
        piece.Value = 1;
        piece.Dots = 0;
        return piece;
    }

private:
    // A value may begin at each multiple of its half: a syncopation is written as one note, anything finer is
    // cut and tied. A dotted value begins where its value may stand, or ends where twice that does. None
    // crosses a beat of three parts, unless it is one or several of them.
    bool Fits(const WrittenPiece& piece) const {
        int position = piece.Position + m_Offset;
        const int duration = piece.GetDuration();
        if (m_Beat != 0) {
            position %= m_Beat;
            if (position + duration > m_Beat)
                return position == 0 && duration % m_Beat == 0;
        }
        if (piece.Dots > 0)
            return position % piece.Value == 0 || (position + duration) % (2 * piece.Value) == 0;
        return position % std::max(piece.Value / 2, 1) == 0;
    }

    int m_Beat;
    int m_Offset;
};

// When something is struck in a bar, in any of the parts.
using Strikes = std::vector<int>;

std::vector<Strikes> StrikesOf(ScoreParts parts) {
    std::vector<Strikes> bars(parts.front().Bars.size());
    for (std::size_t bar = 0; bar < bars.size(); ++bar) {
        for (const ScoreModel& part : parts)
            for (const ModelEvent& event : part.Bars[bar].Events)
                if (!event.Notes.empty())
                    bars[bar].push_back(event.Position);
        std::sort(bars[bar].begin(), bars[bar].end());
        bars[bar].erase(std::unique(bars[bar].begin(), bars[bar].end()), bars[bar].end());
    }
    return bars;
}

// Writes the bars one after the other; a tie reaches over a barline.
class Writer {
public:
    // Without rhythms, `strikes` says what a bar has room for; null for a part by itself.
    explicit Writer(const ScoreModel& score, const std::vector<Strikes>* strikes = nullptr)
        : m_Score(score), m_Strikes(strikes) {}

    std::vector<WrittenBar> Write() {
        std::vector<WrittenBar> bars;
        ModelTimeSignature metre = m_Score.FirstTimeSignature;
        for (const ModelBar& bar : m_Score.Bars) {
            metre = bar.TimeSignature.value_or(metre);
            bars.push_back(m_Score.HasRhythms ? WriteBar(bar, metre, bars.empty())
                                              : WriteWithoutRhythms(bar, metre));
            ++m_Bar;
        }
        KeepTiesThatLeadSomewhere(bars);
        return bars;
    }

private:
    // As often as others strike before that position.
    void RestUntil(int position, WrittenBar& written) const {
        if (m_Strikes == nullptr)
            return;
        const Strikes& strikes = (*m_Strikes)[m_Bar];
        const auto before = std::lower_bound(strikes.begin(), strikes.end(), position) - strikes.begin();
        for (; written.Length < before * kUnitsPerCrotchet; written.Length += kUnitsPerCrotchet)
            written.Pieces.push_back({written.Length, kUnitsPerCrotchet});
    }

    // A chord symbol stands at the note that it stood at.
    WrittenBar WriteWithoutRhythms(const ModelBar& bar, const ModelTimeSignature& metre) {
        WrittenBar written{0, metre};
        auto chord = bar.ChordSymbols.begin();
        for (const ModelEvent& event : bar.Events) {
            const bool goesOn = GoesOn(event);
            m_Before = event.Notes.empty() ? nullptr : &event;
            if (event.Notes.empty() || goesOn)
                continue;
            for (; chord != bar.ChordSymbols.end() && chord->Position <= event.Position; ++chord)
                written.ChordPositions.push_back(written.Length);
            RestUntil(event.Position, written);
            written.Pieces.push_back({written.Length, kUnitsPerCrotchet, 0, &event.Notes,
                                      std::vector<bool>(event.Notes.size()), true});
            written.Length += kUnitsPerCrotchet;
        }
        RestUntil(std::numeric_limits<int>::max(), written);
        written.ChordPositions.resize(bar.ChordSymbols.size(),
                                      std::max(written.Length - kUnitsPerCrotchet, 0));
        return written;
    }

    WrittenBar WriteBar(const ModelBar& bar, const ModelTimeSignature& metre, bool isFirst) {
        const std::vector<Stretch> stretches = StretchesOf(bar);
        WrittenBar written{0, metre};
        if (!stretches.empty())
            written.Length = stretches.back().Position + stretches.back().Length;
        written.IsPickup = isFirst && m_Score.Bars.size() > 1 && written.Length > 0 &&
                           written.Length < WrittenBar::LengthOf(metre);
        const Metre grid(written);
        for (const Stretch& stretch : stretches)
            Cut(stretch, grid, written.Pieces);
        for (const ModelText& chord : bar.ChordSymbols)
            written.ChordPositions.push_back(std::clamp(chord.Position, 0, written.Length));
        return written;
    }

    std::vector<Stretch> StretchesOf(const ModelBar& bar) {
        std::vector<Stretch> stretches;
        int cursor = 0;
        for (const ModelEvent& event : bar.Events) {
            if (event.Position > cursor)
                AppendRest(stretches, cursor, event.Position);
            const int start = std::max(cursor, event.Position);
            const int end = event.Position + event.Duration;
            if (end <= start)
                continue;
            if (event.Notes.empty())
                AppendRest(stretches, start, end);
            else
                AppendNotes(stretches, start, end, event);
            cursor = end;
        }
        if (cursor < bar.Length)
            AppendRest(stretches, cursor, bar.Length);
        return stretches;
    }

    void AppendRest(std::vector<Stretch>& stretches, int start, int end) {
        if (!stretches.empty() && stretches.back().First == nullptr)
            stretches.back().Length = end - stretches.back().Position;
        else
            stretches.push_back({start, end - start});
        m_Before = nullptr;
    }

    // Joins what goes on from the stretch before, in the same bar.
    void AppendNotes(std::vector<Stretch>& stretches, int start, int end, const ModelEvent& event) {
        const bool joins = !stretches.empty() && m_Before != nullptr && IsAllTied(*m_Before) &&
                           HasSameNotes(*m_Before, event);
        if (joins) {
            stretches.back().Length = end - stretches.back().Position;
            stretches.back().Last = &event;
        } else {
            stretches.push_back({start, end - start, &event, &event, !GoesOn(event)});
        }
        m_Before = &event;
    }

    // All its notes go on from the event before.
    bool GoesOn(const ModelEvent& event) const {
        return m_Before != nullptr &&
               std::all_of(event.Notes.begin(), event.Notes.end(),
                           [&](const ModelNote& note) { return GoesOnFrom(note, *m_Before); });
    }

    static void Cut(const Stretch& stretch, const Metre& metre, std::vector<WrittenPiece>& pieces) {
        int position = stretch.Position;
        int left = stretch.Length;
        while (left > 0) {
            WrittenPiece piece = metre.LongestPiece(position, left);
            piece.IsStruck = stretch.IsStruck && position == stretch.Position;
            position += piece.GetDuration();
            left -= piece.GetDuration();
            if (stretch.First != nullptr) {
                piece.Notes = &stretch.First->Notes;
                for (const ModelNote& note : stretch.Last->Notes)
                    piece.IsTied.push_back(left > 0 || note.TiedToNext);
            }
            pieces.push_back(std::move(piece));
        }
    }

    // A tie into a rest, or into other notes, is none.
    static void KeepTiesThatLeadSomewhere(std::vector<WrittenBar>& bars) {
        WrittenPiece* before = nullptr;
        for (WrittenBar& bar : bars) {
            for (WrittenPiece& piece : bar.Pieces) {
                if (before != nullptr)
                    KeepTiesInto(*before, piece.Notes);
                before = &piece;
            }
        }
        if (before != nullptr)
            KeepTiesInto(*before, nullptr);
    }

    static void KeepTiesInto(WrittenPiece& piece, const std::vector<ModelNote>* next) {
        for (std::size_t note = 0; note < piece.IsTied.size(); ++note)
            if (next == nullptr || FindSame(*next, (*piece.Notes)[note]) == nullptr)
                piece.IsTied[note] = false;
    }

    const ScoreModel& m_Score;
    const std::vector<Strikes>* m_Strikes;
    std::size_t m_Bar = 0;
    // The event before the present one; null for a rest.
    const ModelEvent* m_Before = nullptr;
};

} // namespace

bool WrittenPiece::HasTie() const {
    return std::find(IsTied.begin(), IsTied.end(), true) != IsTied.end();
}

bool WrittenBar::IsRest() const {
    return !Pieces.empty() && std::all_of(Pieces.begin(), Pieces.end(),
                                          [](const WrittenPiece& piece) { return piece.Notes == nullptr; });
}

int WrittenBar::LengthOf(const ModelTimeSignature& metre) {
    // A damaged score may count more beats than there are units of time.
    const int beat = kUnitsPerWholeNote / metre.Denominator;
    return beat * std::min(metre.Numerator, std::numeric_limits<int>::max() / beat);
}

int CompoundBeat(const ModelTimeSignature& metre) {
    constexpr int kParts = 3;
    constexpr int kQuaver = 8;
    const bool isCompound =
        metre.Numerator % kParts == 0 && (metre.Numerator > kParts || metre.Denominator >= kQuaver);
    return isCompound ? kUnitsPerWholeNote / metre.Denominator * kParts : 0;
}

std::vector<WrittenBar> WriteOut(const ScoreModel& score) {
    return Writer(score).Write();
}

std::vector<std::vector<WrittenBar>> WriteOut(ScoreParts parts) {
    std::vector<std::vector<WrittenBar>> written;
    if (parts.size() == 1)
        return {WriteOut(parts.front())};
    const std::vector<Strikes> strikes = StrikesOf(parts);
    for (const ScoreModel& part : parts)
        written.push_back(Writer(part, &strikes).Write());
    return written;
}

} // namespace Score
