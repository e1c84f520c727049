#pragma once

#include "Shared/Utils/tree/TreeNodeOutput.h"

#include <cstddef>

namespace Nvr {

class TreeNode;

/// Writes the text form: a node a line, its children in braces below it, a tab a level, CR LF line ends.
/// Labels are written as they are, so a label that is to be read again holds only label characters.
class TreeNodeTextWriter {
public:
    /// What stands between a label and a value that holds a double quote. Both forms are read.
    enum class QuotedValues { AfterBlank, AtLabel };

    TreeNodeTextWriter(TreeNodeOutput& output, QuotedValues quotedValues)
        : m_Output(output), m_QuotedValues(quotedValues) {}

    /// Stops when the output's stream has failed.
    void Write(const TreeNode& root, int depth);

private:
    void WriteHead(const TreeNode& node, std::size_t depth);
    void WriteLine(char character, std::size_t depth);

    TreeNodeOutput& m_Output;
    QuotedValues m_QuotedValues;
};

} // namespace Nvr
