#!/usr/bin/env bash
# Builds and starts the device simulator and, against it, the panel's link
# probe, which prints once a second what the panel knows of the device.
# Ctrl-C stops both. Options:
#   --state FILE   start the simulator from a saved device state (see sim/examples/)
#   --port N       topic port to use (default 15000; requests go over ipc in a temp folder)
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${BUILD_DIR:-$root/build}
state=""
port=15000
while [ $# -gt 0 ]; do
  case "$1" in
    --state) state=$(cd "$(dirname "$2")" && pwd)/$(basename "$2"); shift 2 ;;
    --port) port=$2; shift 2 ;;
    *) echo "demo: unknown option $1" >&2; exit 2 ;;
  esac
done

bash "$root/scripts/build.sh" panel-sim panel-link-probe

rundir=$(mktemp -d /tmp/panel-demo-XXXXXX)
export PANEL_BACKEND_IPC_DIR=$rundir PANEL_BACKEND_TOPIC_PORT=$port
export PANEL_LANGUAGE_FILE=$root/resources/language/language-vantor-ui.json

sim_args=(--ipc-dir "$rundir" --topic-port "$port")
[ -n "$state" ] && sim_args+=(--state "$state")
"$build/sim/panel-sim" "${sim_args[@]}" > "$rundir/sim.log" 2>&1 &
sim_pid=$!
cleanup() {
  kill "$sim_pid" 2>/dev/null && wait "$sim_pid" 2>/dev/null
  rm -rf "$rundir"
}
trap cleanup EXIT
trap 'exit 130' INT TERM

for _ in $(seq 100); do
  [ -S "$rundir/webserver.sock" ] && break
  kill -0 "$sim_pid" 2>/dev/null || { cat "$rundir/sim.log"; exit 1; }
  sleep 0.05
done
echo "demo: simulator running (request log: $rundir/sim.log, control: $rundir/panel-sim.ctl)"
"$build/panel-link-probe"
