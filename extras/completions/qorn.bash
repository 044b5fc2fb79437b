# Completion for bash: qorn and its scripts. bash-completion loads it by the name of the command.

_qorn() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} options line
  case ${COMP_WORDS[0]##*/} in
    qorn) options='-h -v -k -t -c' ;;
    qorn-settle) options='-h -k -t -c' ;;
    qorn-check) options='-h -d -c' ;;
    qorn-fix) options='-h -c' ;;
    *) options='-h -l -n -c' ;; # git qorn
  esac
  COMPREPLY=()
  if [[ $before == -t ]]; then
    mapfile -t COMPREPLY < <(compgen -W '2 3 4 8' -- "$word")
    return
  elif [[ $word == -* && $before != -c ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$options" -- "$word")
    return
  fi
  compopt -o filenames 2>/dev/null
  while IFS= read -r line; do
    [[ $before != -c && ! -d $line && ${line,,} != *.vhd && ${line,,} != *.vhdl ]] || COMPREPLY+=("$line")
  done < <(compgen -f -- "$word")
}

# git's completion calls this one for "git qorn".
_git_qorn() { _qorn; }

complete -F _qorn qorn qorn-settle qorn-check qorn-fix git-qorn
