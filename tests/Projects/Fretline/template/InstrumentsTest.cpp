#include "tests/Projects/Fretline/template/LoadedTemplate.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

namespace {

// The instruments, ensembles and stave types of the template.
class Instruments : public testing::Test {
protected:
    void SetUp() override {
        for (const Nvr::TreeNode* type : ChildrenOf(FindPath(*m_Root, {"Music", "StaveTypes"})))
            m_StaveTypes[ValueOf(*type, "Id")] = type;
        for (const Nvr::TreeNode* clef : ChildrenOf(FindPath(*m_Root, {"Music", "ClefStyles"})))
            m_Clefs.insert(ValueOf(*clef, "Id"));
        ASSERT_FALSE(All().empty());
    }

    std::vector<const Nvr::TreeNode*> All() const {
        return ChildrenOf(FindPath(*m_Root, {"Music", "InstrumentList"}));
    }

    // Null when there is none, which fails the test.
    const Nvr::TreeNode* StaveTypeOf(const Nvr::TreeNode& instrument) const {
        const auto found = m_StaveTypes.find(ValueOf(instrument, "StaveType"));
        EXPECT_NE(found, m_StaveTypes.end()) << ValueOf(instrument, "StaveType");
        return found == m_StaveTypes.end() ? nullptr : found->second;
    }

    const Nvr::TreeNodeRoot* const m_Root = LoadTemplate();
    std::map<std::string, const Nvr::TreeNode*> m_StaveTypes;
    std::set<std::string> m_Clefs;
};

} // namespace

TEST_F(Instruments, HaveTheStavesAndClefsThatTheyName) {
    for (const Nvr::TreeNode* instrument : All()) {
        SCOPED_TRACE(ValueOf(*instrument, "Id"));
        const bool twoStaves = IntOf(*instrument, "NumStaves") == 2;
        EXPECT_NE(StaveTypeOf(*instrument), nullptr);
        EXPECT_TRUE(m_Clefs.contains(ValueOf(*instrument, "Clef")));
        EXPECT_EQ(m_Clefs.contains(ValueOf(*instrument, "LowerClef")), twoStaves);
        EXPECT_EQ(m_StaveTypes.contains(ValueOf(*instrument, "LowerStaveType")), twoStaves);
        EXPECT_FALSE(ValueOf(*instrument, "FullName").empty());
        EXPECT_FALSE(ValueOf(*instrument, "ShortName").empty());
    }
}

TEST_F(Instruments, ReachTheOpenStringsOfTheirTab) {
    std::set<std::string> tabStaves;
    for (const Nvr::TreeNode* instrument : All()) {
        if (ValueOf(*instrument, "Clef") != "clef.tab")
            continue;
        SCOPED_TRACE(ValueOf(*instrument, "Id"));
        tabStaves.insert(ValueOf(*instrument, "StaveType"));
        const Nvr::TreeNode* const stave = StaveTypeOf(*instrument);
        ASSERT_NE(stave, nullptr);
        std::vector<int> strings;
        for (const Nvr::TreeNode* string : ChildrenOf(stave->FindChild("Pitches")))
            strings.push_back(string->GetValueAsInt());
        const Nvr::TreeNode* const range = instrument->FindChild("PitchRange");
        ASSERT_NE(range, nullptr);
        ASSERT_FALSE(strings.empty());
        EXPECT_EQ(IntOf(*range, "Lowest"), *std::min_element(strings.begin(), strings.end()));
        EXPECT_GT(IntOf(*range, "Highest"), *std::max_element(strings.begin(), strings.end()));
    }
    for (const auto& [id, type] : m_StaveTypes)
        EXPECT_EQ(tabStaves.contains(id), ValueOf(*type, "Category") == "2") << id;
}

TEST_F(Instruments, StrikeWhatStandsOnTheirStave) {
    for (const Nvr::TreeNode* instrument : All()) {
        const Nvr::TreeNode* const sound = instrument->FindChild("PercussionSound");
        if (sound == nullptr || ValueOf(*sound, "Pitch").empty())
            continue;
        SCOPED_TRACE(ValueOf(*instrument, "Id"));
        const Nvr::TreeNode* const stave = StaveTypeOf(*instrument);
        ASSERT_NE(stave, nullptr);
        const Nvr::TreeNode* const drums = stave->FindChild("Drums");
        ASSERT_NE(drums, nullptr);
        EXPECT_NE(FindRow(*drums, "Pitch", ValueOf(*sound, "Pitch").c_str()), nullptr);
    }
}

TEST_F(Instruments, EnsemblesListExistingInstrumentsOnce) {
    std::set<std::string> known;
    for (const Nvr::TreeNode* instrument : All())
        known.insert(ValueOf(*instrument, "Id"));
    std::size_t largest = 0;
    for (const Nvr::TreeNode* ensemble : ChildrenOf(FindPath(*m_Root, {"Music", "EnsembleList"}))) {
        SCOPED_TRACE(ValueOf(*ensemble, "Name"));
        std::set<std::string> members;
        for (const Nvr::TreeNode* family : ChildrenOf(ensemble->FindChild("Families"))) {
            EXPECT_GT(ChildrenOf(family->FindChild("Instruments")).size(), 0U) << ValueOf(*family, "Name");
            for (const Nvr::TreeNode* member : ChildrenOf(family->FindChild("Instruments"))) {
                const std::string id(member->GetValue().View());
                EXPECT_TRUE(known.contains(id)) << id;
                EXPECT_TRUE(members.insert(id).second) << id << " is listed twice";
            }
        }
        largest = std::max(largest, members.size());
    }
    EXPECT_EQ(largest, known.size()) << "one ensemble holds all instruments";
}
