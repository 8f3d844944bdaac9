# Completion of tervalectl for bash.

_tervalectl_profiles() {
    # Ids of the agent's profiles; nothing if it does not answer.
    tervalectl profiles list --json --timeout 0.3 2>/dev/null |
        grep -o '"id":"[^"]*"' | cut -d '"' -f 4
}

# Takes what compgen takes. Also a Mac's own bash, which is old, can do this.
_tervalectl_offer() {
    local word
    while IFS= read -r word; do
        COMPREPLY+=("$word")
    done < <(compgen "$@")
}

_tervalectl() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local words=() word command options arguments='' i
    COMPREPLY=()

    case $previous in
    --group)
        _tervalectl_offer -W 'cpu gpu memory ssd power other' -- "$current"
        return ;;
    --profiles | --socket)
        compopt -o filenames 2>/dev/null
        _tervalectl_offer -f -- "$current"
        return ;;
    --selection)
        _tervalectl_offer -W 'automatic max' -- "$current"
        return ;;
    --interval | --count | --timeout)
        return ;;
    esac

    # The words before the cursor that are neither options nor their values.
    for ((i = 1; i < COMP_CWORD; i++)); do
        word=${COMP_WORDS[i]}
        case $word in
        --group | --profiles | --socket | --selection | --interval | --count | --timeout) ((i++)) ;;
        -*) ;;
        *) words+=("$word") ;;
        esac
    done
    command=${words[0]-}
    if [[ $command == profiles ]]; then
        command+=" ${words[1]-}"
        words=("${words[@]:1}")
    fi

    case $command in
    '')
        arguments='fans sensors monitor state select timer cancel-timer launch-at-login
            check-for-updates profiles replay'
        options='--help --version' ;;
    'profiles ')
        arguments='list export import validate' options='--help' ;;
    fans) options='--json --simulate --socket --help' ;;
    sensors) options='--group --json --simulate --socket --help' ;;
    monitor) options='--interval --count --json --simulate --socket --help' ;;
    state | cancel-timer | check-for-updates | 'profiles list' | 'profiles export' | 'profiles import')
        options='--json --timeout --simulate --socket --help' ;;
    select | timer)
        options='--json --timeout --simulate --socket --help'
        if ((${#words[@]} == 1)); then
            arguments='automatic max profile'
        elif [[ ${words[1]-} == profile ]] && ((${#words[@]} == 2)); then
            arguments=$(_tervalectl_profiles)
        fi ;;
    launch-at-login)
        options='--json --timeout --simulate --socket --help'
        ((${#words[@]} == 1)) && arguments='on off' ;;
    'profiles validate') options='--json --help' ;;
    replay) options='--profiles --selection --json --help' ;;
    *) return ;;
    esac

    if [[ $current == -* ]]; then
        _tervalectl_offer -W "$options" -- "$current"
    elif [[ $command == replay || $command == profiles\ [eiv]* ]] && ((${#words[@]} == 1)); then
        compopt -o filenames 2>/dev/null
        _tervalectl_offer -f -- "$current"
    else
        _tervalectl_offer -W "$arguments" -- "$current"
    fi
}

complete -F _tervalectl tervalectl
