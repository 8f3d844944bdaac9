# Completion of tervale-agent for fish.

complete -c tervale-agent -f
complete -c tervale-agent -l socket -r -F -d 'drive the simulated Mac on this socket'
complete -c tervale-agent -l simulate -d 'drive a simulated Mac within the process'
complete -c tervale-agent -l dry-run -d 'do everything but write to the controller'
complete -c tervale-agent -l log-level -x -a 'error warning info debug' -d 'what is written to standard error'
complete -c tervale-agent -s h -l help -d 'show help'
complete -c tervale-agent -l version -d 'show the version'
