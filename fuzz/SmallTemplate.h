#pragma once

namespace FuzzSupport {

/// The least that a score can be built into, as text: what a conversion looks for in its template.
inline constexpr const char* kSmallTemplate = R"(
NvfFileVersion "10450015"
{
  Music
  {
    BarSpacings { - { Type "BarSpacing" BarNum "0" } }
    SystemStave { Bars { - { Type "Bar" } } }
    StaveTypes
    {
      - { Type "StaveType" Id "stafftype.tab.6.guitar.standard" Category "2" ShowRhythms "false" StaveLines "6" StaveLineSeparation "48" BarlineDy "120" BarlineBottomDy "120" Pitches { "80" "90" "100" "110" "118" "128" } }
      - { Type "StaveType" Id "stafftype.tab.6.rhythms.guitar.standard" Category "2" ShowRhythms "true" StaveLines "6" StaveLineSeparation "48" BarlineDy "120" BarlineBottomDy "120" Pitches { "80" "90" "100" "110" "118" "128" } }
    }
    Staves
    Barlines
  }
}
)";

} // namespace FuzzSupport
