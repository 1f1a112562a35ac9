"""Builds the project with all mutations inside; those that don't compile are left out."""

import re
import shutil
import subprocess
from pathlib import Path

from .places import mutations_of
from .rewriting import rewritten

MUTATED = ("Scanner", "Parser", "Interpreter", "Library")
COPIED = ("CMakeLists.txt", "README.md", "Velto", "cmake", "docs", "examples", "tests", "tools")
PROGRAMS = ("Language", "Scanner", "Parser", "Interpreter", "Library", "Processor", "FatalStops", "Document", "Example")
PROGRAMS += ("Command", "Exception", "FileSystem", "Machine", "Depth", "Allocation")
MOST_ROUNDS = 12

MESSAGE = re.compile(
    r"(?P<path>/[^:\s]+):(?P<line>\d+):(?P<column>\d+): *(?P<kind>error:|warning:|required from)(?P<text>.*)"
)
NUMBERED = re.compile(r"velto::mutants::\w+(?:<[\w:, ]*>)?\((\d+)")


class Build:
    def __init__(self, project, folder):
        self.project = project
        self.source = folder / "source"
        self.binaries = folder / "build"
        self.files = sorted(path for name in MUTATED for path in (project / "Velto" / name).iterdir())
        self.files = [path for path in self.files if path.suffix in (".h", ".cpp")]
        self.mutations = {}
        """All there are, by numbers that they keep while the sources stay."""
        for path in self.files:
            found = mutations_of(str(path.relative_to(project)), path.read_text())
            self.mutations |= dict(enumerate(found, len(self.mutations) + 1))
        self.dropped = set()

    def prepare(self):
        """Copies the project."""
        for name in COPIED:
            self.copy(self.project / name)
        self.read_dropped()
        for path in self.files:
            self.write(path)

    def copy(self, path):
        for file in [path] if path.is_file() else sorted(path.rglob("*")):
            name = file.relative_to(self.project)
            is_mutated = len(name.parts) == 3 and name.parts[0] == "Velto" and name.parts[1] in MUTATED
            if file.is_file() and not (is_mutated and file.suffix in (".h", ".cpp")):
                self.update(self.source / name, file.read_bytes(), file)

    @staticmethod
    def update(path, content, origin=None):
        if not path.exists() or path.read_bytes() != content:
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_bytes(content)
            if origin:
                shutil.copymode(origin, path)

    def write(self, path):
        name = str(path.relative_to(self.project))
        here = [(n, m) for n, m in self.mutations.items() if m.path == name and n not in self.dropped]
        self.update(self.source / name, rewritten(path.read_text(), here).encode())

    # What doesn't compile is remembered, by what it is rather than by its number.

    def key(self, number):
        mutation = self.mutations[number]
        text = (self.project / mutation.path).read_text().splitlines()[mutation.line - 1].strip()
        return f"{mutation.path}\t{text}\t{mutation.column}\t{mutation.change}"

    def read_dropped(self):
        file = self.source.parent / "dropped"
        known = set(file.read_text().splitlines()) if file.exists() else set()
        self.dropped = {number for number in self.mutations if self.key(number) in known}

    def save_dropped(self):
        keys = "".join(self.key(number) + "\n" for number in sorted(self.dropped))
        (self.source.parent / "dropped").write_text(keys)

    def build(self, jobs):
        helpers = self.project / "scripts" / "mutants" / "Mutants.h"
        configure = ["cmake", "-S", self.source, "-B", self.binaries, "-G", "Ninja", "-DVELTO_WARNINGS_AS_ERRORS=OFF"]
        configure += ["-DCMAKE_BUILD_TYPE=RelWithDebInfo", "-DCMAKE_CXX_FLAGS_RELWITHDEBINFO=-O1"]
        flags = f"-std=c++20 -D_GLIBCXX_ASSERTIONS -include {helpers} -Werror=return-type -fdiagnostics-color=never"
        configure.append(f"-DCMAKE_CXX_FLAGS={flags}")
        subprocess.run(configure, check=True, stdout=subprocess.DEVNULL)
        self.compile(jobs, "velto_command")
        self.compile(jobs, *(name + "Tests" for name in PROGRAMS))

    def compile(self, jobs, *targets):
        compile_all = ["cmake", "--build", self.binaries, "-j", str(jobs), "--target", *targets, "--", "-k", "0"]
        for _ in range(MOST_ROUNDS):
            result = subprocess.run(compile_all, capture_output=True, text=True, errors="replace")
            if result.returncode == 0:
                return
            (self.source.parent / "errors").write_text(result.stdout)
            if not self.drop_what_failed(result.stdout):
                raise SystemExit(f"The mutated sources don't compile; see {self.source.parent / 'errors'}.")
        raise SystemExit("The mutated sources don't compile, however many mutations are left out.")

    def drop_what_failed(self, output):
        """Leaves out the mutation at each place that a message names."""
        failed = set()
        places = []
        for found in filter(None, map(MESSAGE.match, output.splitlines())):
            places.append(found)
            if found["kind"] == "error:":
                failed |= {number for place in places for number in self.blamed(place, found["text"])}
            if found["kind"] != "required from":
                places = []
        failed -= self.dropped
        self.dropped |= failed
        self.save_dropped()
        for name in {self.mutations[number].path for number in failed}:
            self.write(self.project / name)
        print(f"{len(failed)} mutations don't compile, {len(self.dropped)} in all", flush=True)
        return bool(failed)

    def last_way_out(self, name, end):
        """What keeps a function from ending without a value: a call that never returns, or `while (true)`."""
        lines = (self.project / name).read_text().splitlines()
        left = [(n, m) for n, m in self.mutations.items() if n not in self.dropped]
        before = [(n, m) for n, m in left if m.path == name and m.line <= end]
        calls = [n for n, m in before if m.kind == "statement" and m.line >= end - 3]
        loops = [n for n, m in before if "while (true)" in lines[m.line - 1]]
        return set((calls or loops)[-1:])

    def blamed(self, place, text):
        path = Path(place["path"])
        if not path.is_relative_to(self.source / "Velto"):
            return set()
        name, line, column = str(path.relative_to(self.source)), int(place["line"]), int(place["column"])
        if "control reaches end" in text or "no return statement" in text:
            return self.last_way_out(name, line)
        if "non-‘constexpr’ function" in text:
            return {n for n, m in self.mutations.items() if (m.path, m.kind) == (name, "default")}
        written = (self.source / name).read_text().splitlines()[line - 1]
        here = [(found.start(), int(found[1])) for found in NUMBERED.finditer(written)]
        before = [number for start, number in here if start < column]
        return {before[-1]} if before else {number for _, number in here}
