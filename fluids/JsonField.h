#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

namespace marvello::fluids {

/// One value of a JSON file with the way to it, so that a complaint can name the file and the field. What
/// reads the value throws PropertyError where it is not of the kind or within the bounds asked for.
class JsonField {
  public:
    /// `value` must outlive the field. `name` is the way to it from the root, which has an empty one.
    JsonField(const nlohmann::json& value, std::string file, std::string name);

    /// Throws: the file, the field, and `reason` as the rest of the sentence.
    [[noreturn]] void refuse(const std::string& reason) const;

    /// A member of an object; refused where it is missing.
    JsonField at(const std::string& key) const;
    bool has(const std::string& key) const;

    /// The keys of an object in the order of the alphabet.
    std::vector<std::string> keys() const;

    /// A finite number.
    double number() const;
    double number(double least, double most) const;
    double positive() const;

    std::string text() const;

    /// What `read` makes of each entry of a list.
    template <class Read>
    auto list(Read read) const {
        std::vector<decltype(read(*this))> found;
        const std::size_t count = size();
        found.reserve(count);
        for (std::size_t i = 0; i < count; ++i) found.push_back(read(entry(i)));
        return found;
    }

  private:
    std::size_t size() const;
    JsonField entry(std::size_t index) const;

    const nlohmann::json* value_;
    std::string file_;
    std::string name_;
};

/// A file of the library as it stands on disk.
struct FluidText {
    std::string file;  ///< its path, for complaints
    std::string text;
};

/// Throws PropertyError with the file and the reason, if it is missing, too large or unreadable.
FluidText readFluidText(const std::filesystem::path& path);

/// A JSON file of the library in memory: an object whose `format` says what it is, of version 1.
class JsonFile {
  public:
    /// Throws PropertyError with the file, the line or the field, and the reason, if the text is no JSON, or
    /// of another format.
    JsonFile(const FluidText& file, const std::string& format);
    ~JsonFile();
    JsonFile(const JsonFile&) = delete;
    JsonFile& operator=(const JsonFile&) = delete;

    /// Holds as long as the file.
    JsonField root() const;

  private:
    std::string name_;
    std::unique_ptr<const nlohmann::json> content_;
};

}  // namespace marvello::fluids
