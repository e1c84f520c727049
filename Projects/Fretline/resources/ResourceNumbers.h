#pragma once

/// The numbers of the resources that the plug-in carries. The resource scripts take them from here too.
namespace Fretline {

constexpr int kMessageLineIgnored = 100;
constexpr int kMessageLinesIgnored = 101;
constexpr int kProgressTitleResource = 102;
constexpr int kTemplateResource = 100;
constexpr int kDialogResource = 100;

} // namespace Fretline
