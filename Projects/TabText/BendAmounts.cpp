#include "Projects/TabText/BendAmounts.h"

#include "Shared/Utils/AsciiChars.h"

#include <optional>

namespace TabText {

namespace {

using Nvr::Ascii::IsDigit;
using std::string_view;

constexpr int kMostTones = 3;

// Reads one amount from left to right; each Take leaves the place where it is when there is nothing to take.
class AmountReader {
public:
    AmountReader(string_view text, std::size_t at, int fret) : m_Text(text), m_At(at), m_Fret(fret) {}

    BendAmount Read() {
        const std::size_t start = m_At;
        const std::size_t bracket = string_view("([{").find(At(0));
        if (bracket != string_view::npos)
            ++m_At;
        const int quarterTones = TakeAmount();
        if (quarterTones == 0)
            return {0, start};
        if (bracket != string_view::npos && At(0) == ")]}"[bracket])
            ++m_At;
        return {quarterTones, m_At};
    }

private:
    char At(std::size_t ahead) const { return m_At + ahead < m_Text.size() ? m_Text[m_At + ahead] : '\0'; }

    int TakeAmount() {
        constexpr string_view kFull = "full";
        if (Nvr::Ascii::StartsWithIgnoreCase(m_Text.substr(m_At), kFull)) {
            m_At += kFull.size();
            return kQuarterTonesPerTone;
        }
        if (const int fraction = TakeFraction(); fraction > 0)
            return fraction;
        return TakeNumber();
    }

    // Halves and quarters of a tone.
    int TakeFraction() {
        const bool isFraction = (At(0) == '1' || At(0) == '3') && At(1) == '/' &&
                                (At(2) == '2' || At(2) == '4') && !IsDigit(At(3));
        if (!isFraction)
            return 0;
        const int quarterTones = (At(0) - '0') * kQuarterTonesPerTone / (At(2) - '0');
        m_At += 3;
        return quarterTones;
    }

    int TakeNumber() {
        int number = 0;
        std::size_t digits = 0;
        for (; IsDigit(At(digits)) && digits < 3; ++digits)
            number = number * 10 + (At(digits) - '0');
        if (digits > 2)
            return 0;
        if (const std::optional<int> decimals = DecimalsAt(digits); decimals && number <= kMostTones)
            return number * kQuarterTonesPerTone + *decimals;
        if (digits == 0)
            return 0;
        if (number > m_Fret) {
            m_At += digits;
            return (number - m_Fret) * kQuarterTonesPerSemitone;
        }
        if (number == 0 || number > kMostTones || number == m_Fret)
            return 0;
        m_At += digits;
        return number * kQuarterTonesPerTone + TakeFractionAfterBlank();
    }

    // Quarter tones that the decimals say, which are then taken.
    std::optional<int> DecimalsAt(std::size_t ahead) {
        if (At(ahead) != '.')
            return std::nullopt;
        constexpr std::pair<string_view, int> kDecimals[] = {{"25", 1}, {"75", 3}, {"5", 2}, {"0", 0}};
        const string_view rest = m_Text.substr(m_At + ahead + 1);
        for (const auto& [text, quarterTones] : kDecimals)
            if (rest.starts_with(text) && (rest.size() == text.size() || !IsDigit(rest[text.size()]))) {
                m_At += ahead + 1 + text.size();
                return quarterTones;
            }
        return std::nullopt;
    }

    int TakeFractionAfterBlank() {
        if (At(0) != ' ')
            return 0;
        ++m_At;
        const int fraction = TakeFraction();
        m_At -= fraction > 0 ? 0 : 1;
        return fraction;
    }

    string_view m_Text;
    std::size_t m_At;
    int m_Fret;
};

} // namespace

BendAmount ReadBendAmount(string_view text, std::size_t at, int fret) {
    return AmountReader(text, at, fret).Read();
}

} // namespace TabText
