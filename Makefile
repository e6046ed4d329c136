# Tonewright: `make run` and `make test` do the whole set-up on a fresh Debian 12.
BUILD      ?= build
ASAN_BUILD ?= build-asan
TSAN_BUILD ?= build-tsan
FUZZ_BUILD ?= build-fuzz
JOBS       ?= $(shell nproc)
# ON turns compiler warnings into errors (CI does so for the sanitizer builds).
WERROR     ?= OFF
# Seconds each fuzz target runs for under `make fuzz`.
FUZZ_SECONDS ?= 30
TEST_ENV    = QT_QPA_PLATFORM=offscreen SDL_AUDIODRIVER=dummy SDL_VIDEODRIVER=dummy
SAN_DIR     = $(CURDIR)/tests/sanitizers
# The subsystems whose threads meet: the WAV engine's audio thread, the media
# engine's workers, the editor over both, the library's loading thread.
TSAN_LABELS = audio|engine|editor|library|vexa|itunesagent

.PHONY: all deps configure build run test package check-package install check-asan check-tsan fuzz \
        check-format bench clean

all: build

deps:
	bash scripts/install-deps.sh

configure: deps
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=Release

build: configure
	cmake --build $(BUILD) -j$(JOBS)

run: build
	cd $(BUILD) && ./tonewright

test: build
	cd $(BUILD) && $(TEST_ENV) ctest --output-on-failure -j$(JOBS)

# A Debian package of the installed tree (CPack), beside the build:
# $(BUILD)/tonewright_<version>_<arch>.deb.
package: build
	cmake --build $(BUILD) --target package

# The package unpacked into a scratch root: its programs run and its desktop
# entry and AppStream file pass their validators.
check-package: package
	cd $(BUILD) && $(TEST_ENV) ctest --output-on-failure -L package

# Installs under PREFIX (default /usr/local).
PREFIX ?= /usr/local
install: build
	cmake --install $(BUILD) --prefix $(PREFIX)

# Address, leak and undefined-behaviour sanitizers over every test, in a Debug
# build (Q_ASSERT live) optimised just enough to keep the tests quick.
check-asan: deps
	cmake -S . -B $(ASAN_BUILD) -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG="-g -O1" \
	  -DCMAKE_C_FLAGS_DEBUG="-g -O1" -DTONEWRIGHT_SANITIZE=ON -DTONEWRIGHT_WERROR=$(WERROR)
	cmake --build $(ASAN_BUILD) -j$(JOBS)
	cd $(ASAN_BUILD) && $(TEST_ENV) \
	  ASAN_OPTIONS=detect_leaks=1:strict_string_checks=1:detect_stack_use_after_return=1 \
	  LSAN_OPTIONS=suppressions=$(SAN_DIR)/lsan.supp:print_suppressions=0 \
	  UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 ctest --output-on-failure -j$(JOBS)

# Thread sanitizer over the subsystems that share state between threads.
# Tests start ffmpeg through QProcess from a threaded process; the child only
# execs, so the sanitizer may let it go on after the fork.
check-tsan: deps
	cmake -S . -B $(TSAN_BUILD) -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG="-g -O1" \
	  -DCMAKE_C_FLAGS_DEBUG="-g -O1" -DTONEWRIGHT_TSAN=ON -DTONEWRIGHT_WERROR=$(WERROR)
	cmake --build $(TSAN_BUILD) -j$(JOBS)
	cd $(TSAN_BUILD) && $(TEST_ENV) \
	  TSAN_OPTIONS=suppressions=$(SAN_DIR)/tsan.supp:halt_on_error=1:second_deadlock_stack=1:die_after_fork=0 \
	  ctest --output-on-failure -j$(JOBS) -L '$(TSAN_LABELS)'

# libFuzzer targets (clang), each run for FUZZ_SECONDS over a scratch copy of
# its checked-in corpus; new inputs stay in the build tree.
fuzz: deps
	CC=clang CXX=clang++ cmake -S . -B $(FUZZ_BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo \
	  -DTONEWRIGHT_FUZZ=ON -DTONEWRIGHT_WERROR=$(WERROR)
	cmake --build $(FUZZ_BUILD) -j$(JOBS)
	bash tests/fuzz/run.sh $(FUZZ_BUILD) $(FUZZ_SECONDS)

check-format:
	git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run --Werror

bench: build
	cmake --build $(BUILD) -j$(JOBS) --target benches
	bash bench/run.sh $(BUILD)

clean:
	rm -rf $(BUILD) $(ASAN_BUILD) $(TSAN_BUILD) $(FUZZ_BUILD)
