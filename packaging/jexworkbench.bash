# bash completion for jexworkbench. What it takes is asked of the program itself.

# What it opens, ".zub|.v|.vhd".
_jexworkbench_suffixes() {
  jexworkbench --help 2> /dev/null | sed -n '/^FILE is/,/^$/p' | grep -oE '\.[a-z]+(\.[a-z]+)?' | paste -sd '|'
}

_jexworkbench() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
  local IFS=$'\n'
  COMPREPLY=()
  case $before in
    --device) COMPREPLY=($(compgen -W "$(jex devices | awk 'NR > 1 { print $2 }')" -- "$word")) ;;
    -I | -y) COMPREPLY=($(compgen -d -- "$word")) ;;
    -f | -F | -v | --log | --plugin | --shot) COMPREPLY=($(compgen -f -- "$word")) ;;
    --top | -D | -U | -G | --libext | --work | --tool-memory) ;;
    *)
      case $word in
        -*) COMPREPLY=($(compgen -W "$(jexworkbench --help 2> /dev/null | grep -oE '^  -[^<]*' | grep -oE -- '-[A-Za-z-]+')" -- "$word")) ;;
        *) COMPREPLY=($(shopt -s extglob; compgen -f -X "!*@($(_jexworkbench_suffixes))" -- "$word") $(compgen -d -- "$word")) ;;
      esac
      ;;
  esac
}
complete -o filenames -F _jexworkbench jexworkbench
