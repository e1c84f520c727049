#include "Projects/Score/ScoreModel.h"

#include "Shared/Utils/tree/TreeNodeIterator.h"
#include "Shared/Utils/tree/TreeNodeReader.h"

#include <algorithm>
#include <memory>
#include <stdexcept>

namespace Score {

namespace {

using Nvr::TreeNode;

constexpr int kTiedFlag = 128;
// The exponent of a duration stands in the low four bits of "Durn".
constexpr int kDurationExponentBits = 15;
constexpr int kLongestDurationExponent = 14;
constexpr int kHighestMidiNote = 127;
// More than any stave of a tab gives.
constexpr int kMostStrings = 16;
constexpr int kNoFret = -1;
constexpr const char* kChordSymbolStyle = "text.staff.space.chordsymbol";

constexpr Nvr::TreeSelection kOfStaveType[] = {{"Id"}, {"ShowRhythms"}, {"Pitches"}};
constexpr Nvr::TreeSelection kStaveTypes[] = {{"", kOfStaveType}};
constexpr Nvr::TreeSelection kBars[] = {{"", {}, true}};
constexpr Nvr::TreeSelection kOfStave[] = {{"Bars", kBars}, {"MIDIData"}};
constexpr Nvr::TreeSelection kStaves[] = {{"", kOfStave}};
constexpr Nvr::TreeSelection kOfMusic[] = {
    {"Staves", kStaves}, {"Instruments"}, {"SystemStave"}, {"BarSpacings"}, {"StaveTypes", kStaveTypes}};
constexpr Nvr::TreeSelection kOfScore[] = {{"Music", kOfMusic}};

// What makes no sense in a score, as a sentence.
class BadScore : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

const TreeNode* Follow(const TreeNode* node, std::initializer_list<const char*> labels) {
    for (const char* label : labels)
        node = node == nullptr ? nullptr : node->FindChild(label);
    return node;
}

const TreeNode& Need(const TreeNode* node, std::initializer_list<const char*> labels, const char* what) {
    const TreeNode* found = Follow(node, labels);
    if (found == nullptr)
        throw BadScore(std::string("it has no ") + what);
    return *found;
}

const TreeNode& NeedFirst(const TreeNode& list, const char* what) {
    if (list.GetChildCount() == 0)
        throw BadScore(std::string("it has no ") + what);
    return *list.GetChild(0);
}

std::string TextOf(const TreeNode& node, std::initializer_list<const char*> labels) {
    const TreeNode* found = Follow(&node, labels);
    return found == nullptr ? std::string() : found->GetValue().CStr();
}

int NumberOf(const TreeNode& node, const char* label, int otherwise = 0) {
    return node.GetChildValue(label, otherwise);
}

template <typename Visit>
void ForEachChild(const TreeNode* node, Visit visit) {
    if (node == nullptr)
        return;
    Nvr::TreeNodeIterator children(*node);
    while (const TreeNode* child = children.Next())
        visit(*child);
}

bool IsKind(const TreeNode& item, const char* kind) {
    return item.GetChildValue("Type", Nvr::String::Empty()) == kind;
}

ModelTimeSignature ReadTimeSignature(const TreeNode& item) {
    constexpr int kLongestUnit = 10;
    const int unit = NumberOf(item, "LogUnitLength", -1);
    const int top = NumberOf(item, "Top");
    if (unit < 0 || unit > kLongestUnit || top < 1)
        throw BadScore("a time signature in it makes no sense");
    return {top, kUnitsPerWholeNote >> unit};
}

// Without its fret: the tuning may stand further on.
ModelNote ReadNote(const TreeNode& item) {
    ModelNote note;
    note.String = NumberOf(item, "StringNum", -1);
    note.Midi = NumberOf(item, "Chrom2") / 2;
    note.Diat = NumberOf(item, "Diat");
    note.TiedToNext = (NumberOf(item, "Flags") & kTiedFlag) != 0;
    if (note.String < 0 || note.String >= kMostStrings)
        throw BadScore("a note in it lies on a string that no instrument has");
    if (note.Midi < 0 || note.Midi > kHighestMidiNote)
        throw BadScore("a note in it has an impossible pitch");
    return note;
}

ModelEvent ReadEvent(const TreeNode& item) {
    const int exponent = NumberOf(item, "Durn") & kDurationExponentBits;
    if (exponent > kLongestDurationExponent)
        throw BadScore("a note in it has an impossible duration");
    ModelEvent event;
    event.Position = NumberOf(item, "Sr");
    event.Duration = 1 << exponent;
    const TreeNode* const notes = item.FindChild("Notes");
    event.Notes.reserve(notes == nullptr ? 0 : static_cast<std::size_t>(notes->GetChildCount()));
    ForEachChild(notes, [&](const TreeNode& note) {
        if (IsKind(note, "Note"))
            event.Notes.push_back(ReadNote(note));
    });
    return event;
}

ModelBar ReadBar(const TreeNode& bar) {
    ModelBar model;
    ForEachChild(bar.FindChild("Items"), [&](const TreeNode& item) {
        if (IsKind(item, "NoteRest"))
            model.Events.push_back(ReadEvent(item));
        else if (IsKind(item, "Text") && TextOf(item, {"StyledString", "TextStyle"}) == kChordSymbolStyle)
            model.ChordSymbols.push_back({NumberOf(item, "Sr"), TextOf(item, {"StyledString", "Text"})});
    });
    return model;
}

// Reads bars as they come, those of the only stave first, before anything else of the score is known.
class BarsReader {
public:
    void Read(const TreeNode& bar) {
        // The first bar is the lead-in, which holds no music.
        if (!std::exchange(m_HasLeadIn, true))
            ReadLeadIn(bar);
        else if (m_WhatIsWrong.empty())
            ReadNext(bar);
    }

