#include "fluids/JsonField.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <nlohmann/json.hpp>
#include <system_error>
#include <utility>

#include "fluids/PropertyError.h"

namespace marvello::fluids {
namespace {

using nlohmann::json;

constexpr std::uintmax_t largestFile = 1'000'000;  // bytes; the largest file takes less than a fiftieth
constexpr std::size_t maxEntries = 200;

[[noreturn]] void refuseFile(const std::string& file, const std::string& reason) {
    throw PropertyError(Fault::fluidFile, file + ": " + reason + ".");
}

json parse(const std::string& text, const std::string& file) {
    try {
        return json::parse(text);
    } catch (const json::parse_error& error) {
        const auto end = text.begin() + static_cast<std::ptrdiff_t>(std::min(error.byte, text.size()));
        refuseFile(file, "line " + std::to_string(std::count(text.begin(), end, '\n') + 1) +
                             " is ill-formed; the text of a fluid file is JSON");
    } catch (const json::exception&) {
        refuseFile(file, "a number of the file is too large");
    }
}

}  // namespace

FluidText readFluidText(const std::filesystem::path& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) refuseFile(path.string(), "there is no such file");
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    if (size > largestFile || error) refuseFile(path.string(), "the file is too large for a fluid file");
    std::ifstream file(path, std::ios::binary);
    std::string text(size + 1, '\0');  // one more, to meet the end of the file
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(file.gcount()));
    if (file.bad() || !file.eof()) refuseFile(path.string(), "the file cannot be read");
    return {path.string(), std::move(text)};
}

JsonField::JsonField(const json& value, std::string file, std::string name)
    : value_(&value), file_(std::move(file)), name_(std::move(name)) {}

void JsonField::refuse(const std::string& reason) const {
    refuseFile(file_, (name_.empty() ? "" : "field " + name_ + " ") + reason);
}

JsonField JsonField::at(const std::string& key) const {
    if (!value_->is_object()) refuse("is not an object");
    const auto found = value_->find(key);
    if (found == value_->end()) refuse(name_.empty() ? "the field " + key + " is missing" : "has no " + key);
    return {*found, file_, name_.empty() ? key : name_ + "." + key};
}

bool JsonField::has(const std::string& key) const { return value_->is_object() && value_->contains(key); }

std::vector<std::string> JsonField::keys() const {
    if (!value_->is_object()) refuse("is not an object");
    if (value_->size() > maxEntries) refuse("has more than " + std::to_string(maxEntries) + " entries");
    std::vector<std::string> found;
    for (const auto& member : value_->items()) found.push_back(member.key());
    return found;
}

double JsonField::number() const {
    if (!value_->is_number()) refuse("is not a number");
    const double found = value_->get<double>();
    if (!std::isfinite(found)) refuse("is not finite");
    return found;
}

double JsonField::number(double least, double most) const {
    const double found = number();
    if (!(found >= least && found <= most)) {
        refuse("is " + value_->dump() + ", not within " + json(least).dump() + " to " + json(most).dump());
    }
    return found;
}

double JsonField::positive() const {
    const double found = number();
    if (!(found > 0 && found < 1e9)) refuse("is " + value_->dump() + ", not positive");
    return found;
}

std::string JsonField::text() const {
    if (!value_->is_string()) refuse("is not a text");
    return value_->get<std::string>();
}

std::size_t JsonField::size() const {
    if (!value_->is_array()) refuse("is not a list");
    if (value_->size() > maxEntries) refuse("has more than " + std::to_string(maxEntries) + " entries");
    return value_->size();
}

JsonField JsonField::entry(std::size_t index) const {
    return {(*value_)[index], file_, name_ + "[" + std::to_string(index) + "]"};
}

JsonFile::JsonFile(const FluidText& file, const std::string& format)
    : name_(file.file), content_(std::make_unique<const json>(parse(file.text, name_))) {
    const JsonField kind = root().at("format");
    if (kind.text() != format) kind.refuse("is not \"" + format + "\"");
    const JsonField version = root().at("version");
    if (version.number() != 1) version.refuse("is not 1, the only version known");
}

JsonFile::~JsonFile() = default;

JsonField JsonFile::root() const { return {*content_, name_, ""}; }

}  // namespace marvello::fluids
