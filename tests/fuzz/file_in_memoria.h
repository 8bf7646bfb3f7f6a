// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A file in memory that the game's readers open by name, as they open the
// files beside the program: nothing is left on disk, and each input of a fuzz
// target rewrites it whole.

#include <sys/mman.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace lesta::fuzz {

class FileInMemoria {
public:
    explicit FileInMemoria(const char* nome) : fd_(::memfd_create(nome, 0)) {
        if (fd_ < 0) fallito(nome);
    }
    FileInMemoria(const FileInMemoria&) = delete;
    FileInMemoria& operator=(const FileInMemoria&) = delete;

    const std::string& percorso() const { return percorso_; }

    void scrivi(std::string_view testo) const {
        if (::ftruncate(fd_, 0) != 0 ||
            ::pwrite(fd_, testo.data(), testo.size(), 0) != static_cast<ssize_t>(testo.size()))
            fallito(percorso_.c_str());
    }

private:
    [[noreturn]] static void fallito(const char* cosa) {
        std::perror(cosa);
        std::abort();
    }

    int fd_;
    std::string percorso_ = "/proc/self/fd/" + std::to_string(fd_);
};

}  // namespace lesta::fuzz
