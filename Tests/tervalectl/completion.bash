# Checks what the completion offers. Usage: completion.bash COMPLETION PROGRAM
set -u
source "$1"
program=$2
failures=0

# The agent's profiles, without an agent.
tervalectl() { echo '[{"id":"A-1","name":"Quiet"},{"id":"B-2","name":"Late at night"}]'; }
# Works only while a completion runs.
compopt() { :; }

# expect 'words before and at the cursor' 'what is offered'
expect() {
    read -r -a COMP_WORDS <<<"$1"
    [[ $1 == *' ' ]] && COMP_WORDS+=('')
    COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
    COMPREPLY=()
    _tervalectl
    if [[ ${COMPREPLY[*]} != "$2" ]]; then
        echo "'$1' offers '${COMPREPLY[*]}', not '$2'" >&2
        failures=$((failures + 1))
    fi
}

expect 'tervalectl s' 'sensors state select'
expect 'tervalectl profiles ' 'list export import validate show remove'
expect 'tervalectl --simulate profiles v' 'validate'
expect 'tervalectl select ' 'automatic max profile'
expect 'tervalectl select profile ' 'Quiet Late\ at\ night'
expect 'tervalectl timer profile La' 'Late\ at\ night'
expect 'tervalectl profiles show Q' 'Quiet'
expect 'tervalectl profiles remove ' 'Quiet Late\ at\ night'
expect 'tervalectl profiles remove A-' 'A-1'
expect 'tervalectl launch-at-login o' 'on off'
expect 'tervalectl sensors --group g' 'gpu'
expect 'tervalectl monitor --i' '--interval'
expect 'tervalectl replay --s' '--selection'
expect 'tervalectl profiles import --m' '--merge'
expect 'tervalectl state --f' '--follow'
expect 'tervalectl profiles validate --' '--json --help'

# Every command, with all the options that it takes.
names=$("$program" --help | sed -n 's/^  \([a-z-]*\( [a-z]*\)\{0,1\}\) .*/\1/p' | sed 's/ *$//')
[[ $names == *'launch-at-login'* && $names == *'profiles import'* ]] || failures=$((failures + 1))
while read -r name; do
    options=$("$program" $name --help | sed -n -e 's/^  -[a-z], --/  --/' -e 's/^  \(--[a-z]*\).*/\1/p' | sort | tr '\n' ' ')
    COMP_WORDS=(tervalectl $name --)
    COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
    COMPREPLY=()
    _tervalectl
    offered=$(printf '%s\n' "${COMPREPLY[@]}" | sort | tr '\n' ' ')
    if [[ $offered != "$options" ]]; then
        echo "'$name' offers $offered, and takes $options" >&2
        failures=$((failures + 1))
    fi
done <<<"$names"
exit "$failures"
