#include "Projects/Score/Notation.h"

#include <algorithm>

namespace Score {

namespace {

constexpr int kLongestValue = 4 * kUnitsPerWholeNote;

// What sounds from some position on, before it is cut into values.
struct Stretch {
    int Position = 0;
    int Length = 0;
    const ModelEvent* Event = nullptr;
    // It is tied to the stretch after it, in the next bar.
    bool TiedToNext = false;
    bool IsStruck = true;
};

bool IsTied(const ModelEvent& event) {
    return !event.Notes.empty() && std::all_of(event.Notes.begin(), event.Notes.end(),
                                               [](const ModelNote& note) { return note.TiedToNext; });
}

bool HasSameNotes(const ModelEvent& a, const ModelEvent& b) {
    return std::equal(
        a.Notes.begin(), a.Notes.end(), b.Notes.begin(), b.Notes.end(),
        [](const ModelNote& x, const ModelNote& y) { return x.String == y.String && x.Midi == y.Midi; });
}

// A value may begin at each multiple of its half: a syncopation is written as one note, anything finer is cut
// and tied.
bool FitsAt(int position, int value, int dots) {
    const int step = dots > 0 ? value : std::max(value / 2, 1);
    return position % step == 0;
}

// The longest value that fits at the position and into the length.
WrittenPiece LongestPiece(int position, int length) {
    WrittenPiece piece;
    piece.Position = position;
    for (int value = kLongestValue; value > 0; value /= 2) {
        for (const int dots : {1, 0}) {
            piece.Value = value;
            piece.Dots = dots;
            if (piece.GetDuration() <= length && (value > 1 || dots == 0) && FitsAt(position, value, dots))
                return piece;
        }
    }
    piece.Value = 1;
    piece.Dots = 0;
    return piece;
}

// Writes the bars one after the other; a tie reaches over a barline.
class Writer {
public:
    explicit Writer(const ScoreModel& score) : m_Score(score) {}

    std::vector<WrittenBar> Write() {
        std::vector<WrittenBar> bars;
        for (const ModelBar& bar : m_Score.Bars)
            bars.push_back(m_Score.HasRhythms ? WriteBar(bar) : WriteWithoutRhythms(bar));
        return bars;
    }

private:
    static WrittenBar WriteWithoutRhythms(const ModelBar& bar) {
        WrittenBar written;
        for (const ModelEvent& event : bar.Events) {
            if (event.Notes.empty())
                continue;
            written.Pieces.push_back({written.Length, kUnitsPerCrotchet, 0, &event.Notes, false, true});
            written.Length += kUnitsPerCrotchet;
        }
        return written;
    }

    WrittenBar WriteBar(const ModelBar& bar) {
        WrittenBar written;
        for (const Stretch& stretch : StretchesOf(bar)) {
            written.Length = stretch.Position + stretch.Length;
            Cut(stretch, written.Pieces);
        }
        return written;
    }

    std::vector<Stretch> StretchesOf(const ModelBar& bar) {
        std::vector<Stretch> stretches;
        int cursor = 0;
        for (const ModelEvent& event : bar.Events) {
            if (event.Position > cursor)
                Append(stretches, {cursor, event.Position - cursor, nullptr, false, true});
            const int start = std::max(cursor, event.Position);
            const int length = event.Position + event.Duration - start;
            if (length <= 0)
                continue;
            const ModelEvent* notes = event.Notes.empty() ? nullptr : &event;
            const bool goesOn = notes != nullptr && m_Before != nullptr && IsTied(*m_Before) &&
                                HasSameNotes(*m_Before, event);
            Append(stretches, {start, length, notes, false, !goesOn});
            m_Before = notes;
            cursor = start + length;
        }
        if (cursor < bar.Length)
            Append(stretches, {cursor, bar.Length - cursor, nullptr, false, true});
        if (!stretches.empty() && m_Before != nullptr && IsTied(*m_Before))
            stretches.back().TiedToNext = true;
        return stretches;
    }

    // Joins what goes on from the stretch before, in the same bar.
    static void Append(std::vector<Stretch>& stretches, const Stretch& stretch) {
        const bool isRest = stretch.Event == nullptr;
        const bool joins =
            !stretches.empty() && (isRest ? stretches.back().Event == nullptr
                                          : stretches.back().Event != nullptr && !stretch.IsStruck);
        if (joins)
            stretches.back().Length += stretch.Length;
        else
            stretches.push_back(stretch);
    }

    static void Cut(const Stretch& stretch, std::vector<WrittenPiece>& pieces) {
        int position = stretch.Position;
        int left = stretch.Length;
        while (left > 0) {
            WrittenPiece piece = LongestPiece(position, left);
            piece.Notes = stretch.Event == nullptr ? nullptr : &stretch.Event->Notes;
            piece.IsStruck = stretch.IsStruck && position == stretch.Position;
            position += piece.GetDuration();
            left -= piece.GetDuration();
            piece.TiedToNext = stretch.Event != nullptr && (left > 0 || stretch.TiedToNext);
            pieces.push_back(piece);
        }
    }

    const ScoreModel& m_Score;
    // The event before the present one; null for a rest.
    const ModelEvent* m_Before = nullptr;
};

} // namespace

std::vector<WrittenBar> WriteOut(const ScoreModel& score) {
    return Writer(score).Write();
}

} // namespace Score
