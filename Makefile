# make run    installs what is missing, builds, and starts the game
# make test   installs what is missing, builds, and runs every test
# make bench  measures start-up, CPU and memory while waiting, and the engine

BUILD ?= build
JOBS ?= $(shell nproc 2>/dev/null || echo 2)
CMAKE_FLAGS ?= -DCMAKE_BUILD_TYPE=RelWithDebInfo

.PHONY: run test bench build deps clean

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

clean:
	rm -rf $(BUILD)
