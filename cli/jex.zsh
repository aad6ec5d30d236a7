#compdef jex
# What a command takes is asked of the program itself.

# The words that the help text has for an option of a command, "ice40, ecp5 or generic".
_jex_words() {
  jex "$1" --help 2> /dev/null | awk -v option="$2" '$1 ~ /^-/ { on = $1 == option } on' | tr -s ' \n' ' ' |
    sed 's/^[^>]*> *//; s/^[^.]*: //; s/\..*//; s/, \| or /\n/g'
}

# What the names of its files end with, "zub|jexprj|f|v|vhd".
_jex_suffixes() {
  echo "zub$(jex "$1" --help 2> /dev/null | tr -s ' \n' ' ' |
    sed -n 's/.*HDL files of the design (\([^)]*\)).*/|jexprj|f\1/p' | sed 's/ *\./|/g')"
}

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
    --mode | --tool | --synth) _values word ${(f)"$(_jex_words $words[2] $words[CURRENT-1])"}; return ;;
    --trigger) _values trigger levels any; return ;;
    --bench) _files -g '*.(v|sv)(-.)'; return ;;
    --device) found=(${(f)"$(jex devices | awk 'NR > 1 { print $2 }')"}); _describe device found; return ;;
    -p | --project) _files -g '*.(jexprj|toml|eda.yml|eda.yaml)(-.)'; return ;;
    -I | -y | -incdir | -o | --output) _directories; return ;;
    # Names in the design are not looked up here.
    --top | -top | --top-module | --in | --instance | --from | --to | --core | --port | --signals | -D | -U | -G | -work | --libext | --tool-memory)
      return ;;
  esac
  if [[ $words[CURRENT] == -* ]]; then
    options="$(jex $words[2] --help 2> /dev/null | grep -oE '^  -[^<]*' | grep -oE -- '-[A-Za-z-]+')"
    compadd -- ${(f)options}
  else
    _files -g "*.($(_jex_suffixes $words[2]))(-.)"
  fi
}

_jex "$@"
