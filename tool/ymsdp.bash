# Completion of ymsdp for bash.

_ymsdp() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} command="" word options
    COMPREPLY=()
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        case $word in
        show | check | rewrite | edit | codecs | clean | hide) command=$word && break ;;
        esac
    done
    # "--color=al" comes as three words.
    if [ "$previous" = = ]; then
        previous=${COMP_WORDS[COMP_CWORD - 2]}
    elif [ "$current" = = ]; then
        current=""
    fi

    case $previous in
    --color) options="auto always never" ;;
    --severity) options="error warning note" ;;
    -e | --edit | --keep | --drop | --first) return ;;
    *)
        case $command in
        "") options="show check rewrite edit codecs clean hide --color --version" ;;
        show) options="--lines --json --color" ;;
        check) options="--severity --hints --json --color" ;;
        edit) options="-e --lf" ;;
        codecs) options="--keep --drop --first --lf" ;;
        *) options="--lf" ;;
        esac
        if [ -n "$command" ] && [[ $current != -* ]]; then
            mapfile -t COMPREPLY < <(compgen -f -- "$current")
            return
        fi
        options+=" --help"
        ;;
    esac
    mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
}

complete -o filenames -F _ymsdp ymsdp
