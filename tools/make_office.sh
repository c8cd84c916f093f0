#!/usr/bin/env bash
# Makes an office: make_office.sh FOLDER PROGRAM [PORT]. Copies sample/ and creates its store. Adds the program and the
# two search programs of the same build, and sets the server's port in the settings.
set -euo pipefail
folder="$1"
program="$2"
port="${3:-18080}"
repository="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
sample="$repository/sample"

rm -rf "$folder"
mkdir -p "$folder"
cp -r "$sample/C" "$sample/registry.txt" "$folder/"
find "$folder" -name .gitkeep -delete
cat "$sample"/sql/{schema,masters,companies,locks}.sql | sqlite3 -bail "$folder/C/ORV/MDB/ORVESTATE.MDB"
sqlite3 -bail "$folder/C/ORV/MDB/TRANSMIT.MDB" <"$sample/sql/transmit.sql"
LC_ALL=C sed -i "s/127\.0\.0\.1:18080/127.0.0.1:$port/" "$folder/C/ORV/SYS/system.ini"
cp "$program" "$folder/C/ORV/BIN/KELT_COS.EXE"
searches="$(dirname "$program")/../../programs/search"
cp "$searches"/KELT_{ADD,LINE}.EXE "$folder/C/ORV/BIN/"
cp "$sample"/search/*.csv "$folder/C/ORV/BIN/DAT/"
cp -r "$repository/docs/ja/manual" "$repository/docs/pictures" "$folder/C/ORV/HLP/"
