# Completion of pageslice's command line for bash.
_pageslice() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
  COMPREPLY=()
  case $previous in
    --base) return ;;
    --jobs) mapfile -t COMPREPLY < <(compgen -W "1 2 4 8 16" -- "$current"); return ;;
  esac
  if [[ $current == -?* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "--title --links --images --items --cells --text --all --base --json --stream
      --jobs --annotate --help --version" -- "$current")
  else
    mapfile -t COMPREPLY < <(compgen -f -- "$current")
    compopt -o filenames 2>/dev/null
  fi
}
complete -F _pageslice pageslice
