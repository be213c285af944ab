// The photos and dimension drawings next to the tables.

#include <set>

#include "data/FileText.h"
#include "tools/catalogue/Check.h"
#include "tools/catalogue/Rows.h"

namespace marvello {

namespace {

namespace fs = std::filesystem;

unsigned byteAt(const std::string& bytes, std::size_t index) {
    return static_cast<unsigned char>(bytes.at(index));
}

/// Start of image, then segments up to a frame header with a size (ITU-T T.81, annex B).
bool isJpeg(const std::string& bytes) {
    if (!bytes.starts_with("\xFF\xD8")) return false;
    for (std::size_t marker = 2; marker + 9 <= bytes.size();) {
        if (byteAt(bytes, marker) != 0xFF) return false;
        const unsigned kind = byteAt(bytes, marker + 1);
        const bool isFrame = kind >= 0xC0 && kind <= 0xCF && kind != 0xC4 && kind != 0xC8 && kind != 0xCC;
        if (isFrame)
            return (byteAt(bytes, marker + 5) | byteAt(bytes, marker + 6)) != 0 &&
                   (byteAt(bytes, marker + 7) | byteAt(bytes, marker + 8)) != 0;
        marker += 2 + 256 * byteAt(bytes, marker + 2) + byteAt(bytes, marker + 3);
    }
    return false;
}

/// The key of a placeable metafile, and the checksum: all words of its header but the last by exclusive or.
bool isPlaceableMetafile(const std::string& bytes) {
    constexpr std::size_t headerWords = 11;
    if (bytes.size() < 2 * headerWords) return false;
    const auto word = [&](std::size_t index) {
        return byteAt(bytes, 2 * index) | byteAt(bytes, 2 * index + 1) << 8;
    };
    unsigned sum = 0;
    for (std::size_t index = 0; index + 1 < headerWords; ++index) sum ^= word(index);
    return word(0) == 0xCDD7 && word(1) == 0x9AC6 && sum == word(headerWords - 1);
}

class PictureCheck {
  public:
    PictureCheck(const Content& content, fs::path folder, Faults& faults)
        : folder_(std::move(folder)), faults_(faults) {
        forEachRow(content, "tCompressors", faults, [this](const Row& row) {
            series_.insert(row.text("fSerieID"));
            names_.insert(row.text("fSerieID"));
            names_.insert(row.text("fSerieID") + "-" + row.text("fModelID"));
        });
    }

    void run() {
        if (!fs::is_directory(folder_)) return;
        checkFolder("photos", ".jpg", "photo", isJpeg, "no JPEG picture", {"Kestrom"});
        checkFolder("dimensions", ".wmf", "dimension drawing", isPlaceableMetafile, "no placeable metafile",
                    {});
    }

  private:
    template <class IsSound>
    void checkFolder(const std::string& name, const std::string& extension, const std::string& what,
                     IsSound isSound, const std::string& fault, const std::set<std::string>& others) {
        std::set<std::string> found;
        std::error_code ignored;
        for (const auto& entry : fs::directory_iterator(folder_ / name, ignored)) {
            const fs::path& file = entry.path();
            const std::string shown =
                folder_.filename().string() + "/" + name + "/" + file.filename().string();
            if (file.extension() != extension) continue;
            found.insert(file.stem().string());
            const auto bytes = fileText(file);
            if (!bytes)
                faults_.add(shown, "the file cannot be read");
            else if (!isSound(*bytes))
                faults_.add(shown, "the file is " + fault + "; save it anew as one");
            if (!names_.contains(file.stem().string()) && !others.contains(file.stem().string()))
                faults_.warn(shown,
                             "there is no series or series-model of this name; rename or remove the file");
        }
        std::vector<std::string> missing;
        for (const auto& series : series_)
            if (!found.contains(series)) missing.push_back(series);
        if (!missing.empty())
            faults_.warn(folder_.filename().string() + "/" + name,
                         "no " + what + " of the series " + shortList(missing) + "; add SERIES" + extension);
    }

    fs::path folder_;
    Faults& faults_;
    std::set<std::string> series_;
    std::set<std::string> names_;
};

}  // namespace

void checkPictures(const Content& content, const fs::path& pictures, Faults& faults) {
    PictureCheck(content, pictures, faults).run();
}

}  // namespace marvello
