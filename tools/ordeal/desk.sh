# Sourced by tools/ordeal/faults: a display, the real program on it, a hand, and what can be seen from outside.

worse=0     # expectations that were not met
tried=0     # all that were looked at
endings=()  # what to do at the end, last first
desk=       # a temporary folder
game=       # the program's folder
executable=korvane  # in it
program=    # the process of the program started last
server=     # the process of the display opened last

fail() {
  echo "tools/ordeal/faults: $*" >&2
  exit 2
}

as_root() { [ "$(id -u)" = 0 ] || fail "this needs root"; }

# Process numbers come round again: only what this script itself has started may be ended.
own() { [ "$(awk '/^PPid/ { print $2 }' "/proc/$1/status" 2>/dev/null)" = "$BASHPID" ]; }
end_own() { own "$2" && kill "$1" "$2"; }

at_end() { endings=("$(printf '%q ' "$@")" "${endings[@]}"); }

clean_up() {
  local ending
  for ending in "${endings[@]}"; do eval "$ending" 2>/dev/null; done
}

set_up() {
  install_missing $(packages libgtest-dev xvfb xdotool imagemagick) >&2
  configure || fail "cannot build"
  built korvane
  desk=$(mktemp -d)
  trap clean_up EXIT
  at_end rm -rf "$desk"
  open_display
}

built() { ninja -C build --quiet "$1" >&2 || fail "cannot build $1"; }
sanitized() {
  cmake --preset sanitized >/dev/null && ninja -C build-sanitized --quiet "$1" >&2 || fail "cannot build $1"
}

# What should be so, and the command that finds it true.
expect() {
  tried=$((tried + 1))
  "${@:2}" && return
  worse=$((worse + 1))
  echo "not so: $1 (${*:2})"
}

told() {
  echo "$tried things looked at, $worse not as expected"
  [ $worse = 0 ]
}

# Tries a command for 15 seconds.
eventually() {
  local end=$((SECONDS + 15))
  until "$@" >/dev/null 2>&1; do
    [ $SECONDS -lt $end ] || return 1
    sleep 0.05
  done
}

# The display and the hand.

# The server looks for a free number itself.
open_display() {
  : >"$desk/display"
  Xvfb -displayfd 3 -screen 0 800x600x24 -nolisten tcp -ac 3>"$desk/display" 2>/dev/null &
  server=$!
  disown
  at_end end_own -TERM "$server"
  eventually test -s "$desk/display" || fail "no display"
  DISPLAY=":$(<"$desk/display")"
  export DISPLAY
}

hand() { xdotool "$@" 2>/dev/null; }

look() { import -window root ppm:- 2>/dev/null | convert - "$@" 2>/dev/null; }
# Whether a part of the display, WxH+X+Y, has anything bright on it.
lit() { [ "$(look -crop "$1" -colorspace Gray -format '%[fx:maxima>0.15]' info:)" = 1 ]; }
field_is_up() { lit 2x25+400+540; }
field_is_gone() { ! field_is_up; }
something_is_up() { lit 800x600+0+0; }
yellow_row() {
  local share='%[fx:maxima.r>0.5]'
  [ "$(look -crop 450x370+250+150 -fuzz 20% -fill black +opaque yellow -format "$share" info:)" = 1 ]
}
picture() { look rgb:- | md5sum; }
picture_is_not() { [ "$(picture)" != "$1" ]; }
picture_changes() { eventually picture_is_not "$(picture)"; }

# The program.

# A folder with the program in it, and one block above the paddle to make records with.
settle() {
  game=$1
  rm -rf "$game"
  mkdir "$game"
  cp -r build/{korvane,levels,sons} "$game"
  printf 'pisca,0,500,10,0\r\n600,400,250,480,1\r\n2000,5000,250,2000,5\r\n' >"$game/levels/1.sav"
}

# Starts the program; the words are put before it.
start() {
  "$@" "$game/$executable" 2>"$desk/errors" &
  program=$!
  at_end end_own -KILL "$program"
}

close_help() {
  eventually something_is_up && eventually help_closed
}

help_closed() {
  field_is_up && return
  hand key Return
  sleep 0.3
  field_is_up
}

lose_game() {
  field_is_gone && return
  hand mousemove 5 300 sleep 0.1 click 1 mousemove 790 300  # the held ball has followed when it is launched
  sleep 0.7
  field_is_gone
}

# Ends a game with a record and goes on to the next.
make_record() {
  expect "the game of $1 comes to its end" eventually lose_game
  hand type --delay 60 "$1"
  hand key Return
  sleep 0.5
  expect "the table of $1 is shown" yellow_row
  hand key Escape
  expect "the next game after $1 comes up" eventually field_is_up
}

# Leaves the program over its table.
leave() {
  hand key Escape
  expect "the table is shown at the end" eventually field_is_gone
  hand key Escape
  expect "it ends in order" ended 0
}

gone() { ! own "$program"; }

# Whether the program ends in time, and with this status.
ended() {
  eventually gone || return
  wait "$program"
  [ $? = "$1" ]
}

visit() {
  expect "the game comes up" close_help
  make_record Um
  expect "the record is stored" holds Um
  leave
  expect "nothing is said" said 0
}

# Microseconds of a core that the program takes in a second, over some seconds of play.
processor() {
  local before after _
  hand key space
  read -r before _ <"/proc/$program/schedstat"
  sleep "$1"
  read -r after _ <"/proc/$program/schedstat"
  echo $(((after - before) / 1000 / $1))
}
memory() { awk '/^VmRSS/ { print $2 }' "/proc/$program/status"; }

# Its files.

# Ten records; anything but no points comes second.
table() {
  printf '"Campea"\r\n100000\r\n'
  printf '"Nome %d"\r\n0\r\n' {2..10}
}

whole() {
  tr -d '\r' <"$1" | awk 'NR % 2 ? !/^".*"$/ : !/^-?[0-9]+$/ { bad = 1 } END { exit bad || NR != 20 }'
}

# Whether all these names are in the records, and the file is whole.
holds() {
  local name
  for name in "$@"; do grep -qx "\"$name\".*" "$game/kv_his.dat" || return; done
  whole "$game/kv_his.dat"
}

said() {
  local lines
  lines=$(wc -l <"$desk/errors")
  [ "$lines" -ge "$1" ] && [ "$lines" -le "${2:-$1}" ]
}

only_own_files() { [ "$(cd "$game" && echo *)" = "config.ini $executable kv_his.dat levels sons" ]; }

# The sound server: the name of its process is in `sound`, and programs find it.
start_sound() {
  export PULSE_SERVER="unix:$desk/sound" XDG_RUNTIME_DIR="$desk"
  HOME="$desk" pulseaudio -n --daemonize=no --use-pid-file=no --exit-idle-time=-1 -L module-null-sink \
    -L "module-native-protocol-unix socket=$desk/sound auth-anonymous=1" 2>/dev/null &
  sound=$!
  disown
  at_end end_own -KILL "$sound"
  eventually pactl info || fail "no sound server"
}
heard() { [ -n "$(pactl list short sink-inputs)" ]; }