    bool IsEmpty() const { return !m_HasLeadIn; }
    const std::string& StaveTypeId() const { return m_StaveTypeId; }

    // So many of the first ones, with their frets.
    std::vector<ModelBar> Take(std::size_t count, const std::vector<int>& tuning) {
        if (count > m_Bars.size())
            throw BadScore(m_WhatIsWrong);
        m_Bars.resize(count);
        for (ModelBar& bar : m_Bars)
            for (ModelEvent& event : bar.Events)
                for (ModelNote& note : event.Notes)
                    note.Fret = FretOf(note, tuning);
        return std::move(m_Bars);
    }

private:
    void ReadLeadIn(const TreeNode& bar) {
        ForEachChild(bar.FindChild("Items"), [&](const TreeNode& item) {
            if (IsKind(item, "StaveTypeChange"))
                m_StaveTypeId = TextOf(item, {"StaveType"});
        });
    }

    void ReadNext(const TreeNode& bar) {
        try {
            m_Bars.push_back(ReadBar(bar));
        } catch (const BadScore& bad) {
            // Nobody looks at bars of further staves.
            m_WhatIsWrong = bad.what();
        }
    }

    static int FretOf(const ModelNote& note, const std::vector<int>& tuning) {
        const auto string = static_cast<std::size_t>(note.String);
        return string < tuning.size() ? note.Midi - tuning[string] : kNoFret;
    }

    bool m_HasLeadIn = false;
    std::string m_StaveTypeId;
    std::vector<ModelBar> m_Bars;
    // In the bar after them.
    std::string m_WhatIsWrong;
};

// Reads one score, section by section.
class Reader {
public:
    // `bars` has read those that are left in the score without their children, or none.
    Reader(const TreeNode& score, BarsReader& bars)
        : m_Music(Need(&score, {"Music"}, "music")), m_Bars(bars) {}

    ScoreModel Read() {
        const TreeNode& staves = Need(&m_Music, {"Staves"}, "staves");
        const TreeNode& stave = NeedFirst(staves, "stave");
        const TreeNode& bars = Need(&stave, {"Bars"}, "bars");
        ReadNames(stave);
        NeedFirst(bars, "lead-in bar");
        if (m_Bars.IsEmpty())
            ForEachChild(&bars, [&](const TreeNode& bar) { m_Bars.Read(bar); });
        ReadStaveType();
        m_Model.Bars = m_Bars.Take(static_cast<std::size_t>(bars.GetChildCount()) - 1, m_Model.Tuning);
        ReadLengths();
        ReadSystemBars();
        return std::move(m_Model);
    }

private:
    void ReadNames(const TreeNode& stave) {
        const TreeNode& instrument = NeedFirst(Need(&m_Music, {"Instruments"}, "instruments"), "instrument");
        m_Model.InstrumentName = TextOf(instrument, {"FullName", "Text"});
        m_Model.ShortName = TextOf(instrument, {"ShortName", "Text"});
        const TreeNode* midi = stave.FindChild("MIDIData");
        m_Model.Program = midi == nullptr ? 0 : std::clamp(NumberOf(*midi, "Program"), 0, kHighestMidiNote);
    }

