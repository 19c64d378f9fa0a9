# Completion of @PROGRAM@ for bash, made from the table of options that the program reads its command line with.

# One line an option of the command: its name, the kind of its value and words to offer.
_@FUNCTION@_table() {
  case "$1" in
@TABLE@
  esac
}

# Offers files: those with one of the endings in whatever case, and folders; all of them without endings or where no file has
# one; only folders for "/". _NAME_files VALUE ENDING|ENDING
_@FUNCTION@_files() {
  local file path ending files=0
  local -a all=() fitting=()
  mapfile -t all < <(compgen -f -- "$1")
  for file in "${all[@]}"; do
    path=${file/#\~\//$HOME/}
    if [[ -d $path ]]; then
      fitting+=("$file")
    elif ending=${file##*.} && [[ "|$2|" == *"|${ending,,}|"* ]]; then
      fitting+=("$file")
      files=1
    fi
  done
  compopt -o filenames 2>/dev/null
  COMPREPLY=("${fitting[@]}")
  if [[ $files == 0 && $2 != / ]]; then COMPREPLY=("${all[@]}"); fi
}

# Offers those of the words that go on from the value.
_@FUNCTION@_words() {
  local word
  local -a words=()
  IFS='|' read -ra words <<<"$2"
  for word in "${words[@]}"; do
    [[ $word == "$1"* ]] && COMPREPLY+=("$word")
  done
}

# The same for a list joined by commas; a word that stands in it already is not offered again.
_@FUNCTION@_list() {
  local before=${1%"${1##*,}"} word
  local -a words=()
  IFS='|' read -ra words <<<"$2"
  for word in "${words[@]}"; do
    if [[ ",$before" != *",$word,"* && $before$word == "$1"* ]]; then COMPREPLY+=("$before$word"); fi
  done
  compopt -o nospace 2>/dev/null
}

# What the shell puts in begins behind the last of its own breaks in the word, so that much is cut from each reply.
_@FUNCTION@_cut() {
  local breaks='' cut k
  [[ $COMP_WORDBREAKS == *=* ]] && breaks+='='
  [[ $COMP_WORDBREAKS == *:* ]] && breaks+=':'
  [[ -n $breaks && $1 == *[$breaks]* ]] || return 0
  cut=${1%"${1##*["$breaks"]}"}
  for k in "${!COMPREPLY[@]}"; do COMPREPLY[k]=${COMPREPLY[k]#"$cut"}; done
}

_@FUNCTION@() {
  local current=${COMP_WORDS[COMP_CWORD]} typed=${COMP_LINE:0:COMP_POINT} start=$COMP_CWORD command='' option='' prefix=''
  local k word name kind words value quoted='' only_files=0 commands='@COMMANDS@'
  COMPREPLY=()

  # Where the word under the cursor begins: the shell breaks words at "=" and ":", too.
  while ((start > 1)) && [[ ${COMP_WORDS[start]} =~ ^[=:]+$ || ${COMP_WORDS[start - 1]} =~ ^[=:]+$ ]]; do ((start--)); done
  typed=${typed##*[[:space:]]}
  case "$current" in
    *[\\\"\']*)
      quoted=1
      typed=${current//[\\\"\']/}
      ;;
  esac

  for ((k = 1; k < start; k++)); do
    word=${COMP_WORDS[k]}
    if [[ $word == -- ]]; then only_files=1; fi
    if [[ -z $command && " $commands " == *" $word "* ]]; then command=$word; fi
  done

  # The option whose value is typed: in the same word or in the word before.
  value=$typed
  if [[ $typed == -*=* ]]; then
    option=${typed%%=*}
    prefix=$option=
    value=${typed#*=}
  elif ((start > 1)); then
    option=${COMP_WORDS[start - 1]}
  fi
  if [[ -n $option && $only_files == 0 ]]; then
    while read -r name kind words; do
      [[ $name == "$option" && $kind != flag ]] || continue
      case $kind in
        words) _@FUNCTION@_words "$value" "$words" ;;
        list) _@FUNCTION@_list "$value" "$words" ;;
        files) _@FUNCTION@_files "$value" "$words" ;;
        folders) _@FUNCTION@_files "$value" / ;;
      esac
      for k in "${!COMPREPLY[@]}"; do COMPREPLY[k]=$prefix${COMPREPLY[k]}; done
      if [[ $kind == words && -z $quoted ]]; then
        for k in "${!COMPREPLY[@]}"; do COMPREPLY[k]=${COMPREPLY[k]// /\\ }; done
      fi
      [[ -n $quoted ]] || _@FUNCTION@_cut "$typed"
      return 0
    done < <(_@FUNCTION@_table "$command")
  fi

  if [[ $typed == -* && $only_files == 0 ]]; then
    while read -r name kind words; do
      [[ $name == -* && $name == "$typed"* ]] && COMPREPLY+=("$name")
    done < <(_@FUNCTION@_table "$command")
    return 0
  fi
  if [[ -z $command && -n $commands ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$commands" -- "$typed")
    return 0
  fi
  while read -r name kind words; do
    [[ $name == FILES ]] && _@FUNCTION@_files "$typed" "$words"
  done < <(_@FUNCTION@_table "$command")
  [[ -n $quoted ]] || _@FUNCTION@_cut "$typed"
}

complete -F _@FUNCTION@ @PROGRAM@
