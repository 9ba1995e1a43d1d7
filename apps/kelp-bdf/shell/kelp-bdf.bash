# Completion of kelp-bdf for bash. The command itself tells what may stand at the cursor.

_kelp_bdf() {
    local program=$1 word line candidate files='' space='' joined=''
    local -a words=()
    COMPREPLY=()
    # Bash takes '=' and ':' for words of their own; what stands beside them belongs together.
    for word in "${COMP_WORDS[@]:1:COMP_CWORD}"; do
        if [[ ${#words[@]} -gt 0 && ($word == [=:]* || -n $joined) ]]; then
            words[-1]+=$word
        else
            words+=("=$word")
        fi
        joined=''
        [[ $word != *[=:] ]] || joined=yes
    done
    local current=${words[-1]#=}
    # What bash knows to stand before the cursor already.
    local known=${current%"${COMP_WORDS[COMP_CWORD]}"}
    [[ ${COMP_WORDS[COMP_CWORD]} != [=:] ]] || known=$current
    while IFS= read -r line; do
        candidate=${line%%$'\t'*}
        if [[ $candidate == :files ]]; then
            files=yes
        else
            COMPREPLY+=("${candidate#"$known"}")
            [[ $candidate != *[.=] ]] || space=no
        fi
    done < <("$program" __complete "${words[@]}" 2>/dev/null)
    if [[ -n $files ]]; then
        compopt -o filenames 2>/dev/null
        while IFS= read -r candidate; do
            COMPREPLY+=("$candidate")
        done < <(compgen -f -- "${current#"$known"}")
    fi
    [[ -z $space ]] || compopt -o nospace 2>/dev/null
}

complete -F _kelp_bdf kelp-bdf
