#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace ReferenceHost {

/// A file that is written piece by piece: a new one beside its target, which takes its place once everything
/// has reached the disk. What is no ordinary file, such as a device, is written itself.
class ScoreFile {
public:
    /// Begins it; its folder is made when it is missing.
    explicit ScoreFile(std::filesystem::path target);
    /// Without a Finish that went well the target is as it was.
    ~ScoreFile();
    ScoreFile(const ScoreFile&) = delete;
    ScoreFile& operator=(const ScoreFile&) = delete;

    /// Does nothing after a failure, which Finish tells.
    void Write(std::string_view bytes);
    /// Empty when all went well, else a sentence that says what is wrong. To be called once.
    std::string Finish();

private:
    void Fail();
    void Close();

    std::filesystem::path m_Target;
    // Where it is written; empty for what is written itself.
    std::string m_Beside;
    int m_File = -1;
    // What the system said to the first thing that failed; 0 while nothing has.
    int m_Failure = 0;
};

} // namespace ReferenceHost
