# Checks what the completion offers. Usage: completion.zsh COMPLETION PROGRAM
source "${0:h}/../Support/completion.zsh"

expect 'tervale-agent --' '--dry-run|--help|--log-level|--simulate|--socket|--version'
expect 'tervale-agent --log-level ' 'debug|error|info|warning'
expect 'tervale-agent --simulate --d' '--dry-run'
exit $failures
