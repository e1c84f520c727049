#include "Projects/Fretline/score/ScoreAccess.h"
#include "Shared/NotaveraAPI/HostFunctions.h"
#include "Shared/Utils/Exceptions.h"
#include "Shared/Utils/tree/TreeNode.h"
#include "tests/Projects/Fretline/shell/OpenFileTesting.h"

#include <map>
#include <stdexcept>

namespace {

using namespace OpenFileTesting;

TEST_F(OpenFileTest, GoesTheWholeWayInOrder) {
    bool wasConverting = false;
    Host.Answer = [&] {
        wasConverting = wasConverting || Fretline::GetPluginState().ConversionInProgress == 1;
        const auto files = std::distance(std::filesystem::directory_iterator(Temp.Path()), {});
        const bool isReserved = Host.Calls.size() > 2 && Host.Calls.size() <= kLoad;
        EXPECT_EQ(files, isReserved ? 2 : Host.Calls.back() == "load" ? 1 : 0) << Host.Calls.back();
        return 1;
    };
    EXPECT_TRUE(Open(Tabs.Write("a b%20.tab", kTwoBars)));
    EXPECT_EQ(Host.Calls, kCallsOfTwoBars);
    EXPECT_TRUE(wasConverting);
    const std::filesystem::path loaded = Host.LoadedPath;
    EXPECT_EQ(loaded.extension(), ".nvf");
    EXPECT_EQ(loaded.parent_path(), Temp.Path());
    EXPECT_EQ(loaded.filename().string().substr(0, 2), "nv");
    EXPECT_FALSE(std::filesystem::exists(Host.LoadedPath)) << "deleted after the load";
    EXPECT_EQ(Fretline::GetPluginState().Output->GetFileName(), "a b%20.tab");
    EXPECT_EQ(Fretline::GetPluginState().Output->GetConverterName(), "Fretline Import");
}

std::unique_ptr<Nvr::TreeNodeRoot> LoadTree(const std::string& bytes) {
    return std::unique_ptr<Nvr::TreeNodeRoot>(Nvr::TreeNode::LoadFromMemory(bytes.data(), bytes.size()));
}

TEST_F(OpenFileTest, TheScoreIsTheTemplateWithTheMusicAndNothingElseChanged) {
    ASSERT_TRUE(Open(Tabs.Write("a.tab", kTwoBars)));
    const std::unique_ptr<Nvr::TreeNodeRoot> score = LoadTree(Host.LoadedBytes);
    ASSERT_NE(score, nullptr);
    EXPECT_TRUE(score->WasBinary && score->WasUnicode);
    const std::unique_ptr<Nvr::TreeNodeRoot> plain(Nvr::ResId(100).LoadFromResource());
    Fretline::FlattenPartMaps(plain.get());
    Nvr::TreeNode* const music = score->FindChild("Music");
    ASSERT_NE(music, nullptr);

    for (const auto& [label, added] :
         std::map<std::string, int>{{"Staves", 1}, {"Barlines", 1}, {"BarSpacings", 2}}) {
        Nvr::TreeNode* const before = plain->FindChild("Music")->FindChild(label.c_str());
        const Nvr::TreeNode* const after = music->FindChild(label.c_str());
        EXPECT_EQ(after->GetChildCount(), before->GetChildCount() + added) << label;
        before->CopyChildrenFrom(*after);
    }
    Nvr::TreeNode* const systemBars = music->FindChild("SystemStave")->FindChild("Bars");
    ASSERT_EQ(systemBars->GetChildCount(), 3);
    systemBars->RemoveChild(systemBars->GetChild(2));
    systemBars->RemoveChild(systemBars->GetChild(1));
    const int count = plain->FindChild("Music")->GetChildCount();
    ASSERT_EQ(music->GetChildCount(), count + 2);
    EXPECT_EQ(music->GetChild(count)->GetLabel(), "ReBeamAll");
    EXPECT_EQ(music->GetChild(count + 1)->GetLabel(), "Instruments");
    music->RemoveChild(music->GetChild(count + 1));
    music->RemoveChild(music->GetChild(count));
    EXPECT_TRUE(score->IsSameTree(*plain)) << "the rest is the template's, the lead-in of the system too";
}

TEST_F(OpenFileTest, TheTuningOfTheTextDecidesTheStaveType) {
    const struct {
        // Of the strings, from the top.
        const char *Letters, *Level, *StaveType;
        int NewRows;
    } rows[] = {
        {"EBGDAE", "0", "stafftype.tab.6.guitar.standard", 0},
        {"EBGDAE", "2", "stafftype.tab.6.rhythms.guitar.standard", 0},
        {"DAGDAD", "0", "stafftype.tab.6.guitar.DADGAD", 0},
        {"EBGDAD", "2", "stafftype.tab.6.rhythms.guitar.standard.fretline.7690100110118128", 1},
        {"BGDAE", "0", "stafftype.tab.6.guitar.standard.fretline.8090100110118", 1},
    };
    const std::unique_ptr<Nvr::TreeNodeRoot> plain(Nvr::ResId(100).LoadFromResource());
    const int staveTypes = plain->FindChild("Music")->FindChild("StaveTypes")->GetChildCount();
    for (const auto& row : rows) {
        Config.Write("FretlineOptions.txt",
                     std::string("\r\n{\r\n\tRhythmLevel \"") + row.Level + "\"\r\n}\r\n");
        std::string tab;
        for (const char* letter = row.Letters; *letter != '\0'; ++letter)
            tab.append(1, *letter).append("|--2------4------|\n");
        ASSERT_TRUE(Open(Tabs.Write("a.tab", tab)));
        const std::unique_ptr<Nvr::TreeNodeRoot> score = LoadTree(Host.LoadedBytes);
        ASSERT_NE(score, nullptr) << row.Letters;
        const Nvr::TreeNode* const music = score->FindChild("Music");
        const Nvr::TreeNode* const leadIn =
            music->FindChild("Staves")->GetChild(0)->FindChild("Bars")->GetChild(0);
        EXPECT_EQ(leadIn->FindChild("Items")->GetChild(3)->GetChildValue("StaveType", Nvr::String()),
                  row.StaveType);
        EXPECT_EQ(music->FindChild("StaveTypes")->GetChildCount(), staveTypes + row.NewRows) << row.Letters;
    }
}

TEST_F(OpenFileTest, ACancelAtAnyReportGoesStraightToTheClosingSequence) {
    ExpectTheUsualScore();
    for (std::size_t at = 1; at < kCallsOfTwoBars.size(); ++at) {
        Host.Answer = [&] { return IsLastCall(at) ? 0 : 1; };
        const bool isLookedAt = at > 1 && at < kLoad;
        ExpectEndAfter(at, isLookedAt);
    }
}

TEST_F(OpenFileTest, WhateverTheHostThrowsTheClosingSequenceRunsAndNothingComesOut) {
    ExpectTheUsualScore();
    using Throw = void (*)();
    const Throw kinds[] = {[] { throw 42; }, [] { throw std::runtime_error("host"); },
                           [] { throw Nvr::OutOfMemoryException(); },
                           [] { throw Nvr::ConverterCancelled(); }};
    for (const Throw raise : kinds) {
        for (std::size_t at = 0; at < kCallsOfTwoBars.size(); ++at) {
            Host.Answer = [&] {
                if (IsLastCall(at))
                    raise();
                return 1;
            };
            ExpectEndAfter(at, at < kClosing);
        }
    }
}

TEST_F(OpenFileTest, EveryCallOfTheClosingSequenceIsMadeWhenAllOfThemThrow) {
    Host.Answer = []() -> int { throw 42; };
    EXPECT_TRUE(Open(Tabs.Write("a.tab", kTwoBars)));
    EXPECT_EQ(Host.Calls, (Calls{kCallsOfTwoBars[0], "update 100", "destroy"}));
}

TEST_F(OpenFileTest, AnOpenFromInsideAConversionOnlySaysWhoseTheFileIs) {
    ExpectTheUsualScore();
    const std::string outer = Tabs.Write("outer.tab", kTwoBars);
    const std::string tab = Tabs.Write("inner.tab", kTwoBars);
    const std::string text = Tabs.Write("inner.txt", kTwoBars);
    for (std::size_t at = 0; at < kCallsOfTwoBars.size(); ++at) {
        Host.Answer = [&] {
            if (IsLastCall(at)) {
                EXPECT_TRUE(Fretline::OpenFile(tab.c_str()));
                EXPECT_FALSE(Fretline::OpenFile(text.c_str()));
            }
            return 1;
        };
        EXPECT_TRUE(Open(outer));
        // Inside of the first two calls there is no conversion yet, and the inner open is one of its own.
        Calls expected = kCallsOfTwoBars;
        if (at < 2)
            expected.insert(expected.begin() + static_cast<std::ptrdiff_t>(at) + 1, kCallsOfTwoBars.begin(),
                            kCallsOfTwoBars.end());
        EXPECT_EQ(Host.Calls, expected) << at;
        EXPECT_EQ(Fretline::GetPluginState().Output->GetFileName(), "outer.tab") << "messages bear its name";
        ExpectTheUsualScore();
    }
}

TEST_F(OpenFileTest, AMessageIsACallLikeAnyOther) {
    ExpectTheUsualScore();
    const std::string tab = Tabs.Write("b.tab", "words --- and a line of hyphens\n\n" + kTwoBars);
    constexpr std::size_t kMessage = 3;
    for (const bool throws : {false, true}) {
        Host.Answer = [&] {
            if (IsLastCall(kMessage)) {
                EXPECT_TRUE(Fretline::OpenFile(tab.c_str()));
                if (throws)
                    throw 42;
            }
            return 1;
        };
        EXPECT_TRUE(Open(tab));
        ASSERT_GT(Host.Calls.size(), kMessage);
        EXPECT_TRUE(Host.Calls[kMessage].starts_with("message Fretline Import|b.tab|4"));
        Calls expected = kCallsOfTwoBars;
        expected.insert(expected.begin() + kMessage, Host.Calls[kMessage]);
        if (throws)
            expected.erase(expected.begin() + kMessage + 1, expected.begin() + kClosing + 1);
        EXPECT_EQ(Host.Calls, expected);
        ExpectTheUsualScore();
    }
}

TEST_F(OpenFileTest, WithoutAFolderForOptionsTheDefaultStands) {
    ExpectTheUsualScore();
    const std::string missing = (Tabs.Path() / "missing").string();
    Record.ConfigFolder = missing.c_str();
    ASSERT_TRUE(Fretline::InitialisePlugin(Record, Info));
    ExpectTheUsualScore();
    EXPECT_FALSE(std::filesystem::exists(missing));
}

TEST_F(OpenFileTest, FilesOfOthersMakeNoCalls) {
    EXPECT_FALSE(Open(Tabs.Write("a.txt", kTwoBars)));
    EXPECT_FALSE(Open((Tabs.Path() / "missing.tab").string()));
    EXPECT_FALSE(Open(Tabs.Path().string()));
    EXPECT_FALSE(Fretline::OpenFile(nullptr));
    EXPECT_TRUE(Host.Calls.empty());
}

TEST_F(OpenFileTest, ATextWithoutAStaveEndsWithItsMessages) {
    EXPECT_TRUE(Open(Tabs.Write("a.tab", kNoStave)));
    const std::string message = "message Fretline Import|a.tab|4|-2|-2|Lines ";
    const std::string rest = " inclusive don't seem to be part of a real stave so they have been ignored";
    EXPECT_EQ(Host.Calls,
              (Calls{kCreate, "update 0", "update 0", message + "1 to 1" + rest, message + "3 to 3" + rest,
                     "update 10", "update 20", "update 100", "destroy"}));
}

TEST_F(OpenFileTest, AnEndDuringAConversionCancelsAndAnotherStartGoesOn) {
    const std::string tab = Tabs.Write("a.tab", kTwoBars);
    Host.Answer = [&] {
        if (IsLastCall(3))
            Fretline::TerminatePlugin();
        return 1;
    };
    EXPECT_TRUE(Open(tab));
    EXPECT_EQ(Host.Calls, Calls(kCallsOfTwoBars.begin(), kCallsOfTwoBars.begin() + 4))
        << "nothing is called any more";
    Host.Answer = nullptr;
    ASSERT_TRUE(Fretline::InitialisePlugin(Record, Info));
    EXPECT_TRUE(Open(tab));
    EXPECT_EQ(Host.Calls, kCallsOfTwoBars);
}

TEST_F(OpenFileTest, WithoutAResourceModuleThereIsNoDialogAndNoConversion) {
    Record.ResourceModule = nullptr;
    ASSERT_TRUE(Fretline::InitialisePlugin(Record, Info));
    Fretline::ShowOptionsDialog = true;
    EXPECT_TRUE(Open(Tabs.Write("a.tab", kTwoBars)));
    EXPECT_EQ(Host.Calls, (Calls{"update 100", "destroy"})) << "a dialog of the process is another's";
}

TEST_F(OpenFileTest, BeforeTheStartAFileIsTestedAndNothingIsCalled) {
    Fretline::TerminatePlugin();
    EXPECT_TRUE(Open(Tabs.Write("a.tab", kTwoBars)));
    EXPECT_TRUE(Host.Calls.empty());
    EXPECT_FALSE(Open(Tabs.Write("a.txt", kTwoBars)));
}

} // namespace
