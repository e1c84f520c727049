#pragma once

#include "Shared/Utils/ByteBuffer.h"
#include "Shared/Utils/NvrString.h"
#include "Shared/Utils/tree/TreeSelection.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <utility>
#include <vector>

namespace Nvr {

class InStream;
class TreeNodeRoot;

/// The one way in for both stored forms of a tree.
///
/// A reader is made for one source and one Read. It looks at the first two bytes, decides the form and the
/// width of characters, and hands over to TreeNodeTextParser or TreeNodeBinaryParser, which fetch their bytes
/// through the operations below. A stream and a block of memory are borrowed, and must live as long.
///
/// Memory grows in proportion to the bytes that are there, whatever counts and lengths a document claims. A
/// document in which nodes lie deeper than kDeepestLevel is refused; such trees can be built and written, but
/// not read.
class TreeNodeReader {
public:
    enum class SourceKind { Stream = 0, String = 1, Buffer = 2, Memory = 3 };

    /// Levels below the root, which is level 0.
    static constexpr int kDeepestLevel = 10000;

    /// What a found label ends the read with.
    static constexpr int kStopAtValue = 0;
    static constexpr int kStopAtSubTree = 1;

    /// A string holds the text form only.
    explicit TreeNodeReader(const String& text);
    /// Copies the bytes.
    explicit TreeNodeReader(const ByteBuffer& bytes);
    /// From the stream's present position on; but a text form without a byte order mark is read from position
    /// 0. The file name is for reports only.
    explicit TreeNodeReader(InStream& stream, const String& fileName = String());
    TreeNodeReader(const void* memory, std::size_t size);
    TreeNodeReader(const TreeNodeReader&) = delete;
    TreeNodeReader& operator=(const TreeNodeReader&) = delete;

    /// Reads one document: a tree owned by the caller, or null with reports, the last of which is "Could not
    /// read treenode". What follows the root node is not read, and a stream stands after what was read,
    /// however the read ends.
    ///
    /// With a stop label the read ends at the first node of that label: in mode 0 with a
    /// TreeNodeLabelFoundException as soon as its value is read, in mode 1 with a
    /// TreeNodeSubTreeFoundException as soon as its children are. In text the first needs a value and the
    /// second a pair of braces to fire. REQUIRES: called once.
    TreeNodeRoot* Read(const String& stopLabel = String(), int stopMode = kStopAtValue);

    /// Has Read leave out what is not wanted below the root of a binary form, which spares most of its cost;
    /// a text form is read whole, and nothing of it is shown. The selection must live as long. What the
    /// viewer throws ends the read.
    void Select(std::span<const TreeSelection> selection, NodeViewer viewer = {}) {
        m_Selection = selection;
        m_Viewer = std::move(viewer);
    }

    /// Whether the source is used up. A stream shows that only after a read has found too few bytes, which
    /// may have been before there was this reader.
    bool AtEnd() const { return m_Kind == SourceKind::Stream ? m_EndSeen : m_Cursor == m_WindowEnd; }
    /// False on success. True, with nothing read, when nothing is left, also for a count of 0. With fewer
    /// bytes left than asked for, copies what is there, leaves the rest of the destination alone, and
    /// succeeds.
    bool ReadBytes(void* destination, std::size_t count);
    /// The same, appending to a buffer, which grows only with what is there.
    bool ReadBytesInto(ByteBuffer& buffer, std::size_t count);
    /// The next byte, or -1 when there is none.
    int ReadByte() { return m_Cursor != m_WindowEnd || Refill() ? *m_Cursor++ : -1; }
    /// How many bytes lie together in memory; more may follow in a stream.
    std::size_t BytesAtHand() const { return static_cast<std::size_t>(m_WindowEnd - m_Cursor); }
    /// The bytes at hand where they lie, not taken. Valid until the next read.
    const std::uint8_t* BytesInPlace() const { return m_Cursor; }
    /// The next `count` bytes where they lie, taken as read. Not more than there are at hand; valid until the
    /// next read.
    const std::uint8_t* TakeInPlace(std::size_t count) {
        const std::uint8_t* const bytes = m_Cursor;
        m_Cursor += count;
        return bytes;
    }
    /// Back to the start of the source.
    void Rewind();
    /// Takes back the last bytes read, up to kMostBytesTakenBack. A stream whose end was seen by that read
    /// looks as before it, also when the read found nothing and `count` is 0.
    void SkipBack(std::size_t count) {
        m_Cursor -= count;
        m_EndSeen = false;
    }

    SourceKind GetKind() const { return m_Kind; }
    const String& GetFileName() const { return m_FileName; }

private:
    /// A character of the widest kind.
    static constexpr std::size_t kMostBytesTakenBack = 2;

    /// What the first two bytes say.
    enum class Form { Unknown, Text8Bit, TextBigEndian, TextLittleEndian, Binary8Bit, BinaryUtf16 };

    TreeNodeReader(SourceKind kind, const void* memory, std::size_t size);
    std::unique_ptr<TreeNodeRoot> ReadRoot(const String& stopLabel, int stopMode);
    Form DecideForm();
    std::unique_ptr<TreeNodeRoot> Parse(Form form, const String& stopLabel, int stopMode);
    bool HasBytes() { return m_Cursor != m_WindowEnd || Refill(); }
    /// Fetches the next block of a stream; false, and the end is seen, when there is nothing left.
    bool Refill();
    /// Gives bytes that were fetched and not read back to the stream.
    void LeaveStream();

    std::span<const TreeSelection> m_Selection;
    NodeViewer m_Viewer;
    String m_FileName;
    InStream* m_Stream = nullptr;
    String m_Text;
    ByteBuffer m_Bytes;
    SourceKind m_Kind;
    /// A stream's block; the other sources lie in memory whole.
    std::vector<std::uint8_t> m_Block;
    const std::uint8_t* m_Start;
    const std::uint8_t* m_Cursor;
    const std::uint8_t* m_WindowEnd;
    bool m_EndSeen = false;
    bool m_HasRead = false;
};

} // namespace Nvr
