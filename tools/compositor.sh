# Sourced by scripts that play on Wayland: a compositor in the X server of DISPLAY.

# Starts one that fills SIZE (WxH) at SCALE. From then on programs find it, and its process is in `compositor`. It
# does not run as root; then it runs as nobody.
open_compositor() {
  local as_nobody=() try
  install_missing sway >&2
  XDG_RUNTIME_DIR=$(mktemp -d)
  printf '%s\n' "xwayland disable" "output X11-1 mode --custom $1" "output X11-1 scale $2" >"$XDG_RUNTIME_DIR/config"
  if [ "$(id -u)" = 0 ]; then
    chown nobody "$XDG_RUNTIME_DIR"
    as_nobody=(setpriv --reuid=nobody --regid=nogroup --clear-groups)
  fi
  WLR_BACKENDS=x11 WLR_RENDERER=pixman XDG_RUNTIME_DIR=$XDG_RUNTIME_DIR HOME=$XDG_RUNTIME_DIR \
    "${as_nobody[@]}" sway -c "$XDG_RUNTIME_DIR/config" >/dev/null 2>&1 &
  compositor=$!
  disown
  for ((try = 0; try < 150; try++)); do
    WAYLAND_DISPLAY=$(cd "$XDG_RUNTIME_DIR" && find . -name 'wayland-*' -type s -printf '%f')
    export XDG_RUNTIME_DIR WAYLAND_DISPLAY
    [ -z "$WAYLAND_DISPLAY" ] || return 0
    sleep 0.1
  done
  return 1
}

# Closes the one that is open, if any is. One that is busy with its own end gets five seconds for it.
close_compositor() {
  local try
  [ -n "${compositor-}" ] || return 0
  for ((try = 0; try < 50; try++)); do
    kill "$compositor" 2>/dev/null || break
    sleep 0.1
  done
  kill -KILL "$compositor" 2>/dev/null
  rm -rf "$XDG_RUNTIME_DIR"
  unset compositor XDG_RUNTIME_DIR WAYLAND_DISPLAY
}
