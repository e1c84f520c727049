#pragma once

#include "Projects/Fretline/text/TabFile.h"

#include <string>
#include <vector>

namespace Fretline {

/// The analysis of a text once more, step by step and cell by cell, with no thought for its cost: every
/// column is walked to the length of the longest line, and every question is answered by going through all
/// there is. What the real analysis answers is measured by it.
struct PlainAnalysis {
    struct Bar {
        int Start, Width;
        bool HasDash;
        /// Index into TimeSignatures, or -1; 0 where the bar has no dash, as is the length.
        int TimeSignature = -1, Length = 0;
        /// Index into Labels, or -1.
        int Label = -1;
    };
    struct Barline {
        bool Double;
        int Column;
    };
    struct Stave {
        int First, Count;
        std::vector<Barline> Barlines;
        std::vector<Bar> Bars;
        std::vector<int> Tuning;
    };
    struct Signature {
        int Line, Column, Start, End, Numerator, Denominator;
    };
    struct Label {
        int Line, Start, End;
        std::string Keyword;
    };

    explicit PlainAnalysis(const TabFile& file);

    bool IsStaveLine(int line) const;
    bool IsTimeSignatureAt(int line, int column) const;

    /// Id and line numbers as the user counts them: "100 7", "101 2 3".
    std::vector<std::string> Messages;
    std::vector<Stave> Staves;
    std::vector<Signature> Signatures;
    std::vector<Label> Labels;

private:
    void GroupLines();
    void ProcessRun(std::vector<int> run);
    Stave MakeStave(int first, int count) const;
    std::vector<int> TuningOf(int first, int count) const;
    void FindSignatures();
    void FindSignaturesIn(int line);
    void AssignSignatures();
    void FindLabels();
    Label LabelAt(int line, int column, const std::string& keyword) const;
    void AttachLabels();

    const TabFile& m_File;
    int m_Width;
};

} // namespace Fretline
