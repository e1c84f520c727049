#include "tests/Projects/Fretline/stave/BarText.h"

#include "Projects/Fretline/score/ScoreAccess.h"
#include "Shared/Utils/tree/TreeNode.h"
#include "Shared/Utils/tree/TreeNodeIterator.h"

#include <gtest/gtest.h>

namespace Fretline {

namespace {

std::string ValueOf(const Nvr::TreeNode& node, const char* label) {
    return std::string(node.GetChildValue(Nvr::String(label), Nvr::String("?")).View());
}

// A line an item: "NoteRest Sr Durn", and for each note "Diat Chrom2 StringNum Flags"; "Text Sr Dx Dy text".
std::string TextOfItem(const Nvr::TreeNode& item) {
    std::string text = ValueOf(item, "Type") + ' ' + ValueOf(item, "Sr");
    if (ValueOf(item, "Type") == "Text") {
        const Nvr::TreeNode& styled = *item.FindChild(Nvr::String("StyledString"));
        return text + ' ' + ValueOf(item, "Dx") + ' ' + ValueOf(item, "Dy") + ' ' + ValueOf(styled, "Text") +
               ' ' + ValueOf(styled, "TextStyle") + '\n';
    }
    text += ' ' + ValueOf(item, "Durn");
    if (const Nvr::TreeNode* notes = item.FindChild(Nvr::String("Notes"))) {
        Nvr::TreeNodeIterator iterator(*notes);
        while (const Nvr::TreeNode* note = iterator.Next())
            text += ", " + ValueOf(*note, "Diat") + ' ' + ValueOf(*note, "Chrom2") + ' ' +
                    ValueOf(*note, "StringNum") + ' ' + ValueOf(*note, "Flags");
    }
    return text + '\n';
}

std::string ImportAll(BarText& text) {
    Nvr::TreeNode bars(Nvr::String("Bars"));
    Nvr::TreeNode* last = nullptr;
    for (TabBar* bar : text.Analysis().GetReadableBars())
        bar->ImportToScore(&bars, last);
    std::string written;
    Nvr::TreeNodeIterator iterator(bars);
    while (Nvr::TreeNode* bar = iterator.Next()) {
        written += ValueOf(*bar, "Type") + ' ' + ValueOf(*bar, "MakesStaveVisible") + '\n';
        Nvr::TreeNodeIterator items(*GetSection(bar, SectionItems));
        while (const Nvr::TreeNode* item = items.Next())
            written += TextOfItem(*item);
    }
    return written;
}

} // namespace

TEST(WholeTab, WithALineOfLetters) {
    BarText text({"  Am            F", "  Q   Q   H    -H.    Q", "E|------------|-1----------|",
                  "B|----1-------|-1----------|", "G|----2---2---|-2-----1----|",
                  "D|2-----------|------------|", "A|0-------0---|-0----------|",
                  "E|------------|------------|"});
    EXPECT_EQ(ImportAll(text), "Bar 1\n"
                               "NoteRest 0 8, 26 90 1 0, 30 104 2 0\n"
                               "Text 0 24 256 Am text.staff.space.chordsymbol\n"
                               "NoteRest 256 8, 33 114 3 0, 35 120 4 0\n"
                               "NoteRest 512 9, 26 90 1 128, 33 114 3 128\n"
                               "Bar 1\n"
                               "NoteRest 0 9, 26 90 1 128, 33 114 3 128, 35 120 4 128, 38 130 5 128\n"
                               "Text 0 24 256 F text.staff.space.chordsymbol\n"
                               "NoteRest 512 8, 26 90 1 0, 33 114 3 0, 35 120 4 0, 38 130 5 0\n"
                               "NoteRest 768 8, 32 112 3 0\n");
}

TEST(WholeTab, WithALineOfBeats) {
    BarText text({"3/4", "  Em           G", "  1   2   3    1 + 2 + 3 +", "G|------------|--------2---|",
                  "D|------------|---0--------|", "A|--------2---|------------|",
                  "E|0---3-------|3-----------|"});
    EXPECT_EQ(ImportAll(text), "Bar 1\n"
                               "NoteRest 0 8, 16 56 0 0\n"
                               "Text 0 24 256 Em text.staff.space.chordsymbol\n"
                               "NoteRest 256 8, 18 62 0 0\n"
                               "NoteRest 512 8, 20 70 1 0\n"
                               "Bar 1\n"
                               "NoteRest 0 7, 18 62 0 128\n"
                               "Text 0 24 256 G text.staff.space.chordsymbol\n"
                               "NoteRest 128 6, 18 62 0 0\n"
                               "NoteRest 192 8, 22 76 2 128\n"
                               "NoteRest 448 6, 22 76 2 0\n"
                               "NoteRest 512 8, 26 90 3 0\n");
}

TEST(WholeTab, WithoutARhythmLine) {
    const std::vector<std::string> lines = {"G|--------|--------|", "D|--------|----x---|",
                                            "A|--2-----|--------|", "E|0---3---|--------|"};
    BarText spaced(lines, kRhythmsAlways);
    EXPECT_EQ(ImportAll(spaced), "Bar 1\n"
                                 "NoteRest 0 8, 16 56 0 0\n"
                                 "NoteRest 256 8, 20 70 1 0\n"
                                 "NoteRest 512 9, 18 62 0 0\n"
                                 "Bar 1\n"
                                 "NoteRest 0 9\n"
                                 "NoteRest 512 6\n"
                                 "NoteRest 576 8\n"
                                 "NoteRest 832 7\n"
                                 "NoteRest 960 6\n");
    BarText even(lines);
    EXPECT_EQ(ImportAll(even), "Bar 1\n"
                               "NoteRest 0 7, 16 56 0 0\n"
                               "NoteRest 128 7, 20 70 1 0\n"
                               "NoteRest 256 7, 18 62 0 0\n"
                               "Bar 1\n"
                               "NoteRest 0 7\n");
}

} // namespace Fretline
