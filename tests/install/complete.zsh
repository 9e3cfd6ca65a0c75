# Prints what zsh offers when the tabulator key is pressed behind a command line.
#
#   complete.zsh FOLDER-OF-COMPLETIONS LINE
zmodload zsh/zpty

zpty shell zsh -f -i
# What is typed is shown as well, and more than once where the line editor does not run yet. So what is
# waited for never stands in what is typed, and the prompt tells when the editor is there.
zpty -w shell "fpath=($1 \$fpath) && autoload -U compinit && compinit -u -D &&
  zstyle ':completion:*' list-colors '' && LISTMAX=1000 && stty columns 200 rows 100 && PROMPT=be''reit"
zpty -r -m shell line '*bereit*'
zpty -w -n shell "$2"$'\t\t'
# Behind the list of options the line is shown again.
zpty -w -n shell $'\C-u'"print fer''tig"$'\n'
zpty -r -m shell line '*fertig*'
print -r -- "$line"
zpty -d shell
