#!/usr/bin/env python3
"""Converts a folder of real media files with fitting presets and checks every result by decoding it.

  tests/real/check.py FOLDER [--kalvoractl PROGRAM] [--only TEXT] [--presets NAME,...]

FOLDER is one that fetch.sh has filled, or any other; nothing is written there. Prints one line for each finding:

  ended     the program ended without its report, so that other files were lost with this one
  wrong     a result that was called successful does not decode, has other contents or a wrong length
  failed    the conversion failed although ffmpeg or ImageMagick alone can convert the file
  rejected  the file was not accepted although ffmpeg or ImageMagick alone can read it

Needs ffmpeg and imagemagick. The exit status is 1 if a file ended the program or a result is wrong.
"""

import argparse
import concurrent.futures
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile

PRESETS = {"audio": ["MP3", "FLAC"], "video": ["MP4", "MKV"], "picture": ["PNG", "JPEG"]}
BATCH = 30
TIMEOUT = 300  # seconds for one run of another program
GRID = 16  # pictures are compared as this many pixels each way
LARGEST_DIFFERENCE = 20  # of 255, on average


def run(arguments, timeout=TIMEOUT, **options):
    try:
        return subprocess.run(arguments, stdin=subprocess.DEVNULL, capture_output=True, timeout=timeout, **options)
    except subprocess.TimeoutExpired:
        return subprocess.CompletedProcess(arguments, -1, b"", b"time out")


class Findings:
    def __init__(self):
        self.counts = {}

    def add(self, kind, path, text):
        self.counts[kind] = self.counts.get(kind, 0) + 1
        print(f"{kind:9} {path}: {text}", flush=True)


class Program:
    """kalvoractl with a home folder of its own."""

    def __init__(self, path, home):
        self.path = path
        self.environment = dict(os.environ, HOME=home, LC_ALL="C.UTF-8")
        for name in list(self.environment):
            if name.startswith("XDG_"):
                del self.environment[name]

    def report(self, arguments, files):
        """The objects of a JSON report by input path; empty if the program gave none."""
        command = [self.path, *arguments, "--json", "--no-questions", "--", *files]
        done = run(command, timeout=TIMEOUT * 4, env=self.environment)
        try:
            objects = json.loads(done.stdout)
        except ValueError:
            return done, {}
        return done, {(entry["input"][0] if "input" in entry else entry["path"]): entry for entry in objects}

    def reports(self, arguments, files, findings):
        """Like `report` for many files; a batch that fails as a whole is repeated file by file."""
        result = {}
        for begin in range(0, len(files), BATCH):
            batch = files[begin : begin + BATCH]
            _, objects = self.report(arguments, batch)
            if not objects:
                for file in batch:
                    done, single = self.report(arguments, [file])
                    objects.update(single)
                    if not single:
                        findings.add("ended", file, f"{' '.join(arguments)}: status {done.returncode}, "
                                     + done.stderr.decode(errors="replace").strip()[-160:])
            result.update(objects)
        return result


def decoded_seconds(path):
    """How long what can be decoded of a file is; None if nothing can."""
    done = run(["ffmpeg", "-nostdin", "-v", "error", "-stats", "-i", path, "-f", "null", "-"])
    times = re.findall(r"time=(\d+):(\d+):([\d.]+)", done.stderr.decode(errors="replace"))
    if done.returncode != 0 or not times:
        return None
    hours, minutes, seconds = times[-1]
    return int(hours) * 3600 + int(minutes) * 60 + float(seconds)


def is_opaque_bitmap(path):
    """True for BMP files whose header names no transparency; ImageMagick takes the unused byte of a pixel for it."""
    with open(path, "rb") as file:
        start = file.read(34)
    return len(start) == 34 and start[:2] == b"BM" and start[14] == 40 and start[30] == 0


ORIENTATIONS = ["TopLeft", "TopRight", "BottomRight", "BottomLeft", "LeftTop", "RightTop", "RightBottom", "LeftBottom"]


def orientation_of_png(path):
    """As an option of ImageMagick, which does not look for it in the eXIf chunk; empty for other files."""
    with open(path, "rb") as file:
        content = file.read()
    begin = content.find(b"eXIf") + 4
    if not content.startswith(b"\x89PNG") or begin == 3 or content[begin : begin + 2] not in (b"II", b"MM"):
        return []
    order = "little" if content[begin : begin + 2] == b"II" else "big"

    def number(at, size):
        return int.from_bytes(content[begin + at : begin + at + size], order)

    directory = number(4, 4)
    for entry in range(directory + 2, directory + 2 + 12 * number(directory, 2), 12):
        if number(entry, 2) == 0x112 and 1 <= number(entry + 8, 2) <= 8:
            return ["-orient", ORIENTATIONS[number(entry + 8, 2) - 1]]
    return []


def picture(path):
    """Width, height and a small version of a picture as bytes; None if ImageMagick cannot read it."""
    source = f"{path}[0]"
    opaque = ["-alpha", "off"] if is_opaque_bitmap(path) else []
    orient = [*orientation_of_png(path), "-auto-orient"]
    size = run(["convert-im6", source, *orient, "-format", "%w %h", "info:"])
    small = run(["convert-im6", source, *orient, *opaque, "-colorspace", "sRGB", "-background", "white", "-alpha", "remove",
                 "-depth", "8", "-resize", f"{GRID}x{GRID}!", "rgb:-"])
    if size.returncode or small.returncode or len(small.stdout) != GRID * GRID * 3:
        return None
    return (*map(int, size.stdout.split()[:2]), small.stdout)


