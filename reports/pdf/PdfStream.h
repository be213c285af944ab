#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace marvello {

/// A PDF file cannot be opened or written; the text names the file and the system's reason.
class PdfFileError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The file of a document: bytes go out through a buffer and are counted.
class PdfStream {
  public:
    /// Makes the file, or empties one that is there. Throws PdfFileError.
    void open(const std::string& fileName);
    /// Throws PdfFileError if the disk is full or the like, and if no file is open.
    void write(std::string_view bytes);
    /// Throws PdfFileError if what is left in the buffer cannot be written. The file is closed in any case.
    void close();
    /// Closes a file whose contents no longer matter; without effect when none is open.
    void abandon() { file_.reset(); }

    /// Where the next byte goes. Kept: the first byte has position 1, as readers of earlier files expect.
    std::int64_t position() const { return written_ + 1; }

  private:
    struct Closer {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    [[noreturn]] void fail(const char* what) const;

    std::string fileName_;
    std::unique_ptr<std::FILE, Closer> file_;
    std::int64_t written_ = 0;
};

}  // namespace marvello
