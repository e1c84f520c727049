#pragma once

#include "Shared/Gui/GuiDialog.h"

namespace Fretline {

class FretlineOptions;

/// The one dialog of the plug-in: how far rhythms are imported, and whether to ask again. Borrows the
/// options.
class FretlineOptionsDialog : public Nvr::GuiDialog {
public:
    FretlineOptionsDialog(const Nvr::ManagedWindow& parent, FretlineOptions& options);

    /// Takes the answer over when OK is pressed: the level into the options, the check box into
    /// IsNotToBeShownAgain. Ends the dialog on OK with true and on Cancel with false. Always gives false.
    bool OnCommand(int controlId) override;
    /// Centres the dialog on the screen, selects the button of the level (none for a level outside 0 to 2)
    /// and saves the options, so that the file exists from the first dialog on.
    void OnOpen() override;

    /// The state of "Don't show this again" when OK was pressed; false before.
    bool IsNotToBeShownAgain() const { return m_IsNotToBeShownAgain; }

private:
    bool m_IsNotToBeShownAgain = false;
    FretlineOptions& m_Options;
};

} // namespace Fretline
