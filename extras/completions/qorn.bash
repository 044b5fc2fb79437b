# Completion for bash: qornfmt, "git qorn" and qorn. bash-completion loads it by the name of the command.

_qorn() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} line any=''
  local options='--check --diff --lines --staged --changed --stdin-filename -c --config --settings --guess -j --jobs -q --quiet
    --force -h --help --version'
  [[ ${COMP_WORDS[0]##*/} != qorn ]] || options='-h -v -k -t -c'
  COMPREPLY=()
  case $before in
    -t) mapfile -t COMPREPLY < <(compgen -W '2 3 4 8' -- "$word") && return ;;
    -j | --jobs | --lines) return ;;
    -c | --config) any=1 ;;
    *)
      if [[ $word == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$word")
        return
      fi
      ;;
  esac
  compopt -o filenames 2>/dev/null
  while IFS= read -r line; do
    [[ -z $any && ! -d $line && ! ${line,,} =~ \.(vhdl?|vht)$ ]] || COMPREPLY+=("$line")
  done < <(compgen -f -- "$word")
}

# git's completion calls this one for "git qorn".
_git_qorn() { _qorn; }

complete -F _qorn qorn qornfmt git-qorn
