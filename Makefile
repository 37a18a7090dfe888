# Short names for what the scripts and presets do.
JOBS ?= $(shell nproc)

.PHONY: run test fuzz bench format lint

run:
	@scripts/run

test:
	@scripts/test

fuzz:
	@scripts/fuzz

bench:
	@scripts/setup
	cmake --preset bench
	cmake --build --preset bench -j $(JOBS)
	@for program in build/bench/bin/*_bench; do "$$program"; done

format:
	@scripts/setup --format
	git ls-files '*.h' '*.cpp' | xargs clang-format -i

lint:
	@scripts/setup --tools
	cmake --preset debug
	git ls-files 'src/*.cpp' | xargs -P $(JOBS) -n 4 clang-tidy --quiet -p build/debug --warnings-as-errors='*'
