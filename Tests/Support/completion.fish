# What the checks of the completions for fish share. Sourced with the completion.
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
