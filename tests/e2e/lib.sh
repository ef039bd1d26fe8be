# The ground of the end-to-end tests: a virtual display, folders that last for one test, and the
# program in them. To be sourced by bash; VELMAR_BIN names the folder of the programs.
set -euo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=../../script/lib.sh
. "$here/../../script/lib.sh"
VELMAR_BIN=${VELMAR_BIN:-$here/../../build/release/bin}

fail() {
  printf 'FAILED: %s\n' "$*" >&2
  local log
  for log in "$box"/*/velmar.log; do
    [[ ! -s $log ]] || sed 's|^|  velmar: |' "$log" >&2
  done
  exit 1
}

skip() {
  printf 'skipped: %s\n' "$*"
  exit 77
}

needs() {
  local tool
  for tool in "$@"; do
    command -v "$tool" >/dev/null || skip "$tool isn't installed"
  done
}

# The path holds a blank and a letter outside ASCII, as real ones do.
box=$(mktemp -d "${TMPDIR:-/tmp}/velmar e2é.XXXXXX")
started=()
allGone() {
  local pid
  for pid in "${started[@]}"; do
    gone "$pid" || return 1
  done
}
cleanUp() {
  local pid
  # Asked first, so that those with children of their own end these.
  kill "${started[@]}" 2>/dev/null || true
  waitFor 10 allGone || true
  for pid in "${started[@]}"; do
    kill -9 "$pid" 2>/dev/null || true
  done
  wait 2>/dev/null || true
  # Keeps a failed test's folder on request, to look into it.
  if [[ -n ${VELMAR_KEEP:-} ]]; then
    printf 'kept: %s\n' "$box" >&2
  else
    rm -rf "$box"
  fi
}
trap cleanUp EXIT

# A zone in which it is noon now, so that no test runs over midnight.
noon=$((10#$(date -u +%H) - 12))
TZ=Etc/GMT$( ((noon == 0)) || printf '%+d' "$noon")
export TZ
# shellcheck disable=SC2034 # For the tests.
year=$(date +%Y)
# shellcheck disable=SC2034 # For the tests.
today=$(date +%m-%d)

# Nothing of the session that started the test reaches the program.
unset DBUS_SESSION_BUS_ADDRESS XMODIFIERS QT_IM_MODULE QT_SCALE_FACTOR QT_STYLE_OVERRIDE
for name in $(compgen -v DIARY_ || true); do
  unset "$name"
done

openDisplay() {
  needs Xvfb xdotool
  [[ -x $VELMAR_BIN/velmar ]] || fail "there is no program $VELMAR_BIN/velmar"
  startDisplay "$box" || fail "Xvfb doesn't start"
  started+=("$displayPid")
}

# person NAME: makes the folders of one user; the diary lies in "$box/NAME/diary".
person() {
  mkdir -p "$box/$1/diary"
  mkdir -m 700 "$box/$1"/{home,config,state,cache,data,runtime}
}

# as NAME COMMAND…: replaces this shell by the command, as that user. For subshells.
as() {
  local own=$box/$1
  shift
  exec env HOME="$own/home" XDG_CONFIG_HOME="$own/config" XDG_STATE_HOME="$own/state" \
    XDG_CACHE_HOME="$own/cache" XDG_DATA_HOME="$own/data" XDG_RUNTIME_DIR="$own/runtime" \
    DIARY_ROOT="$own/diary" "$@"
}

# startVelmar NAME [VARIABLE=value…]: starts the program, waits for its window and gives it the
# keys. Sets `velmarPid` and `window`.
startVelmar() {
  local name=$1
  shift
  (as "$name" "$@" "$VELMAR_BIN/velmar") >>"$box/$name/velmar.log" 2>&1 &
  velmarPid=$!
  started+=("$velmarPid")
  waitFor 30 hasWindowOrEnded >/dev/null || fail "no window appeared within 30 s"
  gone "$velmarPid" && fail "the program ended before it had a window"
  window=$(windowOf "$velmarPid")
  focusWindow "$window" || fail "the window doesn't take the focus"
}

hasWindowOrEnded() { windowOf "$velmarPid" || gone "$velmarPid"; }

killVelmar() {
  kill -9 "$velmarPid"
  wait "$velmarPid" 2>/dev/null || true
}

# shoot NAME PICTURE [VARIABLE=value…]: one scripted run, which ends by itself.
shoot() {
  local name=$1 picture=$2
  shift 2
  (as "$name" DIARY_SCREENSHOT="$picture" DIARY_SCREENSHOT_DELAY=0.3 "$@" \
    timeout -k 5 60 "$VELMAR_BIN/velmar") >>"$box/$name/velmar.log" 2>&1 ||
    fail "the scripted run of $name ended with status $?"
  [[ -s $picture ]] || fail "the scripted run of $name wrote no picture"
}

typeText() { xdotool type --delay 15 -- "$1"; }
press() { xdotool key --clearmodifiers "$@"; }

# expectFile SECONDS FILE TEXT: the file comes to hold exactly the text.
expectFile() {
  waitFor "$1" exactly "$2" "$3" && return
  printf 'expected in %s after %s s:\n%s\n' "$2" "$1" "$(printf '%s' "$3" | cat -A)" >&2
  printf 'found:\n%s\n' "$([[ -f $2 ]] && cat -A "$2" || echo '(no file)')" >&2
  fail "the file doesn't hold the text"
}
