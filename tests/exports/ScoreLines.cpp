// Prints what a score file holds, one line a bar, event and chord symbol, for comparison with what other
// programs understood of its exports:
//
//     bar 1
//     chord Am
//     256 5:3:48 2:1:60        duration in score units, then string (1 is the highest), fret, MIDI note; "~"
//     when tied on 128 rest

#include "Projects/ReferenceHost/ScoreFile.h"
#include "Projects/Score/ScoreModel.h"
#include "Projects/Score/Utf8.h"

#include <algorithm>
#include <iostream>
#include <memory>

namespace {

using namespace ReferenceHost;
using namespace Score;

void PrintEvent(const ScoreModel& score, const ModelEvent& event) {
    std::cout << event.Duration;
    if (event.Notes.empty())
        std::cout << " rest";
    std::vector<ModelNote> notes = event.Notes;
    std::sort(notes.begin(), notes.end(),
              [](const ModelNote& a, const ModelNote& b) { return a.String > b.String; });
    for (const ModelNote& note : notes) {
        std::cout << ' ';
        if (note.Fret < 0)
            std::cout << "-:-";
        else
            std::cout << static_cast<int>(score.Tuning.size()) - note.String << ':' << note.Fret;
        std::cout << ':' << note.Midi << (note.TiedToNext ? "~" : "");
    }
    std::cout << '\n';
}

void PrintBar(const ScoreModel& score, std::size_t index) {
    std::cout << "bar " << index + 1 << '\n';
    const ModelBar& bar = score.Bars[index];
    for (const ModelEvent& event : bar.Events) {
        for (const ModelText& chord : bar.ChordSymbols)
            if (chord.Position == event.Position)
                std::cout << "chord " << ToUtf8(chord.Text) << '\n';
        PrintEvent(score, event);
    }
}

} // namespace

int main(int argc, char** argv) {
    const auto bytes = argc == 2 ? ReadWholeFile(argv[1]) : std::nullopt;
    const std::unique_ptr<Nvr::TreeNodeRoot> tree(
        bytes ? Nvr::TreeNode::LoadFromMemory(bytes->data(), bytes->size()) : nullptr);
    std::string why = "it cannot be read";
    const auto score = tree ? ScoreModel::Read(*tree, why) : std::nullopt;
    if (!score) {
        std::cerr << "no score: " << why << '\n';
        return 1;
    }
    for (std::size_t bar = 0; bar < score->Bars.size(); ++bar)
        PrintBar(*score, bar);
    return 0;
}
