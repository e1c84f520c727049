#pragma once

#include "Projects/TabText/LineMap.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Rewrites a tab, when asked to, so that the plug-in reads what a musician means by it. Text in, text out.
namespace TabText {

class Draft;

/// One kind of change, by itself small and harmless to a tab that does not need it.
struct PreparationStep {
    const char* Name;
    /// What it does: a sentence without full stop.
    const char* Does;
    /// Part of a preparation that names no steps.
    bool IsOnByDefault;
    void (*Run)(Draft& draft);
};

/// All steps, in the order in which they run.
std::span<const PreparationStep> AllPreparationSteps();
/// Those that are on by default, in the same order.
std::vector<const PreparationStep*> DefaultPreparationSteps();
/// The step of that name; null when there is none.
const PreparationStep* FindPreparationStep(std::string_view name);

/// What one step did.
struct StepReport {
    const PreparationStep* Step = nullptr;
    /// How many lines it changed, added or removed.
    int ChangedLines = 0;
};

/// One line that is not as it was.
struct LineChange {
    /// -1 for a line that was added.
    int OriginalLine = -1;
    /// -1 for a line that was removed.
    int PreparedLine = -1;
    /// The line in the tab's own bytes (UTF-8 for a text in UTF-16), tabs expanded; empty for an added one.
    std::string Before;
    std::string After;
    /// Those that changed it, in the order of the table.
    std::vector<const PreparationStep*> Steps;
};

struct PreparedText {
    std::string Text;
    LineMap Map;
    /// One for each step that ran, in the order of the table.
    std::vector<StepReport> Steps;
    /// By place in the prepared text; what was removed stands before what follows it.
    std::vector<LineChange> Changes;

    bool IsChanged() const { return !Changes.empty(); }
};

/// Runs the steps over the text, in the order of the table whatever the order given, until none of them finds
/// anything more: preparing the result with the same steps changes nothing. Lines that no step changes stay
/// byte for byte. A text on which the steps never come to rest stays as it is. Costs in proportion to the
/// text.
PreparedText Prepare(std::string_view text, std::span<const PreparationStep* const> steps);
/// The same with the steps that are on by default.
PreparedText Prepare(std::string_view text);

/// One part of a text that shows several, such as two guitars.
struct PreparedPart {
    /// As the text calls it, in letters, digits and blanks: "Gtr I". Empty when the text is one part.
    std::string Name;
    /// The whole text, in which the lines of the other parts are blank.
    PreparedText Text;
};

/// The same for each part of the text, in the order in which they appear, when the step "parts" is among
/// those asked for; else, and when the text is one part, one with all of it. (Prepare itself leaves parts
/// together.) Costs what Prepare does for each part, of which there are few.
std::vector<PreparedPart> PrepareParts(std::string_view text, std::span<const PreparationStep* const> steps);

/// The names of the steps on by default that would change the text; empty for a tidy tab.
std::vector<const char*> StepsThatWouldHelp(std::string_view text);

/// The changes as a person reads them: for each the names of its steps, the number of its line in the
/// original, counted from 1, and the line before ("-") and after ("+").
std::string ChangesText(const PreparedText& prepared);

} // namespace TabText
