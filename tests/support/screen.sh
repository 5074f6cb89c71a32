# What shell tests of programs on a screen share, to be sourced: a home that goes with the test, and
# looks that are repeated until they succeed. It starts nothing.

LONGEST_WAIT=${ZOKA_WALK_WAIT:-60} # seconds

# A test may have its own, which tells more.
fail() {
  printf '%s: %s\n' "${0##*/}" "$*" >&2
  exit 1
}

# make_home: $HERE, with all that a program keeps for its user. Whoever calls it removes that.
make_home() {
  HERE=$(mktemp -d)
  export HOME=$HERE XDG_CONFIG_HOME=$HERE/config XDG_DATA_HOME=$HERE/data XDG_RUNTIME_DIR=$HERE
  export LANG=C.UTF-8 LC_ALL=C.UTF-8 QT_QPA_PLATFORM=xcb
  unset WAYLAND_DISPLAY
}

# until_true WHAT COMMAND...: looks again and again until the command succeeds.
until_true() {
  local what=$1 end=$((SECONDS + LONGEST_WAIT))
  shift
  until "$@" >/dev/null 2>&1; do
    [ $SECONDS -lt $end ] || fail "waited in vain for: $what"
    read -rt 0.05 <> <(:) || true
  done
}

# shown TITLE: a window whose title has this expression is on the screen.
shown() { [ -n "$(xdotool search --onlyvisible --name "$1" 2>/dev/null)" ]; }
# holds FILE TEXT
holds() { [ -f "$1" ] && [ "$(cat "$1")" = "$2" ]; }
# gone PID
gone() { ! kill -0 "$1" 2>/dev/null; }
