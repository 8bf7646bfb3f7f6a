# SPDX-License-Identifier: GPL-3.0-or-later
# make run      installs what is missing, builds, and starts the game
# make test     installs what is missing, builds, and runs every test: the
#               suite (with a whole match under valgrind and the real windows
#               played by mouse), the suite again under the sanitizers, and
#               the fuzz targets for a bounded time
# make bench    measures start-up (beside a bare Qt window), CPU and memory
#               while waiting, and the engine
# make package  builds the Debian package from debian/ in build-pkg/: the source
#               package and lesta_<version>_<arch>.deb, built by dpkg-buildpackage
#               with every test run; then lintian, desktop-file-validate and
#               appstreamcli check them
# make reproducible  builds the package a second time, in another folder and
#               without the tests, and compares the two byte for byte

BUILD ?= build
BUILD_ASAN ?= build-asan
BUILD_FUZZ ?= build-fuzz
BUILD_REL ?= build-rel
BUILD_PKG ?= build-pkg
BUILD_PKG2 ?= build-pkg2
JOBS ?= $(shell nproc 2>/dev/null || echo 2)
CMAKE_FLAGS ?= -DCMAKE_BUILD_TYPE=RelWithDebInfo
# The sanitizers: assertions on, -O1 for a quicker build and a usable speed.
CMAKE_FLAGS_ASAN ?= -DLESTA_SANITIZE=ON -DCMAKE_BUILD_TYPE=Debug "-DCMAKE_CXX_FLAGS_DEBUG=-O1 -g"
FUZZ_SECONDS ?= 60
# No screen, no sound card; and every test runs: one that needs a missing
# tool (valgrind, Weston) fails rather than being skipped.
SENZA_SCHERMO = QT_QPA_PLATFORM=offscreen SDL_AUDIODRIVER=dummy LESTA_TUTTI_I_TEST=1

.PHONY: run test test-suite test-asan test-fuzz bench package reproducible build deps clean

run: build
	cd $(BUILD) && ./lesta

test: test-suite test-asan test-fuzz

# Every test of the plain build; among them a whole match under valgrind.
test-suite: build
	cd $(BUILD) && $(SENZA_SCHERMO) ctest --output-on-failure -j $(JOBS)

# The same suite built with AddressSanitizer and UndefinedBehaviorSanitizer:
# any report, a leak at exit included, fails its test.
test-asan: export ASAN_OPTIONS = detect_leaks=1:halt_on_error=1:print_stacktrace=1:strict_string_checks=1:detect_stack_use_after_return=1:check_initialization_order=1:strict_init_order=1
test-asan: export UBSAN_OPTIONS = halt_on_error=1:print_stacktrace=1
test-asan: deps
	cmake -S . -B $(BUILD_ASAN) -G Ninja $(CMAKE_FLAGS_ASAN)
	cmake --build $(BUILD_ASAN) -j $(JOBS)
	cd $(BUILD_ASAN) && $(SENZA_SCHERMO) ctest --output-on-failure -j $(JOBS)

# The fuzz targets, built with clang's libFuzzer, each for FUZZ_SECONDS.
test-fuzz: deps
	cmake -S . -B $(BUILD_FUZZ) -G Ninja -DCMAKE_CXX_COMPILER=clang++ -DLESTA_FUZZ=ON \
	  -DCMAKE_BUILD_TYPE=RelWithDebInfo -DLESTA_FUZZ_SECONDS=$(FUZZ_SECONDS)
	cmake --build $(BUILD_FUZZ) -j $(JOBS)
	cd $(BUILD_FUZZ) && ctest --output-on-failure -j $(JOBS)

# A Release build, then the figures of scripts/misura.
bench: deps
	@scripts/installa-pacchetti jwm
	cmake -S . -B $(BUILD_REL) -G Ninja -DCMAKE_BUILD_TYPE=Release
	cmake --build $(BUILD_REL) -j $(JOBS) --target lesta lesta-sim lesta-misure lesta-avvio lesta-finestra-nuda
	scripts/misura $(BUILD_REL)

# The Debian package, built from debian/ by dpkg-buildpackage in a folder of
# its own, its tests run; then lintian (any error or warning fails),
# desktop-file-validate and appstreamcli (scripts/pacchetto).
package: deps
	@scripts/installa-pacchetti debhelper dpkg-dev lintian appstream desktop-file-utils
	scripts/pacchetto $(BUILD_PKG) $(JOBS)

# A second build of the package, elsewhere and without the tests: the same
# bytes, the package of the debugging symbols included.
reproducible: package
	DEB_BUILD_PROFILES=nocheck scripts/pacchetto $(BUILD_PKG2) $(JOBS)
	for f in $(BUILD_PKG)/*.deb; do cmp "$$f" $(BUILD_PKG2)/"$${f##*/}" || exit 1; done

build: deps
	cmake -S . -B $(BUILD) -G Ninja $(CMAKE_FLAGS)
	cmake --build $(BUILD) -j $(JOBS)

deps:
	@scripts/installa-pacchetti

clean:
	rm -rf $(BUILD) $(BUILD_ASAN) $(BUILD_FUZZ) $(BUILD_REL) $(BUILD_PKG) $(BUILD_PKG2)
