// The reader of finished scores, and every export of what it read.

#include "Projects/Score/LilyPond.h"
#include "Projects/Score/Midi.h"
#include "Projects/Score/MusicXml.h"
#include "Shared/Utils/tree/TreeNode.h"
#include "fuzz/FuzzSupport.h"

#include <memory>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::unique_ptr<Nvr::TreeNodeRoot> tree(Nvr::TreeNode::LoadFromMemory(data, size));
    if (tree != nullptr) {
        std::string why;
        if (const auto score = Score::ScoreModel::Read(*tree, why)) {
            FuzzSupport::Require(!Score::MusicXmlText(*score).empty(), "a score has a MusicXML form");
            for (const Score::Layout layout : {Score::Layout::Both, Score::Layout::Tab, Score::Layout::Notes})
                FuzzSupport::CheckLilyPond(Score::LilyPondText(*score, "fuzz \"\\", layout, false));
            FuzzSupport::Require(!Score::MidiBytes(*score).empty(), "a score has a MIDI form");
        } else {
            FuzzSupport::Require(!why.empty(), "a refusal has a reason");
        }
    }
    Nvr::ClearNodeStringTable();
    return 0;
}
