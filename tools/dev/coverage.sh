# Measures the lines of src/ that the tests execute, per folder. The others are listed in build/coverage/missed.txt.

coverage() {
    PACKAGES+=(gcovr)
    needPackages
    buildPreset coverage
    find build/coverage -name '*.gcda' -delete
    python3 tools/dev/report_tests.py coverage || true
    gcovr --root . --filter src/ --exclude-throw-branches --json build/coverage/lines.json -j2 build/coverage/CMakeFiles build/coverage/src
    python3 - build/coverage/lines.json build/coverage/missed.txt <<'PYTHON'
import collections, json, os, sys

walked, all_lines, missed = collections.Counter(), collections.Counter(), []
for file in json.load(open(sys.argv[1]))["files"]:
    lines = [line for line in file["lines"] if not line["gcovr/noncode"]]
    folder = os.path.dirname(file["file"])
    all_lines[folder] += len(lines)
    walked[folder] += sum(line["count"] > 0 for line in lines)
    missed += [f'{file["file"]}:{line["line_number"]}' for line in lines if line["count"] == 0]
for folder in sorted(all_lines):
    print(f"{folder:32} {walked[folder]:5} of {all_lines[folder]:5} lines  {100 * walked[folder] / all_lines[folder]:5.1f} %")
print(f"{'all':32} {walked.total():5} of {all_lines.total():5} lines  {100 * walked.total() / all_lines.total():5.1f} %")
open(sys.argv[2], "w").write("\n".join(missed) + "\n")
PYTHON
}
