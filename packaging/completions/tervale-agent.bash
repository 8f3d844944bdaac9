# Completion of tervale-agent for bash.

# Takes what compgen takes. Also a Mac's own bash, which is old, can do this.
_tervale_agent_offer() {
    local word
    while IFS= read -r word; do
        COMPREPLY+=("$word")
    done < <(compgen "$@")
}

_tervale_agent() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    COMPREPLY=()
    case $previous in
    --socket)
        compopt -o filenames 2>/dev/null
        _tervale_agent_offer -f -- "$current" ;;
    --log-level) _tervale_agent_offer -W 'error warning info debug' -- "$current" ;;
    *) _tervale_agent_offer -W '--socket --simulate --dry-run --log-level --help --version' -- "$current" ;;
    esac
}

complete -F _tervale_agent tervale-agent
