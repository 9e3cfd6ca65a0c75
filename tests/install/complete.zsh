# Prints what zsh offers when the tabulator key is pressed behind a command line.
#
#   complete.zsh FOLDER-OF-COMPLETIONS LINE
zmodload zsh/zpty

zpty shell zsh -f -i
zpty -w shell "fpath=($1 \$fpath) PROMPT= && autoload -U compinit && compinit -u -D &&
  zstyle ':completion:*' list-colors '' && LISTMAX=1000 && stty columns 200 rows 100 && print READY"
zpty -r -m shell line '*READY*READY*'
zpty -w -n shell "$2"$'\t\t'
# Behind the list of options the line is shown again.
zpty -w -n shell $'\C-u'"print DONE"$'\n'
zpty -r -m shell line '*DONE*DONE*'
print -r -- "$line"
zpty -d shell
