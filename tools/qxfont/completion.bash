# Completion of qxfont for bash: commands and options as the program itself tells them.

_qxfont_words() {
  local word=${COMP_WORDS[COMP_CWORD]} command=${COMP_WORDS[1]}
  if [[ $COMP_CWORD -eq 1 ]]; then
    "${COMP_WORDS[0]}" --help |
      awk '/^Subcommands:/ { listed = 1; next } listed || /^ *--?[a-z]/ { print $1 }'
  elif [[ $word == -* && $command != -* ]]; then
    "${COMP_WORDS[0]}" "$command" --help | awk '/^ *--?[a-z]/ { print $1 }'
  fi 2>/dev/null | sed 's/^-[a-z],//'
}

_qxfont() {
  mapfile -t COMPREPLY < <(compgen -W "$(_qxfont_words)" -- "${COMP_WORDS[COMP_CWORD]}")
}

complete -o default -F _qxfont qxfont
