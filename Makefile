# Thin wrapper over CMake. `make run` and `make test` install missing packages first.
BUILD      ?= build
ASAN_BUILD ?= build-asan
WIN_BUILD  ?= build-windows
FUZZ_BUILD ?= build-fuzz
TIDY_BUILD ?= build-tidy
FUZZ_SECONDS ?= 60
JOBS       ?= $(shell nproc)
EXAMPLE    ?= examples/053.npc

.PHONY: all deps build run run-cli test test-sanitize test-windows windows package-windows bench package install format tidy clean fuzz fuzz-build fuzz-smoke fuzz-corpus

all: build

deps:
	@bash scripts/deps.sh

$(BUILD)/CMakeCache.txt:
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo

build: deps $(BUILD)/CMakeCache.txt
	cmake --build $(BUILD) -j $(JOBS)

# Starts the window on the example script with its speech file (examples/053.EDT).
# The program in $(BUILD) keeps its settings beside it; where there are none yet,
# they start as the program's defaults with "open the speech file too" on.
SETTINGS_FLAGS = FlagOverwrite=1 ShowMessages=1 AutoLoad=1
run: build
	@test -e $(BUILD)/Parlex.ini || printf '%s\r\n' '[INTERFACE]' $(SETTINGS_FLAGS) >$(BUILD)/Parlex.ini
	$(BUILD)/parlex $(EXAMPLE)

# The command-line tool on the example: its layout, bytes and every record in words.
run-cli: build
	$(BUILD)/parlex-cli info $(EXAMPLE)
	$(BUILD)/parlex-cli dump $(EXAMPLE)
	$(BUILD)/parlex-cli explain $(EXAMPLE)

test: build
	ctest --test-dir $(BUILD) --output-on-failure -j $(JOBS)

# The tests again, built with AddressSanitizer and UndefinedBehaviorSanitizer;
# any report aborts the test that caused it.
test-sanitize: deps
	cmake -S . -B $(ASAN_BUILD) -DCMAKE_BUILD_TYPE=Debug -DPARLEX_SANITIZE=ON -DPARLEX_BENCHMARKS=OFF
	cmake --build $(ASAN_BUILD) -j $(JOBS)
	ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1 \
		LSAN_OPTIONS=suppressions=$(CURDIR)/tests/lsan.supp \
		ctest --test-dir $(ASAN_BUILD) --output-on-failure -j $(JOBS)

# clang-tidy with the checks of .clang-tidy over every source file of src/; any
# finding fails. clang 16 with libc++ reads the C++23 of the tree (<expected>).
tidy:
	@bash scripts/deps.sh tidy
	cmake -S . -B $(TIDY_BUILD) -DCMAKE_BUILD_TYPE=Debug -DPARLEX_BENCHMARKS=OFF \
		-DCMAKE_CXX_COMPILER=clang++-16 -DCMAKE_CXX_FLAGS=-stdlib=libc++ \
		-DCMAKE_EXPORT_COMPILE_COMMANDS=ON
	run-clang-tidy-16 -p $(TIDY_BUILD) -quiet -j $(JOBS) '$(CURDIR)/src/'

# The core, parlex-cli and the core's tests for 64-bit Windows (MinGW-w64, static).
windows:
	@bash scripts/deps.sh windows
	cmake -S . -B $(WIN_BUILD) -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w64.cmake \
		-DCMAKE_BUILD_TYPE=Release -DPARLEX_BENCHMARKS=OFF -DPARLEX_WINDOW=OFF
	cmake --build $(WIN_BUILD) -j $(JOBS)

