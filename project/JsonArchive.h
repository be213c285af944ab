#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "project/ProjectFile.h"

namespace marvello {

/// The words of an enumeration in files; each has `static constexpr std::array<std::pair<E, const char*>,
/// n>`.
template <class Enumeration>
struct FileWords;

namespace json_archive {

using Json = nlohmann::ordered_json;

template <class T>
inline constexpr bool isVector = false;
template <class T>
inline constexpr bool isVector<std::vector<T>> = true;
template <class T>
inline constexpr bool isOptional = false;
template <class T>
inline constexpr bool isOptional<std::optional<T>> = true;
template <class T>
inline constexpr bool isMap = false;
template <class K, class V>
inline constexpr bool isMap<std::map<K, V>> = true;

/// The entries of one list, or of one object of names.
inline constexpr std::size_t maxEntries = 10'000;
/// Larger numbers are damage, and no float has them.
inline constexpr double maxNumber = 1e30;

template <class Enumeration>
std::string wordOf(Enumeration value) {
    return nameIn(FileWords<Enumeration>::words, value);
}

}  // namespace json_archive

/// Writes a record as an object: `describe(archive, record)` names its members, for JsonReader too.
class JsonWriter {
  public:
    static constexpr bool isReading = false;

    /// A member; one that is empty is left out.
    template <class T>
    void operator()(const char* name, const T& value) {
        Json json = jsonOf(value);
        if (json_archive::isOptional<T> ? !json.is_null() : !isEmpty(json)) object_[name] = std::move(json);
    }
    json_archive::Json take() { return std::move(object_); }

    template <class T>
    static json_archive::Json jsonOf(const T& value) {
        using namespace json_archive;
        if constexpr (isOptional<T>) {
            return value ? jsonOf(*value) : Json();
        } else if constexpr (isVector<T>) {
            Json list = Json::array();
            for (const auto& each : value) list.push_back(jsonOf(each));
            return list;
        } else if constexpr (isMap<T>) {
            Json object = Json::object();
            for (const auto& [key, each] : value) object[nameOf(key)] = jsonOf(each);
            return object;
        } else if constexpr (std::is_enum_v<T>) {
            return wordOf(value);
        } else if constexpr (std::is_same_v<T, float>) {
            return static_cast<double>(value);
        } else if constexpr (std::is_arithmetic_v<T> || std::is_same_v<T, std::string>) {
            return value;
        } else {
            JsonWriter writer;
            T written = value;  // one description serves both ways, and may write
            describe(writer, written);
            return writer.take();
        }
    }

  private:
    using Json = json_archive::Json;

    static bool isEmpty(const Json& json) {
        return json.is_string() ? json.get_ref<const std::string&>().empty()
                                : json.is_structured() && json.empty();
    }
    static std::string nameOf(const std::string& key) { return key; }
    template <class Enumeration>
    static std::string nameOf(Enumeration key) {
        return json_archive::wordOf(key);
    }

    Json object_ = Json::object();
};

/// Reads a record from an object; a member that is not there stays as it is.
class JsonReader {
  public:
    static constexpr bool isReading = true;

    /// `place` is the way to the object. Throws ProjectFault, as the others do.
    JsonReader(const json_archive::Json& object, std::string place)
        : object_(object), place_(std::move(place)) {
        if (!object_.is_object()) refuseKind(place_, "an object");
    }

    template <class T>
    void operator()(const char* name, T& value) {
        names_.emplace_back(name);
        if (const auto found = object_.find(name); found != object_.end()) read(*found, placeOf(name), value);
    }
    /// To be called after all members: another one is refused.
    void finish() const {
        for (const auto& [name, value] : object_.items())
            if (std::ranges::find(names_, name) == names_.end())
                throw ProjectFault(ProjectFault::Reason::unknownName, placeOf(name));
    }
    /// The object is not what is expected.
    [[noreturn]] void refuse(const char* expected) const { refuseKind(place_, expected); }

    template <class T>
    static void read(const json_archive::Json& json, const std::string& place, T& value) {
        using namespace json_archive;
        if constexpr (isOptional<T>) {
            read(json, place, value.emplace());
        } else if constexpr (isVector<T>) {
            if (!json.is_array()) refuseKind(place, "a list");
            checkCount(json, place);
            value.clear();
            for (std::size_t i = 0; i < json.size(); ++i)
                read(json[i], place + '[' + std::to_string(i + 1) + ']', value.emplace_back());
        } else if constexpr (isMap<T>) {
            if (!json.is_object()) refuseKind(place, "an object");
            checkCount(json, place);
            value.clear();
            for (const auto& [name, each] : json.items()) {
                const std::string at = place + '.' + name;
                read(each, at, value[keyIn<typename T::key_type>(name, at)]);
            }
        } else if constexpr (std::is_enum_v<T>) {
            if (!json.is_string()) refuseKind(place, "a word");
            value = enumeratorOf<T>(json.get<std::string>(), place, ProjectFault::Reason::outOfRange);
        } else if constexpr (std::is_same_v<T, bool>) {
            if (!json.is_boolean()) refuseKind(place, "true or false");
            value = json.get<bool>();
        } else if constexpr (std::is_integral_v<T>) {
            if (!json.is_number_integer()) refuseKind(place, "a whole number");
            value = static_cast<T>(within(json.get<double>(), std::is_unsigned_v<T> ? 0 : -1e9, 1e9, place));
        } else if constexpr (std::is_floating_point_v<T>) {
            if (!json.is_number()) refuseKind(place, "a number");
            value = static_cast<T>(within(json.get<double>(), -maxNumber, maxNumber, place));
        } else if constexpr (std::is_same_v<T, std::string>) {
            if (!json.is_string()) refuseKind(place, "a text");
            value = json.get<std::string>();
        } else {
            JsonReader reader(json, place);
            describe(reader, value);
            reader.finish();
        }
    }

  private:
    [[noreturn]] static void refuseKind(const std::string& place, const char* expected) {
        throw ProjectFault(ProjectFault::Reason::wrongKind, place, expected);
    }
    static double within(double value, double low, double high, const std::string& place) {
        if (!(value >= low && value <= high))
            throw ProjectFault(ProjectFault::Reason::outOfRange, place, "a number that is not as large");
        return value;
    }
    static void checkCount(const json_archive::Json& json, const std::string& place) {
        if (json.size() > json_archive::maxEntries)
            throw ProjectFault(ProjectFault::Reason::outOfRange, place,
                               "at most " + std::to_string(json_archive::maxEntries) + " entries");
    }
    template <class Key>
    static Key keyIn(const std::string& name, const std::string& place) {
        if constexpr (std::is_enum_v<Key>)
            return enumeratorOf<Key>(name, place, ProjectFault::Reason::unknownName);
        else
            return name;
    }
    template <class Enumeration>
    static Enumeration enumeratorOf(const std::string& word, const std::string& place,
                                    ProjectFault::Reason reason) {
        std::string words;
        for (const auto& [value, each] : FileWords<Enumeration>::words) {
            if (word == each) return value;
            words += (words.empty() ? "" : ", ") + std::string(each);
        }
        throw ProjectFault(reason, place, "one of " + words);
    }
    std::string placeOf(const std::string& name) const { return place_.empty() ? name : place_ + '.' + name; }

    const json_archive::Json& object_;
    std::string place_;
    std::vector<std::string> names_;
};

}  // namespace marvello
