# Completion of brindle-batch's actions, options, choices and files for bash.

_brindle_batch_options() {
    local selection='--trees --from --to --random --seed'
    case $1 in
        validate) echo '-h --help -o --output --quiet'; return ;;
        write) echo "--format $selection" ;;
        check | uncheck | propose | expand) echo "$selection" ;;
        evaluate) echo "--report $selection" ;;
        filter) echo "--roots --predicate --prolog $selection" ;;
        edit) echo '--script --tables' ;;
        search) echo '--syn --lex --sem --substring --kind --start --replace --with' ;;
        latex) echo '--tree --node --punctuation' ;;
        layout) echo '--tree --size --punctuation' ;;
    esac
    echo '-h --help -w --wordgraphs -o --output --quiet'
}

# What may follow an option; "FILE" for files, "-" for what nobody can guess. Nothing for an option without a value.
_brindle_batch_values() {
    case $1 in
        --trees) echo 'checked unchecked both' ;;
        --format) echo 'atis dop dop2 info' ;;
        --kind) echo 'terminal nonterminal' ;;
        --replace) echo 'semantics syntax' ;;
        --size) echo 'small medium default large' ;;
        -w | --wordgraphs | -o | --output | --script | --report) echo FILE ;;
        --from | --to | --random | --seed | --syn | --lex | --sem | --start | --with | --predicate | --prolog | --tree | \
            --node) echo - ;;
    esac
}

_brindle_batch() {
    local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} action='' values i
    # bash splits --trees=checked into three words.
    if [ "$word" = = ]; then
        word=''
    elif [ "$previous" = = ]; then
        previous=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    for ((i = 1; i < COMP_CWORD; ++i)); do
        if [[ ${COMP_WORDS[i]} != -* ]]; then
            action=${COMP_WORDS[i]}
            break
        fi
    done
    if [ -z "$action" ]; then
        values='info tables write check uncheck propose evaluate expand filter edit search latex layout validate'
        [[ $word != -* ]] || values='-h --help --version'
    else
        values=$(_brindle_batch_values "$previous")
        [ -n "$values" ] || [[ $word != -* ]] || values=$(_brindle_batch_options "$action")
    fi
    COMPREPLY=()
    case ${values:-FILE} in
        -) ;;
        FILE)
            compopt -o filenames 2>/dev/null
            mapfile -t COMPREPLY < <(compgen -f -- "$word")
            ;;
        *) mapfile -t COMPREPLY < <(compgen -W "$values" -- "$word") ;;
    esac
}

complete -F _brindle_batch brindle-batch
