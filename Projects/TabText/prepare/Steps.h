#pragma once

/// The steps of the preparation, one function each, in the sources of this folder. Each works on the draft as
/// the ones before it left it, in time in proportion to its text, and finds nothing more in its own result.
namespace TabText {

class Draft;

void RunAscii(Draft& draft);
void RunMarkup(Draft& draft);
void RunProse(Draft& draft);
void RunShort(Draft& draft);
void RunApart(Draft& draft);
void RunTuning(Draft& draft);
void RunBends(Draft& draft);
void RunDigits(Draft& draft);
void RunParts(Draft& draft);
void RunText(Draft& draft);
void RunRhythm(Draft& draft);
void RunGrid(Draft& draft);

} // namespace TabText
