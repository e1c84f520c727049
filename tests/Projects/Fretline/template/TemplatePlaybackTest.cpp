// What a musician would hear: the sounds, words and channels that rows of the template name.

#include "tests/Projects/Fretline/template/LoadedTemplate.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <tuple>

namespace {

constexpr int kPercussionChannel = 9;
constexpr int kLowestDrum = 27;
constexpr int kHighestDrum = 87;

std::vector<const Nvr::TreeNode*> RowsOf(std::initializer_list<const char*> path) {
    return ChildrenOf(FindPath(*LoadTemplate(), path));
}

// The notes First to Last, and who alone may use them: the drums, or the instruments, with Owner in their
// name.
struct Reserved {
    int Program, First, Last;
    const char* Owner;
};

bool Contains(const std::string& text, const char* part) {
    return text.find(part) != std::string::npos;
}

} // namespace

TEST(TemplatePlayback, DrumsSoundAndAreToldApart) {
    const std::set<int> cymbals = {49, 52, 55, 57, 59};
    std::map<std::string, const Nvr::TreeNode*> styles;
    for (const Nvr::TreeNode* style : RowsOf({"Music", "NoteheadPlaybackStyleList"}))
        styles[ValueOf(*style, "NoteStyle")] = style;
    int drums = 0;
    for (const Nvr::TreeNode* stave : RowsOf({"Music", "StaveTypes"})) {
        std::set<std::tuple<int, std::string, std::string>> places;
        for (const Nvr::TreeNode* drum : ChildrenOf(stave->FindChild("Drums"))) {
            SCOPED_TRACE(ValueOf(*stave, "Id") + ": " + ValueOf(*drum, "Name") + ", " +
                         ValueOf(*drum, "Technique"));
            ++drums;
            const std::string head = ValueOf(*drum, "NoteStyle");
            EXPECT_TRUE(
                places.insert({IntOf(*drum, "Position"), head, ValueOf(*drum, "Articulation")}).second)
                << "looks as another one does";
            ASSERT_TRUE(styles.contains(head));
            EXPECT_NE(ValueOf(*styles[head], "PlaysAs"), "none") << "stands on a silent head";
            const int note = IntOf(*drum, "Pitch") / 2;
            EXPECT_TRUE(note >= kLowestDrum && note <= kHighestDrum) << "no kit has note " << note;
            const std::string set = ValueOf(*styles[head], "SampleSet");
            EXPECT_NE(set, "shout") << "is no voice";
            EXPECT_TRUE(set != "crash" || cymbals.contains(note)) << "is no cymbal";
        }
    }
    EXPECT_EQ(drums, 1144);
}

TEST(TemplatePlayback, KitsHoldTheDrumsOfTheirInstruments) {
    const std::set<int> kits = {0, 8, 16, 24, 25, 32, 40, 48};
    const Reserved notes[] = {
        {48, 27, 30, "Hi-hat"},         // the orchestra's kit has its hi-hats and its ride there,
        {48, 39, 39, "Castanets"},      // castanets for the hand clap,
        {48, 41, 53, "Timpani"},        // and timpani for toms and cymbals
        {40, 39, 40, "Snare drum"},     // brushes for the hand clap and the second snare drum
        {24, 52, 52, "Reversed cymbal"} // no china cymbal
    };
    std::map<std::string, const Nvr::TreeNode*> staves;
    for (const Nvr::TreeNode* stave : RowsOf({"Music", "StaveTypes"}))
        staves[ValueOf(*stave, "Id")] = stave;
    int struck = 0;
    for (const Nvr::TreeNode* instrument : RowsOf({"Music", "InstrumentList"})) {
        if (instrument->FindChild("PercussionSound") == nullptr)
            continue;
        const int kit = IntOf(*instrument->FindChild("MIDIData"), "Program");
        EXPECT_TRUE(kits.contains(kit)) << ValueOf(*instrument, "Id");
        ASSERT_TRUE(staves.contains(ValueOf(*instrument, "StaveType")));
        for (const Nvr::TreeNode* drum :
             ChildrenOf(staves[ValueOf(*instrument, "StaveType")]->FindChild("Drums"))) {
            ++struck;
            const int note = IntOf(*drum, "Pitch") / 2;
            for (const Reserved& other : notes)
                EXPECT_TRUE(kit != other.Program || note < other.First || note > other.Last ||
                            Contains(ValueOf(*drum, "Name"), other.Owner))
                    << ValueOf(*instrument, "Id") << ": " << ValueOf(*drum, "Name") << " sounds as "
                    << other.Owner;
        }
    }
    EXPECT_GT(struck, 500);
}

