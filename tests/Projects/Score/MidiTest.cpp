#include "Projects/Score/Midi.h"
#include "Projects/Score/Timeline.h"
#include "tests/Projects/Score/SmallScore.h"

#include <gtest/gtest.h>

namespace {

using namespace Score;

/// Reads MIDI bytes in the plainest way: one line an event, with its absolute time.
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
