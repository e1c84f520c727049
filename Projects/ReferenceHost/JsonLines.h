#pragma once

#include "Projects/ReferenceHost/Workers.h"

#include <string>

namespace ReferenceHost {

/// The lines of standard input as jobs. Answers as soon as a line is whole, so that a program may wait for
/// one result before it sends the next line.
class StandardInputLines : public JobSource {
public:
    bool IsReady() override;
    int Descriptor() const override;
    bool HasAtHand(std::size_t count) override;
    /// Empty lines are passed over.
    bool Next(std::string& job) override;

private:
    bool HasLine() const { return m_LineEnd != std::string::npos; }
    // Of what is there, up to a whole line that is not empty.
    void PassOverEmptyLines();
    // Up to the end of what is there where it has none of its own.
    std::string TakeLine();
    void FillOnce();

    std::string m_Bytes;
    std::size_t m_Start = 0;
    std::size_t m_LineEnd = std::string::npos;
    bool m_IsAtEnd = false;
};

} // namespace ReferenceHost
