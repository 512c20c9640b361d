# make run   - install what is missing, build, open the viewer on the built-in simulated camera
# make test  - install what is missing, build, run every test with CTest

BUILD_DIR ?= build
BUILD_TYPE ?= RelWithDebInfo
JOBS ?= $(shell nproc)

.PHONY: all setup configure build run test sanitize bench fuzz package clean

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
	@$(BUILD_DIR)/app/vantoviewer --simulate

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

# Every fuzz target for FUZZ_SECONDS each, from the seeds in fuzz/corpus (and, for camera
# descriptions, the vendor files of $(SHARED_DIR)/genicam when present, read where they lie);
# new inputs stay in build-fuzz/corpus. An input that runs longer than FUZZ_TIMEOUT seconds is
# reported as a hang; FUZZ_MAX_LEN leaves room for deeply nested descriptions.
FUZZ_SECONDS ?= 30
FUZZ_TIMEOUT ?= 10
FUZZ_MAX_LEN ?= 1048576
SHARED_DIR ?= $(CURDIR)/../shared
FUZZ_TARGETS = displaynamecache nodemapfilter genicamxml registercontents writesandpolls \
    settings commandline
fuzz: setup
	@cmake -S . -B build-fuzz -DNODESCOPE_FUZZ=ON -DCMAKE_BUILD_TYPE=RelWithDebInfo \
	    -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ -DBUILD_TESTING=OFF \
	    -DNODESCOPE_SHARED_DIR=$(SHARED_DIR)
	@cmake --build build-fuzz -j $(JOBS) --target $(addprefix fuzz_,$(FUZZ_TARGETS))
	@for t in $(FUZZ_TARGETS); do mkdir -p build-fuzz/corpus/$$t; done
	@cp fuzz/corpus/displaynamecache/* build-fuzz/corpus/displaynamecache/
	@cp fuzz/corpus/nodemapfilter/* build-fuzz/corpus/nodemapfilter/
	@cp fuzz/corpus/registercontents/* build-fuzz/corpus/registercontents/
	@cp fuzz/corpus/writesandpolls/* build-fuzz/corpus/writesandpolls/
	@cp fuzz/corpus/settings/* build-fuzz/corpus/settings/
	@cp fuzz/corpus/commandline/* build-fuzz/corpus/commandline/
	@cp tests/backend/data/*.xml tests/nodescope/data/*.xml build-fuzz/corpus/genicamxml/
	@for t in $(FUZZ_TARGETS); do \
	    echo "== fuzz_$$t"; \
	    seeds=""; dict=""; \
	    if [ $$t = genicamxml ]; then \
	        dict="-dict=fuzz/genicam.dict"; \
	        [ -d "$(SHARED_DIR)/genicam" ] && seeds="$(SHARED_DIR)/genicam"; \
	    fi; \
	    QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=0 build-fuzz/fuzz/fuzz_$$t \
	        -max_total_time=$(FUZZ_SECONDS) -timeout=$(FUZZ_TIMEOUT) -max_len=$(FUZZ_MAX_LEN) \
	        -rss_limit_mb=4096 $$dict build-fuzz/corpus/$$t $$seeds || exit 1; \
	done

# Every benchmark executable, and nothing else that CMake leaves in the folder.
# Each benchmark runs in a private network namespace: the ones that stream from the fake GigE
# camera need it, and none of them may reach anything but loopback.
bench: build
	@set -e; for b in $$(find $(BUILD_DIR)/bench -maxdepth 1 -type f -name 'bench_*' -perm -u+x | sort); do \
	    echo "== $$b"; QT_QPA_PLATFORM=offscreen QT_QUICK_BACKEND=software \
	    tests/backend/run-in-netns.sh $$b; done

# The Debian package, in $(BUILD_DIR)/vantoviewer_<version>_<arch>.deb.
package: build
	@cd $(BUILD_DIR) && cpack -G DEB

clean:
	rm -rf $(BUILD_DIR) build-sanitize build-fuzz
