// The reader of finished scores, and every export of what it read.

#include "Projects/Score/LilyPond.h"
#include "Projects/Score/Midi.h"
#include "Projects/Score/MusicXml.h"
#include "Shared/Utils/tree/TreeNode.h"
#include "fuzz/FuzzSupport.h"

#include <algorithm>
#include <memory>
#include <string>

namespace {

// Reads no more of the language than strings, comments and brackets.
bool IsClosed(const std::string& text) {
    std::string open;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char c = text[at];
        if (c == '"') {
            for (++at; at < text.size() && text[at] != '"'; ++at)
                at += text[at] == '\\' ? 1 : 0;
            if (at >= text.size())
                return false;
        } else if (c == '%') {
            at = std::min(text.find('\n', at), text.size());
        } else if (c == '{' || c == '<') {
            open += c;
        } else if (c == '}' || c == '>') {
            if (open.empty() || open.back() != (c == '}' ? '{' : '<'))
                return false;
            open.pop_back();
        }
    }
    return open.empty();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::unique_ptr<Nvr::TreeNodeRoot> tree(Nvr::TreeNode::LoadFromMemory(data, size));
    if (tree != nullptr) {
        std::string why;
        if (const auto score = Score::ScoreModel::Read(*tree, why)) {
            FuzzSupport::Require(!Score::MusicXmlText(*score).empty(), "a score has a MusicXML form");
            for (const Score::Layout layout : {Score::Layout::Both, Score::Layout::Tab})
                FuzzSupport::Require(IsClosed(Score::LilyPondText(*score, "fuzz \"\\", layout, false)),
                                     "what a LilyPond file opens it closes, and nothing else");
            FuzzSupport::Require(!Score::MidiBytes(*score).empty(), "a score has a MIDI form");
        } else {
            FuzzSupport::Require(!why.empty(), "a refusal has a reason");
        }
    }
    Nvr::ClearNodeStringTable();
    return 0;
}
