# Checks what the completion offers. Usage: completion.bash COMPLETION PROGRAM
source "${BASH_SOURCE[0]%/*}/../Support/completion.bash"

# The agent's profiles, without an agent.
tervalectl() { echo '[{"id":"A-1","name":"Quiet"},{"id":"B-2","name":"Late at night"}]'; }

offers() {
    expect _tervalectl "tervalectl $1" "$2"
}

offers 's' 'sensors state select'
offers 'profiles ' 'list export import validate show remove'
offers '--simulate profiles v' 'validate'
offers 'select ' 'automatic max profile'
offers 'select profile ' 'Quiet Late\ at\ night'
offers 'timer profile La' 'Late\ at\ night'
offers 'profiles show Q' 'Quiet'
offers 'profiles remove ' 'Quiet Late\ at\ night'
offers 'profiles remove A-' 'A-1'
offers 'launch-at-login o' 'on off'
offers 'sensors --group g' 'gpu'
offers 'monitor --i' '--interval'
offers 'replay --s' '--selection'
offers 'profiles import --m' '--merge'
offers 'state --f' '--follow'
offers 'profiles validate --' '--json --help'

# The names come from the file that is tried, where it is known.
folder=$(mktemp -d)
trap 'rm -r "$folder"' EXIT
echo '[ { "id": "D-4", "name": "New one" }, { "id": "E-5", "name": "b\"c" } ]' >"$folder/new.json"
offers 'replay --selection ' 'automatic max profile\ Quiet profile\ Late\ at\ night'
offers 'replay --selection m' 'max'
offers 'replay --selection p' 'profile\ Quiet profile\ Late\ at\ night'
offers "replay --selection 'prof" 'profile Quiet profile Late at night'
offers "replay --profiles $folder/new.json --selection " 'automatic max profile\ New\ one'
offers "replay --profiles '$folder/new.json' --selection p" 'profile\ New\ one'
offers "replay --profiles $folder/none.json --selection " 'automatic max'

# Every command, with all the options that it takes.
names=$("$program" --help | sed -n 's/^  \([a-z-]*\( [a-z]*\)\{0,1\}\) .*/\1/p' | sed 's/ *$//')
[[ $names == *'launch-at-login'* && $names == *'profiles import'* ]] || failures=$((failures + 1))
while read -r name; do
    # shellcheck disable=SC2086 # A command may be two words.
    taken=$("$program" $name --help | sed -n -e 's/^  -[a-z], --/  --/' -e 's/^  \(--[a-z]*\).*/\1/p')
    expect_options _tervalectl "tervalectl $name" "$taken"
done <<<"$names"
exit "$failures"
