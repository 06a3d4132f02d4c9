#!/usr/bin/env bash
# SPDX-FileCopyrightText: The Morvane developers
# Formats all sources by .clang-format, with the version of Debian 12 so that everyone's result is the same.
#
# usage: tools/format.sh [--check]     (--check changes nothing, names what differs and fails)
set -euo pipefail
cd "$(dirname "$0")/.."

action=(-i)
if [ "${1:-}" = --check ]; then
    action=(--dry-run -Werror)
fi
find src tests bench tools \( -name '*.cpp' -o -name '*.h' \) -print0 |
    xargs -0 -n 32 -P "$(nproc)" clang-format-14 "${action[@]}"
