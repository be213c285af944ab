#include "app/Start.h"

#include "app/Application.h"
#include "app/InstallHooks.h"
#include "data/Session.h"

int main(int argc, char** argv) {
    marvello::Session session;
    marvello::Application application(argc, argv);
    marvello::installHooks(session.hooks);
    return marvello::Main();
}
