#compdef jexworkbench
# What it takes is asked of the program itself.

# What it opens, ".zub|.v|.vhd".
_jexworkbench_suffixes() {
  jexworkbench --help 2> /dev/null | sed -n '/^FILE is/,/^$/p' | grep -oE '\.[a-z]+(\.[a-z]+)?' | paste -sd '|'
}

_jexworkbench() {
  local -a found
  local options
  case $words[CURRENT-1] in
    --device) found=(${(f)"$(jex devices | awk 'NR > 1 { print $2 }')"}); _describe device found; return ;;
    -I | -y) _directories; return ;;
    -f | -F | -v | --log | --plugin | --shot) _files; return ;;
    --top | -D | -U | -G | --libext | --work | --tool-memory) return ;;
  esac
  if [[ $words[CURRENT] == -* ]]; then
    options="$(jexworkbench --help 2> /dev/null | grep -oE '^  -[^<]*' | grep -oE -- '-[A-Za-z-]+')"
    compadd -- ${(f)options}
  else
    _files -g "*($(_jexworkbench_suffixes))(-.)"
  fi
}

_jexworkbench "$@"