# Those tests run under Wine, in a prefix of the build folder, without a display.
# One Wine server stays up for the whole run: started afresh for every test
# program it would cost seconds each.
WINE_ENV = WINEPREFIX=$(CURDIR)/$(WIN_BUILD)/wine WINEDEBUG=-all WINEDLLOVERRIDES=mscoree,mshtml=
test-windows: windows
	mkdir -p $(WIN_BUILD)/wine
	$(WINE_ENV) /usr/lib/wine/wineserver64 -p
	$(WINE_ENV) /usr/lib/wine/wine64 cmd /c exit
	$(WINE_ENV) ctest --test-dir $(WIN_BUILD) --output-on-failure -j $(JOBS); \
		status=$$?; $(WINE_ENV) /usr/lib/wine/wineserver64 -k; exit $$status

# The first Windows deliverable: parlex-cli.exe (static, no DLLs) and the README.
package-windows: windows
	cd $(WIN_BUILD) && cmake -E copy ../README.md README.md && \
		cmake -E tar cf parlex-cli-windows-x64.zip --format=zip parlex-cli.exe README.md
	@echo $(WIN_BUILD)/parlex-cli-windows-x64.zip

# The fuzz targets of fuzz/ (libFuzzer, ASan + UBSan), each run for FUZZ_SECONDS
# from its seed corpus. What a run finds is kept in $(FUZZ_BUILD)/crashes/<target>/;
# the inputs it learns go to $(FUZZ_BUILD)/corpus/<target>/, never into the tree.
FUZZ_TARGETS = $(patsubst fuzz/%.cpp,%,$(wildcard fuzz/fuzz_*.cpp))
fuzz-build:
	@bash scripts/deps.sh fuzz
	cmake -S . -B $(FUZZ_BUILD) -DPARLEX_FUZZ=ON -DCMAKE_BUILD_TYPE=RelWithDebInfo \
		-DCMAKE_CXX_COMPILER=clang++-16 -DCMAKE_CXX_FLAGS=-stdlib=libc++
	cmake --build $(FUZZ_BUILD) -j $(JOBS)

fuzz: fuzz-build
	@for t in $(FUZZ_TARGETS); do \
		mkdir -p $(FUZZ_BUILD)/corpus/$$t $(FUZZ_BUILD)/crashes/$$t; \
		echo "== $$t: $(FUZZ_SECONDS) s"; \
		$(FUZZ_BUILD)/fuzz/$$t -max_total_time=$(FUZZ_SECONDS) -print_final_stats=1 \
			-artifact_prefix=$(FUZZ_BUILD)/crashes/$$t/ \
			$(FUZZ_BUILD)/corpus/$$t fuzz/corpus/$$t || exit 1; \
	done

# What CI runs: every target over its seed corpus, then a short run of its own.
fuzz-smoke:
	$(MAKE) fuzz FUZZ_SECONDS=20

# Writes the seed corpus again (after a format change): fuzz/corpus/<target>/.
fuzz-corpus: fuzz-build
	bash fuzz/make-corpus.sh $(FUZZ_BUILD)/fuzz/make_corpus

bench: build
	@for b in $(BUILD)/benchmarks/bench_*; do $$b --benchmark_repetitions=5 --benchmark_report_aggregates_only=true; done
	$(BUILD)/benchmarks/session_keystroke --benchmark_repetitions=5 --benchmark_report_aggregates_only=true
	$(BUILD)/benchmarks/session_overview --benchmark_repetitions=5 --benchmark_report_aggregates_only=true
	QT_QPA_PLATFORM=offscreen $(BUILD)/benchmarks/qbench_window -median 15

# The Debian package of the programs, in $(BUILD): parlex_<version>_<arch>.deb.
package: build
	cd $(BUILD) && cpack -G DEB

# Installs under PREFIX (default /usr/local): programs, help, desktop entry, MIME
# type, icon, AppStream data, manual page and shell completion.
PREFIX ?= /usr/local
install: build
	cmake --install $(BUILD) --prefix $(PREFIX)

format:
	clang-format -i $$(git ls-files '*.cpp' '*.h')

clean:
	rm -rf $(BUILD) $(ASAN_BUILD) $(WIN_BUILD) $(FUZZ_BUILD) $(TIDY_BUILD)
