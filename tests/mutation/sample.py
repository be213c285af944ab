#!/usr/bin/env python3
"""Changes the code of some modules, one operator or constant at a time, and tells which test notices.

The source stays as it is: the changes are made in a copy of the tree under build-mutation/, with a build of its own.
See README.md in this folder.
"""

import argparse
import json
import os
import pathlib
import random
import re
import shutil
import signal
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
COPY = ROOT / "build-mutation" / "tree"
BUILD = COPY / "build"
BUILD_SECONDS = 900

# clang-format puts a blank on both sides of a binary operator, and of nothing that only looks like one.
BINARY = {
    "+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"], "+=": ["-="], "-=": ["+="], "*=": ["/="], "/=": ["*="],
    "<": ["<=", ">="], "<=": ["<", ">"], ">": [">=", "<="], ">=": [">", "<"], "==": ["!="], "!=": ["=="],
    "&&": ["||"], "||": ["&&"],
}
SITE = re.compile(
    r"(?<= )(?P<binary>[+\-*/]=?|[<>]=?|[=!]=|&&|\|\|)(?= |\n)"
    r"|(?P<unary>!(?=[\w(])|(?<=[(\[{,=?:] )-(?=[\w(.])|(?<=[(\[{])-(?=[\w(.])|(?<=return )-(?=[\w(.]))"
    r"|(?P<truth>\b(?:true|false)\b)"
    r"|(?<![\w.'])(?P<number>\d[\d']*(?:\.\d*)?(?:[eE][+-]?\d+)?)(?P<suffix>[fFuUlLzZ]*)(?![\w.])")
NO_CODE = re.compile(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|(?<!\w)\'(?:\\.|[^\'\\\n])+\'', re.DOTALL)
# What a declaration starts from is nearly always written before it is read.
PLACEHOLDER = re.compile(r"^\s*(?:double|float|int|long long|std::\w+) \w+ = 0(?:, \w+ = 0)*;", re.MULTILINE)


def code_only(text):
    """The text with all that is no code blanked out, each character in its place."""
    for no_site in (NO_CODE, PLACEHOLDER):
        text = no_site.sub(lambda found: re.sub(r"[^\n]", "~", found.group()), text)
    lines = ["~" * len(line) if line.lstrip().startswith("#") else line for line in text.split("\n")]
    return "\n".join(lines)


def replacements(site):
    if site["binary"]:
        return BINARY[site["binary"]]
    if site["unary"]:
        return [""]
    if site["truth"]:
        return ["false" if site["truth"] == "true" else "true"]
    number, suffix = site["number"].replace("'", ""), site["suffix"]
    if number.isdigit():
        return [str(int(number) + 1) + suffix]
    return [repr(float(number) * 1.1 if float(number) != 0 else 1.0) + suffix]


def mutants(modules, chance):
    """Every possible change as (file, line, begin, end, old, new), in the order of the draw."""
    found = []
    for module in modules:
        for file in sorted((ROOT / module).glob("*.cpp")) + sorted((ROOT / module).glob("*.h")):
            text = file.read_text()
            for site in SITE.finditer(code_only(text)):
                line = text.count("\n", 0, site.start()) + 1
                new = chance.choice(replacements(site))
                found.append((file.relative_to(ROOT), line, site.start(), site.end(), site.group(), new))
    chance.shuffle(found)
    return found


def run(command, limit, **options):
    """Status and output; the status is None when the time ran out. Nothing that was started is left running."""
    child = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace",
                             start_new_session=True, **options)
    try:
        output, _ = child.communicate(timeout=limit)
        return child.returncode, output
    except subprocess.TimeoutExpired:
        return None, ""
    finally:
        try:
            os.killpg(child.pid, signal.SIGKILL)
        except ProcessLookupError:
            pass
        child.wait()


def build(target, jobs):
    return run(["ninja", "-C", str(BUILD), "-j", str(jobs), target], BUILD_SECONDS)


def refresh_copy():
    """Only what differs is written, so that the copy is built anew only where the tree has changed."""
    listed = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"], cwd=ROOT,
                            check=True, capture_output=True, text=True).stdout.split("\0")
    wanted = {name for name in listed if name and (ROOT / name).is_file()}
    for file in [f for f in COPY.rglob("*") if f.is_file() and BUILD not in f.parents]:
        if str(file.relative_to(COPY)) not in wanted:
            file.unlink()
    for name in wanted:
        source, target = ROOT / name, COPY / name
        if not target.exists() or target.read_bytes() != source.read_bytes():
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(source, target)


