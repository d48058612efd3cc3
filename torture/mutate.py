#!/usr/bin/env python3
"""Places faults in a copy of the sources, one at a time, and tells those that no test sees."""

import argparse
import json
import os
import random
import re
import shutil
import signal
import subprocess
import sys
import time
from pathlib import Path
from typing import NamedTuple

ROOT = Path(__file__).resolve().parent.parent
ROOMS = ("lib", "platform", "tools")
HARMLESS = Path(__file__).with_name("mutate_harmless.txt")
TEST_PROGRAMS = ("tests/zelxml_tests", "tests/work/zelxml_work_tests")
PROGRAM_TARGETS = [Path(program).name for program in TEST_PROGRAMS]


class Fault(NamedTuple):
    file: str
    line: int  # from 0
    start: int
    end: int
    new: str
    kind: str


# --- Where faults can be placed ----------------------------------------------------------------------------

# Operators with what stands for them. Blanks on both sides keep templates and references out.
TURNED = {" == ": " != ", " != ": " == ", " < ": " <= ", " <= ": " < ", " > ": " >= ", " >= ": " > ",
          " + ": " - ", " - ": " + ", " * ": " + ", " += ": " -= ", " -= ": " += "}
SWAPPED = {" && ": " || ", " || ": " && "}
OPERATOR = re.compile("|".join(re.escape(op) for op in sorted({**TURNED, **SWAPPED}, key=len, reverse=True)))
NEGATION = re.compile(r"(?<![\w)\]])!(?=[\w(])")
FIXED_RESULT = re.compile(r"\breturn (true|false);")
RESULT = re.compile(r"^\s*return (?!true;|false;|nullptr;|\{)(.*(?:[!=<>]=| [<>] |&&|\|\||!|\b(?:is|has|contains)).*);$")
CALL = re.compile(r"^(\s*)((?!return\b|throw\b|delete\b|else\b|case\b|using\b|static_assert\b|if\b|for\b|while\b)"
                  r"[\w:]+(?:(?:\.|->)\w+|\[[^\]]*\]|\([^()]*\))*\(.*\);)$")
NUMBER = re.compile(r"(?<![\w.'])\d+(?![\w.'])")
FLAG = re.compile(r"(?<=[(,] )(?:true|false)(?=[,)])|(?<=\()(?:true|false)(?=[,)])|(?<= = )(?:true|false)(?=;)")
TEXT = re.compile(r'"(?:[^"\\]|\\.)+"')
LETTER = re.compile(r"[A-Za-z0-9]")
STATEMENT_END = re.compile(r"[;{}:]\s*$|\)\s*$|^\s*$")


def without_comments(text):
    """The lines of a source with comments blanked and, apart, with texts blanked too; columns stay."""
    token = re.compile(r'//[^\n]*|/\*.*?\*/|R"(\w*)\(.*?\)\1"|"(?:[^"\\\n]|\\.)*"|\'(?:[^\'\\\n]|\\.)+\'', re.S)
    blank = lambda found: re.sub(r"[^\n]", " ", found)
    code = token.sub(lambda m: blank(m[0]) if m[0][0] == "/" or m[0].startswith("R") else m[0], text)
    bare = token.sub(lambda m: blank(m[0]), text)
    return code.split("\n"), bare.split("\n")


def faults_of(name, text):
    code, bare = without_comments(text)
    found = []
    for number, (line, plain) in enumerate(zip(code, bare)):
        if plain.lstrip().startswith("#") or "static_assert" in plain:
            continue

        def add(start, end, new, kind):
            found.append(Fault(name, number, start, end, new, kind))

        for m in OPERATOR.finditer(plain):
            swapped = m[0] in SWAPPED
            add(m.start(), m.end(), SWAPPED[m[0]] if swapped else TURNED[m[0]],
                "condition" if swapped else "operator")
        for m in NEGATION.finditer(plain):
            add(m.start(), m.end(), "", "operator")
        for m in FIXED_RESULT.finditer(plain):
            add(m.start(1), m.end(1), "false" if m[1] == "true" else "true", "result")
        if m := RESULT.match(plain):
            add(m.start(1), m.end(1), "!(" + text.split("\n")[number][m.start(1):m.end(1)] + ")", "result")
        m = CALL.match(plain)
        if m and m[2].count("(") == m[2].count(")") and number and STATEMENT_END.search(bare[number - 1].rstrip()):
            add(m.start(2), m.end(2), ";", "call")
        for m in NUMBER.finditer(plain):
            add(m.start(), m.end(), str(int(m[0]) + 1), "constant")
        for m in FLAG.finditer(plain):
            add(m.start(), m.end(), "false" if m[0] == "true" else "true", "constant")
        for m in TEXT.finditer(line):
            letter = LETTER.search(m[0])
            if letter and plain[m.start()] == " ":
                at = m.start() + letter.start()
                add(at, at + 1, "z" if letter[0] == "q" else "q", "text")
    return found


