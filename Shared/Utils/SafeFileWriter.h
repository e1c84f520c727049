#pragma once

#include "Shared/Utils/FileStream.h"
#include "Shared/Utils/NonCopyable.h"
#include "Shared/Utils/NvrString.h"
#include "Shared/Utils/platform/FileServices.h"

#include <cassert>
#include <memory>
#include <string>

namespace Nvr {

/// Writes a file that must not be lost: a new one beside it, which takes its place when all went well.
///
///     SafeFileWriter writer(path);
///     ... write to writer.Stream() ...
///     if (!writer.Commit())
///         ... the former file is still there
///
/// A file that was there keeps its access rights, and where the path is a link, the file that it leads to is
/// replaced. Where a new file cannot be put in its place (a device, a file with several names or of another
/// owner, a folder in which the user may make no files) it is written in place, and a failure may leave it
/// cut short. Without a successful `Commit` nothing stays beside the file. Nothing here reports.
class SafeFileWriter : private NonCopyable {
public:
    /// Opens for output in binary mode, the path being native. See `Good` of the stream for whether it could
    /// be.
    explicit SafeFileWriter(const String& path);
    ~SafeFileWriter();

    /// Where to write; owned here. REQUIRES: `Commit` has not been called.
    OutStream& Stream() {
        assert(!m_Done);
        return *m_Stream;
    }

    /// Flushes, closes, and puts the new file in its place. False when anything has failed since the opening,
    /// a full disk and the close included. To be called once; later calls give false.
    bool Commit();
    /// The same for a file that is to survive the machine's sudden end: at any moment the disk holds either
    /// the former file or the new one, whole. It waits for the disk.
    bool CommitToDisk();

private:
    bool CommitAs(bool isToReachTheDisk);
    const std::string& WrittenPath() const;
    void RemoveBeside();

    Platform::Replacement m_Replacement;
    std::unique_ptr<OutFileStream> m_Stream;
    bool m_Done = false;
};

} // namespace Nvr
