# Completion of fretline for fish. Options and formats are asked of the program, so that nothing here goes stale.
function __fretline_formats
    fretline --help | sed -n '/--to FORMAT/,/--no-clobber/s/^ \{26\}\([a-z][a-z]*\)  .*/\1/p'
end
function __fretline_steps
    echo show
    fretline --help | sed -n '/--prepare\[/,/--yes/s/^ \{26\}\([a-z][a-z]*\)  .*/\1/p'
end
for line in (fretline --help | string match -re '^  (?:-[a-z], )?--[a-z-]+')
    set -l long (string match -rg -- '--([a-z-]+)' $line)
    set -l short (string match -rg -- '^  -([a-z]),' $line)
    set -l text (string match -rg -- '  ([^ -].*)$' (string sub -s 24 -- $line))
    set -l argument
    switch $long
        case to
            set argument -x -a '(__fretline_formats)'
        case prepare
            set argument -f -a '(__fretline_steps)'
        case layout
            set argument -x -a 'tab notes both'
        case rhythms
            set argument -x -a 'never indicated always'
        case output config plugin
            set argument -r
    end
    complete -c fretline -l $long (test -n "$short"; and echo -s$short) $argument -d "$text"
end
