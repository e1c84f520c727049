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

/// A note in one line: pitch or rest, duration, type, string, fret, ties.
std::string Describe(const pugi::xml_node& note) {
    std::string text = note.child("rest") ? "rest"
                                          : Text(note, "pitch/step") + Text(note, "pitch/alter") + "/" +
                                                Text(note, "pitch/octave");
    text += " " + Text(note, "duration") + " " + Text(note, "type");
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
        "C/3 256 quarter 5:3",        "C/4 256 quarter chord 2:1",    "rest 128 eighth",
        "F1/2 256 quarter 6:2 start", "F1/2 512 half 6:2 stop start", "F1/2 256 quarter 6:2 stop",
    };
    EXPECT_EQ(expected, notes);
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
    EXPECT_EQ("768", Text(document, "//measure[2]/note/duration"))
        << "an empty bar is a rest of its own length";
}

TEST(MusicXml, TheContainerHoldsTheScoreAndItsPlace) {
    std::string why;
    const std::string bytes = CompressedMusicXml(TestSupport::SmallScore(), why);
    ASSERT_EQ("", why);
    EXPECT_EQ("PK", bytes.substr(0, 2));
    EXPECT_EQ("mimetypeapplication/vnd.recordare.musicxml", bytes.substr(30, 42));
    EXPECT_NE(std::string::npos, bytes.find("META-INF/container.xml"));
    EXPECT_EQ(bytes, CompressedMusicXml(TestSupport::SmallScore(), why))
        << "the same score gives the same bytes";
}

} // namespace
