#pragma once

#include "Shared/Utils/NvrString.h"

namespace Fretline {

/// A text without a line of this many hyphens is no tab.
constexpr int kFewestHyphensOfATab = 11;
/// A text with a smaller share of printable characters is no plain text.
constexpr int kLeastPercentOfText = 95;

/// Whether a file is ours to handle, and the first reason why not.
enum class TabFileVerdict {
    Accepted,
    /// It has an extension, and none of FileTypeTable; it was not opened.
    OtherExtension,
    CannotBeOpened,
    Empty,
    NoLineOfHyphens,
    NotPlainText,
};

/// A file is ours when it has one of the extensions of FileTypeTable, in any case, or none; some line has
/// more than ten hyphens; and at least 95 of 100 of its bytes are plain text (printable ASCII, tabs, line
/// ends).
TabFileVerdict ExamineTabFile(const Nvr::String& path);

/// The two halves of it: True when the path has one of the extensions or none, and the verdict on what is in
/// the file.
bool HasExtensionOfTab(const Nvr::String& path);
TabFileVerdict ExamineTabText(const Nvr::String& path);

/// True when the verdict is Accepted.
bool IsTabFile(const Nvr::String& path);

} // namespace Fretline
