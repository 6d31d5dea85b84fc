#!/usr/bin/env bash
# Builds and starts the device simulator and the panel against it. Ctrl-C
# stops both. With a display the panel opens its 640 x 172 window; without one
# it runs under Xvfb and writes what it shows to a PNG once a second.
# Options:
#   --decode          start the device in decode mode
#   --locked          start with the LCD locked (long-press to unlock)
#   --language N      0 Chinese, 1 English, 2 Portuguese, 3 French, 4 Japanese
#   --theme NAME      black or blue
#   --state FILE      start the simulator from a saved device state (see sim/examples/)
#   --shots DIR       where the screenshots go (default: a folder under /tmp)
#   --port N          topic port (default 15000; requests go over ipc in a temp folder)
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${BUILD_DIR:-$root/build}
state="" port=15000 shots="" workmode="" locked="" language="" theme=""
while [ $# -gt 0 ]; do
  case "$1" in
    --decode) workmode=1; shift ;;
    --locked) locked=1; shift ;;
    --language) language=$2; shift 2 ;;
    --theme) case "$2" in black) theme=0 ;; blue) theme=1 ;; *) echo "demo: theme is black or blue" >&2; exit 2 ;; esac; shift 2 ;;
    --state) state=$(cd "$(dirname "$2")" && pwd)/$(basename "$2"); shift 2 ;;
    --shots) shots=$2; shift 2 ;;
    --port) port=$2; shift 2 ;;
    *) echo "demo: unknown option $1" >&2; exit 2 ;;
  esac
done

bash "$root/scripts/build.sh" panel-sim panel

rundir=$(mktemp -d /tmp/panel-demo-XXXXXX)
export PANEL_BACKEND_IPC_DIR=$rundir PANEL_BACKEND_TOPIC_PORT=$port
export PANEL_LANGUAGE_FILE=$root/resources/language/language-vantor-ui.json
# The test command pipe lets a headless user drive the panel by text.
export VANTOR_GUI_TEST_CMD=1 VANTOR_GUI_TEST_CMD_PATH=$rundir/panel.cmd

pids=()
cleanup() {
  for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null || true; done
  for pid in "${pids[@]}"; do wait "$pid" 2>/dev/null || true; done
  rm -rf "$rundir"
}
trap cleanup EXIT
trap 'exit 130' INT TERM

# The options become control commands run as the simulator starts, on top of
# its defaults or the saved state.
sim_args=(--ipc-dir "$rundir" --topic-port "$port")
[ -n "$state" ] && sim_args+=(--state "$state")
{
  [ -n "$workmode" ] && echo "set /system/workmode_id $workmode"
  [ -n "$language" ] && echo "set /system/language_id $language"
  [ -n "$locked" ] && echo "set /lcd/lock_stat 1"
  [ -n "$theme" ] && echo "set /lcd/lcd_theme_id $theme"
  true
} > "$rundir/options.txt"
sim_args+=(--script "$rundir/options.txt")
"$build/sim/panel-sim" "${sim_args[@]}" > "$rundir/sim.log" 2>&1 &
pids+=($!)
for _ in $(seq 100); do
  [ -S "$rundir/webserver.sock" ] && break
  kill -0 "${pids[0]}" 2>/dev/null || { cat "$rundir/sim.log"; exit 1; }
  sleep 0.05
done

if [ -z "${DISPLAY:-}" ]; then
  shots=${shots:-/tmp/panel-demo-screens}
  mkdir -p "$shots"
  export PANEL_SCREENSHOT_DIR=$shots
  display=:$((90 + RANDOM % 100))
  Xvfb "$display" -screen 0 640x172x24 -nolisten tcp > "$rundir/xvfb.log" 2>&1 &
  pids+=($!)
  export DISPLAY=$display
  for _ in $(seq 100); do
    [ -e "/tmp/.X11-unix/X${display#:}" ] && break
    sleep 0.05
  done
  echo "demo: no display; the panel runs under Xvfb and shows itself in $shots/panel.png"
elif [ -n "$shots" ]; then
  export PANEL_SCREENSHOT_DIR=$shots
fi

echo "demo: simulator log $rundir/sim.log; change the device with: echo 'help' | nc -U $rundir/panel-sim.ctl"
echo "demo: drive the panel with: echo 'swipe left' > $rundir/panel.cmd"
"$build/panel" &
pids+=($!)
wait "${pids[-1]}"