TEST(TemplatePlayback, ProgramsThatImitateAFamilyStayWithIt) {
    const struct {
        int First, Last;
        const char* Families;
    } programs[] = {{0, 7, "keyboard electronic"},
                    {24, 31, "fretted"},
                    {40, 43, "strings fretted"},
                    {46, 46, "harp"},
                    {52, 54, "voice"},
                    {56, 60, "brass"},
                    {64, 79, "woodwind"},
                    {84, 84, "fretted"},
                    {104, 107, "fretted harp"},
                    {112, 119, "percussion keyboard"}};
    std::set<std::string> families;
    for (const Nvr::TreeNode* instrument : RowsOf({"Music", "InstrumentList"})) {
        const std::string family = ValueOf(*instrument, "Family");
        if (instrument->FindChild("PitchRange") == nullptr)
            continue;
        families.insert(family);
        const int program = IntOf(*instrument->FindChild("MIDIData"), "Program");
        for (const auto& row : programs)
            EXPECT_TRUE(program < row.First || program > row.Last || Contains(row.Families, family.c_str()))
                << ValueOf(*instrument, "Id") << " of " << family << " plays program " << program;
    }
    EXPECT_GE(families.size(), 8U);
}

TEST(TemplatePlayback, WordsEndAtWordsOfTheirOwnInstruments) {
    // Groups of programs, counted from 0, that one player has at hand: the first one of each.
    const int firstOfGroup[] = {0, 16, 24, 32, 40, 52, 55, 64};
    const auto groupOf = [&](int program) {
        return std::upper_bound(std::begin(firstOfGroup), std::end(firstOfGroup), program);
    };
    std::map<std::string, const Nvr::TreeNode*> words;
    for (const Nvr::TreeNode* row : RowsOf({"Music", "StaveKeywordList"}))
        words[ValueOf(*row, "Word")] = row;
    ASSERT_FALSE(words.empty());
    for (const auto& [word, row] : words) {
        const std::string until = ValueOf(*row, "UntilWord");
        if (until.empty())
            continue;
        ASSERT_TRUE(words.contains(until)) << word << " ends at " << until << ", which is no word";
        const Nvr::TreeNode& end = *words[until];
        if (row->FindChild("Program") == nullptr || end.FindChild("Program") == nullptr)
            continue;
        EXPECT_EQ(groupOf(IntOf(*row, "Program")), groupOf(IntOf(end, "Program")))
            << word << " ends at " << until;
    }
}

TEST(TemplatePlayback, LouderWordsPlayLouder) {
    std::map<std::string, int> levels;
    for (const Nvr::TreeNode* row : RowsOf({"Music", "StaveKeywordList"})) {
        const std::string word = ValueOf(*row, "Word");
        if (ValueOf(*row, "Controls") == "velocity")
            levels[word] = IntOf(*row, "ControlValue");
        if (ValueOf(*row, "Controls") != "velocityChange")
            continue;
        const bool softer = Contains(word, "dim") || Contains(word, "decresc") || Contains(word, "piano") ||
                            Contains(word, "meno") || Contains(word, "niente") ||
                            Contains(word, "perdendosi");
        EXPECT_EQ(IntOf(*row, "ControlValue") < 100, softer) << word;
    }
    EXPECT_GE(levels["subito forte"], levels["forte"]);
    EXPECT_LE(levels["subito piano"], levels["piano"]);
    EXPECT_LT(levels["piano"], levels["forte"]);
}

TEST(TemplatePlayback, ChannelsCountFromZeroAndTheClickPlaysAKit) {
    const Nvr::TreeNodeRoot& root = *LoadTemplate();
    int channels = 0;
    for (const VisitedNode& visited : AllNodes(root)) {
        const std::string_view label = visited.Node->GetLabel().View();
        if (label == "PercussionChannel") {
            EXPECT_EQ(visited.Node->GetValueAsInt(), kPercussionChannel);
        }
        const Nvr::TreeNode* const channel = visited.Node->FindChild("Channel");
        if (channel == nullptr)
            continue;
        ++channels;
        const std::string type = ValueOf(*visited.Node, "Type");
        EXPECT_LT(channel->GetValueAsInt(), 16) << type;
        if (!type.starts_with("Click"))
            continue;
        EXPECT_EQ(channel->GetValueAsInt(), kPercussionChannel) << type;
        EXPECT_EQ(IntOf(*visited.Node, "Program"), 0) << "a click is a drum of the standard kit";
    }
    EXPECT_GT(channels, 600);
}

TEST(TemplatePlayback, StavesMayStandAsFarApartAsTheyDoByDefault) {
    const Nvr::TreeNodeRoot& root = *LoadTemplate();
    const auto gap = [&](std::initializer_list<const char*> path) {
        const Nvr::TreeNode* const found = FindPath(root, path);
        EXPECT_NE(found, nullptr);
        return found == nullptr ? 0 : found->GetChildValue("__PartMapDefault", 0);
    };
    EXPECT_GT(gap({"Music", "Options", "DefaultStaveGap"}), 0);
    EXPECT_GE(gap({"ScoreOptions", "MaxGapBetweenStaves"}), gap({"Music", "Options", "DefaultStaveGap"}));
    EXPECT_GE(gap({"ScoreOptions", "MaxGapBetweenSystems"}), gap({"Music", "Options", "DefaultSystemGap"}));
}
