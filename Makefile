# make run   - install what is missing, build, open the viewer on the built-in simulated camera
# make test  - install what is missing, build, run every test with CTest

BUILD_DIR ?= build
BUILD_TYPE ?= RelWithDebInfo
JOBS ?= $(shell nproc)

.PHONY: all setup configure build run test sanitize bench clean

all: build

setup:
	@scripts/setup

configure: setup
	@if [ ! -f $(BUILD_DIR)/CMakeCache.txt ]; then \
	    cmake -S . -B $(BUILD_DIR) -DCMAKE_BUILD_TYPE=$(BUILD_TYPE); \
	fi

build: configure
	@cmake --build $(BUILD_DIR) -j $(JOBS)

run: build
	@$(BUILD_DIR)/app/vantoviewer --simulate --dump

test: build
	@cd $(BUILD_DIR) && QT_QPA_PLATFORM=offscreen QT_QUICK_BACKEND=software \
	    ctest --output-on-failure -j $(JOBS)

# Every test under AddressSanitizer and UndefinedBehaviorSanitizer.
sanitize: setup
	@cmake -S . -B build-sanitize -DCMAKE_BUILD_TYPE=Sanitize
	@cmake --build build-sanitize -j $(JOBS)
	@cd build-sanitize && QT_QPA_PLATFORM=offscreen \
	    LSAN_OPTIONS=suppressions=$(CURDIR)/tests/lsan.supp:print_suppressions=0 \
	    ctest --output-on-failure -j $(JOBS)

bench: build
	@for b in $(BUILD_DIR)/bench/bench_*; do echo "== $$b"; $$b || exit 1; done

clean:
	rm -rf $(BUILD_DIR) build-sanitize
