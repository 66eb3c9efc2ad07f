# SPDX-License-Identifier: MIT
# The commands of the project; what they do is in scripts/.
.PHONY: build check test fuzz soak reliability demo reference format check-format bench installer setup setup-x86 clean

build:
	@scripts/build
# The inner loop: the tests that can notice what has changed, and what they take.
check:
	@scripts/check
test:
	@scripts/test
fuzz:
	@scripts/build native && scripts/fuzz
demo:
	@scripts/demo
reference:
	@scripts/reference
# Long runs: random use for half an hour; what make test does in short.
soak reliability: build
	@scripts/$@
format:
	@scripts/format
check-format:
	@scripts/check-format
setup:
	@scripts/setup
setup-x86:
	@scripts/setup-x86
bench:
	@scripts/bench
installer:
	@scripts/installer
# The Debian root of 32-bit Wine is kept: it does not depend on the sources.
clean:
	@scripts/clean
