#include "Shared/Gui/platform/TerminalPainterPosix.h"

#include <algorithm>
#include <string_view>

namespace Nvr::Platform {

namespace {

// Dialog units in one character cell.
constexpr int kUnitsPerColumn = 4;
constexpr int kUnitsPerRow = 8;
// The frame takes one cell on each side.
constexpr int kFrame = 1;
constexpr char kMnemonicMark = '&';

int ColumnOf(int x) {
    return kFrame + x / kUnitsPerColumn;
}

int RowOf(int y) {
    return kFrame + (y + kUnitsPerRow / 2) / kUnitsPerRow;
}

// The control as it is drawn, "&" still before the underlined letter.
std::string TextOf(const DialogControl& control, bool ticked) {
    switch (control.Kind) {
    case DialogControlKind::RadioButton:
        return (ticked ? "(*) " : "( ) ") + control.Text;
    case DialogControlKind::CheckBox:
        return (ticked ? "[x] " : "[ ] ") + control.Text;
    case DialogControlKind::DefaultPushButton:
        return "<* " + control.Text + " *>";
    default:
        return "<  " + control.Text + "  >";
    }
}

std::string MoveCursor(int column, int row) {
    return "\x1b[" + std::to_string(row + 1) + ";" + std::to_string(column + 1) + "H";
}

} // namespace

TerminalPainter::TerminalPainter(const DialogLayout& layout) : m_Layout(layout) {
    m_Extent.Width = layout.Width / kUnitsPerColumn + 2 * kFrame;
    m_Extent.Height = layout.Height / kUnitsPerRow + 2 * kFrame;
    // A text may need more cells than its control has units.
    for (const DialogControl& control : layout.Controls) {
        const int width = static_cast<int>(TextWithoutMark(TextOf(control, false)).size());
        m_Extent.Width = std::max(m_Extent.Width, ColumnOf(control.X) + width + kFrame);
        m_Extent.Height = std::max(m_Extent.Height, RowOf(control.Y) + 1 + kFrame);
    }
}

std::string TerminalPainter::Paint(const DialogState& state, DialogExtent screen, int left, int top) const {
    Canvas canvas(static_cast<std::size_t>(m_Extent.Height),
                  std::vector<Cell>(static_cast<std::size_t>(m_Extent.Width)));
    DrawFrame(canvas);
    for (std::size_t place = 0; place < m_Layout.Controls.size(); ++place) {
        const DialogControl& control = m_Layout.Controls[place];
        DrawControl(canvas, control, state.IsChecked(control.Id),
                    static_cast<int>(place) == state.GetFocus());
    }
    const auto place = static_cast<std::size_t>(std::max(state.GetFocus(), 0));
    const DialogControl focused =
        place < m_Layout.Controls.size() ? m_Layout.Controls[place] : DialogControl();
    const int width = static_cast<int>(TextWithoutMark(TextOf(focused, false)).size());
    const int focusColumn = ColumnOf(focused.X);
    const int focusRow = RowOf(focused.Y);
    const int columns = std::min(m_Extent.Width, screen.Width - left);
    const int rows = std::min(m_Extent.Height, screen.Height - top);
    const int firstColumn = FirstShown(m_Extent.Width, columns, focusColumn, focusColumn + width);
    const int firstRow = FirstShown(m_Extent.Height, rows, focusRow, focusRow + 1);
    std::string out = "\x1b[0m\x1b[2J";
    for (int row = 0; row < rows; ++row) {
        out += MoveCursor(left, top + row);
        for (int column = 0; column < columns; ++column) {
            const int shownRow = firstRow + row;
            const int shownColumn = firstColumn + column;
            const Cell& cell =
                canvas[static_cast<std::size_t>(shownRow)][static_cast<std::size_t>(shownColumn)];
            if (cell.Underlined)
                out += "\x1b[4m";
            if (cell.Inverted)
                out += "\x1b[7m";
            out += cell.Character;
            if (cell.Underlined || cell.Inverted)
                out += "\x1b[0m";
        }
    }
    return out;
}

int TerminalPainter::FirstShown(int length, int shown, int start, int end) {
    // A cell of what stands beside it shows that there is more.
    const int wanted = end + kFrame > shown ? std::min(start - kFrame, end + kFrame - shown) : 0;
    return std::clamp(wanted, 0, std::max(length - shown, 0));
}

void TerminalPainter::DrawFrame(Canvas& canvas) const {
    for (auto* edge : {&canvas.front(), &canvas.back()}) {
        std::fill(edge->begin(), edge->end(), Cell{'-', false, false});
        edge->front().Character = edge->back().Character = '+';
    }
    for (std::size_t row = 1; row + 1 < canvas.size(); ++row)
        canvas[row].front().Character = canvas[row].back().Character = '|';
    const std::string caption = " " + m_Layout.Caption + " ";
    for (std::size_t i = 0; i < caption.size() && i + 3 < canvas.front().size(); ++i)
        canvas.front()[i + 2].Character = caption[i];
}

void TerminalPainter::DrawControl(Canvas& canvas, const DialogControl& control, bool ticked,
                                  bool focused) const {
    std::vector<Cell>& row = canvas[static_cast<std::size_t>(RowOf(control.Y))];
    auto cell = row.begin() + ColumnOf(control.X);
    bool underlined = false;
    for (const char character : TextOf(control, ticked)) {
        if (character == kMnemonicMark && !underlined) {
            underlined = true;
            continue;
        }
        if (cell == row.end())
            return;
        *cell = {character, underlined, focused};
        underlined = false;
        ++cell;
    }
}

} // namespace Nvr::Platform
