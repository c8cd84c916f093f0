#!/usr/bin/env bash
# Compares the pictures of docs/ with the program. Ends with 77 on a machine without the Japanese font of
# `./dev packages`.   pictures.sh OPERATOR PROGRAM
set -euo pipefail
tools="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
[ "$(dpkg-query -W -f='${db:Status-Status}' fonts-noto-cjk 2>/dev/null)" = installed ] || exit 77
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
"$tools/make_office.sh" "$work/office" "$2"
"$1" shots "$work/office" "$work/pictures"
"$tools/checks/pictures.py" "$tools/../docs/pictures" "$work/pictures"
