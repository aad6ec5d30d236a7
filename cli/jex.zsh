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
    --trigger) _values trigger levels any; return ;;
    --tool) _values simulator icarus verilator; return ;;
    --synth) _values family ice40 ecp5 xilinx generic; return ;;
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
  elif [[ $words[2] == (show|fmt|usage|diff|set|merge) ]]; then
    _files -g '*.zub(-.)'
  else
    _files -g '*.(zub|jexprj|v|vh|sv|svh|vhd|vhdl|f)(-.)'
  fi
}

_jex "$@"
