# make run    installs what is missing, builds, and starts the game
# make test   installs what is missing, builds, and runs every test
<<<<<<< HEAD
# make bench  measures start-up, CPU and memory while waiting, and the engine
=======
# make package builds the Debian package, lesta_<version>_<arch>.deb in build-pkg/
>>>>>>> pacchetto

BUILD ?= build
JOBS ?= $(shell nproc 2>/dev/null || echo 2)
CMAKE_FLAGS ?= -DCMAKE_BUILD_TYPE=RelWithDebInfo
BUILD_PKG ?= build-pkg
# Debian's build flags, all hardening on, less -g: the program ships stripped.
FLAGS_DEBIAN = DEB_BUILD_MAINT_OPTIONS=hardening=+all DEB_CXXFLAGS_MAINT_STRIP=-g dpkg-buildflags --get

<<<<<<< HEAD
.PHONY: run test bench build deps clean
=======
.PHONY: run test build deps clean package
>>>>>>> pacchetto

run: build
	cd $(BUILD) && ./lesta

test: build
	cd $(BUILD) && QT_QPA_PLATFORM=offscreen SDL_AUDIODRIVER=dummy ctest --output-on-failure -j $(JOBS)

bench: deps
	cmake -S . -B build-rel -G Ninja -DCMAKE_BUILD_TYPE=Release
	cmake --build build-rel -j $(JOBS) --target lesta lesta-sim lesta-misure
	scripts/misura build-rel

build: deps
	cmake -S . -B $(BUILD) -G Ninja $(CMAKE_FLAGS)
	cmake --build $(BUILD) -j $(JOBS)

deps:
	@scripts/installa-pacchetti

# A Release build of the game alone with Debian's flags, then CPack. The
# tests are built and run by `make test`.
package:
	@scripts/installa-pacchetti dpkg-dev
	cmake -S . -B $(BUILD_PKG) -G Ninja -DCMAKE_BUILD_TYPE=Release -DCMAKE_SKIP_INSTALL_ALL_DEPENDENCY=ON \
	  -DCMAKE_CXX_FLAGS="$$($(FLAGS_DEBIAN) CPPFLAGS) $$($(FLAGS_DEBIAN) CXXFLAGS)" \
	  -DCMAKE_EXE_LINKER_FLAGS="$$($(FLAGS_DEBIAN) LDFLAGS)"
	cmake --build $(BUILD_PKG) -j $(JOBS) --target lesta
	cd $(BUILD_PKG) && cpack

clean:
	rm -rf $(BUILD) $(BUILD_PKG)
