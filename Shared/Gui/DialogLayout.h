#pragma once

#include "Shared/Utils/ResId.h"

#include <optional>
#include <string>
#include <vector>

namespace Nvr {

enum class DialogControlKind { RadioButton, CheckBox, PushButton, DefaultPushButton };

/// One control of a dialog. Places and sizes are in dialog units: a quarter of a character's width, an
/// eighth of its height. "&" stands before the letter that is underlined and serves as the control's key.
struct DialogControl {
    int Id = 0;
    DialogControlKind Kind = DialogControlKind::PushButton;
    std::string Text;
    int X = 0;
    int Y = 0;
    int Width = 0;
    int Height = 0;
    bool StartsGroup = false;
    bool IsTabStop = false;
};

/// What a dialog looks like: data that is found by module and id like other resources. Stored as a text tree:
///
///     Dialog
///     {
///         Caption "..."  Font "..."  FontSize "8"  Width "223"  Height "98"
///         Controls
///         {
///             RadioButton { Id "1000" Text "..." X "17" Y "11" Width "197" Height "10" Group "true" TabStop
///             "true" }
///         }
///     }
///
/// A control's label is its kind: RadioButton, CheckBox, PushButton or DefaultPushButton.
struct DialogLayout {
    std::string Caption;
    int Width = 0;
    int Height = 0;
    /// In tab order.
    std::vector<DialogControl> Controls;

    /// The layout stored as a resource of the type "DIALOG"; empty when the module does not hold one (null
    /// holds none), or it is not of this form.
    static std::optional<DialogLayout> Load(const ResId& id);
};

/// The lower-case letter after "&", or 0; and the text without its "&".
char MnemonicOf(const std::string& text);
std::string TextWithoutMark(const std::string& text);

} // namespace Nvr
