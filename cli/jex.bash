# bash completion for jex. What a command takes is asked of the program itself.

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
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command=${COMP_WORDS[1]}
  local IFS=$'\n'
  COMPREPLY=()
  if [ "$COMP_CWORD" -eq 1 ] || [ "$command" = help ]; then
    COMPREPLY=($(compgen -W "$(jex --help | sed -n 's/^  \([a-z]*\)  *.*/\1/p')"$'\n--help\n--version' -- "$word"))
    return
  fi
  case $before in
    --mode | --tool | --synth) COMPREPLY=($(compgen -W "$(_jex_words "$command" "$before")" -- "$word")) ;;
    --trigger) COMPREPLY=($(compgen -W $'levels\nany' -- "$word")) ;;
    --bench) COMPREPLY=($(shopt -s extglob; compgen -f -X '!*.@(v|sv)' -- "$word") $(compgen -d -- "$word")) ;;
    --device) COMPREPLY=($(compgen -W "$(jex devices | awk 'NR > 1 { print $2 }')" -- "$word")) ;;
    -p | --project)
      COMPREPLY=($(shopt -s extglob; compgen -f -X '!*@(.jexprj|.toml|.eda.yml|.eda.yaml)' -- "$word") $(compgen -d -- "$word"))
      ;;
    -I | -y | -incdir | -o | --output) COMPREPLY=($(compgen -d -- "$word")) ;;
    # Names in the design are not looked up here.
    --top | -top | --top-module | --in | --instance | --from | --to | --core | --port | --signals | -D | -U | -G | -work | --libext | --tool-memory) ;;
    *)
      case $word in
        -*) COMPREPLY=($(compgen -W "$(jex "$command" --help 2> /dev/null | grep -oE '^  -[^<]*' | grep -oE -- '-[A-Za-z-]+')" -- "$word")) ;;
        *) COMPREPLY=($(shopt -s extglob; compgen -f -X "!*.@($(_jex_suffixes "$command"))" -- "$word") $(compgen -d -- "$word")) ;;
      esac
      ;;
  esac
}
complete -o filenames -F _jex jex
