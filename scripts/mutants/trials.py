"""Runs tests on one mutant after the other, those first that are likely to fail."""

import os
import resource
import signal
import subprocess
import tempfile
import time
from pathlib import Path

FIRST_CASES = 30
MEMORY = 4 << 30


class Tests:
    """Test programs and language cases, with the mutations that each comes by."""

    def __init__(self, project, binaries, numbers):
        self.project = project
        self.programs = binaries / "bin"
        self.numbers = sorted(numbers)
        self.command = self.programs / "velto"
        self.cases = {}
        """For each language case the mutations that it reaches."""
        self.reached = {}
        """The same for each program."""
        self.seconds = {}

    def language(self, *options):
        program = self.programs / "LanguageTests"
        return [program, "--gtest_brief=1", *options, self.command, self.project / "tests/language"]

    def other_programs(self):
        docs = [self.project / "README.md", *sorted((self.project / "docs/language").glob("*.md"))]
        lines = {"Document": [self.command, *docs], "Example": [self.command, self.project / "examples"]}
        lines |= {"Command": [self.command]}
        left_out = {"Language", "Source", "Architecture", "Endurance"}
        for program in sorted(self.programs.glob("*Tests")):
            name = program.name.removesuffix("Tests")
            if name not in left_out:
                yield name, [program, "--gtest_brief=1", "--gtest_fail_fast", *lines.get(name, [])]

    def trace(self, pool):
        names = self.names_of_cases()
        traced = pool.map(lambda name: self.reached_by(self.language(f"--gtest_filter={name}")), names)
        self.cases = dict(zip(names, traced))
        programs = dict(self.other_programs())
        traced = pool.map(lambda line: self.reached_by(line), programs.values())
        self.reached = dict(zip(programs, traced))
        self.lines = programs
        failing = [name for name, found in {**self.cases, **self.reached}.items() if found is None]
        if failing:
            raise SystemExit(f"These fail without a mutation: {' '.join(failing)}")

    def names_of_cases(self):
        output = subprocess.run(self.language("--gtest_list_tests"), check=True, capture_output=True, text=True).stdout
        names = []
        for line in output.splitlines():
            if not line.startswith(" "):
                suite = line
            else:
                names.append(suite + line.split()[0])
        return names

    def reached_by(self, line):
        """None if the test fails."""
        with tempfile.NamedTemporaryFile() as file:
            file.truncate(self.numbers[-1] + 1)
            begin = time.monotonic()
            if not run(line, {"VELTO_MUTANTS_REACHED": file.name}, 600):
                return None
            if line[0].name != "LanguageTests":
                self.seconds[line[0].name.removesuffix("Tests")] = time.monotonic() - begin
            marks = Path(file.name).read_bytes()
        return {number for number in self.numbers if marks[number]}

    def catch(self, number):
        """The first test that fails with the mutation; None if all pass, "" if none even comes by."""
        environment = {"VELTO_MUTANT": str(number)}
        cases = [name for name, found in self.cases.items() if number in found]
        cases.sort(key=lambda name: len(self.cases[name]))
        programs = sorted((name for name, found in self.reached.items() if number in found), key=self.seconds.get)
        if not cases and not programs:
            return ""
        stages = [(self.some_cases(cases[:FIRST_CASES]), 20, "language")] if cases else []
        timed = [(self.lines[name], 10 + 8 * self.seconds[name], name) for name in programs]
        quick = [stage for stage in timed if self.seconds[stage[2]] < 3]
        stages += quick
        if len(cases) > FIRST_CASES:
            stages.append((self.some_cases(cases[FIRST_CASES:]), 120, "language"))
        stages += timed[len(quick) :]
        for line, seconds, name in stages:
            if not run(line, environment, seconds):
                return name
        return None

    def some_cases(self, names):
        return self.language("--gtest_fail_fast", "--gtest_filter=" + ":".join(names))


def limit():
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def run(line, environment, seconds):
    """Whether all tests of one program pass in time."""
    words = [str(word) for word in line]
    with subprocess.Popen(words, env={**os.environ, **environment}, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                          stderr=subprocess.DEVNULL, start_new_session=True, preexec_fn=limit) as process:
        try:
            return process.wait(seconds) == 0
        except subprocess.TimeoutExpired:
            return False
        finally:
            try:
                os.killpg(process.pid, signal.SIGKILL)
            except ProcessLookupError:
                pass
