# Checks what the completion offers. Usage: completion.fish COMPLETION
source (status dirname)/../Support/completion.fish $argv

expect 'tervale-agent --' '--dry-run|--help|--log-level|--simulate|--socket|--version'
expect 'tervale-agent --log-level ' 'debug|error|info|warning'
expect 'tervale-agent --simulate --d' --dry-run
exit $failures
