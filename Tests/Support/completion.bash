# What the checks of the completions for bash share. Sourced with the completion and the program.
set -u
source "$1"
program=$2
failures=0

# Works only while a completion runs.
compopt() { :; }

# complete_at FUNCTION 'words before and at the cursor'
complete_at() {
    read -r -a COMP_WORDS <<<"$2"
    [[ $2 == *' ' ]] && COMP_WORDS+=('')
    COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
    COMPREPLY=()
    "$1"
}

# expect FUNCTION 'words before and at the cursor' 'what is offered'
expect() {
    complete_at "$1" "$2"
    if [[ ${COMPREPLY[*]} != "$3" ]]; then
        echo "'$2' offers '${COMPREPLY[*]}', not '$3'" >&2
        failures=$((failures + 1))
    fi
}

# expect_options FUNCTION 'words before the options' 'the options that are taken, a line each'
expect_options() {
    local offered taken
    complete_at "$1" "$2 --"
    offered=$(printf '%s\n' "${COMPREPLY[@]}" | sort)
    taken=$(sort <<<"$3")
    if [[ $offered != "$taken" || -z $taken ]]; then
        printf "'%s' offers\n%s\nand takes\n%s\n" "$2" "$offered" "$taken" >&2
        failures=$((failures + 1))
    fi
}
