// Any bytes as a bitmap file, and as the buffer of an image: refused, or an image whose bytes are all there.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <stdexcept>
#include <string_view>

#include "reports/pdf/Bitmap.h"
#include "reports/pdf/clsPDFCreator.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using namespace marvello;

clsPDFCreator& creator() {
    static clsPDFCreator pdf;
    return pdf;
}

void tryFile(std::string_view bytes) {
    try {
        const auto bitmap = readBitmap(bytes);
        if (!bitmap) return;
        // What the reader lets in is never too short for the writer, which would throw std::invalid_argument.
        for (const bool gray : {false, true})
            creator().LoadImgFromBuffer("I", bitmap->buffer, bitmap->palette, gray);
    } catch (const BitmapError&) {
    }
}

void tryBuffer(std::string_view bytes) {
    const std::string_view palette = bytes.substr(bytes.size() / 2);
    for (const bool gray : {false, true}) {
        try {
            creator().LoadImgFromBuffer("I", bytes, palette, gray);
        } catch (const std::invalid_argument&) {
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    static const test::TemporaryFolder folder("marvello-fuzz");
    creator().InitPDFFile(folder / "bitmaps.pdf");
    tryFile(bytes);
    tryBuffer(bytes);
    return 0;
}