def sources(names):
    files = []
    for name in names or ROOMS:
        path = (ROOT / name).resolve()
        if path.is_dir():
            # What a program does before its first call is linked into no test.
            files += [each for each in sorted(path.rglob("*.cpp")) if each.name != "main.cpp"]
        elif path.is_file():
            files.append(path)
        else:
            sys.exit(f"mutate: there is no {name}")
    for path in files:
        if not path.is_relative_to(ROOT):
            sys.exit(f"mutate: {path} is not one of the sources")
    return [path.relative_to(ROOT).as_posix() for path in files]


def read(path):
    return path.read_text(encoding="utf-8")


# --- Faults that change nothing ----------------------------------------------------------------------------

def harmless():
    """(file, line without blanks around) to [(old, new) or None for any, ...], from the table."""
    known = {}
    entry = []
    for line in read(HARMLESS).split("\n") + [""]:
        if line.startswith("#"):
            continue
        if line.strip():
            entry.append(line.strip())
            continue
        if entry:
            if len(entry) < 3:
                sys.exit(f"mutate: {HARMLESS.name}: an entry is a file, a line, `any` or OLD => NEW, a reason: {entry}")
            change = None if entry[2] == "any" else tuple(part.strip() for part in entry[2].split("=>"))
            known.setdefault((entry[0], entry[1]), []).append(change)
        entry = []
    return known


def is_harmless(known, fault, line):
    changes = known.get((fault.file, line.strip()), [])
    return None in changes or (line[fault.start:fault.end].strip(), fault.new.strip()) in changes


# --- The copy, and what is run in it -----------------------------------------------------------------------

class Workshop:
    """A copy of the sources with a build beside it, kept between runs so that each builds little."""

    def __init__(self, folder, options):
        self.tree = folder / "tree"
        self.build = folder / "build"
        self.scratch = folder / "tmp"
        self.options = options
        self.running = []
        self.limit = 600.0

    def copy(self):
        listed = subprocess.run(["git", "-C", ROOT, "ls-files", "-z", "-co", "--exclude-standard"],
                                capture_output=True, check=False)
        if listed.returncode == 0:
            names = [Path(os.fsdecode(name)) for name in listed.stdout.split(b"\0") if name]
        else:  # no checkout, but an archive
            names = [p.relative_to(ROOT) for p in ROOT.rglob("*") if p.is_file() and "build" not in p.parts]
        names = [name for name in names if (ROOT / name).is_file()]
        for old in [p for p in self.tree.rglob("*") if p.is_file()]:
            if old.relative_to(self.tree) not in set(names):
                old.unlink()
        for name in names:
            source, target = ROOT / name, self.tree / name
            content = source.read_bytes()
            if not target.is_file() or target.read_bytes() != content:
                target.parent.mkdir(parents=True, exist_ok=True)
                target.write_bytes(content)
                target.chmod(source.stat().st_mode)

    def start(self, command, **also):
        environment = dict(os.environ, TMPDIR=str(self.scratch))
        child = subprocess.Popen(self.options.by.split() + [str(word) for word in command], stdin=subprocess.DEVNULL,
                                 stdout=subprocess.PIPE, stderr=subprocess.STDOUT, start_new_session=True,
                                 cwd=self.tree, env=environment, text=True, errors="replace", **also)
        self.running.append(child)
        return child

    def stop(self):
        """Ends what was started, with all that it started."""
        for child in self.running:
            try:
                os.killpg(child.pid, signal.SIGKILL)
            except ProcessLookupError:
                pass
            child.communicate()
        self.running = []

    def run(self, command):
        child = self.start(command)
        output = child.communicate()[0]
        self.running.remove(child)
        return child.returncode == 0, output

    def configure(self):
        return self.run(["cmake", "-S", self.tree, "-B", self.build, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug",
                         "-DCMAKE_CXX_FLAGS_DEBUG=-O0 -g0", "-DZELXML_TESTS=ON"] + self.options.cmake)

    def compile(self):
        return self.run(["cmake", "--build", self.build, "-j", self.options.jobs, "--target"] + PROGRAM_TARGETS)

    def test(self):
        """Empty when all tests pass, else which one does not. Stops at the first."""
        shutil.rmtree(self.scratch, ignore_errors=True)
        self.scratch.mkdir()
        begun = time.monotonic()
        for program in TEST_PROGRAMS:
            child = self.start([self.build / program, "--gtest_fail_fast", "--gtest_brief=1"])
            try:
                output = child.communicate(timeout=max(1.0, self.limit - (time.monotonic() - begun)))[0]
            except subprocess.TimeoutExpired:
                self.stop()
                return "the time limit"
            self.running.remove(child)
            if child.returncode != 0:
                failed = re.search(r"\[  FAILED  \] ([\w./]+)", output)
                return failed[1] if failed else f"the end of {Path(program).name} by {child.returncode}"
        return ""


# --- A run -------------------------------------------------------------------------------------------------

def tell(text):
    print(text, file=sys.stderr, flush=True)


def draw(faults, chance):
    """All faults, each kind as often as any other until it is used up."""
    kinds = {}
    for fault in faults:
        kinds.setdefault(fault.kind, []).append(fault)
    for group in kinds.values():
        chance.shuffle(group)
    names = sorted(kinds)
    while names:
        name = chance.choice(names)
        yield kinds[name].pop()
        if not kinds[name]:
            names.remove(name)


