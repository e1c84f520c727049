# Completion of fretline for bash. Options and formats are asked of the program, so that nothing here goes stale.
_fretline() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
    local help steps
    help=$("${COMP_WORDS[0]}" --help 2>/dev/null)
    case $before in
        -t | --to)
            local begun=${word%"${word##*,}"}
            mapfile -t COMPREPLY < <(compgen -P "$begun" -W "$(sed -n '/--to FORMAT/,/--no-clobber/s/^ \{26\}\([a-z][a-z]*\)  .*/\1/p' <<<"$help")" -- "${word##*,}")
            return
            ;;
        --layout)
            mapfile -t COMPREPLY < <(compgen -W "tab notes both" -- "$word")
            return
            ;;
        --rhythms)
            mapfile -t COMPREPLY < <(compgen -W "never indicated always" -- "$word")
            return
            ;;
    esac
    # Bash splits --prepare=STEP at the sign.
    [[ $before == "=" ]] && before=${COMP_WORDS[COMP_CWORD - 2]}
    [[ $word == "=" ]] && word=""
    if [[ $before == --prepare ]]; then
        local begun=${word%"${word##*,}"}
        steps=$(sed -n '/--prepare\[/,/--yes/s/^ \{26\}\([a-z][a-z]*\)  .*/\1/p' <<<"$help")
        mapfile -t COMPREPLY < <(compgen -P "$begun" -W "show $steps" -- "${word##*,}")
    elif [[ $word == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$(grep -oE '^  (-[a-z], )?--[a-z-]+' <<<"$help" | grep -oE -- '--[a-z-]+')" -- "$word")
    else
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
    fi
}
complete -F _fretline fretline
