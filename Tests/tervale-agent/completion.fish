# Checks what the completion offers. Usage: completion.fish COMPLETION
source $argv[1]
set failures 0

# expect 'words before and at the cursor' 'what is offered'
function expect
    set -l offered (complete -C $argv[1] | string replace -r '\t.*' '' | string join '|')
    if test "$offered" != $argv[2]
        echo "'$argv[1]' offers '$offered', not '$argv[2]'" >&2
        set failures (math $failures + 1)
    end
end

expect 'tervale-agent --' '--dry-run|--help|--log-level|--simulate|--socket|--version'
expect 'tervale-agent --log-level ' 'debug|error|info|warning'
expect 'tervale-agent --simulate --d' --dry-run
exit $failures
