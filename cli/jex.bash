# bash completion for jex. What a command takes is asked of the program itself.

_jex() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command=${COMP_WORDS[1]}
  local IFS=$'\n'
  COMPREPLY=()
  if [ "$COMP_CWORD" -eq 1 ] || [ "$command" = help ]; then
    COMPREPLY=($(compgen -W "$(jex --help | sed -n 's/^  \([a-z]*\)  *.*/\1/p')"$'\n--help\n--version' -- "$word"))
    return
  fi
  case $before in
    --mode) COMPREPLY=($(compgen -W $'standard\nlite' -- "$word")) ;;
    --trigger) COMPREPLY=($(compgen -W $'levels\nany' -- "$word")) ;;
    --tool) COMPREPLY=($(compgen -W $'icarus\nverilator' -- "$word")) ;;
    --synth) COMPREPLY=($(compgen -W $'ice40\necp5\nxilinx\ngeneric' -- "$word")) ;;
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
        *)
          local files='!*.@(zub|jexprj|v|vh|sv|svh|vhd|vhdl|f)'
          case $command in show | fmt | usage | diff | set | merge) files='!*.zub' ;; esac
          COMPREPLY=($(shopt -s extglob; compgen -f -X "$files" -- "$word") $(compgen -d -- "$word"))
          ;;
      esac
      ;;
  esac
}
complete -o filenames -F _jex jex
