# Checks what the completion offers. Usage: completion.zsh COMPLETION
# The agent's profiles, without an agent.
preparation='
tervalectl() {
    print -r -- '${(qq):-'[{"id":"A-1","name":"Quiet"},{"id":"B-2","name":"Late at night"},{"id":"C-3","name":"a\"b"}]'}'
}
'
source "${0:h}/../Support/completion.zsh"

expect 'tervalectl s' 'select|sensors|state'
expect 'tervalectl profiles ' 'export|import|list|remove|show|validate'
expect 'tervalectl select ' 'automatic|max|profile'
expect 'tervalectl select profile ' 'Late at night|Quiet'
expect 'tervalectl timer profile L' 'Late at night'
expect 'tervalectl profiles remove Q' 'Quiet'
expect 'tervalectl launch-at-login o' 'off|on'
expect 'tervalectl sensors --group g' 'gpu'
expect 'tervalectl monitor --i' '--interval'
expect 'tervalectl state --f' '--follow'
expect 'tervalectl profiles import --m' '--merge'
expect 'tervalectl profiles validate --' '--help|--json'
expect 'tervalectl fans --' '--help|--json|--simulate|--socket'
expect 'tervalectl --v' '--version'

# The names come from the file that is tried, where it is known.
folder=$(mktemp -d)
print -r -- '[ { "id": "D-4", "name": "New one" }, { "id": "E-5", "name": "b\"c" } ]' >$folder/new.json
expect 'tervalectl replay --selection ' 'automatic|max|profile Late at night|profile Quiet'
expect 'tervalectl replay --selection m' 'max'
expect "tervalectl replay --selection 'profile L" 'profile Late at night'
expect "tervalectl replay --profiles $folder/new.json --selection " 'automatic|max|profile New one'
expect "tervalectl replay --profiles $folder/none.json --selection " 'automatic|max'
rm -r $folder
exit $failures
