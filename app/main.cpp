#include "app/Start.h"

#include "app/Application.h"
#include "app/InstallHooks.h"
#include "data/Globals.h"

int main(int argc, char** argv) {
    marvello::Application application(argc, argv);
    marvello::installHooks();
    const int status = marvello::Main();
    marvello::releaseGlobals();
    return status;
}
