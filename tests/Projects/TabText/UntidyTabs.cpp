#include "tests/Projects/TabText/UntidyTabs.h"

#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/text/TabStave.h"
#include "Projects/TabText/StruckNotes.h"
#include "Projects/TabText/Tunings.h"
#include "tests/Projects/TabText/ReadText.h"

#include <algorithm>
#include <fstream>
#include <sstream>

namespace TestSupport {

namespace {

namespace fs = std::filesystem;

std::string ReadFile(const fs::path& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

} // namespace

PlayedText ReadWanted(const fs::path& path) {
    PlayedText wanted;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        std::istringstream words(line);
        std::string kind;
        words >> kind;
        if (kind == "tuning")
            std::getline(words >> std::ws, wanted.Tuning);
        for (std::string word; kind != "tuning" && words >> word;) {
            std::replace(word.begin(), word.end(), '+', ' ');
            std::istringstream notes(word);
            for (std::string note; notes >> note;)
                (kind == "chords" ? wanted.Chords : wanted.Notes).push_back(note);
        }
    }
    return wanted;
}

namespace {

void AddBar(const Fretline::TabBar& bar, PlayedText& played) {
    const std::vector<TabText::StruckNote> notes = TabText::StruckNotesOf(bar);
    // Each column gives its notes from the lowest string up.
    for (auto first = notes.begin(); first != notes.end();) {
        const auto end =
            std::find_if(first, notes.end(), [&](const auto& note) { return note.Time != first->Time; });
        for (auto note = end; note != first;) {
            --note;
            played.Notes.push_back(std::to_string(bar.GetLineCount() - note->String) + "/" +
                                   std::to_string(note->Fret));
        }
        first = end;
    }
    for (const Fretline::ChordReading& chord : bar.GetChordReadings())
        if (chord.m_Written)
            played.Chords.emplace_back(Fretline::GetChordText(*chord.m_Chord).CStr());
}

} // namespace

std::vector<UntidyTab> ReadUntidyTabs() {
    std::vector<UntidyTab> tabs;
    for (const auto& entry : fs::directory_iterator(FRETLINE_SOURCE_DIR "/tests/untidy")) {
        fs::path wanted = entry.path();
        if (wanted.extension() == ".want")
            continue;
        wanted.replace_extension(".want");
        tabs.push_back({entry.path().stem().string(), ReadFile(entry.path()), ReadWanted(wanted)});
    }
    std::sort(tabs.begin(), tabs.end(),
              [](const UntidyTab& a, const UntidyTab& b) { return a.Name < b.Name; });
    return tabs;
}

PlayedText PlayedOf(const std::string& text) {
    const ReadText reading(text);
    PlayedText played;
    const auto& staves = reading->GetAnalysis().GetStaves();
    if (!staves.empty())
        played.Tuning = TabText::TuningText(staves.front()->GetTuning());
    for (const TabText::BarReading& bar : reading->GetBars())
        AddBar(*bar.Bar, played);
    return played;
}

int CountInOrder(const std::vector<std::string>& wanted, const std::vector<std::string>& found) {
    std::vector<int> best(found.size() + 1);
    for (const std::string& entry : wanted) {
        int diagonal = 0;
        for (std::size_t at = 0; at < found.size(); ++at) {
            const int above = best[at + 1];
            best[at + 1] = entry == found[at] ? diagonal + 1 : std::max(above, best[at]);
            diagonal = above;
        }
    }
    return best.back();
}

} // namespace TestSupport
