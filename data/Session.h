#pragma once

#include <memory>
#include <string>
#include <typeindex>
#include <typeinfo>
#include <utility>
#include <vector>

#include "data/Hooks.h"
#include "data/clsApplication.h"
#include "data/clsDatabase.h"

namespace marvello {

/// All that a run of the program shares and changes. `main` owns one; a tool, a test and a thread of its own
/// make theirs in a line, and nothing of it is left afterwards.
///
/// It is the current session of its thread from its making until it is destroyed, which is in the same thread
/// and after those that were made later; then the one before is current again. No thread sees that of
/// another.
class Session {
  public:
    /// Without a folder: that of the running program.
    explicit Session(std::string applicationFolder = {});
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// Throws std::logic_error if the thread has no session.
    static Session& current();

    /// The folder with the catalogue, the property library, `Fluids` and the pictures, without a separator at
    /// the end.
    std::string applicationFolder;
    Hooks hooks;
    bool abortRequested = false;

    /// Returns the one object of its type that the session has, made at its first use. A module keeps in it
    /// what it shares.
    template <class Part>
    Part& part() {
        const std::type_index type = typeid(Part);
        for (const auto& [made, object] : parts_)
            if (made == type) return *static_cast<Part*>(object.get());
        const auto object = std::make_shared<Part>();
        parts_.emplace_back(type, object);
        return *object;
    }

  private:
    Session* former_;
    std::vector<std::pair<std::type_index, std::shared_ptr<void>>> parts_;
};

/// Those of the current session.
clsDatabase& gDatabase();
clsApplication& gApplication();

/// Set by an abort button during a run; read between compressors and in long loops. Cleared at program start,
/// by whoever starts a run, and at the entry of each compressor's calculation.
bool& AbortRequested();

}  // namespace marvello
