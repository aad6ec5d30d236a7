#compdef jex
# What a command takes is asked of the program itself.

_jex() {
  local -a found
  local options
  if (( CURRENT == 2 )) || [[ $words[2] == help ]]; then
    found=(${(f)"$(jex --help | sed -n 's/^  \([a-z]*\)  *\(.*\)/\1:\2/p')"})
    _describe command found
    _values option --help --version
    return
  fi
  case $words[CURRENT-1] in
    --mode) _values mode standard lite; return ;;
    --device) found=(${(f)"$(jex devices | awk 'NR > 1 { print $2 }')"}); _describe device found; return ;;
    -p | --project) _files -g '*.jexprj(-.)'; return ;;
    -I | -y) _directories; return ;;
    --top | --in | --from | --to | -D | --tool-memory) return ;; # names in the design are not looked up here
  esac
  if [[ $words[CURRENT] == -* ]]; then
    options="$(jex $words[2] --help 2> /dev/null | grep -oE '^  -[^<]*' | grep -oE -- '-[A-Za-z-]+')"
    compadd -- ${(f)options}
  elif [[ $words[2] == (show|fmt|usage|diff) ]]; then
    _files -g '*.zub(-.)'
  else
    _files -g '*.(zub|jexprj|v|vh|sv|svh|vhd|vhdl|f)(-.)'
  fi
}

_jex "$@"
