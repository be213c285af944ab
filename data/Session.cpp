#include "data/Session.h"

#include <stdexcept>

#include "platform/Places.h"

namespace marvello {

namespace {

thread_local Session* ofThisThread = nullptr;

}  // namespace

Session::Session(std::string folder) : applicationFolder(std::move(folder)), former_(ofThisThread) {
    if (applicationFolder.empty()) applicationFolder = programFile().parent_path().string();
    ofThisThread = this;
}

Session::~Session() {
    while (!parts_.empty()) parts_.pop_back();  // a part may use those that were made before it
    ofThisThread = former_;
}

Session& Session::current() {
    if (ofThisThread == nullptr) throw std::logic_error("This thread has no session.");
    return *ofThisThread;
}

clsDatabase& gDatabase() { return Session::current().part<clsDatabase>(); }

clsApplication& gApplication() { return Session::current().part<clsApplication>(); }

bool& AbortRequested() { return Session::current().abortRequested; }

}  // namespace marvello
