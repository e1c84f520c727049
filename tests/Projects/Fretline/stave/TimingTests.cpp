#include "tests/Projects/Fretline/stave/BarText.h"

#include <gtest/gtest.h>

namespace Fretline {

namespace {

std::string Repeated(const std::string& text, int count) {
    std::string repeated;
    for (int i = 0; i < count; ++i)
        repeated += text;
    return repeated;
}

// `count` notes two text columns apart.
std::string Notes(int count) {
    return Repeated("5-", count);
}

} // namespace

TEST(Timing, FollowsARhythmLine) {
    struct Row {
        std::string Rhythm;
        std::string First;
        std::string Second;
        const char* Times;
        const char* Items;
        const char* Why;
    };
    const std::string empty(16, '-');
    const Row rows[] = {
        {"Q   Q   Q   Q", "0---1---2---3---", empty, "0+256 256+256 512+256 768+256",
         "| 0+256 1:0, 256+256 1:1, 512+256 1:2, 768+256 1:3", "a letter over each note"},
        {" Q   Q   H", "0---1---2-------", empty, "0+256 256+256 512+512",
         "| 0+256 1:0, 256+256 1:1, 512+512 1:2", "notes one column left of their letters"},
        {"Q   Q   Q   Q", "0-------1-------", empty, "0+256 512+256",
         "| 0+256 1:0, 256+256 r, 512+256 1:1, 768+256 r", "a letter without a note is a rest"},
        {"    Q   Q   H", "0-1-2---3---4---", empty, "0+256 256+256 512+512",
         "| 0+256 1:2, 256+256 1:3, 512+512 1:4", "of the notes at the very start only the last stays"},
        {"Q   Q   H", "0--1------------", "----2-----------", "0+256 256+0 256+256",
         "| 0+256 1:0, 256+256 0:2 1:1, 512+512 r", "two columns brought to one time are a chord"},
        {"H.      Q", "0-------1-------", empty, "0+768 768+256", "| 0+512 1:0~, 512+256 1:0, 768+256 1:1",
         "a dotted length is two tied notes"},
        {"Q  -Q   H", "5---5---5-------", empty, "0+256 256+256 512+512",
         "| 0+256 1:5~, 256+256 1:5, 512+512 1:5", "a tie inside the bar joins equal notes"},
        {"Q  -Q   H", "5---7---5-------", empty, "0+256 256+256 512+512",
         "| 0+256 1:5, 256+256 1:7, 512+512 1:5", "it cannot join different ones"},
        {"Q  -Q   H", "5---5---5-------", "----3-----------", "0+256 256+256 512+512",
         "| 0+256 1:5~, 256+256 0:3 1:5, 512+512 1:5", "a note may come in while the others go on"},
        {"Q  -Q   H", "5---5---5-------", "3---------------", "0+256 256+256 512+512",
         "| 0+256 0:3 1:5, 256+256 1:5, 512+512 1:5", "but none of the tied ones may stop"},
        {"Q   Q  -H", "5-------5-------", empty, "0+256 512+512", "| 0+256 1:5, 256+256 r, 512+512 1:5",
         "nor may a rest lie between"},
        {"H" + std::string(63, ' '), "0" + std::string(62, '-') + "1", std::string(64, '-'), "0+512 512+0",
         "| 0+512 1:0 |", "a time rounded to the end of the bar leaves an empty one"},
        {"H Q X", "0-1-2-----------", empty, "0+512 512+256 768+16", "| 0+512 1:0, 512+256 1:1, 768+16 1:2",
         "a bar of 784 units"},
        {"H Q X S", "0-1-2-----------", empty, "0+512 512+256 768+16",
         "| 0+512 1:0, 512+256 1:1, 768+16 1:2, 784+64 r", "a length below 32 units stands as it is"},
        {"1   2   3   4", "0-1-2---3-------", empty, "0+128 128+128 256+256 512+512",
         "| 0+128 1:0, 128+128 1:1, 256+256 1:2, 512+512 1:3", "beats set no limits"},
        {"Q   Q   H", empty, empty, "", "| 0+1024 r", "a bar without notes rests"},
    };
    for (const Row& row : rows) {
        BarText text({row.Rhythm, row.First, row.Second});
        TabBar& bar = text.BarAt(1, 2);
        bar.ReadBar(nullptr);
        EXPECT_EQ(TimesOf(bar), row.Times) << row.Why;
        EXPECT_EQ(ItemsOf(bar), row.Items) << row.Why;
        EXPECT_TRUE(bar.HasRhythms()) << row.Why;
    }
}

TEST(Timing, FollowsTheSpacing) {
    struct Row {
        std::string First;
        std::string Second;
        int BarLength;
        const char* Times;
        const char* Why;
    };
    const std::string empty(16, '-');
    const Row rows[] = {
        {"-0---1---2---3--", empty, 1024, "0+256 256+320 576+256 832+192", "roundings do not add up"},
        {"0-------1-------", empty, 1024, "0+512 512+512", "a note at the very start"},
        {"--0------1------", empty, 1024, "0+512 512+512", "14 columns of 73 units; 511 goes up to 512"},
        {"---0---1--------", empty, 1024, "0+256 256+640", "from column 3 on the space before is lost"},
        {"----0---1-------", empty, 768, "0+192 192+384", "51 units a column; the remainder is dropped"},
        {"0" + std::string(63, '-'), "-1" + std::string(62, '-'), 1024, "0+0 0+1024",
         "one time, so one chord"},
        {"5-", "--", 1024, "0+1024", "two columns of text"},
        {"0-------1-------", empty, 0, "0+512 512+512", "a bar without a length counts as a whole note"},
        {Notes(16), std::string(32, '-'), 1024,
         "0+64 64+64 128+64 192+64 256+64 320+64 384+64 448+64 512+64 576+64 640+64 704+64 768+64 832+64 "
         "896+64 960+64",
         "sixteen notes are one bar"},
    };
    for (const Row& row : rows) {
        BarText text({row.First, row.Second}, kRhythmsAlways);
        TabBar& bar = text.BarAt(0, 2);
        bar.SetBarLength(row.BarLength);
        bar.ReadBar(nullptr);
        EXPECT_EQ(TimesOf(bar), row.Times) << row.Why;
        EXPECT_TRUE(bar.HasRhythms()) << row.Why;
        EXPECT_EQ(bar.ScoreBarCount(), 1) << row.Why;
    }
}

TEST(Timing, CutsAStaveWithoutBarlinesIntoBars) {
    struct Row {
        int NoteCount;
        int BarLength;
        int ScoreBars;
        const char* LastColumn;
        const char* Why;
    };
    const Row rows[] = {
        {17, 1024, 3, "2048+1024", "one note more than a bar holds"},
        {20, 1024, 3, "2432+640", "the last note lasts to the end of its bar"},
        {24, 1024, 3, "2944+128", "just full"},
        {13, 768, 3, "1536+768", "a shorter bar"},
        {11, 640, 3, "1280+640", "five quavers a bar"},
    };
    for (const Row& row : rows) {
        BarText text({Notes(row.NoteCount), Repeated("--", row.NoteCount)}, kRhythmsAlways);
        TabBar& bar = text.BarAt(0, 2);
        bar.SetBarLength(row.BarLength);
        bar.ReadBar(nullptr);
        const std::string times = TimesOf(bar);
        EXPECT_EQ(times.substr(times.rfind(' ') + 1), row.LastColumn) << row.Why;
        EXPECT_EQ(bar.ScoreBarCount(), row.ScoreBars) << row.Why;
    }
}

TEST(Timing, LetsQuaversGoOnOverBarlinesOfShorterBars) {
    BarText text({"0-1-2---", "--------"}, kRhythmsAlways);
    TabBar& bar = text.BarAt(0, 2);
    bar.SetBarLength(64);
    bar.ReadBar(nullptr);
    EXPECT_EQ(TimesOf(bar), "0+128 128+128 256+64");
    EXPECT_EQ(ItemsOf(bar), "| 0+64 1:0~ | 0+64 1:0 | 0+64 1:1~ | 0+64 1:1 | 0+64 1:2");
}

TEST(Timing, OfTwoBarsNeverCutsThem) {
    BarText text({Notes(20) + "|--", Repeated("--", 20) + "|--"}, kRhythmsAlways);
    TabBar& bar = text.BarAt(0, 2);
    bar.ReadBar(nullptr);
    EXPECT_EQ(bar.ScoreBarCount(), 1);
    EXPECT_EQ(bar.GetColumns().rbegin()->second->m_Position, 960);
}

TEST(Timing, FollowsTheRhythmLevel) {
    struct Row {
        const char* Rhythm;
        int Level;
        bool HasRhythms;
        const char* Times;
    };
    const Row rows[] = {
        {"H.      Q", kRhythmsNever, false, "0+128 128+128"},
        {"H.      Q", kRhythmsWhenIndicated, true, "0+768 768+256"},
        {"H.      Q", kRhythmsAlways, true, "0+768 768+256"},
        {"", kRhythmsNever, false, "0+128 128+128"},
        {"", kRhythmsWhenIndicated, false, "0+128 128+128"},
        {"", kRhythmsAlways, true, "0+512 512+512"},
    };
    for (const Row& row : rows) {
        BarText text({row.Rhythm, "0-------1-------", "----------------"}, row.Level);
        TabBar& bar = text.BarAt(1, 2);
        bar.ReadBar(nullptr);
        EXPECT_EQ(bar.HasRhythms(), row.HasRhythms) << row.Rhythm << row.Level;
        EXPECT_EQ(TimesOf(bar), row.Times) << row.Rhythm << row.Level;
        EXPECT_EQ(bar.GetRhythmLine().m_Line, *row.Rhythm != 0 ? 0 : -1) << "found at every level";
    }
}

TEST(Timing, OfABarWithoutNotes) {
    BarText even({"--------", "--------"});
    TabBar& evenBar = even.BarAt(0, 2);
    evenBar.ReadBar(nullptr);
    EXPECT_EQ(evenBar.ScoreBarCount(), 0);
    EXPECT_EQ(evenBar.GetBarLength(), 1024);

    BarText spaced({"--------", "--------"}, kRhythmsAlways);
    TabBar& spacedBar = spaced.BarAt(0, 2);
    spacedBar.SetBarLength(768);
    spacedBar.ReadBar(nullptr);
    EXPECT_EQ(ItemsOf(spacedBar), "| 0+512 r, 512+256 r");
}

} // namespace Fretline
