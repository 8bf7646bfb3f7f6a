// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A media player as the game drives it: a file name, a command word, a start
// position. No result is ever read; a command that fails does nothing.

#include <string>
#include <string_view>

namespace lesta {

class Media {
public:
    virtual ~Media() = default;
    // The file of the next "Open", a full path.
    virtual void FileName(const std::string& percorso) = 0;
    // "Open", "Play" or "Close" (also written "close").
    virtual void Command(std::string_view comando) = 0;
    // The next "Play" starts here (0: the beginning).
    virtual void From(int posizione) = 0;
    // Whether "Close" and "Open" return only once they are over.
    virtual void Wait(bool attendi) = 0;
};

// The player when there is no sound at all: every command does nothing.
class MediaMuto final : public Media {
public:
    void FileName(const std::string&) override {}
    void Command(std::string_view) override {}
    void From(int) override {}
    void Wait(bool) override {}
};

}  // namespace lesta