def decodes(path):
    return run(["ffmpeg", "-nostdin", "-v", "error", "-xerror", "-i", path, "-f", "null", "-"]).returncode == 0


def picture_by_ffmpeg(path):
    """Like `picture`, but read by ffmpeg."""
    with tempfile.TemporaryDirectory() as folder:
        copy = os.path.join(folder, "copy.png")
        run(["ffmpeg", "-nostdin", "-v", "error", "-i", path, "-frames:v", "1", copy])
        return picture(copy) if os.path.exists(copy) else None


def difference_of(wanted, found):
    if wanted[:2] != found[:2]:
        return f"{found[0]}x{found[1]} instead of {wanted[0]}x{wanted[1]}"
    difference = sum(abs(a - b) for a, b in zip(wanted[2], found[2])) / len(wanted[2])
    return f"differs by {difference:.0f} of 255" if difference > LARGEST_DIFFERENCE else None


def check_picture(source, result):
    """ImageMagick misreads some TIFF and GIF files: these are wrong if they are not like ffmpeg's reading either."""
    wanted, found = picture(source), picture(result)
    if wanted is None:  # nothing to compare with; sides beyond ImageMagick's limit, for example
        return None if found or decodes(result) else "the result cannot be read"
    if found is None:
        return "the result cannot be read"
    fault = difference_of(wanted, found)
    other = picture_by_ffmpeg(source) if fault and re.search(r"\.(tiff?|gif)$", source, re.I) else None
    return None if other and not difference_of(other, found) else fault


def plainly_converted_seconds(source, ending):
    """The length of what ffmpeg makes of a file without further options; it may hold the last picture for long."""
    with tempfile.TemporaryDirectory() as folder:
        result = os.path.join(folder, "plain" + ending)
        run(["ffmpeg", "-nostdin", "-v", "error", "-i", source, result])
        return decoded_seconds(result)


def check_recording(source, result, warnings):
    found, wanted = decoded_seconds(result), decoded_seconds(source)
    if found is None:
        # Raw streams of one or two frames are not recognised by any program.
        is_tiny = wanted is not None and wanted < 0.1
        return None if is_tiny and warnings else "the result cannot be decoded"
    if wanted is None or warnings:
        return None

    def is_near(seconds):
        return abs(found - seconds) <= max(1, seconds * 0.05)

    if is_near(wanted):
        return None
    plain = plainly_converted_seconds(source, pathlib.Path(result).suffix)
    return None if plain is not None and is_near(plain) else f"{found:.2f} s instead of {wanted:.2f} s"


def is_readable_otherwise(path, kind):
    if kind == "picture":
        return picture(path) is not None
    return (decoded_seconds(path) or 0) > 0


def check_converted(source, entry, kind, preset, findings):
    if not entry["successful"]:
        if is_readable_otherwise(source, kind):
            findings.add("failed", source, f"{preset}: {entry['error']}")
        return
    result = entry["output"]
    if not result or not os.path.exists(result):
        findings.add("wrong", source, f"{preset}: there is no result")
        return
    fault = (check_picture(source, result) if kind == "picture"
             else check_recording(source, result, entry.get("warnings")))
    if fault:
        findings.add("wrong", source, f"{preset}: {fault}")
    os.unlink(result)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    root = pathlib.Path(__file__).resolve().parents[2]
    parser.add_argument("folder")
    parser.add_argument("--kalvoractl", default=str(root / "build/release/bin/kalvoractl"))
    parser.add_argument("--only", default="", help="check files whose path contains this text")
    parser.add_argument("--presets", default="", help="use these instead of the usual ones")
    options = parser.parse_args()
    files = sorted(str(path) for path in pathlib.Path(options.folder).resolve().rglob("*")
                   if path.is_file() and options.only in str(path))
    findings = Findings()
    with tempfile.TemporaryDirectory() as folder, concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        program = Program(options.kalvoractl, folder)
        probed = program.reports(["probe"], files, findings)
        kinds = {path: entry.get("type") for path, entry in probed.items()}
        for path, entry in probed.items():
            picture_like = re.search(r"\.(tiff?|png|jpe?g|psd|bmp|icns|gif|hei[cf])$", path, re.I)
            if entry.get("error") and is_readable_otherwise(path, "picture" if picture_like else "video"):
                findings.add("rejected", path, entry["error"]["reason"])
        conversions = 0
        for kind, presets in PRESETS.items():
            chosen = [path for path, value in kinds.items() if value == kind]
            for preset in options.presets.split(",") if options.presets else presets:
                to = os.path.join(folder, "results", preset)
                os.makedirs(to, exist_ok=True)
                done = program.reports(["convert", "--preset", preset, "--to", to], chosen, findings)
                conversions += len(done)
                list(pool.map(lambda item: check_converted(item[0], item[1], kind, preset, findings), done.items()))
    print(f"{len(files)} files, {conversions} conversions; "
          + (", ".join(f"{number} {kind}" for kind, number in sorted(findings.counts.items())) or "nothing found"))
    return 1 if findings.counts.get("ended") or findings.counts.get("wrong") else 0


if __name__ == "__main__":
    sys.exit(main())
