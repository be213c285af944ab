#include "reports/pdf/PdfStream.h"

#include <cerrno>
#include <system_error>

namespace marvello {

namespace {

constexpr std::size_t bufferSize = 1 << 16;

}  // namespace

void PdfStream::open(const std::string& fileName) {
    file_.reset();
    fileName_ = fileName;
    written_ = 0;
    errno = 0;
    file_.reset(std::fopen(fileName.c_str(), "wb"));
    if (!file_) fail("opened for writing");
    std::setvbuf(file_.get(), nullptr, _IOFBF, bufferSize);
}

void PdfStream::write(std::string_view bytes) {
    if (!file_) throw PdfFileError("No PDF file is open.");
    errno = 0;
    if (std::fwrite(bytes.data(), 1, bytes.size(), file_.get()) != bytes.size()) fail("written");
    written_ += static_cast<std::int64_t>(bytes.size());
}

void PdfStream::close() {
    if (!file_) throw PdfFileError("No PDF file is open.");
    errno = 0;
    if (std::fclose(file_.release()) != 0) fail("written to its end");
}

void PdfStream::fail(const char* what) const {
    const std::error_code reason(errno != 0 ? errno : EIO, std::generic_category());
    throw PdfFileError("The PDF file \"" + fileName_ + "\" cannot be " + what + ": " + reason.message() +
                       ".");
}

}  // namespace marvello
