#!/usr/bin/env python3
"""Checks that the parts of the sample office match each other and the program.

    tools/checks/sample.py [REPOSITORY]

Prints one line for each fault and ends with 1 when there is any.
"""

import configparser
import pathlib
import re
import struct
import sys

LONGEST_VALUE = 511

KEYS = {
    "PATH": "SYS BIN BINTMP BINDAT BINIMG BKUP HLP DWL IMG LOG LOGERR LOGRAS LOGSND LOGRCV LOGDWL LOGINST MDB TMP INF",
    "NET": "TYPE URL CUSSENDSERVICE SENDCUS SENDSERVICE SEND RECEIVESERVICE RECEIVE TIMEOUT INTERVAL NEXTINTERVAL "
    "USEPROXY PASSIVE FTPTIMEOUT FTPOVERWRITE RETRY ORVIMG ORVIMG_HTTP TRANSFERTYPE",
    "IMG": "LONG_W LONG_H MAXSIZE GIFIMGMODE",
    "UTILTY": "CSV GET_IMG",
    "VERSION": "MINOR",
    "LAN": "HIMSELF TYPE",
    "VIMBL": "VimblDir ChirasiDir MenuExeFile MenuStartPara MakeRomExeFile MakeRomStartPara ChintaiDir TenantoDir "
    "TochiDir MansionDir KodateDir",
}


def profile(path):
    """Returns the sections of a profile, and the faults in its bytes."""
    data = path.read_bytes()
    faults = []
    if data.count(b"\n") != data.count(b"\r\n"):
        faults.append(f"{path}: a line does not end in CR LF")
    for line in data.split(b"\r\n"):
        if len(line.partition(b"=")[2]) > LONGEST_VALUE:
            faults.append(f"{path}: a value is cut: {line[:40]!r}")
    parser = configparser.RawConfigParser(delimiters="=", comment_prefixes=";", empty_lines_in_values=False)
    try:
        parser.read_string(data.decode("cp932"), str(path))
    except (UnicodeDecodeError, configparser.Error) as fault:
        faults.append(f"{path}: {fault}")
    return parser, faults


def check_settings(office):
    settings, faults = profile(office / "C/ORV/SYS/system.ini")
    for section, keys in KEYS.items():
        faults += [f"system.ini: [{section}] {key} is missing" for key in keys.split() if not settings.get(
            section, key, fallback="")]
    folders = list(settings["PATH"].values()) + [settings["UTILTY"][key] for key in ("CSV", "GET_IMG")]
    for folder in folders:
        native = office / folder.replace(":", "").replace("\\", "/")
        if not native.is_dir():
            faults.append(f"system.ini: no folder {folder}")
    return settings, faults


def control_names(repository):
    """Returns the names of all controls from the forms' headers."""
    names = set()
    for header in (repository / "src/pages/forms").glob("*.h"):
        names |= set(re.findall(r'\*this, "([a-z]+_\w+)"', header.read_text(encoding="utf-8")))
    return names


def check_help(repository, office):
    help_file, faults = profile(office / "C/ORV/HLP/help.hlp")
    for section in ("SSX", "IMG"):
        for key, value in help_file[section].items():
            fields = value.split(",")
            if len(fields) != 2 or not all(fields):
                faults.append(f"help.hlp: [{section}] {key} has not its two fields")
    known = set(help_file["SSX"]) | set(help_file["IMG"])
    names = control_names(repository)
    if not names:
        faults.append("help.hlp: no controls found to compare it with")
    faults += [f"help.hlp: no line for {name}" for name in sorted(names) if name.lower() not in known]
    return faults


def jpeg_size(data):
    at = 2
    while data[at + 1] not in (0xC0, 0xC2):
        at += 2 + struct.unpack_from(">H", data, at + 2)[0]
    height, width = struct.unpack_from(">HH", data, at + 5)
    return width, height


def check_photos(office, limits):
    faults = []
    rows = (office / "sql/companies.sql").read_text(encoding="utf-8")
    for number, name in re.findall(r"PHOTO_FILE([12]) = '([^']+)'", rows):
        path = office / "C/ORV/IMG" / number / name
        if not path.is_file():
            faults.append(f"companies.sql: no photo {number}/{name}")
            continue
        data = path.read_bytes()
        width, height = jpeg_size(data)
        if width > int(limits["LONG_W"]) or height > int(limits["LONG_H"]) or len(data) > int(limits["MAXSIZE"]):
            faults.append(f"{path}: {width} x {height}, {len(data)} bytes are beyond the limits of the settings")
    return faults


def main():
    repository = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).parents[2])
    office = repository / "sample"
    settings, faults = check_settings(office)
    faults += check_help(repository, office)
    faults += check_photos(office, settings["IMG"])
    for fault in faults:
        print(fault)
    return 1 if faults else 0


sys.exit(main())
