#include "Projects/Score/Midi.h"
#include "Projects/Score/Timeline.h"
#include "tests/Projects/Score/SmallScore.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace Score;

// Reads MIDI bytes in the plainest way: one line an event, with its absolute time.
class PlainReader {
public:
    explicit PlainReader(const std::string& bytes) : m_Bytes(bytes) {}

    std::vector<std::string> Read() {
        std::string header = Take(4);
        for (const int bytes : {4, 2, 2, 2})
            header += " " + std::to_string(Number(bytes));
        m_Lines.push_back(header);
        while (m_At < m_Bytes.size())
            ReadTrack();
        return m_Lines;
    }

private:
    std::string Take(std::size_t count) {
        m_At += count;
        return m_Bytes.substr(m_At - count, count);
    }
    int Number(int bytes) {
        int value = 0;
        for (; bytes > 0; --bytes)
            value = value * 256 + static_cast<unsigned char>(m_Bytes.at(m_At++));
        return value;
    }
    int Variable() {
        int value = 0;
        for (;;) {
            const int byte = Number(1);
            value = value * 128 + (byte & 127);
            if (byte < 128)
                return value;
        }
    }
    void ReadTrack() {
        EXPECT_EQ("MTrk", Take(4));
        const auto size = static_cast<std::size_t>(Number(4));
        const std::size_t end = m_At + size;
        int time = 0;
        while (m_At < end) {
            time += Variable();
            const int status = Number(1);
            std::string line = std::to_string(time) + ": ";
            if (status == 0xFF) {
                const int kind = Number(1);
                const std::string data = Take(static_cast<std::size_t>(Variable()));
                line += "meta " + std::to_string(kind) + " " + (kind == 6 || kind == 3 ? data : "");
                for (std::size_t i = 0; kind != 6 && kind != 3 && i < data.size(); ++i)
                    line += std::to_string(static_cast<unsigned char>(data[i])) + " ";
            } else {
                line += std::to_string(status >> 4) + "/" + std::to_string(status & 15) + " " +
                        std::to_string(Number(1));
                if (status >> 4 != 0xC)
                    line += " " + std::to_string(Number(1));
            }
            m_Lines.push_back(line);
        }
        EXPECT_EQ(end, m_At);
    }

    const std::string& m_Bytes;
    std::size_t m_At = 0;
    std::vector<std::string> m_Lines;
};

TEST(Midi, PlaysTheScoreEventForEvent) {
    const std::string bytes = MidiBytes(TestSupport::SmallScore());
    const std::vector<std::string> expected{
        "MThd 6 1 2 256", "0: meta 81 7 161 32 ", "0: meta 88 3 2 24 8 ", "0: meta 6 Verse 1",
        "1408: meta 47 ", "0: meta 3 Guitar",     "0: 12/0 25",           "0: 12/1 25",
        "0: 12/2 25",     "0: 12/3 25",           "0: 12/4 25",           "0: 12/5 25",
        "0: 9/1 48 90",   "0: 9/4 60 90",         "256: 8/1 48 0",        "256: 8/4 60 0",
        "384: 9/0 42 90", "1408: 8/0 42 0",       "1408: meta 47 ",
    };
    EXPECT_EQ(expected, PlainReader(bytes).Read());
}

// The notes and bends of the note track, in order.
std::vector<std::string> PlayedLines(const ScoreModel& score) {
    std::vector<std::string> lines;
    const std::string bytes = MidiBytes(score);
    for (const std::string& line : PlainReader(bytes).Read())
        if (line.find(": 9/") != std::string::npos || line.find(": 8/") != std::string::npos ||
            line.find(": 14/") != std::string::npos)
            lines.push_back(line);
    return lines;
}

