%% Names what is counted in an engraved SVG.
\layout {
  \context {
    \Score
    \override NoteHead.output-attributes = #'((class . "note"))
    \override TabNoteHead.output-attributes = #'((class . "fret"))
    \override Rest.output-attributes = #'((class . "rest"))
    \override MultiMeasureRest.output-attributes = #'((class . "rest"))
    \override ChordName.output-attributes = #'((class . "chord"))
  }
  \context {
    \Staff
    \override Stem.output-attributes = #'((class . "stem"))
    \override TimeSignature.output-attributes = #'((class . "metre"))
    \override BarLine.output-attributes = #'((class . "bar"))
  }
}
