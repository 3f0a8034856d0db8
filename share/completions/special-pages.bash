# Completion of special-pages for bash.

_special_pages()
{
    local cur prev command word
    cur=${COMP_WORDS[COMP_CWORD]}
    prev=${COMP_WORDS[COMP_CWORD - 1]}
    COMPREPLY=()

    local commands="apply show decode pages constraints menus drive submit lp-options preview"
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        case " $commands " in
            *" $word "*)
                command=$word
                break
                ;;
        esac
    done

    case $prev in
        --ppd | --settings | --job | --out | --write-cache)
            compopt -o filenames 2>/dev/null
            COMPREPLY=($(compgen -f -- "$cur"))
            return
            ;;
        --printer)
            COMPREPLY=($(compgen -W "$(lpstat -e 2>/dev/null)" -- "$cur"))
            return
            ;;
        --window)
            COMPREPLY=($(compgen -W "covers inserts exceptions" -- "$cur"))
            return
            ;;
        --select)
            COMPREPLY=($(compgen -S = -W "size color type" -- "$cur"))
            compopt -o nospace 2>/dev/null
            return
            ;;
        --lang)
            COMPREPLY=($(compgen -W "de en fr ja" -- "$cur"))
            return
            ;;
        --mark | --option | --held | --conflicts | --section | --pages)
            return
            ;;
    esac

    local flags="-h --help -v --verbose"
    case $command in
        "") flags+=" --version" ;;
        apply) flags+=" --ppd --settings --job --mark --printer --lang --out" ;;
        show) flags+=" --ppd --lang --json" ;;
        pages) flags+=" --exceptions --front-cover --held --json" ;;
        constraints) flags+=" --ppd --dump --conflicts --write-cache --section" ;;
        menus) flags+=" --ppd --mark --window --select --lang --json" ;;
        drive) flags+=" --ppd --settings --mark --lang" ;;
        submit) flags+=" --printer --settings --job --option --out --lang --no-wait --json" ;;
        preview) flags+=" --ppd --settings --pages --mark --lang --out" ;;
    esac

    if [[ $cur == -* ]]; then
        COMPREPLY=($(compgen -W "$flags" -- "$cur"))
    elif [[ -z $command ]]; then
        COMPREPLY=($(compgen -W "$commands" -- "$cur"))
    elif [[ $command == @(show|submit|lp-options) ]]; then
        compopt -o filenames 2>/dev/null
        COMPREPLY=($(compgen -f -- "$cur"))
    fi
}

complete -F _special_pages special-pages