TEST(Midi, PlaysTechniques) {
    const struct {
        Technique Kind;
        std::vector<std::string> Lines;
    } kRows[] = {
        {Technique::Dead, {"0: 9/1 57 55", "32: 8/1 57 0", "256: 9/1 59 90", "512: 8/1 59 0"}},
        {Technique::Ghost, {"0: 9/1 57 45", "256: 8/1 57 0", "256: 9/1 59 90", "512: 8/1 59 0"}},
        {Technique::PalmMute, {"0: 9/1 57 90", "128: 8/1 57 0", "256: 9/1 59 90", "512: 8/1 59 0"}},
        {Technique::HammerOn, {"0: 9/1 57 90", "256: 8/1 57 0", "256: 9/1 59 70", "512: 8/1 59 0"}},
        {Technique::NaturalHarmonic, {"0: 9/1 57 90", "256: 8/1 57 0", "256: 9/1 59 90", "512: 8/1 59 0"}},
        {Technique::ArtificialHarmonic, {"0: 9/1 69 90", "256: 8/1 69 0", "256: 9/1 59 90", "512: 8/1 59 0"}},
    };
    ScoreModel score = TestSupport::SmallScore();
    score.Bars.pop_back();
    for (const auto& row : kRows) {
        score.Bars[0].Events = {{0, 256, {{1, 12, 57, 33, false, {{row.Kind, 0}}}}},
                                {256, 256, {{1, 14, 59, 34, false}}}};
        EXPECT_EQ(row.Lines, PlayedLines(score)) << static_cast<int>(row.Kind);
    }
    score.Bars[0].Events = {{0, 256, {{1, 7, 52, 30, false, {{Technique::NaturalHarmonic, 0}}}}}};
    EXPECT_EQ("0: 9/1 64 90", PlayedLines(score)[0]) << "an octave and a fifth above the open string";
    score.Heading.Capo = 2;
    EXPECT_EQ("0: 9/1 66 90", PlayedLines(score)[0]);
}

TEST(Midi, BendsTheStringOfABendOrSlide) {
    ScoreModel score = TestSupport::SmallScore();
    score.Bars.pop_back();
    score.Bars[0].Events = {{0, 256, {{1, 12, 57, 33, false, {{Technique::Bend, 4}}}}}};
    const std::vector<std::string> bend = PlayedLines(score);
    ASSERT_EQ(11U, bend.size());
    EXPECT_EQ("16: 14/1 42 65", bend[1]) << "an eighth of 1365 above 8192";
    EXPECT_EQ("128: 14/1 85 74", bend[8]) << "a sixth of the range, after half of the note";
    EXPECT_EQ("256: 14/1 0 64", bend[10]) << "and none after it";
    score.Bars[0].Events[0].Notes[0].Techniques.push_back({Technique::Release, 0});
    const std::vector<std::string> release = PlayedLines(score);
    ASSERT_EQ(18U, release.size());
    EXPECT_EQ("181: 14/1 42 73", release[9]) << "seven eighths of it, in the last third";
    EXPECT_EQ("245: 14/1 42 65", release[15]) << "an eighth";
    EXPECT_EQ("256: 14/1 0 64", release[17]);
    score.Bars[0].Events[0].Notes[0].Techniques = {{Technique::Bend, 4}, {Technique::Bend, 2}};
    const std::vector<std::string> farther = PlayedLines(score);
    ASSERT_EQ(19U, farther.size());
    EXPECT_EQ("64: 14/1 85 74", farther[8]) << "the first after a quarter of the note";
    EXPECT_EQ("128: 14/1 127 79", farther[16]) << "a quarter of the range, after half of it";
    const std::string bytes = MidiBytes(score);
    const std::vector<std::string> all = PlainReader(bytes).Read();
    EXPECT_EQ(1, std::count(all.begin(), all.end(), "0: 11/1 6 12")) << "twelve semitones either way";

    score.Bars[0].Events = {{0, 240, {{1, 12, 57, 33, false, {{Technique::Slide, 0}}}}},
                            {240, 256, {{1, 10, 55, 32, false}}}};
    const std::vector<std::string> slide = PlayedLines(score);
    EXPECT_EQ("170: 14/1 86 62", slide[1]) << "down, in the last third";
    EXPECT_EQ("240: 14/1 0 64", slide[10]) << "back before the next note";
    EXPECT_EQ("240: 9/1 55 70", slide[11]);
}

