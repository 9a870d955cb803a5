# The two user-facing commands: `make demo` and `make test`.
BUILD_DIR ?= build
ASAN_DIR  ?= build-asan
JOBS      ?= 2
CMAKE_FLAGS ?= -DCMAKE_BUILD_TYPE=RelWithDebInfo

.PHONY: all deps configure build test demo bench sanitize clean

all: build

deps:
	@./scripts/install-deps

configure: deps
	@cmake -S . -B $(BUILD_DIR) $(CMAKE_FLAGS) >/dev/null

build: configure
	@cmake --build $(BUILD_DIR) -j$(JOBS)

# Window tests need an X server; xvfb-run gives every run its own.
test: build
	@cd $(BUILD_DIR) && xvfb-run -a -s "-screen 0 1280x1024x24" \
	  ctest --output-on-failure -j$(JOBS) --timeout 300

# Only the library and the programs the demo runs: no tests, no benchmarks.
DEMO_TARGETS = cvscene-demo cvscene-gallery cvscene-first-chart
demo: configure
	@cmake --build $(BUILD_DIR) -j$(JOBS) --target $(DEMO_TARGETS)
	@mkdir -p out
	@$(BUILD_DIR)/examples/cvscene-demo
	@$(BUILD_DIR)/examples/cvscene-first-chart out/first-chart.png
	@$(BUILD_DIR)/examples/cvscene-gallery out

bench: build
	@for b in $(BUILD_DIR)/bench/bench_*; do echo "== $$b"; $$b; done

# Address + undefined-behaviour sanitizers over the whole suite.
sanitize: deps
	@cmake -S . -B $(ASAN_DIR) -DCMAKE_BUILD_TYPE=Debug -DCVSCENE_SANITIZE=ON -DCVSCENE_BUILD_BENCH=OFF >/dev/null
	@cmake --build $(ASAN_DIR) -j$(JOBS)
	@cd $(ASAN_DIR) && xvfb-run -a -s "-screen 0 1280x1024x24" \
	  env ASAN_OPTIONS=detect_leaks=1 LSAN_OPTIONS=suppressions=$(CURDIR)/tests/lsan.supp \
	  ctest --output-on-failure -j$(JOBS) --timeout 600

clean:
	rm -rf $(BUILD_DIR) $(ASAN_DIR) out