def parse_arguments():
    parser = argparse.ArgumentParser(prog="./zel mutate", description=__doc__)
    parser.add_argument("files", nargs="*", metavar="FILE", help="sources or folders of them (lib platform tools)")
    parser.add_argument("--count", type=int, default=20, help="how many faults that compile (20)")
    parser.add_argument("--seed", type=int, help="draws the same faults again from the same sources")
    parser.add_argument("--json", action="store_true", help="print the result as JSON")
    parser.add_argument("--list", action="store_true", help="only print the faults that would be placed first")
    parser.add_argument("--jobs", default=str(os.cpu_count() or 1), help="for the builds")
    parser.add_argument("--by", default="", metavar="COMMAND", help="what starts builds and tests: 'nice -n 10'")
    parser.add_argument("--cmake", action="append", default=[], metavar="ARG", help="for the configuration")
    options = parser.parse_args()
    if options.count < 1:
        parser.error("--count must be 1 or more")
    if options.seed is None:
        options.seed = random.SystemRandom().randrange(1_000_000)
    return options


def describe(fault, line):
    return f"{fault.file}:{fault.line + 1}: {fault.kind}: `{line[fault.start:fault.end].strip()}` => `{fault.new.strip()}`"


def main():
    options = parse_arguments()
    names = sources(options.files)
    texts = {name: read(ROOT / name) for name in names}
    known = harmless()
    for file, line in known:
        path = ROOT / file
        if not path.is_file() or line not in map(str.strip, read(path).split("\n")):
            tell(f"mutate: {HARMLESS.name}: {file} has no line any more: {line}")
    drawn = draw([fault for name in names for fault in faults_of(name, texts[name])], random.Random(options.seed))
    line_of = lambda fault: texts[fault.file].split("\n")[fault.line]
    tell(f"seed {options.seed}")
    if options.list:
        for _, fault in zip(range(options.count), (f for f in drawn if not is_harmless(known, f, line_of(f)))):
            print(describe(fault, line_of(fault)))
        return 0

    folder = Path(os.environ.get("BUILD_DIR", "build"))
    shop = Workshop((folder if folder.is_absolute() else ROOT / folder) / "mutate", options)
    changed = None  # the file of the copy that holds a fault
    seen, left, skipped, passed_over = 0, [], 0, 0
    try:
        tell("building the copy without a fault")
        shop.tree.mkdir(parents=True, exist_ok=True)
        shop.copy()
        for step in (shop.configure, shop.compile):
            good, output = step()
            if not good:
                tell(output[-4000:])
                return 2
        begun = time.monotonic()
        if failed := shop.test():
            tell(f"mutate: without a fault the tests end at {failed}")
            return 2
        shop.limit = 30 + 4 * (time.monotonic() - begun)

        for fault in drawn:
            if seen + len(left) == options.count:
                break
            line = line_of(fault)
            if is_harmless(known, fault, line):
                passed_over += 1
                continue
            lines = texts[fault.file].split("\n")
            lines[fault.line] = line[:fault.start] + fault.new + line[fault.end:]
            changed = shop.tree / fault.file
            changed.write_text("\n".join(lines), encoding="utf-8")
            begun = time.monotonic()
            compiled, _ = shop.compile()
            by = shop.test() if compiled else ""
            changed.write_text(texts[fault.file], encoding="utf-8")
            changed = None
            if not compiled:
                skipped += 1
                continue
            if by:
                seen += 1
            else:
                left.append(fault)
            tell(f"{seen + len(left):4}/{options.count} {'seen' if by else 'LEFT'} {time.monotonic() - begun:4.0f} s  "
                 f"{describe(fault, line)}{'  by ' + by if by else ''}")
    except KeyboardInterrupt:
        tell("mutate: interrupted")
        return 130
    finally:
        shop.stop()
        if changed:
            relative = changed.relative_to(shop.tree).as_posix()
            changed.write_text(texts[relative], encoding="utf-8")
        shutil.rmtree(shop.scratch, ignore_errors=True)

    if options.json:
        entries = [{"file": f.file, "line": f.line + 1, "kind": f.kind, "old": line_of(f)[f.start:f.end], "new": f.new,
                    "text": line_of(f).strip()} for f in left]
        print(json.dumps({"seed": options.seed, "placed": seen + len(left), "seen": seen, "left": entries,
                          "notCompiled": skipped, "harmless": passed_over}, indent=2, ensure_ascii=False))
    else:
        print(f"seed {options.seed}: {seen + len(left)} faults placed, {seen} seen, {len(left)} left; "
              f"{skipped} did not compile, {passed_over} are known to change nothing")
        for fault in left:
            print(f"{describe(fault, line_of(fault))}\n    {line_of(fault).strip()}")
    return 1 if left else 0


if __name__ == "__main__":
    signal.signal(signal.SIGTERM, lambda *_: (_ for _ in ()).throw(KeyboardInterrupt))
    sys.exit(main())