TEST(Midi, PlaysRepeatsOutAtTheTempo) {
    ScoreModel score = TestSupport::SmallScore();
    score.Heading.Tempo = 60;
    score.Bars = {ModelBar(), ModelBar(), ModelBar()};
    for (int bar = 0; bar < 3; ++bar)
        score.Bars[static_cast<std::size_t>(bar)].Events = {{0, 1024, {{0, bar, 40 + bar, 23, false}}}};
    score.Bars[1].Repeats = {true, true, 3};
    std::string pitches;
    for (const std::string& line : PlayedLines(score))
        if (line.find(": 9/") != std::string::npos)
            pitches += line.substr(line.find(' ') + 5, 2) + " ";
    EXPECT_EQ("40 41 41 41 42 ", pitches);
    const std::string bytes = MidiBytes(score);
    EXPECT_EQ("0: meta 81 15 66 64 ", PlainReader(bytes).Read()[1]) << "a second a crotchet";
    score.Bars[1].Repeats = {false, true, 2000000000};
    EXPECT_EQ(6U, PlayedLines(score).size()) << "nobody has so much time";
}

TEST(Midi, ChangesTheTempoWhereTheTextDoes) {
    ScoreModel score = TestSupport::SmallScore();
    score.Heading.Tempo = 120;
    score.Bars[1].Tempo = 60;
    const std::vector<std::string> lines = PlainReader(MidiBytes(score)).Read();
    EXPECT_NE(lines.end(), std::find(lines.begin(), lines.end(), "640: meta 81 15 66 64 "));
}

// The channels of the notes of each track: "1,4,0 7,6".
std::string ChannelsOf(const std::vector<ScoreModel>& parts) {
    std::string text;
    const std::string bytes = MidiBytes(parts);
    for (const std::string& line : PlainReader(bytes).Read()) {
        if (line.find("meta 3 ") != std::string::npos)
            text += text.empty() ? "" : " ";
        if (const std::size_t on = line.find(": 9/"); on != std::string::npos)
            text += (text.empty() || text.back() == ' ' ? "" : ",") +
                    line.substr(on + 4, line.find(' ', on + 2) - on - 4);
    }
    return text;
}

TEST(Midi, HasATrackForEachPart) {
    std::vector<ScoreModel> parts = TestSupport::SmallParts();
    const std::string bytes = MidiBytes(parts);
    const std::vector<std::string> lines = PlainReader(bytes).Read();
    EXPECT_EQ("MThd 6 1 3 256", lines.front());
    for (const char* line :
         {"0: meta 3 Guitar", "0: meta 3 Bass", "0: 12/6 33", "0: 9/7 36 90", "896: 9/6 31 90"})
        EXPECT_EQ(1, std::count(lines.begin(), lines.end(), line)) << line;
    EXPECT_EQ("1,4,0 7,6,6", ChannelsOf(parts));
    parts = {parts[0], parts[0], parts[0]};
    EXPECT_EQ("1,4,0 6,10,5 12,15,11", ChannelsOf(parts))
        << "five each of eighteen strings, but for the drums'";
    parts.assign(20, parts[0]);
    EXPECT_EQ("15,15,15", ChannelsOf(parts).substr(ChannelsOf(parts).size() - 8))
        << "more parts than channels";
}

TEST(Timeline, ABarTakesItsLengthOrAsLongAsItsNotes) {
    ScoreModel score = TestSupport::SmallScore();
    EXPECT_EQ((std::vector<int>{0, 640, 1408}), BarStarts(score));
    score.Bars[0].Length = 100;
    EXPECT_EQ((std::vector<int>{0, 640, 1408}), BarStarts(score));
    score.Bars[0].Length = -5;
    score.Bars[0].Events.clear();
    EXPECT_EQ((std::vector<int>{0, 0, 768}), BarStarts(score));
}

TEST(Timeline, AStringSoundsOneNoteAtATime) {
    ScoreModel score = TestSupport::SmallScore();
    score.Bars[0].Events = {{0, 512, {{2, 0, 50, 29, false}}},
                            {256, 256, {{2, 4, 54, 31, false}, {3, 0, 55, 32, false}}}};
    score.Bars.pop_back();
    const std::vector<SoundingNote> notes = SoundingNotes(score);
    ASSERT_EQ(3U, notes.size());
    EXPECT_EQ(256, notes[0].End);
    EXPECT_EQ(512, notes[1].End);
}

} // namespace