class TestProgram:
    def __init__(self, case):
        properties = {p["name"]: p["value"] for p in case.get("properties", [])}
        self.path = pathlib.Path(case["command"][0])
        self.target = str(self.path.relative_to(BUILD))
        self.is_gtest = any(argument.startswith("--gtest_filter") for argument in case["command"])
        self.command = [str(self.path), "--gtest_fail_fast", "--gtest_brief=1"] if self.is_gtest else case["command"]
        self.folder = properties.get("WORKING_DIRECTORY", str(BUILD))
        self.environment = dict(os.environ, QT_QPA_PLATFORM="offscreen")
        self.environment.update(e.split("=", 1) for e in properties.get("ENVIRONMENT", []))
        self.inputs = subprocess.run(["ninja", "-C", str(BUILD), "-t", "inputs", self.target], check=True,
                                     capture_output=True, text=True).stdout.split("\n")
        self.seconds = 0

    def reaches(self, file):
        """Whether anything of the file's module goes into the program or into what it works on."""
        return any(str(COPY / file.parent) == os.path.dirname(name) for name in self.inputs)

    def distance(self, file):
        """The tests of the file's own module first, then those of the folder, then from the cheapest to the dearest."""
        tests = pathlib.PurePath("tests")
        folder = pathlib.PurePath(self.target).parent
        return folder != tests / file.parent, folder != tests / file.parts[0], self.seconds

    def failure(self, limit):
        """The name of the first test that fails, or nothing."""
        status, output = run(self.command, limit, cwd=self.folder, env=self.environment)
        if status == 0:
            return None
        if status is None:
            return f"{self.path.name}: time limit"
        failed = re.search(r"\[  FAILED  \] ([\w./]+)", output)
        return f"{self.path.name}: {failed.group(1) if failed else f'status {status}'}"


def test_programs():
    listed = subprocess.run(["ctest", "--test-dir", str(BUILD), "--show-only=json-v1"], check=True,
                            capture_output=True, text=True).stdout
    cases = {case["command"][0]: case for case in json.loads(listed)["tests"] if "command" in case}
    return [TestProgram(case) for path, case in cases.items() if path.startswith(str(BUILD))]


def verdict(programs, file, jobs):
    """What noticed the change that stands in the copy: a test, nothing ("SURVIVED"), or the compiler (None)."""
    for program in sorted((p for p in programs if p.reaches(file)), key=lambda p: p.distance(file)):
        status, output = build(program.target, jobs)
        if status is None:
            return "build: time limit"
        if status != 0:
            failed = re.search(r"FAILED: (\S+)", output)
            if failed is None or failed.group(1).endswith(".o"):
                return None
            return f"build of {os.path.basename(failed.group(1))}"
        failure = program.failure(20 + 4 * program.seconds)
        if failure:
            return failure
    return "SURVIVED"


def prepare(jobs, modules, without):
    """The copy, built and found sound, and its test programs with the time that each takes."""
    refresh_copy()
    print("building the copy", flush=True)
    for command in (["cmake", "-S", str(COPY), "-B", str(BUILD), "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Release",
                     "-DMARVELLO_DEMO=ON"],
                    ["ninja", "-C", str(BUILD), "-j", str(jobs)]):
        status, output = run(command, None)
        if status != 0:
            sys.exit(f"The unchanged tree does not build:\n{output}")
    programs = [p for p in test_programs() if any(p.reaches(pathlib.PurePath(module) / "x") for module in modules)]
    programs = [p for p in programs if p.path.name not in without]
    for program in programs:
        begin = time.monotonic()
        failure = program.failure(None)
        program.seconds = time.monotonic() - begin
        if failure:
            sys.exit(f"The unchanged tree fails its tests: {failure}")
    print("test programs: " + ", ".join(f"{p.path.name} {p.seconds:.0f} s" for p in programs), flush=True)
    return programs


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--count", type=int, default=60)
    parser.add_argument("--modules", nargs="+", default=["engine", "catalogue", "thermo"])
    parser.add_argument("--pick", nargs="+", type=int, help="only the mutants of these numbers")
    parser.add_argument("--without", nargs="+", default=[], help="test programs that are left out, such as slow ones")
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    options = parser.parse_args()

    drawn = mutants(options.modules, random.Random(options.seed))
    programs = prepare(options.jobs, options.modules, options.without)
    killed = judged = 0
    print(f"{len(drawn)} possible changes", flush=True)
    for number, (file, line, begin, end, old, new) in enumerate(drawn, 1):
        if judged == options.count or (options.pick and number > max(options.pick)):
            break
        if options.pick and number not in options.pick:
            continue
        text = (ROOT / file).read_text()
        try:
            (COPY / file).write_text(text[:begin] + new + text[end:])
            result = verdict(programs, file, options.jobs)
        finally:
            (COPY / file).write_text(text)
        if result is None:
            continue
        judged += 1
        killed += result != "SURVIVED"
        context = " ".join(text.split("\n")[line - 1].split())
        change = f"{old} -> {new or 'nothing'}"
        print(f"{number:4}  {f'{file}:{line}':36} {change:22} {result:58} {context[:80]}", flush=True)
    print(f"killed {killed} of {judged}")


if __name__ == "__main__":
    for stop in (signal.SIGINT, signal.SIGTERM):
        signal.signal(stop, signal.default_int_handler)
    try:
        main()
    except KeyboardInterrupt:
        sys.exit("stopped")
