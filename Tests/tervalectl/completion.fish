# Checks what the completion offers. Usage: completion.fish COMPLETION
source (status dirname)/../Support/completion.fish $argv

# The agent's profiles, without an agent.
function tervalectl
    echo '[{"id":"A-1","name":"Quiet"},{"id":"B-2","name":"Late at night"},{"id":"C-3","name":"a\\"b"}]'
end

expect 'tervalectl s' 'select|sensors|state'
expect 'tervalectl profiles ' 'export|import|list|remove|show|validate'
expect 'tervalectl --simulate profiles v' validate
expect 'tervalectl --timeout 3 select ' 'automatic|max|profile'
expect 'tervalectl select profile ' 'Late at night|Quiet'
expect 'tervalectl timer profile L' 'Late at night'
expect 'tervalectl profiles remove Q' Quiet
expect 'tervalectl launch-at-login o' 'off|on'
expect 'tervalectl sensors --group g' gpu
expect 'tervalectl monitor --i' --interval
expect 'tervalectl state --f' --follow
# The names come from the file that is tried, where it is known.
set folder (mktemp -d)
echo '[ { "id": "D-4", "name": "New one" }, { "id": "E-5", "name": "b\\"c" } ]' >$folder/new.json
expect 'tervalectl replay --selection ' 'automatic|max|profile Late at night|profile Quiet'
expect 'tervalectl replay --selection m' max
expect "tervalectl replay --profiles $folder/new.json --selection " 'automatic|max|profile New one'
expect "tervalectl replay --profiles $folder/none.json --selection " 'automatic|max'
rm -r $folder
expect 'tervalectl profiles import --m' --merge
expect 'tervalectl profiles validate --' '--help|--json'
expect 'tervalectl fans --' '--help|--json|--simulate|--socket'
expect 'tervalectl --v' --version
exit $failures
