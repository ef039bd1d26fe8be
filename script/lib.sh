# What the scripts and the end-to-end tests share; to be sourced by bash.

# waitFor SECONDS COMMAND…: runs the command every 50 ms until it succeeds; fails at the deadline.
waitFor() {
  local deadline=$((SECONDS + $1))
  shift
  until "$@"; do
    ((SECONDS <= deadline)) || return 1
    sleep 0.05
  done
}

# gone PID: whether a child of this shell has ended.
gone() {
  ! kill -0 "$1" 2>/dev/null
}

# startDisplay FOLDER: starts an X server without a screen on a free display, sets DISPLAY and
# `displayPid`, and leaves its log in the folder. Whoever calls it ends it.
startDisplay() {
  local folder=$1
  # Without -noreset the server begins anew whenever its last client goes, and the next one that
  # comes in that moment is refused.
  Xvfb -displayfd 3 -screen 0 1600x1000x24 -nolisten tcp -noreset \
    3>"$folder/display" >"$folder/display.log" 2>&1 &
  # shellcheck disable=SC2034 # The caller ends the display by it.
  displayPid=$!
  if ! waitFor 20 test -s "$folder/display"; then
    cat "$folder/display.log" >&2
    return 1
  fi
  DISPLAY=:$(<"$folder/display")
  export DISPLAY QT_QPA_PLATFORM=xcb
  unset WAYLAND_DISPLAY
}

# windowOf PID: prints the id of the visible window of a process; fails while there is none.
windowOf() {
  local windows
  windows=$(xdotool search --onlyvisible --pid "$1" 2>/dev/null) || return 1
  [[ -n $windows ]] && printf '%s\n' "${windows##*$'\n'}"
}

# hasFocus WINDOW: whether keys go to the window.
hasFocus() {
  [[ $(xdotool getwindowfocus -f 2>/dev/null) == "$1" ]]
}

# focusWindow WINDOW: sends keys to it from now on. There is no window manager to ask.
focusWindow() {
  xdotool windowfocus "$1" && waitFor 10 hasFocus "$1"
}

# exactly FILE TEXT: whether the file holds the text and nothing else.
exactly() {
  [[ -f $1 ]] && printf '%s' "$2" | cmp -s - "$1"
}
