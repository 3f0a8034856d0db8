# Completion of special-pages-print for bash.

_special_pages_print()
{
    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD - 1]}
    COMPREPLY=()
    if [[ $prev == --lang ]]; then
        COMPREPLY=($(compgen -W "de en fr ja" -- "$cur"))
    elif [[ $prev == --printer ]]; then
        COMPREPLY=($(compgen -W "$(lpstat -e 2>/dev/null)" -- "$cur"))
    elif [[ $cur == -* ]]; then
        COMPREPLY=($(compgen -W "-h --help --ppd --printer --settings --out --lang --version" -- "$cur"))
    else
        compopt -o filenames 2>/dev/null
        COMPREPLY=($(compgen -f -- "$cur"))
    fi
}

complete -F _special_pages_print special-pages-print
