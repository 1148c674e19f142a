# Completions of dialwright-cli for bash.

_dialwright_cli() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} command= i
  COMPREPLY=()
  # An equals sign is a word of its own.
  [[ $word != = ]] || word=
  [[ $before != = ]] || before=${COMP_WORDS[COMP_CWORD-2]}
  for ((i = 1; i < COMP_CWORD; ++i)); do
    case ${COMP_WORDS[i]} in
      --server | --slot) ((++i)) ;;
      check | show | export | apply | diff) command=${COMP_WORDS[i]}; break ;;
    esac
  done
  case $before in
    --server) compopt -o filenames; mapfile -t COMPREPLY < <(compgen -d -- "$word"); return ;;
    --slot) mapfile -t COMPREPLY < <(compgen -W '1 2 3' -- "$word"); return ;;
  esac
  local options='--server --help'
  case $command in
    '') options+=' --version check show export apply diff' ;;
    check | show) options+=' --slot --json' ;;
    export) options+=' --slot' ;;
    apply) options+=' --slot --dry-run' ;;
    diff) options+=' --json' ;;
  esac
  if [[ -z $command || $word == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$options" -- "$word")
  elif [[ $command == export || $command == apply || $command == diff ]]; then
    compopt -o filenames
    mapfile -t COMPREPLY < <(compgen -f -- "$word")
  fi
}
complete -F _dialwright_cli dialwright-cli
