#!/usr/bin/env bash
# scripts/check-accessibility.sh [BUILD_DIR]
#
# Reads the window as a screen reader does, through the real AT-SPI bus: starts
# a virtual X server (Xvfb), a D-Bus session and the accessibility bus
# (at-spi-bus-launcher), runs the built window (BUILD_DIR/src/ui/tessaly,
# default build/) from a scratch copy of its folder with Qt's bridge to the bus
# switched on, and has scripts/read-accessibility.py read the board, the
# choices and the event log with pyatspi, press the puzzle frame's Next and
# read them again. Fails when a cell, a log line or a control has no name.
#
# Installs what it needs when missing (xvfb, dbus-x11, at-spi2-core,
# python3-pyatspi), as scripts/deps.sh installs the build's packages.
set -euo pipefail

build=${1:-build}
build=$(cd "$build" && pwd -P)
cd "$(dirname "$0")/.."
root=$(pwd -P)

source scripts/deps.sh
TESSALY_ACCESSIBILITY_PACKAGES=(xvfb dbus-x11 at-spi2-core python3-pyatspi)
tessaly_install_packages "${TESSALY_ACCESSIBILITY_PACKAGES[@]}"

program=$build/src/ui/tessaly
if [ ! -x "$program" ]; then
  echo "check-accessibility: $program is not built" >&2
  exit 2
fi
launcher=
for candidate in /usr/libexec/at-spi-bus-launcher /usr/lib/at-spi2-core/at-spi-bus-launcher; do
  [ -x "$candidate" ] && launcher=$candidate && break
done
if [ -z "$launcher" ]; then
  echo "check-accessibility: at-spi-bus-launcher not found" >&2
  exit 2
fi

scratch=$(mktemp -d)
pids=()
cleanup() {
  local pid
  for ((i = ${#pids[@]} - 1; i >= 0; i--)); do
    pid=${pids[i]}
    kill "$pid" 2>/dev/null || true
    wait "$pid" 2>/dev/null || true
  done
  [ -n "${DBUS_SESSION_BUS_PID:-}" ] && kill "$DBUS_SESSION_BUS_PID" 2>/dev/null || true
  rm -rf "$scratch"
}
trap cleanup EXIT

# The window's folder as the build makes it: the program beside its data.
app=$scratch/app
mkdir -p "$app" "$scratch/home" "$scratch/runtime"
chmod 700 "$scratch/runtime"
cp "$program" "$app/"
(cd data && find . -type f ! -name make-puzzles.sh) | while read -r file; do
  mkdir -p "$app/$(dirname "$file")"
  cp "$build/src/ui/$file" "$app/$file"
done
export HOME=$scratch/home XDG_CONFIG_HOME=$scratch/home/.config XDG_RUNTIME_DIR=$scratch/runtime

# A display of its own: Xvfb picks a free number and writes it to fd 3.
exec 3>"$scratch/display"
Xvfb -displayfd 3 -screen 0 1600x1000x24 -nolisten tcp >"$scratch/xvfb.log" 2>&1 &
pids+=($!)
exec 3>&-
for _ in $(seq 50); do
  [ -s "$scratch/display" ] && break
  sleep 0.1
done
export DISPLAY=:$(head -n 1 "$scratch/display")

# A D-Bus session of its own, and the accessibility bus on it.
eval "$(dbus-launch --sh-syntax)"
"$launcher" --launch-immediately >"$scratch/launcher.log" 2>&1 &
pids+=($!)
sleep 1

QT_QPA_PLATFORM=xcb QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 QT_ACCESSIBILITY=1 \
  "$app/tessaly" >"$scratch/tessaly.log" 2>&1 &
pids+=($!)

status=0
/usr/bin/python3 "$root/scripts/read-accessibility.py" Tessaly 30 || status=$?
if [ "$status" -ne 0 ]; then
  echo "check-accessibility: the window's output:" >&2
  cat "$scratch/tessaly.log" >&2
fi
exit "$status"
