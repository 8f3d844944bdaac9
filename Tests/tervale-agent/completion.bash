# Checks what the completion offers. Usage: completion.bash COMPLETION PROGRAM
set -u
source "$1"
program=$2
failures=0

# Works only while a completion runs.
compopt() { :; }

# complete_at 'words before and at the cursor'
complete_at() {
    read -r -a COMP_WORDS <<<"$1"
    [[ $1 == *' ' ]] && COMP_WORDS+=('')
    COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
    COMPREPLY=()
    _tervale_agent
}

# expect 'words before and at the cursor' 'what is offered'
expect() {
    complete_at "$1"
    if [[ ${COMPREPLY[*]} != "$2" ]]; then
        echo "'$1' offers '${COMPREPLY[*]}', not '$2'" >&2
        failures=$((failures + 1))
    fi
}

expect 'tervale-agent --s' '--socket --simulate'
expect 'tervale-agent --simulate --d' '--dry-run'
expect 'tervale-agent --log-level ' 'error warning info debug'
expect 'tervale-agent --log-level d' 'debug'
expect "tervale-agent --socket ${1%.bash}.b" "$1"

# All the options that the program takes.
options=$("$program" --help | sed -n 's/^  \(--[a-z-]*\).*/\1/p' | sort | tr '\n' ' ')
complete_at 'tervale-agent --'
offered=$(printf '%s\n' "${COMPREPLY[@]}" | sort | tr '\n' ' ')
if [[ $offered != "$options" || $options != *--version* ]]; then
    echo "The completion offers $offered, and the program takes $options" >&2
    failures=$((failures + 1))
fi
exit "$failures"
