#include "Projects/Score/MusicXml.h"
#include "tests/Projects/Score/SmallScore.h"

#include <gtest/gtest.h>
#include <pugixml.hpp>

namespace {

using namespace Score;

std::string Text(const pugi::xml_node& node, const char* path) {
    return node.select_node(path).node().text().get();
}

std::size_t Count(const pugi::xml_node& node, const char* path) {
    return node.select_nodes(path).size();
}

// A note in one line: pitch or rest, duration, type, string, fret, ties.
std::string Describe(const pugi::xml_node& note) {
    std::string text = note.child("rest") ? "rest"
                                          : Text(note, "pitch/step") + Text(note, "pitch/alter") + "/" +
                                                Text(note, "pitch/octave");
    text += " " + Text(note, "duration") + " " + Text(note, "type") + (note.child("dot") ? "." : "");
    if (note.child("chord"))
        text += " chord";
    if (note.child("pitch"))
        text += " " + Text(note, "notations/technical/string") + ":" + Text(note, "notations/technical/fret");
    for (const pugi::xml_node tie : note.children("tie"))
        text += std::string(" ") + tie.attribute("type").value();
    return text;
}

TEST(MusicXml, SaysWhatTheScoreHolds) {
    pugi::xml_document document;
    ASSERT_TRUE(document.load_string(MusicXmlText(TestSupport::SmallScore()).c_str()));
    const pugi::xml_node root = document.child("score-partwise");
    EXPECT_STREQ("4.0", root.attribute("version").value());
    EXPECT_EQ("Guitar", Text(root, "part-list/score-part/part-name"));
    EXPECT_EQ("26", Text(root, "//midi-program")) << "programs count from 1";
    EXPECT_EQ("TAB", Text(root, "//clef/sign"));
    EXPECT_EQ("256", Text(root, "//divisions"));
    EXPECT_EQ(6U, Count(root, "//staff-tuning"));
    EXPECT_EQ("E", Text(root, "//staff-tuning[@line='1']/tuning-step"));
    EXPECT_EQ("2", Text(root, "//staff-tuning[@line='1']/tuning-octave"));
    EXPECT_EQ("3", Text(root, "part/measure[1]/attributes/time/beats"));
    EXPECT_EQ("Verse 1", Text(root, "part/measure[1]/direction/direction-type/rehearsal"));
    EXPECT_EQ(0U, Count(root, "//stem")) << "stems are the reader's own where rhythms were read";

    std::vector<std::string> notes;
    for (const auto& note : root.select_nodes("part/measure/note"))
        notes.push_back(Describe(note.node()));
    const std::vector<std::string> expected{
        "C/3 256 quarter 5:3",        "C/4 256 quarter chord 2:1", "rest 128 eighth",
        "F1/2 256 quarter 6:2 start", "F1/2 768 half. 6:2 stop",
    };
    EXPECT_EQ(expected, notes);
    EXPECT_EQ(1U, Count(root, "part/measure[1][@number='0'][@implicit='yes']")) << "a pickup";
    EXPECT_EQ(1U, Count(root, "part/measure[2][@number='1']"));
    EXPECT_EQ("light-heavy", Text(root, "part/measure[2]/barline[@location='right']/bar-style"));
    EXPECT_EQ(1U, Count(root, "//barline"));
}

TEST(MusicXml, BeamsAndRestsOfABar) {
    pugi::xml_document document;
    ScoreModel score = TestSupport::ScoreOf({{192}, {64}, {-256}, {512}});
    score.Bars[0].Events[1].Notes.push_back({1, 0, 45, 0, false});
    ASSERT_TRUE(document.load_string(MusicXmlText(score).c_str()));
    EXPECT_EQ("begin", Text(document, "//note[1]/beam[@number='1']"));
    EXPECT_EQ("backward hook", Text(document, "//note[2]/beam[@number='2']"));
    EXPECT_EQ(3U, Count(document, "//beam")) << "those of a chord stand at its first note";
    ASSERT_TRUE(document.load_string(MusicXmlText(TestSupport::ScoreOf({{-256}, {-512}}, {3, 4})).c_str()));
    EXPECT_EQ("768", Text(document, "//note[rest[@measure='yes']][not(type)]/duration"))
        << "a whole bar's rest";
}

TEST(MusicXml, SaysHowNotesArePlayed) {
    ScoreModel score = TestSupport::SmallScore();
    const std::string without = MusicXmlText(score);
    const struct {
        Technique Kind;
        int Amount;
        const char* Path;
    } kRows[] = {
        {Technique::HammerOn, 0, "technical/hammer-on[@type='start']"},
        {Technique::PullOff, 0, "technical/pull-off[@type='start']"},
        {Technique::Slide, 0, "slide[@type='start']"},
        {Technique::Bend, 3, "technical/bend[bend-alter='1.5']"},
        {Technique::Release, 0, "technical/other-technical[.='release']"},
        {Technique::SlideIn, 1, "articulations/scoop"},
        {Technique::SlideIn, -1, "articulations/plop"},
        {Technique::SlideOut, 1, "articulations/doit"},
        {Technique::SlideOut, -1, "articulations/falloff"},
        {Technique::Vibrato, 0, "ornaments/wavy-line[@type='stop']"},
        {Technique::NaturalHarmonic, 0, "technical/harmonic/natural"},
        {Technique::ArtificialHarmonic, 0, "technical/harmonic/artificial"},
        {Technique::Trill, 9, "ornaments/trill-mark"},
        {Technique::Tap, 0, "technical/tap"},
        {Technique::PalmMute, 0, "../play/mute[.='palm']"},
        {Technique::LetRing, 0, "tied[@type='let-ring']"},
        {Technique::Dead, 0, "../notehead[.='x']"},
        {Technique::Ghost, 0, "../notehead[@parentheses='yes']"},
        {Technique::Accent, 0, "articulations/accent"},
    };
    for (const auto& row : kRows) {
        score.Bars[0].Events[0].Notes[0].Techniques = {{row.Kind, row.Amount}};
        pugi::xml_document document;
        ASSERT_TRUE(document.load_string(MusicXmlText(score).c_str()));
        EXPECT_EQ(1U, Count(document, (std::string("//note[1]/notations/") + row.Path).c_str())) << row.Path;
        EXPECT_EQ("5", Text(document, "//note[1]/notations/technical/string")) << row.Path;
    }
    score.Bars[0].Events[0].Notes[0].Techniques = {{Technique::Bend, 4}, {Technique::Release, 0}};
    pugi::xml_document document;
    ASSERT_TRUE(document.load_string(MusicXmlText(score).c_str()));
    EXPECT_EQ(1U, Count(document, "//note[1]//technical/bend[1][bend-alter='2'][not(release)]"));
    EXPECT_EQ(1U, Count(document, "//note[1]//technical/bend[2][bend-alter='-2']/release"));
    EXPECT_EQ(0U, Count(document, "//note[1]//other-technical"));
    score.Bars[0].Events[0].Notes[0].Techniques = {
        {Technique::Bend, 4}, {Technique::Bend, 2}, {Technique::Release, 0}};
    ASSERT_TRUE(document.load_string(MusicXmlText(score).c_str()));
    EXPECT_EQ(1U, Count(document, "//note[1]//technical/bend[2][bend-alter='1'][not(release)]"));
    EXPECT_EQ(1U, Count(document, "//note[1]//technical/bend[3][bend-alter='-3']/release"));
    score.Bars[0].Events[0].Notes[0].Techniques.clear();
    EXPECT_EQ(without, MusicXmlText(score));
}

TEST(MusicXml, LeadsToTheNextNoteOfTheString) {
    ScoreModel score = TestSupport::SmallScore();
    // The lowest string: a note in the first bar, tied through the second.
    score.Bars[0].Events[2].Notes[0].Techniques = {{Technique::Slide, 0}};
    score.Bars[1].Events[1].Notes[0].TiedToNext = false;
    score.Bars[1].Events.push_back({768, 128, {{0, 4, 44, 25, false}}});
    pugi::xml_document document;
    ASSERT_TRUE(document.load_string(MusicXmlText(score).c_str()));
    EXPECT_EQ(1U, Count(document, "//measure[1]/note/notations/slide[@type='start']"));
    EXPECT_EQ(1U, Count(document, "//measure[2]/note[last()]/notations/slide[@type='stop']"));
    EXPECT_EQ(2U, Count(document, "//slide[@number='1']")) << "by its string";
    EXPECT_EQ(2U, Count(document, "//slide")) << "the tied notes are one";
}

TEST(MusicXml, SaysWhatTheTextSaysOfThePiece) {
    ScoreModel score = TestSupport::SmallScore();
    score.Heading = {"Song", "Band", 96, 2, true};
    score.Bars[0].Repeats = {true, false, 2};
    score.Bars[1].Repeats = {false, true, 3};
    pugi::xml_document document;
    ASSERT_TRUE(document.load_string(MusicXmlText(score).c_str()));
    EXPECT_EQ("Song", Text(document, "//work-title"));
    EXPECT_EQ("Band", Text(document, "//identification/creator[@type='composer']"));
    EXPECT_EQ("96", Text(document, "//measure[1]//metronome/per-minute"));
    EXPECT_EQ(1U, Count(document, "//measure[1]/direction/sound[@tempo='96'][swing/first='2']"));
    EXPECT_EQ("2", Text(document, "//staff-details/capo"));
    EXPECT_EQ(1U, Count(document, "//measure[1]/barline[@location='left']/repeat[@direction='forward']"));
    EXPECT_EQ(1U, Count(document, "//measure[2]/barline[@location='right']/repeat[@times='3']"));
}

TEST(MusicXml, HarmonyKeepsTheTextAsWritten) {
    pugi::xml_document document;
    ASSERT_TRUE(document.load_string(MusicXmlText(TestSupport::SmallScore()).c_str()));
    const auto harmonies = document.select_nodes("//harmony");
    ASSERT_EQ(2U, harmonies.size());
    EXPECT_EQ("minor", Text(harmonies[0].node(), "kind"));
    EXPECT_STREQ("m", harmonies[0].node().child("kind").attribute("text").value());
    EXPECT_STREQ("(add9)", harmonies[1].node().child("kind").attribute("text").value());
    EXPECT_EQ("9", Text(harmonies[1].node(), "degree/degree-value"));
    EXPECT_STREQ("note", harmonies[1].node().next_sibling().name()) << "before the event that it belongs to";
}

TEST(MusicXml, WithoutRhythmsThereIsNoMetreAndNoStem) {
    ScoreModel score = TestSupport::SmallScore();
    score.HasRhythms = false;
    score.Bars[1].TimeSignature = ModelTimeSignature{4, 4};
    score.Bars[1].Events.clear();
    pugi::xml_document document;
    ASSERT_TRUE(document.load_string(MusicXmlText(score).c_str()));
    EXPECT_EQ(0U, Count(document, "//beats"));
    EXPECT_EQ(3U, Count(document, "//stem[text()='none']"));
    EXPECT_EQ("768", Text(document, "//measure[2]/note[@print-object='no'][rest]/duration"))
        << "an empty bar is as long as it is, and shows nothing";
}

TEST(MusicXml, TheContainerHoldsTheScoreAndItsPlace) {
    std::string why;
    const std::string bytes = CompressedMusicXml(AsParts(TestSupport::SmallScore()), why);
    ASSERT_EQ("", why);
    EXPECT_EQ("PK", bytes.substr(0, 2));
    EXPECT_EQ("mimetypeapplication/vnd.recordare.musicxml", bytes.substr(30, 42));
    EXPECT_NE(std::string::npos, bytes.find("META-INF/container.xml"));
    EXPECT_EQ(bytes, CompressedMusicXml(AsParts(TestSupport::SmallScore()), why))
        << "the same score gives the same bytes";
}

TEST(MusicXml, HasAPartForEachThatSoundsTogether) {
    std::vector<ScoreModel> parts = TestSupport::SmallParts();
    for (ScoreModel& part : parts) {
        part.Heading.Tempo = 90;
        part.Bars[0].Repeats.IsStart = part.Bars[1].Repeats.IsEnd = true;
        part.Bars[1].Way.HasSegno = true;
    }
    pugi::xml_document document;
    ASSERT_TRUE(document.load_string(MusicXmlText(parts).c_str()));
    const pugi::xml_node root = document.child("score-partwise");
    EXPECT_EQ("Bass", Text(root, "part-list/score-part[@id='P2']/part-name"));
    EXPECT_EQ("34", Text(root, "part-list/score-part[@id='P2']//midi-program"));
    EXPECT_EQ("2", Text(root, "part-list/score-part[@id='P2']//midi-channel"));
    EXPECT_EQ(2U, Count(root, "part[@id='P1']/measure"));
    EXPECT_EQ(2U, Count(root, "part[@id='P2']/measure"));
    EXPECT_EQ(4U, Count(root, "part[@id='P2']//staff-tuning"));
    EXPECT_EQ("3", Text(root, "part[@id='P2']/measure[1]/note/notations/technical/fret"));
    EXPECT_EQ(3U, Count(root, "part[@id='P1']//direction")) << "the label, the tempo and the segno";
    EXPECT_EQ(0U, Count(root, "part[@id='P2']//direction")) << "said once for all";
    for (const char* direction : {"forward", "backward"})
        EXPECT_EQ(
            2U,
            root.select_nodes((std::string("part//repeat[@direction='") + direction + "']").c_str()).size())
            << "each part has its barlines";

    for (ScoreModel& part : parts)
        part.HasRhythms = false;
    ASSERT_TRUE(document.load_string(MusicXmlText(parts).c_str()));
    std::string durations;
    for (const auto& node : document.select_nodes("//part[@id='P2']/measure/*[duration]"))
        durations += std::string(node.node().name()) + " " + node.node().child_value("duration") + " ";
    EXPECT_EQ("note 256 forward 256 note 256 note 256 forward 256 ", durations)
        << "room for what the guitar alone strikes";
}

} // namespace
