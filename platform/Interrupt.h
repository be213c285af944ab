#pragma once

#include <cstddef>
#include <string>

namespace marvello {

/// While it lives, an interrupt of the user (Ctrl+C) or the wish of the system that the process ends is noted
/// and does not end it; a second one does, at once and with the status `status`. A signal that was ignored
/// before stays ignored. There is one object at a time.
class Interrupt {
  public:
    /// The status of a process that an interrupt ended.
    static constexpr int status = 130;

    /// Throws std::system_error.
    Interrupt();
    ~Interrupt();
    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;

    /// Whether the process was asked to end; from any thread.
    static bool isAsked();
    /// Does what an interrupt does: ends the waits for input; from any thread.
    static void ask();
};

/// The bytes of a file or of standard input.
class ByteInput {
  public:
    /// "-" is standard input. Throws std::system_error if the file cannot be opened.
    explicit ByteInput(const std::string& file);
    ~ByteInput();
    ByteInput(const ByteInput&) = delete;
    ByteInput& operator=(const ByteInput&) = delete;

    /// Reads what is there, up to `size` bytes, and waits until there is something. Returns 0 at the end, and
    /// once an interrupt was asked for. Throws std::system_error.
    std::size_t read(char* bytes, std::size_t size);

  private:
    int file_;
};

}  // namespace marvello
