#pragma once

#include "Shared/Utils/NvrString.h"

namespace Fretline {

class TabFile;

/// A section label of the text, such as "Chorus 2". Columns are absolute; borrows the file.
struct RiffLabel {
    const TabFile* m_File;
    int m_Line;
    /// The label's first column.
    int m_StartColumn;
    /// The column behind its last character.
    int m_EndColumn;
    /// The keyword that found it.
    Nvr::String m_Keyword;

    /// The label as written, without white space at either end.
    Nvr::String GetText() const;
    /// True for the same line and extent.
    bool IsSamePlaceAs(const RiffLabel& other) const;
};

} // namespace Fretline