    void ReadStaveType() {
        m_Model.StaveTypeId = m_Bars.StaveTypeId();
        ForEachChild(m_Music.FindChild("StaveTypes"), [&](const TreeNode& row) {
            if (m_Model.Tuning.empty() && TextOf(row, {"Id"}) == m_Model.StaveTypeId)
                ReadStaveTypeRow(row);
        });
        if (m_Model.Tuning.empty())
            throw BadScore("its stave type \"" + m_Model.StaveTypeId + "\" is not in it");
    }

    void ReadStaveTypeRow(const TreeNode& row) {
        m_Model.HasRhythms = row.GetChildValue("ShowRhythms", false);
        ForEachChild(row.FindChild("Pitches"),
                     [&](const TreeNode& pitch) { m_Model.Tuning.push_back(pitch.GetValueAsInt() / 2); });
    }

    void ReadLengths() {
        ForEachChild(m_Music.FindChild("BarSpacings"), [&](const TreeNode& spacing) {
            const int number = NumberOf(spacing, "BarNum");
            if (number < 1 || number > static_cast<int>(m_Model.Bars.size()))
                return;
            m_Model.Bars[static_cast<std::size_t>(number) - 1].Length =
                NumberOf(spacing, "BarLength", kUnitsPerWholeNote);
        });
    }

    void ReadSystemBars() {
        int number = 0;
        ForEachChild(Follow(&m_Music, {"SystemStave", "Bars"}), [&](const TreeNode& bar) {
            ForEachChild(bar.FindChild("Items"), [&](const TreeNode& item) { ReadSystemItem(item, number); });
            ++number;
        });
    }

    void ReadSystemItem(const TreeNode& item, int number) {
        if (number > static_cast<int>(m_Model.Bars.size()))
            return;
        if (number == 0) {
            if (IsKind(item, "TimeSignature"))
                m_Model.FirstTimeSignature = ReadTimeSignature(item);
            return;
        }
        ModelBar& bar = m_Model.Bars[static_cast<std::size_t>(number) - 1];
        if (IsKind(item, "TimeSignature"))
            bar.TimeSignature = ReadTimeSignature(item);
        else if (IsKind(item, "SystemTextItem"))
            bar.Labels.push_back(TextOf(item, {"StyledString", "Text"}));
    }

    const TreeNode& m_Music;
    BarsReader& m_Bars;
    ScoreModel m_Model;
};

std::optional<ScoreModel> ReadWith(BarsReader& bars, const TreeNode& score, std::string& why) {
    try {
        return Reader(score, bars).Read();
    } catch (const BadScore& bad) {
        why = bad.what();
        return std::nullopt;
    }
}

} // namespace

int ScoreModel::CountNotes() const {
    int count = 0;
    for (const ModelBar& bar : Bars)
        for (const ModelEvent& event : bar.Events)
            count += static_cast<int>(event.Notes.size());
    return count;
}

int ScoreModel::CountStrings() const {
    int count = static_cast<int>(Tuning.size());
    for (const ModelBar& bar : Bars)
        for (const ModelEvent& event : bar.Events)
            for (const ModelNote& note : event.Notes)
                count = std::max(count, note.String + 1);
    return count;
}

int ScoreModel::CountChordSymbols() const {
    int count = 0;
    for (const ModelBar& bar : Bars)
        count += static_cast<int>(bar.ChordSymbols.size());
    return count;
}

bool ScoreModel::BeginsEnding(std::size_t bar) const {
    const std::vector<int>& endings = Bars[bar].Repeats.Endings;
    return !endings.empty() && (bar == 0 || Bars[bar - 1].Repeats.Endings != endings);
}

bool ScoreModel::EndsEnding(std::size_t bar) const {
    const std::vector<int>& endings = Bars[bar].Repeats.Endings;
    return !endings.empty() && (bar + 1 == Bars.size() || Bars[bar + 1].Repeats.Endings != endings);
}

std::optional<ScoreModel> ScoreModel::Read(const Nvr::TreeNode& score, std::string& why) {
    BarsReader bars;
    return ReadWith(bars, score, why);
}

std::optional<ScoreModel> ScoreModel::ReadStored(std::string_view score, std::string& why) {
    BarsReader bars;
    Nvr::TreeNodeReader reader(score.data(), score.size());
    reader.Select(kOfScore, [&bars](const TreeNode& bar) { bars.Read(bar); });
    const std::unique_ptr<TreeNode> tree(reader.Read());
    if (tree != nullptr)
        return ReadWith(bars, *tree, why);
    why = "it is damaged, or no score file";
    return std::nullopt;
}

} // namespace Score
