# Tonewright: `make run` and `make test` do the whole set-up on a fresh Debian 12.
BUILD      ?= build
ASAN_BUILD ?= build-asan
JOBS       ?= $(shell nproc)
TEST_ENV    = QT_QPA_PLATFORM=offscreen SDL_AUDIODRIVER=dummy SDL_VIDEODRIVER=dummy

.PHONY: all deps configure build run test check-asan bench clean

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

check-asan: deps
	cmake -S . -B $(ASAN_BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTONEWRIGHT_SANITIZE=ON
	cmake --build $(ASAN_BUILD) -j$(JOBS)
	cd $(ASAN_BUILD) && $(TEST_ENV) ASAN_OPTIONS=detect_leaks=0 \
	  UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 ctest --output-on-failure -j$(JOBS)

bench: build
	cmake --build $(BUILD) -j$(JOBS) --target benches
	bash bench/run.sh $(BUILD)

clean:
	rm -rf $(BUILD) $(ASAN_BUILD)
