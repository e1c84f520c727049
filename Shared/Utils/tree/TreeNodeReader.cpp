#include "Shared/Utils/tree/TreeNodeReader.h"

#include "Shared/Utils/Stream.h"
#include "Shared/Utils/tree/TreeNode.h"
#include "Shared/Utils/tree/TreeNodeBinaryParser.h"
#include "Shared/Utils/tree/TreeNodeFailure.h"
#include "Shared/Utils/tree/TreeNodeTextParser.h"

#include <algorithm>
#include <array>
#include <cassert>

namespace Nvr {

namespace {

constexpr std::size_t kBlockSize = 65536;

} // namespace

TreeNodeReader::TreeNodeReader(SourceKind kind, const void* memory, std::size_t size)
    : m_Bytes(nullptr, 0), m_Kind(kind), m_Start(static_cast<const std::uint8_t*>(memory)), m_Cursor(m_Start),
      m_WindowEnd(memory != nullptr ? m_Start + size : m_Start) {}

TreeNodeReader::TreeNodeReader(const String& text)
    : TreeNodeReader(SourceKind::String, text.CStr(), text.Length()) {
    // Holds the bytes to which the cursor points.
    m_Text = text;
}

TreeNodeReader::TreeNodeReader(const ByteBuffer& bytes) : TreeNodeReader(SourceKind::Buffer, nullptr, 0) {
    m_Bytes = bytes;
    m_Start = m_Bytes.Data();
    m_Cursor = m_Start;
    m_WindowEnd = m_Start + m_Bytes.Size();
}

TreeNodeReader::TreeNodeReader(InStream& stream, const String& fileName)
    : TreeNodeReader(SourceKind::Stream, nullptr, 0) {
    m_Stream = &stream;
    m_FileName = fileName;
    m_EndSeen = stream.Eof();
}

TreeNodeReader::TreeNodeReader(const void* memory, std::size_t size)
    : TreeNodeReader(SourceKind::Memory, memory, size) {}

TreeNodeRoot* TreeNodeReader::Read(const String& stopLabel, int stopMode) {
    assert(!m_HasRead);
    m_HasRead = true;
    if (m_Kind == SourceKind::String && m_Text.IsEmpty())
        return new TreeNodeRoot;
    std::unique_ptr<TreeNodeRoot> root;
    try {
        root = ReadRoot(stopLabel, stopMode);
    } catch (...) {
        LeaveStream();
        throw;
    }
    LeaveStream();
    return root.release();
}

std::unique_ptr<TreeNodeRoot> TreeNodeReader::ReadRoot(const String& stopLabel, int stopMode) {
    const Form form = DecideForm();
    if (form == Form::Unknown) {
        ReportTreeFailure("Could not read treenode - version is not recognized", __FILE__, __LINE__);
        return nullptr;
    }
    std::unique_ptr<TreeNodeRoot> root = Parse(form, stopLabel, stopMode);
    if (root == nullptr)
        ReportTreeFailure("Could not read treenode", __FILE__, __LINE__);
    return root;
}

TreeNodeReader::Form TreeNodeReader::DecideForm() {
    // The first bytes of a document; of the two missing ones count as 0.
    std::array<std::uint8_t, 2> opening{};
    ReadBytes(opening.data(), opening.size());
    const unsigned mark = static_cast<unsigned>(opening[0] << 8 | opening[1]);
    if (mark == 0xFEFF)
        return Form::TextBigEndian;
    if (mark == 0xFFFE)
        return Form::TextLittleEndian;
    if (m_Kind == SourceKind::String || opening[0] != 0) {
        Rewind();
        return Form::Text8Bit;
    }
    if (mark == 1)
        return Form::Binary8Bit;
    return mark == 2 ? Form::BinaryUtf16 : Form::Unknown;
}

std::unique_ptr<TreeNodeRoot> TreeNodeReader::Parse(Form form, const String& stopLabel, int stopMode) {
    auto root = std::make_unique<TreeNodeRoot>();
    root->WasBinary = form == Form::Binary8Bit || form == Form::BinaryUtf16;
    root->WasUnicode = form != Form::Binary8Bit && form != Form::Text8Bit;
    if (root->WasBinary) {
        TreeNodeBinaryParser parser(*this, root->WasUnicode, m_Selection, m_Viewer);
        return parser.Parse(std::move(root), stopLabel, stopMode);
    }
    TreeNodeTextParser parser(*this, root->WasUnicode, form == Form::TextBigEndian);
    return parser.Parse(std::move(root), stopLabel, stopMode);
}

bool TreeNodeReader::ReadBytes(void* destination, std::size_t count) {
    if (!HasBytes())
        return true;
    auto* to = static_cast<std::uint8_t*>(destination);
    while (count != 0 && HasBytes()) {
        const std::size_t taken = std::min(count, BytesAtHand());
        to = std::copy_n(m_Cursor, taken, to);
        m_Cursor += taken;
        count -= taken;
    }
    return false;
}

bool TreeNodeReader::ReadBytesInto(ByteBuffer& buffer, std::size_t count) {
    if (!HasBytes())
        return true;
    while (count != 0 && HasBytes()) {
        const std::size_t taken = std::min({count, BytesAtHand(), kBlockSize});
        buffer.Append(m_Cursor, static_cast<int>(taken));
        m_Cursor += taken;
        count -= taken;
    }
    return false;
}

void TreeNodeReader::Rewind() {
    if (m_Kind == SourceKind::Stream) {
        m_Stream->Seek(0);
        m_WindowEnd = m_Start;
        m_EndSeen = false;
    }
    m_Cursor = m_Start;
}

bool TreeNodeReader::Refill() {
    if (m_Kind != SourceKind::Stream || m_EndSeen)
        return false;
    m_Block.resize(kMostBytesTakenBack + kBlockSize);
    const auto kept = std::min<std::ptrdiff_t>(m_Cursor - m_Start, kMostBytesTakenBack);
    const auto fresh = std::copy(m_Cursor - kept, m_Cursor, m_Block.begin());
    const std::size_t count = m_Stream->Read(&*fresh, kBlockSize);
    m_Start = &m_Block.front();
    m_Cursor = m_Start + kept;
    m_WindowEnd = m_Cursor + count;
    m_EndSeen = count == 0;
    return !m_EndSeen;
}

void TreeNodeReader::LeaveStream() {
    if (m_Kind == SourceKind::Stream && !m_EndSeen)
        m_Stream->Seek(-static_cast<std::streamoff>(BytesAtHand()), SeekDirection::Current);
}

} // namespace Nvr
