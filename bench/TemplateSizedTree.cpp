#include "bench/TemplateSizedTree.h"

#include <random>
#include <string>

using Nvr::String;
using Nvr::TreeNode;

namespace {

constexpr int kNodes = 81393;
constexpr unsigned kFieldLabels = 900;
constexpr unsigned kNumbers = 2500;
constexpr unsigned kTexts = 4400;
constexpr int kPartMaps = 217;

class Maker {
public:
    std::unique_ptr<TreeNode> Make() {
        auto root = std::make_unique<TreeNode>("NvfFileVersion", "10450015");
        root->AddChild(new TreeNode("Type", "Score"));
        auto* const music = new TreeNode("Music");
        root->AddChild(music);
        for (int i = 0; i < kPartMaps; ++i)
            music->AddChild(MakePartMap());
        while (m_NodesLeft > 0)
            music->AddChild(MakeList());
        return root;
    }

private:
    unsigned Below(unsigned limit) { return static_cast<unsigned>(m_Random() % limit); }

    String FieldLabel() { return Text("FieldOfRecord", Below(kFieldLabels)); }
    static String Text(const char* start, unsigned number) {
        return String(start) + String::FromUnsigned(number);
    }

    String Value() {
        switch (Below(6)) {
        case 0:
            return String("true");
        case 1:
            return String("false");
        case 2:
            return {};
        case 3:
            return Text("A name that stands for ", Below(kTexts));
        default:
            return String::FromUnsigned(Below(kNumbers));
        }
    }

    TreeNode* MakeField() {
        --m_NodesLeft;
        return new TreeNode(FieldLabel(), Value());
    }

    TreeNode* MakePartMap() {
        m_NodesLeft -= 2;
        auto* const map = new TreeNode(FieldLabel());
        map->AddChild(new TreeNode("__PartMapDefault", Value()));
        return map;
    }

    TreeNode* MakeRecord(int levelsBelow) {
        m_NodesLeft -= 2;
        auto* const record = new TreeNode;
        record->AddChild(new TreeNode("Type", Text("RecordType", Below(60))));
        for (unsigned fields = 3 + Below(12); fields > 0; --fields)
            record->AddChild(MakeField());
        if (levelsBelow > 0 && Below(3) == 0) {
            auto* const list = MakeField();
            for (unsigned records = 1 + Below(3); records > 0; --records)
                list->AddChild(MakeRecord(levelsBelow - 2));
            record->AddChild(list);
        }
        return record;
    }

    TreeNode* MakeList() {
        constexpr int kLevelsBelowLists = 6;
        auto* const list = MakeField();
        for (unsigned records = 20 + Below(400); records > 0 && m_NodesLeft > 0; --records)
            list->AddChild(MakeRecord(kLevelsBelowLists));
        return list;
    }

    std::mt19937 m_Random{5489U};
    int m_NodesLeft = kNodes - 3;
};

} // namespace

std::unique_ptr<TreeNode> MakeTemplateSizedTree() {
    return Maker().Make();
}
