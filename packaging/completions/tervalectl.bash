# Completion of tervalectl for bash.

# Offers the names of the agent's profiles, or their ids where an id is begun; nothing if the agent
# does not answer. A name with an escape is left out.
_tervalectl_profiles() {
    local current=$1 list name
    list=$(tervalectl profiles list --json --timeout 0.3 2>/dev/null)
    while IFS= read -r name; do
        [[ -n $name && $name == "$current"* ]] && COMPREPLY+=("$(printf '%q' "$name")")
    done < <(grep -o '"id":"[^"]*","name":"[^"\\]*"' <<<"$list" | cut -d '"' -f 8)
    if [[ -n $current ]] && ((${#COMPREPLY[@]} == 0)); then
        _tervalectl_offer -W "$(grep -o '"id":"[^"]*"' <<<"$list" | cut -d '"' -f 4)" -- "$current"
    fi
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
    local words=() word command options arguments='' names='' i
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
        arguments='fans sensors monitor doctor agent state select timer cancel-timer launch-at-login
            check-for-updates profiles replay'
        options='--help --version' ;;
    'profiles ')
        arguments='list export import validate show remove' options='--help' ;;
    fans) options='--json --simulate --socket --help' ;;
    sensors) options='--group --json --simulate --socket --help' ;;
    monitor) options='--interval --count --json --simulate --socket --help' ;;
    state) options='--follow --count --json --timeout --simulate --socket --help' ;;
    doctor | agent | cancel-timer | check-for-updates | 'profiles list' | 'profiles export')
        options='--json --timeout --simulate --socket --help' ;;
    'profiles import') options='--merge --json --timeout --simulate --socket --help' ;;
    'profiles show' | 'profiles remove')
        options='--json --timeout --simulate --socket --help'
        ((${#words[@]} == 1)) && names=yes ;;
    select | timer)
        options='--json --timeout --simulate --socket --help'
        if ((${#words[@]} == 1)); then
            arguments='automatic max profile'
        elif [[ ${words[1]-} == profile ]] && ((${#words[@]} == 2)); then
            names=yes
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
    elif [[ -n $names ]]; then
        _tervalectl_profiles "$current"
    elif [[ $command == replay || $command == profiles\ [eiv]* ]] && ((${#words[@]} == 1)); then
        compopt -o filenames 2>/dev/null
        _tervalectl_offer -f -- "$current"
    else
        _tervalectl_offer -W "$arguments" -- "$current"
    fi
}

complete -F _tervalectl tervalectl
