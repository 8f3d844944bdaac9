# Checks what the completion offers. Usage: completion.bash COMPLETION PROGRAM
source "${BASH_SOURCE[0]%/*}/../Support/completion.bash"

offers() {
    expect _tervale_agent "tervale-agent $1" "$2"
}

offers '--s' '--socket --simulate'
offers '--simulate --d' '--dry-run'
offers '--log-level ' 'error warning info debug'
offers '--log-level d' 'debug'
offers "--socket ${1%.bash}.b" "$1"
expect_options _tervale_agent tervale-agent \
    "$("$program" --help | sed -n 's/^  \(--[a-z-]*\).*/\1/p')"
exit "$failures"
