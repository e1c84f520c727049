// The text of a tab, to a score, at each rhythm level (the first byte picks it), in a small template.
// Properties: bars are gap-free, positions ascend, every note lies on a string of the tuning, durations are
// powers of two in range, and the score that is written reads back as the same tree.

#include "Projects/Fretline/score/TabConverter.h"
#include "Projects/Fretline/shell/FretlineOptions.h"
#include "Shared/Utils/tree/TreeNode.h"
#include "Shared/Utils/tree/TreeNodeIterator.h"
#include "fuzz/FuzzSupport.h"
#include "fuzz/SmallTemplate.h"
#include "tests/support/FakeOutput.h"

#include <cstdio>
#include <memory>
#include <stdexcept>

namespace {

using FuzzSupport::Require;
using Nvr::TreeNode;

void CheckBar(const TreeNode& bar) {
    const TreeNode* items = bar.FindChild("Items");
    if (items == nullptr)
        return;
    int reached = 0;
    bool isFirst = true;
    Nvr::TreeNodeIterator walk(*items);
    while (const TreeNode* item = walk.Next()) {
        if (!(item->GetChildValue("Type", Nvr::String::Empty()) == "NoteRest"))
            continue;
        const int position = item->GetChildValue("Sr", -1);
        const int exponent = item->GetChildValue("Durn", -1);
        Require(exponent >= 0 && exponent < 31, "a duration is a power of two");
        // Positions pass through 16 signed bits: only what fits can be compared.
        if (reached <= INT16_MAX && position >= 0) {
            Require(position == reached || (isFirst && position >= 0), "a bar has no gap");
            Require(position >= reached, "positions ascend");
        }
        reached = position + (1 << exponent);
        isFirst = false;
        if (const TreeNode* notes = item->FindChild("Notes")) {
            Require(notes->GetChildCount() > 0, "only items with notes have a section for them");
            Nvr::TreeNodeIterator each(*notes);
            while (const TreeNode* note = each.Next()) {
                const int string = note->GetChildValue("StringNum", -1);
                Require(string >= 0 && string < 6, "a note lies on a string");
            }
        }
    }
}

void CheckScore(const TreeNode& score) {
    const TreeNode* music = score.FindChild("Music");
    const TreeNode* staves = music == nullptr ? nullptr : music->FindChild("Staves");
    const TreeNode* stave = staves == nullptr ? nullptr : staves->GetChild(0);
    const TreeNode* bars = stave == nullptr ? nullptr : stave->FindChild("Bars");
    Require(bars != nullptr, "a score has a stave with bars");
    for (int number = 1; number < bars->GetChildCount(); ++number)
        CheckBar(*bars->GetChild(number));
    Require(music->FindChild("BarSpacings")->GetChildCount() == bars->GetChildCount(),
            "each bar has a spacing");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    const FuzzSupport::InputFile input(data + 1, size - 1);
    const Nvr::String noOptions(FuzzSupport::FreshPath("no-options").c_str());
    Fretline::FretlineOptions options(noOptions);
    options.SetRhythmLevel(data[0] % 3);
    TestSupport::FakeOutput output;
    const std::unique_ptr<Nvr::TreeNodeRoot> score(TreeNode::LoadFromString(FuzzSupport::kSmallTemplate));
    const std::string target = FuzzSupport::FreshPath("score");
    bool converted = false;
    try {
        Fretline::TabConverter converter(&output, &options);
        converted = converter.RunConversion(input.Path().c_str(), score.get(), target.c_str());
    } catch (const std::out_of_range&) {
        // A text without a bar that can be read.
    }
    if (converted) {
        CheckScore(*score);
        const std::unique_ptr<Nvr::TreeNodeRoot> again(TreeNode::LoadFromFile(target.c_str()));
        Require(again != nullptr, "a written score can be read");
        Require(again->IsSameTree(*score), "a written score reads back as the same tree");
    }
    std::remove(target.c_str());
    Nvr::ClearNodeStringTable();
    return 0;
}
