#include "Projects/Explain/WhyNot.h"

#include "Projects/Fretline/shell/IsTabFile.h"
#include "Projects/Fretline/text/StaveDetection.h"
#include "Projects/Fretline/text/TabAnalysis.h"
#include "Projects/Fretline/text/TabFile.h"
#include "Projects/Score/Utf8.h"
#include "Projects/TabText/ReadingMessages.h"

namespace Explain {

namespace {

using Fretline::TabFileVerdict;

bool HasReadableBars(const std::filesystem::path& file) {
    TabText::ReadingMessages messages;
    Fretline::TabFile text(file.c_str(), nullptr, &messages);
    return !Fretline::TabAnalysis(text).GetReadableBars().empty();
}

} // namespace

std::string WhyNotTaken(const std::filesystem::path& file) {
    std::error_code failure;
    if (std::filesystem::is_directory(file, failure))
        return "is a folder, not a file";
    switch (Fretline::ExamineTabFile(std::filesystem::absolute(file).c_str())) {
    case TabFileVerdict::OtherExtension:
        return "its extension is not one of tab, btab or crd";
    case TabFileVerdict::CannotBeOpened:
        return "cannot be opened";
    case TabFileVerdict::Empty:
        return "is empty";
    case TabFileVerdict::NoLineOfHyphens:
        return Score::Numbered("is no tab: no line has ", Fretline::kFewestHyphensOfATab) + " dashes or more";
    case TabFileVerdict::NotPlainText:
        return Score::Numbered("is not plain text: less than ", Fretline::kLeastPercentOfText) +
               " % of it are printable characters";
    default:
        return "was not taken by the plug-in";
    }
}

bool HoldsStave(const std::filesystem::path& file) {
    const std::filesystem::path absolute = std::filesystem::absolute(file);
    return Fretline::ExamineTabText(absolute.c_str()) == TabFileVerdict::Accepted &&
           HasReadableBars(absolute);
}

std::string WhyNoScore(const std::filesystem::path& file) {
    if (!HasReadableBars(std::filesystem::absolute(file)))
        return Score::Numbered("no stave was found in it (a stave has at least ",
                               Fretline::kFewestLinesOfARun) +
               " lines of dashes, one below the other)";
    return "its score could not be made: there is no music in its bars, not enough memory, or no "
           "room for temporary files";
}

} // namespace Explain
