# The commands of daily work. CMake does the building; see CMakePresets.json.
.DEFAULT_GOAL := build
.PHONY: build demo test fuzz clang integers leaks tidy threads torture coverage mutants bench format dependencies clean

JOBS ?= $(shell nproc)
CTEST := ctest --output-on-failure --no-tests=error -j $(JOBS)

# Builds everything but the benchmarks; the executables are in build/release/bin.
build: dependencies
	cmake --preset release
	cmake --build --preset release -j $(JOBS)

# Generates a tree of source files from a model and shows it.
demo: dependencies
	cmake --preset release
	cmake --build --preset release -j $(JOBS) --target velto_command
	rm -rf build/demo
	build/release/bin/velto run --output build/demo examples/entities/generate.velto
	@scripts/show-tree build/demo cpp/library/Author.h

# The whole check: with warnings as errors, then under the address and undefined behaviour sanitizers, then by a short
# run of each fuzzer.
test: dependencies
	cmake --preset release -DVELTO_WARNINGS_AS_ERRORS=ON
	cmake --build --preset release -j $(JOBS)
	cmake --build --preset release -j $(JOBS) --target all_verify_interface_header_sets
	$(CTEST) --test-dir build/release
	cmake --preset sanitizers
	cmake --build --preset sanitizers -j $(JOBS)
	$(CTEST) --test-dir build/sanitizers
	$(MAKE) fuzz SECONDS=30

# Looks for inputs that break a promise: `make fuzz SECONDS=600` takes ten minutes for each fuzzer.
fuzz: SECONDS ?= 60
fuzz: dependencies
	scripts/install-dependencies clang libclang-rt-14-dev
	cmake --preset fuzz
	cmake --build --preset fuzz -j $(JOBS)
	scripts/run-fuzzers $(SECONDS) $(JOBS)

# All tests with another compiler and another standard library. simdjson and ICU are used as they are installed: what
# goes in and out there, no string among it, looks the same in both libraries.
clang: dependencies
	scripts/install-dependencies clang libc++-14-dev libc++abi-14-dev googletest
	cmake --preset clang -DVELTO_WARNINGS_AS_ERRORS=ON
	cmake --build --preset clang -j $(JOBS)
	cmake --build --preset clang -j $(JOBS) --target all_verify_interface_header_sets
	$(CTEST) --test-dir build/clang

# All tests with the checks of integers that only Clang has: whether they wrap, or lose something when converted. `vptr`
# needs a descriptor where a test has left none; `make test` looks at that.
integers: dependencies
	scripts/install-dependencies clang libclang-rt-14-dev
	cmake --preset integers
	cmake --build --preset integers -j $(JOBS)
	$(CTEST) --test-dir build/integers

# Whether anything is left of what no test runs: the examples by themselves, and the benchmarks.
leaks: dependencies
	scripts/install-dependencies libbenchmark-dev
	cmake --preset leaks
	cmake --build --preset leaks -j $(JOBS)
	scripts/run-leaks

# What clang-tidy finds in the library and the command.
tidy: dependencies
	scripts/install-dependencies clang clang-tidy
	cmake --preset tidy
	scripts/run-tidy $(JOBS)

# Many programs on many threads, and what threads share below them, under the sanitizer for threads.
threads: dependencies
	cmake --preset threads
	cmake --build --preset threads -j $(JOBS)
	$(CTEST) --test-dir build/threads -R '^reliability.Thread$$'
	build/threads/bin/PlatformTests --gtest_brief=1 \
	  --gtest_filter='Ref.IsCountedRightByManyThreads:BufferingTest.AThreadWritesWhatIsLeftWhenItEnds'

# What takes too long for `make test`: depth in the millions, which takes some minutes; and in the rest of the
# time memory that lacks anywhere, stacks of all sizes, runs that are killed, and tens of millions of turns. It ends
# after about so many seconds, and fails where they are too few.
torture: SECONDS ?= 1200
torture: dependencies
	cmake --preset release
	cmake --build --preset release -j $(JOBS) --target EnduranceTests DepthTests
	begin=$$(date +%s); \
	VELTO_DEPTH=1000000 timeout $(SECONDS) build/release/bin/DepthTests --gtest_brief=1 \
	  || { test $$? != 124 || echo "$(SECONDS) seconds are too few for all depths."; exit 1; }; \
	VELTO_SECONDS=$$(( begin + $(SECONDS) - $$(date +%s) )) build/release/bin/EnduranceTests --gtest_brief=1

# Which lines of the library the tests reach, and which ways out of the conditions in its sources; gcovr.cfg tells what
# is counted. Without optimization the stack is used up sooner.
coverage: dependencies
	scripts/install-dependencies gcovr
	cmake --preset coverage
	cmake --build --preset coverage -j $(JOBS)
	find build/coverage -name '*.gcda' -delete
	VELTO_DEPTH=30000 $(CTEST) --test-dir build/coverage
	gcovr -j $(JOBS) --json build/coverage/coverage.json build/coverage
	gcovr --add-tracefile build/coverage/coverage.json --fail-under-line 100
	gcovr --add-tracefile build/coverage/coverage.json --exclude '.*\.h' --branches --fail-under-branch 95
	scripts/check-ways build/coverage/coverage.json

# Whether the tests notice small changes of the library, drawn for so many seconds; scripts/mutate tells how.
mutants: SECONDS ?= 600
mutants: dependencies
	scripts/mutate --seconds $(SECONDS) --jobs $(JOBS)

# How time and memory grow: the stages over sizes of their input, then whole programs in processes of their own.
bench: dependencies
	scripts/install-dependencies libbenchmark-dev
	cmake --preset benchmarks
	cmake --build --preset benchmarks -j $(JOBS)
	build/benchmarks/bin/VeltoBenchmarks --benchmark_min_time=0.1
	build/benchmarks/bin/VeltoMemory
	build/benchmarks/bin/VeltoGrowth build/benchmarks/bin/velto build/workloads
	build/benchmarks/bin/VeltoScripts build/benchmarks/bin/velto build/workloads

format:
	scripts/install-dependencies clang-format
	find Velto tools tests examples benchmarks fuzz -name '*.h' -o -name '*.cpp' 2>/dev/null | xargs clang-format -i

dependencies:
	@scripts/install-dependencies

clean:
	rm -rf build
