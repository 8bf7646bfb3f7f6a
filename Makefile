# SPDX-License-Identifier: GPL-3.0-or-later
# make run      installs what is missing, builds, and starts the game
# make test     installs what is missing, builds, and runs every test: the
#               suite (with a whole match under valgrind and the real windows
#               played by mouse), the suite again under the sanitizers, and
#               the fuzz targets for a bounded time
# make bench    measures start-up (beside a bare Qt window), CPU and memory
#               while waiting, and the engine
# make package  builds the Debian package, lesta_<version>_<arch>.deb in build-pkg/,
#               and checks it with lintian and its AppStream data with appstreamcli

BUILD ?= build
BUILD_ASAN ?= build-asan
BUILD_FUZZ ?= build-fuzz
BUILD_REL ?= build-rel
BUILD_PKG ?= build-pkg
JOBS ?= $(shell nproc 2>/dev/null || echo 2)
CMAKE_FLAGS ?= -DCMAKE_BUILD_TYPE=RelWithDebInfo
# The sanitizers: assertions on, -O1 for a quicker build and a usable speed.
CMAKE_FLAGS_ASAN ?= -DLESTA_SANITIZE=ON -DCMAKE_BUILD_TYPE=Debug "-DCMAKE_CXX_FLAGS_DEBUG=-O1 -g"
FUZZ_SECONDS ?= 60
SENZA_SCHERMO = QT_QPA_PLATFORM=offscreen SDL_AUDIODRIVER=dummy
# Debian's build flags, all hardening on, less -g: the program ships stripped.
FLAGS_DEBIAN = DEB_BUILD_MAINT_OPTIONS=hardening=+all DEB_CXXFLAGS_MAINT_STRIP=-g dpkg-buildflags --get

.PHONY: run test test-suite test-asan test-fuzz bench package build deps clean

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

# A Release build of the game alone with Debian's flags, then CPack. The
# tests are built and run by `make test`. The package is then checked:
# lintian fails on any error or warning (infos and pedantic notes are shown),
# appstreamcli on any error or warning in the AppStream data.
package:
	@scripts/installa-pacchetti dpkg-dev lintian appstream
	cmake -S . -B $(BUILD_PKG) -G Ninja -DCMAKE_BUILD_TYPE=Release -DCMAKE_SKIP_INSTALL_ALL_DEPENDENCY=ON \
	  -DCMAKE_CXX_FLAGS="$$($(FLAGS_DEBIAN) CPPFLAGS) $$($(FLAGS_DEBIAN) CXXFLAGS)" \
	  -DCMAKE_EXE_LINKER_FLAGS="$$($(FLAGS_DEBIAN) LDFLAGS)"
	cmake --build $(BUILD_PKG) -j $(JOBS) --target lesta
	rm -f $(BUILD_PKG)/lesta_*.deb
	cd $(BUILD_PKG) && cpack
	lintian --fail-on error,warning --display-info --pedantic $(BUILD_PKG)/lesta_*.deb
	appstreamcli validate --no-net pacchetto/lesta.gioco.Lesta.metainfo.xml

build: deps
	cmake -S . -B $(BUILD) -G Ninja $(CMAKE_FLAGS)
	cmake --build $(BUILD) -j $(JOBS)

deps:
	@scripts/installa-pacchetti

clean:
	rm -rf $(BUILD) $(BUILD_ASAN) $(BUILD_FUZZ) $(BUILD_REL) $(BUILD_PKG)
