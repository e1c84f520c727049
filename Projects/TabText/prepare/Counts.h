#pragma once

namespace TabText {

class Draft;

/// Counts that cut beats into halves and quarters, where the plug-in reads no rhythm of them because they
/// touch ("1e&a2e&a") or have too many kinds of signs ("1 e & a 2 e & a"): those that it needs stay, the
/// others become blank. Only where each note of a bar stands at a count, and is then read at just that time;
/// any other bar stays as it is. Costs in proportion to the text.
void ThinOutCounts(Draft& draft);

} // namespace TabText
