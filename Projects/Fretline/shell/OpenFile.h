#pragma once

namespace Fretline {

/// The whole way of one file: is it ours, what does the user want, the host's progress dialog, the
/// conversion, the load by the host. True when the file is ours to handle, whatever became of it: a cancel
/// and a failure are not told apart from success, and the user sees the messages of the conversion only.
///
/// After the first question one closing sequence runs on every path, and no temporary file stays. Nothing is
/// thrown, whatever the host's functions throw. An open from inside a conversion only answers the question.
bool OpenFile(const char* path) noexcept;

} // namespace Fretline
