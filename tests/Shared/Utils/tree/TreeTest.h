#pragma once

#include "Shared/Utils/tree/TreeNode.h"
#include "Shared/Utils/tree/TreeNodePool.h"
#include "tests/Shared/Utils/RecordingSink.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Collects the reports of a test, and sees that every node is given back.
class TreeTest : public ::testing::Test {
protected:
    ~TreeTest() override { EXPECT_EQ(Nvr::TreeNodePool::Shared().CellsInUse(), m_CellsBefore); }

    /// The reports since the last call.
    std::vector<std::string> TakeReports() { return std::exchange(m_Sink.Messages, {}); }

private:
    std::size_t m_CellsBefore = Nvr::TreeNodePool::Shared().CellsInUse();
    RecordingSink m_Sink;
};

/// A tree in one line: label, =value in bars when there is one, children in round brackets.
inline std::string Outline(const Nvr::TreeNode* node) {
    if (node == nullptr)
        return "null";
    std::string text(node->GetLabel().View());
    if (!node->GetValue().IsEmpty())
        text.append("=|").append(node->GetValue().View()).append("|");
    if (node->GetChildCount() == 0)
        return text;
    for (int i = 0; i < node->GetChildCount(); ++i)
        text.append(i == 0 ? "(" : ",").append(Outline(node->GetChild(i)));
    return text + ')';
}

/// Bytes given as "00 02 'Type' ..." : hexadecimal pairs, and text in single quotes.
inline std::string Bytes(std::string_view description) {
    std::string bytes;
    const auto digit = [](char c) { return c <= '9' ? c - '0' : c - 'A' + 10; };
    for (std::size_t i = 0; i < description.size(); ++i) {
        if (description[i] == ' ')
            continue;
        if (description[i] == '\'') {
            const std::size_t end = description.find('\'', i + 1);
            bytes += description.substr(i + 1, end - i - 1);
            i = end;
        } else {
            bytes += static_cast<char>(digit(description[i]) * 16 + digit(description[i + 1]));
            ++i;
        }
    }
    return bytes;
}

/// One of the many strings of this length that have the same hash: "Aa" and "BB" in the pattern of the
/// number.
inline std::string OneOfEqualHashes(unsigned number, int pairs) {
    std::string text;
    for (int pair = 0; pair < pairs; ++pair)
        text += (number >> pair & 1U) != 0 ? "BB" : "Aa";
    return text;
}

inline std::unique_ptr<Nvr::TreeNodeRoot> LoadBytes(std::string_view bytes) {
    return std::unique_ptr<Nvr::TreeNodeRoot>(Nvr::TreeNode::LoadFromMemory(bytes.data(), bytes.size()));
}
