# Completion of special-pages-print for fish.

complete -c special-pages-print -s h -l help -d 'Print what the program takes, and exit'
complete -c special-pages-print -l version -d 'Print the version, and exit'
complete -c special-pages-print -l ppd -r -F -d 'Show the tab for this PPD, without a queue'
complete -c special-pages-print -l printer -x -a '(lpstat -e 2>/dev/null)' -d 'The queue that is chosen at first'
complete -c special-pages-print -l settings -r -F -d 'Print settings to begin with'
complete -c special-pages-print -l out -r -F -d 'Where Print writes the settings'
complete -c special-pages-print -l lang -x -a 'de en fr ja' -d 'Language of the texts'
