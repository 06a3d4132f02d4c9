#!/usr/bin/env bash
# SPDX-FileCopyrightText: The Morvane developers
# Makes the pictures of manual/images anew from the running program, on a virtual display of 1366x768 in 24-bit
# colour, with the sample firms.
#
# usage: tools/manual_pictures.sh [PRESET]     (a build preset with tests; default tests)
#
# Needs a configured and built preset, and beside its packages xvfb, openbox (title bars of the windows) and
# poppler-utils (the sheet of the result report). It takes about a minute.
set -euo pipefail
cd "$(dirname "$0")/.."
. tools/packages.sh

need_packages "${build_packages[@]}" "${test_packages[@]}" "${picture_packages[@]}"
preset=${1:-tests}
bin=build/$preset/bin
if [ ! -f "build/$preset/build.ninja" ]; then
    cmake --preset "$preset"
fi
cmake --build --preset "$preset" --target manual_pictures morvane-batch templates

work=$(mktemp -d)
started=()
finish() {
    for process in "${started[@]}"; do
        kill "$process" 2>/dev/null || true
    done
    rm -rf "$work"
}
trap finish EXIT

# The windows and the settings of whoever runs this stay out of the pictures.
export HOME=$work XDG_CONFIG_HOME=$work/config XDG_DATA_HOME=$work/data XDG_RUNTIME_DIR=$work/run
mkdir -m 700 "$work/config" "$work/data" "$work/run"
unset WAYLAND_DISPLAY QT_SCALE_FACTOR QT_SCREEN_SCALE_FACTORS
export LANG=C.UTF-8 LC_ALL=C.UTF-8 QT_QPA_PLATFORM=xcb

Xvfb -displayfd 3 -screen 0 1366x768x24 -nolisten tcp 3>"$work/display" 2>"$work/xvfb.log" &
started+=($!)
for _ in $(seq 100); do
    [ -s "$work/display" ] && break
    sleep 0.1
done
DISPLAY=:$(cat "$work/display")
export DISPLAY
openbox >"$work/openbox.log" 2>&1 &
started+=($!)
sleep 1

"$bin/morvane-batch" init "$work/office" --edition 13 --mode multi --sample >"$work/init.log"
"$bin/morvane-batch" init "$work/own" --edition 13 --mode single --sample >>"$work/init.log"
python3 - "$work/office/install_info.json" <<'END'
import json, sys
info = json.load(open(sys.argv[1], encoding="utf-8"))
info["UserID"] = "A1024"
json.dump(info, open(sys.argv[1], "w", encoding="utf-8"), ensure_ascii=False, indent=2)
END
mkdir "$work/new" "$work/pictures"
# What the desktop's message bus keeps until the end is no leak of ours.
ASAN_OPTIONS=detect_leaks=0 timeout 300 "$bin/manual_pictures" "$work/office" "$work/own" "$work/new" "$work/pictures"

"$bin/morvane-batch" report "$work/office" --company 1 -o "$work/kekka.pdf" >"$work/report.log"
pdftoppm -r 110 -png -singlefile "$work/kekka.pdf" "$work/pictures/kekka"

cp "$work"/pictures/*.png manual/images/
ls -l manual/images
