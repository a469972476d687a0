# Entry points for people and CI. Everything goes through CMake; these targets only pick the build
# folder and the options.
JOBS ?= $(shell nproc)
BUILD ?= build
ASAN_BUILD ?= build-asan

.PHONY: all bootstrap build test test-asan bench demo fuzz clean

all: build

bootstrap:
	@scripts/bootstrap

build: bootstrap
	@cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
	@cmake --build $(BUILD) -j $(JOBS)

test: build
	@ctest --test-dir $(BUILD) --output-on-failure -j $(JOBS)

test-asan: bootstrap
	@cmake -S . -B $(ASAN_BUILD) -DCMAKE_BUILD_TYPE=Debug -DKY_SANITIZE=ON -DKY_BUILD_BENCH=OFF >/dev/null
	@cmake --build $(ASAN_BUILD) -j $(JOBS)
	@ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 LSAN_OPTIONS=suppressions=$(CURDIR)/tests/lsan.supp \
		ctest --test-dir $(ASAN_BUILD) --output-on-failure -j $(JOBS)

# Every benchmark on its default source, then the drag event and activation on 10,000,000 triangles.
bench: build
	@for b in $(BUILD)/bench/*_bench; do [ -x "$$b" ] && "$$b"; done
	@$(BUILD)/bench/drag_event_bench --triangles=10000000
	@$(BUILD)/bench/activation_bench --triangles=10000000

demo: build
	@$(BUILD)/runner/kystrake demo

# The long fuzz pass: a million random steps over every kind of source (SEED picks another pass).
SEED ?= 1
fuzz: build
	@$(BUILD)/runner/kystrake fuzz --seed $(SEED) --steps 1000000 --out $(BUILD)/fuzz

clean:
	@rm -rf $(BUILD) $(ASAN_BUILD)
