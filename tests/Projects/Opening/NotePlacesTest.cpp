// Where the notes of a score stand in its text, told by two ways that know nothing of each other: the score
// that the library wrote, and the reading of the text.

#include "Projects/TabText/NotePlaces.h"
#include "Projects/Formats/Conversion.h"
#include "Projects/Fretline/text/TabFile.h"
#include "Projects/Score/Timeline.h"
#include "tests/support/RecordingHost.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/TabBook.h"

#include <gtest/gtest.h>

#include <set>

namespace {

namespace fs = std::filesystem;
using Strike = std::tuple<int, int, int>;

constexpr std::uint32_t kOddTabs = 40;

class NotePlaces : public testing::TestWithParam<int> {
protected:
    NotePlaces() : m_Host((m_Folder.StoreLevel(GetParam()), FRETLINE_LIBRARY), m_Folder.Path()) {}

    Formats::Conversion Convert(const fs::path& tab) {
        std::string why;
        m_Host.Open(tab);
        auto conversion = Formats::Conversion::Of(m_Host.GetScore(), tab, {}, why);
        EXPECT_TRUE(conversion) << tab << ": " << why;
        return conversion ? std::move(*conversion) : Formats::Conversion();
    }

    // Each struck note of the score alone is one place of the text, and the digits there are its fret. A
    // score alone has the frets of the first stave's tuning: where the others may be tuned otherwise, frets
    // are not looked at.
    void ExpectEveryNote(const fs::path& tab, bool isOfOneTuning) {
        const Formats::Conversion conversion = Convert(tab);
        std::multiset<Strike> struck;
        for (const Score::SoundingNote& note : Score::SoundingNotes(conversion.GetMusic()))
            struck.emplace(note.Start, note.String, isOfOneTuning ? note.Fret : 0);
        const TabText::TabReading reading(tab, m_Folder.Path());
        std::multiset<Strike> found;
        for (const TabText::NotePlace& place : TabText::NotePlaces(reading, {}, conversion.GetMusic()))
            found.emplace(place.Tick, place.String, isOfOneTuning ? FretAt(reading.GetFile(), place) : 0);
        EXPECT_EQ(found, struck) << tab;
        m_Notes += struck.size();
    }

    static int FretAt(const Fretline::TabFile& file, const TabText::NotePlace& place) {
        std::string digits;
        for (int column = place.Column; column < place.EndColumn; ++column)
            digits += file.GetChar(place.Line, column);
        return digits.find_first_not_of("0123456789") == std::string::npos ? std::stoi(digits) : -1;
    }

    TestSupport::ScratchFolder m_Folder;
    TestSupport::RecordingHost m_Host;
    std::size_t m_Notes = 0;
};

TEST_P(NotePlaces, AreThoseOfEveryNoteOfTheScore) {
    for (const auto& entry : fs::directory_iterator(FRETLINE_SOURCE_DIR "/examples"))
        if (entry.path().extension() != ".nvf")
            ExpectEveryNote(entry.path(), entry.path().filename() != "seven-strings.tab" &&
                                              entry.path().filename() != "round-for-two.tab");
    for (int style = 0; style < 3; ++style) {
        TestSupport::TabBookStyle look;
        look.RhythmLine = style;
        look.Strings = 6 - style;
        look.HasBarlines = style != 2;
        const std::string book = TestSupport::MakeTabBook(200, look, static_cast<std::uint32_t>(style));
        ExpectEveryNote(m_Folder.Write("book.tab", book), true);
    }
    for (std::uint32_t seed = 0; seed < kOddTabs; ++seed)
        ExpectEveryNote(m_Folder.Write("odd.tab", TestSupport::MakeOddTab(seed)), false);
    EXPECT_GT(m_Notes, 4000U);
}

TEST_P(NotePlaces, TakeInDeadNotesThatWereJoined) {
    const fs::path tab = m_Folder.Write("dead.tab", "  Q   H.      W\n"
                                                    "e|-x---3h5-----|-----------|\n"
                                                    "B|-------------|-----------|\n"
                                                    "G|-------------|-----------|\n"
                                                    "D|-------------|-12--------|\n"
                                                    "A|-------------|-----------|\n"
                                                    "E|-------------|-----------|\n");
    Formats::Conversion conversion = Convert(tab);
    conversion.Tab = Formats::TabPlace{tab, m_Folder.Path(), {}};
    std::string places;
    for (const TabText::NotePlace& place :
         TabText::NotePlaces(*conversion.GetReading(), conversion.GetMarkings(), conversion.GetMusic()))
        places += std::to_string(place.Line) + ":" + std::to_string(place.Column) + "-" +
                  std::to_string(place.EndColumn) + " bar " + std::to_string(place.Bar) + " string " +
                  std::to_string(place.String) + "\n";
    EXPECT_EQ(places,
              "1:3-4 bar 0 string 5\n1:7-8 bar 0 string 5\n1:9-10 bar 0 string 5\n4:17-19 bar 1 string 2\n");
}

INSTANTIATE_TEST_SUITE_P(Levels, NotePlaces, testing::Values(0, 1, 2));

} // namespace
