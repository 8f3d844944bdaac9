# Completion of tervalectl for fish.

# The names of the agent's profiles; nothing if it does not answer. A name with an escape is left out.
function __tervalectl_names
    tervalectl profiles list --json --timeout 0.3 2>/dev/null |
        string match -ra '"id":"[^"]*","name":"[^"\\\\]*"' |
        string replace -r '.*"name":"(.*)"' '$1'
end

# The selections of a dry run, with the names of the profiles in the file that it tries, or else of the
# agent's.
function __tervalectl_selections
    printf '%s\n' automatic max
    set -l tokens (commandline -opc)
    set -l at (contains -i -- --profiles $tokens)
    if test -n "$at"; and test (count $tokens) -gt $at
        # As it is typed: a tilde stands for the home folder.
        set -l file (string replace -r '^~/' "$HOME/" -- $tokens[(math $at + 1)])
        test -r "$file"; and string match -ra '"name" *: *"[^"\\\\]*"' <$file | string replace -r '.*: *"(.*)"' 'profile $1'
    else
        __tervalectl_names | string replace -r '^' 'profile '
    end
end

# The words before the cursor that are neither options nor their values.
function __tervalectl_words
    set -l tokens (commandline -opc)
    set -l skip no
    for token in $tokens[2..-1]
        if test $skip = yes
            set skip no
            continue
        end
        switch $token
            case --group --profiles --socket --chart --selection --interval --count --timeout
                set skip yes
            case '-*'
            case '*'
                echo $token
        end
    end
end

# Whether the words are these.
function __tervalectl_at
    set -l words (__tervalectl_words)
    test "$words" = "$argv"
end

# Whether the words begin with one of these commands.
function __tervalectl_in
    set -l words (__tervalectl_words)
    for command in $argv
        string match -q -- "$command *" "$words " && return 0
    end
    return 1
end

complete -c tervalectl -f

# Commands.
complete -c tervalectl -n '__tervalectl_at' -a fans -d 'show the fans, their speeds and limits'
complete -c tervalectl -n '__tervalectl_at' -a sensors -d 'show the temperatures of the sensors'
complete -c tervalectl -n '__tervalectl_at' -a monitor -d 'show load, temperatures and fans, line by line'
complete -c tervalectl -n '__tervalectl_at' -a doctor -d 'look for what keeps the fans from being driven'
complete -c tervalectl -n '__tervalectl_at' -a agent -d 'show whether an agent answers, and which'
complete -c tervalectl -n '__tervalectl_at' -a state -d 'show the state of the agent'
complete -c tervalectl -n '__tervalectl_at' -a select -d 'select what drives the fans'
complete -c tervalectl -n '__tervalectl_at' -a timer -d 'select what drives the fans, for a time'
complete -c tervalectl -n '__tervalectl_at' -a cancel-timer -d 'end the running timer'
complete -c tervalectl -n '__tervalectl_at' -a launch-at-login -d 'choose whether the agent starts at login'
complete -c tervalectl -n '__tervalectl_at' -a check-for-updates -d 'let the agent look for a newer version'
complete -c tervalectl -n '__tervalectl_at' -a profiles -d "the agent's profiles"
complete -c tervalectl -n '__tervalectl_at' -a replay -d 'try profiles on recorded readings'
complete -c tervalectl -n '__tervalectl_at profiles' -a list -d "show the agent's profiles"
complete -c tervalectl -n '__tervalectl_at profiles' -a export -d "write the agent's profiles as JSON"
complete -c tervalectl -n '__tervalectl_at profiles' -a import -d "replace the agent's profiles"
complete -c tervalectl -n '__tervalectl_at profiles' -a validate -d 'show the problems of profiles'
complete -c tervalectl -n '__tervalectl_at profiles' -a show -d 'show a profile, its curve drawn'
complete -c tervalectl -n '__tervalectl_at profiles' -a remove -d "remove one of the agent's profiles"

# Arguments.
complete -c tervalectl -n '__tervalectl_at select' -a 'automatic max profile'
complete -c tervalectl -n '__tervalectl_at timer' -a 'automatic max profile'
complete -c tervalectl -n '__tervalectl_at select profile' -a '(__tervalectl_names)'
complete -c tervalectl -n '__tervalectl_at timer profile' -a '(__tervalectl_names)'
complete -c tervalectl -n '__tervalectl_at profiles show' -a '(__tervalectl_names)'
complete -c tervalectl -n '__tervalectl_at profiles remove' -a '(__tervalectl_names)'
complete -c tervalectl -n '__tervalectl_at launch-at-login' -a 'on off'
complete -c tervalectl -n '__tervalectl_in replay "profiles export" "profiles import" "profiles validate"' -F

# Options.
complete -c tervalectl -s h -l help -d 'show help'
complete -c tervalectl -n '__tervalectl_at' -l version -d 'show the version'
complete -c tervalectl -n '__tervalectl_in sensors' -l group -x -a 'cpu gpu memory ssd power other' -d 'only this group'
complete -c tervalectl -n '__tervalectl_in monitor' -l interval -x -d 'seconds between two lines'
complete -c tervalectl -n '__tervalectl_in monitor state' -l count -x -d 'end after this many lines'
complete -c tervalectl -n '__tervalectl_in monitor replay' -l chart -r -F -d 'draw a picture'
complete -c tervalectl -n '__tervalectl_in state' -l follow -d 'show the state again whenever it changes'
complete -c tervalectl -n '__tervalectl_in "profiles import"' -l merge -d "keep the agent's other profiles"
complete -c tervalectl -n '__tervalectl_in replay' -l profiles -r -F -d 'the profiles to try'
complete -c tervalectl -n '__tervalectl_in replay' -l selection -x -a '(__tervalectl_selections)' -d 'the selection'
set -l agent 'doctor agent state select timer cancel-timer launch-at-login check-for-updates "profiles list" "profiles export" "profiles import" "profiles show" "profiles remove"'
complete -c tervalectl -n "__tervalectl_in fans sensors monitor replay 'profiles validate' $agent" -l json -d 'write JSON'
complete -c tervalectl -n "__tervalectl_in $agent" -l timeout -x -d 'how long to wait for the agent'
complete -c tervalectl -n "__tervalectl_in fans sensors monitor $agent" -l simulate -d 'use a simulated Mac with an agent of its own'
complete -c tervalectl -n "__tervalectl_in fans sensors monitor $agent" -l socket -r -F -d 'use the controller on this socket'
