#!/usr/bin/env bash
# Makes an office to work in: a copy of sample/ with its store, the program and its two search programs (of the same
# build) in their folder, and the server's port in the settings.   make_office.sh FOLDER PROGRAM [PORT]
set -euo pipefail
folder="$1"
program="$2"
port="${3:-18080}"
sample="$(cd "$(dirname "${BASH_SOURCE[0]}")/../sample" && pwd)"

rm -rf "$folder"
mkdir -p "$folder"
cp -r "$sample/C" "$sample/registry.txt" "$folder/"
find "$folder" -name .gitkeep -delete
cat "$sample"/sql/{schema,masters,companies,locks}.sql | sqlite3 -bail "$folder/C/ORV/MDB/ORVESTATE.MDB"
sqlite3 -bail "$folder/C/ORV/MDB/TRANSMIT.MDB" <"$sample/sql/transmit.sql"
LC_ALL=C sed -i "s/127\.0\.0\.1:18080/127.0.0.1:$port/" "$folder/C/ORV/SYS/system.ini"
cp "$program" "$folder/C/ORV/BIN/KELT_COS.EXE"
searches="$(dirname "$program")/../../tools/search"
cp "$searches"/KELT_{ADD,LINE}.EXE "$folder/C/ORV/BIN/"
cp "$sample"/search/*.csv "$folder/C/ORV/BIN/DAT/"
