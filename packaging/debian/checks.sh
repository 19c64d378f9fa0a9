# Shared by the checks: what ran well is said in a line, what did not with its output, and the end tells how many failed.
# shellcheck shell=bash
failed=0
passed=0

# check NAME COMMAND...: one check; a command that is missing fails like any other, and so does any step of a function.
check() {
  local name=$1 output status=0
  shift
  set +e  # in a condition, the steps of a function could fail unnoticed
  output=$(set -e; "$@" 2>&1)
  status=$?
  set -e
  if [ "$status" -eq 0 ]; then
    passed=$((passed + 1))
    echo "ok      $name"
  else
    failed=$((failed + 1))
    echo "FAILED  $name (status $status)"
    printf '%s\n' "${output:-no output}" | tail -40 | sed 's/^/        /'
  fi
}

# At the end: how it went. Too few checks are a failure, too: none may be skipped.
finish() {
  echo "$1: $passed passed, $failed failed"
  if [ "$((passed + failed))" -ne "$2" ]; then
    echo "$1: $2 checks were to run" >&2
    exit 1
  fi
  [ "$failed" -eq 0 ]
}

# The programs that the checks call are there, or nothing begins.
need() {
  local program missing=0
  for program in "$@"; do
    if ! command -v "$program" >/dev/null; then
      echo "missing program: $program" >&2
      missing=1
    fi
  done
  [ "$missing" -eq 0 ] || exit 1
}

version=$(sed -n 's/^project(Corvan VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
[ -n "$version" ] || { echo "CMakeLists.txt names no version" >&2; exit 1; }
