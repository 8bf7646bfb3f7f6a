# make run    installs what is missing, builds, and starts the game
# make test   installs what is missing, builds, and runs every test

BUILD ?= build
JOBS ?= $(shell nproc 2>/dev/null || echo 2)
CMAKE_FLAGS ?= -DCMAKE_BUILD_TYPE=RelWithDebInfo

.PHONY: run test build deps clean

run: build
	cd $(BUILD) && ./lesta

test: build
	cd $(BUILD) && QT_QPA_PLATFORM=offscreen SDL_AUDIODRIVER=dummy ctest --output-on-failure -j $(JOBS)

build: deps
	cmake -S . -B $(BUILD) -G Ninja $(CMAKE_FLAGS)
	cmake --build $(BUILD) -j $(JOBS)

deps:
	@scripts/installa-pacchetti

clean:
	rm -rf $(BUILD)
