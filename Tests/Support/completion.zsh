# What the checks of the completions for zsh share. Sourced with the completion. A shell of its own completes
# what is typed into it, as one in a terminal does, and tells what it offers. It runs `preparation` first.
zmodload zsh/zpty || exit 1
failures=0

# What that shell begins with: completion as people switch it on, but each word that is offered in a line of
# its own in place of the menu, and nothing inserted. A call of compadd that only fills arrays offers nothing.
setup='
PROMPT= RPROMPT= PS2=
stty rows 200 columns 300 -echo -onlcr
fpath=('${(qq)1:A:h}' $fpath)
autoload -Uz compinit
compinit -u -D
zstyle ":completion:*" completer _complete
compadd() {
    if [[ -z ${(M)@[1,(i)(-|--)]:#-[OAD]*} ]]; then
        local -a offered
        builtin compadd -O offered "$@"
        (( $#offered )) && print -rl -- "offer "$^offered
    fi
    builtin compadd "$@"
}
complete-and-tell() {
    print begin
    _main_complete
    compstate[insert]= compstate[list]=
    print end
}
zle -C complete-and-tell complete-word complete-and-tell
bindkey "^I" complete-and-tell
'${preparation-}'
print ready
'

# Reads the lines until that one has come.
await() {
    local line
    seen=()
    while zpty -r inner line $'*\n'; do
        line=${${line%$'\n'}%$'\r'}
        [[ $line == *$1 ]] && return
        seen+=($line)
    done
    print -ru2 "the shell that completes ended: $seen"
    exit 1
}

zpty inner zsh -f -i
zpty -w inner "$setup"
await ready

# expect 'words before and at the cursor' 'what is offered'
expect() {
    local offered
    # The line that was typed before goes first.
    zpty -w -n inner $'\C-u'"$1"$'\t'
    await begin
    await end
    offered=(${${(M)seen:#*offer *}##*offer })
    offered=${(j:|:)${(ou)offered}}
    if [[ $offered != "$2" ]]; then
        print -ru2 "'$1' offers '$offered', not '$2'"
        (( ++failures ))
    fi
}
