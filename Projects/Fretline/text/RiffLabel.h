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
    /// The column after its last character.
    int m_EndColumn;
    /// The keyword that found it.
    Nvr::String m_Keyword;

    /// The label as written, up to a zero byte, without ASCII white space at either end. No code page is
    /// applied.
    Nvr::String GetText() const;
};

} // namespace Fretline
