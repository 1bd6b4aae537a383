# SPDX-License-Identifier: MIT
# Completion of pageslice's command line for bash.
_pageslice() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
  COMPREPLY=()
  [[ $current == '=' ]] && current=''
  [[ $previous == '=' ]] && previous=${COMP_WORDS[COMP_CWORD - 2]}
  case $previous in
    -b | --base) return ;;
    -P | --jobs) mapfile -t COMPREPLY < <(compgen -W "1 2 4 8 16" -- "$current"); return ;;
    -r | --rules) mapfile -t COMPREPLY < <(compgen -W "classic standard" -- "$current"); return ;;
    -E | --encoding) mapfile -t COMPREPLY < <(compgen -W "utf-8 windows-1252 iso-8859-1 shift_jis gbk" -- "$current"); return ;;
    --color) mapfile -t COMPREPLY < <(compgen -W "auto always never" -- "$current"); return ;;
  esac
  if [[ $current == -?* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "--title --links --images --items --cells --text --all --files0-from --base
      --rules --encoding --jobs --json --stream --annotate --count --decode --with-filename --null --color --help
      --version" -- "$current")
  else
    mapfile -t COMPREPLY < <(compgen -f -- "$current")
    compopt -o filenames 2>/dev/null
  fi
}
complete -F _pageslice pageslice
